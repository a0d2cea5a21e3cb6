#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"

namespace TarnwickDirect {

/// Runs the program until the user or the session ends it, or forwards the command to a running
/// instance. Returns the exit status; a signal ends the process itself. `makeUpdater` is empty
/// without an updater. Throws `std::runtime_error` without a display. Call once, from `main`.
int runOnDesktop(const ShowPanel& command, const MakeUpdater& makeUpdater, int argc, char** argv);

}  // namespace TarnwickDirect
