#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/BaseRules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    const auto answer = Fuzzers::roundTrip<GitHub::BaseRulesEnvelope>(text);
    if (!answer || !answer->data) {
        return 0;
    }
    for (const auto& ref : answer->data->nodes) {
        const auto strictest = ref ? ref->requiredApprovingReviewCount() : std::nullopt;
        const auto ownRule = ref && ref->refUpdateRule
                                 ? ref->refUpdateRule->requiredApprovingReviewCount
                                 : std::nullopt;
        Fuzzers::require(!ownRule || *ownRule <= 0 || strictest >= ownRule);
    }
    return 0;
}
