#include "Tarnwick/Model/BlockedPullRequests.h"

#include "Support/PullRequests.h"
#include "Tarnwick/Model/NotificationDecisions.h"

namespace {

using namespace TestSupport;

const Date noon = date("2024-05-01T12:00:00Z");

PullRequest blocked(std::int64_t number)
{
    return with(
        makePullRequest(number), &PullRequest::mergeability, PullRequestMergeability::conflicting);
}

PullRequest unknown(std::int64_t number)
{
    return with(
        makePullRequest(number), &PullRequest::mergeability, PullRequestMergeability::unknown);
}

TEST(BlockedPullRequests, comparesTwoLists)
{
    EXPECT_THAT(
        newlyUnblockedPullRequests(
            {makePullRequest(1), blocked(2), makePullRequest(3), unknown(4)},
            {blocked(1), blocked(2), makePullRequest(3), blocked(4)}),
        ElementsAre(makePullRequest(1)));
}

TEST(BlockedPullRequests, rememberTheLastVersionThatWasDecided)
{
    BlockedPullRequests memory;
    EXPECT_THAT(memory.update({blocked(1), unknown(2)}, noon), IsEmpty());
    EXPECT_THAT(memory.update({unknown(1), makePullRequest(2)}, noon + 1min), IsEmpty());
    EXPECT_THAT(
        memory.update({makePullRequest(1), makePullRequest(2)}, noon + 2min),
        ElementsAre(makePullRequest(1)));
}

TEST(BlockedPullRequests, yieldAWayOutUntilItIsSettled)
{
    BlockedPullRequests memory;
    memory.update({blocked(1)}, noon);
    EXPECT_EQ(memory.update({makePullRequest(1)}, noon + 1min).size(), 1U);
    EXPECT_EQ(memory.update({makePullRequest(1)}, noon + 2min).size(), 1U);
    memory.settle(makePullRequest(1).id);
    EXPECT_THAT(memory.update({makePullRequest(1)}, noon + 3min), IsEmpty());
    EXPECT_THAT(memory.entries, IsEmpty());
}

TEST(BlockedPullRequests, doNotTakeFailedChecksForAWayOut)
{
    const auto failed = with(makePullRequest(1), &PullRequest::checks, {2, 2, 1});
    BlockedPullRequests memory;
    memory.update({failed}, noon);
    EXPECT_THAT(memory.update({failed}, noon + 1min), IsEmpty());
}

TEST(BlockedPullRequests, areForgottenAfterLongAbsence)
{
    BlockedPullRequests memory;
    memory.update({blocked(1), blocked(2)}, noon);
    const auto later = noon + BlockedPullRequests::memory;
    memory.update({unknown(2)}, later);
    EXPECT_EQ(memory.entries.size(), 2U);
    memory.update({unknown(2)}, later + 1s);
    EXPECT_THAT(memory.entries, ElementsAre(BlockedPullRequests::Entry{blocked(2), later + 1s}));
}

TEST(BlockedPullRequests, learnWhatAnotherProgramFoundLater)
{
    BlockedPullRequests memory;
    memory.update({blocked(1)}, noon);
    memory.learn({makePullRequest(1), blocked(2)}, noon + 1min);
    EXPECT_THAT(
        memory.update({makePullRequest(1), makePullRequest(2)}, noon + 2min),
        ElementsAre(makePullRequest(1), makePullRequest(2)));
}

TEST(BlockedPullRequests, learnNothingFromAnEarlierRefresh)
{
    BlockedPullRequests memory;
    memory.update({makePullRequest(1)}, noon);
    memory.learn({blocked(1)}, noon);
    EXPECT_THAT(memory.entries, IsEmpty());
}

}  // namespace
