#include "PullRequestKit/Json/Writing.h"
#include "PullRequestKit/PullRequest.h"
#include "Support/Errors.h"
#include "Support/Joined.h"
#include "Support/Mapped.h"
#include "Support/PullRequests.h"

#include <vector>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

constexpr const char* completeText =
    R"({"id":{"provider":"github","host":"github.com","repository":"octo/tools","number":42},)"
    R"("title":"Say \"héllo\"","url":"https://github.com/octo/tools/pull/42","author":"mona",)"
    R"("createdAt":"2024-05-01T09:30:00Z","updatedAt":"2024-05-02T10:00:00Z","state":"merged",)"
    R"("isDraft":true,"mergeability":"conflicting",)"
    R"("head":{"repository":"mona/tools","name":"feature"},)"
    R"("base":{"repository":"octo/tools","name":"main"},"reviewState":"changesRequested",)"
    R"("reviewActivity":{"hasApproval":false,"hasChangesRequested":true,)"
    R"("hasCommentedReview":false,"hasSubmittedReview":true},)"
    R"("reviews":{"completed":1,"total":3,"failed":0},)"
    R"("checks":{"completed":4,"total":5,"failed":2},"requiredApprovingReviewCount":2})";

PullRequest completePullRequest()
{
    return {
        .id = {"github", "github.com", "octo/tools", 42},
        .title = "Say \"héllo\"",
        .url = {"https://github.com/octo/tools/pull/42"},
        .author = "mona",
        .createdAt = date("2024-05-01T09:30:00Z"),
        .updatedAt = date("2024-05-02T10:00:00Z"),
        .state = PullRequestState::merged,
        .isDraft = true,
        .mergeability = PullRequestMergeability::conflicting,
        .head = {"mona/tools", "feature"},
        .base = {"octo/tools", "main"},
        .reviewState = ReviewState::changesRequested,
        .reviewActivity = {.hasChangesRequested = true, .hasSubmittedReview = true},
        .reviews = {1, 3, 0},
        .requiredApprovingReviewCount = 2,
        .checks = {4, 5, 2}};
}

/// The complete document with one more key, or another value for one.
std::string withMember(std::string_view key, std::string_view value)
{
    boost::json::object object = boost::json::parse(completeText).as_object();
    object[key] = boost::json::parse(value);
    return boost::json::serialize(object);
}

boost::json::object without(std::initializer_list<std::string_view> keys)
{
    boost::json::object object = boost::json::parse(completeText).as_object();
    for (const std::string_view key : keys) {
        object.erase(key);
    }
    return object;
}

PullRequest decode(const boost::json::object& object)
{
    return Json::decode<PullRequest>(boost::json::serialize(object));
}

TEST(PullRequestCoding, writesTheKeysInTheirOrder)
{
    EXPECT_EQ(Json::encode(completePullRequest()), completeText);
}

TEST(PullRequestCoding, readsEveryField)
{
    EXPECT_EQ(Json::decode<PullRequest>(completeText), completePullRequest());
}

TEST(PullRequestCoding, leavesOutAbsentOptionals)
{
    PullRequest pullRequest = completePullRequest();
    pullRequest.createdAt.reset();
    pullRequest.requiredApprovingReviewCount.reset();
    const auto keys = mapped(Json::writeObject(pullRequest), [](const auto& member) {
        return std::string(member.key());
    });
    EXPECT_EQ(
        joined(keys),
        "id, title, url, author, updatedAt, state, isDraft, mergeability, head, base, "
        "reviewState, reviewActivity, reviews, checks");
    EXPECT_EQ(Json::decode<PullRequest>(Json::encode(pullRequest)), pullRequest);
}

TEST(PullRequestCoding, readsTheLegacyConflictFlagWhereMergeabilityIsAbsent)
{
    boost::json::object stored = without({"mergeability"});
    EXPECT_EQ(decode(stored).mergeability, PullRequestMergeability::unknown);
    stored["hasMergeConflict"] = false;
    EXPECT_EQ(decode(stored).mergeability, PullRequestMergeability::unknown);
    stored["hasMergeConflict"] = true;
    EXPECT_EQ(decode(stored).mergeability, PullRequestMergeability::conflicting);

    const boost::json::object written = Json::writeObject(decode(stored));
    EXPECT_EQ(written.at("mergeability"), "conflicting");
    EXPECT_FALSE(written.contains("hasMergeConflict"));
}

TEST(PullRequestCoding, ignoresTheLegacyConflictFlagBesideMergeability)
{
    EXPECT_EQ(
        Json::decode<PullRequest>(withMember("hasMergeConflict", "false")).mergeability,
        PullRequestMergeability::conflicting);
    EXPECT_EQ(
        Json::decode<PullRequest>(withMember("hasMergeConflict", "3")).mergeability,
        PullRequestMergeability::conflicting);
}

