#include "GitHubProvider/PullRequestMapping.h"

#include "PullRequestKit/Json/Reading.h"

#include <vector>

#include <gmock/gmock.h>

namespace {

using namespace GitHub;
using namespace PullRequestKit;

Node completeNode()
{
    return Json::decode<Node>(R"({"number": 7, "title": "Speed up",
        "url": "https://github.com/octo/tools/pull/7", "createdAt": "2024-05-01T10:00:00Z",
        "updatedAt": "2024-05-02T10:00:00Z", "state": "OPEN", "isDraft": true,
        "mergeable": "MERGEABLE", "baseRefName": "main", "headRefName": "speed",
        "author": {"login": "octo"}, "repository": {"nameWithOwner": "octo/tools"}})");
}

PullRequest map(const Node& node)
{
    auto pullRequest = makePullRequest(node, "github.com", std::nullopt);
    if (!pullRequest) {
        throw std::runtime_error("the node was dropped");
    }
    return *std::move(pullRequest);
}

PullRequest mapReviews(std::string_view reviews, std::string_view requests = "[]")
{
    Node node = completeNode();
    node.latestReviews.emplace().nodes = Json::decode<std::vector<Review>>(reviews);
    node.reviewRequests.emplace().nodes = Json::decode<std::vector<ReviewRequest>>(requests);
    return map(node);
}

TEST(PullRequestMapping, carriesEveryFieldOver)
{
    PullRequest expected;
    expected.id = {"github", "git.example", "octo/tools", 7};
    expected.title = "Speed up";
    expected.url = {"https://github.com/octo/tools/pull/7"};
    expected.author = "octo";
    expected.createdAt = parseDate("2024-05-01T10:00:00Z");
    expected.updatedAt = *parseDate("2024-05-02T10:00:00Z");
    expected.state = PullRequestState::open;
    expected.isDraft = true;
    expected.mergeability = PullRequestMergeability::mergeable;
    expected.head = {"octo/tools", "speed"};
    expected.base = {"octo/tools", "main"};
    expected.reviewState = ReviewState::none;
    expected.requiredApprovingReviewCount = 2;
    EXPECT_EQ(makePullRequest(completeNode(), "git.example", 2), expected);
}

TEST(PullRequestMapping, nodeWithoutHeadRefNameIsDropped)
{
    Node node = completeNode();
    node.headRefName.reset();
    EXPECT_EQ(makePullRequest(node, "github.com", 1), std::nullopt);
}

TEST(PullRequestMapping, nodeWithoutAnyOfTheIndispensableFieldsIsDropped)
{
    EXPECT_EQ(makePullRequest(Node{}, "github.com", 1), std::nullopt);
    const auto isDroppedWithout = [](auto member) {
        Node node = completeNode();
        (node.*member).reset();
        return !makePullRequest(node, "github.com", 1);
    };
    EXPECT_TRUE(isDroppedWithout(&Node::number));
    EXPECT_TRUE(isDroppedWithout(&Node::title));
    EXPECT_TRUE(isDroppedWithout(&Node::url));
    EXPECT_TRUE(isDroppedWithout(&Node::updatedAt));
    EXPECT_TRUE(isDroppedWithout(&Node::repository));
    EXPECT_TRUE(isDroppedWithout(&Node::baseRefName));
    EXPECT_FALSE(isDroppedWithout(&Node::createdAt));
    EXPECT_FALSE(isDroppedWithout(&Node::state));
    EXPECT_FALSE(isDroppedWithout(&Node::mergeable));
}

TEST(PullRequestMapping, absentDraftFlagCountsAsFalseAndCreationDateStaysAbsent)
{
    Node node = completeNode();
    node.isDraft.reset();
    node.createdAt.reset();
    EXPECT_FALSE(map(node).isDraft);
    EXPECT_EQ(map(node).createdAt, std::nullopt);
}

TEST(PullRequestMapping, oneApprovalAndOnePendingRequestAreApprovedOneOfTwo)
{
    const PullRequest mapped = mapReviews(
        R"([{"state": "APPROVED", "author": {"login": "ann"}}])",
        R"([{"requestedReviewer": {"login": "bob"}}])");
    EXPECT_EQ(mapped.reviewState, ReviewState::approved);
    EXPECT_EQ(mapped.reviews, (ProgressCount{.completed = 1, .total = 2, .failed = 0}));
}

