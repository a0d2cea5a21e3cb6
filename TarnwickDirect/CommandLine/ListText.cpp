#include "TarnwickDirect/CommandLine/ListText.h"

#include <algorithm>
#include <array>

namespace TarnwickDirect {

using namespace PullRequestKit;

namespace {

/// A piece of text in one style.
struct Cell {
    std::string text;
    Style style = Style::plain;
};

constexpr std::size_t columnCount = 5;
constexpr std::string_view gap = "  ";

/// Titles are not cut below this, however narrow the terminal.
constexpr int smallestTitle = 20;

/// How far a warning stands to the right of the title above it.
constexpr int warningIndent = 3;

/// Without a terminal titles are not cut, but longer ones do not move the other rows' columns.
constexpr int alignedTitle = 72;

struct Line {
    std::string tree;
    std::array<Cell, columnCount> cells;  ///< Title, repository, state, reviews, checks.
    std::string warning;
};

Cell stateCell(const PullRequest& pullRequest)
{
    if (pullRequest.hasMergeConflict()) {
        return {pullRequest.isDraft ? "draft, conflict" : "conflict", Style::red};
    }
    if (pullRequest.isDraft) {
        return {"draft", Style::faint};
    }
    const std::string name(nameOf(pullRequest.state));
    switch (pullRequest.state) {
    case PullRequestState::open:
        return {name, Style::green};
    case PullRequestState::closed:
        return {name, Style::red};
    case PullRequestState::merged:
        return {name, Style::purple};
    }
    return {name, Style::plain};
}

Cell reviewCell(const PullRequest& pullRequest)
{
    const std::string count = " " + pullRequest.reviewCountLabel();
    switch (pullRequest.reviewState) {
    case ReviewState::none:
        return {
            "no reviews" + (pullRequest.requiredApprovingReviewCount ? count : ""), Style::faint};
    case ReviewState::pending:
        return {"pending" + count, Style::yellow};
    case ReviewState::approved:
        return {"approved" + count, Style::green};
    case ReviewState::commented:
        return {"commented" + count, Style::plain};
    case ReviewState::changesRequested:
        return {"changes requested" + count, Style::red};
    }
    return {count, Style::plain};
}

Cell checksCell(const ProgressCount& checks)
{
    if (checks.total == 0) {
        return {"no checks", Style::faint};
    }
    const std::string count = "checks " + checks.label();
    if (checks.failed > 0) {
        return {count + ", " + std::to_string(checks.failed) + " failed", Style::red};
    }
    return {count, checks.allComplete() ? Style::green : Style::yellow};
}

/// Whether a later row stands on the same level under the same parent.
bool hasLaterSibling(const std::vector<PullRequestRow>& rows, std::size_t index)
{
    const std::int64_t depth = rows[index].depth;
    const auto next = std::find_if(
        rows.begin() + static_cast<std::ptrdiff_t>(index) + 1,
        rows.end(),
        [&](const PullRequestRow& row) { return row.depth <= depth; });
    return next != rows.end() && next->depth == depth;
}

/// The lines that lead to each row from the root of its stack.
std::vector<std::string> treeLines(const std::vector<PullRequestRow>& rows)
{
    std::vector<std::string> lines;
    std::vector<bool> isOpen;  // By level: more rows follow there.
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const auto depth = static_cast<std::size_t>(rows[index].depth);
        isOpen.resize(depth);
        std::string line;
        for (std::size_t level = 1; level < depth; ++level) {
            line += isOpen[level] ? "│  " : "   ";
        }
        isOpen.push_back(depth > 0 && hasLaterSibling(rows, index));
        if (depth > 0) {
            line += isOpen[depth] ? "├─ " : "└─ ";
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

Line makeLine(const PullRequestRow& row, std::string tree, bool isVisited)
{
    const PullRequest& pullRequest = row.pullRequest;
    const std::string title =
        "#" + std::to_string(pullRequest.id.number) + " " + singleLine(pullRequest.title);
    return {
        std::move(tree),
        {Cell{title, isVisited ? Style::faint : Style::plain},
         Cell{singleLine(pullRequest.id.repository), Style::faint},
         stateCell(pullRequest),
         reviewCell(pullRequest),
         checksCell(pullRequest.checks)},
        row.warning.value_or("")};
}

int widthOf(const Line& line, std::size_t column)
{
    return displayWidth(line.cells[column].text) + (column == 0 ? displayWidth(line.tree) : 0);
}

std::array<int, columnCount> columnWidths(const std::vector<Line>& lines, int available)
{
    std::array<int, columnCount> widths{};
    for (const Line& line : lines) {
        for (std::size_t column = 0; column < columnCount; ++column) {
            widths[column] = std::max(widths[column], widthOf(line, column));
        }
    }
    if (available > 0) {
        int others = 0;
        for (std::size_t column = 1; column < columnCount; ++column) {
            others += widths[column] + static_cast<int>(gap.size());
        }
        widths[0] = std::clamp(available - others, std::min(smallestTitle, widths[0]), widths[0]);
    } else {
        widths[0] = std::min(widths[0], alignedTitle);
    }
    return widths;
}

std::string padding(int width)
{
    return std::string(static_cast<std::size_t>(std::max(width, 0)), ' ');
}

std::string draw(
    const Line& line, const std::array<int, columnCount>& widths, const TerminalTraits& terminal)
{
    std::string text = styled(line.tree, Style::faint, terminal.hasColours);
    const int treeWidth = displayWidth(line.tree);
    for (std::size_t column = 0; column < columnCount; ++column) {
        const Cell& cell = line.cells[column];
        const int width = widths[column] - (column == 0 ? treeWidth : 0);
        const std::string content = terminal.columns > 0 ? elided(cell.text, width) : cell.text;
        text += styled(content, cell.style, terminal.hasColours);
        if (column + 1 < columnCount) {
            text += padding(width - displayWidth(content));
            text += gap;
        }
    }
    if (!line.warning.empty()) {
        text += "\n" + padding(treeWidth + warningIndent);
        text += styled(line.warning, Style::yellow, terminal.hasColours);
    }
    return text + "\n";
}

}  // namespace

std::string listText(
    const std::vector<PullRequestRow>& rows,
    const std::function<bool(const PullRequest&)>& isVisited,
    const TerminalTraits& terminal)
{
    std::vector<std::string> trees = treeLines(rows);
    std::vector<Line> lines;
    lines.reserve(rows.size());
    for (std::size_t index = 0; index < rows.size(); ++index) {
        lines.push_back(
            makeLine(rows[index], std::move(trees[index]), isVisited(rows[index].pullRequest)));
    }
    const auto widths = columnWidths(lines, terminal.columns);
    std::string text;
    for (const Line& line : lines) {
        text += draw(line, widths, terminal);
    }
    return text;
}

}  // namespace TarnwickDirect
