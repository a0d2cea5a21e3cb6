#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/SearchRecords.h"

namespace {

/// What is made of a hit is a record that the cache can hold.
void requireStorable(const GitHubProvider::Node& node)
{
    const auto made = GitHubProvider::makePullRequest(node, "github.com", std::nullopt);
    if (made) {
        Fuzzers::require(
            Fuzzers::roundTrip<PullRequestKit::PullRequest>(PullRequestKit::Json::encode(*made))
            == made);
        const PullRequestKit::ProgressCount& checks = made->checks;
        Fuzzers::require(checks.failed >= 0 && checks.completed >= 0);
        Fuzzers::require(checks.completed + checks.failed <= checks.total);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    const auto answer = Fuzzers::roundTrip<GitHubProvider::SearchEnvelope>(text);
    if (answer && answer->data) {
        for (const GitHubProvider::Node& node : answer->data->search.nodes) {
            requireStorable(node);
        }
    }
    return 0;
}
