#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// What an updater shows to the user.
struct UpdateState {
    enum class Kind {
        idle,         ///< Nothing, also during a check that the user did not ask for.
        checking,     ///< Can be cancelled.
        told,         ///< How a check or a download has ended without an update.
        available,    ///< Waits for the user's decision.
        downloading,  ///< Can be cancelled.
        verifying,    ///< Can be cancelled.
        handedOver,   ///< The system's installer has it now.
    };

    Kind kind = Kind::idle;
    QString title = {};                  ///< With `told`.
    QString message = {};                ///< With `told`: one sentence.
    UpdateOffer offer = {};              ///< From `available` on.
    bool wasAskedFor = true;             ///< Only a check in the background finds unasked.
    std::uint64_t receivedBytes = 0;     ///< While downloading.
    std::filesystem::path package = {};  ///< With `handedOver`: the verified file.

    bool operator==(const UpdateState&) const = default;
};

}  // namespace TarnwickDirect
