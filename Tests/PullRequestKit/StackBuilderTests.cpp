#include "PullRequestKit/StackBuilder.h"

#include "PullRequestKit/PullRequestOrdering.h"
#include "Support/Mapped.h"
#include "Support/PullRequests.h"

#include <map>
#include <ranges>
#include <set>

#include <pthread.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

/// A row as "number depth", with "+" for children and the warning in brackets.
std::string outline(const PullRequestRow& row)
{
    return std::to_string(row.id().number) + " " + std::to_string(row.depth)
           + (row.hasChildren ? " +" : "") + (row.warning ? " [" + *row.warning + "]" : "");
}

std::vector<std::string> outlines(const std::vector<PullRequest>& pullRequests)
{
    return mapped(StackBuilder::rows(pullRequests), [](const auto& row) { return outline(row); });
}

TEST(StackBuilder, yieldsNoRowsForNoPullRequests)
{
    EXPECT_THAT(outlines({}), IsEmpty());
}

TEST(StackBuilder, indentsAChainOfBranches)
{
    const auto a = makePullRequest(1, "feature-a", "main");
    const auto b = makePullRequest(2, "feature-b", "feature-a");
    const auto c = makePullRequest(3, "feature-c", "feature-b");
    EXPECT_THAT(outlines({c, a, b}), ElementsAre("1 0 +", "2 1 +", "3 2"));
}

TEST(StackBuilder, warnsOfABaseThatTwoPullRequestsBringIn)
{
    const auto a1 = makePullRequest(1, "feature-a", "main");
    const auto a2 = makePullRequest(2, "feature-a", "main");
    const auto b = makePullRequest(3, "feature-b", "feature-a");
    EXPECT_THAT(outlines({a1, a2, b}), ElementsAre("1 0", "2 0", "3 0 [Ambiguous base branch]"));
}

TEST(StackBuilder, keepsBranchesOfDifferentRepositoriesApart)
{
    auto parent = makePullRequest(1, "feature-a", "main");
    parent.head.repository = "fork/tools";
    const auto child = makePullRequest(2, "feature-b", "feature-a");
    EXPECT_THAT(outlines({parent, child}), ElementsAre("1 0", "2 0"));
}

TEST(StackBuilder, doesNotMakeAPullRequestItsOwnParent)
{
    EXPECT_THAT(outlines({makePullRequest(1, "main", "main")}), ElementsAre("1 0"));
}

TEST(StackBuilder, takesTheOneOtherCandidateWhenHeadAndBaseAreTheSame)
{
    const auto looped = makePullRequest(1, "main", "main");
    const auto other = makePullRequest(2, "main", "release");
    EXPECT_THAT(outlines({looped, other}), ElementsAre("2 0 +", "1 1"));
}

TEST(StackBuilder, breaksACircleAndKeepsWhatHangsBelowIt)
{
    const auto x = makePullRequest(1, "x", "y");
    const auto y = makePullRequest(2, "y", "x");
    const auto z = makePullRequest(3, "z", "x");
    EXPECT_THAT(
        outlines({x, y, z}),
        ElementsAre("1 0 + [Cyclic branch dependency]", "3 1", "2 0 [Cyclic branch dependency]"));
}

TEST(StackBuilder, breaksACircleFoundFromBelow)
{
    const auto below = makePullRequest(1, "z", "x");
    const auto x = makePullRequest(2, "x", "y");
    const auto y = makePullRequest(3, "y", "x");
    EXPECT_THAT(
        outlines({below, x, y}),
        ElementsAre("2 0 + [Cyclic branch dependency]", "1 1", "3 0 [Cyclic branch dependency]"));
}

TEST(StackBuilder, showsTheLaterOfTwoVersions)
{
    auto older = makePullRequest(1);
    auto newer = makePullRequest(1);
    older.updatedAt = date("2024-05-01T12:00:00Z");
    newer.updatedAt = date("2024-05-01T12:00:01Z");
    newer.title = "newer";
    for (const auto& list : {std::vector{older, newer}, std::vector{newer, older}}) {
        const auto rows = StackBuilder::rows(list);
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows.front().pullRequest.title, "newer");
    }
}

