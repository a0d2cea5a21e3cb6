#include "TarnwickDirect/CommandLine/ListText.h"

#include "TarnwickDirect/CommandLine/ListCells.h"
#include "TarnwickDirect/CommandLine/ListTree.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace TarnwickDirect {

using namespace PullRequestKit;
using Tarnwick::ArrangedRows;

namespace {

constexpr std::string_view gap = "  ";
constexpr int gapWidth = 2;

/// With this width for titles, details stay on the same line.
constexpr int ampleTitle = 50;

/// Reasons are limited to half of the terminal and to this many columns.
constexpr int ampleReason = 40;

/// Without a terminal titles are not cut, but longer ones do not widen the column.
constexpr int alignedTitle = 72;

struct Entry {
    TreeLines tree;
    Cell title;
    std::vector<Cell> details;
    Cell warning;
};

struct Columns {
    int title = 0;  ///< Includes the tree.
    std::vector<int> details;
};

int widthOf(const Cell& cell)
{
    return displayWidth(cell.text);
}

int treeWidth(const Entry& entry)
{
    return static_cast<int>(entry.tree.first.size()) * treePieceWidth;
}

std::string padding(int width)
{
    return std::string(static_cast<std::size_t>(std::max(width, 0)), ' ');
}

std::vector<Entry> entriesOf(
    const ArrangedRows& list,
    const std::function<bool(const PullRequest&)>& isVisited,
    int terminalColumns)
{
    std::vector<TreeLines> trees = treeLines(list.rows);
    std::vector<Entry> entries;
    entries.reserve(list.rows.size());
    for (std::size_t index = 0; index < list.rows.size(); ++index) {
        const PullRequestRow& row = list.rows[index];
        std::vector<Cell> details = detailCells(row.pullRequest);
        if (!list.turns.empty()) {
            const int columns = std::min((terminalColumns + 1) / 2, ampleReason);
            details.insert(details.begin(), reasonCell(list.turns[index], columns));
        }
        entries.push_back(
            {std::move(trees[index]),
             titleCell(row.pullRequest, isVisited(row.pullRequest)),
             std::move(details),
             Cell{singleLine(row.warning.value_or("")), Style::yellow}});
    }
    return entries;
}

Columns naturalColumns(const std::vector<Entry>& entries)
{
    Columns columns;
    for (const Entry& entry : entries) {
        columns.title = std::max(columns.title, treeWidth(entry) + widthOf(entry.title));
        columns.details.resize(entry.details.size());
        for (std::size_t index = 0; index < entry.details.size(); ++index) {
            columns.details[index] =
                std::max(columns.details[index], widthOf(entry.details[index]));
        }
    }
    return columns;
}

/// The width of the title column that gives each title its share of the terminal.
int neededTitleColumn(const std::vector<Entry>& entries, int terminalColumns)
{
    const int share = std::min((terminalColumns + 1) / 2, ampleTitle);
    int needed = 0;
    for (const Entry& entry : entries) {
        needed = std::max(needed, treeWidth(entry) + std::min(widthOf(entry.title), share));
    }
    return needed;
}

class OneLineEach {
public:
    OneLineEach(Columns columns, const TerminalTraits& terminal)
        : _columns(std::move(columns))
        , _terminal(terminal)
    {}

    std::string draw(const Entry& entry) const
    {
        std::string text = drawTree(entry.tree.first);
        const int width = _columns.title - treeWidth(entry);
        text += drawPadded({fitted(entry.title, width), entry.title.style}, width);
        for (std::size_t index = 0; index + 1 < entry.details.size(); ++index) {
            text += gap;
            text += drawPadded(entry.details[index], _columns.details[index]);
        }
        text += gap;
        text += drawCell(entry.details.back()) + "\n";
        if (!entry.warning.text.empty()) {
            const int left = treeWidth(entry) + treePieceWidth;
            text += drawTree(entry.tree.below);
            text += drawCell({fitted(entry.warning, _terminal.columns - left), Style::yellow});
            text += "\n";
        }
        return text;
    }

private:
    std::string fitted(const Cell& cell, int width) const
    {
        return _terminal.columns > 0 ? elided(cell.text, width) : cell.text;
    }

