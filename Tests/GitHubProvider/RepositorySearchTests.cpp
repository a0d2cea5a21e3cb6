#include "GitHubProvider/RepositorySearch.h"

#include "GitHubProvider/RepositoryCounts.h"
#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"
#include "Support/Mapped.h"

namespace {

using namespace GitHub;
using namespace TestSupport;

std::string hit(const std::string& repository, int number, const std::string& updatedAt)
{
    return R"({"number": )" + std::to_string(number)
           + R"(, "title": "T", "url": "https://git.example/octo/tools/pull/1", "updatedAt": ")"
           + updatedAt + R"(", "baseRefName": "main", "headRefName": "work", "repository": )"
           + R"({"nameWithOwner": ")" + repository + R"("}})";
}

std::string answer(std::int64_t matches, const std::string& nodes)
{
    return R"({"data": {"search": {"issueCount": )" + std::to_string(matches)
           + R"(, "pageInfo": {"hasNextPage": false}, "nodes": [)" + nodes + "]}}}";
}

std::string counts(int first, int second, int together)
{
    const auto count = [](const char* name, int value) {
        return "\"" + std::string(name) + R"(":{"issueCount":)" + std::to_string(value) + "}";
    };
    return R"({"data":{)" + count("first", first) + "," + count("second", second) + ","
           + count("together", together) + "}}";
}

const std::string nothing = answer(0, "");

class RepositorySearchTest : public ProviderTest {
protected:
    void SetUp() override { restart(); }

    /// Another provider with the same memory, as after a start of the program.
    void restart()
    {
        provider = std::make_unique<GitHub::GitHubProvider>(
            "git.example",
            [] { return "/opt/gh"; },
            runner,
            [this](const std::string& line) { log.push_back(line); },
            [this] { return wallTime; },
            [this] { return steadyTime; },
            memory);
    }

    PullRequestList list(
        const std::set<std::string>& repositories = {"a/one", "b/two"},
        ReviewerScope scope = ReviewerScope::any)
    {
        return provider->listPullRequests(scope, repositories, stop.get_token());
    }

    void rememberGrouping() const
    {
        SearchKnowledge knowledge;
        knowledge.isGrouped = true;
        memory->save(knowledge);
    }

    /// The search texts that `gh` was run with, in order, and "counts" for the question.
    std::vector<std::string> searches() const
    {
        return mapped(runner->argumentLists(), [](const auto& arguments) {
            return arguments[5].starts_with("q=") ? arguments[5].substr(2) : "counts";
        });
    }

    std::shared_ptr<SearchMemory> memory = std::make_shared<SearchMemory>();

    const std::string terms =
        "is:pr is:open archived:false repo:a/one repo:b/two sort:updated-desc";
    const std::string groups =
        "is:pr is:open archived:false (repo:a/one OR repo:b/two) sort:updated-desc";
};

TEST_F(RepositorySearchTest, asksAboutAnEmptyListAndGoesOnInGroupsWhenTheTermsExclude)
{
    runner->prints(nothing);
    runner->prints(counts(3, 0, 0));
    runner->prints(answer(1, hit("b/two", 7, "2024-05-02T10:00:00Z")));
    EXPECT_EQ(list().pullRequests.size(), 1U);
    EXPECT_THAT(searches(), ElementsAre(terms, "counts", groups));
    EXPECT_THAT(
        log,
        Contains("Tarnwick GitHub search: several repo: terms find less than each alone; "
                 "repositories are now grouped with OR"));
    const std::string& document = runner->calls()[2].arguments[3];
    EXPECT_NE(document.find("search(query:$q, type:ISSUE_ADVANCED, first:50"), std::string::npos);
}

TEST_F(RepositorySearchTest, searchesInGroupsFromThenOnAndSaysSoOnce)
{
    runner->prints(nothing);
    runner->prints(counts(0, 1, 0));
    runner->prints(nothing);
    list();
    log.clear();
    restart();
    runner->prints(nothing);
    EXPECT_THAT(list().pullRequests, IsEmpty());
    EXPECT_THAT(searches(), ElementsAre(terms, "counts", groups, groups));
    EXPECT_THAT(log, Each(Not(HasSubstr("several repo: terms"))));
}

