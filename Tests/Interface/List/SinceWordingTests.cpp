#include "Tarnwick/Interface/List/SinceWording.h"

#include "Support/PullRequests.h"

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

const QTimeZone& berlin()
{
    static const QTimeZone zone("Europe/Berlin");
    return zone;
}

// A Friday.
const Date now = date("2025-06-20T12:00:00Z");

TEST(SinceWordingTests, nameADayAsCloselyAsItIsNear)
{
    const std::vector<std::pair<const char*, const char*>> days{
        {"2025-06-20T12:00:00Z", "14:00"},
        {"2025-06-19T22:00:00Z", "00:00"},
        {"2025-06-19T21:59:59Z", "yesterday"},
        {"2025-06-18T22:00:00Z", "yesterday"},
        {"2025-06-18T21:59:59Z", "Wednesday"},
        {"2025-06-14T12:00:00Z", "Saturday"},
        {"2025-06-13T22:00:00Z", "Saturday"},
        {"2025-06-13T21:59:59Z", "13 Jun"},
        {"2025-03-12T12:00:00Z", "12 Mar"},
        {"2024-03-12T12:00:00Z", "12 Mar 2024"}};
    for (const auto& [instant, text] : days) {
        EXPECT_EQ(SinceWording::day(date(instant), now, berlin()), QString::fromLatin1(text))
            << instant;
    }
}

TEST(SinceWordingTests, sayWhatChangedAndHowAScreenReaderSaysIt)
{
    const SinceVisit since{
        date("2025-06-17T12:00:00Z"),
        {{ChangeKind::approved, {}, {}},
         {ChangeKind::checks, "4/4", "2/4"},
         {ChangeKind::newCommits, {}, {}}}};
    EXPECT_EQ(
        SinceWording::sentence(since, now, berlin()),
        u"Since Tuesday: approved, checks 4/4 → 2/4, new commits"_s);
    EXPECT_EQ(
        SinceWording::spokenSentence(since, now, berlin()),
        u"Since Tuesday: approved, checks from 4/4 to 2/4, new commits"_s);
}

TEST(SinceWordingTests, haveAWordForEachChange)
{
    const std::vector<std::pair<ChangeKind, const char*>> words{
        {ChangeKind::closed, "closed"},
        {ChangeKind::merged, "merged"},
        {ChangeKind::reopened, "reopened"},
        {ChangeKind::madeDraft, "converted to draft"},
        {ChangeKind::madeReady, "ready for review"},
        {ChangeKind::approved, "approved"},
        {ChangeKind::changesRequested, "changes requested"},
        {ChangeKind::commented, "commented"},
        {ChangeKind::reviewsPending, "reviews pending"},
        {ChangeKind::noReviewers, "no reviewers"},
        {ChangeKind::reviews, "reviews 1 → 2"},
        {ChangeKind::conflicts, "conflicts"},
        {ChangeKind::conflictsResolved, "conflicts resolved"},
        {ChangeKind::checks, "checks 1 → 2"},
        {ChangeKind::failedChecks, "failed checks 1 → 2"},
        {ChangeKind::newCommits, "new commits"}};
    for (const auto& [kind, word] : words) {
        EXPECT_EQ(
            SinceWording::sentence({now, {{kind, "1", "2"}}}, now, berlin()),
            u"Since 14:00: "_s + QString::fromUtf8(word));
    }
}

TEST(SinceWordingTests, leaveOutWhatIsBeyondFour)
{
    SinceVisit since{
        now - std::chrono::days(1),
        {{ChangeKind::madeReady, {}, {}},
         {ChangeKind::approved, {}, {}},
         {ChangeKind::conflicts, {}, {}},
         {ChangeKind::checks, "0/1", "1/1"}}};
    EXPECT_EQ(
        SinceWording::sentence(since, now, berlin()),
        u"Since yesterday: ready for review, approved, conflicts, checks 0/1 → 1/1"_s);
    since.changes.push_back({ChangeKind::newCommits, {}, {}});
    EXPECT_EQ(
        SinceWording::sentence(since, now, berlin()),
        u"Since yesterday: ready for review, approved, conflicts, checks 0/1 → 1/1, and more"_s);
}

TEST(SinceWordingTests, nameNoTimeAfterTheClockWasSetBack)
{
    const SinceVisit since{now + std::chrono::hours(1), {{ChangeKind::approved, {}, {}}}};
    EXPECT_EQ(SinceWording::sentence(since, now, berlin()), u"Since you looked: approved"_s);
}

}  // namespace
