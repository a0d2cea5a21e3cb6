#include "Fakes/ModelFixture.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"

namespace {

using namespace TestSupport;

/// What other processes store while the program runs.
class SettingsFollowing : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        const auto draft = with(makePullRequest(2), &PullRequest::isDraft, true);
        provider->setPullRequests({makePullRequest(1), draft});
        provider->setRepositories({"octo/site", "octo/tools"});
        startAndRefresh();
    }

    /// As another process does, which the model is then told of.
    void store(const std::function<void(Settings&)>& change)
    {
        SettingsStore(*defaults).change(change);
        model->readSettingsAgain();
        processEvents();
    }
};

TEST_F(SettingsFollowing, showsOtherRowsForOtherFilters)
{
    store([](Settings& settings) { settings.statuses = {StatusFilter::draft}; });
    EXPECT_THAT(shownNumbers(), ElementsAre(2));
    EXPECT_EQ(provider->requests().size(), 1U);
}

TEST_F(SettingsFollowing, fetchesForAnotherSelection)
{
    store([](Settings& settings) { settings.selectedRepositories.insert("octo/site"); });
    clock->advance(250ms);
    ASSERT_TRUE(eventually([&] { return provider->requests().size() == 2; }));
    EXPECT_THAT(
        provider->requests().back().repositories, UnorderedElementsAre("octo/site", "octo/tools"));
}

TEST_F(SettingsFollowing, fetchesForOtherReviewers)
{
    store([](Settings& settings) { settings.reviewerFilter = ReviewerFilter::any; });
    ASSERT_TRUE(eventually([&] { return provider->requests().size() == 2; }));
    EXPECT_EQ(provider->requests().back().reviewerScope, ReviewerScope::any);
}

TEST_F(SettingsFollowing, pollsAtAnotherInterval)
{
    store([](Settings& settings) { settings.pollingInterval = PollingInterval::oneMinute; });
    EXPECT_THAT(clock->sleepers(), ElementsAre(60'000ms));
}

TEST_F(SettingsFollowing, switchesTheDarkMode)
{
    const auto switched = countOf(&PullRequestMenuModel::darkModeChanged);
    store([](Settings& settings) { settings.darkMode = true; });
    EXPECT_EQ(*switched, 1);
    EXPECT_TRUE(model->settings().darkMode);
}

TEST_F(SettingsFollowing, asksForThePermissionOfNotificationsThatAreTurnedOn)
{
    notifier->isGranted = false;
    store([](Settings& settings) { settings.unblockedNotificationsEnabled = true; });
    EXPECT_EQ(notifier->permissionRequests, 1);
    EXPECT_FALSE(model->settings().unblockedNotificationsEnabled);
    EXPECT_FALSE(SettingsStore(*defaults).load().unblockedNotificationsEnabled);
}

TEST_F(SettingsFollowing, doesNothingWhenEverythingIsAsBefore)
{
    int changes = 0;
    const auto count = [&] { ++changes; };
    QObject::connect(model.get(), &PullRequestMenuModel::settingsChanged, model.get(), count);
    QObject::connect(model.get(), &PullRequestMenuModel::rowsChanged, model.get(), count);
    QObject::connect(model.get(), &PullRequestMenuModel::darkModeChanged, model.get(), count);
    const auto sleepers = clock->sleepers();
    model->readSettingsAgain();
    clock->advance(1s);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(provider->requests().size(), 1U);
    EXPECT_EQ(clock->sleepers().size(), sleepers.size());
    EXPECT_EQ(notifier->permissionRequests, 0);
}

TEST_F(SettingsFollowing, looksAgainWhenTheListIsOpened)
{
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.reviewerFilter = ReviewerFilter::any; });
    model->menuOpened();
    ASSERT_TRUE(refreshed(2));
    EXPECT_EQ(provider->requests().back().reviewerScope, ReviewerScope::any);
    clock->advance(1s);
    EXPECT_EQ(provider->requests().size(), 2U);
}

TEST_F(SettingsFollowing, aChangeOfTheUserStartsFromWhatIsStored)
{
    SettingsStore(*defaults).change([](Settings& settings) {
        settings.selectedRepositories.insert("octo/site");
        settings.pollingInterval = PollingInterval::oneHour;
    });
    model->toggleRepository("octo/docs");
    EXPECT_THAT(
        model->settings().selectedRepositories,
        UnorderedElementsAre("octo/docs", "octo/site", "octo/tools"));
    EXPECT_EQ(model->settings().pollingInterval, PollingInterval::oneHour);
    EXPECT_THAT(
        SettingsStore(*defaults).load().selectedRepositories,
        UnorderedElementsAre("octo/docs", "octo/site", "octo/tools"));
}

TEST_F(SettingsFollowing, aToggleDoesWhatTheUserSawEvenIfItIsDoneAlready)
{
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.statuses.insert(StatusFilter::draft); });
    model->toggleStatus(StatusFilter::draft);
    EXPECT_THAT(
        model->settings().statuses, UnorderedElementsAre(StatusFilter::open, StatusFilter::draft));
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(SettingsFollowing, aProjectDirectoryIsSetAtOnceAndStoredWithin300Milliseconds)
{
    model->setProjectDirectory("/h");
    EXPECT_EQ(model->settings().projectDirectory, "/h");
    clock->advance(150ms);
    model->setProjectDirectory("/home");
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "");
    clock->advance(50ms);
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "/home");
    model->setProjectDirectory("/home/octo");
    clock->advance(200ms);
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "/home/octo");
}

TEST_F(SettingsFollowing, aProjectDirectoryIsStoredWhenTheUserIsDoneWithIt)
{
    model->setProjectDirectory("/src");
    model->flushSettings();
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "/src");
    model->setProjectDirectory("/src/more");
    model->stop();
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "/src/more");
}

TEST_F(SettingsFollowing, aProjectDirectoryThatIsBeingTypedStays)
{
    model->setProjectDirectory("/src");
    store([](Settings& settings) { settings.projectDirectory = "/elsewhere"; });
    EXPECT_EQ(model->settings().projectDirectory, "/src");
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(model->settings().projectDirectory, "/src");
    EXPECT_EQ(SettingsStore(*defaults).load().projectDirectory, "/src");
}

TEST_F(SettingsFollowing, aRunningModelFollowsItsFile)
{
    const std::filesystem::path file =
        folder.filePath(QStringLiteral("settings/settings.ini")).toStdString();
    auto parts = collaborators();
    parts.defaults = std::make_shared<IniDefaultsStore>(file);
    parts.settingsWatcher = std::make_shared<FileWatcher>(file);
    model = std::make_unique<PullRequestMenuModel>(parts);
    const auto visits = countOf(&PullRequestMenuModel::visitsChanged);
    IniDefaultsStore other(file);
    SettingsStore(other).change([](Settings& settings) { settings.darkMode = true; });
    EXPECT_TRUE(eventually([&] { return model->settings().darkMode; }));
    const auto pullRequest = makePullRequest(1);
    VisitStore(other, VisitStore::programPrefix, [&] {
        return clock->now();
    }).recordVisit(pullRequest.id);
    EXPECT_TRUE(eventually([&] { return model->visits().isVisited(pullRequest); }));
    EXPECT_TRUE(eventually([&] { return visits > 0; }));
}

}  // namespace
