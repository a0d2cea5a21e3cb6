#include "Tarnwick/Interface/Panel/PanelWording.h"

#include <QDateTime>

#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using namespace std::chrono_literals;
using PullRequestKit::Date;

const Date noon = Date(1'710'244'800s);  // 2024-03-12T12:00:00Z

TEST(PanelWordingTests, countsPullRequests)
{
    EXPECT_EQ(PanelWording::count(1), QStringLiteral("1 pull request"));
    EXPECT_EQ(PanelWording::count(2), QStringLiteral("2 pull requests"));
    EXPECT_EQ(PanelWording::count(0), QStringLiteral("0 pull requests"));
}

TEST(PanelWordingTests, tellsWhatIsHidden)
{
    const HiddenCounts one{.filters = 1};
    const HiddenCounts three{.filters = 3};
    EXPECT_EQ(PanelWording::hiddenChip(three, false), QStringLiteral("3 hidden"));
    EXPECT_EQ(PanelWording::hiddenChip(three, true), QStringLiteral("Hide 3"));
    EXPECT_EQ(
        PanelWording::hiddenChipName(three, false), QStringLiteral("Show 3 hidden pull requests"));
    EXPECT_EQ(PanelWording::hiddenChipName(three, true), QStringLiteral("Hide 3 pull requests"));
    EXPECT_EQ(
        PanelWording::hiddenChipName(one, false), QStringLiteral("Show 1 hidden pull request"));
    EXPECT_EQ(PanelWording::hiddenChipName(one, true), QStringLiteral("Hide 1 pull request"));
    EXPECT_EQ(PanelWording::hiddenHelp(three), QStringLiteral("3 by filters"));
    const HiddenCounts both{.filters = 2, .muted = 1};
    EXPECT_EQ(PanelWording::hiddenChip(both, false), QStringLiteral("3 hidden"));
    EXPECT_EQ(PanelWording::hiddenHelp(both), QStringLiteral("2 by filters, 1 muted"));
    EXPECT_EQ(PanelWording::hiddenHelp({.filters = 0, .muted = 1}), QStringLiteral("1 muted"));
}

struct Age {
    std::chrono::seconds age;
    const char* text;
    std::optional<std::chrono::seconds> untilNext;
};

TEST(PanelWordingTests, saysHowOldTheListIs)
{
    const Age ages[] = {
        {-30h, "Updated 12 Mar", std::nullopt},
        {-61s, "Updated 12 Mar", std::nullopt},
        {-60s, "Updated just now", 60s},
        {-5s, "Updated just now", 60s},
        {0s, "Updated just now", 60s},
        {59s, "Updated just now", 1s},
        {60s, "Updated 1 minute ago", 60s},
        {119s, "Updated 1 minute ago", 1s},
        {120s, "Updated 2 minutes ago", 60s},
        {3599s, "Updated 59 minutes ago", 1s},
        {1h, "Updated 1 hour ago", 1h},
        {5h + 1s, "Updated 5 hours ago", 3599s},
        {24h - 1s, "Updated 23 hours ago", 1s},
        {24h, "Updated 12 Mar", std::nullopt},
    };
    for (const Age& age : ages) {
        SCOPED_TRACE(age.text);
        EXPECT_EQ(PanelWording::updated(noon, noon + age.age), QString::fromLatin1(age.text));
        EXPECT_EQ(PanelWording::untilUpdatedChanges(noon, noon + age.age), age.untilNext);
    }
}

TEST(PanelWordingTests, saysHowManyGitHubLeftOut)
{
    EXPECT_EQ(
        PanelWording::truncated(1240, 1000),
        QStringLiteral("GitHub found 1,240 pull requests; 1,000 are listed."));
}

TEST(PanelWordingTests, saysThatPollingRestsWhileLittleIsLeftOfTheQuota)
{
    const QDateTime until(QDate(2024, 5, 1), QTime(14, 20));
    const PullRequestKit::Date reset{std::chrono::seconds{until.toSecsSinceEpoch()}};
    EXPECT_EQ(
        PanelWording::resting({.limit = 5000, .remaining = 312, .resetAt = reset}),
        QStringLiteral("GitHub quota 312 of 5,000 until 14:20; polling rests."));
}

TEST(PanelWordingTests, setsSeveralLinesOfGhAsOneParagraph)
{
    EXPECT_EQ(
        PanelWording::paragraph(QStringLiteral(
            "Showing cached data: github.com\n"
            "  X github.com: authentication failed\n"
            "  - The github.com token in /home/mira/.config/gh/hosts.yml is no longer valid.\n"
            "  - To re-authenticate, run: gh auth login -h github.com\n")),
        QStringLiteral(
            "Showing cached data: github.com: github.com: authentication failed. The github.com "
            "token in /home/mira/.config/gh/hosts.yml is no longer valid. To re-authenticate, "
            "run: gh auth login -h github.com"));
    EXPECT_EQ(
        PanelWording::paragraph(QStringLiteral(
            "Showing cached data: X Failed to log in to github.com account octo (keyring)\n"
            "- Active account: true\n\n"
            "- The token in keyring is invalid.")),
        QStringLiteral("Showing cached data: Failed to log in to github.com account octo "
                       "(keyring). Active account: true. The token in keyring is invalid."));
}

TEST(PanelWordingTests, leavesAParagraphAsItIs)
{
    for (const char* const text :
         {"Showing cached data: gh: Something went wrong (HTTP 502)",
          "error connecting to api.github.com",
          "Open at Login could not be changed: X is a letter - and so on"}) {
        EXPECT_EQ(PanelWording::paragraph(QString::fromLatin1(text)), QString::fromLatin1(text));
    }
    EXPECT_EQ(PanelWording::paragraph(QString()), QString());
}

}  // namespace
}  // namespace Tarnwick
