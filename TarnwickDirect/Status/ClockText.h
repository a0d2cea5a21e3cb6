#pragma once

#include "PullRequestKit/Date.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace TarnwickDirect {

/// The time in the locale's short form, such as "14:05", or "12 Mar 14:05" on another day, in
/// `now`'s time zone. Safe from any thread.
QString clockText(PullRequestKit::Date date, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
