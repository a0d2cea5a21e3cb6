#include "PullRequestKit/SeenPullRequest.h"

#include "Support/PullRequests.h"

#include <functional>
#include <ostream>
#include <set>

#include <rapidcheck/gtest.h>

namespace PullRequestKit {

void PrintTo(const Change& change, std::ostream* stream)
{
    *stream << static_cast<int>(change.kind) << " " << change.before << " " << change.after;
}

namespace {

using namespace TestSupport;

/// Open and mergeable, one of two reviews given, all of four checks passed.
SeenPullRequest seen()
{
    return {
        .updatedAt = date("2024-05-01T12:00:00Z"),
        .state = PullRequestState::open,
        .isDraft = false,
        .mergeability = PullRequestMergeability::mergeable,
        .reviewState = ReviewState::pending,
        .reviews = {1, 2, 0},
        .checks = {4, 4, 0},
        .headCommit = "abc"};
}

struct Case {
    const char* name;
    std::function<void(SeenPullRequest&, SeenPullRequest&)> makeDifferent;
    std::vector<Change> changes;
};

Change plain(ChangeKind kind)
{
    return {kind, {}, {}};
}

TEST(ChangesBetweenTests, nameEachDifference)
{
    using Seen = SeenPullRequest;
    using Kind = ChangeKind;
    using Mergeability = PullRequestMergeability;
    const std::vector<Case> cases{
        {"nothing", [](Seen&, Seen&) {}, {}},
        {"another time", [](Seen&, Seen& now) { now.updatedAt += std::chrono::hours(1); }, {}},
        {"closed",
         [](Seen&, Seen& now) { now.state = PullRequestState::closed; },
         {plain(Kind::closed)}},
        {"merged",
         [](Seen&, Seen& now) { now.state = PullRequestState::merged; },
         {plain(Kind::merged)}},
        {"reopened",
         [](Seen& before, Seen&) { before.state = PullRequestState::closed; },
         {plain(Kind::reopened)}},
        {"made ready",
         [](Seen& before, Seen&) { before.isDraft = true; },
         {plain(Kind::madeReady)}},
        {"made a draft", [](Seen&, Seen& now) { now.isDraft = true; }, {plain(Kind::madeDraft)}},
        {"approved, with its count",
         [](Seen&, Seen& now) {
             now.reviewState = ReviewState::approved;
             now.reviews = {2, 2, 0};
         },
         {plain(Kind::approved)}},
        {"changes requested",
         [](Seen&, Seen& now) { now.reviewState = ReviewState::changesRequested; },
         {plain(Kind::changesRequested)}},
        {"commented",
         [](Seen&, Seen& now) { now.reviewState = ReviewState::commented; },
         {plain(Kind::commented)}},
        {"nobody asked any more",
         [](Seen&, Seen& now) { now.reviewState = ReviewState::none; },
         {plain(Kind::noReviewers)}},
        {"an approval dismissed",
         [](Seen& before, Seen&) { before.reviewState = ReviewState::approved; },
         {plain(Kind::reviewsPending)}},
        {"one more review",
         [](Seen&, Seen& now) { now.reviews = {2, 2, 0}; },
         {{Kind::reviews, "1/2", "2/2"}}},
        {"one more reviewer",
         [](Seen&, Seen& now) { now.reviews = {1, 3, 0}; },
         {{Kind::reviews, "1/2", "1/3"}}},
        {"conflicts",
         [](Seen&, Seen& now) { now.mergeability = Mergeability::conflicting; },
         {plain(Kind::conflicts)}},
        {"conflicts after what was not known",
         [](Seen& before, Seen& now) {
             before.mergeability = Mergeability::unknown;
             now.mergeability = Mergeability::conflicting;
         },
         {plain(Kind::conflicts)}},
        {"conflicts resolved",
         [](Seen& before, Seen&) { before.mergeability = Mergeability::conflicting; },
         {plain(Kind::conflictsResolved)}},
        {"conflicts, and now not known",
         [](Seen& before, Seen& now) {
             before.mergeability = Mergeability::conflicting;
             now.mergeability = Mergeability::unknown;
         },
         {}},
        {"mergeable, and now not known",
         [](Seen&, Seen& now) { now.mergeability = Mergeability::unknown; },
         {}},
        {"mergeable, as it is now known",
         [](Seen& before, Seen&) { before.mergeability = Mergeability::unknown; },
         {}},
        {"checks run again",
         [](Seen&, Seen& now) { now.checks = {2, 4, 0}; },
         {{Kind::checks, "4/4", "2/4"}}},
        {"checks failed, with the count",
         [](Seen&, Seen& now) { now.checks = {2, 4, 2}; },
         {{Kind::checks, "4/4", "2/4"}}},
        {"checks failed, and the count stays",
         [](Seen& before, Seen& now) {
             before.checks = {2, 4, 0};
             now.checks = {2, 4, 2};
         },
         {{Kind::failedChecks, "0", "2"}}},
        {"checks at last",
         [](Seen& before, Seen&) { before.checks = {}; },
         {{Kind::checks, "0/0", "4/4"}}},
        {"new commits",
         [](Seen&, Seen& now) { now.headCommit = "def"; },
         {plain(Kind::newCommits)}},
        {"a head that was not known", [](Seen& before, Seen&) { before.headCommit.reset(); }, {}},
        {"a head that is not known", [](Seen&, Seen& now) { now.headCommit.reset(); }, {}},
        {"everything",
         [](Seen& before, Seen& now) {
             before.isDraft = true;
             now.state = PullRequestState::closed;
             now.reviewState = ReviewState::approved;
             now.mergeability = Mergeability::conflicting;
             now.checks = {2, 4, 1};
             now.headCommit = "def";
         },
         {plain(Kind::closed),
          plain(Kind::madeReady),
          plain(Kind::approved),
          plain(Kind::conflicts),
          {Kind::checks, "4/4", "2/4"},
          plain(Kind::newCommits)}},
    };
    for (const Case& testCase : cases) {
        SeenPullRequest before = seen();
        SeenPullRequest after = seen();
        testCase.makeDifferent(before, after);
        EXPECT_THAT(changesBetween(before, after), ElementsAreArray(testCase.changes))
            << testCase.name;
    }
}

TEST(SeenNowTests, takesTheHeadFromTheFactsAndTheRestFromTheList)
{
    PullRequest pullRequest = TestSupport::makePullRequest(12);
    pullRequest.isDraft = true;
    pullRequest.reviewState = ReviewState::approved;
    pullRequest.reviews = {2, 3, 0};
    pullRequest.checks = {1, 4, 2};
    PullRequestFacts facts;
    facts.headCommit = "abc";
    const SeenPullRequest expected{
        .updatedAt = date("2024-05-01T12:00:00Z"),
        .state = PullRequestState::open,
        .isDraft = true,
        .mergeability = PullRequestMergeability::mergeable,
        .reviewState = ReviewState::approved,
        .reviews = {2, 3, 0},
        .checks = {1, 4, 2},
        .headCommit = "abc"};
    EXPECT_EQ(seenNow(pullRequest, &facts), expected);
    EXPECT_EQ(seenNow(pullRequest, nullptr).headCommit, std::nullopt);
    facts.headCommit.clear();
    EXPECT_EQ(seenNow(pullRequest, &facts).headCommit, std::nullopt) << "not told";
}

RC_GTEST_PROP(ChangesBetweenTests, isEmptyForTheSameAndNamesNothingTwice, ())
{
    const auto before = seenNow(*rc::gen::arbitrary<PullRequest>(), nullptr);
    const auto after = seenNow(*rc::gen::arbitrary<PullRequest>(), nullptr);
    RC_ASSERT(changesBetween(before, before).empty());
    std::set<ChangeKind> kinds;
    for (const Change& change : changesBetween(before, after)) {
        const bool isNext = kinds.empty() || *kinds.rbegin() < change.kind;
        RC_ASSERT(isNext);
        kinds.insert(change.kind);
    }
}

}  // namespace
}  // namespace PullRequestKit
