#pragma once

#include "SampleGitHub/GhEnvironment.h"
#include "SampleGitHub/Signals.h"

#include <string>
#include <vector>

namespace SampleGitHub {

/// Runs a command, found through PATH, and waits for its end; the other signals that come meanwhile
/// are passed on to it. Yields its exit status, or 128 and the number of the signal that ended it.
/// Requires: `signals` has SIGCHLD. Throws `std::runtime_error` with one English sentence when the
/// command cannot be started.
int runCommand(
    const std::vector<std::string>& command,
    const Environment& environment,
    const Signals& signals);

}  // namespace SampleGitHub
