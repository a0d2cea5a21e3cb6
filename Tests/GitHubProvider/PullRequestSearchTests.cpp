#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"
#include "Support/Errors.h"
#include "Support/Mapped.h"

namespace {

using namespace TestSupport;

using Arguments = std::vector<std::string>;

std::string node(int number, const std::string& more = {})
{
    return R"({"number": )" + std::to_string(number)
           + R"(, "title": "T", "url": "https://git.example/octo/tools/pull/1",
              "updatedAt": "2024-05-02T10:00:00Z", "baseRefName": "main", "headRefName": "work",
              "repository": {"nameWithOwner": "octo/tools"})"
           + more + "}";
}

std::string baseRef(const std::string& id)
{
    return R"(, "baseRef": {"id": ")" + id + R"("})";
}

std::string lastPage(const std::string& nodes)
{
    return R"({"data": {"search": {"issueCount": 3, "pageInfo": {"hasNextPage": false},
              "nodes": [)"
           + nodes + "]}}}";
}

std::string page(const std::string& cursor, const std::string& nodes)
{
    return R"({"data": {"search": {"issueCount": 3, "pageInfo": {"hasNextPage": true,
              "endCursor": ")"
           + cursor + R"("}, "nodes": [)" + nodes + "]}}}";
}

std::string rules(const std::string& id, int count)
{
    return R"({"data": {"nodes": [{"id": ")" + id
           + R"(", "rules": {"nodes": [{"parameters": {"requiredApprovingReviewCount": )"
           + std::to_string(count) + "}}]}}]}}";
}

class PullRequestSearch : public ProviderTest {
protected:
    std::vector<PullRequest> load(
        ReviewerScope scope = ReviewerScope::any,
        const std::set<std::string>& repositories = {"octo/tools"})
    {
        return provider->pullRequests(scope, repositories, stop.get_token());
    }

    std::vector<std::int64_t> loadNumbers()
    {
        return mapped(load(), [](const auto& each) { return each.id.number; });
    }

    std::string providerError()
    {
        return messageOf<ProviderError>([this] { load(); });
    }
};

TEST_F(PullRequestSearch, tellsHowManyThereAreWhenGitHubHandsOutFewer)
{
    runner->prints(page("x", node(1)));
    runner->prints(lastPage(node(2)));
    const auto list = provider->listPullRequests(ReviewerScope::any, {"octo/tools"}, {});
    EXPECT_EQ(list.pullRequests.size(), 2U);
    EXPECT_EQ(list.found, 3);
}

TEST_F(PullRequestSearch, tellsNoNumberWhenGitHubHandsOutAll)
{
    runner->prints(lastPage(node(1) + "," + node(2) + "," + node(3)));
    const auto list = provider->listPullRequests(ReviewerScope::any, {"octo/tools"}, {});
    EXPECT_EQ(list.pullRequests.size(), 3U);
    EXPECT_EQ(list.found, std::nullopt);
}

TEST_F(PullRequestSearch, countsHitsThatAreNotListedAsHandedOut)
{
    runner->prints(lastPage(node(1) + R"(, {}, )" + node(3, R"(, "state": "CLOSED")")));
    const auto list = provider->listPullRequests(ReviewerScope::any, {"octo/tools"}, {});
    EXPECT_EQ(list.pullRequests.size(), 1U);
    EXPECT_EQ(list.found, std::nullopt);
}

TEST_F(PullRequestSearch, namesItselfGitHub)
{
    EXPECT_EQ(provider->id(), "github");
    EXPECT_EQ(provider->displayName(), "GitHub");
}

TEST_F(PullRequestSearch, anEmptySelectionYieldsAnEmptyListWithoutRunningGh)
{
    EXPECT_THAT(load(ReviewerScope::any, {}), IsEmpty());
    EXPECT_THAT(runner->calls(), IsEmpty());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PullRequestSearch, aMissingGhIsReportedBeforeAnEmptySelection)
{
    provider = makeProvider(std::nullopt);
    EXPECT_EQ(
        messageOf<ProviderError>([this] { load(ReviewerScope::any, {}); }),
        "GitHub CLI (gh) was not found.");
    EXPECT_EQ(providerError(), "GitHub CLI (gh) was not found.");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PullRequestSearch, asksForTheSelectedRepositoriesOfTheScope)
{
    runner->prints(lastPage(""));
    EXPECT_THAT(load(ReviewerScope::myself, {"b/two", "a/one"}), IsEmpty());
    ASSERT_EQ(runner->calls().size(), 1U);
    EXPECT_EQ(runner->calls()[0].executable, "/opt/gh");
    const Arguments& arguments = runner->calls()[0].arguments;
    ASSERT_EQ(arguments.size(), 6U);
    EXPECT_EQ(
        arguments[5],
        "q=is:pr review-requested:@me is:open archived:false repo:a/one repo:b/two "
        "sort:updated-desc");
    EXPECT_EQ(runner->lastToken(), stop.get_token());
}

TEST_F(PullRequestSearch, scopeAnyHasNoReviewRequestedTerm)
{
    runner->prints(lastPage(""));
    load();
    EXPECT_EQ(
        runner->calls().at(0).arguments.at(5),
        "q=is:pr is:open archived:false repo:octo/tools sort:updated-desc");
}

TEST_F(PullRequestSearch, theSecondPageIsRequestedWithTheFirstOnesCursor)
{
    runner->prints(page("Y3Vyc29yOjUw", node(3)));
    runner->prints(lastPage(node(1) + "," + node(2)));
    EXPECT_THAT(loadNumbers(), ElementsAre(3, 1, 2));
    ASSERT_EQ(runner->calls().size(), 2U);
    Arguments expected = runner->calls()[0].arguments;
    ASSERT_EQ(expected.size(), 6U);
    expected.insert(expected.end(), {"-f", "cursor=Y3Vyc29yOjUw"});
    EXPECT_EQ(runner->calls()[1].arguments, expected);
}

TEST_F(PullRequestSearch, theCursorOfTheLastPageIsNotFollowed)
{
    runner->prints(R"({"data": {"search": {"pageInfo": {"hasNextPage": false, "endCursor": "x"},
        "nodes": []}}})");
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(PullRequestSearch, mergedAndClosedHitsAreNotInTheResult)
{
    runner->prints(lastPage(
        node(1, R"(, "state": "MERGED")") + "," + node(2, R"(, "state": "CLOSED")") + ","
        + node(3, R"(, "state": "OPEN")")));
    EXPECT_THAT(loadNumbers(), ElementsAre(3));
}

