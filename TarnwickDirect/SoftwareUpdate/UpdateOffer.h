#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"
#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

namespace TarnwickDirect {

/// A downloadable version of the program, with the data to verify the download.
struct UpdateOffer {
    QString version;
    QString displayedVersion;  ///< Shown to the user.
    QString releaseNotes;      ///< HTML or plain text; may be empty.
    bool isCritical = false;   ///< Cannot be skipped.
    QUrl url;                  ///< HTTPS.
    QString fileName;          ///< Without a path.
    std::uint64_t length = 0;
    Ed25519::Signature signature{};

    bool operator==(const UpdateOffer&) const = default;
};

/// The largest downloaded file, in bytes.
inline constexpr std::uint64_t downloadSizeLimit = std::uint64_t{1} << 30;

/// Validates an item and one of its files. Throws `UpdateError` unless the URL is HTTPS with a
/// valid file name, the length within the limit, and the signature well-formed. Safe from any
/// thread.
UpdateOffer makeOffer(const AppcastItem& item, const AppcastEnclosure& enclosure, bool isCritical);

/// The file name in a URL's path. Throws `UpdateError` if it is empty, hidden, too long, or
/// contains a separator or invisible characters, literally or percent-encoded. Safe from any
/// thread.
QString downloadName(const QUrl& url);

}  // namespace TarnwickDirect
