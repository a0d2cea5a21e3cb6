#pragma once

#include <string>
#include <string_view>

namespace GitHub {

/// Whether the text is GitHub's message on its secondary rate limit. Safe from any thread.
bool tellsOfSecondaryLimit(std::string_view text);

/// Whether the text is GitHub's message on any rate limit. Safe from any thread.
bool tellsOfLimit(std::string_view text);

/// Throws `SecondaryLimitError` if the message tells of that limit, else `ProviderError`.
[[noreturn]] void throwRequestFailure(const std::string& message);

}  // namespace GitHub
