#pragma once

#include <filesystem>

namespace SampleGitHub {

/// A private folder with a path short enough for a socket. Removed on destruction.
class TemporaryFolder {
public:
    /// In `TMPDIR`, or in /tmp if that is unset or too long. Throws `std::system_error`.
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return _path; }

private:
    std::filesystem::path _path;
};

}  // namespace SampleGitHub
