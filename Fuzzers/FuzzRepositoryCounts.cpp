#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/RepositoryCounts.h"
#include "GitHubProvider/SearchMemory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    Fuzzers::roundTrip<GitHub::SearchKnowledge>(text);
    const auto answer = Fuzzers::roundTrip<GitHub::RepositoryCountsEnvelope>(text);
    if (answer && answer->data) {
        const GitHub::RepositoryCounts& counts = *answer->data;
        Fuzzers::require(
            !counts.proveThatTermsExclude()
            || (counts.together.issueCount == 0
                && counts.first.issueCount != counts.together.issueCount)
            || counts.second.issueCount > 0);
    }
    return 0;
}
