#pragma once

#include "TarnwickDirect/Application/UpdaterHost.h"

namespace TarnwickDirect {

/// Makes the updater that this program was built with; empty where it has none. Each program has
/// its own definition: what updates come from, and who signs them, is nothing that a running
/// program is told. Main thread only.
MakeUpdater programUpdater();

}  // namespace TarnwickDirect
