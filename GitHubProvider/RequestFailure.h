#pragma once

#include <string>
#include <string_view>

namespace GitHub {

/// Whether the text is GitHub's about its secondary rate limit, which pauses an account that asks
/// too much within a short time. Safe from any thread.
bool tellsOfSecondaryLimit(std::string_view text);

/// The same for any of its rate limits. Safe from any thread.
bool tellsOfLimit(std::string_view text);

/// Throws the error that a failed request is: `SecondaryLimitError` when the message says so, else
/// `ProviderError`.
[[noreturn]] void throwRequestFailure(const std::string& message);

}  // namespace GitHub
