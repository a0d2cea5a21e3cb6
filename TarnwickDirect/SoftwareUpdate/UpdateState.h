#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// What an updater shows to the user.
struct UpdateState {
    enum class Kind {
        idle,      ///< Nothing, also during a check that the user did not ask for.
        checking,  ///< Can be cancelled.
        upToDate,
        noUpdate,     ///< There is none for another reason than that this version is the newest.
        available,    ///< Waits for the user's decision.
        downloading,  ///< Can be cancelled.
        verifying,    ///< Can be cancelled.
        installing,
        installed,   ///< The new version runs once the program is started again.
        handedOver,  ///< The system's installer has it now.
        failed,
    };

    Kind kind = Kind::idle;
    UpdateOffer offer;                ///< From `available` on, but not with `failed`.
    bool wasAskedFor = true;          ///< Only a check of the program's own finds unasked.
    std::uint64_t receivedBytes = 0;  ///< While downloading.
    std::filesystem::path package;    ///< With `handedOver`: the verified file.
    QString message;  ///< One sentence; what a check that found nothing or failed says.

    bool operator==(const UpdateState&) const = default;
};

}  // namespace TarnwickDirect
