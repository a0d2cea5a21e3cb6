#include "Fuzzers/RoundTrip.h"
#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    const auto kept = Fuzzers::roundTrip<Tarnwick::KeptPullRequests>(text);
    if (kept) {
        for (const Tarnwick::KeptPullRequest& pullRequest : kept->pullRequests) {
            const auto& details = pullRequest.details;
            Fuzzers::require(
                !details
                || details->isCutOff()
                       == (details->requestLimit || details->reviewLimit || details->checkLimit));
        }
    }
    return 0;
}
