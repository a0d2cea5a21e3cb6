#include "GitHubProvider/BaseRules.h"

#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"
#include "Support/Errors.h"

namespace {

using namespace TestSupport;
using GitHub::BaseRuleCache;
using GitHub::BaseRuleCounts;

using Arguments = std::vector<std::string>;

constexpr const char* documentArgument =
    "query=query($ids:[ID!]!) {\n"
    "  nodes(ids:$ids) {\n"
    "    ... on Ref {\n"
    "      id\n"
    "      refUpdateRule { requiredApprovingReviewCount }\n"
    "      rules(first:100) { nodes {\n"
    "        type\n"
    "        parameters { ... on PullRequestParameters { requiredApprovingReviewCount } }\n"
    "      } }\n"
    "    }\n"
    "  }\n"
    "}";

class BaseRules : public testing::Test {
protected:
    BaseRuleCounts load(const std::set<std::string>& ids)
    {
        return GitHub::loadBaseRules(ids, gh, cache, {});
    }

    std::string providerErrorOf(const std::set<std::string>& ids)
    {
        return messageOf<ProviderError>([&] { load(ids); });
    }

    void TearDown() override { EXPECT_FALSE(runner->hasAnswersLeft()); }

    std::shared_ptr<ScriptedRunner> runner = std::make_shared<ScriptedRunner>();
    GitHub::Gh gh{[] { return "/opt/gh"; }, runner};
    std::chrono::system_clock::time_point now{std::chrono::hours{500'000}};
    BaseRuleCache cache{[this] { return now; }};
};

std::string nodes(const std::string& list)
{
    return R"({"data": {"nodes": [)" + list + "]}}";
}

std::string node(const std::string& id, int count)
{
    return R"({"id": ")" + id + R"(", "refUpdateRule": {"requiredApprovingReviewCount": )"
           + std::to_string(count) + "}}";
}

TEST_F(BaseRules, withoutIdsNothingIsRun)
{
    EXPECT_EQ(load({}), BaseRuleCounts{});
    EXPECT_THAT(runner->calls(), IsEmpty());
}

TEST_F(BaseRules, idsAreAskedForInAscendingOrderEachWithItsOwnFlag)
{
    runner->prints(nodes(node("B", 2) + "," + node("a", 1)));
    EXPECT_EQ(load({"a", "B"}), (BaseRuleCounts{{"B", 2}, {"a", 1}}));
    EXPECT_THAT(
        runner->calls(),
        ElementsAre(ScriptedRunner::Call{
            "/opt/gh",
            {"api", "graphql", "-f", documentArgument, "-F", "ids[]=B", "-F", "ids[]=a"}}));
}

TEST_F(BaseRules, are120MissingIdsFetchedInRunsOf50And50And20)
{
    std::set<std::string> ids;
    for (int number = 100; number < 220; ++number) {
        ids.insert("id" + std::to_string(number));
    }
    runner->prints(nodes(node("id100", 1)));
    runner->prints(nodes(node("id199", 2)));
    runner->prints(nodes(node("id219", 3)));
    EXPECT_EQ(load(ids), (BaseRuleCounts{{"id100", 1}, {"id199", 2}, {"id219", 3}}));

    ASSERT_EQ(runner->calls().size(), 3U);
    const auto expectBatch = [](const Arguments& arguments, int first, int count) {
        ASSERT_EQ(arguments.size(), static_cast<std::size_t>(4 + 2 * count));
        for (int position = 0; position < count; ++position) {
            const std::size_t place = 4 + 2 * static_cast<std::size_t>(position);
            EXPECT_EQ(arguments[place], "-F");
            EXPECT_EQ(arguments[place + 1], "ids[]=id" + std::to_string(first + position));
        }
    };
    expectBatch(runner->calls()[0].arguments, 100, 50);
    expectBatch(runner->calls()[1].arguments, 150, 50);
    expectBatch(runner->calls()[2].arguments, 200, 20);
}

TEST_F(BaseRules, fiftyIdsAreOneRun)
{
    std::set<std::string> ids;
    for (int number = 100; number < 150; ++number) {
        ids.insert(std::to_string(number));
    }
    runner->prints(nodes(""));
    EXPECT_EQ(load(ids), BaseRuleCounts{});
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(BaseRules, anIdAnsweredWithNullIsNotAskedForAgainWithin300Seconds)
{
    runner->prints(nodes("null"));
    EXPECT_EQ(load({"a"}), BaseRuleCounts{});
    now += std::chrono::seconds{299};
    EXPECT_EQ(load({"a"}), BaseRuleCounts{});
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(BaseRules, anEntryLoadedExactly300SecondsAgoIsRefetched)
{
    runner->prints(nodes(node("a", 1)));
    runner->prints(nodes(node("a", 2)));
    EXPECT_EQ(load({"a"}), (BaseRuleCounts{{"a", 1}}));
    now += std::chrono::seconds{300};
    EXPECT_EQ(load({"a"}), (BaseRuleCounts{{"a", 2}}));
}

TEST_F(BaseRules, withEveryIdFreshInTheCacheNothingIsRun)
{
    cache.store({{"a", 1}, {"b", std::nullopt}, {"c", 3}});
    EXPECT_EQ(load({"a", "b", "c"}), (BaseRuleCounts{{"a", 1}, {"c", 3}}));
    EXPECT_THAT(runner->calls(), IsEmpty());
}

TEST_F(BaseRules, onlyWhatIsMissingIsAskedFor)
{
    cache.store({{"b", 7}});
    runner->prints(nodes(node("a", 1) + ",{}," + R"({"id": null})" + "," + R"({"id": "c"})"));
    EXPECT_EQ(load({"a", "b", "c"}), (BaseRuleCounts{{"a", 1}, {"b", 7}}));
    EXPECT_THAT(
        runner->argumentLists(),
        ElementsAre(
            Arguments{"api", "graphql", "-f", documentArgument, "-F", "ids[]=a", "-F", "ids[]=c"}));
}

TEST_F(BaseRules, anAnswerWithoutDataAndErrorsLeavesTheCountsAbsent)
{
    runner->prints(R"({"data": null})");
    EXPECT_EQ(load({"a"}), BaseRuleCounts{});
    EXPECT_EQ(load({"a"}), BaseRuleCounts{});
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(BaseRules, aFailingGhGivesItsStandardErrorUntrimmed)
{
    runner->ends(1, "", " gh: not found (HTTP 404)\n\xFF\n");
    EXPECT_EQ(providerErrorOf({"a"}), " gh: not found (HTTP 404)\n\xEF\xBF\xBD\n");
}

TEST_F(BaseRules, aFailingGhThatIsSilentGivesAnEmptyText)
{
    runner->ends(1, "text on the other stream", "");
    EXPECT_EQ(providerErrorOf({"a"}), "");
}

TEST_F(BaseRules, errorsAreJoinedWithLineFeedsAndTheDataIgnored)
{
    runner->prints(
        R"({"data": {"nodes": []}, "errors": [{"message": "one"}, {"message": "two"}]})");
    EXPECT_EQ(providerErrorOf({"a"}), "one\ntwo");
}

TEST_F(BaseRules, batchesFetchedBeforeAFailureAreNotStored)
{
    std::set<std::string> ids;
    for (int number = 100; number < 160; ++number) {
        ids.insert(std::to_string(number));
    }
    runner->prints(nodes(node("100", 1)));
    runner->ends(1, "", "no");
    EXPECT_EQ(providerErrorOf(ids), "no");
    EXPECT_THAT(cache.lookup({"100"}).missing, ElementsAre("100"));
}

TEST_F(BaseRules, anErrorOfTheRunIsPassedOn)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(providerErrorOf({"a"}), "GitHub CLI request timed out.");
    runner->fails(CancellationError());
    EXPECT_THROW(load({"a"}), CancellationError);
}

TEST_F(BaseRules, unreadableAnswersAreDecodingErrorsWithThePath)
{
    const auto pathFor = [this](const std::string& answer) {
        runner->prints(answer);
        return pathOf([this] { load({"a"}); });
    };
    EXPECT_EQ(pathFor(""), "");
    EXPECT_EQ(pathFor(R"({"data": {"nodes": [)"), "");
    EXPECT_EQ(pathFor(std::string(10'000, '[')), "");
    EXPECT_EQ(pathFor("{\"data\": \"\xFF\"}"), "");
    EXPECT_EQ(pathFor(R"({"data": {}})"), "data.nodes");
    EXPECT_EQ(pathFor(nodes("7")), "data.nodes[0]");
    EXPECT_EQ(
        pathFor(nodes(R"(null, {"refUpdateRule": {"requiredApprovingReviewCount": "2"}})")),
        "data.nodes[1].refUpdateRule.requiredApprovingReviewCount");
    EXPECT_EQ(pathFor(nodes(R"({"rules": {"nodes": [null]}})")), "data.nodes[0].rules.nodes[0]");
}

}  // namespace
