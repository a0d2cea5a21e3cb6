#include "Fakes/ModelFixture.h"
#include "Support/Mapped.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <filesystem>

namespace {

using namespace TestSupport;

/// The user's own pull requests 1 and 2, which facts make ready.
class Facts : public ModelTest {
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
        return with(makePullRequest(number), &PullRequest::author, "octo");
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

    /// Starts by turn, with everything asked for.
    void startWithFacts()
    {
        startByTurn();
        refreshFully();
    }

    /// Starts by turn, with the list there and the question about facts waiting.
    void startAndHoldFacts()
    {
        startByTurn();
        refreshAndHoldFacts();
    }

    void refreshAndHoldFacts()
    {
        provider->holdFacts();
        refresh();
        ASSERT_TRUE(eventually([&] { return provider->waitingForFacts() == 1; }));
    }

    /// One refresh and all that it asks for.
    void refreshFully()
    {
        refresh();
        runToEnd(model->askForFacts());
    }

    std::vector<Whose> whose() const
    {
        return mapped(model->list().arranged()->turns, &Turn::whose);
    }

    Date askedAt = clock->now();
    std::optional<Quota> quota;
};

TEST_F(Facts, areNotAskedForByDefault)
{
    startAndRefresh();
    processEvents();
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
    model->toggleStatus(StatusFilter::draft);
    processEvents();
    EXPECT_THAT(provider->factsRequests(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(PullRequestFactsFile::beside(cache()).path));
}

TEST_F(Facts, areAskedForOnceTheListIsShown)
{
    startAndHoldFacts();
    EXPECT_FALSE(model->isRefreshing());
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_THAT(whose(), ElementsAre(Whose::others, Whose::others));
    EXPECT_THAT(provider->factsRequests(), ElementsAre(UnorderedElementsAre(1, 2)));
    provider->releaseFacts();
    EXPECT_TRUE(eventually([&] { return model->facts()->size() == 2; }));
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
}

TEST_F(Facts, areAskedForAtOnceWhenTheListIsArrangedByTurn)
{
    startAndRefresh();
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(eventually([&] { return model->facts()->size() == 2; }));
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
}

TEST_F(Facts, areAskedForOnlyOfWhatChanged)
{
    startWithFacts();
    refreshFully();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
    serve({own(1), with(own(2), &PullRequest::updatedAt, own(2).updatedAt + 1s)});
    refreshFully();
    EXPECT_THAT(provider->factsRequests(), ElementsAre(SizeIs(2), ElementsAre(2)));
}

TEST_F(Facts, areAskedForWhenAFilterLetsMoreThrough)
{
    serve({own(1), with(own(3), &PullRequest::isDraft, true)});
    startWithFacts();
    EXPECT_THAT(provider->factsRequests(), ElementsAre(ElementsAre(1)));
    model->toggleStatus(StatusFilter::draft);
    runToEnd(model->askForFacts());
    EXPECT_THAT(provider->factsRequests(), ElementsAre(SizeIs(1), ElementsAre(3)));
}

TEST_F(Facts, whatIsNotToldRestsUntilTheNextRefresh)
{
    provider->setFacts([](std::span<const PullRequest>) { return FactsAnswer(); });
    startWithFacts();
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
    startWithFacts();
    serve({own(1), with(own(2), &PullRequest::updatedAt, own(2).updatedAt + 1s)});
    provider->setFacts([](std::span<const PullRequest>) { return FactsAnswer(); });
    refreshAndHoldFacts();
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
    startWithFacts();
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
    startWithFacts();
    EXPECT_EQ(model->facts()->size(), 2U);
    serve({own(2)});
    refreshFully();
    ASSERT_EQ(model->facts()->size(), 1U);
    EXPECT_EQ(model->facts()->begin()->first.number, 2);
}

TEST_F(Facts, anAnswerIsTakenOverByAListThatIsNewerThanTheQuestion)
{
    startAndHoldFacts();
    serve({own(2), own(3)});
    refresh();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
    provider->releaseFacts();
    runToEnd(model->askForFacts());
    EXPECT_EQ(model->facts()->size(), 2U);
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
    EXPECT_THAT(provider->factsRequests(), ElementsAre(SizeIs(2), ElementsAre(3)));
}

TEST_F(Facts, theQuestionEndsWhenOtherReviewersAreChosen)
{
    startAndHoldFacts();
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
    startAndHoldFacts();
    model->stop();
    EXPECT_TRUE(eventually([&] { return provider->waitingForFacts() == 0; }));
    runToEnd(model->askForFacts());
}

TEST_F(Facts, areThereAtTheNextStart)
{
    startWithFacts();
    start();
    EXPECT_EQ(model->facts()->size(), 2U);
    EXPECT_THAT(whose(), ElementsAre(Whose::ready, Whose::ready));
    refreshFully();
    EXPECT_EQ(provider->factsRequests().size(), 1U);
}

TEST_F(Facts, arePreloadedToo)
{
    startWithFacts();
    model.reset();
    auto parts = collaborators();
    parts.preload = std::make_shared<Preload>([this] { return defaults; }, cache());
    const PullRequestMenuModel other(std::move(parts));
    EXPECT_EQ(other.facts()->size(), 2U);
    EXPECT_EQ(other.list().arranged()->turns.size(), 2U);
}

TEST_F(Facts, areNotReadWhereNothingNeedsThem)
{
    startWithFacts();
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
    EXPECT_THAT(model->list().arranged()->turns, IsEmpty());
}

TEST_F(Facts, ofNotificationsAreNotAskedForByAProgramThatDoesNotNotify)
{
    turnsFile.reset();
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.yourTurnNotificationsEnabled = true; });
    startAndRefresh();
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
    startWithFacts();
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
    startWithFacts();
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
    startWithFacts();
    refresh();
    EXPECT_EQ(provider->requests().size(), 2U);
    model->menuOpened();
    EXPECT_TRUE(refreshed(3));
}

TEST_F(Facts, pollingRestsAfterItWasRefused)
{
    SettingsStore(*defaults).setSelectedRepositories({"octo/tools"});
    start();
    model->setPollingInterval(PollingInterval::oneMinute);
    provider->setRefused(true);
    clock->advance(1min);
    ASSERT_TRUE(refreshed(1));
    refresh();
    ASSERT_EQ(provider->requests().size(), 2U);
    // The second refusal in a row is worth two minutes.
    clock->advance(1min);
    processEvents();
    EXPECT_EQ(provider->requests().size(), 2U);
    provider->setRefused(false);
    clock->advance(1min);
    EXPECT_TRUE(refreshed(3));
    clock->advance(1min);
    EXPECT_TRUE(refreshed(4));
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
    EXPECT_TRUE(refreshed(3));
}

}  // namespace