TEST(PullRequestMapping, aDismissedReviewWithNobodyRequestedIsPendingZeroOfOne)
{
    const PullRequest mapped =
        mapReviews(R"([{"state": "DISMISSED", "author": {"login": "ann"}}])");
    EXPECT_EQ(mapped.reviewState, ReviewState::pending);
    EXPECT_FALSE(mapped.reviewActivity.hasSubmittedReview);
    EXPECT_EQ(mapped.reviews, (ProgressCount{.completed = 0, .total = 1, .failed = 0}));
}

TEST(PullRequestMapping, noReviewsAndOneTeamRequestedByNameIsPendingZeroOfOne)
{
    const PullRequest mapped =
        mapReviews("[]", R"([{"requestedReviewer": {"name": "reviewers"}}])");
    EXPECT_EQ(mapped.reviewState, ReviewState::pending);
    EXPECT_EQ(mapped.reviews, (ProgressCount{.completed = 0, .total = 1, .failed = 0}));
}

TEST(PullRequestMapping, aReviewByADeletedAccountCountsForTheStateButNotAmongTheReviewers)
{
    for (const char* const author : {"null", "{}"}) {
        const PullRequest mapped =
            mapReviews(std::string(R"([{"state": "APPROVED", "author": )") + author + "}]");
        EXPECT_EQ(mapped.reviewState, ReviewState::approved);
        EXPECT_TRUE(mapped.reviewActivity.hasApproval);
        EXPECT_EQ(mapped.reviews, (ProgressCount{.completed = 0, .total = 0, .failed = 0}));
    }
}

TEST(PullRequestMapping, aReviewerRequestedAgainCountsOnce)
{
    const PullRequest mapped = mapReviews(
        R"([{"state": "COMMENTED", "author": {"login": "ann"}}])",
        R"([{"requestedReviewer": {"login": "ann"}}])");
    EXPECT_EQ(mapped.reviews, (ProgressCount{.completed = 1, .total = 1, .failed = 0}));
}

TEST(PullRequestMapping, requestsWithoutLoginAndNameAreSkipped)
{
    const PullRequest mapped =
        mapReviews("[]", R"([{"requestedReviewer": null}, {"requestedReviewer": {}}])");
    EXPECT_EQ(mapped.reviewState, ReviewState::none);
    EXPECT_EQ(mapped.reviews, ProgressCount{});
}

TEST(PullRequestMapping, aLoginComesBeforeAName)
{
    const PullRequest mapped = mapReviews(
        R"([{"state": "PENDING", "author": {"login": "ann"}}])",
        R"([{"requestedReviewer": {"login": "ann", "name": "Ann"}}])");
    EXPECT_EQ(mapped.reviews.total, 1);
}

struct ReviewCase {
    const char* name;
    std::vector<std::string> states;
    bool isRequested;
    ReviewState state;
    ReviewActivity activity;
};

TEST(MappedReviewState, isDecidedInOrder)
{
    const std::vector<ReviewCase> cases{
        {"nothing", {}, false, ReviewState::none, {}},
        {"requestedOnly", {}, true, ReviewState::pending, {}},
        {"changesRequestedWins",
         {"APPROVED", "COMMENTED", "CHANGES_REQUESTED"},
         true,
         ReviewState::changesRequested,
         {true, true, true, true}},
        {"everyOneApproved",
         {"APPROVED", "APPROVED"},
         false,
         ReviewState::approved,
         {true, false, false, true}},
        {"approvedAndCommented",
         {"APPROVED", "COMMENTED"},
         false,
         ReviewState::commented,
         {true, false, true, true}},
        {"approvedAndDismissed",
         {"APPROVED", "DISMISSED"},
         false,
         ReviewState::pending,
         {true, false, false, true}},
        {"lowerCaseIsNoKnownState", {"approved"}, false, ReviewState::pending, {}}};
    for (const ReviewCase& each : cases) {
        SCOPED_TRACE(each.name);
        Node node = completeNode();
        node.latestReviews.emplace();
        for (const std::string& state : each.states) {
            node.latestReviews->nodes.push_back({state, Actor{"ann", std::nullopt}});
        }
        if (each.isRequested) {
            node.reviewRequests = {{ReviewRequest{Actor{"bob", std::nullopt}}}};
        }
        EXPECT_EQ(map(node).reviewState, each.state);
        EXPECT_EQ(map(node).reviewActivity, each.activity);
    }
}