TEST(StackBuilder, showsTheFirstOfTwoVersionsUpdatedAtTheSameTime)
{
    auto first = makePullRequest(1);
    auto second = makePullRequest(1);
    first.title = "first";
    second.title = "second";
    const auto rows = StackBuilder::rows({first, second});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().pullRequest.title, "first");
}

TEST(StackBuilder, ordersTheChildrenOfOneParent)
{
    const auto parent = makePullRequest(1, "a", "main");
    auto early = makePullRequest(2, "b", "a");
    auto late = makePullRequest(3, "c", "a");
    late.updatedAt = date("2024-05-02T00:00:00Z");
    const auto grandchild = makePullRequest(4, "d", "c");
    EXPECT_THAT(
        outlines({early, late, grandchild, parent}), ElementsAre("1 0 +", "3 1 +", "4 2", "2 1"));
}

TEST(StackBuilder, doesNotLookAtTheStateOfTheBranchThatAPullRequestIsStackedOn)
{
    const auto child = makePullRequest(2, "feature-b", "feature-a");
    for (const auto state : allCases<PullRequestState>()) {
        auto parent = makePullRequest(1, "feature-a", "main");
        parent.state = state;
        parent.isDraft = true;
        EXPECT_THAT(outlines({child, parent}), ElementsAre("1 0 +", "2 1")) << nameOf(state);
    }
}

TEST(StackBuilder, countsBothVersionsOfOneIdentityAsOneParent)
{
    const auto parent = makePullRequest(1, "feature-a", "main");
    const auto child = makePullRequest(2, "feature-b", "feature-a");
    EXPECT_THAT(outlines({parent, parent, child}), ElementsAre("1 0 +", "2 1"));
}

TEST(StackBuilder, warnsAlsoWhenOneOfThreePullRequestsOnABranchTargetsItself)
{
    const auto looped = makePullRequest(1, "main", "main");
    const auto second = makePullRequest(2, "main", "release");
    const auto third = makePullRequest(3, "main", "release");
    EXPECT_THAT(
        outlines({looped, second, third}),
        ElementsAre("1 0 [Ambiguous base branch]", "2 0", "3 0"));
}

TEST(StackBuilder, hangsABranchWithAnAmbiguousBaseAboveItsOwnChildren)
{
    const auto a1 = makePullRequest(1, "a", "main");
    const auto a2 = makePullRequest(2, "a", "main");
    const auto b = makePullRequest(3, "b", "a");
    const auto c = makePullRequest(4, "c", "b");
    EXPECT_THAT(
        outlines({a1, a2, b, c}),
        ElementsAre("1 0", "2 0", "3 0 + [Ambiguous base branch]", "4 1"));
}

TEST(StackBuilder, putsAMergedRootBeforeAClosedOne)
{
    const auto closed = with(makePullRequest(1), &PullRequest::state, PullRequestState::closed);
    const auto merged = with(makePullRequest(2), &PullRequest::state, PullRequestState::merged);
    EXPECT_THAT(outlines({closed, merged}), ElementsAre("2 0", "1 0"));
}

TEST(StackBuilder, putsARootWithRunningChecksAfterOneWithoutChecks)
{
    const auto running = with(makePullRequest(1), &PullRequest::checks, {1, 2, 0});
    EXPECT_THAT(outlines({running, makePullRequest(2)}), ElementsAre("2 0", "1 0"));
}

TEST(StackBuilder, putsTheRootUpdatedLastFirstAmongEqualOnes)
{
    auto late = makePullRequest(2);
    late.updatedAt = date("2024-05-01T12:00:01Z");
    EXPECT_THAT(outlines({makePullRequest(1), late}), ElementsAre("2 0", "1 0"));
}

TEST(StackBuilder, putsNumberTenBeforeNumberNineWhenAllElseIsEqual)
{
    EXPECT_THAT(outlines({makePullRequest(9), makePullRequest(10)}), ElementsAre("10 0", "9 0"));
}

/// Runs `action` on a thread with a call stack of 256 KiB.
template<typename Action>
void runOnASmallStack(Action action)
{
    pthread_attr_t attributes{};
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024), 0);
    pthread_t thread{};
    const auto start = [](void* argument) -> void* {
        (*static_cast<Action*>(argument))();
        return nullptr;
    };
    const int error = pthread_create(&thread, &attributes, start, &action);
    pthread_attr_destroy(&attributes);
    ASSERT_EQ(error, 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
}

