#include "TarnwickDirect/Tray/TrayRows.h"

#include "Support/Mapped.h"

#include <gmock/gmock.h>

namespace {

using namespace PullRequestKit;
using namespace testing;
using TarnwickDirect::TrayRow;
using TarnwickDirect::trayRows;

class TrayRowsTest : public testing::Test {
protected:
    void add(std::int64_t number, const std::string& title, Turn turn)
    {
        PullRequestRow row;
        row.pullRequest.id.number = number;
        row.pullRequest.title = title;
        rows.push_back(std::move(row));
        turns.push_back(std::move(turn));
    }

    std::vector<std::string> texts() const
    {
        return TestSupport::mapped(
            trayRows(rows, turns), [](const TrayRow& row) { return row.text.toStdString(); });
    }

    std::vector<PullRequestRow> rows;
    std::vector<Turn> turns;
};

const Turn yourReview{.whose = Whose::you, .reason = TurnReason::yourReview};

TEST_F(TrayRowsTest, theUsersTurnComesFirstAndTheOthersNotAtAll)
{
    add(1, "One", {.whose = Whose::teams, .reason = TurnReason::teamReview, .names = {"platform"}});
    add(2, "Two", {.whose = Whose::ready, .reason = TurnReason::readyToMerge});
    add(3, "Three", {.whose = Whose::others, .reason = TurnReason::waitingFor, .names = {"mara"}});
    add(4, "Four", yourReview);
    EXPECT_THAT(
        texts(),
        ElementsAre(
            "#4 Four — your review",
            "#2 Two — ready to merge",
            "#1 One — your team’s review: platform"));
    EXPECT_EQ(trayRows(rows, turns).front().id, rows[3].id());
}

TEST_F(TrayRowsTest, thereAreEightAtMost)
{
    for (int number = 1; number <= 9; ++number) {
        add(number, "Same", yourReview);
    }
    EXPECT_THAT(texts(), SizeIs(8));
}

TEST_F(TrayRowsTest, strangersTextsAreShortAndPlain)
{
    add(412, "Split bookings into reservation and payment steps", yourReview);
    add(413, "Fish & chips\x1b[31m\n\u202Eend", yourReview);
    EXPECT_THAT(
        texts(),
        ElementsAre(
            "#412 Split bookings into reservation and paym… — your review",
            "#413 Fish && chips\uFFFD[31m\uFFFD\uFFFDend — your review"));
}

}  // namespace
