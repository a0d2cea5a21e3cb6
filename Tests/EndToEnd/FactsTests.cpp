#include "ProviderTest.h"

#include <algorithm>

namespace {

using namespace TestSupport;
using SampleGitHub::RequestKind;

/// The facts of pull requests, through the real `gh`.
class Facts : public ProviderTest {
protected:
    /// What the signed-in user has a part in.
    std::vector<PullRequest> involved(const GitHub::GitHubProvider& asked) const
    {
        return asked.pullRequests(
            ReviewerScope::involved,
            {"northmere/quay",
             "saltmarsh/tidewatch",
             "saltmarsh/beacon",
             "fenland/compass",
             "northmere/beacon"},
            {});
    }

    static PullRequestFacts factsOf(
        const FactsAnswer& answer, const std::string& repository, std::int64_t number)
    {
        const auto found = answer.facts.find({"github", "github.com", repository, number});
        EXPECT_NE(found, answer.facts.end()) << repository << "#" << number;
        return found != answer.facts.end() ? found->second : PullRequestFacts();
    }
};

TEST_F(Facts, areThereForEverythingThatIsListed)
{
    serveHere("involved");
    const auto asked = provider();
    const auto listed = involved(asked);
    ASSERT_THAT(listed, SizeIs(30));
    EXPECT_THAT(requests(RequestKind::search), SizeIs(3));
    const FactsAnswer answer = asked.facts(listed, {});
    EXPECT_THAT(answer.facts, SizeIs(30));
    EXPECT_THAT(requests(RequestKind::facts), SizeIs(1));
    EXPECT_EQ(answer.quota, (Quota{5000, 5000, *parseDate("2026-03-01T13:00:00Z")}));

    const auto stacked = factsOf(answer, "northmere/quay", 485);
    EXPECT_EQ(stacked.stackPlace, (StackPlace{7, 2, 3}));
    EXPECT_EQ(stacked.ownReview->verdict, ReviewVerdict::dismissed);
    EXPECT_EQ(stacked.reviewDecision, ReviewDecision::reviewRequired);
    const auto reviewed = factsOf(answer, "saltmarsh/beacon", 95);
    EXPECT_EQ(reviewed.ownReview->commit, reviewed.headCommit);
    EXPECT_EQ(reviewed.ownReview->submittedAt, parseDate("2026-02-27T12:00:00Z"));
    EXPECT_EQ(factsOf(answer, "fenland/compass", 33).ownReview->commit, std::nullopt);
    EXPECT_EQ(factsOf(answer, "northmere/quay", 459).mergeQueuePosition, 2);
    EXPECT_TRUE(factsOf(answer, "saltmarsh/tidewatch", 1190).isAutoMergeEnabled);
    EXPECT_EQ(factsOf(answer, "northmere/quay", 455).threadCount, 231);
    EXPECT_EQ(factsOf(answer, "northmere/quay", 486).openThreadCount, 3);
}

TEST_F(Facts, ofAThousandTakeTwentyRequests)
{
    serveHere("large");
    std::vector<PullRequest> listed;
    for (const SampleGitHub::PullRequest& one : SampleGitHub::loadScenario("large").pullRequests) {
        PullRequest pullRequest;
        pullRequest.id = {"github", "github.com", one.repository, one.number};
        listed.push_back(pullRequest);
    }
    EXPECT_THAT(provider().facts(listed, {}).facts, SizeIs(1000));
    EXPECT_THAT(requests(RequestKind::facts), SizeIs(20));
}

TEST_F(Facts, doWithoutAFieldThatTheHostDoesNotKnow)
{
    gitHubOptions().withoutFields = {"stack", "stackEntry", "rateLimit"};
    serveHere("involved");
    const auto asked = provider();
    const auto listed = involved(asked);
    const FactsAnswer answer = asked.facts(listed, {});
    EXPECT_THAT(answer.facts, SizeIs(30));
    EXPECT_EQ(factsOf(answer, "northmere/quay", 485).stackPlace, std::nullopt);
    EXPECT_EQ(answer.quota, std::nullopt);
    asked.facts(listed, {});
    EXPECT_THAT(requests(RequestKind::facts), SizeIs(3)) << "the field is left out from then on";
}

TEST_F(Facts, belongToTheNameThatARepositoryHasNow)
{
    serveHere("involved");
    PullRequest pullRequest;
    pullRequest.id = {"github", "github.com", "saltmarsh/tide-watch", 1214};
    const FactsAnswer answer = provider().facts(std::vector{pullRequest}, {});
    ASSERT_THAT(answer.facts, SizeIs(1));
    EXPECT_EQ(answer.facts.begin()->first.repository, "saltmarsh/tidewatch");
}

TEST_F(Facts, ofWhatIsGoneAreMissingBesideTheOthers)
{
    serveHere("involved");
    std::vector<PullRequest> listed(3);
    listed[0].id = {"github", "github.com", "northmere/quay", 482};
    listed[1].id = {"github", "github.com", "northmere/quay", 4};
    listed[2].id = {"github", "github.com", "no\"{/\\such", 482};
    EXPECT_THAT(provider().facts(listed, {}).facts, SizeIs(1));
}

/// What a fault of the first of the requests leaves of the thirty, and how many are made.
struct Damage {
    std::string fault;
    std::size_t facts = 0;
    std::size_t requests = 0;
};

void PrintTo(const Damage& damage, std::ostream* stream)
{
    *stream << damage.fault;
}

class SpoiltFacts
    : public Facts
    , public testing::WithParamInterface<Damage> {};

TEST_P(SpoiltFacts, costNoneThatAreNotSpoilt)
{
    serveHere("involved");
    const auto asked = provider();
    const auto listed = involved(asked);
    setFault(GetParam().fault);
    EXPECT_THAT(asked.facts(listed, {}).facts, SizeIs(GetParam().facts));
    EXPECT_THAT(requests(RequestKind::facts), SizeIs(GetParam().requests));
}

INSTANTIATE_TEST_SUITE_P(
    ByFault,
    SpoiltFacts,
    testing::Values(
        Damage{"server-error@facts#1", 30, 3},
        Damage{"server-error@facts", 0, 3},
        Damage{"server-error@facts#2", 30, 1},
        Damage{"errors@facts", 30, 1},
        Damage{"errors-only@facts#1", 30, 3},
        Damage{"missing-data@facts#1", 30, 3},
        Damage{"hang-up@facts#1", 30, 3},
        Damage{"cut-off@facts#1", 30, 3},
        Damage{"truncated@facts#1", 30, 3},
        Damage{"empty-body@facts#1", 30, 3},
        Damage{"not-json@facts#1", 30, 3},
        Damage{"deep@facts#1", 30, 3},
        Damage{"wrong-type@facts", 29, 1},
        Damage{"null-nodes@facts", 0, 1},
        Damage{"rate-limit@facts", 0, 1},
        Damage{"secondary-limit@facts", 0, 1},
        Damage{"unauthorized@facts#1", 30, 3}));

TEST_F(Facts, ofAnotherRepositoryAreNoneOfTheList)
{
    serveHere("involved");
    const auto asked = provider();
    const auto listed = involved(asked);
    setFault("foreign-nodes@facts");
    const FactsAnswer answer = asked.facts(listed, {});
    for (const PullRequest& pullRequest : listed) {
        EXPECT_FALSE(answer.facts.contains(pullRequest.id)) << pullRequest.title;
    }
}

TEST_F(Facts, tellOfTheSecondaryLimit)
{
    serveHere("involved");
    const auto asked = provider();
    const auto listed = involved(asked);
    setFault("secondary-limit");
    EXPECT_TRUE(asked.facts(listed, {}).hitSecondaryLimit);
    EXPECT_THROW(involved(asked), SecondaryLimitError);
}

}  // namespace
