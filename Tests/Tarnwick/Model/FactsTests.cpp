#include "Fakes/ModelFixture.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <filesystem>

namespace {

using namespace PullRequestKit;
using namespace Tarnwick;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using TestSupport::eventually;
using TestSupport::makePullRequest;
using TestSupport::processEvents;
using TestSupport::runToEnd;

/// The user's own pull requests 1 and 2, which facts make ready.
class Facts : public TestSupport::ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setRepositories({"octo/tools"});
        provider->setFacts([this](std::span<const PullRequest> asked) { return answer(asked); });
        serve({own(1), own(2)});
    }

    static PullRequest own(std::int64_t number)
    {
        auto pullRequest = makePullRequest(number);
        pullRequest.author = "octo";
        return pullRequest;
    }

    void serve(const std::vector<PullRequest>& pullRequests)
    {
        provider->setPullRequests(pullRequests);
        provider->setDetails(std::vector<PullRequestDetails>(pullRequests.size()));
    }

    /// Called on a worker thread.
    FactsAnswer answer(std::span<const PullRequest> asked) const
    {
        FactsAnswer answer;
        for (const PullRequest& pullRequest : asked) {
            PullRequestFacts& facts = answer.facts[pullRequest.id];
            facts.askedAt = askedAt;
            facts.updatedAt = pullRequest.updatedAt;
            facts.headCommit = "c1";
        }
        answer.quota = quota;
        return answer;
    }

    void startByTurn()
    {
        SettingsStore(*defaults).change(
            [](Settings& settings) { settings.arrangement = Arrangement::byWhoseTurn; });
        start();
    }

    /// One refresh and all that it asks for.
    void refreshFully()
    {
        refresh();
        runToEnd(model->askForFacts());
    }

    std::vector<Whose> whose() const
    {
        std::vector<Whose> all;
        for (const Turn& turn : model->turns()) {
            all.push_back(turn.whose);
        }
        return all;
    }

    Date askedAt = clock->now();
    std::optional<Quota> quota;
};

TEST_F(Facts, areNotAskedForByDefault)
{
    start();
    refresh();
    processEvents();
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
    model->toggleStatus(StatusFilter::draft);
    processEvents();
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(PullRequestFactsFile::beside(cache()).path));
}

TEST_F(Facts, areAskedForOnceTheListIsShown)
{
    startByTurn();
    provider->holdFacts();
    refresh();
    EXPECT_FALSE(model->isRefreshing());
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_THAT(whose(), ElementsAre(Whose::others, Whose::others));
    ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    EXPECT_THAT(provider->factsRequests(), ElementsAre(UnorderedElementsAre(1, 2)));
    provider->releaseFacts();
    EXPECT_TRUE(eventually([&] { return model->facts()->size() == 2; }));
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
}

TEST_F(Facts, areAskedForAtOnceWhenTheListIsArrangedByTurn)
{
    start();
    refresh();
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(eventually([&] { return model->facts()->size() == 2; }));
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
}

TEST_F(Facts, areAskedForOnlyOfWhatChanged)
{
    startByTurn();
    refreshFully();
    refreshFully();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
    auto changed = own(2);
    changed.updatedAt += 1s;
    serve({own(1), changed});
    refreshFully();
    ASSERT_EQ(provider->factsRequests().size(), 2U);
    EXPECT_THAT(provider->factsRequests().back(), ElementsAre(2));
}

TEST_F(Facts, areAskedForWhenAFilterLetsMoreThrough)
{
    auto draft = own(3);
    draft.isDraft = true;
    serve({own(1), draft});
    startByTurn();
    refreshFully();
    EXPECT_THAT(provider->factsRequests(), ElementsAre(ElementsAre(1)));
    model->toggleStatus(StatusFilter::draft);
    runToEnd(model->askForFacts());
    ASSERT_EQ(provider->factsRequests().size(), 2U);
    EXPECT_THAT(provider->factsRequests().back(), ElementsAre(3));
}