TEST_F(RepositorySearchTest, countsEachOfTwoAloneAndBothTogetherInOneDocument)
{
    runner->prints(nothing);
    runner->prints(counts(0, 0, 0));
    list();
    ASSERT_EQ(runner->calls().size(), 2U);
    const auto& arguments = runner->calls()[1].arguments;
    EXPECT_THAT(
        arguments,
        ElementsAre(
            "api",
            "graphql",
            "-f",
            "query=query($first:String!, $second:String!, $together:String!) {\n"
            "  first: search(query:$first, type:ISSUE, first:1) { issueCount }\n"
            "  second: search(query:$second, type:ISSUE, first:1) { issueCount }\n"
            "  together: search(query:$together, type:ISSUE, first:1) { issueCount }\n"
            "}",
            "-f",
            AnyOf("first=is:pr repo:a/one", "first=is:pr repo:b/two"),
            "-f",
            AnyOf("second=is:pr repo:a/one", "second=is:pr repo:b/two"),
            "-f",
            AnyOf("together=is:pr repo:a/one repo:b/two", "together=is:pr repo:b/two repo:a/one")));
    EXPECT_NE(arguments[5].substr(6), arguments[7].substr(7));
}

TEST_F(RepositorySearchTest, asksOnceADayAtMostAcrossStarts)
{
    for (const int calls : {2, 3, 5}) {
        restart();
        runner->prints(nothing);
        if (calls != 3) {
            runner->prints(counts(2, 2, 4));
        }
        EXPECT_THAT(list().pullRequests, IsEmpty());
        EXPECT_EQ(runner->calls().size(), static_cast<std::size_t>(calls));
        wallTime += calls == 2 ? 23h : 1h;
    }
}

TEST_F(RepositorySearchTest, asksAgainAfterTheClockWasSetBack)
{
    runner->prints(nothing);
    runner->prints(counts(2, 2, 4));
    list();
    wallTime -= 1h;
    runner->prints(nothing);
    runner->prints(counts(2, 2, 4));
    list();
    EXPECT_EQ(runner->calls().size(), 4U);
}

TEST_F(RepositorySearchTest, asksNothingAboutOneRepositoryOrAListThatIsNotEmpty)
{
    runner->prints(nothing);
    list({"a/one"});
    runner->prints(answer(1, hit("b/two", 7, "2024-05-02T10:00:00Z")));
    list();
    runner->prints(answer(3, ""));
    list();
    EXPECT_EQ(runner->calls().size(), 3U);
}

TEST_F(RepositorySearchTest, takesAQuestionThatFailsForNoProofAndRestsForADay)
{
    runner->prints(nothing);
    runner->ends(1, counts(3, 0, 0), "gh: Something went wrong");
    EXPECT_THAT(list().pullRequests, IsEmpty());
    runner->prints(nothing);
    EXPECT_THAT(list().pullRequests, IsEmpty());
    for (const std::string& text :
         {std::string("{}"),
          std::string(R"({"data":null})"),
          std::string("<html>"),
          std::string(R"({"data":{"first":null,"second":null,"together":null},"errors":[]})"),
          counts(3, 0, 0).insert(1, R"("errors":[{"message":"no"}],)")}) {
        wallTime += 24h;
        runner->prints(nothing);
        runner->prints(text);
        EXPECT_THAT(list().pullRequests, IsEmpty()) << text;
    }
    EXPECT_FALSE(memory->load().isGrouped);
}

TEST_F(RepositorySearchTest, endsAtOnceWhenTheQuestionIsCancelled)
{
    runner->prints(nothing);
    runner->fails(CancellationError());
    EXPECT_THROW(list(), CancellationError);
}

TEST_F(RepositorySearchTest, asksAboutARepositoryInWhichSomethingWasFound)
{
    const std::set<std::string> many{"a/1", "a/2", "a/3", "a/4", "a/5", "a/6", "a/7", "a/8"};
    runner->prints(answer(1, hit("a/5", 7, "2024-05-02T10:00:00Z")));
    list(many);
    restart();
    runner->prints(nothing);
    runner->prints(counts(1, 0, 0));
    runner->prints(nothing);
    list(many);
    EXPECT_EQ(runner->calls()[2].arguments[5], "first=is:pr repo:a/5");
}

