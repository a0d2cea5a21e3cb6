#pragma once

#include "TarnwickDirect/Status/Status.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// What a bar or a menu says of the list, such as "3 wait on you · 14:05"; where nothing does, how
/// many there are, and where the list is stale, that it was not updated since. Safe from any
/// thread.
QString statusText(const Status& status, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
