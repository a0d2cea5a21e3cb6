#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// Lists the available repositories and marks the selected ones. Returns the exit status: 0, 1 with
/// a message on standard error, or that of `StandardOutput`. Runs the event loop.
int listRepositories(const ListRepositories& command, const SignalHandler& signalHandler);

/// Selects or unselects repositories. Returns 1 and changes nothing for an unknown name, or when
/// listing or writing fails. Runs the event loop.
int changeSelection(const ChangeSelection& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
