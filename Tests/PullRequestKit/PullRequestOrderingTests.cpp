#include "PullRequestKit/PullRequestOrdering.h"

#include "Support/PullRequests.h"

#include <algorithm>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;
using PullRequestOrdering::areInIncreasingOrder;

/// Both ways round, so that an order that always says yes does not pass.
testing::AssertionResult goesBefore(const PullRequest& left, const PullRequest& right)
{
    if (!areInIncreasingOrder(left, right)) {
        return testing::AssertionFailure() << "the left one does not go before the right one";
    }
    if (areInIncreasingOrder(right, left)) {
        return testing::AssertionFailure() << "the right one also goes before the left one";
    }
    return testing::AssertionSuccess();
}

template<typename Change>
PullRequest changed(std::int64_t number, Change change)
{
    PullRequest pullRequest = makePullRequest(number);
    change(pullRequest);
    return pullRequest;
}

TEST(PullRequestOrdering, putsOpenBeforeMergedBeforeClosed)
{
    // Against the numbers and the dates, which count later.
    const auto inState = [](std::int64_t number, PullRequestState state, const char* updated) {
        return changed(number, [&](PullRequest& pullRequest) {
            pullRequest.state = state;
            pullRequest.updatedAt = date(updated);
        });
    };
    const auto open = inState(3, PullRequestState::open, "2024-05-01T00:00:00Z");
    const auto merged = inState(2, PullRequestState::merged, "2024-05-02T00:00:00Z");
    const auto closed = inState(1, PullRequestState::closed, "2024-05-03T00:00:00Z");
    EXPECT_TRUE(goesBefore(open, merged));
    EXPECT_TRUE(goesBefore(merged, closed));
    EXPECT_TRUE(goesBefore(open, closed));
}

PullRequest withChecks(std::int64_t number, ProgressCount checks)
{
    return changed(number, [&](PullRequest& pullRequest) { pullRequest.checks = checks; });
}

TEST(PullRequestOrdering, putsOutstandingChecksLast)
{
    EXPECT_TRUE(goesBefore(withChecks(2, {0, 0, 0}), withChecks(1, {1, 2, 0})));
    EXPECT_TRUE(goesBefore(withChecks(2, {2, 2, 0}), withChecks(1, {1, 2, 0})));
    EXPECT_TRUE(goesBefore(withChecks(2, {2, 2, 2}), withChecks(1, {1, 2, 0})));
    EXPECT_TRUE(goesBefore(withChecks(2, {5, 0, 0}), withChecks(1, {3, 2, 0})));
    EXPECT_TRUE(goesBefore(withChecks(2, {0, 0, 0}), withChecks(1, {-1, -1, 0})));
}

TEST(PullRequestOrdering, doesNotTellFinishedChecksFromNoneNorFromFailedOnes)
{
    EXPECT_TRUE(goesBefore(withChecks(1, {2, 2, 2}), withChecks(2, {0, 0, 0})));
    EXPECT_TRUE(goesBefore(withChecks(1, {0, 0, 0}), withChecks(2, {2, 2, 0})));
    EXPECT_TRUE(goesBefore(withChecks(1, {1, 3, 1}), withChecks(2, {1, 2, 0})));
}

TEST(PullRequestOrdering, looksAtTheStateBeforeTheChecks)
{
    auto merged = withChecks(1, {0, 0, 0});
    merged.state = PullRequestState::merged;
    EXPECT_TRUE(goesBefore(withChecks(2, {0, 1, 0}), merged));
}

PullRequest reviewed(std::int64_t number, ReviewState state)
{
    return changed(number, [&](PullRequest& pullRequest) { pullRequest.reviewState = state; });
}

TEST(PullRequestOrdering, ranksReviewStates)
{
    using enum ReviewState;
    EXPECT_TRUE(goesBefore(reviewed(5, none), reviewed(4, pending)));
    EXPECT_TRUE(goesBefore(reviewed(4, pending), reviewed(3, commented)));
    EXPECT_TRUE(goesBefore(reviewed(3, commented), reviewed(2, approved)));
    EXPECT_TRUE(goesBefore(reviewed(2, approved), reviewed(1, changesRequested)));
}

TEST(PullRequestOrdering, looksAtTheChecksBeforeTheReviewState)
{
    auto waiting = withChecks(1, {0, 1, 0});
    waiting.reviewState = ReviewState::none;
    EXPECT_TRUE(goesBefore(reviewed(2, ReviewState::changesRequested), waiting));
}

TEST(PullRequestOrdering, putsTheLaterUpdateFirstAmongEqualKeys)
{
    auto late = with(makePullRequest(9), &PullRequest::updatedAt, date("2024-05-01T12:00:01Z"));
    EXPECT_TRUE(goesBefore(late, makePullRequest(1)));
    late.reviewState = ReviewState::pending;
    EXPECT_TRUE(goesBefore(makePullRequest(1), late));
}

