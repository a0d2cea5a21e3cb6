#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/PullRequestFacts.h"
#include "Tarnwick/Model/HiddenCounts.h"

#include <QString>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace Tarnwick {

namespace PanelWording {

/// Such as "1 pull request" or "12 pull requests".
QString count(std::size_t pullRequests);

/// The footer's chip: "3 hidden", or "Hide 3" while they are shown.
QString hiddenChip(const HiddenCounts& hidden, bool areShown);

/// For screen readers: "Show 3 hidden pull requests" or "Hide 3 pull requests".
QString hiddenChipName(const HiddenCounts& hidden, bool areShown);

/// Such as "2 by filters, 1 muted".
QString hiddenHelp(const HiddenCounts& hidden);

/// Such as "Updated 2 minutes ago"; a local date after a day, or if it is in the future.
QString updated(PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// The time until `updated` returns another text; nothing if it never does.
std::optional<std::chrono::seconds> untilUpdatedChanges(
    PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// Such as "GitHub found 1,240 pull requests; 1,000 are listed."
QString truncated(std::int64_t found, std::int64_t listed);

/// Such as "GitHub quota 312 of 5,000 until 14:20; polling rests.", in local time.
QString resting(const PullRequestKit::Quota& quota);

/// Joins the lines of a text, such as gh's output, into one paragraph: without indentation and
/// bullets, and with a full stop after each line that has none.
QString paragraph(const QString& text);

}  // namespace PanelWording

}  // namespace Tarnwick
