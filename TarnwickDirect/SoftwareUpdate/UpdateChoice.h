#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <set>
#include <variant>

namespace TarnwickDirect {

/// What an update has to suit.
struct UpdateNeeds {
    QString ownVersion;
    QString systemVersion;       ///< The kernel's, such as "6.1.0".
    std::set<QString> channels;  ///< Those that the user has asked for.
    QString skippedVersion;      ///< Empty where none is to be left out.
};

/// Why a feed offers nothing.
struct NoUpdate {
    QString message;  ///< One sentence for the user.
    bool isUpToDate = false;

    bool operator==(const NoUpdate&) const = default;
};

/// Chooses the newest item that is newer than this version, for this system, of a channel that the
/// user takes and has a Debian package; of equal ones the first. It is critical where any suitable
/// item that is newer than this version is. A version older than or equal to this one is never
/// offered, and a critical one is not skipped. Throws `UpdateError` when the chosen item's file
/// cannot be verified, rather than taking an older one. Safe from any thread.
std::variant<UpdateOffer, NoUpdate> chooseUpdate(const Appcast& feed, const UpdateNeeds& needs);

}  // namespace TarnwickDirect
