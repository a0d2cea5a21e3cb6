#include "Tarnwick/Interface/Controls/HelpText.h"

#include <QGuiApplication>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <gmock/gmock.h>

namespace Tarnwick {
namespace {

QString shown(const QString& plain)
{
    return QTextDocumentFragment::fromHtml(helpMarkup(plain)).toPlainText();
}

/// As high as Qt's label for help texts makes it when it tries to be narrow.
qreal heightIn(const QString& plain, qreal width)
{
    QTextDocument document;
    document.setHtml(helpMarkup(plain));
    document.setTextWidth(width);
    return document.size().height();
}

TEST(HelpTextTests, signsOfMarkupAreShownAsTheyStand)
{
    const QString title = QStringLiteral("Replace <b> & \"quotes\" by <i>italics</i>");
    EXPECT_TRUE(Qt::mightBeRichText(helpMarkup(title)));
    EXPECT_EQ(shown(title), title);
}

TEST(HelpTextTests, linesStayLines)
{
    EXPECT_EQ(shown(QStringLiteral("one\ntwo")), QStringLiteral("one\ntwo"));
}

TEST(HelpTextTests, aShortTextIsNotWrapped)
{
    const QString text = QStringLiteral("Opens this pull request in your browser");
    EXPECT_EQ(heightIn(text, 20), heightIn(text, 2000));
}

TEST(HelpTextTests, aLongTextIsWrapped)
{
    const QString text = QStringLiteral("word ").repeated(80);
    EXPECT_GT(heightIn(text, 200), 3 * heightIn(QStringLiteral("word"), 200));
}

TEST(HelpTextTests, nothingStaysNothing)
{
    EXPECT_EQ(helpMarkup(QString()), QString());
}

}  // namespace
}  // namespace Tarnwick
