#pragma once

#include "GitHubProvider/Process/FileDescriptor.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>
#include <time.h>

/// Whole files. All functions block, are safe from any thread and throw `std::system_error`.
namespace Tarnwick::Files {

inline constexpr mode_t ownerOnly = 0600;

/// The contents of a regular file; nothing when there is none. Throws for anything other than a
/// regular file and for more than `limit` bytes; never blocks on a pipe.
std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit);

/// Replaces the file atomically and durably. After an error the old file is unchanged and no
/// temporary file remains. Also removes temporary files of killed processes after a minute; beside
/// a JSON file, those of all JSON files. Follows symbolic links and creates missing folders.
void replace(const std::filesystem::path& path, std::string_view contents, mode_t permissions);

/// Detects whether a file changed, without reading it.
struct Stamp {
    ino_t number = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};

    bool operator==(const Stamp& other) const;
};

/// The stamp of the target of the path; the initial stamp if there is none. Never throws.
Stamp stampOf(const std::filesystem::path& path);

/// An exclusive lock on a file's folder against other processes. Creates a missing folder. The
/// system releases it when a process ends. Does nothing on file systems without locks.
class FolderLock {
public:
    /// The wait for the lock, after which the constructor throws. A write takes far less.
    static constexpr std::chrono::seconds limit{5};

    explicit FolderLock(const std::filesystem::path& file);

private:
    GitHub::FileDescriptor _folder;
};

}  // namespace Tarnwick::Files
