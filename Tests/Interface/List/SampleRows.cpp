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

ListedRow makeRow(const Sample& sample, std::int64_t depth = 0)
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
    return listed;
}

std::vector<ListedRow> stack()
{
    constexpr auto* quay = "northmere/quay";
    std::vector<ListedRow> rows{
        makeRow(
            {"Move session storage behind a store interface",
             quay,
             482,
             "mira-k",
             3h,
             ReviewState::approved,
             {2, 3, 0},
             2,
             {14, 14, 0}}),
        makeRow(
            {"Write sessions through to the database",
             quay,
             485,
             "mira-k",
             2h,
             ReviewState::pending,
             {0, 2, 0},
             2,
             {9, 14, 0}},
            1),
        makeRow(
            {"Expire idle sessions in the background",
             quay,
             486,
             "mira-k",
             2h,
             ReviewState::changesRequested,
             {1, 3, 0},
             2,
             {14, 14, 0}},
            2),
        makeRow(
            {"Drop the in-memory fallback",
             quay,
             491,
             "mira-k",
             48min,
             ReviewState::none,
             {0, 0, 0},
             2,
             {0, 0, 0}},
            3)};
    rows[0].isVisited = true;
    own(rows[0]).hasChildren = true;
    own(rows[3]).pullRequest.isDraft = true;
    return rows;
}

std::vector<ListedRow> singles()
{
    std::vector<ListedRow> rows{
        makeRow(
            {"Keep the tide table when the feed is late",
             "saltmarsh/tidewatch",
             1207,
             "tomasz-w",
             5h,
             ReviewState::commented,
             {1, 2, 0},
             {},
             {12, 12, 0}}),
        makeRow(
            {"Retry uploads with exponential back-off and resume from the last acknowledged part",
             "northmere/beacon",
             93,
             "ines.duarte",
             24h,
             ReviewState::pending,
             {0, 2, 0},
             1,
             {7, 9, 2}}),
        makeRow(
            {"תיקון יישור הטקסט בלוח החיפוש",
             "northmere/beacon",
             97,
             "noa-b",
             30h,
             ReviewState::approved,
             {1, 1, 0},
             1,
             {9, 9, 0}}),
        makeRow(
            {"Split the parser into its own package",
             "fenland/capstan",
             34,
             "aiko-t",
             48h,
             ReviewState::commented,
             {1, 3, 0},
             {},
             {3, 6, 0}}),
        makeRow(
            {"🚀 Ship the onboarding tour 🎉",
             "saltmarsh/tidewatch",
             1198,
             "j-okafor",
             72h,
             ReviewState::approved,
             {2, 2, 0},
             {},
             {12, 12, 0}}),
        makeRow(
            {"Document the retry policy",
             "northmere/quay",
             471,
             "otter-bot",
             96h,
             ReviewState::none,
             {0, 0, 0},
             1,
             {0, 0, 0}}),
        makeRow(
            {"Report the exit status of hooks",
             "fenland/capstan",
             31,
             "lena",
             144h,
             ReviewState::approved,
             {1, 1, 0},
             {},
             {6, 6, 0}}),
        makeRow(
            {"Pin the linter’s version",
             "fenland/capstan",
             30,
             "lena",
             168h,
             ReviewState::pending,
             {0, 2, 0},
             {},
             {6, 6, 0}})};
    own(rows[0]).pullRequest.mergeability = PullRequestMergeability::conflicting;
    own(rows[3]).warning = "Ambiguous base branch";
    rows[4].isVisited = true;
    rows[5].isVisited = true;
    return rows;
}

}  // namespace

ListedRow listedRow(PullRequestRow row)
{
    return {std::make_shared<const PullRequestRow>(std::move(row)), false};
}

PullRequestRow& own(ListedRow& listed)
{
    auto row = std::make_shared<PullRequestRow>(*listed.row);
    listed.row = row;
    return *row;
}

Date sampleNow()
{
    return date("2025-06-20T12:00:00Z");
}

std::vector<ListedRow> sampleRows()
{
    std::vector<ListedRow> rows = stack();
    for (ListedRow& row : singles()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<ListedRow> plainRows(int count)
{
    std::vector<ListedRow> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back(listedRow({makePullRequest(number), 0, false, {}}));
    }
    return rows;
}

}  // namespace TestSupport
