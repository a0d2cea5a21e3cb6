#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"

namespace TarnwickDirect {

/// `tarnwick watch`: prints a line with the state of the list now and after every change, until the
/// reader is gone or a signal arrives. Follows the running program, or else the files. Sends no
/// requests and starts nothing. Returns the exit status.
int watch(const WatchList& command, const SignalHandler& signalHandler);

}  // namespace TarnwickDirect
