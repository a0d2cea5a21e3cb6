#include "TarnwickDirect/CommandLine/StandardOutput.h"

#include <cerrno>
#include <csignal>
#include <iostream>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

constexpr int statusOfSignal = 128;

/// Whether writing can be retried after this error.
bool isPassing(int error)
{
    if (error == EAGAIN) {
        // Another process that shares the stream has made it non-blocking.
        pollfd waiting{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
        ::poll(&waiting, 1, -1);
        return true;
    }
    return error == EINTR;
}

/// Returns 0 or the error.
int write(std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (const int error = errno; !isPassing(error)) {
            return error;
        }
    }
    return 0;
}

}  // namespace

void StandardOutput::holdPlaces()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) == -1 && errno == EBADF) {
            // Gets the lowest free number, which is this one. Inheritable.
            static_cast<void>(::open("/dev/null", O_RDONLY));
        }
    }
}

StandardOutput::StandardOutput()
    : _stream(this)
    , _formerHandler(std::signal(SIGPIPE, SIG_IGN))
{
    setp(_buffer.data(), _buffer.data() + _buffer.size());
}

StandardOutput::~StandardOutput()
{
    std::signal(SIGPIPE, _formerHandler);
}

int StandardOutput::finish()
{
    sync();
    if (_error == 0) {
        return 0;
    }
    if (_error == EPIPE) {
        return statusOfSignal + SIGPIPE;
    }
    std::cerr << "Cannot write to standard output (" << std::generic_category().message(_error)
              << ").\n";
    return 1;
}

StandardOutput::int_type StandardOutput::overflow(int_type character)
{
    sync();
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        sputc(traits_type::to_char_type(character));
    }
    return traits_type::not_eof(character);
}

/// After an error, output is dropped.
int StandardOutput::sync()
{
    if (_error == 0) {
        _error = write({pbase(), static_cast<std::size_t>(pptr() - pbase())});
    }
    setp(_buffer.data(), _buffer.data() + _buffer.size());
    return 0;
}

}  // namespace TarnwickDirect
