#include "Tarnwick/Interface/List/RowColors.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

const QColor greenOnScreen(0x1A7F37);
const QColor redOnScreen(0xCF222E);
const QColor purpleOnScreen(0x8250DF);
const QColor greyOnScreen(0x656D76);
const QColor darkAmberOnScreen(0xD29922);
const QColor lightAmberOnScreen(0x9A6700);

QRgb stateColor(PullRequestState state, bool isDraft = false)
{
    PullRequest pullRequest = makePullRequest(1);
    pullRequest.state = state;
    pullRequest.isDraft = isDraft;
    return RowColors::stateColor(pullRequest).rgba();
}

QRgb checkColor(ProgressCount checks, const Palette& palette)
{
    return RowColors::checkColor(checks, palette).rgba();
}

QRgb reviewColor(ReviewState state, const Palette& palette)
{
    return RowColors::reviewColor(state, palette).rgba();
}

TEST(RowColors, statesHaveTheirColors)
{
    EXPECT_EQ(stateColor(PullRequestState::open), greenOnScreen.rgba());
    EXPECT_EQ(stateColor(PullRequestState::closed), redOnScreen.rgba());
    EXPECT_EQ(stateColor(PullRequestState::merged), purpleOnScreen.rgba());
}

TEST(RowColors, aClosedDraftIsDraftGrey)
{
    EXPECT_EQ(stateColor(PullRequestState::closed, true), greyOnScreen.rgba());
    EXPECT_EQ(stateColor(PullRequestState::open, true), greyOnScreen.rgba());
    EXPECT_EQ(stateColor(PullRequestState::merged, true), greyOnScreen.rgba());
}

TEST(RowColors, fixedColorsAreExact)
{
    EXPECT_NEAR(RowColors::green.redF(), 0.102, 1e-5);
    EXPECT_NEAR(RowColors::green.greenF(), 0.498, 1e-5);
    EXPECT_NEAR(RowColors::green.blueF(), 0.216, 1e-5);
    EXPECT_NEAR(RowColors::red.redF(), 0.812, 1e-5);
    EXPECT_NEAR(RowColors::red.greenF(), 0.133, 1e-5);
    EXPECT_NEAR(RowColors::red.blueF(), 0.18, 1e-5);
    EXPECT_NEAR(RowColors::purple.redF(), 0.51, 1e-5);
    EXPECT_NEAR(RowColors::purple.greenF(), 0.314, 1e-5);
    EXPECT_NEAR(RowColors::purple.blueF(), 0.875, 1e-5);
    EXPECT_NEAR(RowColors::draftGrey.redF(), 0.396, 1e-5);
    EXPECT_NEAR(RowColors::draftGrey.greenF(), 0.427, 1e-5);
    EXPECT_NEAR(RowColors::draftGrey.blueF(), 0.463, 1e-5);
}

TEST(RowColors, reviewsTakeTheColorOfTheirState)
{
    for (const Palette* palette : {&Palette::light(), &Palette::dark()}) {
        const QRgb secondary = palette->textSecondary.rgba();
        EXPECT_EQ(reviewColor(ReviewState::none, *palette), secondary);
        EXPECT_EQ(reviewColor(ReviewState::pending, *palette), secondary);
        EXPECT_EQ(reviewColor(ReviewState::approved, *palette), greenOnScreen.rgba());
        EXPECT_EQ(reviewColor(ReviewState::changesRequested, *palette), redOnScreen.rgba());
    }
    EXPECT_EQ(reviewColor(ReviewState::commented, Palette::light()), lightAmberOnScreen.rgba());
    EXPECT_EQ(reviewColor(ReviewState::commented, Palette::dark()), darkAmberOnScreen.rgba());
}

TEST(RowColors, zeroChecksAreSecondary)
{
    EXPECT_EQ(checkColor({0, 0, 0}, Palette::light()), Palette::light().textSecondary.rgba());
    EXPECT_EQ(checkColor({0, 0, 0}, Palette::dark()), Palette::dark().textSecondary.rgba());
}

TEST(RowColors, oneFailedCheckAmongCompletedOnesIsRed)
{
    EXPECT_EQ(checkColor({12, 12, 1}, Palette::light()), redOnScreen.rgba());
    EXPECT_EQ(checkColor({3, 12, 1}, Palette::light()), redOnScreen.rgba());
}

TEST(RowColors, checksAreGreenWhenAllHavePassedAndAmberBefore)
{
    EXPECT_EQ(checkColor({12, 12, 0}, Palette::dark()), greenOnScreen.rgba());
    EXPECT_EQ(checkColor({3, 12, 0}, Palette::dark()), darkAmberOnScreen.rgba());
    EXPECT_EQ(checkColor({3, 12, 0}, Palette::light()), lightAmberOnScreen.rgba());
}

TEST(RowColors, onlyGreenAndRedFiguresWantAPlate)
{
    EXPECT_TRUE(RowColors::wantsPlate(RowColors::green));
    EXPECT_TRUE(RowColors::wantsPlate(RowColors::red));
    EXPECT_FALSE(RowColors::wantsPlate(Palette::dark().amber));
    EXPECT_FALSE(RowColors::wantsPlate(Palette::dark().textSecondary));
}

}  // namespace