TEST_F(RepositorySearchTest, makesSmallerGroupsWhenGitHubRefusesSoManyOperators)
{
    rememberGrouping();
    const std::set<std::string> eight{"a/1", "a/2", "a/3", "a/4", "a/5", "a/6", "a/7", "a/8"};
    runner->ends(1, "", "gh: More than five AND / OR / NOT operators were used.");
    runner->prints(nothing);
    runner->prints(answer(1, hit("a/7", 7, "2024-05-02T10:00:00Z")));
    EXPECT_EQ(list(eight).pullRequests.size(), 1U);
    runner->prints(nothing);
    runner->prints(nothing);
    list(eight);
    const std::string frame = "is:pr is:open archived:false ";
    const std::string six =
        frame + "(repo:a/1 OR repo:a/2 OR repo:a/3 OR repo:a/4 OR repo:a/5 OR repo:a/6) "
        + "sort:updated-desc";
    const std::string two = frame + "(repo:a/7 OR repo:a/8) sort:updated-desc";
    EXPECT_THAT(searches(), ElementsAre(testing::_, six, two, six, two));
}

TEST_F(RepositorySearchTest, passesOtherFailuresOfGroupsOn)
{
    rememberGrouping();
    runner->ends(1, "", "gh: HTTP 500");
    EXPECT_EQ(messageOf<ProviderError>([this] { list(); }), "gh: HTTP 500");
}

TEST(RepositoryCounts, proveTheOtherMeaningOnlyWhereTogetherThereIsNothingAndAloneSomething)
{
    const auto prove = [](std::int64_t first, std::int64_t second, std::int64_t together) {
        return RepositoryCounts{{first}, {second}, {together}}.proveThatTermsExclude();
    };
    EXPECT_TRUE(prove(1, 0, 0));
    EXPECT_TRUE(prove(0, 1, 0));
    EXPECT_TRUE(prove(5, 3, 0));
    EXPECT_FALSE(prove(0, 0, 0));
    EXPECT_FALSE(prove(5, 3, 8));
    EXPECT_FALSE(prove(5, 0, 5));
    // One repository under two names.
    EXPECT_FALSE(prove(5, 5, 5));
}

TEST(RepositoryCounts, giveEveryRepositoryItsTurn)
{
    const std::set<std::string> repositories{"a", "b", "c"};
    std::set<std::string> asked;
    for (int day = -2; day < 4; ++day) {
        const auto [first, second] =
            repositoriesToCount(repositories, std::nullopt, Date(std::chrono::days(day)));
        EXPECT_NE(first, second);
        asked.insert({first, second});
        const auto [known, other] =
            repositoriesToCount(repositories, "b", Date(std::chrono::days(day)));
        EXPECT_EQ(known, "b");
        EXPECT_NE(other, "b");
        EXPECT_NE(repositoriesToCount(repositories, "z", Date(std::chrono::days(day))).first, "z");
    }
    EXPECT_EQ(asked, repositories);
}

std::set<std::string> longNames(int count)
{
    std::set<std::string> names;
    for (int number = 1000; number < 1000 + count; ++number) {
        names.insert("owner/" + std::string(90, 'x') + std::to_string(number));
    }
    return names;
}

std::vector<std::string> textsOf(const std::vector<SearchQuery>& queries)
{
    return mapped(queries, &SearchQuery::text);
}

