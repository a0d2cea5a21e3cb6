#include "GhTest.h"
#include "SampleGitHub/Rendering.h"

namespace {

using SampleGitHub::refId;
using testing::HasSubstr;

class GhRules : public GhTest {};

TEST_F(GhRules, protectionAndRulesetsAreToldInTheOrderOfTheIds)
{
    serve("everyday");
    const auto main = refId("harbourlight/ferry-api", "main");
    const auto release = refId("harbourlight/ferry-api", "release/4.x");

    const Result result = rules({release, main});

    ASSERT_EQ(result.status, 0) << result.errors;
    const auto answer = boost::json::parse(result.output);
    EXPECT_EQ(at(answer, "/data/nodes/0/id"), release.c_str());
    EXPECT_TRUE(at(answer, "/data/nodes/0/refUpdateRule").is_null());
    EXPECT_EQ(at(answer, "/data/nodes/0/rules/nodes/1/parameters/requiredApprovingReviewCount"), 1);
    EXPECT_EQ(at(answer, "/data/nodes/1/refUpdateRule/requiredApprovingReviewCount"), 1);
    EXPECT_EQ(at(answer, "/data/nodes/1/rules/nodes/1/parameters/requiredApprovingReviewCount"), 2);
}

TEST_F(GhRules, theIdsAreThoseOfTheSearchHits)
{
    serve("everyday");
    const auto page = boost::json::parse(search("is:pr is:open repo:robin-k/dotfiles").output);
    const auto id = std::string(at(page, "/data/search/nodes/0/baseRef/id").as_string());

    const auto answer = boost::json::parse(rules({id}).output);

    EXPECT_EQ(at(answer, "/data/nodes/0/id"), id.c_str());
    EXPECT_TRUE(at(answer, "/data/nodes/0/refUpdateRule").is_null());
    EXPECT_TRUE(at(answer, "/data/nodes/0/rules/nodes").as_array().empty());
}

TEST_F(GhRules, anUnknownIdIsNullAndAnError)
{
    serve("everyday");

    const Result result = rules({"REF_nowhere"});

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(
        result.errors,
        HasSubstr("Could not resolve to a node with the global id of 'REF_nowhere'"));
    const auto answer = boost::json::parse(result.output);
    EXPECT_TRUE(at(answer, "/data/nodes/0").is_null());
}

TEST_F(GhRules, moreThanAHundredIdsAreRefused)
{
    serve("everyday");

    const Result result = rules(std::vector<std::string>(101, "REF_x"));

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("more than 100 node ids; you provided 101."));
}

TEST_F(GhRules, nullNodesComeWithoutAnErrorWhenTheFaultIsOn)
{
    serve("everyday");
    setFault("null-nodes@rules");

    const auto main = refId("harbourlight/ferry-api", "main");
    const auto release = refId("harbourlight/ferry-api", "release/4.x");
    const Result result = rules({main, release});

    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, R"({"data":{"nodes":[null,null]}})");
}

}  // namespace
