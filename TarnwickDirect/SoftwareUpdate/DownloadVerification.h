#pragma once

#include "TarnwickDirect/SoftwareUpdate/Command.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// What a download is checked against, beside the offer.
struct Trust {
    Ed25519::PublicKey key{};
    QString package;  ///< The name of the package that is updated.
};

/// Makes sure that a downloaded file is what was offered: as long, to the byte, signed by the owner
/// of the key, and, by its own signed control data, the package and the version that it is offered
/// as. Otherwise the file is deleted, and an `UpdateError` names it and tells why. `run` asks
/// dpkg-deb. Blocks for as long as it takes to read the file; call on a worker thread.
void verifyDownload(
    const std::filesystem::path& file,
    const UpdateOffer& offer,
    const Trust& trust,
    const RunCommand& run);

}  // namespace TarnwickDirect