TEST(PullRequestCoding, derivesAnAbsentReviewActivity)
{
    boost::json::object stored = without({"reviewActivity"});
    stored["reviewState"] = "pending";
    stored["reviews"].as_object()["completed"] = 2;
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, false, false, true}));
    stored["reviews"].as_object()["completed"] = 0;
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, false, false, false}));
    stored["reviewState"] = "approved";
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{true, false, false, true}));
    stored["reviewState"] = "changesRequested";
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, true, false, true}));
    stored["reviewState"] = "commented";
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, false, true, true}));
}

TEST(PullRequestCoding, countsACommentedStateAsACommentedReviewWhateverIsStored)
{
    boost::json::object stored = without({});
    stored["reviewState"] = "commented";
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, true, true, true}));
}

TEST(PullRequestCoding, keepsAStoredCommentedReviewInOtherStates)
{
    boost::json::object stored = without({});
    stored["reviewActivity"].as_object()["hasCommentedReview"] = true;
    EXPECT_EQ(decode(stored).reviewActivity, (ReviewActivity{false, true, true, true}));
}

TEST(PullRequestCoding, writesACommentedStateWithoutACommentedReviewAsItIs)
{
    PullRequest pullRequest = completePullRequest();
    pullRequest.reviewState = ReviewState::commented;
    const boost::json::object written = Json::writeObject(pullRequest);
    EXPECT_EQ(written.at("reviewActivity").at("hasCommentedReview"), false);
}

TEST(PullRequestCoding, fillsInTheYoungerKeysOfNestedObjects)
{
    boost::json::object stored = without({});
    stored["reviews"].as_object().erase("failed");
    stored["checks"].as_object().erase("failed");
    stored["reviewActivity"].as_object().erase("hasCommentedReview");
    const PullRequest pullRequest = decode(stored);
    EXPECT_EQ(pullRequest.reviews, (ProgressCount{1, 3, 0}));
    EXPECT_EQ(pullRequest.checks, (ProgressCount{4, 5, 0}));
    EXPECT_EQ(pullRequest.reviewActivity, (ReviewActivity{false, true, false, true}));
}

TEST(PullRequestCoding, takesNullForAnOptionalKeyAsItsAbsence)
{
    boost::json::object stored = without({});
    stored["createdAt"] = nullptr;
    stored["mergeability"] = nullptr;
    stored["hasMergeConflict"] = nullptr;
    stored["reviewActivity"] = nullptr;
    stored["requiredApprovingReviewCount"] = nullptr;
    stored["checks"].as_object()["failed"] = nullptr;
    const PullRequest pullRequest = decode(stored);
    EXPECT_EQ(pullRequest.createdAt, std::nullopt);
    EXPECT_EQ(pullRequest.mergeability, PullRequestMergeability::unknown);
    EXPECT_EQ(pullRequest.reviewActivity, (ReviewActivity{false, true, false, true}));
    EXPECT_EQ(pullRequest.requiredApprovingReviewCount, std::nullopt);
    EXPECT_EQ(pullRequest.checks, (ProgressCount{4, 5, 0}));
}

TEST(PullRequestCoding, ignoresUnknownKeysAndTheOrderOfKeys)
{
    EXPECT_EQ(Json::decode<PullRequest>(withMember("labels", "[1]")), completePullRequest());
    const boost::json::object object = without({});
    std::string reversed;
    for (const auto& [key, value] : object) {
        reversed = "\"" + std::string(key) + "\":" + boost::json::serialize(value)
                   + (reversed.empty() ? "" : ",") + reversed;
    }
    EXPECT_EQ(Json::decode<PullRequest>("{" + reversed + "}"), completePullRequest());
}

TEST(RequiredKey, mayNeitherBeMissingNorNull)
{
    for (const char* const each :
         {"id",
          "title",
          "url",
          "author",
          "updatedAt",
          "state",
          "isDraft",
          "head",
          "base",
          "reviewState",
          "reviews",
          "checks"}) {
        SCOPED_TRACE(each);
        const std::string key = each;
        const std::string missing = boost::json::serialize(without({key}));
        const auto read = [&] { Json::decode<PullRequest>(missing); };
        EXPECT_EQ(pathOf(read), key);
        EXPECT_EQ(messageOf(read), "The data could not be read: " + key + " is missing.");

        EXPECT_EQ(pathOf([&] { Json::decode<PullRequest>(withMember(key, "null")); }), key);
    }
}

