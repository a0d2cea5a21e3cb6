#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/RepositoryListing.h"

#include <set>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        std::set<std::string> names;
        for (const auto& summary : GitHub::decodeRepositories(Fuzzers::textOf(data, size))) {
            Fuzzers::require(names.insert(summary.fullName).second);
        }
    } catch (const PullRequestKit::DecodingError&) {
        // Refusing the input is fine.
    }
    return 0;
}
