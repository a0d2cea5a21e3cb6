#include "TarnwickDirect/Tray/TrayText.h"

#include <gtest/gtest.h>

namespace {

using PullRequestKit::Date;
using Tarnwick::MenuState;
using Kind = MenuState::Kind;

const Date refreshed = *PullRequestKit::parseDate("2026-03-12T14:32:10Z");

QString text(const MenuState& state, std::size_t count, std::optional<Date> date, const char* now)
{
    return TarnwickDirect::trayText(
        state,
        count,
        date,
        QDateTime::fromString(QString::fromLatin1(now), Qt::ISODate),
        QLocale(QLocale::English, QLocale::UnitedKingdom));
}

QString loadedText(std::size_t count, std::optional<Date> date)
{
    return text({Kind::loaded, {}}, count, date, "2026-03-12T23:59:59Z");
}

TEST(TrayText, countsWhatIsShownAndTellsWhenItWasFetched)
{
    EXPECT_EQ(loadedText(12, refreshed), QStringLiteral("12 pull requests · Updated 14:32"));
    EXPECT_EQ(loadedText(1, refreshed), QStringLiteral("1 pull request · Updated 14:32"));
    EXPECT_EQ(loadedText(0, refreshed), QStringLiteral("0 pull requests · Updated 14:32"));
    EXPECT_EQ(loadedText(3, std::nullopt), QStringLiteral("3 pull requests"));
}

TEST(TrayText, namesTheDayOfAnOlderList)
{
    EXPECT_EQ(
        text({Kind::loaded, {}}, 2, refreshed, "2026-03-13T00:00:00Z"),
        QStringLiteral("2 pull requests · Updated 12 Mar 14:32"));
}

TEST(TrayText, countsNothingBeforeThereIsAList)
{
    const auto without = [](const MenuState& state) {
        return text(state, 0, std::nullopt, "2026-03-12T15:00:00Z");
    };
    EXPECT_EQ(without({Kind::idle, {}}), QStringLiteral("Tarnwick"));
    EXPECT_EQ(without({Kind::checkingAuthentication, {}}), QStringLiteral("Tarnwick"));
    EXPECT_EQ(without({Kind::loading, {}}), QStringLiteral("Tarnwick"));
    EXPECT_EQ(without({Kind::signedOut, "Sign in."}), QStringLiteral("Sign in to GitHub"));
    EXPECT_EQ(without({Kind::unavailable, "No gh."}), QStringLiteral("GitHub CLI unavailable"));
    EXPECT_EQ(
        without({Kind::unavailable, "GitHub cannot be reached.", true}),
        QStringLiteral("GitHub cannot be reached."));
    EXPECT_EQ(without({Kind::failed, "No network."}), QStringLiteral("No network."));
}

}  // namespace
