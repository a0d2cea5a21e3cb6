#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace TarnwickDirect {

/// Standard output with error reporting. While an instance exists, a reader that goes away does not
/// end the process, which may still have to write files. Main thread only.
class StandardOutput final : private std::streambuf {
public:
    /// Opens a placeholder for each standard stream that the parent has closed; reading from it
    /// yields nothing, and writing fails. Otherwise the next opened file, such as the cache, would
    /// get the stream's number and its output. Call before any file is opened.
    static void holdPlaces();

    StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    ~StandardOutput() override;

    /// Flushed by `finish` at the latest.
    std::ostream& stream() { return _stream; }

    /// Returns 0, 1 with a message on standard error, or silently the status of SIGPIPE.
    int finish();

private:
    int_type overflow(int_type character) override;
    int sync() override;

    static constexpr std::size_t size = 64 * std::size_t{1024};

    std::array<char, size> _buffer{};
    std::ostream _stream;
    int _error = 0;
    void (*_formerHandler)(int);
};

}  // namespace TarnwickDirect
