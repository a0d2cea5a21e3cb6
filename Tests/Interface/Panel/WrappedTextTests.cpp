#include "Tarnwick/Interface/Panel/WrappedText.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using namespace Qt::StringLiterals;

class WrappedTextTests : public testing::Test {
protected:
    /// In lines with room for this text and not for a letter more.
    QStringList lines(const QString& text, const QString& widest, int mostLines) const
    {
        return WrappedText(
                   text, style, QFontMetricsF(style.font).horizontalAdvance(widest), mostLines)
            .lines();
    }

    LineStyle style = appearance().line(TextStyle::footnote, TextWeight::regular);
};

TEST_F(WrappedTextTests, breaksBetweenWords)
{
    EXPECT_EQ(
        lines(u"mmmm mmmm mmmm"_s, u"mmmm mmmm"_s, 3), (QStringList{u"mmmm mmmm"_s, u"mmmm"_s}));
}

TEST_F(WrappedTextTests, aWordThatIsTooLongIsBrokenAnywhere)
{
    EXPECT_EQ(lines(u"mmmmmm"_s, u"mmmm"_s, 2), (QStringList{u"mmmm"_s, u"mm"_s}));
}

TEST_F(WrappedTextTests, theLastLineGoesOnWithABrokenWord)
{
    const QStringList shown = lines(u"mmmmmmmmmmmm"_s, u"mmmm…"_s, 2);
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown.last(), u"mmmm…"_s);
}

TEST_F(WrappedTextTests, theLastLineHasOneBlankBetweenWordsAndParagraphs)
{
    const QStringList shown = lines(u"mmmm\ni i i mm mmmmmmm mmmmmmmmmmmmmmm"_s, u"mmmmm"_s, 2);
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown.first(), u"mmmm"_s);
    EXPECT_EQ(shown.last().left(5), u"i i i"_s);
    EXPECT_FALSE(shown.last().contains(u"  "_s));
}

}  // namespace
}  // namespace Tarnwick
