#include "Tarnwick/Interface/List/RowWording.h"

#include "Support/PullRequests.h"

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

PullRequest inState(PullRequestState state, bool isDraft = false)
{
    PullRequest pullRequest = makePullRequest(1);
    pullRequest.state = state;
    pullRequest.isDraft = isDraft;
    return pullRequest;
}

QString ageAt(std::string_view instant, std::string_view now, const QByteArray& zone = "UTC")
{
    return RowWording::age(date(instant), date(now), QTimeZone(zone));
}

TEST(RowWording, describesTheStateByItsCapitalisedWord)
{
    EXPECT_EQ(
        RowWording::stateDescription(inState(PullRequestState::open)), u"Open pull request"_s);
    EXPECT_EQ(
        RowWording::stateDescription(inState(PullRequestState::closed)), u"Closed pull request"_s);
    EXPECT_EQ(
        RowWording::stateDescription(inState(PullRequestState::merged)), u"Merged pull request"_s);
}

TEST(RowWording, describesAClosedDraftAsADraft)
{
    EXPECT_EQ(
        RowWording::stateDescription(inState(PullRequestState::closed, true)),
        u"Draft pull request"_s);
}

TEST(RowWording, helpOfTheStateSaysStackedForEveryRowOfAStack)
{
    const PullRequest open = inState(PullRequestState::open);
    EXPECT_EQ(RowWording::stateToolTip({open, 0, false, {}}), u"Open pull request"_s);
    EXPECT_EQ(RowWording::stateToolTip({open, 0, true, {}}), u"Stacked Open pull request"_s);
    EXPECT_EQ(RowWording::stateToolTip({open, 2, false, {}}), u"Stacked Open pull request"_s);
}

TEST(RowWording, hasAPhraseForEveryReviewState)
{
    EXPECT_EQ(RowWording::reviewPhrase(ReviewState::none), u"No reviewers"_s);
    EXPECT_EQ(RowWording::reviewPhrase(ReviewState::pending), u"Reviews pending"_s);
    EXPECT_EQ(RowWording::reviewPhrase(ReviewState::approved), u"All reviews approved"_s);
    EXPECT_EQ(RowWording::reviewPhrase(ReviewState::commented), u"Reviews commented"_s);
    EXPECT_EQ(RowWording::reviewPhrase(ReviewState::changesRequested), u"Changes requested"_s);
}

TEST(RowWording, readsTheRowAsOneSentence)
{
    PullRequest pullRequest = inState(PullRequestState::open);
    pullRequest.title = "Fix login";
    pullRequest.mergeability = PullRequestMergeability::conflicting;
    pullRequest.reviewState = ReviewState::changesRequested;
    pullRequest.checks = {2, 3, 0};
    EXPECT_EQ(
        RowWording::accessibilityLabel(pullRequest),
        u"Fix login, Open pull request, merge conflict, Changes requested, 2/3 checks"_s);
}

TEST(RowWording, readsNothingOfConflictsWhereThereIsNone)
{
    PullRequest pullRequest = inState(PullRequestState::merged);
    pullRequest.title = "Fix login";
    pullRequest.mergeability = PullRequestMergeability::unknown;
    EXPECT_EQ(
        RowWording::accessibilityLabel(pullRequest),
        u"Fix login, Merged pull request, No reviewers, 0/0 checks"_s);
}

TEST(RowWording, helpOfTheBadgesExplainsTheirCounts)
{
    PullRequest pullRequest = makePullRequest(1);
    EXPECT_EQ(RowWording::reviewToolTip(pullRequest, nullptr), u"Completed/Total Reviewers"_s);
    pullRequest.requiredApprovingReviewCount = 2;
    EXPECT_EQ(
        RowWording::reviewToolTip(pullRequest, nullptr), u"Completed/Required/Total Reviewers"_s);
    EXPECT_EQ(RowWording::checkToolTip(pullRequest, nullptr), u"Checks passed / total checks"_s);
    EXPECT_EQ(RowWording::conflictToolTip, u"Merge conflict"_s);
    EXPECT_EQ(RowWording::openToolTip, u"Opens this pull request in your browser"_s);
}

