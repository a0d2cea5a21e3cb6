#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <set>
#include <variant>

namespace TarnwickDirect {

struct UpdateNeeds {
    QString ownVersion;
    QString systemVersion;       ///< The kernel's, such as "6.1.0".
    std::set<QString> channels;  ///< Selected by the user.
    QString skippedVersion;      ///< May be empty.
};

struct NoUpdate {
    QString message;  ///< One sentence for the user.
    bool isUpToDate = false;

    bool operator==(const NoUpdate&) const = default;
};

/// Chooses the newest item for this system that is newer than this version, in one of the user's
/// channels, and has a Debian package; of equal ones the first. The update is critical if any
/// suitable newer item is. Critical updates cannot be skipped. Throws `UpdateError` when the chosen
/// file cannot be verified, instead of choosing an older one. Safe from any thread.
std::variant<UpdateOffer, NoUpdate> chooseUpdate(const Appcast& feed, const UpdateNeeds& needs);

}  // namespace TarnwickDirect
