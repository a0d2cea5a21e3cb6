#include "TarnwickDirect/CommandLine/RepositoriesText.h"

#include <algorithm>
#include <limits>

namespace TarnwickDirect {

using PullRequestKit::RepositorySummary;

namespace {

constexpr std::string_view selectedMark = "✓ ";
constexpr std::string_view noMark = "  ";
constexpr std::string_view indent = "    ";
constexpr int markWidth = 2;
constexpr int indentWidth = 4;
constexpr int gapWidth = 2;

std::string details(const RepositorySummary& repository)
{
    std::string text;
    const auto append = [&](const std::string& detail) {
        text += (text.empty() ? "" : ", ") + detail;
    };
    if (repository.visibility) {
        append(*repository.visibility);
    }
    if (repository.language) {
        append(*repository.language);
    }
    if (repository.isArchived) {
        append("archived");
    }
    return singleLine(text);
}

/// The width of the column of names, at most half of the terminal.
int nameColumn(const std::vector<RepositorySummary>& repositories, int terminalColumns)
{
    int width = 0;
    for (const RepositorySummary& repository : repositories) {
        const int name = displayWidth(singleLine(repository.fullName));
        width = std::max(width, name <= terminalColumns / 2 ? name : 0);
    }
    return width;
}

}  // namespace

std::string repositoriesText(
    const std::vector<RepositorySummary>& repositories,
    const std::set<std::string>& selected,
    const TerminalTraits& terminal)
{
    const int columns = terminal.columns > 0 ? terminal.columns : std::numeric_limits<int>::max();
    const int column = nameColumn(repositories, columns);
    std::string text;
    for (const RepositorySummary& repository : repositories) {
        const std::string name = singleLine(repository.fullName);
        const std::string beside = details(repository);
        const bool isSelected = selected.contains(repository.fullName);
        text += styled(isSelected ? selectedMark : noMark, Style::green, terminal.hasColors) + name;
        const int padding = std::max(column - displayWidth(name), 0) + gapWidth;
        const int used = markWidth + displayWidth(name) + padding;
        if (displayWidth(beside) <= columns - used) {
            text += beside.empty() ? "" : std::string(static_cast<std::size_t>(padding), ' ');
            text += styled(beside, Style::faint, terminal.hasColors) + "\n";
        } else {
            const std::string below = elided(beside, std::max(columns - indentWidth, 1));
            text += "\n" + std::string(indent);
            text += styled(below, Style::faint, terminal.hasColors) + "\n";
        }
    }
    return text;
}

}  // namespace TarnwickDirect
