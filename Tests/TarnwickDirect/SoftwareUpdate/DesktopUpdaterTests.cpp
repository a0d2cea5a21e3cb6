#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

#include "SoftwareUpdate/UpdaterFixture.h"
#include "Tarnwick/Interface/Look/ApplicationStyle.h"

#include <QAbstractButton>
#include <QTest>

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = UpdateState::Kind;

class DesktopUpdaterTest : public TestSupport::UpdaterTest {
protected:
    DesktopUpdater& open()
    {
        start();
        UpdaterHost host;
        host.defaults = defaults;
        host.clock = clock;
        host.bringToFront = [this](QWidget& window) {
            ++arrivals;
            window.show();
            window.activateWindow();
        };
        host.takeFocusBack = [this] { ++returns; };
        host.restart = [this](const std::filesystem::path& file) { restarted.push_back(file); };
        const auto openPackage = [this](const std::filesystem::path& file) {
            EXPECT_TRUE(exists(file));
            opened.push_back(file.filename());
        };
        running = updater.get();
        desktop = std::make_unique<DesktopUpdater>(
            std::move(updater), QStringLiteral("1.0"), host, openPackage);
        return *desktop;
    }

    bool comesTo(Kind kind)
    {
        return TestSupport::eventually([&] { return running->state().kind == kind; });
    }

    void press(const char* text)
    {
        for (auto* const button : desktop->dialogs().dialog().findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->text() == QString::fromUtf8(text)) {
                button->click();
                return;
            }
        }
        FAIL() << text;
    }

    ~DesktopUpdaterTest() override { desktop.reset(); }

    Tarnwick::Appearance& appearance = Tarnwick::setApplicationStyle(1);
    int arrivals = 0;
    int returns = 0;
    std::vector<std::filesystem::path> restarted;
    std::vector<std::filesystem::path> opened;
    std::unique_ptr<DesktopUpdater> desktop;
    AppcastUpdater* running = nullptr;
};

TEST_F(DesktopUpdaterTest, tellsWhenACheckIsPossible)
{
    DesktopUpdater& made = open();
    std::vector<bool> values;
    QObject::connect(&made, &UpdaterController::canCheckForUpdatesChanged, [&](bool canCheck) {
        EXPECT_EQ(made.canCheckForUpdates(), canCheck);
        values.push_back(canCheck);
    });
    EXPECT_TRUE(made.canCheckForUpdates());
    made.checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    EXPECT_THAT(values, ElementsAre(false, true));
}

TEST_F(DesktopUpdaterTest, startsTheNewVersionOfAnAppImage)
{
    open().checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    press("Install Update");
    ASSERT_TRUE(comesTo(Kind::installed));
    EXPECT_THAT(restarted, IsEmpty());
    press("Restart Now");
    EXPECT_THAT(restarted, ElementsAre(appImage));
}

TEST_F(DesktopUpdaterTest, opensAVerifiedPackage)
{
    installation = {.kind = Installation::Kind::debianPackage, .package = "tarnwick"};
    open().checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    press("Install Update");
    ASSERT_TRUE(comesTo(Kind::handedOver));
    EXPECT_THAT(opened, ElementsAre("tarnwick.deb"));
    EXPECT_TRUE(exists(running->state().package));
    press("OK");
    EXPECT_THAT(restarted, IsEmpty());
}

TEST_F(DesktopUpdaterTest, opensNoPackageThatFailsVerification)
{
    installation = {.kind = Installation::Kind::debianPackage, .package = "tarnwick"};
    server.serve("/tarnwick.deb", QByteArray(program).replace("2.0", "6.6"));
    open().checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    press("Install Update");
    ASSERT_TRUE(comesTo(Kind::failed));
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(DesktopUpdaterTest, givesTheFocusBackThatTheDialogHad)
{
    open().checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desktop->dialogs().dialog()));
    EXPECT_EQ(returns, 0);
    press("Remind Me Later");
    EXPECT_EQ(returns, 1);
}

TEST_F(DesktopUpdaterTest, bringsToTheFrontWhatThereIs)
{
    DesktopUpdater& made = open();
    made.bringToFront();
    EXPECT_EQ(arrivals, 0);
    made.checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    EXPECT_EQ(arrivals, 1);
    made.bringToFront();
    EXPECT_EQ(arrivals, 2);
}

TEST_F(DesktopUpdaterTest, leavesNothingOfADownloadWhenTheProcessEnds)
{
    stallDownload();
    DesktopUpdater& made = open();
    made.checkForUpdates();
    ASSERT_TRUE(comesTo(Kind::available));
    press("Install Update");
    ASSERT_TRUE(TestSupport::eventually([this] { return running->state().receivedBytes > 0; }));
    EXPECT_FALSE(isNothingLeft());
    made.stop();
    EXPECT_TRUE(isNothingLeft());
}

}  // namespace
