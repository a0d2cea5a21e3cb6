#include "SampleGitHub/SearchQuery.h"

#include <gmock/gmock.h>

namespace {

using namespace SampleGitHub;
using testing::ElementsAre;

Scenario scenario()
{
    return parseScenario(R"({
        "account": {"login": "me", "teams": ["Crew"]},
        "repositories": [{"fullName": "a/one"}, {"fullName": "b/two", "isArchived": true}],
        "pullRequests": [
            {"repository": "a/one", "number": 1, "title": "Fix the Door", "head": "h1",
             "author": "me", "created": "9d", "updated": "3h", "requestedUsers": ["ann"],
             "reviews": [{"state": "PENDING", "author": "me"}]},
            {"repository": "a/one", "number": 2, "title": "Paint", "head": "h2",
             "author": "ann", "created": "8d", "updated": "5h", "requestedTeams": ["Crew"],
             "isDraft": true},
            {"repository": "b/two", "number": 3, "title": "Fix the roof", "head": "h3",
             "created": "7d", "updated": "1h", "requestedUsers": ["me"]},
            {"repository": "a/one", "number": 4, "title": "Old", "head": "h4", "state": "merged",
             "author": "ann", "created": "6d", "updated": "3h",
             "reviews": [{"state": "APPROVED", "author": "me"}]}]})");
}

std::vector<std::int64_t> found(std::string_view text)
{
    const Scenario all = scenario();
    std::vector<std::int64_t> numbers;
    for (const std::size_t index : search(all, parseSearchQuery(text))) {
        numbers.push_back(all.pullRequests[index].number);
    }
    return numbers;
}

TEST(SampleSearch, ordersAsAskedAndKeepsTies)
{
    EXPECT_THAT(found("sort:updated-desc"), ElementsAre(3, 1, 4, 2));
    EXPECT_THAT(found("is:pr"), ElementsAre(1, 2, 3, 4));
}

TEST(SampleSearch, filtersByStateRepositoryAndPerson)
{
    EXPECT_THAT(found("is:pr is:open"), ElementsAre(1, 2, 3));
    EXPECT_THAT(found("archived:false is:open"), ElementsAre(1, 2));
    EXPECT_THAT(found("repo:b/two"), ElementsAre(3));
    EXPECT_THAT(found("repo:b/two repo:a/one is:open"), ElementsAre(1, 2, 3));
    EXPECT_THAT(found("repo:c/three"), ElementsAre());
    EXPECT_THAT(found("review-requested:@me"), ElementsAre(2, 3));
    EXPECT_THAT(found("author:@me"), ElementsAre(1));
    EXPECT_THAT(found("-author:@me"), ElementsAre(2, 3, 4));
    EXPECT_THAT(found("reviewed-by:@me"), ElementsAre(4)) << "the other review is not submitted";
}

std::size_t count(std::string_view text, SearchType type, RepositoryTerms terms)
{
    return search(scenario(), parseSearchQuery(text, type, terms)).size();
}

TEST(SampleSearch, takesSeveralRepositoriesForAnyOrForAllOfThem)
{
    EXPECT_EQ(count("repo:b/two repo:a/one", SearchType::issue, RepositoryTerms::any), 4U);
    EXPECT_EQ(count("repo:b/two repo:a/one", SearchType::issue, RepositoryTerms::all), 0U);
    EXPECT_EQ(count("repo:b/two repo:b/two", SearchType::issue, RepositoryTerms::all), 1U);
    EXPECT_EQ(count("repo:a/one", SearchType::issue, RepositoryTerms::all), 3U);
    EXPECT_EQ(count("repo:b/two repo:a/one", SearchType::issueAdvanced, RepositoryTerms::any), 0U);
}

TEST(SampleSearch, knowsGroupsOfRepositoriesInTheAdvancedSearchAlone)
{
    constexpr const char* group = "is:open (repo:b/two OR repo:a/one) sort:updated-desc";
    EXPECT_EQ(count(group, SearchType::issueAdvanced, RepositoryTerms::all), 3U);
    EXPECT_THROW(count(group, SearchType::issue, RepositoryTerms::all), SearchError);
    for (const char* const text :
         {"(repo:a", "(author:me OR repo:a)", "(repo:a repo:b)", "(repo:a OR (repo:b))"}) {
        EXPECT_THROW(count(text, SearchType::issueAdvanced, RepositoryTerms::any), SearchError)
            << text;
    }
}

TEST(SampleSearch, refusesTermsItDoesNotKnow)
{
    for (const char* const term : {"label:bug", "is:issue", "author:ann", "door"}) {
        EXPECT_THROW(parseSearchQuery(term), SearchError) << term;
    }
}

}  // namespace
