#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// `tarnwick watch`: prints the state of the list at once and again at every change, one line each,
/// until nobody reads any more or a signal comes. Follows the running program, or the files where
/// none runs. Asks GitHub nothing and starts nothing. Returns the exit status.
int watch(const WatchList& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
