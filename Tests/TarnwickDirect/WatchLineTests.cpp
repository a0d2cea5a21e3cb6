#include "TarnwickDirect/CommandLine/WatchLine.h"

#include "Support/PullRequests.h"

#include <boost/json.hpp>

namespace {

using namespace TarnwickDirect;
using namespace PullRequestKit;

const Date refreshed = *parseDate("2026-03-12T14:05:10Z");
const QDateTime now = QDateTime::fromString(QStringLiteral("2026-03-12T14:30:00Z"), Qt::ISODate);
const QLocale british(QLocale::English, QLocale::UnitedKingdom);

class WatchLineTest : public testing::Test {
protected:
    void add(std::int64_t number, const std::string& title, Turn turn)
    {
        PullRequestRow row;
        row.pullRequest.id.number = number;
        row.pullRequest.title = title;
        rows.push_back(std::move(row));
        turns.push_back(std::move(turn));
        status = countedStatus(rows, turns);
        status.lastRefreshed = refreshed;
    }

    std::string line(WatchFormat format) const
    {
        return watchLine(format, {.status = status, .rows = rows, .turns = turns}, now, british);
    }

    boost::json::object object(WatchFormat format) const
    {
        return boost::json::parse(line(format)).as_object();
    }

    std::vector<PullRequestRow> rows;
    std::vector<Turn> turns;
    Status status{.lastRefreshed = refreshed};
};

const Turn yourReview{.whose = Whose::you, .reason = TurnReason::yourReview};
const Turn ready{.whose = Whose::ready, .reason = TurnReason::readyToMerge};
const Turn waiting{.whose = Whose::others, .reason = TurnReason::waitingFor, .names = {"mara"}};

TEST_F(WatchLineTest, aLineSaysHowManyWaitAndSinceWhen)
{
    EXPECT_EQ(line(WatchFormat::line), "0 pull requests · 14:05");
    add(1, "One", waiting);
    EXPECT_EQ(line(WatchFormat::line), "1 pull request · 14:05");
    add(2, "Two", ready);
    EXPECT_EQ(line(WatchFormat::line), "1 ready to merge · 14:05");
    add(3, "Three", yourReview);
    EXPECT_EQ(line(WatchFormat::line), "1 waits on you · 14:05");
    add(4, "Four", yourReview);
    EXPECT_EQ(line(WatchFormat::line), "2 wait on you · 14:05");
    status.isStale = true;
    EXPECT_EQ(line(WatchFormat::line), "2 wait on you · Not updated since 14:05");
    status.lastRefreshed.reset();
    EXPECT_EQ(line(WatchFormat::line), "Not updated yet");
}

TEST_F(WatchLineTest, waybarGetsItsFiveFields)
{
    add(412, "Split bookings", yourReview);
    add(7, "Other", waiting);
    EXPECT_EQ(
        line(WatchFormat::waybar),
        R"({"text":"1","alt":"waiting","tooltip":"1 waits on you · 14:05\n#412 Split bookings — Your review","class":"waiting","percentage":50})");
}

TEST_F(WatchLineTest, theClassTellsTheMostUrgent)
{
    EXPECT_EQ(object(WatchFormat::waybar).at("class"), "calm");
    add(1, "One", waiting);
    EXPECT_EQ(object(WatchFormat::waybar).at("class"), "calm");
    rows.back().pullRequest.mergeability = PullRequestMergeability::conflicting;
    status.blocked = 1;
    EXPECT_EQ(object(WatchFormat::waybar).at("class"), "blocked");
    EXPECT_EQ(object(WatchFormat::i3).at("state"), "Warning");
    status.waitingOnYou = 1;
    EXPECT_EQ(object(WatchFormat::waybar).at("class"), "waiting");
    EXPECT_EQ(object(WatchFormat::i3).at("state"), "Info");
    status.isStale = true;
    EXPECT_EQ(object(WatchFormat::waybar).at("class"), "stale");
    EXPECT_EQ(object(WatchFormat::i3).at("state"), "Warning");
}

TEST_F(WatchLineTest, strangersTextsAreNoMarkup)
{
    add(1, "<b>&\"'\x1b[31m\u202E", yourReview);
    EXPECT_EQ(
        object(WatchFormat::waybar).at("tooltip"),
        "1 waits on you · 14:05\n#1 &lt;b&gt;&amp;&quot;&#39;�[31m� — Your review");
}

TEST_F(WatchLineTest, aTooltipFitsOnTheScreen)
{
    for (int number = 1; number <= 21; ++number) {
        add(number, "Same", yourReview);
    }
    const std::string tooltip(object(WatchFormat::waybar).at("tooltip").as_string());
    EXPECT_EQ(std::ranges::count(tooltip, '\n'), 21);
    EXPECT_TRUE(tooltip.ends_with("\n…"));
}

TEST_F(WatchLineTest, i3GetsIconStateAndText)
{
    add(412, "Split bookings", yourReview);
    EXPECT_EQ(line(WatchFormat::i3), R"({"icon":"github","state":"Info","text":"1"})");
    rows.clear();
    turns.clear();
    status = {.lastRefreshed = refreshed};
    EXPECT_EQ(line(WatchFormat::i3), R"({"icon":"github","state":"Idle","text":"0"})");
}

}  // namespace
