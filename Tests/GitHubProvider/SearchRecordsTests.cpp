#include "GitHubProvider/SearchRecords.h"

#include "PullRequestKit/Json/Reading.h"
#include "Support/Errors.h"

#include <vector>

namespace {

using namespace GitHub;
using PullRequestKit::Json::decode;

TEST(SearchRecords, readAWholePage)
{
    const auto envelope = decode<SearchEnvelope>(R"({"data": {"search": {"issueCount": 2,
        "pageInfo": {"hasNextPage": true, "endCursor": "Y3Vyc29yOjUw"},
        "nodes": [{}, {"number": 7, "title": "Speed up", "url": "https://github.com/octo/tools/pull/7",
        "createdAt": "2024-05-01T10:00:00Z", "updatedAt": "2024-05-02T10:00:00Z", "state": "OPEN",
        "isDraft": true, "mergeable": "MERGEABLE", "baseRefName": "main", "headRefName": "speed",
        "author": {"login": "octo"}, "repository": {"nameWithOwner": "octo/tools"},
        "baseRepository": {"nameWithOwner": "octo/base"}, "headRepository": {"nameWithOwner": "cat/tools"},
        "baseRef": {"id": "REF_1"},
        "reviewRequests": {"nodes": [{"requestedReviewer": {"name": "team"}}, {"requestedReviewer": null}]},
        "latestReviews": {"nodes": [{"state": "APPROVED", "author": null}]},
        "commits": {"nodes": [{"commit": {"statusCheckRollup": {"contexts": {"nodes": [
            {"__typename": "StatusContext", "context": "ci"}]}}}}]}}]}}})");

    SearchPage expected;
    expected.issueCount = 2;
    expected.pageInfo = {true, "Y3Vyc29yOjUw"};
    Node node;
    node.number = 7;
    node.title = "Speed up";
    node.url = PullRequestKit::Url{"https://github.com/octo/tools/pull/7"};
    node.createdAt = PullRequestKit::parseDate("2024-05-01T10:00:00Z");
    node.updatedAt = PullRequestKit::parseDate("2024-05-02T10:00:00Z");
    node.state = "OPEN";
    node.isDraft = true;
    node.mergeable = "MERGEABLE";
    node.baseRefName = "main";
    node.headRefName = "speed";
    node.author = Actor{"octo", std::nullopt};
    node.repository = Repository{"octo/tools"};
    node.baseRepository = Repository{"octo/base"};
    node.headRepository = Repository{"cat/tools"};
    node.baseRef = BaseRef{"REF_1", std::nullopt, std::nullopt};
    node.reviewRequests = {{ReviewRequest{Actor{std::nullopt, "team"}}, ReviewRequest{}}};
    node.latestReviews = {{Review{"APPROVED", std::nullopt}}};
    CheckContext context;
    context.typeName = "StatusContext";
    context.context = "ci";
    node.commits = {{CommitNode{Commit{Rollup{{{context}}}}}}};
    expected.nodes = {Node{}, node};

    ASSERT_TRUE(envelope.data);
    EXPECT_EQ(envelope.data->search, expected);
    EXPECT_FALSE(envelope.errors);
}

TEST(SearchRecords, optionalFieldsMayBeNull)
{
    const auto envelope = decode<SearchEnvelope>(R"({"errors": null, "data": {"search":
        {"issueCount": null, "pageInfo": {"hasNextPage": false, "endCursor": null},
        "nodes": [{"number": null, "title": null, "url": null, "createdAt": null,
        "updatedAt": null, "state": null, "isDraft": null, "mergeable": null, "baseRefName": null,
        "headRefName": null, "author": null, "repository": null, "baseRepository": null,
        "headRepository": null, "baseRef": null, "reviewRequests": null, "latestReviews": null,
        "commits": null}, {"commits": {"nodes": [{"commit": {"statusCheckRollup": null}}]}}]}}})");
    ASSERT_TRUE(envelope.data);
    ASSERT_EQ(envelope.data->search.nodes.size(), 2U);
    EXPECT_EQ(envelope.data->search.nodes[0], Node{});
    EXPECT_FALSE(envelope.data->search.nodes[1].commits->nodes[0].commit.statusCheckRollup);
}

