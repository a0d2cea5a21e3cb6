#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// Makes one refresh as opening the panel does and prints what it shows. Yields the exit status: 0
/// when the list is loaded without an error, else 1. Runs the event loop.
int listPullRequests(const ListPullRequests& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
