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

struct WatchedList {
    Status status;
    std::span<const PullRequestKit::PullRequestRow> rows;
    std::span<const PullRequestKit::Turn> turns;  ///< One per row.
};

/// One line for a bar, without line feed. Untrusted texts are escaped for the bar's markup and have
/// no control or direction characters. Requires: the format is not `json`. Safe from any thread.
std::string watchLine(
    WatchFormat format, const WatchedList& list, const QDateTime& now, const QLocale& locale);

}  // namespace TarnwickDirect
