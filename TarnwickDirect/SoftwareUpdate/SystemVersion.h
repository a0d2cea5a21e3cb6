#pragma once

#include <QString>

namespace TarnwickDirect {

/// The numbers at the beginning of a kernel's version: "6.1.0" of "6.1.0-18-amd64". What a
/// distribution appends would count as a version before that one. Safe from any thread.
QString systemVersionIn(const QString& kernelVersion);

}  // namespace TarnwickDirect
