#pragma once

#include <QString>

#include <compare>

namespace TarnwickDirect {

/// Orders versions such as "1.10", "1.9.2" and "2.0 beta 3" from older to newer.
///
/// A version is a row of numbers and words; whatever stands between them only separates, and a row
/// goes on with zeros for ever, so "1.0" is "1.0.0". Numbers count by their value, however long.
/// Words, in any case of letters, count by the alphabet and before every number: "2.0 beta" is
/// older than "2.0". A "v" before the first number and what follows a "+" do not count. Safe from
/// any thread.
std::weak_ordering compareVersions(QStringView left, QStringView right);

/// The numbers at the beginning of a kernel's version: "6.1.0" of "6.1.0-18-amd64". What a
/// distribution appends would make it older than that version. Safe from any thread.
QString systemVersionIn(const QString& kernelVersion);

/// The program's version in that of a Debian package: "0.2.0" of "1:0.2.0-1", without the epoch and
/// the packager's revision. Safe from any thread.
QString upstreamVersion(const QString& packageVersion);

}  // namespace TarnwickDirect
