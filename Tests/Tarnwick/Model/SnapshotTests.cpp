#include "Fakes/ModelFixture.h"
#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include <QDir>

#include <filesystem>

namespace {

using namespace TestSupport;

/// The first run, and what the last snapshot brings to a later one.
class Snapshots : public ModelTest {
protected:
    void SetUp() override
    {
        provider->setPullRequests({makePullRequest(1), makePullRequest(2)});
        provider->setRepositories({"octo/tools", "octo/site"});
    }

    void cacheSnapshot(ReviewerScope scope)
    {
        CachedPullRequestSnapshot snapshot;
        snapshot.pullRequests = {makePullRequest(5), makePullRequest(6)};
        snapshot.repositories = {RepositorySummary{"octo/tools", {}, {}, {}, false}};
        snapshot.account = "cached";
        snapshot.refreshedAt = date("2024-05-01T20:00:00Z");
        snapshot.reviewerScope = scope;
        cache().save(snapshot);
    }
};

TEST_F(Snapshots, theListStaysEmptyUntilTheUserSelectsRepositories)
{
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_THAT(model->settings().selectedRepositories, IsEmpty());
    EXPECT_TRUE(SettingsStore(*defaults).isRepositorySelectionConfigured());
    model->toggleRepository("octo/tools");
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(Snapshots, aFirstRunForgetsASelectionThatNobodyConfigured)
{
    defaults->set("filters.repositories", "octo/tools");
    cacheSnapshot(ReviewerScope::myself);
    start();
    EXPECT_THAT(model->settings().selectedRepositories, IsEmpty());
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_TRUE(SettingsStore(*defaults).isRepositorySelectionConfigured());
}

TEST_F(Snapshots, showsTheResultThatIsBeingReadAlready)
{
    selectTools();
    cacheSnapshot(ReviewerScope::myself);
    const auto reader = std::make_shared<Preload>([this] { return defaults; }, cache());
    PullRequestMenuModel::Collaborators parts = collaborators();
    parts.cache = PullRequestDiskCache{folder.filePath(QStringLiteral("none")).toStdString()};
    parts.preload = reader;
    const PullRequestMenuModel other(std::move(parts));
    EXPECT_EQ(other.rows().size(), 2U);
    EXPECT_EQ(other.account(), "cached");
}

TEST_F(Snapshots, showsTheLastResultAtOnce)
{
    selectTools();
    cacheSnapshot(ReviewerScope::myself);
    start();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(5, 6));
    EXPECT_EQ(model->account(), "cached");
    EXPECT_EQ(model->lastRefreshed(), date("2024-05-01T20:00:00Z"));
    EXPECT_EQ(model->repositories().size(), 1U);
    EXPECT_EQ(provider->statusCalls(), 0);
}

TEST_F(Snapshots, doesNotShowASnapshotTakenForTheOtherReviewers)
{
    selectTools();
    cacheSnapshot(ReviewerScope::any);
    start();
    EXPECT_EQ(model->state(), (MenuState{Kind::idle, ""}));
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_TRUE(model->repositories().empty());
    EXPECT_EQ(model->account(), std::nullopt);
}

TEST_F(Snapshots, showsASnapshotThatDoesNotSayForWhomItWasTaken)
{
    selectTools();
    cacheSnapshot(ReviewerScope::any);
    auto snapshot = *cache().load();
    snapshot.reviewerScope.reset();
    cache().save(snapshot);
    start();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(5, 6));
}

TEST_F(Snapshots, showsASnapshotOfAnotherSelectionThroughTheFilters)
{
    SettingsStore(*defaults).setSelectedRepositories({"octo/site"});
    cacheSnapshot(ReviewerScope::myself);
    start();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(Snapshots, savesWhatARefreshBrought)
{
    selectTools();
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.reviewFilters = {ReviewFilter::changesRequested}; });
    startAndRefresh();
    model.reset();
    const auto snapshot = cache().load();
    ASSERT_TRUE(snapshot);
    EXPECT_THAT(snapshot->pullRequests, ElementsAre(makePullRequest(1), makePullRequest(2)));
    EXPECT_EQ(snapshot->repositories.size(), 2U);
    EXPECT_EQ(snapshot->account, "octo");
    EXPECT_EQ(snapshot->refreshedAt, date("2024-05-02T08:00:00Z"));
    EXPECT_EQ(snapshot->reviewerScope, ReviewerScope::myself);
    EXPECT_EQ(snapshot->repositoryScope, (std::set<std::string>{"octo/tools"}));
    EXPECT_EQ(snapshot->reviewFilters, (std::set<std::string>{"Changes Requested"}));
    EXPECT_EQ(snapshot->states, (std::set<PullRequestState>{PullRequestState::open}));
}

TEST_F(Snapshots, comesBackAfterARestart)
{
    selectTools();
    startAndRefresh();
    start();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
}

TEST_F(Snapshots, aFailedRefreshLeavesTheFileAsItWas)
{
    selectTools();
    cacheSnapshot(ReviewerScope::myself);
    const auto before = cache().load();
    provider->setError("HTTP 500");
    startAndRefresh();
    EXPECT_EQ(model->refreshError(), "Showing cached data: HTTP 500");
    model.reset();
    EXPECT_EQ(cache().load(), before);
}

TEST_F(Snapshots, aCacheThatCannotBeReadIsPassedOver)
{
    selectTools();
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("cache/pull-requests.json"))));
    start();
    EXPECT_EQ(model->state(), (MenuState{Kind::idle, ""}));
    refresh();
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
    EXPECT_EQ(model->refreshError(), std::nullopt);
}

TEST_F(Snapshots, theNamesBehindTheCountsAreKnownWithoutNetwork)
{
    PullRequestDetails details;
    details.failedChecks = {"lint"};
    provider->setDetails({PullRequestDetails{}, details});
    selectTools();
    startAndRefresh();
    EXPECT_EQ(model->list().details()->at(makePullRequest(2).id), details);
    start();
    EXPECT_EQ(model->list().details()->size(), 2U);
    EXPECT_EQ(model->list().details()->at(makePullRequest(2).id), details);
    std::filesystem::remove(PullRequestDetailsFile::beside(cache()).fileURL);
    start();
    EXPECT_THAT(*model->list().details(), IsEmpty());
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(Snapshots, namesThatChangeWithoutTheirCountsAreAnnouncedOnce)
{
    PullRequestDetails details;
    details.failedChecks = {"lint"};
    provider->setDetails({details, details});
    selectTools();
    startAndRefresh();
    const auto rowsChanges = countOf(&PullRequestMenuModel::rowsChanged);
    const auto detailsChanges = countOf(&PullRequestMenuModel::detailsChanged);
    refresh();
    EXPECT_EQ(*detailsChanges, 0);
    details.failedChecks = {"build"};
    provider->setDetails({details, details});
    refresh();
    EXPECT_EQ(*rowsChanges, 0);
    EXPECT_EQ(*detailsChanges, 1);
    details.failedChecks = {"docs"};
    provider->setDetails({details});
    provider->setPullRequests({makePullRequest(1)});
    refresh();
    EXPECT_EQ(*rowsChanges, 1);
    EXPECT_EQ(*detailsChanges, 1);
}

}  // namespace
