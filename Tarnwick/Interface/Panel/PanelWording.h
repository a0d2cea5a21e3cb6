#pragma once

#include "PullRequestKit/Date.h"

#include <QString>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace Tarnwick {

/// What the panel says in its own words.
namespace PanelWording {

/// Such as "1 pull request" or "12 pull requests".
QString count(std::size_t pullRequests);

/// Such as "Updated 2 minutes ago"; the day by the user's time zone once it is over a day old.
QString updated(PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// After how long `updated` next says something else; nothing when it never does.
std::optional<std::chrono::seconds> untilUpdatedChanges(
    PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// That GitHub found more than it gives, such as "GitHub found 1,240 pull requests; 1,000 are
/// listed."
QString truncated(std::int64_t found, std::int64_t listed);

}  // namespace PanelWording

}  // namespace Tarnwick
