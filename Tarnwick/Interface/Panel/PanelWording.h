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

/// What the panel says in its own words.
namespace PanelWording {

/// Such as "1 pull request" or "12 pull requests".
QString count(std::size_t pullRequests);

/// What the footer's chip says: "3 hidden", or "Hide 3" while they are shown.
QString hiddenChip(const HiddenCounts& hidden, bool areShown);

/// The same for a screen reader: "Show 3 hidden pull requests" or "Hide 3 pull requests".
QString hiddenChipName(const HiddenCounts& hidden, bool areShown);

/// What hides them, such as "2 by filters, 1 muted".
QString hiddenHelp(const HiddenCounts& hidden);

/// Such as "Updated 2 minutes ago"; the day by the user's time zone once it is over a day old, or
/// when it is still to come, because the clock was set back.
QString updated(PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// After how long `updated` next says something else; nothing when it never does.
std::optional<std::chrono::seconds> untilUpdatedChanges(
    PullRequestKit::Date refreshed, PullRequestKit::Date now);

/// That GitHub found more than it gives, such as "GitHub found 1,240 pull requests; 1,000 are
/// listed."
QString truncated(std::int64_t found, std::int64_t listed);

/// That little is left of what GitHub grants, such as "GitHub quota 312 of 5,000 until 14:20;
/// polling rests."; the time by the user's time zone.
QString resting(const PullRequestKit::Quota& quota);

/// A text of several lines, such as those that gh prints, as one paragraph: without indentation and
/// marks before the lines, and with a full stop after each that has none.
QString paragraph(const QString& text);

}  // namespace PanelWording

}  // namespace Tarnwick
