#pragma once

#include "PullRequestKit/Date.h"
#include "Tarnwick/Model/MenuState.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <cstddef>
#include <optional>

namespace TarnwickDirect {

/// What the tray icon's tooltip says: how many pull requests are shown and when they were fetched,
/// such as "12 pull requests · Updated 14:32", or why there are none to count. The time is that of
/// a clock and not an age, because trays keep the text for as long as they like. After midnight the
/// day stands before it. `lastRefreshed` counts in `now`'s time zone. Safe from any thread.
QString trayText(
    const Tarnwick::MenuState& state,
    std::size_t shownPullRequests,
    std::optional<PullRequestKit::Date> lastRefreshed,
    const QDateTime& now,
    const QLocale& locale);

}  // namespace TarnwickDirect
