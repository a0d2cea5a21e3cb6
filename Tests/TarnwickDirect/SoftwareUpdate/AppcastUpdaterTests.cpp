#include "SoftwareUpdate/UpdaterFixture.h"

namespace {

using namespace TarnwickDirect;
using FileTrouble::contentsOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class AppcastUpdaterTest : public TestSupport::UpdaterTest {};

TEST_F(AppcastUpdaterTest, canCheckFromTheBeginning)
{
    start();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(updater->state(), UpdateState{});
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
    EXPECT_EQ(updater->state().offer.displayedVersion, QStringLiteral("Two"));
    EXPECT_EQ(updater->state().offer.releaseNotes, QStringLiteral("Calmer."));
}

TEST_F(AppcastUpdaterTest, cannotCheckWhileTheUserWaitsForACheck)
{
    start();
    updater->checkForUpdates();
    EXPECT_FALSE(updater->canCheckForUpdates());
    updater->checkForUpdates();
    ASSERT_TRUE(reaches(Kind::available));
    EXPECT_THAT(canCheckValues, ElementsAre(false, true));
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
}

TEST_F(AppcastUpdaterTest, saysThatTheProgramIsUpToDate)
{
    serveFeed(item("1.0"));
    start();
    EXPECT_EQ(check(), Kind::upToDate);
    EXPECT_EQ(message(), "Tarnwick 1.0 is the newest version available.");
    EXPECT_THAT(delegate.heard, ElementsAre("Tarnwick 1.0 is the newest version available."));
}

TEST_F(AppcastUpdaterTest, saysThatTheProgramIsNewerThanTheFeed)
{
    serveFeed(item("0.9"));
    start();
    EXPECT_EQ(check(), Kind::upToDate);
    EXPECT_EQ(message(), "Tarnwick 1.0 is newer than the newest version in the update feed, 0.9.");
}

TEST_F(AppcastUpdaterTest, saysThatTheSystemIsTooOld)
{
    serveFeed(item("2.0", "<sparkle:minimumSystemVersion>6.10</sparkle:minimumSystemVersion>"));
    start();
    EXPECT_EQ(check(), Kind::noUpdate);
    EXPECT_EQ(
        message(), "Tarnwick 2.0 needs Linux 6.10 or newer, and this system has Linux 6.1.0.");
}

TEST_F(AppcastUpdaterTest, saysThatTheFeedOffersNothing)
{
    serveFeed("");
    start();
    EXPECT_EQ(check(), Kind::noUpdate);
    EXPECT_EQ(message(), "The update feed offers no version for this system.");
}

TEST_F(AppcastUpdaterTest, saysWhatIsWrongWithTheFeed)
{
    server.serve("/feed.xml", "Sign in to the network.");
    start();
    EXPECT_EQ(check(), Kind::failed);
    EXPECT_EQ(message(), "The update feed is not well-formed XML in line 1.");
    EXPECT_THAT(delegate.heard, ElementsAre("The update feed is not well-formed XML in line 1."));
    server.serve("/feed.xml", QByteArray((4 << 20) + 1, ' '));
    EXPECT_EQ(check(), Kind::failed);
    EXPECT_EQ(message(), "The update feed could not be fetched: it is larger than 4 MiB.");
    server.redirect("/feed.xml", QUrl(QStringLiteral("http://127.0.0.1/feed.xml")));
    EXPECT_EQ(check(), Kind::failed);
    EXPECT_EQ(
        message(),
        "The update feed could not be fetched: the server redirected to an address that is not "
        "HTTPS.");
}

TEST_F(AppcastUpdaterTest, saysThatTheNewestVersionIsNotSigned)
{
    serveFeed(item("2.0").replace("sparkle:edSignature", "signature"));
    start();
    EXPECT_EQ(check(), Kind::failed);
    EXPECT_EQ(message(), "The update feed has no signature for version 2.0.");
}

TEST_F(AppcastUpdaterTest, aCheckCanBeCancelled)
{
    server.answer("/feed.xml", [](QSslSocket&) {});
    start();
    updater->checkForUpdates();
    ASSERT_TRUE(TestSupport::eventually([this] { return !server.requests().empty(); }));
    updater->cancel();
    EXPECT_EQ(updater->state(), UpdateState{});
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(delegate.heard, ElementsAre("The check was cancelled."));
    EXPECT_TRUE(TestSupport::eventually([this] { return server.openConnections() == 0; }));
}

TEST_F(AppcastUpdaterTest, aCheckCanBeCancelledAtOnce)
{
    start();
    updater->checkForUpdates();
    updater->cancel();
    TestSupport::processEvents();
    EXPECT_EQ(updater->state(), UpdateState{});
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(AppcastUpdaterTest, theUserMayBeRemindedLater)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->dismiss();
    EXPECT_EQ(updater->state(), UpdateState{});
    EXPECT_FALSE(defaults->values.contains("updates.skippedVersion"));
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, whoeverAsksHearsOfASkippedVersion)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->skip();
    EXPECT_EQ(updater->state(), UpdateState{});
    EXPECT_EQ(Tarnwick::readText(*defaults, "updates.skippedVersion"), "2.0");
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, takesTheChannelsOfTheSettings)
{
    serveFeed(item("1.0") + item("3.0", "<sparkle:channel>beta</sparkle:channel>"));
    start();
    EXPECT_EQ(check(), Kind::upToDate);
    defaults->set("updates.channels", "beta");
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, replacesTheAppImage)
{
    start();
    EXPECT_EQ(install(), Kind::installed);
    EXPECT_THAT(
        kinds,
        ElementsAre(
            Kind::checking,
            Kind::available,
            Kind::downloading,
            Kind::verifying,
            Kind::installing,
            Kind::installed));
    EXPECT_EQ(contentsOf(appImage), program.toStdString());
    EXPECT_EQ(FileTrouble::modeOf(appImage) & 0100U, 0100U);
    TestSupport::processEvents();
    EXPECT_TRUE(isNothingLeft());
    EXPECT_THAT(folder.names(), ElementsAre("Tarnwick.AppImage", "updates"));
}

