#include "TarnwickDirect/Application/WindowShadow.h"

#include <gtest/gtest.h>

namespace {

using TarnwickDirect::WindowShadow;

TEST(WindowShadow, reachesAsFarAsItIsBlurredAndLiesLower)
{
    EXPECT_EQ(WindowShadow::place(QRect(100, 200, 440, 620)), QRect(52, 170, 536, 716));
}

TEST(WindowShadow, isDarkestBelowTheWindowAndFadesOut)
{
    const QImage shadow = WindowShadow::picture(QSize(440, 620), 16, false);
    ASSERT_EQ(shadow.size(), QSize(536, 716));
    const auto alpha = [&](int x, int y) { return shadow.pixelColor(x, y).alpha(); };
    // The window's lower edge lies 30 from the picture's top plus its height.
    const int below = 30 + 620;
    EXPECT_GT(alpha(268, below + 2), 28);
    EXPECT_LE(alpha(268, below + 2), 56);
    for (int y = below + 3; y < 715; ++y) {
        EXPECT_LE(alpha(268, y), alpha(268, y - 1)) << y;
    }
    EXPECT_LE(alpha(268, 715), 1);
    EXPECT_LE(alpha(0, 358), 1);
    EXPECT_LE(alpha(535, 358), 1);
    EXPECT_LT(alpha(268, 28), alpha(268, below + 2));
    EXPECT_NEAR(alpha(47, 358), alpha(488, 358), 2);
}

TEST(WindowShadow, isStrongerInTheDark)
{
    const QImage light = WindowShadow::picture(QSize(440, 620), 16, false);
    const QImage dark = WindowShadow::picture(QSize(440, 620), 16, true);
    EXPECT_GT(dark.pixelColor(268, 652).alpha(), 2 * light.pixelColor(268, 652).alpha());
}

TEST(WindowShadow, hasAHoleOfTheWindowsForm)
{
    const QImage shadow = WindowShadow::picture(QSize(440, 620), 16, true);
    const auto alpha = [&](int x, int y) { return shadow.pixelColor(x, y).alpha(); };
    EXPECT_EQ(alpha(268, 358), 0);
    EXPECT_EQ(alpha(48, 358), 0);
    EXPECT_EQ(alpha(487, 358), 0);
    EXPECT_EQ(alpha(268, 649), 0);
    // The corners are round, and what is outside of them lies in the shadow.
    EXPECT_GT(alpha(48, 649), 20);
    EXPECT_GT(alpha(487, 649), 20);
}

TEST(WindowShadow, ofASmallMenuFits)
{
    const QImage shadow = WindowShadow::picture(QSize(120, 66), 10, false);
    EXPECT_EQ(shadow.size(), QSize(216, 162));
    EXPECT_EQ(shadow.pixelColor(108, 60).alpha(), 0);
    EXPECT_GT(shadow.pixelColor(108, 100).alpha(), 5);
}

}  // namespace