TEST(RowWording, helpOfTheBadgesSaysBelowWhatTheCountsConsistOf)
{
    PullRequest pullRequest = makePullRequest(1);
    pullRequest.checks = {.completed = 1, .total = 2, .failed = 1};
    PullRequestDetails details;
    details.failedChecks = {"lint"};
    details.reviews = {{"mara", ReviewVerdict::approved}};
    EXPECT_EQ(
        RowWording::reviewToolTip(pullRequest, &details),
        u"Completed/Total Reviewers\nApproved: \u2068mara\u2069"_s);
    EXPECT_EQ(
        RowWording::checkToolTip(pullRequest, &details),
        u"Checks passed / total checks\n1 of 2 passed\nFailed: \u2068lint\u2069"_s);
}

TEST(RowWording, aScreenReaderHearsWhatTheCountsConsistOfAfterTheQuietLine)
{
    PullRequest pullRequest = makePullRequest(1);
    pullRequest.checks = {.completed = 2, .total = 2};
    const RowWording::Details line{
        .reason = {},
        .owner = u"octo/"_s,
        .repository = u"tools"_s,
        .number = u"#1"_s,
        .author = {},
        .age = u"3h"_s};
    EXPECT_EQ(
        RowWording::accessibilityDescription(line, {}, pullRequest, nullptr),
        u"octo/tools #1 · 3h"_s);
    PullRequestDetails details;
    details.reviews = {{"mara", ReviewVerdict::approved}};
    EXPECT_EQ(
        RowWording::accessibilityDescription(line, {}, pullRequest, &details),
        u"octo/tools #1 · 3h. Approved: \u2068mara\u2069. 2 of 2 passed"_s);
}

TEST(RowWording, agesGrowFromNowToWeeks)
{
    const char* const now = "2025-06-20T12:00:00Z";
    EXPECT_EQ(ageAt("2025-06-20T11:59:01Z", now), u"now"_s);
    EXPECT_EQ(ageAt("2025-06-20T11:59:00Z", now), u"1m"_s);
    EXPECT_EQ(ageAt("2025-06-20T11:12:00Z", now), u"48m"_s);
    EXPECT_EQ(ageAt("2025-06-20T11:00:01Z", now), u"59m"_s);
    EXPECT_EQ(ageAt("2025-06-20T09:00:00Z", now), u"3h"_s);
    EXPECT_EQ(ageAt("2025-06-19T12:00:01Z", now), u"23h"_s);
    EXPECT_EQ(ageAt("2025-06-14T12:00:00Z", now), u"6d"_s);
    EXPECT_EQ(ageAt("2025-06-13T12:00:00Z", now), u"1w"_s);
    EXPECT_EQ(ageAt("2025-05-23T12:00:01Z", now), u"3w"_s);
}

TEST(RowWording, agesOfFourWeeksAndMoreAreDaysAndThenMonths)
{
    const char* const now = "2025-06-20T12:00:00Z";
    EXPECT_EQ(ageAt("2025-05-23T12:00:00Z", now), u"23 May"_s);
    EXPECT_EQ(ageAt("2025-03-12T08:00:00Z", now), u"12 Mar"_s);
    EXPECT_EQ(ageAt("2025-01-01T00:00:00Z", now), u"1 Jan"_s);
    EXPECT_EQ(ageAt("2024-12-31T23:59:59Z", now), u"Dec 2024"_s);
    EXPECT_EQ(ageAt("2025-03-12T08:00:00Z", "2026-01-02T00:00:00Z"), u"Mar 2025"_s);
}

TEST(RowWording, daysAreThoseOfTheUsersTimeZone)
{
    const char* const now = "2025-06-20T12:00:00Z";
    EXPECT_EQ(ageAt("2025-03-12T23:30:00Z", now, "Europe/Berlin"), u"13 Mar"_s);
    EXPECT_EQ(ageAt("2025-01-01T02:00:00Z", now, "America/New_York"), u"Dec 2024"_s);
}

TEST(RowWording, anInstantToComeIsNow)
{
    EXPECT_EQ(ageAt("2025-06-20T12:05:00Z", "2025-06-20T12:00:00Z"), u"now"_s);
}

TEST(RowWording, detailsNameRepositoryNumberAuthorAndAge)
{
    PullRequest pullRequest = makePullRequest(482);
    pullRequest.id.repository = "northmere/quay";
    pullRequest.author = "mira-k";
    pullRequest.updatedAt = date("2025-06-20T09:00:00Z");
    const RowWording::Details details =
        RowWording::details(pullRequest, {}, date("2025-06-20T12:00:00Z"), QTimeZone::utc());
    EXPECT_EQ(
        details,
        (RowWording::Details{
            false, {}, u"northmere/"_s, u"quay"_s, u"#482"_s, u"mira-k"_s, u"3h"_s}));
    EXPECT_EQ(RowWording::detailsText(details), u"northmere/quay #482 · \u2068mira-k\u2069 · 3h"_s);
}

