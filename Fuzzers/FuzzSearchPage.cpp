#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/SearchRecords.h"

#include <utility>

namespace {

/// The records of a hit can be stored, and have no more names than their counts say.
void requireConsistent(const GitHub::Node& node)
{
    PullRequestKit::SharedTexts texts;
    const auto made = GitHub::mapPullRequest(node, "github.com", std::nullopt, texts);
    if (made) {
        const PullRequestKit::PullRequest& pullRequest = made->pullRequest;
        Fuzzers::require(
            Fuzzers::roundTrip<PullRequestKit::PullRequest>(
                PullRequestKit::Json::encode(pullRequest))
            == pullRequest);
        const PullRequestKit::ProgressCount& checks = made->pullRequest.checks;
        Fuzzers::require(checks.failed >= 0 && checks.completed >= 0);
        Fuzzers::require(checks.completed + checks.failed <= checks.total);
        const PullRequestKit::PullRequestDetails& details = made->details;
        Fuzzers::require(std::cmp_less_equal(details.passedChecks.size(), checks.completed));
        Fuzzers::require(std::cmp_less_equal(details.failedChecks.size(), checks.failed));
        Fuzzers::require(std::cmp_less_equal(
            details.runningChecks.size(), checks.total - checks.completed - checks.failed));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    const auto answer = Fuzzers::roundTrip<GitHub::SearchEnvelope>(text);
    if (answer && answer->data) {
        for (const GitHub::Node& node : answer->data->search.nodes) {
            requireConsistent(node);
        }
    }
    return 0;
}
