#include "Fuzzers/Require.h"
#include "Tarnwick/Desktop/AutostartLoginItem.h"

#include <algorithm>
#include <string>

namespace AutostartEntry = Tarnwick::AutostartEntry;

/// Reads the input as an existing entry, and writes an entry with the input as the program's path.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(Fuzzers::textOf(data, size));
    Fuzzers::require(!AutostartEntry::isEnabled("[Desktop Entry]\nHidden=true\n[Next]\n" + text));

    const std::string own = AutostartEntry::text(text);
    Fuzzers::require(AutostartEntry::isEnabled(own));
    Fuzzers::require(std::ranges::count(own, '\n') == 9);
    static_cast<void>(AutostartEntry::isEnabled(text));
    return 0;
}
