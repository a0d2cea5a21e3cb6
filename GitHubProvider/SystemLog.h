#pragma once

#include <functional>
#include <string>

namespace GitHub {

/// Takes one line of diagnostics without a line break. Must be callable from several threads.
using LogSink = std::function<void(const std::string& line)>;

/// Writes to `syslog` as "tarnwick". Without a system log the lines are lost.
LogSink systemLog();

}  // namespace GitHub
