#include "List/TurnRows.h"

#include "List/SampleRows.h"
#include "Support/PullRequests.h"

#include <memory>
#include <utility>

namespace TestSupport {

using namespace PullRequestKit;
using namespace std::chrono_literals;
using Tarnwick::ListedRow;

namespace {

struct Sample {
    const char* title = "";
    const char* repository = "";
    std::int64_t number = 0;
    const char* author = "";
    std::chrono::seconds age{};
    ReviewState reviewState = ReviewState::none;
    ProgressCount reviews;
    std::optional<std::int64_t> required;
    ProgressCount checks;
};

ListedRow makeRow(const Sample& sample, std::int64_t depth, Whose heading, Turn turn)
{
    ListedRow listed = listedRow({makePullRequest(sample.number), depth, false, {}});
    PullRequest& made = own(listed).pullRequest;
    made.title = sample.title;
    made.id.repository = sample.repository;
    made.author = sample.author;
    made.updatedAt = sampleNow() - sample.age;
    made.reviewState = sample.reviewState;
    made.reviews = sample.reviews;
    made.requiredApprovingReviewCount = sample.required;
    made.checks = sample.checks;
    made.isDraft = turn.reason == TurnReason::draft;
    return underHeading(std::move(listed), heading, std::move(turn));
}

constexpr auto* quay = "northmere/quay";
constexpr auto* tidewatch = "saltmarsh/tidewatch";
constexpr auto* compass = "fenland/compass";

std::vector<ListedRow> waitingOnYou()
{
    const auto review = ReviewState::pending;
    std::vector<ListedRow> rows{
        makeRow(
            {"Move sessions to a store",
             quay,
             482,
             "mira-k",
             3h,
             review,
             {1, 3, 0},
             2,
             {14, 14, 0}},
            0,
            Whose::you,
            {Whose::you, TurnReason::yourReviewAgain, {}, 0}),
        makeRow(
            {"Write sessions through to the database",
             quay,
             485,
             "mira-k",
             2h,
             review,
             {0, 2, 0},
             2,
             {9, 14, 0}},
            1,
            Whose::you,
            {Whose::others, TurnReason::waitingFor, {"mara", "noa-b"}, 0}),
        makeRow(
            {"Drop the old fallback", quay, 491, "mira-k", 48min, review, {0, 0, 0}, 2, {0, 0, 0}},
            2,
            Whose::you,
            {Whose::others, TurnReason::draft, {}, 0}),
        makeRow(
            {"Keep stale tide tables",
             tidewatch,
             1207,
             "robin-k",
             5h,
             ReviewState::commented,
             {1, 2, 0},
             {},
             {12, 12, 0}},
            0,
            Whose::you,
            {Whose::you, TurnReason::conflicts, {}, 0}),
        makeRow(
            {"Retry uploads twice",
             "saltmarsh/beacon",
             93,
             "robin-k",
             24h,
             review,
             {0, 2, 0},
             1,
             {7, 9, 2}},
            0,
            Whose::you,
            {Whose::you, TurnReason::checksFailed, {"build", "test (linux)"}, 0})};
    own(rows[0]).hasChildren = true;
    own(rows[1]).hasChildren = true;
    own(rows[3]).pullRequest.mergeability = PullRequestMergeability::conflicting;
    rows[3].isVisited = true;
    return rows;
}

std::vector<ListedRow> waitingOnOthers()
{
    const auto others = Whose::others;
    const auto approved = ReviewState::approved;
    return {
        makeRow(
            {"Report the exit status of hooks",
             compass,
             31,
             "robin-k",
             6 * 24h,
             ReviewState::pending,
             {0, 1, 0},
             {},
             {6, 6, 0}},
            0,
            others,
            {others, TurnReason::waitingFor, {"lena"}, 0}),
        makeRow(
            {"Move the pier cameras",
             quay,
             459,
             "robin-k",
             20min,
             approved,
             {2, 2, 0},
             2,
             {14, 14, 0}},
            0,
            others,
            {others, TurnReason::mergeQueue, {}, 2}),
        makeRow(
            {"Round depths to decimetres",
             tidewatch,
             1190,
             "robin-k",
             2h,
             approved,
             {2, 2, 0},
             {},
             {11, 12, 0}},
            0,
            others,
            {others, TurnReason::autoMerge, {}, 0}),
        makeRow(
            {"Answer pings from the buoys",
             tidewatch,
             1188,
             "robin-k",
             7 * 24h,
             approved,
             {1, 1, 0},
             {},
             {3, 12, 0}},
            0,
            others,
            {others, TurnReason::checksRunning, {}, 0}),
        makeRow(
            {"Try a new map projection",
             compass,
             22,
             "lena",
             90 * 24h,
             ReviewState::none,
             {0, 0, 0},
             {},
             {0, 0, 0}},
            0,
            others,
            {others, TurnReason::draft, {}, 0})};
}

}  // namespace

ListedRow underHeading(ListedRow row, Whose heading, Turn turn)
{
    row.turn = std::make_shared<const Turn>(std::move(turn));
    row.heading = heading;
    return row;
}

ListedRow turnRow(std::int64_t number, Whose whose)
{
    return underHeading(
        listedRow({makePullRequest(number), 0, false, {}}),
        whose,
        {whose, TurnReason::none, {}, 0});
}

std::vector<ListedRow> turnRows()
{
    std::vector<ListedRow> rows = waitingOnYou();
    rows.push_back(makeRow(
        {"Document the retry policy",
         quay,
         471,
         "robin-k",
         4 * 24h,
         ReviewState::approved,
         {2, 2, 0},
         {},
         {6, 6, 0}},
        0,
        Whose::ready,
        {Whose::ready, TurnReason::readyToMerge, {}, 0}));
    rows.push_back(makeRow(
        {"Split the parser into its own package",
         compass,
         34,
         "aiko-t",
         2 * 24h,
         ReviewState::pending,
         {0, 1, 0},
         {},
         {6, 6, 0}},
        0,
        Whose::teams,
        {Whose::teams, TurnReason::teamReview, {"platform"}, 0}));
    for (ListedRow& row : waitingOnOthers()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace TestSupport
