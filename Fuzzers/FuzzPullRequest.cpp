#include "Fuzzers/RoundTrip.h"
#include "PullRequestKit/PullRequest.h"

using PullRequestKit::PullRequest;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto pullRequest = Fuzzers::roundTrip<PullRequest>(Fuzzers::textOf(data, size));
    if (pullRequest) {
        Fuzzers::require(!(pullRequest->isUnblocked() && pullRequest->hasMergeConflict()));
        const std::string name = pullRequest->repositoryName();
        Fuzzers::require(pullRequest->id.repository.find(name) != std::string::npos);
    }
    return 0;
}
