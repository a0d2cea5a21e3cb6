#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

PullRequest example()
{
    auto pullRequest = makePullRequest(7);
    pullRequest.id = {"github", "github.com", "octo/tools", 7};
    pullRequest.title = "Fix it";
    pullRequest.url = {"https://github.com/octo/tools/pull/7"};
    pullRequest.updatedAt = date("2024-05-01T12:00:00Z");
    return pullRequest;
}

TEST(NotificationRequest, saysWhatHappenedToThePullRequest)
{
    const auto request =
        SystemPullRequestNotifier::request(example(), "unblocked", "Pull request unblocked");
    EXPECT_EQ(request.title, "Fix it");
    EXPECT_EQ(request.subtitle, "Pull request unblocked");
    EXPECT_EQ(request.sound, "message-new-instant");
    EXPECT_EQ(request.threadIdentifier, "tarnwick.pull-requests");
    EXPECT_THAT(
        request.userInfo,
        ElementsAre(Pair("pullRequestURL", "https://github.com/octo/tools/pull/7")));
    EXPECT_EQ(request.identifier, "unblocked-github|github.com|octo/tools|7-1714564800.0");
}

TEST(NotificationRequest, endsItsIdentifierInADecimalNumberAlsoAtSecondZero)
{
    auto pullRequest = example();
    pullRequest.updatedAt = {};
    EXPECT_EQ(
        SystemPullRequestNotifier::request(pullRequest, "new", "New pull request").identifier,
        "new-github|github.com|octo/tools|7-0.0");
}

TEST(NotificationRequest, hasAnotherIdentifierOnceThePullRequestChanges)
{
    auto changed = example();
    changed.updatedAt += std::chrono::seconds(1);
    EXPECT_NE(
        SystemPullRequestNotifier::request(example(), "new", "").identifier,
        SystemPullRequestNotifier::request(changed, "new", "").identifier);
}

TEST(NotificationAuthorization, followsFromWhatTheBusSaysOfAServer)
{
    EXPECT_EQ(
        authorizationOf(NotificationServerStatus::running), NotificationAuthorization::authorized);
    EXPECT_EQ(
        authorizationOf(NotificationServerStatus::startable),
        NotificationAuthorization::authorized);
    EXPECT_EQ(authorizationOf(NotificationServerStatus::absent), NotificationAuthorization::denied);
    EXPECT_EQ(
        authorizationOf(NotificationServerStatus::unknown), NotificationAuthorization::denied);
}

}  // namespace
