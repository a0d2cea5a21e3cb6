#include "SoftwareUpdate/UpdaterFixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class DesktopUpdaterTest : public UpdaterTest {
protected:
    void press(const char* text)
    {
        for (auto* const button : desktop->dialog().findChildren<QPushButton*>()) {
            if (button->isVisible() && button->text() == QString::fromUtf8(text)) {
                button->click();
                return;
            }
        }
        FAIL() << text;
    }
};

TEST_F(DesktopUpdaterTest, leadsFromTheCheckToTheInstaller)
{
    start();
    EXPECT_FALSE(desktop->dialog().isVisible());
    desktop->checkForUpdates();
    EXPECT_TRUE(desktop->dialog().isVisible());
    ASSERT_TRUE(reaches(Kind::available));
    press("Install Update");
    ASSERT_TRUE(reaches(Kind::handedOver));
    ASSERT_EQ(packages.size(), 1U);
    EXPECT_TRUE(exists(packages[0]));
    press("OK");
    EXPECT_FALSE(desktop->dialog().isVisible());
}

TEST_F(DesktopUpdaterTest, opensNoPackageThatFailsVerification)
{
    server.serve("/tarnwick.deb", QByteArray(package).replace("2.0", "6.6"));
    start();
    ASSERT_EQ(check(), Kind::available);
    press("Install Update");
    ASSERT_TRUE(reaches(Kind::told));
    EXPECT_THAT(packages, IsEmpty());
    EXPECT_TRUE(isNothingLeft());
    EXPECT_EQ(
        desktop->dialog().findChild<QLabel*>(QStringLiteral("updateMessage"))->text(),
        QStringLiteral("The download \"tarnwick.deb\" was deleted because its signature is not "
                       "valid."));
}

TEST_F(DesktopUpdaterTest, skipsTheVersion)
{
    start();
    ASSERT_EQ(check(), Kind::available);
    press("Skip This Version");
    EXPECT_FALSE(desktop->dialog().isVisible());
    EXPECT_EQ(skippedVersion, QStringLiteral("2.0"));
}

TEST_F(DesktopUpdaterTest, remindsLaterAndGivesTheFocusBackThatTheDialogHad)
{
    start();
    ASSERT_EQ(check(), Kind::available);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desktop->dialog()));
    EXPECT_EQ(returns, 0);
    press("Remind Me Later");
    EXPECT_FALSE(desktop->dialog().isVisible());
    EXPECT_EQ(returns, 1);
    EXPECT_TRUE(skippedVersion.isEmpty());
}

TEST_F(DesktopUpdaterTest, cancelsTheCheckAndTheDownload)
{
    stallDownload();
    start();
    desktop->checkForUpdates();
    press("Cancel");
    EXPECT_FALSE(desktop->dialog().isVisible());
    ASSERT_EQ(check(), Kind::available);
    press("Install Update");
    ASSERT_TRUE(eventually([this] { return state().receivedBytes > 0; }));
    press("Cancel");
    EXPECT_FALSE(desktop->dialog().isVisible());
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(DesktopUpdaterTest, tellsOfErrorsAndGoesOn)
{
    serveFeed("<item>");
    start();
    ASSERT_EQ(check(), Kind::told);
    press("OK");
    EXPECT_FALSE(desktop->dialog().isVisible());
    EXPECT_TRUE(desktop->canCheckForUpdates());
}

TEST_F(DesktopUpdaterTest, bringsToTheFrontWhatThereIs)
{
    start();
    desktop->bringToFront();
    EXPECT_EQ(arrivals, 0);
    ASSERT_EQ(check(), Kind::available);
    EXPECT_EQ(arrivals, 1);
    desktop->bringToFront();
    EXPECT_EQ(arrivals, 2);
}

TEST_F(DesktopUpdaterTest, leavesNothingOfADownloadWhenTheProcessEnds)
{
    stallDownload();
    start();
    ASSERT_EQ(check(), Kind::available);
    press("Install Update");
    ASSERT_TRUE(eventually([this] { return state().receivedBytes > 0; }));
    EXPECT_FALSE(isNothingLeft());
    desktop->stop();
    EXPECT_TRUE(isNothingLeft());
}

}  // namespace
