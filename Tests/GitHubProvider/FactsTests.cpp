#include "GitHubProvider/Facts.h"

#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"
#include "Support/PullRequests.h"

#include <boost/json.hpp>
#include <system_error>

namespace {

using namespace TestSupport;

std::vector<PullRequest> pullRequests(int count)
{
    std::vector<PullRequest> list;
    for (int number = 1; number <= count; ++number) {
        list.push_back(makePullRequest(number));
        list.back().id.host = "git.example";
    }
    return list;
}

/// An answer with the least facts of so many rows and, when more than 0, what remains of 5,000.
std::string answer(int rows, int remaining = 0)
{
    std::string data;
    for (int place = 0; place < rows; ++place) {
        data += "\"p" + std::to_string(place)
                + R"(":{"nameWithOwner":"octo/tools","pullRequest":{"headRefOid":"abc",)"
                  R"("reviewDecision":null,"reviewThreads":{"totalCount":0,"nodes":[]}}},)";
    }
    const std::string quota = R"({"cost":1,"limit":5000,"remaining":)" + std::to_string(remaining)
                              + R"(,"resetAt":"2024-05-01T14:20:00Z"})";
    return R"({"data":{)" + data + R"("rateLimit":)" + (remaining > 0 ? quota : "null") + "}}";
}

std::string unknownField(const std::string& name)
{
    return R"({"errors":[{"path":["fragment facts",")" + name + R"("],"message":"Field ')" + name
           + R"(' doesn't exist on type 'PullRequest'"}]})";
}

class FactsTest : public ProviderTest {
protected:
    FactsAnswer ask(int count) { return provider->facts(pullRequests(count), stop.get_token()); }

    /// How many rows each request asked for.
    std::vector<std::size_t> rowsAsked() const
    {
        std::vector<std::size_t> rows;
        for (const auto& arguments : runner->argumentLists()) {
            std::size_t count = 0;
            const std::string& document = arguments.at(3);
            for (std::size_t place = document.find("nameWithOwner"); place != std::string::npos;
                 place = document.find("nameWithOwner", place + 1)) {
                ++count;
            }
            rows.push_back(count);
        }
        return rows;
    }

    bool lastAskedFor(const std::string& field) const
    {
        return runner->calls().back().arguments.at(3).find("  " + field) != std::string::npos;
    }
};

TEST_F(FactsTest, areAskedForFiftyAtATime)
{
    runner->prints(answer(50, 400));
    runner->prints(answer(50, 312));
    runner->prints(answer(20));
    const FactsAnswer facts = ask(120);
    EXPECT_EQ(facts.facts.size(), 120U);
    EXPECT_THAT(rowsAsked(), ElementsAre(50, 50, 20));
    EXPECT_EQ(facts.quota, (Quota{5000, 312, date("2024-05-01T14:20:00Z")}));
    EXPECT_FALSE(facts.hitSecondaryLimit);
    EXPECT_EQ(runner->lastToken(), stop.get_token());
    const PullRequestFacts& first = facts.facts.at(pullRequests(1)[0].id);
    EXPECT_EQ(first.askedAt, std::chrono::floor<std::chrono::seconds>(wallTime));
    EXPECT_EQ(first.updatedAt, pullRequests(1)[0].updatedAt);
}

TEST_F(FactsTest, ofAThousandTakeTwentyRequests)
{
    for (int request = 0; request < 20; ++request) {
        runner->prints(answer(50));
    }
    EXPECT_EQ(ask(1000).facts.size(), 1000U);
}

TEST_F(FactsTest, ofNothingAndOfOtherHostsAreNotAskedFor)
{
    EXPECT_THAT(ask(0).facts, IsEmpty());
    EXPECT_THAT(provider->facts(std::vector{makePullRequest(1)}, {}).facts, IsEmpty());
    EXPECT_THAT(runner->calls(), IsEmpty());
}

TEST_F(FactsTest, areNotAskedForWithoutGh)
{
    provider = makeProvider(std::nullopt);
    EXPECT_THAT(ask(120).facts, IsEmpty());
    EXPECT_EQ(looks, 1);
}

TEST_F(FactsTest, countAlsoInAnAnswerWithErrors)
{
    std::string text = answer(2);
    text.insert(text.size() - 1, R"(,"errors":[{"type":"NOT_FOUND","message":"no such"}])");
    runner->ends(1, text, "gh: no such");
    EXPECT_EQ(ask(3).facts.size(), 2U);
}

TEST_F(FactsTest, areAskedForAgainInSmallerPartsAfterAFailure)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    runner->prints(answer(25));
    runner->ends(1, "", "gh: HTTP 502");
    runner->prints(answer(10));
    const FactsAnswer facts = ask(60);
    EXPECT_THAT(rowsAsked(), ElementsAre(50, 25, 25, 10));
    EXPECT_EQ(facts.facts.size(), 35U);
}

