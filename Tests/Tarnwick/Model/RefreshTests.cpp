#include "Fakes/ModelFixture.h"

namespace {

using namespace TestSupport;

/// The model's states and the course of one refresh.
class Refresh : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setPullRequests({makePullRequest(1), makePullRequest(2)});
        provider->setRepositories({"octo/tools", "octo/site"});
    }
};

TEST_F(Refresh, startsIdleWithNothingInSight)
{
    start();
    EXPECT_EQ(model->state(), (MenuState{Kind::idle, ""}));
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_EQ(model->lastRefreshed(), std::nullopt);
    EXPECT_EQ(provider->statusCalls(), 0);
}

TEST_F(Refresh, passesThroughItsStatesToLoaded)
{
    start();
    std::vector<Kind> kinds;
    QObject::connect(model.get(), &PullRequestMenuModel::stateChanged, model.get(), [&] {
        kinds.push_back(model->state().kind);
    });
    refresh();
    EXPECT_THAT(kinds, ElementsAre(Kind::checkingAuthentication, Kind::loading, Kind::loaded));
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
    EXPECT_EQ(model->account(), "octo");
    EXPECT_EQ(model->lastRefreshed(), date("2024-05-02T08:00:00Z"));
    EXPECT_EQ(model->repositories().size(), 2U);
    EXPECT_FALSE(model->isRefreshing());
}

TEST_F(Refresh, neverLeavesLoadedWithDataInSight)
{
    startAndRefresh();
    const auto changes = countOf(&PullRequestMenuModel::stateChanged);
    openAndHold();
    EXPECT_TRUE(model->isRefreshing());
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    releaseAndSettle();
    EXPECT_EQ(*changes, 0);
}

TEST_F(Refresh, asksForTheSelectedRepositoriesAndTheReviewersScope)
{
    startAndRefresh();
    EXPECT_THAT(
        provider->requests(),
        ElementsAre(FakeProvider::Request{ReviewerScope::myself, {"octo/tools"}}));
}

TEST_F(Refresh, showsThatNobodyIsSignedIn)
{
    provider->setStatus(NotAuthenticated{"Sign in, please."});
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::signedOut, "Sign in, please."}));
    EXPECT_EQ(model->refreshError(), std::nullopt);
    EXPECT_FALSE(model->isRefreshing());
}

TEST_F(Refresh, showsThatTheProviderIsUnavailable)
{
    provider->setStatus(Unavailable{"There is no gh."});
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::unavailable, "There is no gh."}));
}

TEST_F(Refresh, passesOnThatTheServiceIsOutOfReach)
{
    provider->setStatus(Unavailable{"GitHub cannot be reached.", true});
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::unavailable, "GitHub cannot be reached."}));
    EXPECT_TRUE(model->state().isServiceOutOfReach);
}

TEST_F(Refresh, showsWhyAFetchFailed)
{
    provider->setError("HTTP 500");
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::failed, "HTTP 500"}));
    EXPECT_EQ(model->refreshError(), std::nullopt);
    EXPECT_EQ(model->lastRefreshed(), std::nullopt);
}

