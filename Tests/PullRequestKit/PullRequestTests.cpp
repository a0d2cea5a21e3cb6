#include "PullRequestKit/PullRequest.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

TEST(PullRequestID, joinsItsFieldsToTheStorageKey)
{
    const PullRequestID id{"github", "github.com", "octo/tools", 42};
    EXPECT_EQ(id.storageKey(), "github|github.com|octo/tools|42");
    EXPECT_EQ((PullRequestID{"", "", "", -7}.storageKey()), "|||-7");
}

TEST(BranchReference, isEqualOnlyWhenRepositoryAndNameAre)
{
    const BranchReference branch{"octo/tools", "main"};
    EXPECT_EQ(branch, (BranchReference{"octo/tools", "main"}));
    EXPECT_NE(branch, (BranchReference{"fork/tools", "main"}));
    EXPECT_NE(branch, (BranchReference{"octo/tools", "Main"}));
}

TEST(ProgressCount, isNotCompleteWithNothingToDo)
{
    const ProgressCount progress{0, 0, 0};
    EXPECT_FALSE(progress.allComplete());
    EXPECT_EQ(progress.label(), "0/0");
}

TEST(ProgressCount, isCompleteWhenAllOfAtLeastOneAre)
{
    EXPECT_TRUE((ProgressCount{1, 1, 0}.allComplete()));
    EXPECT_TRUE((ProgressCount{3, 3, 3}.allComplete()));
    EXPECT_FALSE((ProgressCount{2, 3, 0}.allComplete()));
    EXPECT_FALSE((ProgressCount{4, 3, 0}.allComplete()));
    EXPECT_FALSE((ProgressCount{-1, -1, 0}.allComplete()));
    EXPECT_EQ((ProgressCount{2, 3, 1}.label()), "2/3");
}

TEST(PullRequest, takesTheLastPieceOfTheRepositoryAsItsName)
{
    const auto nameOf = [](const std::string& repository) {
        PullRequest pullRequest;
        pullRequest.id.repository = repository;
        return pullRequest.repositoryName();
    };
    EXPECT_EQ(nameOf("octo/tools"), "tools");
    EXPECT_EQ(nameOf("tools"), "tools");
    EXPECT_EQ(nameOf("a/b/"), "b");
    EXPECT_EQ(nameOf("a//b///"), "b");
    EXPECT_EQ(nameOf("/b"), "b");
    EXPECT_EQ(nameOf("///"), "///");
    EXPECT_EQ(nameOf(""), "");
}

TEST(PullRequest, hasAMergeConflictOnlyWhenConflicting)
{
    auto pullRequest = makePullRequest(1);
    EXPECT_FALSE(pullRequest.hasMergeConflict());
    pullRequest.mergeability = PullRequestMergeability::unknown;
    EXPECT_FALSE(pullRequest.hasMergeConflict());
    pullRequest.mergeability = PullRequestMergeability::conflicting;
    EXPECT_TRUE(pullRequest.hasMergeConflict());
}

TEST(PullRequest, isBlockedByAConflictRequestedChangesOrAFailedCheck)
{
    const auto fine = makePullRequest(1);
    EXPECT_FALSE(fine.isBlocked());

    auto conflicting = fine;
    conflicting.mergeability = PullRequestMergeability::conflicting;
    EXPECT_TRUE(conflicting.isBlocked());

    auto sentBack = fine;
    sentBack.reviewState = ReviewState::changesRequested;
    EXPECT_TRUE(sentBack.isBlocked());

    auto failing = fine;
    failing.checks = {1, 2, 1};
    EXPECT_TRUE(failing.isBlocked());

    auto waiting = fine;
    waiting.checks = {1, 2, 0};
    EXPECT_FALSE(waiting.isBlocked());
}

TEST(PullRequest, isUnblockedWithoutChecksAndReviewsOnlyWhenKnownToBeMergeable)
{
    auto pullRequest = makePullRequest(1);
    EXPECT_TRUE(pullRequest.isUnblocked());
    pullRequest.mergeability = PullRequestMergeability::unknown;
    EXPECT_FALSE(pullRequest.isUnblocked());
    pullRequest.mergeability = PullRequestMergeability::conflicting;
    EXPECT_FALSE(pullRequest.isUnblocked());
}

TEST(PullRequest, isUnblockedOnlyWhileOpenAndNoDraft)
{
    const auto draft = with(makePullRequest(1), &PullRequest::isDraft, true);
    EXPECT_FALSE(draft.isUnblocked());
    for (const auto state : {PullRequestState::closed, PullRequestState::merged}) {
        const auto done = with(makePullRequest(1), &PullRequest::state, state);
        EXPECT_FALSE(done.isUnblocked());
    }
}

