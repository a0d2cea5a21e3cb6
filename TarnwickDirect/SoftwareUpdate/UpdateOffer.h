#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"
#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

namespace TarnwickDirect {

/// A version of the program that can be downloaded, with all that the download is checked against.
struct UpdateOffer {
    QString version;
    QString displayedVersion;  ///< What the user reads.
    QString releaseNotes;      ///< HTML or plain text; empty where the feed has none.
    bool isCritical = false;   ///< Cannot be skipped.
    QUrl url;                  ///< HTTPS.
    QString fileName;          ///< A plain name.
    std::uint64_t length = 0;
    Ed25519::Signature signature{};

    bool operator==(const UpdateOffer&) const = default;
};

/// The largest file, in bytes, that is downloaded.
inline constexpr std::uint64_t downloadSizeLimit = std::uint64_t{1} << 30;

/// Makes an offer of an item and one of its files. Throws `UpdateError` unless the address is an
/// HTTPS one with a plain file name, the length is given and within the limit, and there is a
/// signature of the right form. Safe from any thread.
UpdateOffer makeOffer(const AppcastItem& item, const AppcastEnclosure& enclosure, bool isCritical);

/// The name of the file at an address: the last part of its path, if that is a plain name. Throws
/// `UpdateError` where it is empty, hidden, too long for a file system, or contains a path or
/// characters that cannot be seen, literally or as "%2F". Safe from any thread.
QString downloadName(const QUrl& url);

}  // namespace TarnwickDirect