TEST(PullRequestMapping, anAbsentAuthorIsAGhost)
{
    Node node = completeNode();
    node.author = Actor{};
    EXPECT_EQ(map(node).author, "ghost");
    node.author.reset();
    EXPECT_EQ(map(node).author, "ghost");
}

TEST(PullRequestMapping, aForkHasItsHeadAndBaseRepositoriesFromTheirFields)
{
    Node node = completeNode();
    node.headRepository = Repository{"cat/tools"};
    node.baseRepository = Repository{"octo/base"};
    const PullRequest mapped = map(node);
    EXPECT_EQ(mapped.head, (BranchReference{"cat/tools", "speed"}));
    EXPECT_EQ(mapped.base, (BranchReference{"octo/base", "main"}));
    EXPECT_EQ(mapped.id.repository, "octo/tools");
}

TEST(PullRequestMapping, statesAreTranslatedExactly)
{
    const auto mapState = [](std::optional<std::string> text) {
        Node node = completeNode();
        node.state = std::move(text);
        return map(node).state;
    };
    EXPECT_EQ(mapState("MERGED"), PullRequestState::merged);
    EXPECT_EQ(mapState("CLOSED"), PullRequestState::closed);
    EXPECT_EQ(mapState("OPEN"), PullRequestState::open);
    EXPECT_EQ(mapState("merged"), PullRequestState::open);
    EXPECT_EQ(mapState(std::nullopt), PullRequestState::open);
}

TEST(PullRequestMapping, mergeabilityIsTranslatedExactly)
{
    const auto mapMergeable = [](std::optional<std::string> text) {
        Node node = completeNode();
        node.mergeable = std::move(text);
        return map(node).mergeability;
    };
    EXPECT_EQ(mapMergeable("MERGEABLE"), PullRequestMergeability::mergeable);
    EXPECT_EQ(mapMergeable("CONFLICTING"), PullRequestMergeability::conflicting);
    EXPECT_EQ(mapMergeable("UNKNOWN"), PullRequestMergeability::unknown);
    EXPECT_EQ(mapMergeable("Mergeable"), PullRequestMergeability::unknown);
    EXPECT_EQ(mapMergeable(std::nullopt), PullRequestMergeability::unknown);
}

TEST(PullRequestMapping, checksComeFromTheLastCommit)
{
    Node node = completeNode();
    node.commits = Json::decode<NodeList<CommitNode>>(R"({"nodes": [
        {"commit": {"statusCheckRollup": {"contexts": {"nodes": [{"state": "ERROR"}]}}}},
        {"commit": {"statusCheckRollup": {"contexts": {"nodes":
            [{"state": "SUCCESS"}, {"state": "PENDING"}, {"state": "FAILURE"}]}}}}]})");
    EXPECT_EQ(map(node).checks, (ProgressCount{.completed = 1, .total = 3, .failed = 1}));
}

TEST(PullRequestMapping, withoutCommitsOrRollupThereAreNoChecks)
{
    Node node = completeNode();
    node.commits = NodeList<CommitNode>{};
    EXPECT_EQ(map(node).checks, ProgressCount{});
    node.commits->nodes.emplace_back();
    EXPECT_EQ(map(node).checks, ProgressCount{});
}

PullRequestDetails detailsOf(const Node& node)
{
    SharedTexts texts;
    auto mapped = mapPullRequest(node, "github.com", std::nullopt, texts);
    if (!mapped) {
        throw std::runtime_error("the node was dropped");
    }
    return std::move(mapped->details);
}