TEST(PullRequestOrdering, endsWithTheStorageKeyAsText)
{
    EXPECT_TRUE(goesBefore(makePullRequest(10), makePullRequest(9)));
    EXPECT_TRUE(goesBefore(makePullRequest(1), makePullRequest(10)));
    EXPECT_TRUE(goesBefore(makePullRequest(-1), makePullRequest(1)));
    const auto in = [](const std::string& repository, std::int64_t number) {
        return changed(number, [&](PullRequest& made) { made.id.repository = repository; });
    };
    EXPECT_TRUE(goesBefore(in("octo/Tools", 2), in("octo/tools", 1)));
    EXPECT_TRUE(goesBefore(in("octo/a", 2), in("octo/b", 1)));
    // "octo/a-b|…" against "octo/a|…": the bar that ends the shorter name is greater than a hyphen.
    EXPECT_TRUE(goesBefore(in("octo/a-b", 2), in("octo/a", 1)));
}

TEST(PullRequestOrdering, comparesStorageKeysByTheirBytes)
{
    const auto in = [](const std::string& host) {
        return changed(1, [&](PullRequest& made) { made.id.host = host; });
    };
    EXPECT_TRUE(goesBefore(in("z"), in("\u00E9")));
    EXPECT_TRUE(goesBefore(in("Z"), in("a")));
}

TEST(PullRequestOrdering, putsNeitherOfTwoEqualOnesFirst)
{
    EXPECT_FALSE(areInIncreasingOrder(makePullRequest(1), makePullRequest(1)));
}

std::vector<PullRequest> crowd()
{
    return *rc::gen::container<std::vector<PullRequest>>(crowdedPullRequest());
}

RC_GTEST_PROP(PullRequestOrderingProperties, isAStrictWeakOrder, ())
{
    const PullRequest a = *crowdedPullRequest();
    const PullRequest b = *crowdedPullRequest();
    const PullRequest c = *crowdedPullRequest();
    const auto equivalent = [](const PullRequest& left, const PullRequest& right) {
        return !areInIncreasingOrder(left, right) && !areInIncreasingOrder(right, left);
    };
    RC_ASSERT(!areInIncreasingOrder(a, a));
    RC_ASSERT(!(areInIncreasingOrder(a, b) && areInIncreasingOrder(b, a)));
    if (areInIncreasingOrder(a, b) && areInIncreasingOrder(b, c)) {
        RC_ASSERT(areInIncreasingOrder(a, c));
    }
    if (equivalent(a, b) && equivalent(b, c)) {
        RC_ASSERT(equivalent(a, c));
    }
}

RC_GTEST_PROP(PullRequestOrderingProperties, isTotalOverDistinctIdentities, ())
{
    const PullRequest a = *crowdedPullRequest();
    const PullRequest b = *crowdedPullRequest();
    RC_PRE(a.id != b.id);
    RC_ASSERT(areInIncreasingOrder(a, b) != areInIncreasingOrder(b, a));
}

RC_GTEST_PROP(
    PullRequestOrderingProperties,
    comparesIdentitiesAsTheirStorageKeys,
    (const PullRequest& left, const PullRequest& other))
{
    PullRequest right = left;
    right.id = other.id;
    RC_ASSERT(areInIncreasingOrder(left, right) == (left.id.storageKey() < right.id.storageKey()));
}

RC_GTEST_PROP(PullRequestOrderingProperties, everyPairOfASortedListIsInOrder, ())
{
    std::vector<PullRequest> list = crowd();
    std::ranges::sort(list, areInIncreasingOrder);
    for (std::size_t left = 0; left < list.size(); ++left) {
        for (std::size_t right = left + 1; right < list.size(); ++right) {
            RC_ASSERT(!areInIncreasingOrder(list[right], list[left]));
        }
    }
}

RC_GTEST_PROP(PullRequestOrderingProperties, thePositionsInOrderAreThoseOfAStableSort, ())
{
    std::vector<PullRequest> list = crowd();
    for (std::size_t place = 0; place < list.size(); ++place) {
        list[place].title = std::to_string(place);
    }
    std::vector<std::string> titles;
    for (const std::size_t position : PullRequestOrdering::order(list)) {
        titles.push_back(list[position].title);
    }
    std::ranges::stable_sort(list, areInIncreasingOrder);
    std::vector<std::string> expected;
    for (const PullRequest& pullRequest : list) {
        expected.push_back(pullRequest.title);
    }
    RC_ASSERT(titles == expected);
}

}  // namespace
