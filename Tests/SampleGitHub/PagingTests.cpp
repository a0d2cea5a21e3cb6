#include "SampleGitHub/Paging.h"

#include <gmock/gmock.h>

namespace {

using namespace SampleGitHub;
using namespace testing;

TEST(Paging, cursorsLookLikeGitHubs)
{
    EXPECT_EQ(cursorBehind(50), "Y3Vyc29yOjUw");
    EXPECT_EQ(cursorBehind(100), "Y3Vyc29yOjEwMA==");
}

TEST(Paging, cursorsTellHowManyResultsLieBefore)
{
    EXPECT_EQ(resultsBefore("Y3Vyc29yOjUw"), 50);
    EXPECT_EQ(resultsBefore("Y3Vyc29yOjEwMDA="), 1000);
    EXPECT_EQ(resultsBefore("Y3Vyc29yOjEwMDE="), std::nullopt);
    EXPECT_EQ(resultsBefore(""), std::nullopt);
}

TEST(Paging, theLastValueOfAParameterCounts)
{
    EXPECT_THAT(
        queryParameters("affiliation=owner,collaborator&page=1&page=2&bare"),
        ElementsAre(
            Pair("affiliation", "owner,collaborator"), Pair("bare", ""), Pair("page", "2")));
}

TEST(Paging, onlyPositiveNumbersCount)
{
    const std::map<std::string, std::string> parameters{
        {"a", "7"}, {"b", "-1"}, {"c", "x"}, {"d", "7x"}};
    EXPECT_EQ(positiveParameter(parameters, "a", 30), 7);
    for (const char* const name : {"b", "c", "d", "missing"}) {
        EXPECT_EQ(positiveParameter(parameters, name, 30), 30) << name;
    }
}

TEST(Paging, theLinkHeaderNamesTheNeighbours)
{
    EXPECT_EQ(linkHeader("a", {}, 1, 1), "");
    EXPECT_EQ(
        linkHeader("a", {{"per_page", "5"}}, 2, 3),
        R"(<a?page=1&per_page=5>; rel="prev", <a?page=3&per_page=5>; rel="next", )"
        R"(<a?page=3&per_page=5>; rel="last", <a?page=1&per_page=5>; rel="first")");
}

}  // namespace
