#include "Fuzzers/RoundTrip.h"
#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    auto kept = Fuzzers::roundTrip<Tarnwick::KeptPullRequests>(text);
    if (!kept) {
        return 0;
    }
    Tarnwick::CachedPullRequestSnapshot snapshot;
    for (const Tarnwick::KeptPullRequest& pullRequest : kept->pullRequests) {
        snapshot.pullRequests.emplace_back().id = pullRequest.id;
    }
    try {
        const auto details = Tarnwick::detailsOf(*std::move(kept));
        // Writing preserves what was read.
        Fuzzers::require(Tarnwick::detailsOf(Tarnwick::keptForm(snapshot, details)) == details);
    } catch (const std::out_of_range&) {
        return 0;
    }
    return 0;
}