TEST(PullRequestCoding, requiresTheNestedKeys)
{
    const auto pathWithout = [](const char* key, const char* nested) {
        boost::json::object stored = without({});
        stored[key].as_object().erase(nested);
        return pathOf([&] { decode(stored); });
    };
    EXPECT_EQ(pathWithout("id", "provider"), "id.provider");
    EXPECT_EQ(pathWithout("id", "host"), "id.host");
    EXPECT_EQ(pathWithout("id", "repository"), "id.repository");
    EXPECT_EQ(pathWithout("id", "number"), "id.number");
    EXPECT_EQ(pathWithout("head", "repository"), "head.repository");
    EXPECT_EQ(pathWithout("base", "name"), "base.name");
    EXPECT_EQ(pathWithout("reviews", "completed"), "reviews.completed");
    EXPECT_EQ(pathWithout("checks", "total"), "checks.total");
    EXPECT_EQ(pathWithout("reviewActivity", "hasApproval"), "reviewActivity.hasApproval");
    EXPECT_EQ(
        pathWithout("reviewActivity", "hasChangesRequested"), "reviewActivity.hasChangesRequested");
    EXPECT_EQ(
        pathWithout("reviewActivity", "hasSubmittedReview"), "reviewActivity.hasSubmittedReview");
}

struct WrongValue {
    const char* key;
    const char* value;
    const char* path;
    const char* problem;
};

constexpr const char* notKnown = "is not one of the known values";

TEST(RefusedValue, isNamedWithItsPath)
{
    const std::vector<WrongValue> cases{
        {"id", "7", "id", "is not an object"},
        {"id", "[]", "id", "is not an object"},
        {"id",
         R"({"provider":"g","host":"h","repository":"r","number":"42"})",
         "id.number",
         "is not a whole number"},
        {"title", "7", "title", "is not text"},
        {"url", R"("octo/tools")", "url", "is not a web address"},
        {"createdAt", R"("yesterday")", "createdAt", "is not an ISO 8601 date"},
        {"updatedAt", "1714555800", "updatedAt", "is not text"},
        {"updatedAt", R"("2024-05-01T09:30:00.5Z")", "updatedAt", "is not an ISO 8601 date"},
        {"state", R"("OPEN")", "state", notKnown},
        {"state", R"("")", "state", notKnown},
        {"isDraft", "0", "isDraft", "is not true or false"},
        {"isDraft", R"("false")", "isDraft", "is not true or false"},
        {"mergeability", R"("MERGEABLE")", "mergeability", notKnown},
        {"mergeability", "true", "mergeability", "is not text"},
        {"reviewState", R"("rejected")", "reviewState", notKnown},
        {"reviewActivity", "[]", "reviewActivity", "is not an object"},
        {"reviews", R"({"completed":1.5,"total":3})", "reviews.completed", "is not a whole number"},
        {"checks",
         R"({"completed":1,"total":9223372036854775808})",
         "checks.total",
         "is not a whole number"},
        {"requiredApprovingReviewCount",
         R"("2")",
         "requiredApprovingReviewCount",
         "is not a whole number"}};
    for (const WrongValue& each : cases) {
        const auto& [key, value, path, problem] = each;
        const auto read = [text = withMember(key, value)] { Json::decode<PullRequest>(text); };
        EXPECT_EQ(pathOf(read), path);
        EXPECT_EQ(
            messageOf(read),
            std::string("The data could not be read: ") + path + " " + problem + ".");
    }
}

TEST(PullRequestCoding, refusesALegacyConflictFlagOfAnotherType)
{
    boost::json::object stored = without({"mergeability"});
    stored["hasMergeConflict"] = "yes";
    EXPECT_EQ(pathOf([&] { decode(stored); }), "hasMergeConflict");
}

TEST(PullRequestCoding, namesThePlaceInAListOfPullRequests)
{
    const std::string list =
        "[" + std::string(completeText) + "," + withMember("state", R"("gone")") + "]";
    EXPECT_EQ(pathOf([&] { Json::decode<std::vector<PullRequest>>(list); }), "[1].state");
}

RC_GTEST_PROP(PullRequestCodingProperties, readsBackWhatItWrote, (PullRequest pullRequest))
{
    // The one field that decoding corrects.
    pullRequest.reviewActivity.hasCommentedReview |=
        pullRequest.reviewState == ReviewState::commented;
    RC_ASSERT(Json::decode<PullRequest>(Json::encode(pullRequest)) == pullRequest);
}

RC_GTEST_PROP(PullRequestCodingProperties, aCutOffTextIsRefused, (const PullRequest& pullRequest))
{
    const std::string text = Json::encode(pullRequest);
    const auto length = *rc::gen::inRange<std::size_t>(0, text.size());
    RC_ASSERT_THROWS_AS(Json::decode<PullRequest>(text.substr(0, length)), DecodingError);
}

}  // namespace
