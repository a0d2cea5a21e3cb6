#include "Tarnwick/Interface/List/RowGeometry.h"

#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

constexpr int designWidth = 420;

CountWidths counts(const QString& reviews, const QString& checks)
{
    return {CountFigures::widthInEm(reviews), CountFigures::widthInEm(checks)};
}

RowMetrics metrics(double scale = 1, int width = designWidth)
{
    setApplicationStyle(scale);
    return rowMetrics(width, counts(u"2/2/3"_s, u"14/14"_s));
}

int height(double scale, int lines, bool hasWarning)
{
    return rowHeight(metrics(scale), {0, lines, hasWarning});
}

TEST(RowGeometry, rowsAreAsHighAsTheirLines)
{
    EXPECT_EQ(height(1, 1, false), 52);
    EXPECT_EQ(height(1, 2, false), 70);
    EXPECT_EQ(height(1, 1, true), 68);
    EXPECT_EQ(height(1, 2, true), 86);
}

TEST(RowGeometry, rowsGrowWithTheText)
{
    EXPECT_EQ(height(1.25, 1, false), 62);
    EXPECT_EQ(height(1.5, 1, false), 70);
}

TEST(RowGeometry, titlesHaveTheDesignsWidths)
{
    EXPECT_EQ(titleWidth(metrics(), 0), 222);
    EXPECT_EQ(titleWidth(metrics(), 1), 204);
    EXPECT_EQ(titleWidth(metrics(), 2), 193);
    EXPECT_EQ(titleWidth(metrics(), 3), 182);
}

TEST(RowGeometry, aRowOfNoStackStandsAtTheMargin)
{
    const RowGeometry row = rowGeometry(metrics(), {0, 1, false});
    EXPECT_EQ(row.blockedBar, QRect(3, 10, 3, 16));
    EXPECT_EQ(row.fill, QRect(8, 1, 404, 50));
    EXPECT_TRUE(row.arrow.isEmpty());
    EXPECT_EQ(row.stateIcon, QRect(16, 10, 16, 16));
    EXPECT_EQ(row.title, QRect(39, 9, 222, 18));
    EXPECT_TRUE(row.warning.isEmpty());
    EXPECT_EQ(row.details, QRect(39, 27, 365, 16));
    EXPECT_EQ(row.line.topLeft(), QPoint(39, 0));
    EXPECT_EQ(row.line.width(), 365);
}

TEST(RowGeometry, theDotStandsBelowTheStateIconInTheMiddleOfTheDetails)
{
    const RowGeometry row = rowGeometry(metrics(), {0, 1, false});
    EXPECT_EQ(row.dot, QRect(21, 32, 6, 6));
    EXPECT_EQ(row.dotHelp, QRect(12, 27, 24, 16));
    EXPECT_EQ(rowGeometry(metrics(), {2, 2, true}).dot.left(), 50);
    for (const auto& [scale, size] : {std::pair(1.25, 8), std::pair(1.5, 10)}) {
        const RowGeometry larger = rowGeometry(metrics(scale), {1, 1, false});
        EXPECT_EQ(larger.dot.size(), QSize(size, size));
        EXPECT_EQ(
            2 * larger.dot.left() + size, 2 * larger.stateIcon.left() + larger.stateIcon.width());
        EXPECT_TRUE(larger.fill.adjusted(2, 2, -2, -2).contains(larger.dot)) << "in the ring";
    }
}

TEST(RowGeometry, badgesStandInColumnsFromTheRight)
{
    const RowGeometry row = rowGeometry(metrics(), {0, 1, false});
    EXPECT_EQ(row.check, QRect(350, 10, 54, 16));
    EXPECT_EQ(row.checkIcon, QRect(350, 10, 16, 16));
    EXPECT_EQ(row.checkCount, QRect(370, 10, 34, 16));
    EXPECT_EQ(row.review, QRect(291, 10, 52, 16));
    EXPECT_EQ(row.reviewIcon, QRect(291, 10, 16, 16));
    EXPECT_EQ(row.reviewCount, QRect(311, 10, 32, 16));
    EXPECT_EQ(row.conflict, QRect(268, 10, 16, 16));
}

