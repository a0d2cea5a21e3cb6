#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "TarnwickDirect/CommandLine/WatchFormat.h"
#include "TarnwickDirect/Status/Status.h"

#include <QDateTime>
#include <QLocale>

#include <span>
#include <string>

namespace TarnwickDirect {

/// What a bar shows of the list.
struct WatchedList {
    Status status;
    std::span<const PullRequestKit::PullRequestRow> rows;
    std::span<const PullRequestKit::Turn> turns;  ///< One for each of the rows.
};

/// One line for a bar, without its end. Strangers' texts are escaped as the bar's markup wants it
/// and have no control or direction characters. Requires: the format is not `json`. Safe from any
/// thread.
std::string watchLine(
    WatchFormat format, const WatchedList& list, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
