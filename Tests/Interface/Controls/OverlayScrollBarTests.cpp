#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

class OverlayScrollBarTests : public testing::Test {
protected:
    OverlayScrollBarTests()
    {
        area.resize(400, 304);
        setRange(900);
        area.setAttribute(Qt::WA_DontShowOnScreen);
        area.show();
    }

    void setRange(int maximum)
    {
        area.verticalScrollBar()->setRange(0, maximum);
        area.verticalScrollBar()->setPageStep(300);
    }

    void mouse(QEvent::Type type, int y)
    {
        const QPointF position(8, y);
        QMouseEvent event(
            type,
            position,
            bar.mapToGlobal(position),
            Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
            Qt::NoModifier);
        QApplication::sendEvent(&bar, &event);
    }

    QAbstractScrollArea area;
    OverlayScrollBar bar{area};
};

TEST_F(OverlayScrollBarTests, theHandleLiesInTheGutter)
{
    EXPECT_EQ(bar.geometry(), QRect(388, 0, 12, 304));
    // 4 wide and 2 from the right; a quarter of the 300 between the ends.
    EXPECT_EQ(bar.handle(), QRect(6, 2, 4, 75));
    area.verticalScrollBar()->setValue(900);
    EXPECT_EQ(bar.handle(), QRect(6, 227, 4, 75));
}

TEST_F(OverlayScrollBarTests, theHandleIsNeverShorterThan32)
{
    setRange(1'000'000);
    EXPECT_EQ(bar.handle().height(), 32);
}

TEST_F(OverlayScrollBarTests, growsUnderThePointer)
{
    QEnterEvent enter({8, 8}, {8, 8}, {8, 8});
    QApplication::sendEvent(&bar, &enter);
    EXPECT_EQ(bar.handle(), QRect(2, 2, 8, 75));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&bar, &leave);
    EXPECT_EQ(bar.handle(), QRect(6, 2, 4, 75));
}

TEST_F(OverlayScrollBarTests, isGoneWhereNothingCanBeScrolled)
{
    EXPECT_TRUE(bar.isVisible());
    setRange(0);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(OverlayScrollBarTests, keepsClearOfItsInsets)
{
    bar.setInsets(34, 12);
    EXPECT_EQ(bar.handle().top(), 34);
    area.verticalScrollBar()->setValue(900);
    EXPECT_EQ(bar.handle().bottom() + 1, 304 - 12);
}

TEST_F(OverlayScrollBarTests, followsThePointerThatHoldsIt)
{
    mouse(QEvent::MouseButtonPress, 20);
    mouse(QEvent::MouseMove, 20 + 75);
    // The handle has 225 to go for the range of 900.
    EXPECT_EQ(area.verticalScrollBar()->value(), 300);
    mouse(QEvent::MouseMove, 2000);
    EXPECT_EQ(area.verticalScrollBar()->value(), 900);
    mouse(QEvent::MouseButtonRelease, 2000);
    mouse(QEvent::MouseMove, 20);
    EXPECT_EQ(area.verticalScrollBar()->value(), 900);
}

TEST_F(OverlayScrollBarTests, aPressBesideTheHandleTurnsAPage)
{
    mouse(QEvent::MouseButtonPress, 200);
    EXPECT_EQ(area.verticalScrollBar()->value(), 300);
    mouse(QEvent::MouseButtonRelease, 200);
    mouse(QEvent::MouseButtonPress, 5);
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace Tarnwick
