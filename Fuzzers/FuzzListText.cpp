#include "Fuzzers/Require.h"
#include "GitHubProvider/Text.h"
#include "PullRequestKit/StackBuilder.h"
#include "TarnwickDirect/CommandLine/ListText.h"

#include <algorithm>

using PullRequestKit::PullRequest;
using Tarnwick::ArrangedRows;
using namespace TarnwickDirect;

namespace {

/// Each line of the text is a title; its first byte selects the branch.
std::vector<PullRequest> pullRequestsIn(std::string_view text)
{
    std::vector<PullRequest> pullRequests;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        PullRequest pullRequest;
        pullRequest.id.number = static_cast<std::int64_t>(pullRequests.size());
        pullRequest.id.repository = "octo/tools";
        pullRequest.title = GitHub::decodeText(text.substr(0, end));
        pullRequest.head = {"octo/tools", std::string(1, static_cast<char>(text.front() & 7))};
        pullRequest.base = {"octo/tools", std::string(1, static_cast<char>(text.front() / 8 & 7))};
        pullRequests.push_back(std::move(pullRequest));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pullRequests;
}

bool isControl(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

}  // namespace

/// The first byte is the terminal's width. No line is wider or contains control characters, and
/// every pull request is listed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = Fuzzers::textOf(data, size);
    const int columns = input.empty() ? 80 : std::max<int>(data[0], 1);
    const auto pullRequests = pullRequestsIn(input.substr(std::min<std::size_t>(size, 1)));
    const auto rows = PullRequestKit::StackBuilder::rows(pullRequests);
    std::vector<PullRequestKit::Turn> turns;
    std::vector<Tarnwick::TurnGroup> groups;
    for (const PullRequest& pullRequest : pullRequests) {
        groups.push_back({PullRequestKit::Whose::you, turns.size(), 1, 1});
        turns.push_back(
            {PullRequestKit::Whose::you,
             PullRequestKit::TurnReason::waitingFor,
             {pullRequest.title, "mara"}});
    }
    const bool isByTurn = size > 1 && data[1] % 2 == 0 && rows.size() == turns.size();
    const std::string list = listText(
        isByTurn ? ArrangedRows{rows, turns, groups} : ArrangedRows{rows, {}, {}},
        [](const PullRequest& /*pullRequest*/) { return false; },
        {.isTerminal = true, .canErase = true, .hasColors = false, .columns = columns});
    std::size_t lines = 0;
    for (std::string_view text = list; !text.empty(); ++lines) {
        const std::string_view line = text.substr(0, text.find('\n'));
        Fuzzers::require(displayWidth(line) <= columns);
        Fuzzers::require(std::ranges::none_of(line, isControl));
        text.remove_prefix(line.size() + 1);
    }
    Fuzzers::require(lines >= pullRequests.size());
    return 0;
}
