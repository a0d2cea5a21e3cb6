#pragma once

#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"

namespace TarnwickDirect {

/// Runs the program on the desktop until the user or the session ends it, or hands over to the one
/// that runs already. Yields the exit status; a signal that came has ended the process by itself.
/// `makeUpdater` is empty where the program has no updater. Throws `std::runtime_error` where there
/// is no display. To be called from `main`, once.
int runOnDesktop(const ShowPanel& command, const MakeUpdater& makeUpdater, int argc, char** argv);

}  // namespace TarnwickDirect
