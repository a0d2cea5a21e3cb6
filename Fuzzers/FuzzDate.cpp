#include "Fuzzers/Require.h"
#include "PullRequestKit/Date.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    if (const auto date = PullRequestKit::parseDate(text)) {
        const std::string written = PullRequestKit::formatDate(*date);
        Fuzzers::require(PullRequestKit::parseDate(written) == date);
        Fuzzers::require(!text.ends_with('Z') || written == text);
    }
    return 0;
}