TEST_F(PullRequestSearch, hitsThatAreNoPullRequestAreDroppedAndDuplicatesStay)
{
    runner->prints(lastPage("{}," + node(1) + "," + node(1)));
    EXPECT_THAT(loadNumbers(), ElementsAre(1, 1));
}

TEST_F(PullRequestSearch, setsTheRequiredApprovalsOfTheBaseBranches)
{
    runner->prints(page("x", node(1, baseRef("B")) + "," + node(2)));
    runner->prints(lastPage(node(3, baseRef("A")) + "," + node(4, baseRef("B"))));
    runner->prints(rules("B", 2));
    std::vector<std::optional<std::int64_t>> counts;
    for (const PullRequest& pullRequest : load()) {
        counts.push_back(pullRequest.requiredApprovingReviewCount);
        EXPECT_EQ(pullRequest.id.host, "git.example");
    }
    EXPECT_THAT(counts, ElementsAre(2, std::nullopt, std::nullopt, 2));
    ASSERT_EQ(runner->calls().size(), 3U);
    const Arguments& arguments = runner->calls()[2].arguments;
    EXPECT_EQ(
        Arguments(arguments.begin() + 4, arguments.end()),
        (Arguments{"-F", "ids[]=A", "-F", "ids[]=B"}));
}