TEST_F(AppcastUpdaterTest, whatIsInstalledIsNotOfferedAgain)
{
    start();
    EXPECT_EQ(install(), Kind::installed);
    updater->dismiss();
    EXPECT_EQ(check(), Kind::installed);
    EXPECT_EQ(updater->state().offer.version, QStringLiteral("2.0"));
    updater->dismiss();
    serveFeed(item("3.0"));
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, aPackageThatWasInstalledMeanwhileWaitsForTheRestart)
{
    installation = {
        .kind = Installation::Kind::debianPackage, .package = "tarnwick", .packageVersion = "1.0"};
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->dismiss();
    installation.packageVersion = "2.0";
    EXPECT_EQ(check(), Kind::installed);
    EXPECT_EQ(updater->state().offer.displayedVersion, QStringLiteral("2.0"));
    updater->dismiss();
    serveFeed(item("3.0"));
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, tellsHowFarTheDownloadHasCome)
{
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->install();
    EXPECT_EQ(updater->state().kind, Kind::downloading);
    EXPECT_EQ(updater->state().receivedBytes, 0U);
    EXPECT_EQ(updater->state().offer.length, 300'011U);
    EXPECT_TRUE(
        TestSupport::eventually([this] { return updater->state().receivedBytes == 300'010U; }));
    EXPECT_FALSE(updater->canCheckForUpdates());
}

TEST_F(AppcastUpdaterTest, aDownloadCanBeCancelled)
{
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->install();
    ASSERT_TRUE(TestSupport::eventually([this] { return updater->state().receivedBytes > 0; }));
    EXPECT_FALSE(isNothingLeft());
    updater->cancel();
    EXPECT_EQ(updater->state(), UpdateState{});
    EXPECT_TRUE(isNothingLeft());
    EXPECT_EQ(contentsOf(appImage), "version 1.0");
    EXPECT_EQ(check(), Kind::available);
}

TEST_F(AppcastUpdaterTest, whatIsNotSignedIsNotInstalled)
{
    QByteArray other = program;
    other.back() = '1';
    server.serve("/Tarnwick.AppImage", other);
    start();
    EXPECT_EQ(install(), Kind::failed);
    EXPECT_EQ(
        message(),
        "The download \"Tarnwick.AppImage\" was deleted because its signature is not valid.");
    EXPECT_EQ(contentsOf(appImage), "version 1.0");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, aLengthThatLiesIsNotInstalled)
{
    serveFeed(item("2.0").replace("300011", "300010"));
    start();
    EXPECT_EQ(install(), Kind::failed);
    EXPECT_EQ(message(), "\"Tarnwick.AppImage\" could not be fetched: it is larger than 300.0 kB.");
    EXPECT_EQ(contentsOf(appImage), "version 1.0");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, aFullDiskInstallsNothing)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    const FileTrouble::LargestFile limit(200'000);
    updater->install();
    ASSERT_TRUE(reaches(Kind::failed));
    EXPECT_EQ(message(), "\"Tarnwick.AppImage\" could not be saved: File too large.");
    EXPECT_EQ(contentsOf(appImage), "version 1.0");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, anAppImageThatIsGoneIsNotMade)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    std::filesystem::remove(appImage);
    updater->install();
    ASSERT_TRUE(reaches(Kind::failed));
    EXPECT_EQ(
        message(),
        "\"" + appImage.string() + "\" could not be replaced: No such file or directory.");
    EXPECT_FALSE(exists(appImage));
    TestSupport::processEvents();
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, handsAPackageOver)
{
    installation = {.kind = Installation::Kind::debianPackage, .package = "tarnwick"};
    start();
    EXPECT_EQ(install(), Kind::handedOver);
    ASSERT_EQ(packages.size(), 1U);
    EXPECT_EQ(packages[0].filename(), "tarnwick.deb");
    updater.reset();
    EXPECT_EQ(contentsOf(packages[0]), program.toStdString());
    start();
    EXPECT_FALSE(exists(packages[0]));
}

TEST_F(AppcastUpdaterTest, onlyTellsOfWhatThePackageManagerUpdates)
{
    installation = {.kind = Installation::Kind::repositoryPackage, .package = "tarnwick"};
    start();
    EXPECT_EQ(check(), Kind::available);
    EXPECT_EQ(updater->installation(), installation);
}

TEST_F(AppcastUpdaterTest, removesWhatAKilledProgramHasLeft)
{
    std::filesystem::create_directories(folder / "updates/abcdef");
    FileTrouble::writeFile(folder / "updates/abcdef/Tarnwick.AppImage", "a part");
    start();
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(AppcastUpdaterTest, endsWhateverRuns)
{
    start();
    updater->checkForUpdates();
    updater.reset();
    stallDownload();
    start();
    EXPECT_EQ(check(), Kind::available);
    updater->install();
    ASSERT_TRUE(TestSupport::eventually([this] { return updater->state().receivedBytes > 0; }));
    updater.reset();
    TestSupport::processEvents();
    EXPECT_TRUE(isNothingLeft());
    EXPECT_EQ(contentsOf(appImage), "version 1.0");
}

}  // namespace
