#include "SampleGitHub/CommandLine.h"

#include <charconv>
#include <stdexcept>
#include <string_view>

namespace SampleGitHub {
namespace {

PullRequestKit::Date readDate(const std::string& text)
{
    const auto date = PullRequestKit::parseDate(text);
    if (!date) {
        throw std::invalid_argument("The instant " + text + " is not an ISO 8601 date.");
    }
    return *date;
}

RepositoryTerms readRepositoryTerms(const std::string& text)
{
    const auto terms = PullRequestKit::enumNamed<RepositoryTerms>(text);
    if (!terms) {
        throw std::invalid_argument("Several repo: terms mean any or all, not " + text + ".");
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

void readOption(CommandLine& line, const std::string& name, const std::string& value)
{
    if (name == "--socket") {
        line.socket = value;
    } else if (name == "--scenario") {
        line.scenario = value;
    } else if (name == "--fault") {
        line.faults.push_back(parseFault(value));
    } else if (name == "--config-dir") {
        line.configurationFolder = value;
    } else if (name == "--record") {
        line.record = value;
    } else if (name == "--repo-terms") {
        line.gitHub.terms = readRepositoryTerms(value);
    } else if (name == "--account") {
        line.account = value;
    } else if (name == "--without-field") {
        line.gitHub.withoutFields.insert(value);
    } else if (name == "--quota") {
        line.gitHub.quota = readQuota(value);
    } else {
        line.now = readDate(value);
    }
}

bool isOption(const std::string& name)
{
    return name == "--socket" || name == "--scenario" || name == "--fault" || name == "--config-dir"
           || name == "--record" || name == "--now" || name == "--repo-terms" || name == "--account"
           || name == "--without-field" || name == "--quota";
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
        if (!isOption(*argument)) {
            throw std::invalid_argument("The argument " + *argument + " is not known.");
        }
        if (argument + 1 == arguments.end()) {
            throw std::invalid_argument("The option " + *argument + " needs a value.");
        }
        const std::string& name = *argument;
        readOption(line, name, *++argument);
    }
    if (!line.socket) {
        throw std::invalid_argument("Either --socket or --exec is needed.");
    }
    return line;
}

std::string helpText()
{
    return "Usage: tarnwick-sample-github --socket PATH [OPTION]...\n"
           "       tarnwick-sample-github [OPTION]... --exec COMMAND [ARGUMENT]...\n"
           "A stand-in for GitHub that gh talks to through a Unix socket.\n"
           "\n"
           "  --socket PATH       serve on this socket until SIGINT or SIGTERM\n"
           "  --scenario NAME     everyday (the default), involved, large, signed-out, empty, or\n"
           "                      a file, which is read again when it has changed\n"
           "  --account LOGIN     sign in another of the scenario's accounts\n"
           "  --fault FAULT       switch a fault on; may be given several times\n"
           "  --config-dir DIR    write the files that make gh, with GH_CONFIG_DIR=DIR, use the "
           "socket\n"
           "  --record FILE       append every request as a line of JSON\n"
           "  --now INSTANT       what ages count back from, such as 2026-03-01T12:00:00Z\n"
           "  --repo-terms NAME   what several repo: terms of a search mean: any (the default) or "
           "all\n"
           "  --without-field NAME  do not know this field of the facts, such as stack; may be "
           "given\n"
           "                      several times\n"
           "  --quota R/LIMIT@S   say that R requests of LIMIT are left, until S seconds from the "
           "start\n"
           "  --exec COMMAND      run COMMAND with gh's environment set, end with its status\n"
           "  --help              print this\n"
           "\n"
           "A FAULT is NAME[@KIND][#NUMBER]: KIND is authentication, search, rules, "
           "repositories\n"
           "or facts, NUMBER strikes only that request of the kind. NAME is one of\n"
           + describeFaults();
}

}  // namespace SampleGitHub
