#include "TarnwickDirect/Application/PanelWindow.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>

namespace {

/// The offscreen platform activates no window by itself. Deprecated since Qt 6.5.
void setActive(QWidget* window)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(window);
    QT_WARNING_POP
}

using namespace TarnwickDirect;
using namespace std::chrono_literals;
using Form = PanelWindow::Form;

/// Covers everything, corners too.
class Paper : public QWidget {
protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), Qt::green); }
};

class PanelWindowTest : public testing::Test {
protected:
    PanelWindowTest() { window.setPreferredSize(QSize(440, 620)); }

    void show(Form form)
    {
        window.setForm(form);
        window.present(std::nullopt, {});
        QCoreApplication::processEvents();
    }

    void loseFocus()
    {
        QEvent left(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&window, &left);
    }

    QImage picture()
    {
        QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    bool keepsOpen = false;
    Tarnwick::Appearance& appearance = Tarnwick::setApplicationStyle(1.0);
    PanelWindow window{new Paper, [this] { return keepsOpen; }, appearance};
};

TEST_F(PanelWindowTest, isFramelessAsAPanelAndOrdinaryWithoutATray)
{
    show(Form::panel);
    EXPECT_EQ(window.windowType(), Qt::Tool);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    window.hide();
    show(Form::window);
    EXPECT_EQ(window.windowType(), Qt::Window);
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(PanelWindowTest, isAWindowWithItsContentAloneToAssistivePrograms)
{
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&window);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Window);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Tarnwick"));
    ASSERT_EQ(seen->childCount(), 1);
    EXPECT_EQ(seen->child(0)->object(), window.content());
}

TEST_F(PanelWindowTest, keepsItsFormWhileItIsInSight)
{
    show(Form::window);
    window.setForm(Form::panel);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.form(), Form::window);
    window.hide();
    window.present(std::nullopt, {});
    EXPECT_EQ(window.form(), Form::panel);
}

TEST_F(PanelWindowTest, hasTheSizeThatIsPreferred)
{
    show(Form::panel);
    EXPECT_EQ(window.size(), QSize(440, 620).boundedTo(window.screen()->availableSize()));
    EXPECT_EQ(window.minimumSize(), QSize(360, 320));
    window.setPreferredSize(QSize(10, 10));
    EXPECT_EQ(window.preferredSize(), QSize(360, 320));
}

TEST_F(PanelWindowTest, remembersTheSizeThatTheUserGivesIt)
{
    const QSignalSpy changes(&window, &PanelWindow::preferredSizeChanged);
    show(Form::panel);
    window.hide();
    EXPECT_EQ(changes.count(), 0);
    show(Form::panel);
    window.resize(400, 350);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    window.hide();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(window.preferredSize(), QSize(400, 350));
}

TEST_F(PanelWindowTest, tellsWhenItIsShownAndHidden)
{
    const QSignalSpy shown(&window, &PanelWindow::shown);
    const QSignalSpy hidden(&window, &PanelWindow::hidden);
    show(Form::panel);
    window.present(std::nullopt, {});
    EXPECT_EQ(shown.count(), 1);
    window.hide();
    EXPECT_EQ(hidden.count(), 1);
}

TEST_F(PanelWindowTest, isOutOfSightWhileItIsMinimised)
{
    const QSignalSpy shown(&window, &PanelWindow::shown);
    const QSignalSpy hidden(&window, &PanelWindow::hidden);
    show(Form::window);
    window.showMinimized();
    EXPECT_EQ(hidden.count(), 1);
    EXPECT_FALSE(window.isInFront());
    window.present(std::nullopt, {});
    EXPECT_EQ(shown.count(), 2);
    EXPECT_FALSE(window.isMinimized());
}

TEST_F(PanelWindowTest, tellsWhenItIsHiddenForWhatItOpened)
{
    const QSignalSpy aside(&window, &PanelWindow::steppedAside);
    show(Form::window);
    window.dismiss();
    QCoreApplication::processEvents();
    window.present(std::nullopt, {});
    window.close();
    QCoreApplication::processEvents();
    EXPECT_EQ(aside.count(), 0);
    window.present(std::nullopt, {});
    window.windowHandle()->hide();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(aside.count(), 1);
}

