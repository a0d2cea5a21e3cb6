#pragma once

#include "TarnwickDirect/Application/UpdaterHost.h"
#include "TarnwickDirect/CommandLine/Arguments.h"

namespace TarnwickDirect {

/// Runs the program on the desktop until the user or the session ends it, or hands over to the one
/// that runs already. Yields the exit status; a signal that came has ended the process by itself.
/// A new version that was installed takes the process over when the user asked for that.
/// `makeUpdater` is empty where the program has no updater. Throws `std::runtime_error` where there
/// is no display. To be called from `main`, once.
int runOnDesktop(const ShowPanel& command, const MakeUpdater& makeUpdater, int argc, char** argv);

}  // namespace TarnwickDirect