TEST(SearchRecords, readErrorsBesideNullData)
{
    const auto envelope = decode<SearchEnvelope>(
        R"({"data": null, "errors": [{"message": "Slow down", "type": "X"}]})");
    EXPECT_FALSE(envelope.data);
    EXPECT_THAT(envelope.failures(), testing::ElementsAre(GraphQLFailure{"Slow down"}));
}

TEST(SearchRecords, anEmptyListOfErrorsIsNone)
{
    const auto envelope = decode<SearchEnvelope>(R"({"errors": []})");
    EXPECT_THAT(envelope.failures(), testing::IsEmpty());
}

TEST(SearchRecords, errorMessagesAreJoinedWithLineFeeds)
{
    EXPECT_EQ(graphQLMessage(std::vector<GraphQLFailure>{{"one"}, {"two"}, {""}}), "one\ntwo\n");
    EXPECT_EQ(graphQLMessage(std::vector<GraphQLFailure>{{"one"}}), "one");
}

std::string page(const std::string& nodes)
{
    return R"({"data": {"search": {"pageInfo": {"hasNextPage": false}, "nodes": )" + nodes + "}}}";
}

struct BadPage {
    const char* name;
    std::string text;
    const char* path;
};

TEST(UnreadablePage, isRefusedWithThePathOfTheOffendingValue)
{
    const std::vector<BadPage> cases{
        {"empty", "", ""},
        {"cutOff", R"({"data": {"search": {"pageInfo": {"hasNext)", ""},
        {"notUtf8", page("[{\"title\": \"\xFF\xFE\"}]"), ""},
        {"notJson", "Usage: gh api", ""},
        {"twoDocuments", page("[]") + page("[]"), ""},
        {"deeplyNested", page(std::string(10'000, '[')), ""},
        {"list", "[]", ""},
        {"noSearch", R"({"data": {}})", "data.search"},
        {"noPageInfo", R"({"data": {"search": {"nodes": []}}})", "data.search.pageInfo"},
        {"noNextPageFlag",
         R"({"data": {"search": {"pageInfo": {}, "nodes": []}}})",
         "data.search.pageInfo.hasNextPage"},
        {"noNodes",
         R"({"data": {"search": {"pageInfo": {"hasNextPage": false}}}})",
         "data.search.nodes"},
        {"nullNode", page("[{}, null]"), "data.search.nodes[1]"},
        {"numberAsText", page(R"([{}, {}, {}, {"number": "7"}])"), "data.search.nodes[3].number"},
        {"dateWithFraction",
         page(R"([{"updatedAt": "2024-05-01T10:00:00.5Z"}])"),
         "data.search.nodes[0].updatedAt"},
        {"addressWithBlank", page(R"([{"url": "https://x y"}])"), "data.search.nodes[0].url"},
        {"draftAsNumber", page(R"([{"isDraft": 1}])"), "data.search.nodes[0].isDraft"},
        {"repositoryWithoutName",
         page(R"([{"repository": {}}])"),
         "data.search.nodes[0].repository.nameWithOwner"},
        {"reviewWithoutState",
         page(R"([{"latestReviews": {"nodes": [{}]}}])"),
         "data.search.nodes[0].latestReviews.nodes[0].state"},
        {"nullReviewRequest",
         page(R"([{"reviewRequests": {"nodes": [null]}}])"),
         "data.search.nodes[0].reviewRequests.nodes[0]"},
        {"commitNodeWithoutCommit",
         page(R"([{"commits": {"nodes": [{}]}}])"),
         "data.search.nodes[0].commits.nodes[0].commit"},
        {"nullCheckContext",
         page(R"([{"commits": {"nodes": [{"commit": {"statusCheckRollup":
                {"contexts": {"nodes": [null]}}}}]}}])"),
         "data.search.nodes[0].commits.nodes[0].commit.statusCheckRollup.contexts.nodes[0]"},
        {"errorWithoutMessage", R"({"errors": [{}]})", "errors[0].message"}};
    for (const BadPage& each : cases) {
        EXPECT_EQ(TestSupport::pathOf([&] { decode<SearchEnvelope>(each.text); }), each.path)
            << each.name;
    }
}

}  // namespace
