#include "Tarnwick/Model/RefreshNews.h"

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeNotifier.h"
#include "Fakes/MemoryDefaultsStore.h"
#include "Support/PullRequests.h"

#include <QTemporaryDir>

#include <algorithm>

namespace {

using namespace TestSupport;

PullRequest listed(std::int64_t number)
{
    auto pullRequest = makePullRequest(number);
    pullRequest.author = "bo";
    return pullRequest;
}

PullRequest blocked(std::int64_t number)
{
    auto pullRequest = listed(number);
    pullRequest.mergeability = PullRequestMergeability::conflicting;
    return pullRequest;
}

/// One refresh after the other, as the user "octo" sees them. The pull requests are somebody
/// else's; a test says of which the user's review is requested.
class RefreshNewsTest : public testing::Test {
protected:
    RefreshNewsTest()
    {
        settings.selectedRepositories = {"octo/tools"};
        settings.newPullRequestNotificationsEnabled = true;
        settings.unblockedNotificationsEnabled = true;
        settings.yourTurnNotificationsEnabled = true;
        start();
    }

    /// Begins anew with what was kept.
    void start(bool keepsNews = true)
    {
        news.reset();
        notifications.reset();
        writer.reset();  // Which waits until it is on disk.
        writer.emplace(cache);
        notifications.emplace(notifier, settings, operations);
        news.emplace(RefreshNews::Parts{
            .notifications = *notifications,
            .writer = *writer,
            .settings = settings,
            .blocked = keepsNews ? std::optional(blockedFile) : std::nullopt,
            .turns = keepsNews ? std::optional(turnsFile) : std::nullopt});
    }

    void refresh(const std::vector<PullRequest>& all, const std::vector<std::int64_t>& asking = {})
    {
        now += 1min;
        std::vector<PullRequestRow> rows;
        DetailsByID details;
        FactsByID facts;
        for (const PullRequest& pullRequest : all) {
            rows.emplace_back().pullRequest = pullRequest;
            facts[pullRequest.id].headCommit = "c1";
            facts[pullRequest.id].updatedAt = pullRequest.updatedAt;
            auto& requested = details[pullRequest.id].requestedUsers;
            if (std::ranges::find(asking, pullRequest.id.number) != asking.end()) {
                requested = {"octo"};
            }
        }
        news->recall({}, std::nullopt);
        news->tell(rows, all, makeBaseline(notificationScope("octo", settings), rows, now));
        processEvents();
        news->tellTurns(rows, {all, details, facts, "octo"}, "octo", now);
        processEvents();
    }

    PullRequest createdLater(std::int64_t number) const
    {
        auto pullRequest = listed(number);
        pullRequest.createdAt = now + 1s;
        return pullRequest;
    }

    QTemporaryDir folder;
    PullRequestDiskCache cache{folder.filePath(QStringLiteral("list.json")).toStdString()};
    BlockedPullRequestsFile blockedFile = BlockedPullRequestsFile::beside(cache);
    KnownTurnsFile turnsFile = KnownTurnsFile::beside(cache);
    std::shared_ptr<FakeNotifier> notifier = std::make_shared<FakeNotifier>();
    MemoryDefaultsStore defaults;
    SettingsStore store{defaults};
    Settings settings;
    SettingsOperations operations{settings, store, std::make_shared<FakeClock>()};
    Date now = date("2024-05-01T12:00:00Z");
    std::optional<SnapshotWriter> writer;
    std::optional<PullRequestNotifications> notifications;
    std::optional<RefreshNews> news;
};

TEST_F(RefreshNewsTest, nothingIsNewsAtTheFirstRefresh)
{
    refresh({createdLater(1), listed(2)}, {2});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(RefreshNewsTest, whatIsToldAsNewIsNotToldAsATurn)
{
    refresh({listed(1)});
    const PullRequest created = createdLater(2);
    refresh({listed(1), created}, {2});
    refresh({listed(1), created}, {2});
    EXPECT_THAT(notifier->shown, ElementsAre("new 2"));
}

TEST_F(RefreshNewsTest, aNewOneIsToldAsATurnWhereNewOnesAreNotTold)
{
    settings.newPullRequestNotificationsEnabled = false;
    refresh({listed(1)});
    refresh({listed(1), createdLater(2)}, {2});
    EXPECT_THAT(notifier->shown, ElementsAre("turn 2: Your review"));
}

TEST_F(RefreshNewsTest, whatIsMutedIsNotToldThenNorLater)
{
    PullRequest muted = blocked(1);
    muted.author = "otter-bot";
    settings.mutedAuthors = {"otter-bot"};
    refresh({muted});
    muted.mergeability = PullRequestMergeability::mergeable;
    refresh({muted}, {1});
    settings.mutedAuthors.clear();
    refresh({muted}, {1});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(RefreshNewsTest, turnsBeginAnewWhenTheyAreSwitchedOn)
{
    refresh({listed(1)});
    settings.yourTurnNotificationsEnabled = false;
    refresh({listed(1)}, {1});
    settings.yourTurnNotificationsEnabled = true;
    refresh({listed(1)}, {1});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(RefreshNewsTest, whatChangedWhileTheProgramDidNotRunIsTold)
{
    refresh({blocked(1), blocked(2), listed(3)});
    start();
    refresh({listed(1), blocked(2), listed(3)}, {3});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1", "turn 3: Your review"));
}

TEST_F(RefreshNewsTest, whatWasToldIsNotToldAgainAfterARestart)
{
    refresh({blocked(1), listed(2)});
    refresh({listed(1), listed(2)}, {2});
    EXPECT_EQ(notifier->shown.size(), 2U);
    start();
    refresh({listed(1), listed(2)});
    refresh({listed(1), listed(2)}, {2});
    EXPECT_EQ(notifier->shown.size(), 2U);
}

TEST_F(RefreshNewsTest, aProgramThatKeepsNoneLeavesTheFilesAsTheyAre)
{
    refresh({blocked(1), listed(2)});
    start(false);
    EXPECT_FALSE(news->tellsOfTurns());
    refresh({listed(1), listed(2)}, {2});
    EXPECT_THAT(notifier->shown, IsEmpty());
    start();
    refresh({listed(1), listed(2)}, {2});
    EXPECT_THAT(notifier->shown, ElementsAre("unblocked 1", "turn 2: Your review"));
}

}  // namespace
