#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// Refreshes and prints the list like the panel. Returns the exit status: 0 if the list was loaded
/// without an error, else 1. Runs the event loop.
int listPullRequests(const ListPullRequests& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