TEST(RowWording, detailsOfDraftsBeginWithTheWord)
{
    PullRequest pullRequest = inState(PullRequestState::open, true);
    pullRequest.updatedAt = date("2025-06-20T11:12:00Z");
    EXPECT_EQ(
        RowWording::detailsText(
            RowWording::details(pullRequest, {}, date("2025-06-20T12:00:00Z"), QTimeZone::utc())),
        u"Draft · octo/tools #1 · \u2068octo\u2069 · 48m"_s);
}

TEST(RowWording, hiddenRowsSayWhichFilterHidesThem)
{
    const QTimeZone zone("Europe/Berlin");
    const auto reasonOf = [&](Sight sight, std::optional<Date> mutedUntil = {}) {
        return RowWording::hiddenReason(sight, mutedUntil, zone);
    };
    EXPECT_EQ(reasonOf(Sight::hiddenByStatus), u"Hidden by Status"_s);
    EXPECT_EQ(reasonOf(Sight::hiddenByMergeability), u"Hidden by Merge-ready"_s);
    EXPECT_EQ(reasonOf(Sight::hiddenByReviews), u"Hidden by Reviews"_s);
    EXPECT_EQ(reasonOf(Sight::hiddenByChecks), u"Hidden by Checks"_s);
    EXPECT_EQ(reasonOf(Sight::muted), u"Muted until it changes"_s);
    EXPECT_EQ(reasonOf(Sight::muted, date("2025-06-20T12:05:00Z")), u"Muted until 14:05"_s);
    EXPECT_EQ(reasonOf(Sight::authorMuted), u"Author muted"_s);
    EXPECT_EQ(reasonOf(Sight::inSight), QString());
}

QString textOf(const Turn& turn)
{
    return RowWording::reasonText(RowWording::turnReason(turn));
}

TEST(RowWording, aTurnsReasonIsStrongWhereItAsksSomethingOfTheUser)
{
    using RowWording::turnReason;
    EXPECT_TRUE(turnReason({Whose::you, TurnReason::conflicts, {}, 0}).isStrong);
    EXPECT_TRUE(turnReason({Whose::ready, TurnReason::readyToMerge, {}, 0}).isStrong);
    EXPECT_TRUE(turnReason({Whose::teams, TurnReason::teamReview, {"platform"}, 0}).isStrong);
    EXPECT_FALSE(turnReason({Whose::others, TurnReason::checksRunning, {}, 0}).isStrong);
    EXPECT_TRUE(turnReason({Whose::others, TurnReason::none, {}, 0}).isEmpty());
    EXPECT_TRUE(turnReason({Whose::others, TurnReason::draft, {}, 0}).isEmpty())
        << "the line of a draft begins with the word anyway";
}

TEST(RowWording, namesInAReasonAreOneLineOfLettersEachIsolated)
{
    EXPECT_EQ(
        textOf({Whose::others, TurnReason::waitingFor, {"mara", "noa\n-b\u202E", "\u2069"}, 0}),
        u"Waiting for \u2068mara\u2069, \u2068noa -b\u2069"_s);
    EXPECT_EQ(textOf({Whose::teams, TurnReason::teamReview, {" "}, 0}), u"Your team’s review"_s);
    EXPECT_EQ(
        textOf({Whose::others, TurnReason::waitingFor, {"\u202E"}, 0}),
        u"Waiting for \u2068…\u2069"_s);
    EXPECT_EQ(
        textOf({Whose::others, TurnReason::waitingForPullRequest, {}, 412}), u"Waiting for #412"_s);
}

TEST(RowWording, theReasonStandsAfterDraftAndIsSaidFirst)
{
    const RowWording::Details details{
        true, {u"Hidden by Status"_s}, u"northmere/"_s, u"quay"_s, u"#482"_s, {}, u"3h"_s};
    EXPECT_EQ(
        RowWording::detailsText(details), u"Draft · Hidden by Status · northmere/quay #482 · 3h"_s);
    EXPECT_EQ(
        RowWording::accessibilityDescription(details, {}, makePullRequest(482), nullptr),
        u"Hidden by Status. Draft · northmere/quay #482 · 3h"_s);
}

}  // namespace
