#pragma once

#include "GitHubProvider/Process/FileDescriptor.h"

#include <cstddef>
#include <string>

namespace GitHub {

/// Gathers what comes out of a pipe, piece by piece, up to a limit. One thread at a time.
class PipeReader {
public:
    /// Keeps at most `limit` bytes. The program's name is for the errors.
    PipeReader(FileDescriptor readingEnd, std::string programName, std::size_t limit);

    /// For `poll`; negative from the end of file on.
    int descriptor() const { return _readingEnd.number(); }

    bool isAtEnd() const { return !_readingEnd.isOpen(); }

    /// Takes one piece, of at most 64 KiB, or notes the end of file. Blocks unless `poll` has
    /// reported the descriptor. Throws `ProviderError` when reading fails, which is an end too, and
    /// once when more than the limit has come, which discards everything.
    void read();

    /// Forgets what was kept and keeps nothing of what `read` takes from now on.
    void discard();

    /// The bytes kept so far; they are moved out.
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