TEST(PullRequest, isUnblockedInEveryReviewStateButRequestedChanges)
{
    auto pullRequest = makePullRequest(1);
    for (const auto state : allCases<ReviewState>()) {
        pullRequest.reviewState = state;
        EXPECT_EQ(pullRequest.isUnblocked(), state != ReviewState::changesRequested)
            << nameOf(state);
    }
}

TEST(PullRequest, isUnblockedOnceItsChecksAreDoneEvenIfTheyFailed)
{
    auto pullRequest = with(makePullRequest(1), &PullRequest::checks, {1, 2, 0});
    EXPECT_FALSE(pullRequest.isUnblocked());
    pullRequest.checks = {2, 2, 0};
    EXPECT_TRUE(pullRequest.isUnblocked());
    pullRequest.checks = {2, 2, 2};
    EXPECT_TRUE(pullRequest.isUnblocked());
    pullRequest.checks = {-1, -1, 0};
    EXPECT_FALSE(pullRequest.isUnblocked());
}

TEST(PullRequest, canBeNeitherBlockedNorUnblocked)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.mergeability = PullRequestMergeability::unknown;
    EXPECT_FALSE(pullRequest.isBlocked());
    EXPECT_FALSE(pullRequest.isUnblocked());
}

TEST(PullRequest, labelsReviewsWithoutARequiredCount)
{
    const auto pullRequest = with(makePullRequest(1), &PullRequest::reviews, {1, 3, 0});
    EXPECT_EQ(pullRequest.reviewCountLabel(), "1/3");
    EXPECT_EQ(pullRequest.reviewCountTooltip(), "Completed/Total Reviewers");
}

TEST(PullRequest, labelsReviewsWithTheRequiredCountInTheMiddle)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.reviews = {1, 3, 0};
    pullRequest.requiredApprovingReviewCount = 2;
    EXPECT_EQ(pullRequest.reviewCountLabel(), "1/2/3");
    EXPECT_EQ(pullRequest.reviewCountTooltip(), "Completed/Required/Total Reviewers");
    pullRequest.requiredApprovingReviewCount = 0;
    EXPECT_EQ(pullRequest.reviewCountLabel(), "1/0/3");
}

TEST(PullRequestMaking, worksOutTheMergeabilityThatIsLeftOpen)
{
    const auto madeWith = [](std::optional<PullRequestMergeability> given, bool hasMergeConflict) {
        return PullRequestKit::makePullRequest({}, {given, {}, hasMergeConflict}).mergeability;
    };
    EXPECT_EQ(madeWith({}, true), PullRequestMergeability::conflicting);
    EXPECT_EQ(madeWith({}, false), PullRequestMergeability::unknown);
    EXPECT_EQ(
        madeWith(PullRequestMergeability::mergeable, true), PullRequestMergeability::mergeable);
}

ReviewActivity activityMadeFor(ReviewState state, std::int64_t completed)
{
    PullRequest fields;
    fields.reviewState = state;
    fields.reviews.completed = completed;
    return PullRequestKit::makePullRequest(fields, {}).reviewActivity;
}

TEST(PullRequestMaking, worksOutTheReviewActivityThatIsLeftOpen)
{
    using enum ReviewState;
    EXPECT_EQ(activityMadeFor(none, 0), (ReviewActivity{false, false, false, false}));
    EXPECT_EQ(activityMadeFor(none, 1), (ReviewActivity{false, false, false, true}));
    EXPECT_EQ(activityMadeFor(pending, 0), (ReviewActivity{false, false, false, false}));
    EXPECT_EQ(activityMadeFor(pending, 2), (ReviewActivity{false, false, false, true}));
    EXPECT_EQ(activityMadeFor(approved, 0), (ReviewActivity{true, false, false, true}));
    EXPECT_EQ(activityMadeFor(commented, 0), (ReviewActivity{false, false, true, true}));
    EXPECT_EQ(activityMadeFor(changesRequested, 0), (ReviewActivity{false, true, false, true}));
}

TEST(PullRequestMaking, leavesAGivenReviewActivityAloneEvenWhenCommented)
{
    PullRequest fields;
    fields.reviewState = ReviewState::commented;
    const ReviewActivity given{.hasApproval = true, .hasSubmittedReview = true};
    const auto made = PullRequestKit::makePullRequest(fields, {{}, given, false});
    EXPECT_EQ(made.reviewActivity, given);
}

}  // namespace
