#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace TarnwickDirect {

/// Standard output as the commands use it: what cannot be printed is noticed. While one lives, a
/// reader that goes away does not end the process, which may have files to finish. Main thread
/// only.
class StandardOutput final : private std::streambuf {
public:
    /// Gives each of the three standard streams that the parent has closed a stand-in on which
    /// reading yields nothing and writing fails. Otherwise the next file that is opened, such as
    /// the cache, gets the stream's number and what is printed. Call it before any file is opened.
    static void holdPlaces();

    StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    ~StandardOutput() override;

    /// What is written here is printed by `finish` at the latest.
    std::ostream& stream() { return _stream; }

    /// Yields 0, or the exit status after a failure: 1, with the reason on standard error, or that
    /// of a process that SIGPIPE has ended when nobody reads any more, which needs no words.
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
