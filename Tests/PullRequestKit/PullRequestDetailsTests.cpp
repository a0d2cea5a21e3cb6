#include "PullRequestKit/PullRequestDetails.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

PullRequestDetails waitingFor(std::string user)
{
    PullRequestDetails details;
    details.requestedUsers.push_back(std::move(user));
    return details;
}

PullRequest updatedAt(std::int64_t number, std::string_view instant)
{
    return with(makePullRequest(number), &PullRequest::updatedAt, date(instant));
}

TEST(PullRequestDetails, areKeyedByTheIdentity)
{
    const std::vector pullRequests{makePullRequest(1), makePullRequest(2)};
    const DetailsByID details = detailsByID(pullRequests, {waitingFor("ada"), waitingFor("bo")});
    ASSERT_EQ(details.size(), 2U);
    EXPECT_EQ(details.at(pullRequests[0].id), waitingFor("ada"));
    EXPECT_EQ(details.at(pullRequests[1].id), waitingFor("bo"));
}

TEST(PullRequestDetails, ofAnIdentityThatOccursTwiceAreThoseOfTheVersionThatIsKept)
{
    const std::vector pullRequests{
        updatedAt(1, "2024-05-01T10:00:00Z"),
        updatedAt(2, "2024-05-01T10:00:00Z"),
        updatedAt(1, "2024-05-01T11:00:00Z"),
        updatedAt(2, "2024-05-01T10:00:00Z"),
        updatedAt(1, "2024-05-01T10:30:00Z")};
    const DetailsByID details = detailsByID(
        pullRequests,
        {waitingFor("old"),
         waitingFor("first"),
         waitingFor("latest"),
         waitingFor("second"),
         waitingFor("between")});
    ASSERT_EQ(details.size(), 2U);
    EXPECT_EQ(details.at(pullRequests[0].id), waitingFor("latest"));
    EXPECT_EQ(details.at(pullRequests[1].id), waitingFor("first"));
}

TEST(PullRequestDetails, ofAnIdentityThatOccursTwiceAskForTheUserWhenOneOfThemDoes)
{
    PullRequestDetails asking;
    asking.asksForUser = true;
    for (const bool isFirst : {true, false}) {
        const std::vector pullRequests{
            updatedAt(1, "2024-05-01T10:00:00Z"), updatedAt(1, "2024-05-01T11:00:00Z")};
        const DetailsByID details = detailsByID(
            pullRequests,
            {isFirst ? asking : waitingFor("old"), isFirst ? waitingFor("new") : asking});
        EXPECT_TRUE(details.at(pullRequests[0].id).asksForUser);
    }
}

TEST(PullRequestDetails, areMissingWhereTheServiceTellsNone)
{
    EXPECT_TRUE(detailsByID(std::vector{makePullRequest(1)}, {}).empty());
}

TEST(PullRequestDetails, areCutOffWhenOneOfTheListsIs)
{
    PullRequestDetails details;
    EXPECT_FALSE(details.isCutOff());
    details.checkLimit = 100;
    EXPECT_TRUE(details.isCutOff());
}

TEST(PullRequestDetails, shareTheTextsOfTheirNames)
{
    SharedTexts texts;
    const SharedText first = texts.share("test suite / shard 1 of many");
    const SharedText second = texts.share(std::string("test suite / shard 1 of many"));
    EXPECT_EQ(&first.text(), &second.text());
    EXPECT_EQ(first, SharedText("test suite / shard 1 of many"));
    EXPECT_NE(first, texts.share("test suite / shard 2 of many"));
    EXPECT_EQ(SharedText(), SharedText(""));
}

}  // namespace
