#include "SoftwareUpdate/UpdaterFixture.h"

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class AppcastUpdaterTest : public UpdaterTest {
protected:
    /// A check that nobody asked for, until the delegate has heard of it.
    void checkInBackground()
    {
        const auto before = delegate.heard.size();
        desktop->checkInBackground();
        EXPECT_TRUE(eventually([&] { return delegate.heard.size() > before; }));
    }
};

TEST_F(AppcastUpdaterTest, canCheckFromTheBeginning)
{
    start();
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(AppcastUpdaterTest, findsAnUpdateWhenTheUserAsks)
{
    serveFeed(item(
        "2.0",
        "<sparkle:shortVersionString>Two</sparkle:shortVersionString>"
        "<description>Calmer.</description>"));
    start();
    EXPECT_EQ(check(), Kind::available);
    EXPECT_THAT(kinds, ElementsAre(Kind::checking, Kind::available));
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
    EXPECT_EQ(state().offer.displayedVersion, QStringLiteral("Two"));
    EXPECT_EQ(state().offer.releaseNotes, QStringLiteral("Calmer."));
}

TEST_F(AppcastUpdaterTest, cannotCheckWhileTheUserWaitsForACheck)
{
    start();
    desktop->checkForUpdates();
    EXPECT_FALSE(updater().canCheckForUpdates());
    desktop->checkForUpdates();
    ASSERT_TRUE(reaches(Kind::available));
    EXPECT_THAT(canCheckValues, ElementsAre(false, true));
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
}

TEST_F(AppcastUpdaterTest, saysWhyThereIsNoUpdate)
{
    start();
    serveFeed(item("1.0"));
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(told(), "You're up to date!: Tarnwick 1.0 is the newest version available.");
    serveFeed("");
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(told(), "No Update Available: The update feed offers no version for this system.");
    EXPECT_THAT(
        delegate.heard,
        ElementsAre(
            "Tarnwick 1.0 is the newest version available.",
            "The update feed offers no version for this system."));
}

TEST_F(AppcastUpdaterTest, saysWhatIsWrongWithTheFeed)
{
    server.serve("/feed.xml", "Sign in to the network.");
    start();
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(told(), "Update Error: The update feed is not well-formed XML at line 1.");
    EXPECT_THAT(delegate.heard, ElementsAre("The update feed is not well-formed XML at line 1."));
    server.serve("/feed.xml", QByteArray((4 << 20) + 1, ' '));
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(
        told(), "Update Error: The update feed could not be fetched: it is larger than 4 MiB.");
    serveFeed(item("2.0").replace("sparkle:edSignature", "signature"));
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(told(), "Update Error: The update feed has no signature for version 2.0.");
}

TEST_F(AppcastUpdaterTest, aCheckCanBeCancelled)
{
    server.answer("/feed.xml", [](QSslSocket&) {});
    start();
    desktop->checkForUpdates();
    ASSERT_TRUE(eventually([this] { return !server.requests().empty(); }));
    updater().cancel();
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_TRUE(updater().canCheckForUpdates());
    EXPECT_THAT(delegate.heard, ElementsAre("The check was cancelled."));
    EXPECT_TRUE(eventually([this] { return server.openConnections() == 0; }));
}

TEST_F(AppcastUpdaterTest, aCheckCanBeCancelledAtOnce)
{
    start();
    desktop->checkForUpdates();
    updater().cancel();
    processEvents();
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(AppcastUpdaterTest, theUserMayBeRemindedLater)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    updater().dismiss();
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_TRUE(skippedVersion.isEmpty());
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, whoeverAsksHearsOfASkippedVersion)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    updater().skip();
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_EQ(skippedVersion, QStringLiteral("2.0"));
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, takesTheChannelsOfTheSettings)
{
    serveFeed(item("1.0") + item("3.0", "<sparkle:channel>beta</sparkle:channel>"));
    start();
    EXPECT_EQ(check(), Kind::told);
    channels = {QStringLiteral("beta")};
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, handsAPackageOver)
{
    start();
    EXPECT_EQ(install(), Kind::handedOver);
    EXPECT_THAT(
        kinds,
        ElementsAre(
            Kind::checking, Kind::available, Kind::downloading, Kind::verifying, Kind::handedOver));
    ASSERT_EQ(packages.size(), 1U);
    EXPECT_EQ(packages[0].filename(), "tarnwick.deb");
    EXPECT_EQ(state().package, packages[0]);
    desktop.reset();
    EXPECT_EQ(contentsOf(packages[0]), package.toStdString());
}