    std::string drawTree(const std::vector<std::string_view>& pieces) const
    {
        const std::string text = treeText(pieces, std::numeric_limits<int>::max());
        return styled(text, Style::faint, _terminal.hasColors);
    }

    std::string drawCell(const Cell& cell) const
    {
        return styled(cell.text, cell.style, _terminal.hasColors);
    }

    std::string drawPadded(const Cell& cell, int width) const
    {
        return drawCell(cell) + padding(width - widthOf(cell));
    }

    Columns _columns;
    TerminalTraits _terminal;
};

/// Prints the title on the first line and the details on further ones.
std::string drawFolded(const Entry& entry, const TerminalTraits& terminal)
{
    const int treeLimit = terminal.columns / 2;
    const std::string tree = treeText(entry.tree.first, treeLimit);
    const std::string indent = treeText(entry.tree.below, treeLimit);
    const int available = terminal.columns - displayWidth(indent);
    const auto drawnCell = [&](const Cell& cell, int width) {
        return styled(elided(cell.text, width), cell.style, terminal.hasColors);
    };
    const std::string start = "\n" + styled(indent, Style::faint, terminal.hasColors);

    std::string text = styled(tree, Style::faint, terminal.hasColors);
    text += drawnCell(entry.title, terminal.columns - displayWidth(tree));
    int used = available;
    for (const Cell& cell : entry.details) {
        if (cell.text.empty()) {
            continue;
        }
        const int width = std::min(widthOf(cell), available);
        const bool fits = used + gapWidth + width <= available;
        text += fits ? std::string(gap) : start;
        text += drawnCell(cell, available);
        used = fits ? used + gapWidth + width : width;
    }
    if (!entry.warning.text.empty()) {
        text += start + drawnCell(entry.warning, available);
    }
    return text + "\n";
}

std::string drawHeading(const ArrangedRows& list, std::size_t row, const TerminalTraits& terminal)
{
    std::string text;
    for (const Tarnwick::TurnGroup& group : list.groups) {
        if (group.firstRow == row) {
            const Cell heading = headingCell(group);
            text += row > 0 ? "\n" : "";
            text += styled(
                terminal.columns > 0 ? elided(heading.text, terminal.columns) : heading.text,
                heading.style,
                terminal.hasColors);
            text += "\n";
        }
    }
    return text;
}

/// The columns for one line per pull request; nothing if the titles get too narrow.
std::optional<Columns> columnsOf(const std::vector<Entry>& entries, const TerminalTraits& terminal)
{
    Columns columns = naturalColumns(entries);
    if (terminal.columns == 0) {
        columns.title = std::min(columns.title, alignedTitle);
        return columns;
    }
    int available = terminal.columns;
    for (const int width : columns.details) {
        available -= gapWidth + width;
    }
    if (available < neededTitleColumn(entries, terminal.columns)) {
        return std::nullopt;
    }
    columns.title = std::min(columns.title, available);
    return columns;
}

}  // namespace

std::string listText(
    const ArrangedRows& list,
    const std::function<bool(const PullRequest&)>& isVisited,
    const TerminalTraits& terminal)
{
    const std::vector<Entry> entries = entriesOf(list, isVisited, terminal.columns);
    std::optional<OneLineEach> lines;
    if (auto columns = columnsOf(entries, terminal)) {
        lines.emplace(*std::move(columns), terminal);
    }
    std::string text;
    for (std::size_t row = 0; row < entries.size(); ++row) {
        text += drawHeading(list, row, terminal);
        text += lines ? lines->draw(entries[row]) : drawFolded(entries[row], terminal);
    }
    return text;
}

}  // namespace TarnwickDirect
