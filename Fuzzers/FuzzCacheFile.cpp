#include "Fuzzers/RoundTrip.h"
#include "PullRequestKit/StackBuilder.h"
#include "PullRequestKit/UniquePullRequests.h"
#include "Tarnwick/Persistence/CachedPullRequestSnapshot.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using PullRequestKit::uniquePullRequests;
    using PullRequestKit::StackBuilder::rows;

    const std::string_view text = Fuzzers::textOf(data, size);
    const auto snapshot = Fuzzers::roundTrip<Tarnwick::CachedPullRequestSnapshot>(text);
    if (snapshot) {
        const auto& pullRequests = snapshot->pullRequests;
        Fuzzers::require(rows(pullRequests).size() == uniquePullRequests(pullRequests).size());
    }
    return 0;
}
