#pragma once

#include <functional>
#include <string>

namespace GitHub {

/// Takes one line of diagnostics, without a line break. Called from several threads at once.
using LogSink = std::function<void(const std::string& line)>;

/// Writes to the system log (`syslog`) as "tarnwick". Without a system log the lines are lost.
LogSink systemLog();

}  // namespace GitHub
