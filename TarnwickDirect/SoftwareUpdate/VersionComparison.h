#pragma once

#include <QString>

#include <compare>

namespace TarnwickDirect {

/// Compares versions such as "1.10", "1.9.2" and "2.0 beta 3".
/// A version is a sequence of numbers and words; other characters separate them. Missing segments
/// are zero: "1.0" equals "1.0.0". Numbers compare by value and may have any length. Words compare
/// alphabetically, ignoring case, and precede numbers: "2.0 beta" is older than "2.0". A leading
/// "v" and everything after "+" are ignored. Safe from any thread.
std::weak_ordering compareVersions(QStringView left, QStringView right);

/// The numeric prefix of a kernel version: "6.1.0" for "6.1.0-18-amd64". A distribution's suffix
/// would make it compare as older. Safe from any thread.
QString systemVersionIn(const QString& kernelVersion);

/// The upstream part of a Debian version: "0.2.0" for "1:0.2.0-1". Safe from any thread.
QString upstreamVersion(const QString& packageVersion);

}  // namespace TarnwickDirect
