#include "TarnwickDirect/CommandLine/ListJson.h"

#include "Fakes/ModelFixture.h"
#include "Support/PullRequests.h"
#include "Tarnwick/Async/RunUntilDone.h"

#include <boost/json.hpp>
#include <sstream>

namespace {

using namespace TestSupport;

class ListJson : public ModelTest {
protected:
    void SetUp() override { selectTools(); }

    std::string text(ArrangedRows list = {}) const
    {
        list.rows = model->rows();
        std::ostringstream text;
        TarnwickDirect::writeListJson(text, *model, list);
        return text.str();
    }

    boost::json::object written()
    {
        startAndRefresh();
        return boost::json::parse(text()).as_object();
    }
};

/// The text with the direction mark that stands for "RTL" in it.
std::string withMark(std::string text)
{
    return text.replace(text.find("RTL"), 3, "\u202E");
}

std::string messageOf(const boost::json::object& list)
{
    return std::string(list.at("message").as_string());
}

TEST_F(ListJson, hasTheMessageOfEachStateThatHasOneEvenAnEmptyOne)
{
    for (const std::string message : {"", "What happened."}) {
        provider->setStatus(NotAuthenticated{message});
        EXPECT_EQ(written().at("state"), "signedOut");
        EXPECT_EQ(messageOf(written()), message);
        provider->setStatus(Unavailable{message});
        EXPECT_EQ(written().at("state"), "unavailable");
        EXPECT_EQ(messageOf(written()), message);
    }
    provider->setStatus(Authenticated{});
    provider->setError("HTTP 500");
    EXPECT_EQ(written().at("state"), "failed");
    EXPECT_EQ(messageOf(written()), "HTTP 500");
}

TEST_F(ListJson, hasNoMessageWhenTheListIsLoaded)
{
    const auto list = written();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_FALSE(list.contains("message"));
}

TEST_F(ListJson, tellsTheNamesBehindTheCounts)
{
    PullRequestDetails details;
    details.requestedUsers = {"mara"};
    details.requestedTeams = {"platform", "\u202Edocs"};
    details.reviews = {{"noa-b", ReviewVerdict::changesRequested}};
    details.passedChecks = {"build", "lint"};
    details.runningChecks = {"audit"};
    details.failedChecks = {"test"};
    details.checkLimit = 100;
    provider->setPullRequests({makePullRequest(1)});
    provider->setDetails({details});
    startAndRefresh();
    const std::string expected = R"("isVisited":false,"details":{"requested":{"users":["mara"],)"
                                 R"("teams":["platform","RTLdocs"]},)"
                                 R"("reviews":[{"author":"noa-b","state":"changesRequested"}],)"
                                 R"("checks":{"passed":2,"running":["audit"],"failed":["test"]},)"
                                 R"("isCutOff":true}}],"hidden":{"filters":0,"muted":0}})";
    EXPECT_THAT(text(), HasSubstr(withMark(expected)));
}

TEST_F(ListJson, tellsNoNamesWhereNoneAreKnown)
{
    provider->setPullRequests({makePullRequest(1)});
    startAndRefresh();
    EXPECT_THAT(text(), HasSubstr(R"("isVisited":false,"details":null}],"hidden")"));
}

TEST_F(ListJson, tellsTurnAndReasonBeforeTheNamesByWhoseTurn)
{
    provider->setPullRequests({makePullRequest(1), makePullRequest(2), makePullRequest(3)});
    startAndRefresh();
    ArrangedRows list;
    list.turns = {
        {Whose::you, TurnReason::changesRequested, {"noa-b", "\u202Emara"}},
        {Whose::teams, TurnReason::teamReview, {"platform"}},
        {Whose::others}};
    const std::string written = text(list);
    const std::string expected =
        R"("isVisited":false,"turn":"you","reason":"Changes requested: noa-b, RTLmara","details":)";
    EXPECT_THAT(written, HasSubstr(withMark(expected)));
    EXPECT_THAT(
        written, HasSubstr(R"("turn":"teams","reason":"Your team’s review: platform","details":)"));
    EXPECT_THAT(written, HasSubstr(R"("turn":"others","details":)"));
}

TEST_F(ListJson, countsWhatIsHidden)
{
    const auto draft = with(makePullRequest(2), &PullRequest::isDraft, true);
    provider->setPullRequests({makePullRequest(1), draft});
    EXPECT_EQ(written().at("hidden"), (boost::json::object{{"filters", 1}, {"muted", 0}}));
}

TEST_F(ListJson, tellsTheQuotaOnceItIsKnown)
{
    provider->setPullRequests({makePullRequest(1)});
    provider->setFacts(
        [](auto) { return FactsAnswer{{}, Quota{5000, 312, date("2024-05-01T14:20:00Z")}}; });
    EXPECT_FALSE(written().contains("quota"));
    Tarnwick::runUntilDone(model->askForFacts());
    EXPECT_THAT(
        text(),
        EndsWith(R"(,"quota":{"remaining":312,"limit":5000,"resetAt":"2024-05-01T14:20:00Z"}})"
                 "\n"));
}

}  // namespace
