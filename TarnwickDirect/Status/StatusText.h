#pragma once

#include "TarnwickDirect/Status/Status.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// Such as "3 wait on you · 14:05": if none wait, the total number; if the list is stale, since
/// when it was not updated. Safe from any thread.
QString statusText(const Status& status, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
