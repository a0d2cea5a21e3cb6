#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <filesystem>

namespace TarnwickDirect {

/// Makes sure that a downloaded file is what was offered: as long, to the byte, and signed by the
/// owner of the key. Otherwise the file is deleted, and an `UpdateError` names it and tells why.
/// Blocks for as long as it takes to read the file; call on a worker thread.
void verifyDownload(
    const std::filesystem::path& file, const UpdateOffer& offer, const Ed25519::PublicKey& key);

}  // namespace TarnwickDirect
