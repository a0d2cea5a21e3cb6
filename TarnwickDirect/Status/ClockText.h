#pragma once

#include "PullRequestKit/Date.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// The time on a clock in the locale's short form, without seconds, such as "14:05"; of another day
/// with the day in front, such as "12 Mar 14:05". The date counts in `now`'s time zone. Safe from
/// any thread.
QString clockText(PullRequestKit::Date date, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
