#pragma once

#include "Tarnwick/Model/MenuState.h"

namespace Tarnwick {

/// What kept a refresh from bringing a list.
enum class RefreshFailure {
    signedOut,      ///< Signing in with `gh` helps.
    ghUnavailable,  ///< `gh` is missing or does not run.
    requestFailed,  ///< Neither: GitHub was not reached or did not answer as it should.
};

/// Requires: the state is `signedOut`, `unavailable` or `failed`. Safe from any thread.
RefreshFailure refreshFailure(const MenuState& state);

}  // namespace Tarnwick
