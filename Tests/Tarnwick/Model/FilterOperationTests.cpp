#include "Fakes/ModelFixture.h"

namespace {

using namespace TestSupport;

/// What the user changes: it takes effect at once and is there after a restart.
class FilterOperations : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        const auto draft = with(makePullRequest(2), &PullRequest::isDraft, true);
        const auto failing = with(makePullRequest(3), &PullRequest::checks, {1, 2, 1});
        auto conflicting = makePullRequest(4);
        conflicting.mergeability = PullRequestMergeability::conflicting;
        auto approved = makePullRequest(5);
        approved.reviewActivity = {true, false, false, true};
        provider->setPullRequests({makePullRequest(1), draft, failing, conflicting, approved});
        provider->setRepositories({"octo/site", "octo/tools"});
        startAndRefresh();
    }

    Settings storedSettings() { return SettingsStore(*defaults).load(); }
};

TEST_F(FilterOperations, togglesAStatus)
{
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3, 4, 5));
    model->toggleStatus(StatusFilter::draft);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3, 4, 5));
    model->toggleStatus(StatusFilter::open);
    EXPECT_THAT(shownNumbers(), ElementsAre(2));
    EXPECT_THAT(storedSettings().statuses, ElementsAre(StatusFilter::draft));
    model->toggleStatus(StatusFilter::draft);
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_THAT(storedSettings().statuses, IsEmpty());
}

TEST_F(FilterOperations, togglesAChecksCase)
{
    model->toggleChecks(ChecksFilter::none);
    EXPECT_THAT(shownNumbers(), ElementsAre(3));
    EXPECT_FALSE(storedSettings().checks.contains(ChecksFilter::none));
    model->toggleChecks(ChecksFilter::none);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3, 4, 5));
}

TEST_F(FilterOperations, togglesAReviewFilter)
{
    model->toggleReviewFilter(ReviewFilter::approved);
    EXPECT_THAT(shownNumbers(), ElementsAre(5));
    EXPECT_THAT(storedSettings().reviewFilters, ElementsAre(ReviewFilter::approved));
    model->toggleReviewFilter(ReviewFilter::approved);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3, 4, 5));
}

TEST_F(FilterOperations, togglesAMergeability)
{
    model->toggleMergeability(MergeabilityFilter::mergeable);
    EXPECT_THAT(shownNumbers(), ElementsAre(4));
    EXPECT_FALSE(storedSettings().mergeabilities.contains(MergeabilityFilter::mergeable));
}

TEST_F(FilterOperations, togglesARepository)
{
    model->toggleRepository("octo/tools");
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_THAT(storedSettings().selectedRepositories, IsEmpty());
    model->toggleRepository("octo/tools");
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3, 4, 5));
}

TEST_F(FilterOperations, selectsEveryRepositoryAndNone)
{
    model->selectAllRepositories(true);
    EXPECT_THAT(storedSettings().selectedRepositories, ElementsAre("octo/site", "octo/tools"));
    model->selectAllRepositories(false);
    EXPECT_THAT(storedSettings().selectedRepositories, IsEmpty());
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(FilterOperations, selectingEveryRepositoryOfAnEmptyListShowsNothing)
{
    provider->setRepositories({});
    refresh();
    model->selectAllRepositories(true);
    EXPECT_THAT(model->settings().selectedRepositories, IsEmpty());
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(FilterOperations, selectsAndUnselectsAGroup)
{
    model->selectRepositories({"octo/site", "octo/docs"}, true);
    EXPECT_THAT(
        storedSettings().selectedRepositories, ElementsAre("octo/docs", "octo/site", "octo/tools"));
    model->selectRepositories({"octo/tools", "octo/docs", "octo/unknown"}, false);
    EXPECT_THAT(storedSettings().selectedRepositories, ElementsAre("octo/site"));
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(FilterOperations, storesTheOtherSettingsAtOnce)
{
    model->setReviewerFilter(ReviewerFilter::any);
    model->setPollingInterval(PollingInterval::oneHour);
    model->setProjectDirectory("~/src");
    model->flushSettings();
    EXPECT_EQ(storedSettings().reviewerFilter, ReviewerFilter::any);
    EXPECT_EQ(storedSettings().pollingInterval, PollingInterval::oneHour);
    EXPECT_EQ(storedSettings().projectDirectory, "~/src");
    ASSERT_TRUE(settle());
}

TEST_F(FilterOperations, filterWhatIsShownUntilOtherReviewersAreFetchedFor)
{
    provider->hold();
    provider->setPullRequests({makePullRequest(7)});
    model->setReviewerFilter(ReviewerFilter::any);
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 3, 4, 5));
    model->toggleStatus(StatusFilter::draft);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3, 4, 5));
    model->toggleMergeability(MergeabilityFilter::conflicting);
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2, 3, 5));
    releaseAndSettle();
    EXPECT_THAT(shownNumbers(), ElementsAre(7));
}

TEST_F(FilterOperations, tellsOfEveryChange)
{
    const auto settingsChanges = countOf(&PullRequestMenuModel::settingsChanged);
    const auto rowChanges = countOf(&PullRequestMenuModel::rowsChanged);
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(*settingsChanges, 1);
    EXPECT_EQ(*rowChanges, 1);
    model->toggleMergeability(MergeabilityFilter::unknown);
    EXPECT_EQ(*settingsChanges, 2);
    EXPECT_EQ(*rowChanges, 1);
}

TEST_F(FilterOperations, countsWhatTheFiltersHide)
{
    EXPECT_EQ(model->list().hidden().total(), 1U);
    model->toggleChecks(ChecksFilter::none);
    EXPECT_EQ(model->list().hidden().filters, 4U);
    model->selectAllRepositories(false);
    EXPECT_EQ(model->list().hidden().total(), 0U);
    ASSERT_TRUE(settle());
}

