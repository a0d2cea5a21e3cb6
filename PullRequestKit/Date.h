#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace PullRequestKit {

/// An instant in whole seconds since 1970-01-01T00:00:00Z, the precision in which GitHub tells
/// time.
using Date = std::chrono::sys_seconds;

/// Reads an ISO 8601 text such as `2024-05-01T09:30:00Z` or `2024-05-01T11:30:00+02:00`.
/// Date, time and seconds must be there, fractions of a second must not; the zone is `Z`, `±hh:mm`
/// or `±hhmm`. Yields nothing for any other text and for instants outside the years 0 to 9999.
/// Safe from any thread.
std::optional<Date> parseDate(std::string_view text);

/// Writes the `…Z` form, which `parseDate` reads back to the same instant.
/// Requires: the years 0 to 9999. Safe from any thread.
std::string formatDate(Date date);

}  // namespace PullRequestKit
