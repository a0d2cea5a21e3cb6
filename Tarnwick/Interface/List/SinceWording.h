#pragma once

#include "Tarnwick/Persistence/VisitStore.h"

#include <QString>
#include <QTimeZone>

namespace Tarnwick {

/// Texts on what has changed since the user last opened a pull request. Safe from any thread.
namespace SinceWording {

/// "14:05" on the same day, "yesterday", "Tuesday" up to six days ago, then "12 Mar", and "12 Mar
/// 2025" in another year. Requires: `instant` is not after `now`.
QString day(PullRequestKit::Date instant, PullRequestKit::Date now, const QTimeZone& zone);

/// Such as "Since Tuesday: approved, checks 4/4 → 2/4, new commits", with at most four changes. If
/// the clock was set back since: "Since you looked: approved".
QString sentence(const SinceVisit& since, PullRequestKit::Date now, const QTimeZone& zone);

/// The same for screen readers: "checks from 4/4 to 2/4".
QString spokenSentence(const SinceVisit& since, PullRequestKit::Date now, const QTimeZone& zone);

}  // namespace SinceWording

}  // namespace Tarnwick
