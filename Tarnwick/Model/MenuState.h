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

    bool operator==(const MenuState&) const = default;
};

}  // namespace Tarnwick
