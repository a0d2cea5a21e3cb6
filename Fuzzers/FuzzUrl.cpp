#include "Fuzzers/Require.h"
#include "PullRequestKit/Url.h"

#include <algorithm>

/// A URL is kept unchanged and contains nothing that could end a line or an argument.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    if (const auto url = PullRequestKit::parseUrl(text)) {
        Fuzzers::require(url->text == text);
        Fuzzers::require(text.find(':') != std::string_view::npos && !text.starts_with('-'));
        Fuzzers::require(std::ranges::none_of(text, [](char character) {
            const auto byte = static_cast<unsigned char>(character);
            return byte <= 0x20 || byte == 0x7F;
        }));
    }
    return 0;
}
