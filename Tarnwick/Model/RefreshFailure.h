#pragma once

#include "Tarnwick/Model/MenuState.h"

namespace Tarnwick {

enum class RefreshFailure {
    signedOut,      ///< Can be fixed by signing in with `gh`.
    ghUnavailable,  ///< `gh` is missing or does not run.
    requestFailed,  ///< GitHub was unreachable or gave an unexpected answer.
};

/// Requires: the state is `signedOut`, `unavailable` or `failed`. Safe from any thread.
RefreshFailure refreshFailure(const MenuState& state);

}  // namespace Tarnwick