TEST(SearchQueries, takeAsFewArgumentsAsTheSystemAllows)
{
    const auto few = searchQueries(ReviewerScope::myself, longNames(1230), SearchForm::terms);
    EXPECT_EQ(few.size(), 1U);
    for (const SearchForm form : {SearchForm::terms, SearchForm::groups}) {
        const auto queries = searchQueries(ReviewerScope::myself, longNames(3000), form);
        EXPECT_EQ(queries.size(), 3U);
        for (const SearchQuery& query : queries) {
            EXPECT_LE(("q=" + query.text).size() + 1, 131'072U);
        }
    }
}

TEST(SearchQueries, fillAnArgumentToItsLastByte)
{
    const std::string whole =
        "is:pr is:open archived:false repo:a/one repo:b/two sort:updated-desc";
    const auto within = [](std::size_t bytes) {
        return textsOf(searchQueries(
            ReviewerScope::any, {"a/one", "b/two"}, SearchForm::terms, {.bytes = bytes}));
    };
    EXPECT_THAT(within(whole.size()), ElementsAre(whole));
    EXPECT_THAT(
        within(whole.size() - 1),
        ElementsAre(
            "is:pr is:open archived:false repo:a/one sort:updated-desc",
            "is:pr is:open archived:false repo:b/two sort:updated-desc"));
}

TEST(SearchQueries, nameEveryRepositoryOnceInOrder)
{
    EXPECT_THAT(
        textsOf(searchQueries(
            ReviewerScope::any, {"a/1", "a/2", "a/3"}, SearchForm::groups, {.repositories = 2})),
        ElementsAre(
            "is:pr is:open archived:false (repo:a/1 OR repo:a/2) sort:updated-desc",
            "is:pr is:open archived:false repo:a/3 sort:updated-desc"));
}

class SplitSearch : public RepositorySearchTest {
protected:
    std::vector<std::int64_t> numbers(const PullRequestList& list) const
    {
        return mapped(list.pullRequests, [](const auto& each) { return each.id.number; });
    }
};

TEST_F(SplitSearch, isOneListLastUpdatedFirstWithoutDoubles)
{
    runner->prints(answer(
        3,
        hit("a/one", 1, "2024-05-05T10:00:00Z") + "," + hit("b/two", 2, "2024-05-03T10:00:00Z")
            + "," + hit("a/one", 3, "2024-05-01T10:00:00Z")));
    runner->prints(answer(
        3,
        hit("a/one", 3, "2024-05-04T10:00:00Z") + "," + hit("b/two", 2, "2024-05-02T10:00:00Z")
            + "," + hit("b/two", 4, "2024-05-01T09:00:00Z")));
    const PullRequestList found = list(longNames(1500));
    EXPECT_THAT(numbers(found), ElementsAre(1, 3, 2, 4));
    EXPECT_EQ(found.pullRequests[1].updatedAt, *parseDate("2024-05-04T10:00:00Z"));
    EXPECT_EQ(found.details.size(), 4U);
    EXPECT_EQ(found.found, std::nullopt);
}

TEST_F(SplitSearch, tellsHowManyThereAreInAll)
{
    runner->prints(answer(1500, hit("a/one", 1, "2024-05-05T10:00:00Z")));
    runner->prints(answer(
        2,
        hit("a/one", 1, "2024-05-05T10:00:00Z") + "," + hit("b/two", 2, "2024-05-03T10:00:00Z")));
    EXPECT_EQ(list(longNames(1500)).found, 1501);
}

TEST_F(SplitSearch, failsAsAWhole)
{
    runner->prints(answer(1, hit("a/one", 1, "2024-05-05T10:00:00Z")));
    runner->ends(1, "", "gh: HTTP 502");
    EXPECT_EQ(messageOf<ProviderError>([this] { list(longNames(1500)); }), "gh: HTTP 502");
}

TEST_F(SplitSearch, countsItsPagesThroughInTheLog)
{
    runner->prints(nothing);
    runner->prints(answer(1, hit("a/one", 1, "2024-05-05T10:00:00Z")));
    list(longNames(1500));
    EXPECT_THAT(log, SizeIs(5));
    EXPECT_THAT(log[0], StartsWith("Tarnwick GitHub search: query=is:pr is:open"));
    EXPECT_THAT(log[1], StartsWith("Tarnwick GitHub search: page=1 "));
    EXPECT_THAT(log[2], StartsWith("Tarnwick GitHub search: query=is:pr is:open"));
    EXPECT_THAT(log[3], StartsWith("Tarnwick GitHub search: page=2 "));
    EXPECT_THAT(log[4], HasSubstr(" pages=2 nodes=1 "));
}

class InvolvedSearch : public SplitSearch {
protected:
    PullRequestList involved(std::set<std::string> repositories = {"a/one", "b/two"})
    {
        return list(std::move(repositories), ReviewerScope::involved);
    }

    /// Whether each of the list's pull requests asks for the user.
    static std::vector<bool> asking(const PullRequestList& list)
    {
        return mapped(list.details, &PullRequestDetails::asksForUser);
    }

    const std::string older = "2024-05-01T10:00:00Z";
    const std::string newer = "2024-05-02T10:00:00Z";
    const std::string newest = "2024-05-03T10:00:00Z";
};

TEST_F(InvolvedSearch, joinsThreeSearchesAndKnowsWhatAsksForTheUser)
{
    runner->prints(answer(2, hit("a/one", 1, newest) + "," + hit("a/one", 2, older)));
    runner->prints(answer(1, hit("b/two", 3, newer)));
    runner->prints(answer(2, hit("a/one", 4, newer) + "," + hit("a/one", 2, older)));
    const PullRequestList found = involved();
    EXPECT_THAT(numbers(found), ElementsAre(1, 3, 4, 2));
    EXPECT_THAT(asking(found), ElementsAre(true, false, false, true));
    EXPECT_EQ(found.found, std::nullopt);
    EXPECT_THAT(
        searches(),
        ElementsAre(
            StartsWith("is:pr review-requested:@me is:open"),
            StartsWith("is:pr author:@me is:open"),
            StartsWith("is:pr reviewed-by:@me -author:@me is:open")));
}

TEST_F(InvolvedSearch, aLaterVersionFromAnotherSearchGoesOnAskingForTheUser)
{
    runner->prints(answer(1, hit("a/one", 1, older)));
    runner->prints(nothing);
    runner->prints(answer(1, hit("a/one", 1, newest)));
    const PullRequestList found = involved();
    ASSERT_EQ(found.pullRequests.size(), 1U);
    EXPECT_EQ(found.pullRequests[0].updatedAt, *parseDate(newest));
    EXPECT_THAT(asking(found), ElementsAre(true));
}

TEST_F(InvolvedSearch, countsWhatSeveralSearchesFoundOnce)
{
    runner->prints(answer(1500, hit("a/one", 1, newest)));
    runner->prints(answer(1, hit("b/two", 3, newer)));
    runner->prints(answer(2, hit("a/one", 1, newest) + "," + hit("a/one", 4, older)));
    EXPECT_EQ(involved().found, 1502);
}

TEST_F(InvolvedSearch, failsAsAWhole)
{
    runner->prints(answer(1, hit("a/one", 1, newest)));
    runner->prints(answer(1, hit("b/two", 3, newer)));
    runner->ends(1, "", "gh: HTTP 502");
    EXPECT_EQ(messageOf<ProviderError>([this] { involved(); }), "gh: HTTP 502");
}

TEST_F(InvolvedSearch, splitsEachOfItsSearches)
{
    for (int search = 0; search < 6; ++search) {
        runner->prints(answer(1, hit("a/one", search, newer)));
    }
    EXPECT_EQ(involved(longNames(1500)).pullRequests.size(), 6U);
}

TEST_F(InvolvedSearch, goesOnInGroupsWhenAllThreeFindNothingAndTheTermsExclude)
{
    runner->prints(nothing);
    runner->prints(nothing);
    runner->prints(nothing);
    runner->prints(counts(3, 0, 0));
    runner->prints(nothing);
    runner->prints(answer(1, hit("b/two", 7, newer)));
    runner->prints(nothing);
    EXPECT_EQ(involved().pullRequests.size(), 1U);
    EXPECT_EQ(
        searches().back(),
        "is:pr reviewed-by:@me -author:@me is:open archived:false (repo:a/one OR repo:b/two) "
        "sort:updated-desc");
}

TEST_F(InvolvedSearch, asksNothingMoreWhenOneOfThemFindsSomething)
{
    runner->prints(nothing);
    runner->prints(answer(1, hit("b/two", 7, newer)));
    runner->prints(nothing);
    EXPECT_EQ(involved().pullRequests.size(), 1U);
}

}  // namespace
