#include "Tarnwick/Interface/List/TitleLayout.h"

#include "Tarnwick/Interface/List/TitleMeasure.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <algorithm>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

constexpr int columnWidth = 222;

LineStyle style()
{
    return Appearance(1.0).line(TextStyle::body, TextWeight::medium);
}

TitleLayout layout(const QString& title)
{
    return {title, style(), columnWidth};
}

TEST(TitleLayout, aShortTitleTakesOneLine)
{
    EXPECT_EQ(layout(u"Fix login"_s).lineCount(), 1);
    EXPECT_FALSE(layout(u"Fix login"_s).isElided());
}

TEST(TitleLayout, aLongTitleTakesTwoLines)
{
    const TitleLayout title = layout(u"Keep the tide table when the feed is late"_s);
    EXPECT_EQ(title.lineCount(), 2);
    EXPECT_FALSE(title.isElided());
    EXPECT_EQ(title.shownText(), u"Keep the tide table when the feed is late"_s);
}

TEST(TitleLayout, whatDoesNotFitInTwoLinesIsElided)
{
    const QString text =
        u"Retry uploads with exponential back-off and resume from the last acknowledged part"_s;
    const TitleLayout title = layout(text);
    EXPECT_EQ(title.lineCount(), 2);
    EXPECT_TRUE(title.isElided());
    EXPECT_TRUE(title.shownText().endsWith(u'…'));
    EXPECT_TRUE(text.startsWith(title.shownText().chopped(1).trimmed()));
}

TEST(TitleLayout, aColumnWithoutRoomForTheEllipsisLeavesOneLine)
{
    // As before a window has its size.
    for (const int width : {-8, 0, 4}) {
        const TitleLayout title(u"Retry uploads with exponential back-off"_s, style(), width);
        EXPECT_EQ(title.lineCount(), 1);
        EXPECT_TRUE(title.isElided());
    }
}

TEST(TitleLayout, anElidedTitleBreaksBetweenWords)
{
    // Letters that the font draws as one, such as the two of "written", count for one column.
    const TitleLayout title = layout(
        u"Buttered, flattened, attributed and written letters, all of them of two that are one"_s);
    ASSERT_TRUE(title.isElided());
    EXPECT_TRUE(title.lineText(0).endsWith(u' ')) << title.lineText(0).toStdString();
}

TEST(TitleLayout, aWordWiderThanTheColumnBreaksAnywhere)
{
    const TitleLayout title = layout(QString(300, u'w'));
    EXPECT_EQ(title.lineCount(), 2);
    EXPECT_TRUE(title.isElided());
    EXPECT_LT(title.shownText().size(), 60);
}

TEST(TitleLayout, elisionNeverCutsACharacterInTwo)
{
    QString family;
    for (int count = 0; count < 60; ++count) {
        family += u"👩‍👩‍👧"_s;
    }
    const QString shown = layout(family).shownText();
    ASSERT_TRUE(shown.endsWith(u'…'));
    EXPECT_EQ(shown.chopped(1).size() % u"👩‍👩‍👧"_s.size(), 0);
}

TEST(TitleLayout, theFirstStrongCharacterGivesTheDirection)
{
    EXPECT_FALSE(layout(u"Fix תיקון"_s).isRightToLeft());
    EXPECT_TRUE(layout(u"תיקון login"_s).isRightToLeft());
    EXPECT_TRUE(layout(u"12: תיקון"_s).isRightToLeft());
    EXPECT_FALSE(layout(u"🚀 12"_s).isRightToLeft());
}

/// The leftmost and rightmost column in which the title leaves ink.
std::pair<int, int> ink(const TitleLayout& title)
{
    QImage image(columnWidth, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    title.draw(painter, {0, 0}, Qt::black);
    painter.end();
    int left = columnWidth;
    int right = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 40) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    return {left, right};
}

TEST(TitleLayout, aRightToLeftTitleEndsAtTheColumnsRight)
{
    const auto [left, right] = ink(layout(u"תיקון"_s));
    EXPECT_GT(left, columnWidth / 2);
    EXPECT_GE(right, columnWidth - 4);
}

