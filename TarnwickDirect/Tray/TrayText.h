#pragma once

#include "TarnwickDirect/Tray/TrayStatus.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// What the tray icon's tooltip says: how many pull requests are shown and when they were fetched,
/// such as "12 pull requests · Updated 14:32", or "12 pull requests · Not updated since 14:05"
/// while there is trouble, or why there are none to count. All of it is the program's own wording,
/// because some trays read markup in it. The time is that of a clock and not an age, because trays
/// keep the text for as long as they like. After midnight the day stands before it.
/// `lastRefreshed` counts in `now`'s time zone. Safe from any thread.
QString trayText(const TrayStatus& status, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