TEST(StackBuilder, doesNotWalkALongChainOnTheCallStack)
{
    // A call per level would leave each only 26 bytes, fewer than its return address and one frame.
    constexpr std::int64_t count = 10'000;
    std::vector<PullRequest> chain(count, makePullRequest(0));
    for (std::int64_t number = 0; number < count; ++number) {
        PullRequest& link = chain[static_cast<std::size_t>(number)];
        link.id.number = number;
        link.head.name = "b" + std::to_string(number);
        link.base.name = "b" + std::to_string(number - 1);
    }
    std::vector<PullRequestRow> rows;
    runOnASmallStack([&] { rows = StackBuilder::rows(std::move(chain)); });
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(rows.back().depth, count - 1);
    EXPECT_EQ(rows.back().id().number, count - 1);
}

TEST(StackBuilder, copesWithThousandsOfPullRequestsFromAndToTheSameBranch)
{
    // Looking at every candidate of every one would take a hundred million steps.
    std::vector<PullRequest> crowd(10'000, makePullRequest(0, "develop", "develop"));
    for (std::size_t place = 0; place < crowd.size(); ++place) {
        crowd[place].id.number = static_cast<std::int64_t>(place);
    }
    const auto rows = StackBuilder::rows(std::move(crowd));
    ASSERT_EQ(rows.size(), 10'000U);
    for (const PullRequestRow& row : rows) {
        ASSERT_EQ(row.warning, "Ambiguous base branch");
    }
}

rc::Gen<std::vector<PullRequest>> crowd()
{
    return rc::gen::container<std::vector<PullRequest>>(crowdedPullRequest());
}

RC_GTEST_PROP(StackBuilderProperties, showsEveryIdentityOnce, ())
{
    const auto pullRequests = *crowd();
    std::map<std::string, Date> latest;
    for (const PullRequest& pullRequest : pullRequests) {
        auto& date =
            latest.try_emplace(pullRequest.id.storageKey(), pullRequest.updatedAt).first->second;
        date = std::max(date, pullRequest.updatedAt);
    }
    std::map<std::string, Date> shown;
    for (const PullRequestRow& row : StackBuilder::rows(pullRequests)) {
        RC_ASSERT(shown.emplace(row.id().storageKey(), row.pullRequest.updatedAt).second);
    }
    RC_ASSERT(shown == latest);
}

RC_GTEST_PROP(StackBuilderProperties, putsEveryRowUnderTheBranchItTargets, ())
{
    std::vector<PullRequestRow> path;
    for (const PullRequestRow& row : StackBuilder::rows(*crowd())) {
        const auto depth = static_cast<std::size_t>(row.depth);
        RC_ASSERT(depth <= path.size());
        path.resize(depth);
        if (depth > 0) {
            RC_ASSERT(path.back().pullRequest.head == row.pullRequest.base);
            RC_ASSERT(path.back().hasChildren);
            RC_ASSERT(!row.warning);
        }
        path.push_back(row);
    }
}

RC_GTEST_PROP(StackBuilderProperties, listsSiblingsInOrder, ())
{
    std::vector<PullRequest> path;
    for (const PullRequestRow& row : StackBuilder::rows(*crowd())) {
        const auto depth = static_cast<std::size_t>(row.depth);
        if (path.size() > depth) {
            RC_ASSERT(PullRequestOrdering::areInIncreasingOrder(path[depth], row.pullRequest));
        }
        path.resize(depth);
        path.push_back(row.pullRequest);
    }
}

RC_GTEST_PROP(StackBuilderProperties, doesNotDependOnTheOrderOfTheInput, ())
{
    auto pullRequests = *crowd();
    for (PullRequest& pullRequest : pullRequests) {
        pullRequest.title = formatDate(pullRequest.updatedAt);
        pullRequest.state = PullRequestState::open;
    }
    const auto unique = StackBuilder::rows(pullRequests);
    std::vector<PullRequest> again;
    for (const auto& row : std::views::reverse(unique)) {
        again.push_back(row.pullRequest);
    }
    RC_ASSERT(StackBuilder::rows(again) == unique);
}

}  // namespace
