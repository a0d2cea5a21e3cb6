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

/// Whole files, read and written at once. Everything here blocks, is safe from any thread, and
/// throws `std::system_error` with the system's reason.
namespace Tarnwick::Files {

/// Read and written by the owner alone.
inline constexpr mode_t ownerOnly = 0600;

/// The contents of a regular file, or nothing where there is no file. Anything else in its place
/// and a file of more than `limit` bytes are errors; a pipe is not waited for.
std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit);

/// Puts a new file with these contents and these permissions in the place of the old one, once it
/// is on disk to the last byte. After an error the old file is as it was and nothing is left beside
/// it; what a killed process has left beside it more than a minute ago is removed, and beside a
/// file of JSON what was to be another one of them. A symbolic link stays, and what it leads to is
/// replaced. Missing folders are made.
void replace(const std::filesystem::path& path, std::string_view contents, mode_t permissions);

/// Tells one state of a file from another without reading it.
struct Stamp {
    ino_t number = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};

    bool operator==(const Stamp& other) const;
};

/// Of the file that the path leads to; the initial stamp where there is none. Throws nothing.
Stamp stampOf(const std::filesystem::path& path);

/// While it lives, no other process holds a lock on the folder of this file, which is made if it is
/// missing. The system takes the lock back when a process ends in any way. On a file system without
/// locks there is none.
class FolderLock {
public:
    /// Nobody holds it for longer than a write takes, unless stopped by a signal. A lock that is
    /// not free within this time counts as an error, so that such a process stops no other.
    static constexpr std::chrono::seconds limit{5};

    explicit FolderLock(const std::filesystem::path& file);

private:
    GitHub::FileDescriptor _folder;
};

}  // namespace Tarnwick::Files
