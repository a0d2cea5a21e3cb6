#include "Tarnwick/Interface/Panel/PanelAlerts.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorFlow.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

namespace Tarnwick {
namespace {

class PanelAlertsTests : public TestSupport::ModelTest {
protected:
    PanelAlertsTests()
    {
        start();
        flow = std::make_unique<EditorFlow>(*model);
        alerts = new PanelAlerts(*model, *flow, appearance, &panel);
        panel.resize(420, 500);
        panel.show();
        (void)QTest::qWaitForWindowActive(&panel);
    }

    Alert& alert(const char* name) { return *panel.findChild<Alert*>(QLatin1String(name)); }

    static QAbstractButton* button(const Alert& alert, const char* name)
    {
        return alert.findChild<QAbstractButton*>(QLatin1String(name));
    }

    void failToOpenEditor()
    {
        model->setProjectDirectory("/nowhere");
        flow->open(TestSupport::makePullRequest(1));
        ASSERT_TRUE(TestSupport::eventually([this] { return !flow->editorProgress(); }));
    }

    void refuseNotifications()
    {
        notifier->isGranted = false;
        auto toggled = model->toggleNewPullRequestNotifications();
        TestSupport::processEvents();
        ASSERT_TRUE(model->notificationSettingsRequired());
    }

    Appearance appearance{1.0};
    std::unique_ptr<EditorFlow> flow;
    QWidget panel;
    PanelAlerts* alerts;
};

TEST_F(PanelAlertsTests, anEditorErrorIsShownWithItsWords)
{
    failToOpenEditor();
    const Alert& shown = alert("editorError");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(shown.title(), QStringLiteral("Unable to Open Editor"));
    EXPECT_EQ(
        shown.message(),
        QStringLiteral("The repository directory does not exist at /nowhere/tools. Open Menu > "
                       "Repositories and set Project Directory first."));
    EXPECT_EQ(button(shown, "alertPrimary")->text(), QStringLiteral("OK"));
    EXPECT_EQ(
        button(shown, "alertCopy")->toolTip(), QStringLiteral("Copy error title and message"));
    EXPECT_EQ(button(shown, "alertCancel"), nullptr);
    EXPECT_TRUE(alerts->isAnyShown());
}

TEST_F(PanelAlertsTests, theCopyButtonCopiesTitleAndMessage)
{
    failToOpenEditor();
    button(alert("editorError"), "alertCopy")->click();
    EXPECT_EQ(
        QGuiApplication::clipboard()->text(),
        QStringLiteral("Unable to Open Editor\n\nThe repository directory does not exist at "
                       "/nowhere/tools. Open Menu > Repositories and set Project Directory "
                       "first."));
    EXPECT_TRUE(alert("editorError").isVisible());
}

TEST_F(PanelAlertsTests, returnAndEscapeDismissTheError)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        failToOpenEditor();
        QTest::keyClick(&alert("editorError"), key);
        EXPECT_FALSE(alert("editorError").isVisible());
        EXPECT_FALSE(flow->externalActionError());
    }
}

TEST_F(PanelAlertsTests, disabledNotificationsAreExplained)
{
    refuseNotifications();
    const Alert& shown = alert("notificationsDisabled");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(shown.title(), QStringLiteral("Notifications Are Disabled"));
    EXPECT_EQ(
        shown.message(),
        QStringLiteral("Enable notifications for Tarnwick, then turn the notification you want on "
                       "again."));
    EXPECT_EQ(button(shown, "alertPrimary")->text(), QStringLiteral("Open System Settings"));
    EXPECT_EQ(button(shown, "alertCancel")->text(), QStringLiteral("Cancel"));
}

TEST_F(PanelAlertsTests, bothAnswersClearTheFlag)
{
    for (const char* const name : {"alertPrimary", "alertCancel"}) {
        refuseNotifications();
        button(alert("notificationsDisabled"), name)->click();
        EXPECT_FALSE(model->notificationSettingsRequired());
        EXPECT_FALSE(alert("notificationsDisabled").isVisible());
    }
}

TEST_F(PanelAlertsTests, theFocusStaysInTheCard)
{
    failToOpenEditor();
    const Alert& shown = alert("editorError");
    for (int press = 0; press < 4; ++press) {
        QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(shown.isAncestorOf(panel.focusWidget()));
    }
}

TEST_F(PanelAlertsTests, theOverlayFollowsTheProgress)
{
    const auto& overlay = *panel.findChild<EditorOverlay*>();
    QString whileItRan;
    QObject::connect(flow.get(), &EditorFlow::editorProgressChanged, alerts, [&] {
        if (flow->editorProgress()) {
            EXPECT_TRUE(overlay.isVisible());
            whileItRan = overlay.progress();
        }
    });
    failToOpenEditor();
    EXPECT_EQ(whileItRan, QStringLiteral("Preparing repository…"));
    EXPECT_EQ(overlay.accessibleName(), QStringLiteral("Opening in Editor"));
    EXPECT_FALSE(overlay.isVisible());
}

}  // namespace
}  // namespace Tarnwick
