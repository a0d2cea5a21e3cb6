#include "Tarnwick/Interface/List/CountWording.h"

#include <gtest/gtest.h>

namespace {

using namespace PullRequestKit;
using namespace Qt::StringLiterals;
using namespace Tarnwick;

/// Names are isolated, which no reader sees; the tests look at what one sees.
QStringList visible(QStringList lines)
{
    lines.replaceInStrings(u"\u2068"_s, QString());
    lines.replaceInStrings(u"\u2069"_s, QString());
    return lines;
}

QStringList reviewLines(const PullRequestDetails& details)
{
    return visible(CountWording::reviewLines(details));
}

QStringList failedLine(const std::string& name)
{
    PullRequestDetails details;
    details.failedChecks = {name};
    return CountWording::checkLines({}, details);
}

TEST(CountWording, saysWhoReviewedWithWhatResultAndWhoIsAsked)
{
    PullRequestDetails details;
    details.reviews = {
        {"mara", ReviewVerdict::approved},
        {"noa-b", ReviewVerdict::changesRequested},
        {"kim", ReviewVerdict::commented},
        {"ada", ReviewVerdict::approved},
        {"lou", ReviewVerdict::dismissed},
        {"octo", ReviewVerdict::pending}};
    details.requestedUsers = {"tomasz", "mara"};
    details.requestedTeams = {"platform"};
    EXPECT_EQ(
        reviewLines(details),
        (QStringList{
            u"Changes requested: noa-b"_s,
            u"Approved: mara, ada"_s,
            u"Commented: kim"_s,
            u"Dismissed: lou"_s,
            u"Waiting for: tomasz, mara, team platform"_s}));
}

TEST(CountWording, hasNoLineForWhatDoesNotOccur)
{
    EXPECT_EQ(reviewLines({}), QStringList());
    EXPECT_EQ(CountWording::checkLines({}, {}), QStringList());
}

TEST(CountWording, countsTheChecksAndNamesThoseThatFailedOrRun)
{
    PullRequestDetails details;
    details.passedChecks = {"docs"};
    details.failedChecks = {"test (linux)", "lint"};
    details.runningChecks = {"build"};
    EXPECT_EQ(
        visible(CountWording::checkLines({.completed = 1, .total = 4, .failed = 2}, details)),
        (QStringList{u"1 of 4 passed"_s, u"Failed: test (linux), lint"_s, u"Running: build"_s}));
}

TEST(CountWording, namesSixAndCountsTheOthers)
{
    PullRequestDetails details;
    for (const char* const name : {"a", "b", "c", "d", "e", "f"}) {
        details.requestedUsers.emplace_back(name);
    }
    EXPECT_EQ(reviewLines(details), QStringList{u"Waiting for: a, b, c, d, e, f"_s});
    details.requestedTeams = {"g"};
    EXPECT_EQ(reviewLines(details), QStringList{u"Waiting for: a, b, c, d, e, f and 1 more"_s});
    details.requestedTeams = {"g", "h", "i", "j"};
    EXPECT_EQ(reviewLines(details), QStringList{u"Waiting for: a, b, c, d, e, f and 4 more"_s});
}

TEST(CountWording, saysThatThereMayBeMoreThanTheAnswerHeld)
{
    PullRequestDetails details;
    details.requestedUsers = {"ada"};
    details.reviewLimit = 50;
    details.requestLimit = 50;
    details.checkLimit = 100;
    EXPECT_EQ(
        reviewLines(details),
        (QStringList{
            u"Waiting for: ada"_s,
            u"The first 50 reviews; there may be more"_s,
            u"The first 50 review requests; there may be more"_s}));
    EXPECT_EQ(
        CountWording::checkLines({.completed = 100, .total = 100}, details),
        (QStringList{u"100 of 100 passed"_s, u"The first 100 checks; there may be more"_s}));
}

TEST(CountWording, isolatesNamesSoThatNoneTurnsWhatFollows)
{
    EXPECT_EQ(failedLine("lint"), QStringList{u"Failed: \u2068lint\u2069"_s});
    EXPECT_EQ(
        failedLine("\u202Egnp.\u2066x\u200F\u061C"), QStringList{u"Failed: \u2068gnp.x\u2069"_s});
}

TEST(CountWording, keepsANameOnItsLine)
{
    EXPECT_EQ(
        failedLine("one\ntwo\r\n\tthree\u2028four\x1b[0m"),
        QStringList{u"Failed: \u2068one two three four [0m\u2069"_s});
}

TEST(CountWording, leavesOutNamesWithoutLetters)
{
    EXPECT_EQ(failedLine(""), QStringList());
    EXPECT_EQ(failedLine(" \n\u200E"), QStringList());
    PullRequestDetails details;
    details.requestedTeams = {"", "platform"};
    EXPECT_EQ(reviewLines(details), QStringList{u"Waiting for: team platform"_s});
}

TEST(CountWording, cutsALongNameBetweenItsLetters)
{
    const QString cut = visible(failedLine(std::string(200, 'x'))).value(0);
    EXPECT_EQ(cut, u"Failed: "_s + QString(59, u'x') + u"…"_s);
    std::string faces(58, 'x');
    faces += "\U0001F600\U0001F600";
    EXPECT_EQ(visible(failedLine(faces)).value(0), u"Failed: "_s + QString(58, u'x') + u"…"_s);
}

}  // namespace
