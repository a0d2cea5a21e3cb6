#include "Tarnwick/Interface/Style/Appearance.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

TEST(TextStyleTests, linesAreAsHighAsTheDesignHasThem)
{
    const Appearance appearance(1.0);
    const auto height = [&](TextStyle style) {
        return appearance.line(style, TextWeight::regular).height;
    };
    EXPECT_EQ(height(TextStyle::title), 26);
    EXPECT_EQ(height(TextStyle::title2), 22);
    EXPECT_EQ(height(TextStyle::headline), 18);
    EXPECT_EQ(height(TextStyle::body), 18);
    EXPECT_EQ(height(TextStyle::subheadline), 18);
    EXPECT_EQ(height(TextStyle::footnote), 16);
    EXPECT_EQ(height(TextStyle::caption), 16);
}

TEST(TextStyleTests, linesGrowWithTheDesktopsText)
{
    const auto heights = [](double scale) {
        const Appearance appearance(scale);
        return std::pair(
            appearance.line(TextStyle::body, TextWeight::regular).height,
            appearance.line(TextStyle::caption, TextWeight::regular).height);
    };
    EXPECT_EQ(heights(1.0), std::pair(18, 16));
    EXPECT_EQ(heights(1.25), std::pair(24, 20));
    EXPECT_EQ(heights(1.5), std::pair(28, 24));
}

TEST(TextStyleTests, lengthsThatFollowTheTextAreEven)
{
    EXPECT_EQ(Appearance(1.0).scaled(16), 16);
    EXPECT_EQ(Appearance(1.25).scaled(16), 20);
    EXPECT_EQ(Appearance(1.5).scaled(16), 24);
}

}  // namespace
}  // namespace Tarnwick
