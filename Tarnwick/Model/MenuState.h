#pragma once

#include <string>

namespace Tarnwick {

/// The state of the list. `signedOut`, `unavailable` and `failed` have a message for the user.
struct MenuState {
    enum class Kind {
        signedOut,
        unavailable,
        failed,
        idle,
        checkingAuthentication,
        loading,
        loaded,
    };

    Kind kind = Kind::idle;
    std::string message;

    /// With `unavailable`: GitHub is unreachable or refuses requests; `gh` itself works.
    bool isServiceOutOfReach = false;

    bool operator==(const MenuState& other) const
    {
        return kind == other.kind && message == other.message;
    }
};

}  // namespace Tarnwick
