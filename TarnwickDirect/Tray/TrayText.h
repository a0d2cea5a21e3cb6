#pragma once

#include "TarnwickDirect/Tray/TrayStatus.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// The tooltip: the number of pull requests and the time of the refresh, such as "12 pull requests
/// · Updated 14:32", or "12 pull requests · Not updated since 14:05" in trouble, or why there is no
/// list. It contains no untrusted text, because some trays interpret markup. It has a time instead
/// of an age, because trays may keep it for long; on another day the date precedes it. Times are in
/// `now`'s time zone. Safe from any thread.
QString trayText(const TrayStatus& status, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
