#pragma once

#include "TarnwickDirect/SoftwareUpdate/Command.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// What a download is verified against, besides the offer.
struct Trust {
    Ed25519::PublicKey key{};
    QString package;  ///< The name of the installed package.
};

/// Verifies the length and signature of a downloaded file, and that its signed control data has the
/// expected package name and version. Otherwise deletes the file and throws `UpdateError` with the
/// reason. `run` runs dpkg-deb. Blocks while it reads the file; call on a worker thread.
void verifyDownload(
    const std::filesystem::path& file,
    const UpdateOffer& offer,
    const Trust& trust,
    const RunCommand& run);

}  // namespace TarnwickDirect