TEST_F(PanelWindowTest, escapeThatNobodyElseUsesClosesIt)
{
    const QSignalSpy closed(&window, &PanelWindow::closed);
    show(Form::panel);
    keepsOpen = true;
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    keepsOpen = false;
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(PanelWindowTest, escapeMinimizesWhereNothingElseWouldBeLeftToClick)
{
    const QSignalSpy closed(&window, &PanelWindow::closed);
    window.setLeaving(PanelWindow::Leaving::minimize);
    show(Form::window);
    QTest::keyClick(&window, Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMinimized());
    EXPECT_EQ(closed.count(), 0);
}

TEST_F(PanelWindowTest, staysWhileItIsKeptFromClosing)
{
    bool isKept = true;
    window.setKeepsFromClosing([&isKept] { return isKept; });
    const QSignalSpy closed(&window, &PanelWindow::closed);
    show(Form::window);
    EXPECT_FALSE(window.close());
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(closed.count(), 0);
    isKept = false;
    EXPECT_TRUE(window.close());
}

TEST_F(PanelWindowTest, controlQQuitsWhateverHasTheFocus)
{
    const QSignalSpy quits(&window, &PanelWindow::quitRequested);
    show(Form::window);
    (void)QTest::qWaitForWindowActive(&window);
    QTest::keyClick(window.content(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits.count(), 1);
}

TEST_F(PanelWindowTest, closingHidesItAndIsTold)
{
    const QSignalSpy closed(&window, &PanelWindow::closed);
    show(Form::window);
    window.close();
    EXPECT_FALSE(window.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(closed.count(), 1);
    window.present(std::nullopt, {});
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PanelWindowTest, aPanelClosesWhenTheFocusLeavesIt)
{
    show(Form::panel);
    setActive(nullptr);
    loseFocus();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PanelWindowTest, aPanelThatIsShownAgainDoesNotMindThatItLostTheFocusBefore)
{
    show(Form::panel);
    setActive(nullptr);
    loseFocus();
    window.hide();
    window.present(std::nullopt, {});
    setActive(nullptr);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PanelWindowTest, aPanelStaysWhileItsContentHasSomethingUp)
{
    show(Form::panel);
    keepsOpen = true;
    setActive(nullptr);
    loseFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PanelWindowTest, anOrdinaryWindowStaysWhenTheFocusLeavesIt)
{
    show(Form::window);
    setActive(nullptr);
    loseFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isInFront());
}

TEST_F(PanelWindowTest, theClickThatTookTheFocusIsKnown)
{
    EXPECT_FALSE(window.hasJustLostFocus());
    show(Form::panel);
    setActive(nullptr);
    loseFocus();
    QCoreApplication::processEvents();
    const auto now = PanelWindow::Clock::now();
    EXPECT_TRUE(window.hasJustLostFocus(now));
    EXPECT_FALSE(window.hasJustLostFocus(now + 300ms));
}

TEST_F(PanelWindowTest, cornersAreRoundWhateverTheContentPaints)
{
    show(Form::panel);
    const QImage image = picture();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint& corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        EXPECT_EQ(image.pixelColor(corner).alpha(), 0);
    }
    EXPECT_EQ(image.pixelColor(2, 2).alpha(), 0);
    EXPECT_EQ(image.pixelColor(16, 16), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(0, 100), QColor(Qt::black));
}

TEST_F(PanelWindowTest, anOrdinaryWindowHasNeitherRoundCornersNorABorder)
{
    show(Form::window);
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(0, 100), QColor(Qt::green));
}

TEST(RoundedCorners, areCutFromAWindowThatCannotBeTranslucent)
{
    const QRegion shape = RoundedCorners::shape(QSize(100, 80));
    EXPECT_FALSE(shape.contains(QPoint(0, 0)));
    EXPECT_FALSE(shape.contains(QPoint(3, 3)));
    EXPECT_FALSE(shape.contains(QPoint(99, 79)));
    EXPECT_TRUE(shape.contains(QPoint(16, 0)));
    EXPECT_TRUE(shape.contains(QPoint(0, 40)));
    EXPECT_TRUE(shape.contains(QPoint(99, 40)));
    EXPECT_TRUE(shape.contains(QPoint(50, 79)));
    EXPECT_TRUE(shape.contains(QPoint(6, 6)));
}

TEST(RoundedCorners, ofAnOpaqueWindowHaveADarkEdge)
{
    QWidget window;
    window.setAttribute(Qt::WA_StyledBackground);
    window.setPalette(QPalette(Qt::white, Qt::white));
    window.resize(100, 80);
    RoundedCorners corners(&window);
    corners.setTranslucent(false);
    corners.resize(window.size());
    Tarnwick::WindowBorderOverlayView border(false, &window);
    border.resize(window.size());
    const QImage image = window.grab().toImage();
    const QRegion shape = RoundedCorners::shape(window.size());
    for (int y = 0; y < RoundedCorners::radius; ++y) {
        int x = 0;
        while (!shape.contains(QPoint(x, y))) {
            ++x;
        }
        EXPECT_LT(image.pixelColor(x, y).lightness(), 80) << x << ", " << y;
    }
    EXPECT_EQ(image.pixelColor(50, 40), QColor(Qt::white));
}

TEST(ResizeHandle, liesAtTheEdgesAndCorners)
{
    const QSize size(440, 620);
    EXPECT_EQ(ResizeHandle::place(Qt::TopEdge, size), QRect(0, 0, 440, 4));
    EXPECT_EQ(ResizeHandle::place(Qt::BottomEdge, size), QRect(0, 616, 440, 4));
    EXPECT_EQ(ResizeHandle::place(Qt::LeftEdge, size), QRect(0, 0, 4, 620));
    EXPECT_EQ(ResizeHandle::place(Qt::RightEdge, size), QRect(436, 0, 4, 620));
    EXPECT_EQ(ResizeHandle::place(Qt::TopEdge | Qt::LeftEdge, size), QRect(0, 0, 14, 14));
    EXPECT_EQ(ResizeHandle::place(Qt::BottomEdge | Qt::RightEdge, size), QRect(426, 606, 14, 14));
}

}  // namespace
