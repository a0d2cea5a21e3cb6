#include "SampleGitHub/CommandLine.h"

#include <charconv>
#include <map>
#include <stdexcept>
#include <string_view>

namespace SampleGitHub {
namespace {

PullRequestKit::Date readDate(const std::string& text)
{
    const auto date = PullRequestKit::parseDate(text);
    if (!date) {
        throw std::invalid_argument("The --now value " + text + " is not an ISO 8601 date.");
    }
    return *date;
}

RepositoryTerms readRepositoryTerms(const std::string& text)
{
    const auto terms = PullRequestKit::enumNamed<RepositoryTerms>(text);
    if (!terms) {
        throw std::invalid_argument(
            "The option --repo-terms must be any or all, not " + text + ".");
    }
    return *terms;
}

std::optional<std::int64_t> takeNumber(std::string_view& text)
{
    std::int64_t number = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 0) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return number;
}

/// REMAINING/LIMIT@SECONDS
Quota readQuota(const std::string& text)
{
    std::string_view rest = text;
    const auto remaining = takeNumber(rest);
    const bool hasLimit = rest.starts_with('/');
    rest.remove_prefix(hasLimit ? 1 : 0);
    const auto limit = takeNumber(rest);
    const bool hasEnd = rest.starts_with('@');
    rest.remove_prefix(hasEnd ? 1 : 0);
    const auto seconds = takeNumber(rest);
    if (!remaining || !hasLimit || !limit || !hasEnd || !seconds || !rest.empty()
        || *remaining > *limit) {
        throw std::invalid_argument(
            "The quota " + text + " is not of the form REMAINING/LIMIT@SECONDS.");
    }
    return {*remaining, *limit, std::chrono::seconds(*seconds)};
}

using ReadOption = void (*)(CommandLine& line, const std::string& value);

const std::map<std::string_view, ReadOption>& options()
{
    static const std::map<std::string_view, ReadOption> known{
        {"--socket", [](auto& line, auto& value) { line.socket = value; }},
        {"--scenario", [](auto& line, auto& value) { line.scenario = value; }},
        {"--fault", [](auto& line, auto& value) { line.faults.push_back(parseFault(value)); }},
        {"--config-dir", [](auto& line, auto& value) { line.configurationFolder = value; }},
        {"--record", [](auto& line, auto& value) { line.record = value; }},
        {"--now", [](auto& line, auto& value) { line.now = readDate(value); }},
        {"--repo-terms",
         [](auto& line, auto& value) { line.gitHub.terms = readRepositoryTerms(value); }},
        {"--account", [](auto& line, auto& value) { line.account = value; }},
        {"--without-field",
         [](auto& line, auto& value) { line.gitHub.withoutFields.insert(value); }},
        {"--quota", [](auto& line, auto& value) { line.gitHub.quota = readQuota(value); }},
    };
    return known;
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help") {
            line.isHelpWanted = true;
            return line;
        }
        if (*argument == "--exec") {
            line.command.assign(argument + 1, arguments.end());
            if (line.command.empty()) {
                throw std::invalid_argument("The option --exec needs a command.");
            }
            return line;
        }
        const auto option = options().find(*argument);
        if (option == options().end()) {
            throw std::invalid_argument("Unknown argument " + *argument + ".");
        }
        if (argument + 1 == arguments.end()) {
            throw std::invalid_argument("The option " + *argument + " needs a value.");
        }
        option->second(line, *++argument);
    }
    if (!line.socket) {
        throw std::invalid_argument("Give --socket or --exec.");
    }
    return line;
}

std::string helpText()
{
    return R"(Usage: tarnwick-sample-github --socket PATH [OPTION]...
       tarnwick-sample-github [OPTION]... --exec COMMAND [ARGUMENT]...
A stand-in for GitHub that gh talks to through a Unix socket.

  --socket PATH       serve on this socket until SIGINT or SIGTERM
  --scenario NAME     everyday (the default), involved, large, signed-out, empty, or
                      a file, which is reread when it changes
  --account LOGIN     sign in another of the scenario's accounts
  --fault FAULT       inject a fault; may be repeated
  --config-dir DIR    write a gh configuration that uses the socket, for GH_CONFIG_DIR=DIR
  --record FILE       append each request to FILE as a line of JSON
  --now INSTANT       count ages back from INSTANT, such as 2026-03-01T12:00:00Z
  --repo-terms NAME   what several repo: terms of a search mean: any (the default) or all
  --without-field NAME  do not support this field of the facts, such as stack;
                      may be repeated
  --quota R/LIMIT@S   report R of LIMIT requests left, until S seconds from the start
  --exec COMMAND      run COMMAND with gh's environment set; exit with its status
  --help              print this help

A FAULT is NAME[@KIND][#NUMBER]: KIND is authentication, search, rules, repositories
or facts; NUMBER limits the fault to that request of the kind. NAME is one of
)" + describeFaults();
}

}  // namespace SampleGitHub
