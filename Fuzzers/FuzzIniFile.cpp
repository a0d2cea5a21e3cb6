#include "Fuzzers/Require.h"
#include "Tarnwick/Persistence/IniDocument.h"
#include "Tarnwick/Persistence/IniValue.h"

#include <optional>
#include <string>

namespace IniValue = Tarnwick::IniValue;
using Tarnwick::IniDocument;

namespace {

constexpr std::string_view key = "filters.status";
constexpr std::string_view otherKey = "panel.size";

/// Writing a value preserves its meaning and results in a single line.
std::string requireKept(std::string_view value)
{
    const auto date = IniValue::decodeDate(value);
    const auto texts = IniValue::decodeList(value);
    std::string written = date ? IniValue::encodeDate(*date) : IniValue::encodeList(texts);
    Fuzzers::require(IniValue::decodeDate(written) == date);
    Fuzzers::require(date || IniValue::decodeList(written) == texts);
    Fuzzers::require(written.find_first_of("\r\n") == std::string::npos);
    return written;
}

}  // namespace

/// Reads the input as a file and as the value of a key.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Fuzzers::textOf(data, size);
    const std::string written = requireKept(text);

    IniDocument document(text);
    const std::string original = document.text();
    Fuzzers::require(original == text || original == std::string(text) + "\n");
    const std::optional<std::string_view> found = document.value(otherKey);
    const std::optional<std::string> before =
        found ? std::optional<std::string>(*found) : std::nullopt;
    if (before) {
        requireKept(*before);
    }

    document.set(key, written);
    Fuzzers::require(document.value(key) == written);
    Fuzzers::require(document.value(otherKey) == before);
    const IniDocument again(document.text());
    Fuzzers::require(again.value(key) == written);
    Fuzzers::require(again.value(otherKey) == before);
    return 0;
}
