#include "Tarnwick/Desktop/PanelDismissal.h"

#include "Fakes/EventLoop.h"

#include <QGuiApplication>
#include <QWindow>

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;

class PanelDismissal : public testing::Test {
protected:
    ~PanelDismissal() override { TestSupport::processEvents(); }

    static void focus(QWindow& window)
    {
        window.requestActivate();
        ASSERT_TRUE(
            TestSupport::eventually([&] { return QGuiApplication::focusWindow() == &window; }));
    }

    /// The offscreen platform gives the focus to what is shown; this takes it away from everything.
    static void unfocus()
    {
        QWindow other;
        other.show();
        focus(other);
        other.hide();
        other.destroy();
        ASSERT_TRUE(
            TestSupport::eventually([] { return QGuiApplication::focusWindow() == nullptr; }));
    }
};

TEST_F(PanelDismissal, hidesTheWindowWithTheFocusAndNoOther)
{
    QWindow panel;
    QWindow other;
    other.show();
    panel.show();
    focus(panel);
    dismissPanel(PanelSearch::focusOnly);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_TRUE(other.isVisible());
}

TEST_F(PanelDismissal, hidesThePanelThatOwnsAnAlertAndTheAlert)
{
    QWindow panel;
    QWindow alert;
    alert.setFlags(Qt::Dialog);
    alert.setModality(Qt::WindowModal);
    alert.setTransientParent(&panel);
    panel.show();
    alert.show();
    focus(alert);
    dismissPanel(PanelSearch::anyVisible);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_FALSE(alert.isVisible());
}

TEST_F(PanelDismissal, hidesTheFirstWindowThatCanHaveTheFocusWhenNoneHasIt)
{
    QWindow help;
    help.setFlags(Qt::ToolTip);
    QWindow trayIcon;
    trayIcon.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    QWindow hidden;
    QWindow panel;
    panel.setFlags(Qt::Tool | Qt::FramelessWindowHint);
    QWindow later;
    for (QWindow* const window : {&help, &trayIcon, &panel, &later}) {
        window->show();
    }
    unfocus();
    dismissPanel(PanelSearch::anyVisible);
    EXPECT_TRUE(help.isVisible());
    EXPECT_TRUE(trayIcon.isVisible());
    EXPECT_FALSE(panel.isVisible());
    EXPECT_TRUE(later.isVisible());
}

TEST_F(PanelDismissal, looksAtNoOtherWindowWhenOnlyTheFocusCounts)
{
    QWindow panel;
    panel.show();
    unfocus();
    dismissPanel(PanelSearch::focusOnly);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelDismissal, doesNothingWhereThereIsNoWindow)
{
    EXPECT_NO_THROW(dismissPanel(PanelSearch::anyVisible));
}

}  // namespace
