#include "Fakes/ModelFixture.h"

namespace {

using namespace TestSupport;

/// The list of the user "octo": 1 and 2 are the user's own, of which 1 has a conflict, and 3 and 4
/// are somebody else's, of which 3 asks for the user's review.
class ArrangedList : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        for (const std::int64_t number : {1, 2, 3, 4}) {
            auto& pullRequest = pullRequests.emplace_back(makePullRequest(number));
            pullRequest.author = number < 3 ? "octo" : "bo";
            pullRequest.updatedAt += std::chrono::seconds(number);
        }
        pullRequests[0].mergeability = PullRequestMergeability::conflicting;
        details.resize(4);
        details[2].requestedUsers = {"octo"};
        serve();
        start();
    }

    void serve()
    {
        provider->setPullRequests(pullRequests);
        provider->setDetails(details);
    }

    /// Counts from now on.
    std::shared_ptr<int> countOf(void (PullRequestMenuModel::*signal)())
    {
        auto count = std::make_shared<int>(0);
        QObject::connect(model.get(), signal, model.get(), [count] { ++*count; });
        return count;
    }

    std::vector<PullRequest> pullRequests;
    std::vector<PullRequestDetails> details;
};

TEST_F(ArrangedList, hasNeitherTurnsNorGroupsByDefault)
{
    refresh();
    EXPECT_THAT(shownNumbers(), ElementsAre(4, 3, 2, 1));
    EXPECT_THAT(model->list().arranged()->turns, IsEmpty());
    EXPECT_THAT(model->list().arranged()->groups, IsEmpty());
    EXPECT_THAT(model->list().arrangedWithHidden()->turns, IsEmpty());
}

TEST_F(ArrangedList, isArrangedByWhoseTurnAtOnceAndBack)
{
    refresh();
    const auto rowsChanged = countOf(&PullRequestMenuModel::rowsChanged);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_THAT(shownNumbers(), ElementsAre(3, 1, 4, 2));
    EXPECT_THAT(
        model->list().arranged()->groups,
        ElementsAre(TurnGroup{Whose::you, 0, 2, 2}, TurnGroup{Whose::others, 2, 2, 2}));
    EXPECT_EQ(model->list().arranged()->turns.front(), (Turn{Whose::you, TurnReason::yourReview}));
    EXPECT_EQ(*rowsChanged, 1);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_EQ(*rowsChanged, 1);
    model->setArrangement(Arrangement::byReviewState);
    EXPECT_THAT(shownNumbers(), ElementsAre(4, 3, 2, 1));
    EXPECT_THAT(model->list().arranged()->turns, IsEmpty());
    EXPECT_THAT(model->list().arranged()->groups, IsEmpty());
}

TEST_F(ArrangedList, isThereFromTheStart)
{
    refresh();
    model->setArrangement(Arrangement::byWhoseTurn);
    start();
    EXPECT_THAT(shownNumbers(), ElementsAre(3, 1, 4, 2));
    EXPECT_EQ(model->list().arranged()->groups.size(), 2U);
}

TEST_F(ArrangedList, saysWhenOnlyTheTurnsChanged)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    refresh();
    const auto rowsChanged = countOf(&PullRequestMenuModel::rowsChanged);
    const auto turnsChanged = countOf(&PullRequestMenuModel::turnsChanged);
    details[2].reviews = {{"octo", ReviewVerdict::commented}};
    serve();
    refresh();
    EXPECT_EQ(
        model->list().arranged()->turns.front(), (Turn{Whose::you, TurnReason::yourReviewAgain}));
    EXPECT_EQ(*rowsChanged, 0);
    EXPECT_EQ(*turnsChanged, 1);
}

TEST_F(ArrangedList, movesARowToAnotherHeading)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    refresh();
    pullRequests[0].mergeability = PullRequestMergeability::mergeable;
    serve();
    refresh();
    EXPECT_THAT(shownNumbers(), ElementsAre(3, 4, 2, 1));
    EXPECT_THAT(
        model->list().arranged()->groups,
        ElementsAre(TurnGroup{Whose::you, 0, 1, 1}, TurnGroup{Whose::others, 1, 3, 3}));
}

TEST_F(ArrangedList, hiddenOnesStandUnderTheirHeadingsAndDoNotCount)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    model->toggleMergeability(MergeabilityFilter::conflicting);
    refresh();
    EXPECT_THAT(shownNumbers(), ElementsAre(3, 4, 2));
    const auto all = model->list().arrangedWithHidden();
    EXPECT_EQ(all->rows.size(), 4U);
    EXPECT_EQ(all->rows[1].id().number, 1);
    EXPECT_EQ(all->turns[1], (Turn{Whose::you, TurnReason::conflicts}));
    EXPECT_THAT(
        all->groups,
        ElementsAre(TurnGroup{Whose::you, 0, 2, 1}, TurnGroup{Whose::others, 2, 2, 2}));
}

TEST_F(ArrangedList, followsWhatAnotherProcessStores)
{
    refresh();
    SettingsStore(*defaults).change(
        [](Settings& settings) { settings.arrangement = Arrangement::byWhoseTurn; });
    model->readSettingsAgain();
    EXPECT_THAT(shownNumbers(), ElementsAre(3, 1, 4, 2));
}

}  // namespace