TEST_F(AppcastUpdaterTest, anOldReleaseUnderANewNumberIsNotHandedOver)
{
    serveFeed(item("3.0"));
    start();
    EXPECT_EQ(install(), Kind::told);
    EXPECT_EQ(
        told(),
        "Update Error: The download \"tarnwick.deb\" was deleted because it is version 2.0-1, "
        "not 3.0.");
    EXPECT_THAT(packages, IsEmpty());
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, aPackageThatWasInstalledMeanwhileWaitsForTheRestart)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    installation.packageVersion = QStringLiteral("2.0");
    EXPECT_EQ(check(), Kind::told);
    EXPECT_EQ(told(), "Update Installed: Restart Tarnwick to use version 2.0.");
    serveFeed(item("3.0"));
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, tellsHowFarTheDownloadHasCome)
{
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater().install();
    EXPECT_EQ(state().kind, Kind::downloading);
    EXPECT_EQ(state().receivedBytes, 0U);
    EXPECT_TRUE(eventually([this] { return state().receivedBytes == state().offer.length - 1; }));
    EXPECT_FALSE(updater().canCheckForUpdates());
}

TEST_F(AppcastUpdaterTest, aDownloadCanBeCancelled)
{
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater().install();
    ASSERT_TRUE(eventually([this] { return state().receivedBytes > 0; }));
    EXPECT_FALSE(isNothingLeft());
    updater().cancel();
    EXPECT_EQ(state(), UpdateState{});
    EXPECT_TRUE(isNothingLeft());
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, endsWhateverRuns)
{
    start();
    desktop->checkForUpdates();
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater().install();
    ASSERT_TRUE(eventually([this] { return state().receivedBytes > 0; }));
    desktop.reset();
    processEvents();
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, aCheckInTheBackgroundShowsAnUpdate)
{
    start();
    checkInBackground();
    EXPECT_THAT(kinds, ElementsAre(Kind::available));
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
    EXPECT_FALSE(state().wasAskedFor);
}

TEST_F(AppcastUpdaterTest, aCheckInTheBackgroundIsSilentWithoutAnUpdate)
{
    start();
    serveFeed(item("1.0"));
    checkInBackground();
    server.serve("/feed.xml", "");
    checkInBackground();
    serveFeed(item("2.0"));
    skippedVersion = QStringLiteral("2.0");
    checkInBackground();
    EXPECT_THAT(kinds, IsEmpty());
    EXPECT_THAT(canCheckValues, IsEmpty());
    EXPECT_THAT(
        delegate.heard,
        ElementsAre(
            "Tarnwick 1.0 is the newest version available.",
            "The update feed is empty.",
            "Tarnwick 2.0 is available, and you have skipped it."));
}

TEST_F(AppcastUpdaterTest, aCheckInTheBackgroundShowsACriticalUpdateThatWasSkipped)
{
    skippedVersion = QStringLiteral("2.0");
    serveFeed(item("2.0", "<sparkle:criticalUpdate/>"));
    start();
    checkInBackground();
    EXPECT_THAT(kinds, ElementsAre(Kind::available));
}

TEST_F(AppcastUpdaterTest, aCheckInTheBackgroundDoesNotDisturbWhatTheUserSees)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    desktop->checkInBackground();
    processEvents();
    EXPECT_EQ(state().kind, Kind::available);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(AppcastUpdaterTest, aCheckInTheBackgroundGivesWayToTheUser)
{
    server.answer("/feed.xml", [](QSslSocket&) {});
    start();
    desktop->checkInBackground();
    ASSERT_TRUE(eventually([this] { return server.requests().size() == 1; }));
    EXPECT_TRUE(updater().canCheckForUpdates());
    serveFeed(item("2.0"));
    EXPECT_EQ(check(), Kind::available);
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
}

TEST_F(AppcastUpdaterTest, theFeedIsNotFetchedInTheBackgroundWherePackagesAreOfNoUse)
{
    for (const auto kind : {Installation::Kind::repositoryPackage, Installation::Kind::source}) {
        installation = {.kind = kind};
        installationQueries = 0;
        start();
        desktop->checkInBackground();
        EXPECT_TRUE(eventually([this] { return installationQueries == 1; }));
        processEvents();
    }
    EXPECT_THAT(server.requests(), IsEmpty());
    EXPECT_THAT(delegate.heard, IsEmpty());
}

}  // namespace
