#include "Tarnwick/Interface/Style/AppFonts.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

/// With a desktop that names this font.
class AppFontsTests : public testing::Test {
protected:
    ~AppFontsTests() override { QGuiApplication::setFont(_before); }

    static void setDesktopFont(const char* family, double pointSize)
    {
        QFont font(QString::fromLatin1(family));
        font.setPointSizeF(pointSize);
        QGuiApplication::setFont(font);
    }

private:
    QFont _before = QGuiApplication::font();
};

TEST_F(AppFontsTests, sizesFollowTheDesktopsFont)
{
    const std::pair<TextStyle, double> sizes[] = {
        {TextStyle::largeTitle, 20},
        {TextStyle::title, 14},
        {TextStyle::title2, 12},
        {TextStyle::title3, 11},
        {TextStyle::headline, 10},
        {TextStyle::body, 10},
        {TextStyle::callout, 9.5},
        {TextStyle::subheadline, 9},
        {TextStyle::footnote, 8.5},
        {TextStyle::caption, 8.5},
        {TextStyle::caption2, 8},
    };
    for (const auto& [style, size] : sizes) {
        setDesktopFont("Cantarell", 10);
        EXPECT_DOUBLE_EQ(AppFonts::preferredPointSize(style), size) << int(style);
        setDesktopFont("Cantarell", 15);
        EXPECT_DOUBLE_EQ(AppFonts::preferredPointSize(style), size * 1.5) << int(style);
    }
}

TEST_F(AppFontsTests, aDesktopThatNamesNoFontCountsAsTenPoints)
{
    setDesktopFont("Sans Serif", 9);
    EXPECT_DOUBLE_EQ(AppFonts::preferredPointSize(TextStyle::body), 10);
    setDesktopFont("Sans Serif", 12);
    EXPECT_DOUBLE_EQ(AppFonts::preferredPointSize(TextStyle::body), 12);
}

TEST_F(AppFontsTests, aFontOfTheDesktopInPixelsCountsAsTenPoints)
{
    QFont inPixels(QStringLiteral("Cantarell"));
    inPixels.setPixelSize(20);
    QGuiApplication::setFont(inPixels);
    EXPECT_DOUBLE_EQ(AppFonts::preferredPointSize(TextStyle::body), 10);
}

}  // namespace
}  // namespace Tarnwick
