#include "List/SampleRows.h"

#include "Support/PullRequests.h"

#include <QStringList>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace TestSupport {

namespace {

const std::map<QString, ReviewState> reviewStates{
    {QStringLiteral("none"), ReviewState::none},
    {QStringLiteral("pending"), ReviewState::pending},
    {QStringLiteral("commented"), ReviewState::commented},
    {QStringLiteral("approved"), ReviewState::approved},
    {QStringLiteral("changes"), ReviewState::changesRequested}};

/// Such as "48m", "3h" or "2d".
std::chrono::seconds ageOf(const QString& text)
{
    const int count = text.chopped(1).toInt();
    if (text.endsWith(u'm')) {
        return count * 1min;
    }
    return text.endsWith(u'h') ? count * 1h : count * 24h;
}

/// Such as "2/3", or "7/9/2" with two that failed.
ProgressCount countOf(const QString& text)
{
    const QStringList numbers = text.split(u'/');
    return {numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt()};
}

/// Depth, title, repository, number, author, age, review state, reviews, how many are required, and
/// checks.
ListedRow rowOf(const QString& line)
{
    QStringList fields = line.split(u'|');
    for (QString& field : fields) {
        field = field.trimmed();
    }
    ListedRow listed =
        listedRow({makePullRequest(fields.at(3).toInt()), fields.at(0).toInt(), false, {}});
    PullRequest& made = own(listed).pullRequest;
    made.title = fields.at(1).toStdString();
    made.id.repository = fields.at(2).toStdString();
    made.author = fields.at(4).toStdString();
    made.updatedAt = sampleNow() - ageOf(fields.at(5));
    made.reviewState = reviewStates.at(fields.at(6));
    made.reviews = countOf(fields.at(7));
    if (fields.at(8) != u"-") {
        made.requiredApprovingReviewCount = fields.at(8).toInt();
    }
    made.checks = countOf(fields.at(9));
    return listed;
}

const char* const samples = R"(
0 | Move session storage behind a store interface | northmere/quay | 482 | mira-k | 3h | approved | 2/3 | 2 | 14/14
1 | Write sessions through to the database | northmere/quay | 485 | mira-k | 2h | pending | 0/2 | 2 | 9/14
2 | Expire idle sessions in the background | northmere/quay | 486 | mira-k | 2h | changes | 1/3 | 2 | 14/14
3 | Drop the in-memory fallback | northmere/quay | 491 | mira-k | 48m | none | 0/0 | 2 | 0/0
0 | Keep the tide table when the feed is late | saltmarsh/tidewatch | 1207 | tomasz-w | 5h | commented | 1/2 | - | 12/12
0 | Retry uploads with exponential back-off and resume from the last acknowledged part | northmere/beacon | 93 | ines.duarte | 24h | pending | 0/2 | 1 | 7/9/2
0 | תיקון יישור הטקסט בלוח החיפוש | northmere/beacon | 97 | noa-b | 30h | approved | 1/1 | 1 | 9/9
0 | Split the parser into its own package | fenland/capstan | 34 | aiko-t | 48h | commented | 1/3 | - | 3/6
0 | 🚀 Ship the onboarding tour 🎉 | saltmarsh/tidewatch | 1198 | j-okafor | 72h | approved | 2/2 | - | 12/12
0 | Document the retry policy | northmere/quay | 471 | otter-bot | 96h | none | 0/0 | 1 | 0/0
0 | Report the exit status of hooks | fenland/capstan | 31 | lena | 144h | approved | 1/1 | - | 6/6
0 | Pin the linter’s version | fenland/capstan | 30 | lena | 168h | pending | 0/2 | - | 6/6
)";

const char* const turnSamples = R"(
0 | Move sessions to a store | northmere/quay | 482 | mira-k | 3h | pending | 1/3 | 2 | 14/14
1 | Write sessions through to the database | northmere/quay | 485 | mira-k | 2h | pending | 0/2 | 2 | 9/14
2 | Drop the old fallback | northmere/quay | 491 | mira-k | 48m | pending | 0/0 | 2 | 0/0
0 | Keep stale tide tables | saltmarsh/tidewatch | 1207 | robin-k | 5h | commented | 1/2 | - | 12/12
0 | Retry uploads twice | saltmarsh/beacon | 93 | robin-k | 24h | pending | 0/2 | 1 | 7/9/2
0 | Document the retry policy | northmere/quay | 471 | robin-k | 4d | approved | 2/2 | - | 6/6
0 | Split the parser into its own package | fenland/compass | 34 | aiko-t | 2d | pending | 0/1 | - | 6/6
0 | Report the exit status of hooks | fenland/compass | 31 | robin-k | 6d | pending | 0/1 | - | 6/6
0 | Move the pier cameras | northmere/quay | 459 | robin-k | 20m | approved | 2/2 | 2 | 14/14
0 | Round depths to decimetres | saltmarsh/tidewatch | 1190 | robin-k | 2h | approved | 2/2 | - | 11/12
0 | Answer pings from the buoys | saltmarsh/tidewatch | 1188 | robin-k | 7d | approved | 1/1 | - | 3/12
0 | Try a new map projection | fenland/compass | 22 | lena | 90d | none | 0/0 | - | 0/0
)";

std::vector<ListedRow> rowsOf(const char* table)
{
    std::vector<ListedRow> rows;
    for (const QString& line : QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts)) {
        rows.push_back(rowOf(line));
    }
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
    std::vector<ListedRow> rows = rowsOf(samples);
    rows[0].isVisited = true;
    own(rows[0]).hasChildren = true;
    own(rows[3]).pullRequest.isDraft = true;
    own(rows[4]).pullRequest.mergeability = PullRequestMergeability::conflicting;
    own(rows[7]).warning = "Ambiguous base branch";
    rows[8].isVisited = true;
    rows[9].isVisited = true;
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
    using enum TurnReason;
    constexpr Whose you = Whose::you;
    constexpr Whose others = Whose::others;
    const std::vector<std::pair<Whose, Turn>> turns{
        {you, {you, yourReviewAgain, {}, 0}},
        {you, {others, waitingFor, {"mara", "noa-b"}, 0}},
        {you, {others, draft, {}, 0}},
        {you, {you, conflicts, {}, 0}},
        {you, {you, checksFailed, {"build", "test (linux)"}, 0}},
        {Whose::ready, {Whose::ready, readyToMerge, {}, 0}},
        {Whose::teams, {Whose::teams, teamReview, {"platform"}, 0}},
        {others, {others, waitingFor, {"lena"}, 0}},
        {others, {others, mergeQueue, {}, 2}},
        {others, {others, autoMerge, {}, 0}},
        {others, {others, checksRunning, {}, 0}},
        {others, {others, draft, {}, 0}}};
    std::vector<ListedRow> rows = rowsOf(turnSamples);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const auto& [heading, turn] = turns.at(row);
        own(rows[row]).pullRequest.isDraft = turn.reason == draft;
        rows[row] = underHeading(std::move(rows[row]), heading, turn);
    }
    own(rows[0]).hasChildren = true;
    own(rows[1]).hasChildren = true;
    own(rows[3]).pullRequest.mergeability = PullRequestMergeability::conflicting;
    rows[3].isVisited = true;
    return rows;
}

}  // namespace TestSupport