TEST(RowGeometry, aStackedRowHasItsArrowAtTheEndOfItsFrame)
{
    const RowGeometry row = rowGeometry(metrics(), {2, 1, false});
    EXPECT_EQ(row.arrow, QRect(27, 12, 11, 11));
    EXPECT_EQ(row.stateIcon, QRect(45, 10, 16, 16));
    EXPECT_EQ(row.title, QRect(68, 9, 193, 18));
}

TEST(RowGeometry, depthFiveIsIndentedLikeDepthThree)
{
    EXPECT_EQ(rowGeometry(metrics(), {5, 1, false}), rowGeometry(metrics(), {3, 1, false}));
    EXPECT_EQ(rowGeometry(metrics(), {5, 1, false}).title.left(), 79);
    EXPECT_NE(rowGeometry(metrics(), {2, 1, false}), rowGeometry(metrics(), {3, 1, false}));
}

TEST(RowGeometry, theWarningStandsBetweenTitleAndDetails)
{
    const RowGeometry row = rowGeometry(metrics(), {0, 2, true});
    EXPECT_EQ(row.title, QRect(39, 9, 222, 36));
    EXPECT_EQ(row.warning, QRect(39, 45, 365, 16));
    EXPECT_EQ(row.details.top(), 61);
    EXPECT_EQ(row.height - row.details.top(), 25);
}

TEST(RowGeometry, theEditorButtonIsHitToTheRowsEdges)
{
    const RowGeometry row = rowGeometry(metrics(), {0, 1, false});
    EXPECT_EQ(row.editorButton, QRect(380, 27, 28, 20));
    EXPECT_EQ(row.editorIcon, QRect(387, 30, 14, 14));
    EXPECT_EQ(row.editorHitArea, QRect(380, 27, 40, 25));
    EXPECT_EQ(row.detailsBesideButton, QRect(39, 27, 333, 16));
}

TEST(RowGeometry, iconsFollowTheTextAndTheMarginDoesNot)
{
    EXPECT_EQ(metrics(1.25).icon, 20);
    EXPECT_EQ(metrics(1.5).icon, 24);
    EXPECT_EQ(metrics(1).arrow, 11);
    EXPECT_EQ(metrics(1.25).arrow, 14);
    EXPECT_EQ(metrics(1.5).arrow, 16);
    const RowGeometry row = rowGeometry(metrics(1.5, 630), {0, 1, false});
    EXPECT_EQ(row.stateIcon, QRect(16, 11, 24, 24));
    EXPECT_EQ(row.title.left(), 47);
    EXPECT_EQ(row.check.left() + row.check.width(), 630 - 16);
}

TEST(RowGeometry, badgesAreNeverNarrowerThanTheShortestCount)
{
    const RowMetrics narrow = rowMetrics(designWidth, {});
    EXPECT_EQ(narrow.reviewWidth, 40);
    EXPECT_EQ(narrow.checkWidth, 40);
}

TEST(RowGeometry, badgesGiveUpGapsBeforeTitlesBecomeNarrow)
{
    EXPECT_EQ(metrics(1, 388).badgeGap, 4);
    EXPECT_EQ(titleWidth(metrics(1, 388), 3), 150);
    EXPECT_EQ(metrics(1, 387).badgeGap, 2);
    EXPECT_EQ(titleWidth(metrics(1, 387), 3), 153);
    EXPECT_EQ(metrics(1, 360).reviewWidth, 50);
}

TEST(RowGeometry, nothingOverlapsAtTheLeastWidth)
{
    const RowGeometry row = rowGeometry(metrics(1, 360), {5, 2, true});
    EXPECT_LT(row.stateIcon.right(), row.title.left());
    EXPECT_LT(row.title.right(), row.conflict.left());
    EXPECT_LT(row.conflict.right(), row.review.left());
    EXPECT_LT(row.review.right(), row.check.left());
    EXPECT_FALSE(row.title.intersects(row.warning));
    EXPECT_FALSE(row.warning.intersects(row.details));
    EXPECT_FALSE(row.detailsBesideButton.intersects(row.editorButton));
}

}  // namespace
