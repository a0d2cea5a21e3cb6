#pragma once

#include "GitHubProvider/Process/FileDescriptor.h"

#include <cstddef>
#include <string>

namespace GitHub {

/// Collects the output of a pipe up to a limit. Not safe across threads.
class PipeReader {
public:
    /// Keeps at most `limit` bytes. The program's name appears in errors.
    PipeReader(FileDescriptor readingEnd, std::string programName, std::size_t limit);

    /// For `poll`; negative after the end of file.
    int descriptor() const { return _readingEnd.number(); }

    bool isAtEnd() const { return !_readingEnd.isOpen(); }

    /// Reads up to 64 KiB or notes the end of file. Blocks unless `poll` has reported the
    /// descriptor. Throws `ProviderError` when reading fails, which also ends the output, and once
    /// when the limit is exceeded, which discards the output.
    void read();

    /// Discards the bytes kept and all further ones.
    void discard();

    /// Moves out the bytes kept so far.
    std::string takeBytes();

private:
    void keep(const char* bytes, std::size_t count);

    FileDescriptor _readingEnd;
    std::string _programName;
    std::size_t _limit;
    std::string _bytes;
    bool _isDiscarding = false;
};

}  // namespace GitHub