TEST_F(FilterOperations, tellWheneverWhatIsHiddenMayDiffer)
{
    model->toggleStatus(StatusFilter::draft);
    const auto changes = countOf(&PullRequestMenuModel::hiddenChanged);
    model->toggleMergeability(MergeabilityFilter::conflicting);
    EXPECT_EQ(*changes, 1);
    auto conflicting = makePullRequest(4);
    conflicting.mergeability = PullRequestMergeability::conflicting;
    conflicting.title = "Another title";
    provider->setPullRequests({conflicting});
    refresh();
    EXPECT_EQ(*changes, 2);
    model->toggleMergeability(MergeabilityFilter::conflicting);
    EXPECT_EQ(*changes, 3);
    model->toggleChecks(ChecksFilter::fail);
    EXPECT_EQ(*changes, 3);
}

TEST_F(FilterOperations, knowTheHiddenOnesAndWhatHidesThem)
{
    const auto all = model->list().arrangedWithHidden();
    ASSERT_EQ(all->rows.size(), 5U);
    for (const PullRequestRow& row : all->rows) {
        EXPECT_EQ(
            model->list().sightOf(row.pullRequest),
            row.id().number == 2 ? Sight::hiddenByStatus : Sight::inSight);
    }
}

TEST_F(FilterOperations, resetEveryFilterAndNoRepository)
{
    EXPECT_TRUE(hasDefaultFilters(model->settings()));
    model->toggleStatus(StatusFilter::draft);
    model->toggleChecks(ChecksFilter::pass);
    model->toggleReviewFilter(ReviewFilter::approved);
    model->toggleMergeability(MergeabilityFilter::conflicting);
    model->setReviewerFilter(ReviewerFilter::any);
    model->setPollingInterval(PollingInterval::oneHour);
    EXPECT_FALSE(hasDefaultFilters(model->settings()));
    model->resetFilters();
    EXPECT_TRUE(hasDefaultFilters(model->settings()));
    Settings expected;
    expected.selectedRepositories = {"octo/tools"};
    expected.pollingInterval = PollingInterval::oneHour;
    EXPECT_EQ(model->settings(), expected);
    EXPECT_EQ(storedSettings(), expected);
    // The refresh for the reviewers before may run still; the next one looks for its end by the
    // clock.
    ASSERT_TRUE(eventually([&] {
        clock->advance(std::chrono::milliseconds(50));
        return shownNumbers().size() == 4;
    }));
    ASSERT_TRUE(settle());
}

TEST_F(FilterOperations, togglesTheLoginItem)
{
    model->toggleLaunchAtLogin();
    EXPECT_TRUE(loginItem->isOn);
    EXPECT_TRUE(model->launchAtLoginEnabled());
    model->toggleLaunchAtLogin();
    EXPECT_FALSE(loginItem->isOn);
    EXPECT_FALSE(model->launchAtLoginEnabled());
    EXPECT_EQ(model->settingsError(), std::nullopt);
}

TEST_F(FilterOperations, saysWhyTheLoginItemCouldNotBeChanged)
{
    loginItem->error = "The folder is read-only.";
    model->toggleLaunchAtLogin();
    EXPECT_EQ(
        model->settingsError(), "Open at Login could not be changed: The folder is read-only.");
    EXPECT_FALSE(model->launchAtLoginEnabled());
    model->dismissSettingsError();
    EXPECT_EQ(model->settingsError(), std::nullopt);
}

TEST_F(FilterOperations, sayWhyAChangeCannotBeKeptUntilOneCan)
{
    defaults->reportedProblem = "The disk is full.";
    model->setDarkMode(true);
    EXPECT_EQ(model->settingsError(), "The disk is full.");
    model->dismissSettingsError();
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(model->settingsError(), "The disk is full.");
    defaults->reportedProblem.reset();
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(model->settingsError(), std::nullopt);
}

TEST_F(FilterOperations, keepAnErrorThatIsNotOfTheStore)
{
    loginItem->error = "The folder is read-only.";
    model->toggleLaunchAtLogin();
    model->setDarkMode(true);
    EXPECT_EQ(
        model->settingsError(), "Open at Login could not be changed: The folder is read-only.");
}

TEST_F(FilterOperations, sayThatAVisitCannotBeKept)
{
    defaults->reportedProblem = "The disk is full.";
    model->recordVisit(makePullRequest(1).id);
    EXPECT_EQ(model->settingsError(), "The disk is full.");
}

TEST_F(FilterOperations, switchDarkModeAndKeepIt)
{
    const auto switched = countOf(&PullRequestMenuModel::darkModeChanged);
    EXPECT_FALSE(model->settings().darkMode);
    model->setDarkMode(true);
    model->setDarkMode(true);
    EXPECT_TRUE(model->settings().darkMode);
    EXPECT_EQ(*switched, 1);
    EXPECT_EQ(defaults->values.at("appearance.darkMode"), "true");
    start();
    EXPECT_TRUE(model->settings().darkMode);
}

TEST_F(FilterOperations, rememberVisitsAndSaySo)
{
    const auto visited = countOf(&PullRequestMenuModel::visitsChanged);
    const auto pullRequest = makePullRequest(1);
    EXPECT_FALSE(model->visits().isVisited(pullRequest));
    model->recordVisit(pullRequest.id);
    EXPECT_TRUE(model->visits().isVisited(pullRequest));
    EXPECT_EQ(*visited, 1);
}

}  // namespace
