#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"
#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

namespace TarnwickDirect {

/// A version of the program that can be downloaded, with all that the download is checked against.
struct UpdateOffer {
    QString version;
    QString displayedVersion;  ///< What the user reads.
    QString releaseNotes;      ///< HTML or plain text; empty where the feed has none.
    QUrl releaseNotesLink;
    bool isCritical = false;  ///< Not to be skipped.
    QUrl url;                 ///< HTTPS.
    QString fileName;         ///< A plain name.
    std::uint64_t length = 0;
    Ed25519::Signature signature{};

    bool operator==(const UpdateOffer&) const = default;
};

/// The largest file, in bytes, that is downloaded.
inline constexpr std::uint64_t downloadSizeLimit = std::uint64_t{1} << 30;

/// Makes an offer of an item and one of its files. Throws `UpdateError` unless the address is an
/// HTTPS one with a plain file name, the length is told and within the limit, and there is a
/// signature of the right form. Safe from any thread.
UpdateOffer makeOffer(const AppcastItem& item, const AppcastEnclosure& enclosure, bool isCritical);

}  // namespace TarnwickDirect
