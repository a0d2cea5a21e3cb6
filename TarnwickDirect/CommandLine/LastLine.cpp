#include "TarnwickDirect/CommandLine/LastLine.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <utility>

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

bool isPipe(int descriptor)
{
    struct stat status{};
    return ::fstat(descriptor, &status) == 0 && S_ISFIFO(status.st_mode);
}

short eventsOf(int descriptor, short events)
{
    pollfd entry{.fd = descriptor, .events = events, .revents = 0};
    return ::poll(&entry, 1, 0) > 0 ? entry.revents : short{0};
}

}  // namespace

LastLine::LastLine(int descriptor, QObject* parent)
    : QObject(parent)
    , _descriptor(descriptor)
    , _room(descriptor, QSocketNotifier::Write)
{
    // Writing to a closed pipe returns an error instead.
    std::signal(SIGPIPE, SIG_IGN);
    _room.setEnabled(false);
    connect(&_room, &QSocketNotifier::activated, this, &LastLine::pump);
    if (isPipe(descriptor)) {
        // The notifier reports when the reader closes the pipe; nothing is ever read from this end.
        _reader = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        connect(_reader.get(), &QSocketNotifier::activated, this, &LastLine::lookForReader);
    }
}

void LastLine::write(std::string text)
{
    text += '\n';
    if (_written == 0) {
        _line = std::move(text);
        _next.reset();
    } else {
        _next = std::move(text);
    }
    pump();
}

/// Whether up to PIPE_BUF bytes can be written without blocking.
bool LastLine::isWritable() const
{
    return (eventsOf(_descriptor, POLLOUT) & (POLLOUT | POLLERR)) != 0;
}

void LastLine::pump()
{
    while (!_line.empty() && isWritable()) {
        const std::size_t piece = std::min<std::size_t>(_line.size() - _written, PIPE_BUF);
        const ssize_t count = ::write(_descriptor, _line.data() + _written, piece);
        if (count < 0 && errno != EINTR && errno != EAGAIN) {
            end(errno);
            return;
        }
        _written += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        if (_written == _line.size()) {
            _line = std::exchange(_next, std::nullopt).value_or(std::string());
            _written = 0;
        }
    }
    _room.setEnabled(!_line.empty());
}

void LastLine::lookForReader()
{
    if ((eventsOf(_descriptor, 0) & (POLLERR | POLLHUP)) != 0) {
        end(EPIPE);
    }
}

void LastLine::end(int error)
{
    _line.clear();
    _written = 0;
    _next.reset();
    _room.setEnabled(false);
    if (_reader) {
        _reader->setEnabled(false);
    }
    Q_EMIT ended(error);
}

}  // namespace TarnwickDirect