TEST_F(PullRequestSearch, aHitsOwnRuleCountsWhereTheRulesTellNothing)
{
    runner->prints(lastPage(
        node(1, R"(, "baseRef": {"id": "A", "refUpdateRule": {"requiredApprovingReviewCount": 4}})")
        + "," + node(2, R"(, "baseRef": {"refUpdateRule": {"requiredApprovingReviewCount": 5}})")));
    runner->prints(R"({"data": {"nodes": [null]}})");
    const auto loaded = load();
    ASSERT_EQ(loaded.size(), 2U);
    EXPECT_EQ(loaded[0].requiredApprovingReviewCount, 4);
    EXPECT_EQ(loaded[1].requiredApprovingReviewCount, 5);
}

TEST_F(PullRequestSearch, rulesAreLoadedForHitsThatAreDroppedToo)
{
    runner->prints(lastPage(R"({"baseRef": {"id": "A"}})"));
    runner->prints(rules("A", 1));
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(PullRequestSearch, rulesAreRememberedFrom1SearchToTheNextFor300Seconds)
{
    const std::string answer = lastPage(node(1, baseRef("A")));
    runner->prints(answer);
    runner->prints(rules("A", 1));
    EXPECT_EQ(load().at(0).requiredApprovingReviewCount, 1);
    wallTime += 299s;
    runner->prints(answer);
    EXPECT_EQ(load().at(0).requiredApprovingReviewCount, 1);
    wallTime += 1s;
    runner->prints(answer);
    runner->prints(rules("A", 2));
    EXPECT_EQ(load().at(0).requiredApprovingReviewCount, 2);
}

TEST_F(PullRequestSearch, everyProviderHasACacheOfItsOwn)
{
    for (const int count : {1, 2}) {
        provider = makeProvider();
        runner->prints(lastPage(node(1, baseRef("A"))));
        runner->prints(rules("A", count));
        EXPECT_EQ(load().at(0).requiredApprovingReviewCount, count);
    }
}

TEST_F(PullRequestSearch, aFailureOfTheRulesFailsTheSearch)
{
    runner->prints(lastPage(node(1, baseRef("A"))));
    runner->ends(1, "", "Field 'rules' doesn't exist on type 'Ref'\n");
    EXPECT_EQ(providerError(), "Field 'rules' doesn't exist on type 'Ref'\n");
    EXPECT_EQ(log.size(), 2U);
}

TEST_F(PullRequestSearch, writesItsStepsToTheLog)
{
    // White space after the document brings the answers to sizes that can be read here.
    const auto padded = [](std::string text, std::size_t size) {
        text.append(size - text.size(), ' ');
        return text;
    };
    const std::string first =
        padded(page("x", node(1, baseRef("A")) + "," + node(2, baseRef("B"))), 1000);
    const std::string second = padded(lastPage(node(3, baseRef("A"))), 700);
    const auto answerAfter = [this](std::chrono::nanoseconds time, std::string text) {
        runner->answer([this, time, text = std::move(text)] {
            steadyTime += time;
            return GitHub::CommandResult{0, text, ""};
        });
    };
    answerAfter(250ms, first);
    answerAfter(123'456'789ns, second);
    answerAfter(1s, rules("A", 1));
    load(ReviewerScope::myself);
    EXPECT_THAT(
        log,
        ElementsAre(
            "Tarnwick GitHub search: query=is:pr review-requested:@me is:open archived:false "
            "repo:octo/tools sort:updated-desc",
            "Tarnwick GitHub search: page=1 duration=0.25 seconds bytes=1000 nodes=2 matches=3 "
            "next=true",
            "Tarnwick GitHub search: page=2 duration=0.123456789 seconds bytes=700 nodes=1 "
            "matches=3 next=false",
            "Tarnwick GitHub search: total=1.373456789 seconds pages=2 nodes=3 "
            "uniqueBaseRefs=2"));
}

TEST_F(PullRequestSearch, logsMinusOneWhereGitHubTellsNoNumberOfMatches)
{
    runner->prints(R"({"data":{"search":{"pageInfo":{"hasNextPage":false},"nodes":[]}}})");
    load();
    ASSERT_EQ(log.size(), 3U);
    EXPECT_EQ(
        log[1],
        "Tarnwick GitHub search: page=1 duration=0 seconds bytes=65 nodes=0 matches=-1 "
        "next=false");
    EXPECT_EQ(log[2], "Tarnwick GitHub search: total=0 seconds pages=1 nodes=0 uniqueBaseRefs=0");
}

TEST_F(PullRequestSearch, aFailingGhGivesItsTrimmedStandardError)
{
    runner->ends(1, lastPage(""), "\n gh: Bad credentials (HTTP 401)\xFF \n");
    EXPECT_EQ(providerError(), "gh: Bad credentials (HTTP 401)\xEF\xBF\xBD");
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(PullRequestSearch, aFailingGhThatIsSilentGivesAFixedText)
{
    runner->ends(143, "", " \n");
    EXPECT_EQ(providerError(), "gh could not load pull requests.");
}

TEST_F(PullRequestSearch, aPageWithErrorsAndDataFailsWithTheErrorsMessages)
{
    runner->prints(page("x", node(1)));
    runner->prints(R"({"errors": [{"message": "Slow down"}, {"message": "Try later"}],
        "data": {"search": {"pageInfo": {"hasNextPage": false}, "nodes": []}}})");
    EXPECT_EQ(providerError(), "Slow down\nTry later");
    ASSERT_EQ(log.size(), 3U);
    EXPECT_EQ(log[2], "Tarnwick GitHub search: page=2 errors=2");
}

TEST_F(PullRequestSearch, anAnswerWithoutDataFails)
{
    for (const char* const answer : {"{}", R"({"data": null, "errors": []})"}) {
        runner->prints(answer);
        EXPECT_EQ(providerError(), "GitHub returned no pull-request data.");
    }
}

TEST_F(PullRequestSearch, aPageWithoutContinuationCursorFails)
{
    runner->prints(R"({"data": {"search": {"pageInfo": {"hasNextPage": true}, "nodes": []}}})");
    EXPECT_EQ(providerError(), "GitHub returned a page without a continuation cursor.");
    EXPECT_EQ(log.size(), 2U);
}

TEST_F(PullRequestSearch, aTimeOutIsPassedOn)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(providerError(), "GitHub CLI request timed out.");
}

