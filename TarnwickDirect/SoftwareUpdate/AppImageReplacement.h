#pragma once

#include <filesystem>

namespace TarnwickDirect {

/// Puts a copy of the new file in the place of the old one, in one step: at every moment there is
/// either the old program or the new one, whole and on disk. The old file's permissions stay, and
/// its owner may execute the new one. A symbolic link stays, and what it leads to is replaced.
/// Throws `UpdateError`, after which the old file is as it was and nothing is left beside it.
/// Blocks; call on a worker thread.
void replaceAppImage(const std::filesystem::path& oldFile, const std::filesystem::path& newFile);

}  // namespace TarnwickDirect
