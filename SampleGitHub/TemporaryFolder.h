#pragma once

#include <filesystem>

namespace SampleGitHub {

/// A new folder for its owner alone, removed with all it holds at the end of its life. Its path is
/// short enough for a socket inside it.
class TemporaryFolder {
public:
    /// In `TMPDIR`, or in /tmp where that is unset or too long. Throws `std::system_error`.
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return _path; }

private:
    std::filesystem::path _path;
};

}  // namespace SampleGitHub