TEST_F(PullRequestSearch, unreadableAnswersAreDecodingErrorsWithThePath)
{
    const auto pathFor = [this](const std::string& answer) {
        runner->prints(answer);
        return pathOf([this] { load(); });
    };
    EXPECT_EQ(pathFor(""), "");
    EXPECT_EQ(pathFor(lastPage(node(1)).substr(0, 200)), "");
    EXPECT_EQ(pathFor("\xFF"), "");
    EXPECT_EQ(pathFor(std::string(100'000, '[')), "");
    EXPECT_EQ(pathFor(lastPage("null")), "data.search.nodes[0]");
    EXPECT_EQ(pathFor(lastPage(R"({}, {}, {}, {"number": "7"})")), "data.search.nodes[3].number");
}

TEST_F(PullRequestSearch, cancellationBeforeTheFirstRunRunsNothing)
{
    stop.request_stop();
    EXPECT_THROW(load(), CancellationError);
    EXPECT_THAT(runner->calls(), IsEmpty());
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(PullRequestSearch, cancellationBetweenPagesEndsTheSearch)
{
    runner->answer([this] {
        stop.request_stop();
        return GitHub::CommandResult{0, page("x", node(1)), ""};
    });
    EXPECT_THROW(load(), CancellationError);
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(PullRequestSearch, cancellationInsideARunIsPassedOn)
{
    runner->fails(CancellationError());
    EXPECT_THROW(load(), CancellationError);
}

}  // namespace