TEST_F(Refresh, failsAsAWholeWhenTheRepositoriesCannotBeListed)
{
    provider->setRepositoriesError("no list");
    startAndRefresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::failed, "no list"}));
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(Refresh, keepsTheListWhenTheUserSignsOut)
{
    startAndRefresh();
    provider->setStatus(NotAuthenticated{"Signed out."});
    refresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_EQ(model->refreshError(), "Showing cached data: Signed out.");
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(Refresh, keepsTheListWhenTheProviderBecomesUnavailable)
{
    startAndRefresh();
    provider->setStatus(Unavailable{"Gone."});
    refresh();
    EXPECT_EQ(model->refreshError(), "Showing cached data: Gone.");
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(Refresh, keepsTheListWhenAFetchFailsAndForgetsTheErrorAtTheNext)
{
    startAndRefresh();
    provider->setError("HTTP 502");
    refresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_EQ(model->refreshError(), "Showing cached data: HTTP 502");
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
    provider->setError("");
    refresh();
    EXPECT_EQ(model->refreshError(), std::nullopt);
}

TEST_F(Refresh, remembersWhyItFailedUntilOneSucceeds)
{
    startAndRefresh();
    EXPECT_EQ(model->lastFailure(), std::nullopt);
    provider->setStatus(NotAuthenticated{"GitHub CLI is not logged in."});
    refresh();
    const MenuState signedOut{Kind::signedOut, "GitHub CLI is not logged in."};
    EXPECT_EQ(model->lastFailure(), signedOut);
    model->dismissRefreshError();
    provider->setStatus(Authenticated{"octo"});
    openAndHold();
    EXPECT_EQ(model->refreshError(), std::nullopt);
    EXPECT_EQ(model->lastFailure(), signedOut);
    releaseAndSettle();
    EXPECT_EQ(model->lastFailure(), std::nullopt);
}

TEST_F(Refresh, recoversFromAFailureWithoutData)
{
    provider->setError("HTTP 500");
    startAndRefresh();
    provider->setError("");
    refresh();
    EXPECT_EQ(model->state(), (MenuState{Kind::loaded, ""}));
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
}

TEST_F(Refresh, throwsAwayAnAnswerForOtherReviewers)
{
    start();
    openAndHold();
    provider->setPullRequests({makePullRequest(3)});
    model->setReviewerFilter(ReviewerFilter::any);
    ASSERT_TRUE(eventually([&] { return provider->cancelled() == 1; }));
    releaseAndSettle();
    clock->advance(50ms);
    ASSERT_TRUE(refreshed(2));
    EXPECT_THAT(shownNumbers(), ElementsAre(3));
    EXPECT_EQ(provider->requests().back().reviewerScope, ReviewerScope::any);
}

TEST_F(Refresh, throwsAwayTheAnswerOfAPollForOtherReviewers)
{
    start();
    pollAndHold();
    model->setReviewerFilter(ReviewerFilter::any);
    provider->setPullRequests({makePullRequest(3)});
    releaseAndSettle();
    EXPECT_THAT(shownNumbers(), IsEmpty());
    EXPECT_EQ(model->lastRefreshed(), std::nullopt);
    clock->advance(50ms);
    ASSERT_TRUE(refreshed(2));
    EXPECT_THAT(shownNumbers(), ElementsAre(3));
}

TEST_F(Refresh, throwsAwayTheAnswerOfAPollForAnotherSelection)
{
    start();
    pollAndHold();
    model->toggleRepository("octo/site");
    releaseAndSettle();
    EXPECT_EQ(model->lastRefreshed(), std::nullopt);
    EXPECT_THAT(shownNumbers(), IsEmpty());
}

TEST_F(Refresh, showsWhatAFilterLeavesThatWasChosenMeanwhile)
{
    const auto draft = with(makePullRequest(4), &PullRequest::isDraft, true);
    provider->setPullRequests({makePullRequest(3), draft});
    start();
    openAndHold();
    model->toggleStatus(StatusFilter::draft);
    model->toggleStatus(StatusFilter::open);
    releaseAndSettle();
    EXPECT_THAT(shownNumbers(), ElementsAre(4));
}

TEST_F(Refresh, leavesAllDataAsItWasWhenItIsCancelled)
{
    startAndRefresh();
    provider->setPullRequests({makePullRequest(9)});
    openAndHold();
    model->toggleRepository("octo/site");
    ASSERT_TRUE(eventually([&] { return provider->cancelled() == 1; }));
    ASSERT_TRUE(settle());
    EXPECT_THAT(shownNumbers(), UnorderedElementsAre(1, 2));
    EXPECT_EQ(model->refreshError(), std::nullopt);
}

TEST_F(Refresh, cancelsARunningRequestWhenTheModelGoes)
{
    start();
    openAndHold();
    model.reset();
    EXPECT_TRUE(eventually([&] { return provider->cancelled() == 1; }));
}

TEST_F(Refresh, keepsTheLaterOfTwoVersionsAtThePlaceOfTheFirst)
{
    auto older = makePullRequest(1);
    auto newer = makePullRequest(1);
    newer.updatedAt = older.updatedAt + 1s;
    newer.title = "newer";
    provider->setPullRequests({older, makePullRequest(2), newer});
    startAndRefresh();
    const auto snapshot = (model.reset(), cache().load());
    ASSERT_TRUE(snapshot);
    ASSERT_EQ(snapshot->pullRequests.size(), 2U);
    EXPECT_EQ(snapshot->pullRequests.front().title, "newer");
}

TEST_F(Refresh, readsTheLoginItemEachTimeTheListIsOpened)
{
    start();
    EXPECT_FALSE(model->launchAtLoginEnabled());
    loginItem->isOn = true;
    model->menuOpened();
    EXPECT_TRUE(model->launchAtLoginEnabled());
    ASSERT_TRUE(settle());
}

TEST_F(Refresh, tellsOfMorePullRequestsThanAreListed)
{
    start();
    const auto changed = countOf(&PullRequestMenuModel::truncationChanged);
    EXPECT_EQ(model->truncation(), std::nullopt);
    provider->setPullRequests({makePullRequest(1), makePullRequest(2), makePullRequest(2)});
    provider->setFound(1240);
    refresh();
    EXPECT_EQ(model->truncation(), (Truncation{.found = 1240, .listed = 2}));
    EXPECT_EQ(*changed, 1);
    provider->setFound(std::nullopt);
    refresh();
    EXPECT_EQ(model->truncation(), std::nullopt);
    EXPECT_EQ(*changed, 2);
}

}  // namespace
