#include "GitHubProvider/BaseRef.h"

#include "PullRequestKit/Json/Reading.h"
#include "Support/Errors.h"

namespace {

using GitHub::BaseRef;

std::optional<std::int64_t> required(std::string_view json)
{
    return PullRequestKit::Json::decode<BaseRef>(json).requiredApprovingReviewCount();
}

TEST(BaseRef, classicProtectionOfOneAndARulesetOfTwoRequireTwo)
{
    EXPECT_EQ(
        required(R"({"id": "R", "refUpdateRule": {"requiredApprovingReviewCount": 1},
            "rules": {"nodes": [{"type": "PULL_REQUEST",
                "parameters": {"requiredApprovingReviewCount": 2}}]}})"),
        2);
}

TEST(BaseRef, theLargestOfAllRulesCounts)
{
    EXPECT_EQ(
        required(R"({"refUpdateRule": {"requiredApprovingReviewCount": 3}, "rules": {"nodes": [
            {"parameters": {"requiredApprovingReviewCount": 1}}, {"parameters": {}},
            {"parameters": null}, {}, {"parameters": {"requiredApprovingReviewCount": 2}}]}})"),
        3);
}

TEST(BaseRef, aRuleOfNoApprovalsIsACountOfZero)
{
    EXPECT_EQ(required(R"({"refUpdateRule": {"requiredApprovingReviewCount": 0}})"), 0);
}

TEST(BaseRef, withoutRulesRequiresNothing)
{
    EXPECT_EQ(required("{}"), std::nullopt);
    EXPECT_EQ(required(R"({"id": null, "refUpdateRule": null, "rules": null})"), std::nullopt);
    EXPECT_EQ(
        required(R"({"refUpdateRule": {"requiredApprovingReviewCount": null},
            "rules": {"nodes": [{"type": "DELETION", "parameters": {}}]}})"),
        std::nullopt);
}

TEST(BaseRef, refusesANullRule)
{
    EXPECT_EQ(
        TestSupport::pathOf([] { required(R"({"rules": {"nodes": [null]}})"); }), "rules.nodes[0]");
}

}  // namespace