TEST(PullRequestDetailsMapping, namesRequestedUsersAndTeamsInTheAnswersOrder)
{
    Node node = completeNode();
    node.reviewRequests.emplace().nodes = Json::decode<std::vector<ReviewRequest>>(
        R"([{"requestedReviewer": {"login": "tomasz"}}, {"requestedReviewer": {"name": "platform"}},
            {"requestedReviewer": {}}, {"requestedReviewer": null},
            {"requestedReviewer": {"login": "ada"}}, {"requestedReviewer": {"login": "tomasz"}},
            {"requestedReviewer": {"name": "platform"}}, {"requestedReviewer": {"name": "docs"}}])");
    const PullRequestDetails details = detailsOf(node);
    EXPECT_THAT(details.requestedUsers, testing::ElementsAre("tomasz", "ada"));
    EXPECT_THAT(details.requestedTeams, testing::ElementsAre("platform", "docs"));
    EXPECT_FALSE(details.isCutOff());
}

TEST(PullRequestDetailsMapping, namesEachReviewerWithTheResult)
{
    Node node = completeNode();
    node.latestReviews.emplace().nodes = Json::decode<std::vector<Review>>(
        R"([{"state": "APPROVED", "author": {"login": "mara"}},
            {"state": "CHANGES_REQUESTED", "author": null},
            {"state": "COMMENTED", "author": {"login": "kim"}},
            {"state": "DISMISSED", "author": {"login": "lou"}},
            {"state": "PENDING", "author": {"login": "octo"}},
            {"state": "LOVED", "author": {"login": "ada"}}])");
    EXPECT_THAT(
        detailsOf(node).reviews,
        testing::ElementsAre(
            LatestReview{"mara", ReviewVerdict::approved},
            LatestReview{"ghost", ReviewVerdict::changesRequested},
            LatestReview{"kim", ReviewVerdict::commented},
            LatestReview{"lou", ReviewVerdict::dismissed},
            LatestReview{"octo", ReviewVerdict::pending}));
}

Node nodeWithChecks(std::string_view contexts)
{
    Node node = completeNode();
    Rollup& rollup = node.commits.emplace().nodes.emplace_back().commit.statusCheckRollup.emplace();
    rollup.contexts.nodes = Json::decode<std::vector<CheckContext>>(contexts);
    return node;
}

TEST(PullRequestDetailsMapping, namesTheChecksThatCount)
{
    const Node node = nodeWithChecks(
        R"json([{"__typename": "CheckRun", "name": "build", "conclusion": "FAILURE", "databaseId": 1},
            {"__typename": "CheckRun", "name": "lint", "conclusion": "TIMED_OUT"},
            {"__typename": "CheckRun", "name": "build", "conclusion": "SUCCESS", "databaseId": 2},
            {"__typename": "CheckRun", "name": "test (linux)", "status": "QUEUED"},
            {"__typename": "StatusContext", "context": "ci/deploy", "state": "ERROR"},
            {"__typename": "StatusContext", "context": "ci/docs", "state": "PENDING"},
            {"__typename": "Unheard"}])json");
    const PullRequestDetails details = detailsOf(node);
    EXPECT_THAT(details.passedChecks, testing::ElementsAre("build"));
    EXPECT_THAT(details.failedChecks, testing::ElementsAre("lint", "ci/deploy"));
    EXPECT_THAT(details.runningChecks, testing::ElementsAre("test (linux)", "ci/docs"));
    EXPECT_EQ(map(node).checks, (ProgressCount{.completed = 1, .total = 6, .failed = 2}));
}

TEST(PullRequestDetailsMapping, listsAsLongAsTheSearchAsksForMayBeCutOff)
{
    Node node = nodeWithChecks("[]");
    const auto length = [&](std::size_t requests, std::size_t reviews, std::size_t checks) {
        node.reviewRequests.emplace().nodes.resize(requests);
        node.latestReviews.emplace().nodes.resize(reviews);
        node.commits->nodes.back().commit.statusCheckRollup->contexts.nodes.resize(checks);
        return detailsOf(node);
    };
    EXPECT_FALSE(length(49, 49, 99).isCutOff());
    EXPECT_EQ(length(50, 49, 99).requestLimit, 50);
    EXPECT_EQ(length(49, 50, 99).reviewLimit, 50);
    EXPECT_EQ(length(49, 49, 100).checkLimit, 100);
}

}  // namespace