TEST_F(Facts, whatIsNotToldRestsUntilTheNextRefresh)
{
    provider->setFacts([](std::span<const PullRequest>) { return FactsAnswer(); });
    startByTurn();
    refreshFully();
    model->toggleStatus(StatusFilter::draft);
    runToEnd(model->askForFacts());
    EXPECT_EQ(provider->factsRequests().size(), 1U);
    EXPECT_EQ(model->refreshError(), std::nullopt);
    EXPECT_EQ(model->rows().size(), 2U);
    refreshFully();
    EXPECT_EQ(provider->factsRequests().size(), 2U);
}

TEST_F(Facts, ofAnEarlierVersionHoldUntilItIsClearThatNoneAreTold)
{
    startByTurn();
    refreshFully();
    auto changed = own(2);
    changed.updatedAt += 1s;
    serve({own(1), changed});
    provider->setFacts([](std::span<const PullRequest>) { return FactsAnswer(); });
    provider->holdFacts();
    refresh();
    ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
    provider->releaseFacts();
    runToEnd(model->askForFacts());
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::others));
    EXPECT_EQ(model->rows().back().id().number, 2);
}

TEST_F(Facts, aQuestionThatFailsCostsNothing)
{
    provider->setFacts([](std::span<const PullRequest>) -> FactsAnswer {
        throw ProviderError("The connection was lost.");
    });
    startByTurn();
    refreshFully();
    EXPECT_EQ(model->refreshError(), std::nullopt);
    EXPECT_EQ(model->lastFailure(), std::nullopt);
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_EQ(model->rows().size(), 2U);
}

TEST_F(Facts, ofWhatIsNotListedAreDropped)
{
    provider->setFacts([this](std::span<const PullRequest> asked) {
        FactsAnswer facts = answer(asked);
        auto renamed = makePullRequest(1).id;
        renamed.repository = "octo/renamed";
        facts.facts[renamed].headCommit = "c9";
        return facts;
    });
    startByTurn();
    refreshFully();
    EXPECT_EQ(model->facts()->size(), 2U);
    serve({own(2)});
    refreshFully();
    ASSERT_EQ(model->facts()->size(), 1U);
    EXPECT_EQ(model->facts()->begin()->first.number, 2);
}

TEST_F(Facts, anAnswerIsTakenOverByAListThatIsNewerThanTheQuestion)
{
    startByTurn();
    provider->holdFacts();
    refresh();
    ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    serve({own(2), own(3)});
    refresh();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
    provider->releaseFacts();
    runToEnd(model->askForFacts());
    EXPECT_EQ(model->facts()->size(), 2U);
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
    ASSERT_EQ(provider->factsRequests().size(), 2U);
    EXPECT_THAT(provider->factsRequests().back(), ElementsAre(3));
}

TEST_F(Facts, theQuestionEndsWhenOtherReviewersAreChosen)
{
    startByTurn();
    provider->holdFacts();
    refresh();
    ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    provider->hold();
    model->setReviewerFilter(ReviewerFilter::any);
    EXPECT_TRUE(eventually([&] { return provider->waitingForFacts() == 0; }));
    EXPECT_THAT(*model->facts(), IsEmpty());
    provider->releaseFacts();
    releaseAndSettle();
    EXPECT_TRUE(eventually([&] { return model->facts()->size() == 2; }));
}

TEST_F(Facts, theQuestionEndsWithTheModel)
{
    startByTurn();
    provider->holdFacts();
    refresh();
    ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    model->stop();
    EXPECT_TRUE(eventually([&] { return provider->waitingForFacts() == 0; }));
    runToEnd(model->askForFacts());
}

TEST_F(Facts, areThereAtTheNextStart)
{
    startByTurn();
    refreshFully();
    start();
    EXPECT_EQ(model->facts()->size(), 2U);
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
    refreshFully();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
}

TEST_F(Facts, arePreloadedToo)
{
    startByTurn();
    refreshFully();
    model.reset();
    auto parts = collaborators();
    parts.preload = std::make_shared<Preload>([this] { return defaults; }, cache());
    const PullRequestMenuModel other(std::move(parts));
    EXPECT_EQ(other.facts()->size(), 2U);
    EXPECT_EQ(other.turns().size(), 2U);
}

TEST_F(Facts, areNotReadWhereNothingNeedsThem)
{
    startByTurn();
    refreshFully();
    model->setArrangement(Arrangement::byReviewState);
    start();
    EXPECT_THAT(*model->facts(), IsEmpty());
}

