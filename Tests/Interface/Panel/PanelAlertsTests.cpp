#include "Tarnwick/Interface/Panel/PanelAlerts.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorFlow.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace Tarnwick {
namespace {

class PanelAlertsTests : public TestSupport::ModelTest {
protected:
    PanelAlertsTests() { open(); }

    /// A desktop with notification settings that can be opened.
    void onXfce()
    {
        desktop.environment["XDG_CURRENT_DESKTOP"] = "XFCE";
        desktop.executables.insert("/usr/bin/xfce4-notifyd-config");
        delete alerts;
        open();
    }

    void open()
    {
        flow.reset();
        start();
        flow = std::make_unique<EditorFlow>(*model);
        alerts = new PanelAlerts(*model, *flow, &panel);
        panel.resize(420, 500);
        panel.show();
        (void)QTest::qWaitForWindowActive(&panel);
    }

    Alert& alert(const char* name) { return *panel.findChild<Alert*>(QLatin1String(name)); }

    static QAbstractButton* button(const Alert& alert, const char* name)
    {
        return alert.findChild<QAbstractButton*>(QLatin1String(name));
    }

    static QString textOf(const Alert& alert, const char* name)
    {
        return alert.findChild<QLabel*>(QLatin1String(name))->text();
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

    std::unique_ptr<EditorFlow> flow;
    QWidget panel;
    PanelAlerts* alerts = nullptr;
};

TEST_F(PanelAlertsTests, anEditorErrorIsShownWithItsWords)
{
    failToOpenEditor();
    const Alert& shown = alert("editorError");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(textOf(shown, "alertTitle"), QStringLiteral("Unable to Open Editor"));
    EXPECT_EQ(
        textOf(shown, "alertMessage"),
        QStringLiteral("The repository directory does not exist at /nowhere/tools. Open Menu > "
                       "Repositories and set Project Directory first."));
    EXPECT_EQ(button(shown, "alertPrimary")->text(), QStringLiteral("OK"));
    EXPECT_EQ(
        button(shown, "alertCopy")->toolTip(), QStringLiteral("Copy error title and message"));
    EXPECT_EQ(button(shown, "alertCancel"), nullptr);
    EXPECT_TRUE(alerts->isAnyShown());
}

TEST_F(PanelAlertsTests, aMissingFolderLeadsToTheProjectDirectory)
{
    const QSignalSpy asked(alerts, &PanelAlerts::projectDirectoryRequested);
    failToOpenEditor();
    QAbstractButton* const way = button(alert("editorError"), "alertOther");
    EXPECT_EQ(way->text(), QStringLiteral("Set Project Directory…"));
    ASSERT_TRUE(way->isVisible());
    // All three buttons stand beside each other in the card.
    EXPECT_GE(button(alert("editorError"), "alertCopy")->x(), alert("editorError").card().left());
    way->click();
    EXPECT_EQ(asked.count(), 1);
    EXPECT_FALSE(alert("editorError").isVisible());
}

TEST_F(PanelAlertsTests, anotherErrorDoesNotOfferTheProjectDirectory)
{
    QDir(folder.path()).mkpath(QStringLiteral("tools"));
    model->setProjectDirectory(folder.path().toStdString());
    desktop.ends(1, {}, "fatal: not a git repository");
    flow->open(TestSupport::makePullRequest(1));
    ASSERT_TRUE(TestSupport::eventually([this] { return alert("editorError").isVisible(); }));
    EXPECT_FALSE(button(alert("editorError"), "alertOther")->isVisible());
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

TEST_F(PanelAlertsTests, withoutSettingsToOpenTheAlertSaysWhatIsMissing)
{
    refuseNotifications();
    const Alert& shown = alert("notificationsDisabled");
    EXPECT_EQ(textOf(shown, "alertTitle"), QStringLiteral("Notifications Are Disabled"));
    EXPECT_EQ(
        textOf(shown, "alertMessage"),
        QStringLiteral("No program on this desktop shows notifications. Install or start a "
                       "notification service, then turn the notification you want on again."));
    EXPECT_EQ(button(shown, "alertPrimary")->text(), QStringLiteral("OK"));
    EXPECT_EQ(button(shown, "alertCancel"), nullptr);
    QTest::keyClick(&alert("notificationsDisabled"), Qt::Key_Escape);
    EXPECT_FALSE(model->notificationSettingsRequired());
}

TEST_F(PanelAlertsTests, disabledNotificationsAreExplained)
{
    onXfce();
    refuseNotifications();
    const Alert& shown = alert("notificationsDisabled");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(textOf(shown, "alertTitle"), QStringLiteral("Notifications Are Disabled"));
    EXPECT_EQ(
        textOf(shown, "alertMessage"),
        QStringLiteral("Enable notifications for Tarnwick, then turn the notification you want on "
                       "again."));
    EXPECT_EQ(button(shown, "alertPrimary")->text(), QStringLiteral("Open System Settings"));
    EXPECT_EQ(button(shown, "alertCancel")->text(), QStringLiteral("Cancel"));
}

TEST_F(PanelAlertsTests, bothAnswersClearTheFlag)
{
    onXfce();
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
            whileItRan = overlay.accessibleDescription();
        }
    });
    failToOpenEditor();
    EXPECT_EQ(whileItRan, QStringLiteral("Preparing repository…"));
    EXPECT_EQ(overlay.accessibleName(), QStringLiteral("Opening in Editor"));
    EXPECT_FALSE(overlay.isVisible());
}

}  // namespace
}  // namespace Tarnwick
