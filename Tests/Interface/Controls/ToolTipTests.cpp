#include "Tarnwick/Interface/Controls/ToolTip.h"

#include <QGuiApplication>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <gmock/gmock.h>

namespace Tarnwick {
namespace {

QString shown(const QString& plain)
{
    return QTextDocumentFragment::fromHtml(toolTipMarkup(plain)).toPlainText();
}

/// As high as Qt's label for tool tips makes it when it tries to be narrow.
qreal heightIn(const QString& plain, qreal width)
{
    QTextDocument document;
    document.setHtml(toolTipMarkup(plain));
    document.setTextWidth(width);
    return document.size().height();
}

TEST(ToolTipTests, signsOfMarkupAreShownAsTheyStand)
{
    const QString title = QStringLiteral("Replace <b> & \"quotes\" by <i>italics</i>");
    EXPECT_TRUE(Qt::mightBeRichText(toolTipMarkup(title)));
    EXPECT_EQ(shown(title), title);
}

TEST(ToolTipTests, linesStayLines)
{
    EXPECT_EQ(shown(QStringLiteral("one\ntwo")), QStringLiteral("one\ntwo"));
}

TEST(ToolTipTests, aShortTextIsNotWrapped)
{
    const QString text = QStringLiteral("Opens this pull request in your browser");
    EXPECT_EQ(heightIn(text, 20), heightIn(text, 2000));
}

TEST(ToolTipTests, aLongTextIsWrapped)
{
    const QString text = QStringLiteral("word ").repeated(80);
    EXPECT_GT(heightIn(text, 200), 3 * heightIn(QStringLiteral("word"), 200));
}

TEST(ToolTipTests, nothingStaysNothing)
{
    EXPECT_EQ(toolTipMarkup(QString()), QString());
}

}  // namespace
}  // namespace Tarnwick
