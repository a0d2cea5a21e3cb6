#include "Fuzzers/Require.h"
#include "GitHubProvider/FactsReading.h"
#include "PullRequestKit/PullRequest.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    PullRequestKit::PullRequest first;
    first.id = {"github", "github.com", "octo/tools", 12};
    PullRequestKit::PullRequest second = first;
    second.id.number = 7;
    const std::vector<const PullRequestKit::PullRequest*> rows{&first, &second};
    const auto page = GitHub::readFacts(Fuzzers::textOf(data, size), rows, {});
    Fuzzers::require(page.facts.size() <= rows.size());
    Fuzzers::require(page.hasData || (page.facts.empty() && !page.quota));
    for (const auto& [id, facts] : page.facts) {
        Fuzzers::require(id.number == first.id.number || id.number == second.id.number);
        Fuzzers::require(!facts.headCommit.empty());
        Fuzzers::require(facts.openThreadCount >= 0 && facts.openThreadCount <= facts.threadCount);
        Fuzzers::require(facts.mergeQueuePosition.value_or(1) > 0);
        Fuzzers::require(facts.isInMergeQueue || !facts.mergeQueuePosition);
    }
    if (page.quota) {
        Fuzzers::require(page.quota->limit > 0 && page.quota->remaining >= 0);
    }
    return 0;
}
