#include "TarnwickDirect/CommandLine/Arguments.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace TarnwickDirect {
namespace {

constexpr std::string_view help = R"(Tarnwick keeps your open GitHub pull requests in view.

Usage:
  tarnwick [--background | --toggle]
        Start Tarnwick in the tray and open its panel, or show the panel of the
        running one. With --background the panel stays closed; --toggle closes
        it when it is open, for a key binding.
  tarnwick list [--json]
        Refresh once and print the pull requests of the selected repositories,
        stacked branches as a tree.
  tarnwick repositories [--json]
        List the available repositories and mark the selected ones.
  tarnwick repositories select NAME… | --all
  tarnwick repositories unselect NAME… | --all
        Select or deselect repositories (owner/name).
  tarnwick --help | --version

Every request is a run of the GitHub CLI (gh); sign in with: gh auth login
"list" exits with status 0 if the refresh succeeded and 1 if it failed; invalid
usage exits with status 2.
)";

/// The words of one command, taken apart into options and the rest. A lone "--" ends the options.
class Words {
public:
    Words(std::vector<std::string> words, std::initializer_list<std::string_view> options)
    {
        bool isLiteral = false;
        for (std::string& word : words) {
            if (!isLiteral && word == "--") {
                isLiteral = true;
            } else if (!isLiteral && word.starts_with('-')) {
                addOption(std::move(word), options);
            } else {
                _rest.push_back(std::move(word));
            }
        }
    }

    bool has(std::string_view option) const
    {
        return std::ranges::find(_options, option) != _options.end();
    }

    const std::vector<std::string>& rest() const { return _rest; }

    void requireNoRest() const
    {
        if (!_rest.empty()) {
            throw UsageError("Unexpected argument \"" + _rest.front() + "\".");
        }
    }

private:
    void addOption(std::string word, std::initializer_list<std::string_view> known)
    {
        if (word == "-h") {
            word = "--help";
        }
        if (word != "--help" && std::ranges::find(known, word) == known.end()) {
            throw UsageError("Unknown option " + word + ".");
        }
        _options.push_back(std::move(word));
    }

    std::vector<std::string> _options;
    std::vector<std::string> _rest;
};

Command parseList(std::vector<std::string> words)
{
    const Words parsed(std::move(words), {"--json"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    return ListPullRequests{parsed.has("--json")};
}

Command parseSelection(bool select, std::vector<std::string> words)
{
    const Words parsed(std::move(words), {"--all"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    const bool all = parsed.has("--all");
    if (all && !parsed.rest().empty()) {
        throw UsageError("Give either names of repositories or --all, not both.");
    }
    if (!all && parsed.rest().empty()) {
        throw UsageError("Give the names of repositories, such as owner/name, or --all.");
    }
    return ChangeSelection{select, all, parsed.rest()};
}

Command parseRepositories(std::vector<std::string> words)
{
    if (!words.empty() && (words.front() == "select" || words.front() == "unselect")) {
        const bool select = words.front() == "select";
        words.erase(words.begin());
        return parseSelection(select, std::move(words));
    }
    const Words parsed(std::move(words), {"--json"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    return ListRepositories{parsed.has("--json")};
}

/// What stands without a command.
Command parseOptions(const std::vector<std::string>& arguments)
{
    const Words parsed(arguments, {"--version", "--background", "--toggle"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    if (parsed.has("--version")) {
        return ShowVersion{};
    }
    if (parsed.has("--background") && parsed.has("--toggle")) {
        throw UsageError("Give either --background or --toggle, not both.");
    }
    if (parsed.has("--background")) {
        return ShowPanel{ShowPanel::Manner::background};
    }
    return ShowPanel{parsed.has("--toggle") ? ShowPanel::Manner::toggle : ShowPanel::Manner::show};
}

}  // namespace

Command parseArguments(const std::vector<std::string>& arguments)
{
    if (arguments.empty()) {
        return ShowPanel{};
    }
    const std::string& first = arguments.front();
    std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
    if (first == "list") {
        return parseList(std::move(rest));
    }
    if (first == "repositories") {
        return parseRepositories(std::move(rest));
    }
    return parseOptions(arguments);
}

std::string helpText()
{
    return std::string(help);
}

}  // namespace TarnwickDirect