TEST(TitleLayout, aLeftToRightTitleBeginsAtTheColumnsLeft)
{
    const auto [left, right] = ink(layout(u"Fix login"_s));
    EXPECT_LE(left, 3);
    EXPECT_LT(right, columnWidth / 2);
}

TEST(TitleLayout, anElidedRightToLeftTitleStaysInItsColumn)
{
    QString text;
    for (int count = 0; count < 30; ++count) {
        text += u"תיקון יישור "_s;
    }
    const TitleLayout title = layout(text);
    ASSERT_TRUE(title.isElided());
    const auto [left, right] = ink(title);
    EXPECT_GE(left, 0);
    EXPECT_LT(left, columnWidth / 2);
    EXPECT_GE(right, columnWidth - 4);
}

TEST(TitleLayout, boxesStandAroundTheLettersOfTheirLine)
{
    const TitleLayout title = layout(u"Keep the tide table when the feed is late"_s);
    ASSERT_EQ(title.lineCount(), 2);
    const auto secondStart = title.lineText(0).size();
    const std::vector<TextRange> both{{0, 4}, {secondStart, secondStart + 3}};
    const std::vector<QRectF> first = title.boxesOf(0, both);
    ASSERT_EQ(first.size(), 4U);
    EXPECT_EQ(first.front().left(), 0);
    EXPECT_EQ(first.front().top(), 0);
    EXPECT_NEAR(
        first.back().right(), QFontMetricsF(style().font).horizontalAdvance(u"Keep"_s), 1.0);
    const std::vector<QRectF> second = title.boxesOf(1, both);
    ASSERT_EQ(second.size(), 3U);
    EXPECT_NEAR(second.front().left(), 0, 0.01);
    EXPECT_EQ(second.front().top(), 18);
    EXPECT_EQ(second.front().height(), 18);
}

TEST(TitleLayout, boxesOfARightToLeftTitleBeginAtItsRight)
{
    const TitleLayout title = layout(u"תיקון קטן"_s);
    const std::vector<QRectF> boxes = title.boxesOf(0, {{0, 5}});
    ASSERT_EQ(boxes.size(), 5U);
    EXPECT_GT(boxes.front().left(), 0);
    for (std::size_t box = 1; box < boxes.size(); ++box) {
        EXPECT_NEAR(boxes[box].left(), boxes[box - 1].right(), 0.1);
    }
}

TEST(TitleLayout, lineBreaksAndControlCharactersBecomeSpaces)
{
    EXPECT_EQ(titleText("one\ntwo\tthree\x1b[0m"), u"one two three [0m"_s);
    EXPECT_EQ(titleText("one\u2028two"), u"one two"_s);
}

TEST(TitleMeasure, countsTheLinesThatTheLayoutHas)
{
    TitleMeasure measure(style());
    const QString text =
        u"Retry uploads with exponential back-off and resume from the last acknowledged part"_s;
    for (qsizetype length = 1; length <= text.size(); ++length) {
        const QString title = text.left(length).trimmed();
        EXPECT_EQ(measure.lineCount(title, columnWidth), layout(title).lineCount())
            << title.toStdString();
    }
    EXPECT_EQ(measure.lineCount(u"תיקון יישור"_s, columnWidth), 1);
}

TEST(TitleMeasure, countsTheLinesOfTitlesWhoseLettersStandCloseTogether)
{
    TitleMeasure measure(style());
    for (const QString& word : {u"AVAVATo"_s, u"a -> b => c"_s, u"fi ffl ///"_s}) {
        const QString text = QStringList(20, word).join(u' ');
        for (qsizetype length = 1; length <= text.size(); ++length) {
            const QString title = text.left(length).trimmed();
            EXPECT_EQ(measure.lineCount(title, columnWidth), layout(title).lineCount())
                << title.toStdString();
        }
    }
}

}  // namespace
