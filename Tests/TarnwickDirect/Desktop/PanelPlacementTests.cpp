#include "TarnwickDirect/Application/PanelPlacement.h"

#include <gtest/gtest.h>

namespace {

using TarnwickDirect::panelPlace;
using TarnwickDirect::ScreenArea;

constexpr QSize size(440, 620);
const QRect screen(0, 0, 1920, 1080);

QRect place(QPoint click, const QRect& free)
{
    return panelPlace(size, click, {{screen, free}});
}

TEST(PanelPlacement, belowAPanelAtTheTop)
{
    EXPECT_EQ(place({1200, 14}, {0, 28, 1920, 1052}), QRect(980, 32, 440, 620));
}

TEST(PanelPlacement, aboveAPanelAtTheBottom)
{
    EXPECT_EQ(place({1200, 1065}, {0, 0, 1920, 1050}), QRect(980, 426, 440, 620));
}

TEST(PanelPlacement, besideAPanelAtTheLeft)
{
    EXPECT_EQ(place({20, 500}, {48, 0, 1872, 1080}), QRect(52, 190, 440, 620));
}

TEST(PanelPlacement, besideAPanelAtTheRight)
{
    EXPECT_EQ(place({1900, 500}, {0, 0, 1872, 1080}), QRect(1428, 190, 440, 620));
}

TEST(PanelPlacement, staysOnScreenInEachCorner)
{
    const QRect belowPanel(0, 28, 1920, 1052);
    EXPECT_EQ(place({1915, 3}, belowPanel), QRect(1476, 32, 440, 620));
    EXPECT_EQ(place({3, 3}, belowPanel), QRect(4, 32, 440, 620));
    const QRect abovePanel(0, 0, 1920, 1050);
    EXPECT_EQ(place({1915, 1078}, abovePanel), QRect(1476, 426, 440, 620));
    EXPECT_EQ(place({3, 1078}, abovePanel), QRect(4, 426, 440, 620));
}

TEST(PanelPlacement, leavesAnIconOfAPanelThatTakesNoRoomInSight)
{
    EXPECT_EQ(place({1200, 10}, screen).top(), 26);
    EXPECT_EQ(place({1200, 1070}, screen).bottom(), 1054);
}

TEST(PanelPlacement, staysOnTheScreenOfTheClick)
{
    const QList<ScreenArea> screens{
        {{0, 0, 1920, 1080}, {0, 0, 1920, 1080}},
        {{1920, 0, 1280, 1024}, {1920, 28, 1280, 996}},
        {{-1280, 200, 1280, 720}, {-1280, 200, 1280, 690}}};
    EXPECT_EQ(panelPlace(size, QPoint(1925, 5), screens), QRect(1924, 32, 440, 620));
    EXPECT_EQ(panelPlace(size, QPoint(-10, 915), screens), QRect(-444, 266, 440, 620));
    EXPECT_EQ(panelPlace(size, QPoint(500, 1079), screens), QRect(280, 444, 440, 620));
}

TEST(PanelPlacement, aClickBetweenScreensBelongsToTheNearest)
{
    const QList<ScreenArea> screens{
        {{0, 0, 800, 600}, {0, 0, 800, 600}}, {{800, 400, 800, 700}, {800, 400, 800, 700}}};
    EXPECT_EQ(panelPlace(QSize(400, 300), QPoint(1200, 390), screens), QRect(1000, 406, 400, 300));
}

TEST(PanelPlacement, whatDoesNotFitIsCut)
{
    const QRect free(0, 28, 400, 300);
    EXPECT_EQ(
        panelPlace(size, QPoint(390, 10), {{{0, 0, 400, 328}, free}}), QRect(4, 32, 392, 292));
}

TEST(PanelPlacement, withoutAClickIsWhereTraysAre)
{
    EXPECT_EQ(
        panelPlace(size, std::nullopt, {{screen, {0, 28, 1920, 1052}}}), QRect(1476, 32, 440, 620));
    EXPECT_EQ(
        panelPlace(size, std::nullopt, {{screen, {0, 0, 1920, 1050}}}), QRect(1476, 426, 440, 620));
}

}  // namespace
