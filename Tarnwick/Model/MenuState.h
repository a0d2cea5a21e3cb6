#pragma once

#include <string>

namespace Tarnwick {

/// How far the list has got. The three cases that cannot go on carry the text to show.
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
    std::string message;  ///< Empty but in `signedOut`, `unavailable` and `failed`.

    /// In `unavailable`: GitHub is out of reach or refuses requests, and `gh` is not to blame.
    bool isServiceOutOfReach = false;

    /// By case and message, which says the reason.
    bool operator==(const MenuState& other) const
    {
        return kind == other.kind && message == other.message;
    }
};

}  // namespace Tarnwick
