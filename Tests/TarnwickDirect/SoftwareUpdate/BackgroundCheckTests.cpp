#include "SoftwareUpdate/UpdaterFixture.h"

namespace {

using namespace std::chrono_literals;
using namespace TarnwickDirect;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* lastCheck = "updates.lastCheck";

class BackgroundCheckTest : public TestSupport::UpdaterTest {
protected:
    /// Goes on to when the next check is due, and waits until the delegate has heard of it.
    void passADay()
    {
        const auto before = delegate.heard.size();
        advanceTo(24h);
        EXPECT_TRUE(TestSupport::eventually([&] { return delegate.heard.size() == before + 1; }));
    }

    void advanceTo(std::chrono::milliseconds time)
    {
        clock->advance(1min);
        clock->advance(time);
    }

    std::optional<PullRequestKit::Date> storedDate() const
    {
        return Tarnwick::readDate(*defaults, lastCheck);
    }
};

TEST_F(BackgroundCheckTest, isDueADayAfterTheLastOne)
{
    start();
    clock->advance(1min);
    EXPECT_THAT(clock->sleepers(), ElementsAre(22h - 1min));
    clock->advance(22h - 1min - 1s);
    EXPECT_THAT(server.requests(), IsEmpty());
    clock->advance(1s);
    EXPECT_TRUE(TestSupport::eventually([this] { return !server.requests().empty(); }));
    EXPECT_EQ(storedDate(), clock->now());
    EXPECT_THAT(clock->sleepers(), ElementsAre(24h));
}

TEST_F(BackgroundCheckTest, makesTheNetworkWhenItIsDue)
{
    serveFeed(item("1.0"));
    start();
    advanceTo(20h);
    TestSupport::processEvents();
    EXPECT_EQ(networks, 0);
    clock->advance(4h);
    EXPECT_TRUE(TestSupport::eventually([this] { return delegate.heard.size() == 1; }));
    EXPECT_EQ(networks, 1);
    passADay();
    EXPECT_EQ(networks, 2);
}

TEST_F(BackgroundCheckTest, comesAMinuteAfterTheStartWhenItIsOverdue)
{
    Tarnwick::writeDate(*defaults, lastCheck, clock->now() - 48h);
    start();
    TestSupport::processEvents();
    EXPECT_THAT(server.requests(), IsEmpty());
    clock->advance(1min);
    EXPECT_TRUE(reaches(Kind::available));
}

TEST_F(BackgroundCheckTest, comesAMinuteAfterTheFirstStart)
{
    defaults->values.clear();
    start();
    clock->advance(1min);
    EXPECT_TRUE(reaches(Kind::available));
}

TEST_F(BackgroundCheckTest, aLastCheckThatIsStillToComeDoesNotCount)
{
    Tarnwick::writeDate(*defaults, lastCheck, clock->now() + 48h);
    start();
    clock->advance(1min);
    EXPECT_TRUE(reaches(Kind::available));
}

TEST_F(BackgroundCheckTest, aCheckOfTheUserCounts)
{
    serveFeed(item("1.0"));
    start();
    clock->advance(1min);
    clock->advance(10h);
    EXPECT_EQ(check(), Kind::upToDate);
    updater->dismiss();
    clock->advance(12h);
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_THAT(clock->sleepers(), ElementsAre(12h));
}

TEST_F(BackgroundCheckTest, showsAnUpdate)
{
    start();
    passADay();
    EXPECT_THAT(kinds, ElementsAre(Kind::available));
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
    EXPECT_FALSE(updater->state().wasAskedFor);
}

TEST_F(BackgroundCheckTest, isSilentWhenThereIsNone)
{
    serveFeed(item("1.0"));
    start();
    passADay();
    EXPECT_THAT(kinds, IsEmpty());
    EXPECT_THAT(canCheckValues, IsEmpty());
    EXPECT_THAT(delegate.heard, ElementsAre("Tarnwick 1.0 is the newest version available."));
}

TEST_F(BackgroundCheckTest, isSilentWhenItFailsAndWaitsForTheNextDay)
{
    server.serve("/feed.xml", "");
    start();
    passADay();
    EXPECT_THAT(kinds, IsEmpty());
    EXPECT_THAT(delegate.heard, ElementsAre("The update feed is empty."));
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(BackgroundCheckTest, isSilentAboutASkippedVersion)
{
    Tarnwick::writeText(*defaults, "updates.skippedVersion", "2.0");
    start();
    passADay();
    EXPECT_THAT(kinds, IsEmpty());
    EXPECT_THAT(delegate.heard, ElementsAre("Tarnwick 2.0 is available, and you have skipped it."));
}

TEST_F(BackgroundCheckTest, showsACriticalUpdateThatWasSkipped)
{
    Tarnwick::writeText(*defaults, "updates.skippedVersion", "2.0");
    serveFeed(item("2.0", "<sparkle:criticalUpdate/>"));
    start();
    passADay();
    EXPECT_THAT(kinds, ElementsAre(Kind::available));
}

TEST_F(BackgroundCheckTest, doesNotDisturbWhatTheUserSees)
{
    start();
    EXPECT_EQ(check(), Kind::available);
    advanceTo(24h);
    TestSupport::processEvents();
    EXPECT_EQ(updater->state().kind, Kind::available);
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(storedDate(), clock->now());
}

TEST_F(BackgroundCheckTest, givesWayToACheckOfTheUser)
{
    server.answer("/feed.xml", [](QSslSocket&) {});
    start();
    advanceTo(24h);
    ASSERT_TRUE(TestSupport::eventually([this] { return server.requests().size() == 1; }));
    EXPECT_TRUE(updater->canCheckForUpdates());
    serveFeed(item("2.0"));
    EXPECT_EQ(check(), Kind::available);
    EXPECT_THAT(delegate.heard, ElementsAre("found 2.0"));
}

TEST_F(BackgroundCheckTest, isNotMadeForWhatCannotReplaceItself)
{
    for (const auto kind : {Installation::Kind::repositoryPackage, Installation::Kind::source}) {
        installation = {.kind = kind, .package = {}};
        installationQueries = 0;
        start();
        advanceTo(24h);
        EXPECT_TRUE(TestSupport::eventually([this] { return installationQueries == 1; }));
        TestSupport::processEvents();
    }
    EXPECT_THAT(server.requests(), IsEmpty());
    EXPECT_THAT(delegate.heard, IsEmpty());
}

TEST_F(BackgroundCheckTest, wakesUpOnceADay)
{
    installation.kind = Installation::Kind::source;
    start();
    clock->advance(1min);
    for (int day = 0; day < 3; ++day) {
        ASSERT_EQ(clock->sleepers().size(), 1U);
        clock->advance(clock->sleepers()[0]);
        EXPECT_THAT(clock->sleepers(), ElementsAre(24h));
    }
}

}  // namespace
