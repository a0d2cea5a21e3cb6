#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// The visible state of an updater.
struct UpdateState {
    enum class Kind {
        idle,         ///< Also during automatic checks.
        checking,     ///< Can be cancelled.
        told,         ///< A check or download ended without an update.
        available,    ///< Waits for the user's decision.
        downloading,  ///< Can be cancelled.
        verifying,    ///< Can be cancelled.
        handedOver,   ///< Opened in the system's installer.
    };

    Kind kind = Kind::idle;
    QString title = {};                  ///< With `told`.
    QString message = {};                ///< With `told`: one sentence.
    UpdateOffer offer = {};              ///< From `available` on.
    bool wasAskedFor = true;             ///< False for an update found by an automatic check.
    std::uint64_t receivedBytes = 0;     ///< While downloading.
    std::filesystem::path package = {};  ///< With `handedOver`: the verified file.

    bool operator==(const UpdateState&) const = default;
};

}  // namespace TarnwickDirect
