#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace PullRequestKit {

/// An instant in whole seconds, the precision of GitHub's times.
using Date = std::chrono::sys_seconds;

/// Parses an ISO 8601 text such as `2024-05-01T09:30:00Z` or `2024-05-01T11:30:00+02:00`: date and
/// time in whole seconds with a zone `Z`, `±hh:mm` or `±hhmm`. Yields nothing for any other text
/// and outside the years 0 to 9999. Safe from any thread.
std::optional<Date> parseDate(std::string_view text);

/// Writes the `…Z` form. Requires: the years 0 to 9999. Safe from any thread.
std::string formatDate(Date date);

}  // namespace PullRequestKit
