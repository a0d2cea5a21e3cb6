#pragma once

#include "SampleGitHub/GhEnvironment.h"
#include "SampleGitHub/Signals.h"

#include <string>
#include <vector>

namespace SampleGitHub {

/// Runs a command, found on PATH, waits for its end and passes other signals on to it. Returns its
/// exit status, or 128 plus the signal number. Requires: `signals` has SIGCHLD. Throws
/// `std::runtime_error` with one English sentence when the command cannot be started.
int runCommand(
    const std::vector<std::string>& command,
    const Environment& environment,
    const Signals& signals);

}  // namespace SampleGitHub
