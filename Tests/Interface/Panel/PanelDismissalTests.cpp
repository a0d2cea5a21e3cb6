#include "Tarnwick/Interface/Panel/PanelDismissal.h"

#include <QDialog>
#include <QGuiApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;

class DismissedPanel : public testing::Test {
protected:
    ~DismissedPanel() override { QCoreApplication::processEvents(); }

    static void focus(QWindow& window)
    {
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == &window; }));
    }

    /// The offscreen platform gives the focus to what is shown; this takes it away from everything.
    static void unfocus()
    {
        QWindow other;
        other.show();
        focus(other);
        other.hide();
        other.destroy();
        ASSERT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    }
};

TEST_F(DismissedPanel, hidesTheWindowWithTheFocusAndNoOther)
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

TEST_F(DismissedPanel, hidesThePanelThatOwnsAnAlertAndTheAlert)
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

TEST_F(DismissedPanel, hidesTheFirstWindowThatCanHaveTheFocusWhenNoneHasIt)
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

TEST_F(DismissedPanel, leavesADialogThatBelongsToNoOtherWindow)
{
    QWindow dialog;
    dialog.setFlags(Qt::Dialog);
    QWindow panel;
    panel.setFlags(Qt::Tool | Qt::FramelessWindowHint);
    dialog.show();
    panel.show();
    focus(dialog);
    dismissPanel(PanelSearch::focusOnly);
    EXPECT_TRUE(panel.isVisible());
    dismissPanel(PanelSearch::anyVisible);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(DismissedPanel, looksAtNoOtherWindowWhenOnlyTheFocusCounts)
{
    QWindow panel;
    panel.show();
    unfocus();
    dismissPanel(PanelSearch::focusOnly);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(DismissedPanel, letsAPanelOfWidgetsComeBack)
{
    QWidget panel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    panel.show();
    focus(*panel.windowHandle());
    dismissPanel(PanelSearch::anyVisible);
    EXPECT_TRUE(panel.isHidden());
    panel.show();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(panel.windowHandle()->isVisible());
}

TEST_F(DismissedPanel, endsADialogOfAPanelOfWidgets)
{
    QWidget panel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    QDialog dialog(&panel);
    panel.show();
    dialog.open();
    focus(*dialog.windowHandle());
    dismissPanel(PanelSearch::focusOnly);
    EXPECT_TRUE(panel.isHidden());
    EXPECT_TRUE(dialog.isHidden());
}

TEST_F(DismissedPanel, doesNothingWhereThereIsNoWindow)
{
    EXPECT_NO_THROW(dismissPanel(PanelSearch::anyVisible));
}

}  // namespace
