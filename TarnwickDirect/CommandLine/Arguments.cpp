#include "TarnwickDirect/CommandLine/Arguments.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

namespace TarnwickDirect {
namespace {

constexpr std::string_view help = R"(Tarnwick keeps your open GitHub pull requests in view.

Usage:
  tarnwick [--background | --toggle]
        Start Tarnwick in the tray and open its panel, or show the panel of the
        running instance. --background leaves the panel closed; --toggle hides
        it if it is open, for a key binding.
  tarnwick list [--by-turn] [--reviewers myself | any | involved] [--json]
        Refresh once and print the pull requests; stacked branches form a tree.
        --by-turn and --reviewers override the settings for this run.
  tarnwick list --cached [--by-turn] [--json]
        Print the last known list, without asking GitHub.
  tarnwick watch [--format json | waybar | i3 | line]
        Print the state of the list now and at every change, for a status bar.
  tarnwick repositories [--json]
        List the available repositories and mark the selected ones.
  tarnwick repositories select NAME… | --all
  tarnwick repositories unselect NAME… | --all
        Select or deselect repositories (owner/name).
  tarnwick --help | --version

Every request is a run of the GitHub CLI (gh); sign in with: gh auth login
"list" exits with 0 if the refresh succeeded and 1 if not; invalid usage with 2.
)";

/// The arguments of a command, split into options and other words. Options passed to the
/// constructor with a final "=" take a value, after "=" or as the next word. "--" ends the options.
class Words {
public:
    Words(const std::vector<std::string>& words, std::initializer_list<std::string_view> options)
    {
        bool isLiteral = false;
        for (auto word = words.begin(); word != words.end(); ++word) {
            if (!isLiteral && *word == "--") {
                isLiteral = true;
            } else if (isLiteral || !word->starts_with('-')) {
                _rest.push_back(*word);
            } else if (addOption(*word, options)) {
                if (++word == words.end()) {
                    throw UsageError(_options.back().first + " needs a value.");
                }
                _options.back().second = *word;
            }
        }
    }

    bool has(std::string_view option) const { return value(option).has_value(); }

    /// The last value of an option; empty for an option without values.
    std::optional<std::string> value(std::string_view option) const
    {
        std::optional<std::string> found;
        for (const auto& [name, given] : _options) {
            if (name == option) {
                found = given;
            }
        }
        return found;
    }

    const std::vector<std::string>& rest() const { return _rest; }

    void requireNoRest() const
    {
        if (!_rest.empty()) {
            throw UsageError("Unexpected argument \"" + _rest.front() + "\".");
        }
    }

private:
    /// Whether the next word is the option's value.
    bool addOption(const std::string& word, std::initializer_list<std::string_view> known)
    {
        const std::size_t equals = word.find('=');
        const std::string name = word == "-h" ? "--help" : word.substr(0, equals);
        const bool takesValue = std::ranges::find(known, name + "=") != known.end();
        const bool isKnown =
            takesValue || name == "--help" || std::ranges::find(known, name) != known.end();
        if (!isKnown || (equals != std::string::npos && !takesValue)) {
            throw UsageError("Unknown option " + word + ".");
        }
        const bool hasValue = equals != std::string::npos;
        _options.emplace_back(name, hasValue ? word.substr(equals + 1) : std::string());
        return takesValue && !hasValue;
    }

    std::vector<std::pair<std::string, std::string>> _options;
    std::vector<std::string> _rest;
};

std::optional<Tarnwick::ReviewerFilter> readReviewers(const std::optional<std::string>& text)
{
    if (!text) {
        return std::nullopt;
    }
    for (const auto filter : PullRequestKit::allCases<Tarnwick::ReviewerFilter>()) {
        if (*text == PullRequestKit::nameOf(Tarnwick::reviewerScopeOf(filter))) {
            return filter;
        }
    }
    throw UsageError("--reviewers must be myself, any or involved.");
}

Command parseList(const std::vector<std::string>& words)
{
    const Words parsed(words, {"--json", "--cached", "--by-turn", "--reviewers="});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    if (parsed.has("--cached") && parsed.has("--reviewers")) {
        throw UsageError("Give --cached or --reviewers, not both.");
    }
    return ListPullRequests{
        .asJson = parsed.has("--json"),
        .isCached = parsed.has("--cached"),
        .byTurn = parsed.has("--by-turn"),
        .reviewers = readReviewers(parsed.value("--reviewers"))};
}

Command parseWatch(const std::vector<std::string>& words)
{
    const Words parsed(words, {"--format="});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    WatchList watch;
    if (const auto name = parsed.value("--format")) {
        const auto format = PullRequestKit::enumNamed<WatchFormat>(*name);
        if (!format) {
            throw UsageError("--format must be json, waybar, i3 or line.");
        }
        watch.format = *format;
    }
    return watch;
}

Command parseSelection(bool select, const std::vector<std::string>& words)
{
    const Words parsed(words, {"--all"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    const bool all = parsed.has("--all");
    if (all && !parsed.rest().empty()) {
        throw UsageError("Give repository names or --all, not both.");
    }
    if (!all && parsed.rest().empty()) {
        throw UsageError("Give repository names (owner/name) or --all.");
    }
    return ChangeSelection{select, all, parsed.rest()};
}

Command parseRepositories(std::vector<std::string> words)
{
    if (!words.empty() && (words.front() == "select" || words.front() == "unselect")) {
        const bool select = words.front() == "select";
        words.erase(words.begin());
        return parseSelection(select, words);
    }
    const Words parsed(words, {"--json"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    return ListRepositories{parsed.has("--json")};
}

Command parseOptions(const std::vector<std::string>& arguments)
{
    const Words parsed(arguments, {"--version", "--background", "--toggle", "--service"});
    if (parsed.has("--help")) {
        return ShowHelp{};
    }
    parsed.requireNoRest();
    if (parsed.has("--version")) {
        return ShowVersion{};
    }
    if (parsed.has("--background") && parsed.has("--toggle")) {
        throw UsageError("Give --background or --toggle, not both.");
    }
    if (parsed.has("--background")) {
        return ShowPanel{ShowPanel::Manner::background};
    }
    if (parsed.has("--service")) {
        return ShowPanel{ShowPanel::Manner::service};
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
        return parseList(rest);
    }
    if (first == "watch") {
        return parseWatch(rest);
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
