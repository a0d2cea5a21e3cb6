#include "TarnwickDirect/Tray/TrayText.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using PullRequestKit::Date;
using Tarnwick::MenuState;
using Tarnwick::RefreshFailure;
using TarnwickDirect::TrayStatus;
using TarnwickDirect::untilTrouble;
using Kind = MenuState::Kind;

const Date refreshed = *PullRequestKit::parseDate("2026-03-12T14:32:10Z");

const QLocale british(QLocale::English, QLocale::UnitedKingdom);

QString text(
    const TrayStatus& status,
    const char* now = "2026-03-12T23:59:59Z",
    const QLocale& locale = british)
{
    return TarnwickDirect::trayText(
        status, QDateTime::fromString(QString::fromLatin1(now), Qt::ISODate), locale);
}

TrayStatus loaded(std::size_t count, std::optional<Date> date)
{
    return {
        .state = {Kind::loaded, {}},
        .shownPullRequests = count,
        .lastRefreshed = date,
        .failure = {},
        .isTrouble = false};
}

TrayStatus failed(TrayStatus status, RefreshFailure failure)
{
    status.failure = failure;
    status.isTrouble = true;
    return status;
}

TEST(TrayText, countsWhatIsShownAndTellsWhenItWasFetched)
{
    EXPECT_EQ(text(loaded(12, refreshed)), QStringLiteral("12 pull requests · Updated 14:32"));
    EXPECT_EQ(text(loaded(1, refreshed)), QStringLiteral("1 pull request · Updated 14:32"));
    EXPECT_EQ(text(loaded(0, refreshed)), QStringLiteral("0 pull requests · Updated 14:32"));
    EXPECT_EQ(text(loaded(3, std::nullopt)), QStringLiteral("3 pull requests"));
}

TEST(TrayText, namesTheDayOfAnOlderList)
{
    EXPECT_EQ(
        text(loaded(2, refreshed), "2026-03-13T00:00:00Z"),
        QStringLiteral("2 pull requests · Updated 12 Mar 14:32"));
}

TEST(TrayText, hasNoSecondsInAnyLocale)
{
    const auto in = [](const QLocale& locale) {
        return text(loaded(2, refreshed), "2026-03-12T15:00:00Z", locale);
    };
    EXPECT_EQ(in(QLocale::c()), QStringLiteral("2 pull requests · Updated 14:32"));
    EXPECT_EQ(
        in(QLocale(QLocale::German, QLocale::Germany)),
        QStringLiteral("2 pull requests · Updated 14:32"));
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        EXPECT_FALSE(in(locale).contains(locale.toString(10))) << locale.name().toStdString();
    }
}

TEST(TrayText, countsNothingBeforeThereIsAList)
{
    for (const Kind kind : {Kind::idle, Kind::checkingAuthentication, Kind::loading}) {
        EXPECT_EQ(text({.state = {kind, {}}}), QStringLiteral("Tarnwick"));
    }
}

TEST(TrayText, saysWhyThereIsNoListInItsOwnWords)
{
    const auto without = [](const MenuState& state, RefreshFailure failure) {
        return text(failed({.state = state}, failure));
    };
    EXPECT_EQ(
        without({Kind::signedOut, "<b>X</b>"}, RefreshFailure::signedOut),
        QStringLiteral("Sign in to GitHub"));
    EXPECT_EQ(
        without({Kind::unavailable, "<b>X</b>"}, RefreshFailure::ghUnavailable),
        QStringLiteral("GitHub CLI unavailable"));
    EXPECT_EQ(
        without({Kind::failed, "<b>X</b>"}, RefreshFailure::requestFailed),
        QStringLiteral("Pull requests could not be loaded"));
    // While it is tried again.
    EXPECT_EQ(
        without({Kind::checkingAuthentication, {}}, RefreshFailure::signedOut),
        QStringLiteral("Sign in to GitHub"));
}

TEST(TrayText, tellsSinceWhenTheListIsOldWhileThereIsTrouble)
{
    EXPECT_EQ(
        text(failed(loaded(12, refreshed), RefreshFailure::requestFailed)),
        QStringLiteral("12 pull requests · Not updated since 14:32"));
    EXPECT_EQ(
        text(failed(loaded(12, refreshed), RefreshFailure::signedOut)),
        QStringLiteral("Sign in to GitHub · Not updated since 14:32"));
    EXPECT_EQ(
        text(failed(loaded(12, refreshed), RefreshFailure::ghUnavailable)),
        QStringLiteral("GitHub CLI unavailable · Not updated since 14:32"));
    TrayStatus young = failed(loaded(12, refreshed), RefreshFailure::requestFailed);
    young.isTrouble = false;
    EXPECT_EQ(text(young), QStringLiteral("12 pull requests · Updated 14:32"));
}

TEST(TrayStatus, aFailedRequestIsTroubleTenMinutesAfterTheLastSuccess)
{
    constexpr auto failure = RefreshFailure::requestFailed;
    EXPECT_EQ(untilTrouble(failure, refreshed, refreshed + 1min), 9min);
    EXPECT_EQ(untilTrouble(failure, refreshed, refreshed + 599s), 1s);
    EXPECT_EQ(untilTrouble(failure, refreshed, refreshed + 600s), 0s);
    EXPECT_EQ(untilTrouble(failure, refreshed, refreshed + 48h), 0s);
    EXPECT_EQ(untilTrouble(failure, refreshed, refreshed - 48h), 10min);
    EXPECT_EQ(untilTrouble(failure, std::nullopt, refreshed), 0s);
    EXPECT_EQ(untilTrouble(std::nullopt, refreshed, refreshed + 48h), std::nullopt);
}

TEST(TrayStatus, whatTheUserHasToDoSomethingAboutIsTroubleAtOnce)
{
    for (const auto failure : {RefreshFailure::signedOut, RefreshFailure::ghUnavailable}) {
        EXPECT_EQ(untilTrouble(failure, refreshed, refreshed), 0s);
        EXPECT_FALSE(knowsPullRequests(failed(loaded(1, refreshed), failure)));
    }
    EXPECT_TRUE(knowsPullRequests(failed(loaded(1, refreshed), RefreshFailure::requestFailed)));
    EXPECT_TRUE(knowsPullRequests(loaded(1, refreshed)));
}

}  // namespace