TEST_F(FactsTest, restAfterTwoBatchesOfWhichNothingCame)
{
    runner->prints("<html>");
    runner->fails(ProviderError("GitHub CLI request timed out."));
    runner->ends(1, "", "gh: HTTP 502");
    runner->prints(R"({"data":null})");
    runner->fails(std::system_error(std::make_error_code(std::errc::argument_list_too_long)));
    runner->prints("");
    EXPECT_THAT(ask(1000).facts, IsEmpty());
    EXPECT_THAT(rowsAsked(), ElementsAre(50, 25, 25, 50, 25, 25));
}

TEST_F(FactsTest, leaveOutFromThenOnWhatTheHostDoesNotKnow)
{
    runner->ends(1, unknownField("stack"), "gh: Field 'stack' doesn't exist");
    runner->prints(answer(2));
    EXPECT_EQ(ask(2).facts.size(), 2U);
    EXPECT_FALSE(lastAskedFor("stack {"));
    EXPECT_TRUE(lastAskedFor("stackEntry {"));
    runner->prints(answer(1));
    EXPECT_EQ(ask(1).facts.size(), 1U);
    EXPECT_FALSE(lastAskedFor("stack {"));
    EXPECT_THAT(rowsAsked(), ElementsAre(2, 2, 1));
}

TEST_F(FactsTest, endAskingWhenTheHostGoesOnRefusingWhatWasLeftOut)
{
    for (int request = 0; request < 3; ++request) {
        runner->ends(1, unknownField("stack"), "");
    }
    EXPECT_THAT(ask(2).facts, IsEmpty());
    EXPECT_THAT(rowsAsked(), ElementsAre(2, 2, 2));
}

TEST_F(FactsTest, thereAreNoneOfAHostThatDoesNotKnowThreads)
{
    runner->ends(1, unknownField("reviewThreads"), "");
    EXPECT_THAT(ask(120).facts, IsEmpty());
    EXPECT_THAT(ask(120).facts, IsEmpty());
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(FactsTest, endAtOnceAtALimit)
{
    runner->prints(answer(50));
    runner->ends(
        1,
        R"({"message":"You have exceeded a secondary rate limit."})",
        "gh: You have exceeded a secondary rate limit. Please wait. (HTTP 403)");
    const FactsAnswer facts = ask(1000);
    EXPECT_EQ(facts.facts.size(), 50U);
    EXPECT_TRUE(facts.hitSecondaryLimit);
    runner->ends(
        1,
        R"({"errors":[{"type":"RATE_LIMITED","message":"API rate limit exceeded for user ID 7."}]})",
        "gh: API rate limit exceeded for user ID 7.");
    EXPECT_FALSE(ask(1000).hitSecondaryLimit);
    EXPECT_EQ(runner->calls().size(), 3U);
}

TEST_F(FactsTest, endWhenTheyAreCancelled)
{
    runner->fails(CancellationError());
    EXPECT_THROW(ask(2), CancellationError);
    stop.request_stop();
    EXPECT_THROW(ask(2), CancellationError);
    EXPECT_EQ(runner->calls().size(), 1U);
}

TEST_F(FactsTest, passOnNoOtherError)
{
    runner->fails(std::runtime_error("anything"));
    runner->fails(std::bad_alloc());
    EXPECT_THAT(ask(2).facts, IsEmpty());
}

class SecondaryLimit : public ProviderTest {
protected:
    const std::string text =
        "gh: You have exceeded a secondary rate limit. Please wait a few minutes. (HTTP 403)";
};

TEST_F(SecondaryLimit, isToldOfEachRequestWithTheWordsOfGitHub)
{
    runner->ends(1, "", text);
    EXPECT_EQ(
        messageOf<SecondaryLimitError>(
            [this] { provider->pullRequests(ReviewerScope::any, {"octo/tools"}, {}); }),
        text);
    runner->ends(1, "", text);
    EXPECT_EQ(messageOf<SecondaryLimitError>([this] { provider->repositories({}); }), text);
    runner->prints(
        R"({"errors":[{"message":"You have exceeded a secondary rate limit and have been paused"}]})");
    EXPECT_EQ(
        messageOf<SecondaryLimitError>(
            [this] { provider->pullRequests(ReviewerScope::any, {"octo/tools"}, {}); }),
        "You have exceeded a secondary rate limit and have been paused");
}

TEST_F(SecondaryLimit, isNoneOfTheOtherFailures)
{
    runner->ends(1, "", "gh: API rate limit exceeded for user ID 7. (HTTP 403)");
    try {
        provider->repositories({});
        FAIL() << "no error";
    } catch (const SecondaryLimitError& error) {
        FAIL() << error.what();
    } catch (const ProviderError& error) {
        EXPECT_EQ(error.message(), "gh: API rate limit exceeded for user ID 7. (HTTP 403)");
    }
}

}  // namespace
