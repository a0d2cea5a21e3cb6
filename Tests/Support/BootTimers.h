#pragma once

#include "Support/Names.h"

#include <vector>

#include <sys/types.h>

namespace TestSupport {

/// The whole seconds that are left of each timer of a process that counts on while the machine
/// sleeps.
std::vector<int> secondsOfBootTimers(pid_t process);

}  // namespace TestSupport
