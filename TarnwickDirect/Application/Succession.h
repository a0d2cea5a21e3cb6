#pragma once

#include "GitHubProvider/GhDiscovery.h"
#include "Tarnwick/Desktop/Launch.h"

namespace TarnwickDirect {

/// Starts the program in the place of this one, in the same process: nothing of this one but its
/// standard streams, its folder and its environment is there any more. To be called when everything
/// else has ended. Throws `std::system_error` when the program cannot be started.
[[noreturn]] void succeed(
    const Tarnwick::Launch& successor, const GitHub::Environment& environment);

}  // namespace TarnwickDirect