TEST_F(Facts, canBeAskedForWhateverTheArrangementIs)
{
    start();
    runToEnd(model->askForFacts());
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
    refresh();
    runToEnd(model->askForFacts());
    EXPECT_EQ(model->facts()->size(), 2U);
    EXPECT_THAT(model->turns(), IsEmpty());
}

TEST_F(Facts, ofNotificationsAreNotAskedForByAProgramThatDoesNotNotify)
{
    turnsFile.reset();
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.yourTurnNotificationsEnabled = true; });
    start();
    refresh();
    processEvents();
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
}

// The quota

TEST_F(Facts, tellWhatIsLeftOfTheQuota)
{
    quota = Quota{5000, 4999, clock->now() + 1h};
    startByTurn();
    EXPECT_EQ(model->quota(), std::nullopt);
    refreshFully();
    EXPECT_EQ(model->quota(), quota);
    EXPECT_EQ(model->restingQuota(), std::nullopt);
    start();
    EXPECT_EQ(model->quota(), quota);
}

TEST_F(Facts, pollingRestsWhileLittleIsLeft)
{
    quota = Quota{5000, 312, clock->now() + 10min};
    startByTurn();
    refreshFully();
    EXPECT_EQ(model->restingQuota(), quota);
    clock->advance(300s);
    processEvents();
    EXPECT_EQ(provider->requests().size(), 1U);
    quota = Quota{5000, 4999, clock->now() + 1h};
    clock->advance(300s);
    EXPECT_TRUE(eventually([&] { return provider->requests().size() == 2; }));
    EXPECT_EQ(model->restingQuota(), std::nullopt);
}

TEST_F(Facts, aRestIsKnownAfterARestart)
{
    quota = Quota{5000, 312, clock->now() + 10min};
    startByTurn();
    refreshFully();
    start();
    EXPECT_EQ(model->restingQuota(), quota);
    model.reset();
    clock->advance(10min);
    start();
    EXPECT_EQ(model->restingQuota(), std::nullopt);
    EXPECT_EQ(model->quota(), std::nullopt);
}

TEST_F(Facts, theUserAsksWhilePollingRests)
{
    quota = Quota{5000, 312, clock->now() + 10min};
    startByTurn();
    refreshFully();
    refresh();
    EXPECT_EQ(provider->requests().size(), 2U);
    model->menuOpened();
    EXPECT_TRUE(eventually([&] { return provider->requests().size() == 3; }));
    ASSERT_TRUE(settle());
}

TEST_F(Facts, pollingRestsAfterItWasRefused)
{
    SettingsStore(*defaults).setSelectedRepositories({"octo/tools"});
    start();
    model->setPollingInterval(PollingInterval::oneMinute);
    provider->setRefused(true);
    clock->advance(1min);
    ASSERT_TRUE(eventually([&] { return provider->requests().size() == 1; }));
    ASSERT_TRUE(settle());
    refresh();
    ASSERT_EQ(provider->requests().size(), 2U);
    // The second refusal in a row is worth two minutes.
    clock->advance(1min);
    processEvents();
    EXPECT_EQ(provider->requests().size(), 2U);
    provider->setRefused(false);
    clock->advance(1min);
    EXPECT_TRUE(eventually([&] { return provider->requests().size() == 3; }));
    ASSERT_TRUE(settle());
    clock->advance(1min);
    EXPECT_TRUE(eventually([&] { return provider->requests().size() == 4; }));
    ASSERT_TRUE(settle());
}

TEST_F(Facts, aRefusalOfFactsMakesPollingRestToo)
{
    provider->setFacts([](std::span<const PullRequest>) {
        FactsAnswer answer;
        answer.hitSecondaryLimit = true;
        return answer;
    });
    startByTurn();
    model->setPollingInterval(PollingInterval::oneMinute);
    refreshFully();
    refreshFully();
    EXPECT_EQ(provider->requests().size(), 2U);
    clock->advance(1min);
    processEvents();
    EXPECT_EQ(provider->requests().size(), 2U);
    clock->advance(1min);
    EXPECT_TRUE(eventually([&] { return provider->requests().size() == 3; }));
    ASSERT_TRUE(settle());
}

}  // namespace
