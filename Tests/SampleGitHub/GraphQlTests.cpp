#include "SampleGitHub/GraphQl.h"

#include "PullRequestKit/Errors.h"

#include <gmock/gmock.h>

namespace {

using namespace SampleGitHub;

std::string firstField(std::string_view document)
{
    const auto fields = topFields(document);
    return fields.empty() ? std::string() : fields.front().name;
}

TEST(GraphQl, theFirstFieldTellsDocumentsApart)
{
    EXPECT_EQ(firstField("query UserCurrent{viewer{login}}"), "viewer");
    EXPECT_EQ(firstField("query($ids:[ID!]!) {\n  nodes(ids:$ids) { id }\n}"), "nodes");
    EXPECT_EQ(firstField("query($q:In = {a: 1}) { search(query:$q) { issueCount } }"), "search");
    EXPECT_EQ(firstField("{ viewer { login } }"), "viewer");
    EXPECT_EQ(firstField("query"), "");
    EXPECT_EQ(firstField(""), "");
}

TEST(GraphQl, thePageSizeIsAnArgumentOfTheFirstField)
{
    const auto first = [](const std::string& arguments) {
        return parseGraphQlRequest(R"({"query":"{ search)" + arguments + R"( { x(first:7) } }"})")
            .fields.at(0)
            .first;
    };
    EXPECT_EQ(first("(query:$q, first:50, after:$c)"), 50);
    EXPECT_EQ(first("(first: 20)"), 20);
    EXPECT_EQ(first("(first:$n)"), std::nullopt);
    EXPECT_EQ(first(""), std::nullopt);
}

TEST(GraphQl, fieldsMayHaveAliases)
{
    EXPECT_THAT(
        topFields("query($a:String!, $b:String!) {\n"
                  "  one: search(query:$a, type:ISSUE, first:1) { issueCount }\n"
                  "  search(query:$b, type:ISSUE_ADVANCED, first:50, after:$c) { nodes { id } }\n"
                  "}"),
        testing::ElementsAre(
            GraphQlField{
                "one", "search", "a", "ISSUE", 1, "query:$a, type:ISSUE, first:1", " issueCount "},
            GraphQlField{
                "search",
                "search",
                "b",
                "ISSUE_ADVANCED",
                50,
                "query:$b, type:ISSUE_ADVANCED, first:50, after:$c",
                " nodes { id } "}));
}

TEST(GraphQl, textsMayHoldBracketsAndQuotationMarks)
{
    const auto fields = topFields(R"({ a: repository(owner:"o\")}{", name:"n") { x } b { y } })");
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].arguments, R"(owner:"o\")}{", name:"n")");
    EXPECT_EQ(fields[0].selection, " x ");
    EXPECT_EQ(fields[1].name, "b");
}

TEST(GraphQl, aBodyOfAnotherFormIsRefused)
{
    for (const char* const body :
         {"", "[]", "{}", R"({"query":7})", R"({"query":"{a}","variables":[]})"}) {
        EXPECT_THROW(parseGraphQlRequest(body), PullRequestKit::DecodingError) << body;
    }
}

}  // namespace
