#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// Lists the available repositories and marks the selected ones. Yields the exit status: 0, or 1
/// with a sentence on standard error when they cannot be listed, or that of `StandardOutput`. Runs
/// the event loop.
int listRepositories(const ListRepositories& command, const SignalHandler& signalHandler);

/// Selects or unselects. A name that GitHub did not list changes nothing and yields 1, as do
/// repositories that cannot be listed and settings that cannot be written. Runs the event loop.
int changeSelection(const ChangeSelection& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
