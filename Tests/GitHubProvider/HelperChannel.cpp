#include "HelperChannel.h"

#include <cerrno>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using GitHub::FileDescriptor;

namespace {

constexpr int limitInMilliseconds = 20'000;

void require(bool isGood)
{
    if (!isGood) {
        throw std::system_error(errno, std::generic_category(), "the helper's channel");
    }
}

FileDescriptor openNamedPipe(const std::filesystem::path& path, int flags)
{
    require(::mkfifo(path.c_str(), 0600) == 0);
    FileDescriptor descriptor(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK));
    require(descriptor.isOpen());
    return descriptor;
}

short waitForEvents(const FileDescriptor& descriptor)
{
    pollfd polled{descriptor.number(), POLLIN, 0};
    if (::poll(&polled, 1, limitInMilliseconds) <= 0) {
        throw std::runtime_error("the helper told nothing in time");
    }
    return polled.revents;
}

}  // namespace

HelperChannel::HelperChannel()
{
    std::string name = std::filesystem::temp_directory_path() / "helper-channel-XXXXXX";
    require(::mkdtemp(name.data()) != nullptr);
    _folder = name;
    _fromHelper = openNamedPipe(_folder / "fromHelper", O_RDONLY);
    // Also for reading, so that the test can open its end before there is a helper.
    _toHelper = openNamedPipe(_folder / "toHelper", O_RDWR);
}

HelperChannel::~HelperChannel()
{
    std::error_code ignored;
    std::filesystem::remove_all(_folder, ignored);
}

std::string HelperChannel::waitForLine()
{
    std::string line;
    for (char byte = 0;; line.push_back(byte)) {
        waitForEvents(_fromHelper);
        const ssize_t count = ::read(_fromHelper.number(), &byte, 1);
        if (count <= 0) {
            throw std::runtime_error("the helper ended without a word");
        }
        if (byte == '\n') {
            return line;
        }
    }
}

void HelperChannel::release() const
{
    require(::write(_toHelper.number(), "", 1) == 1);
}

void HelperChannel::waitForLastHelper() const
{
    while ((waitForEvents(_fromHelper) & POLLIN) != 0) {
        char unread = 0;
        require(::read(_fromHelper.number(), &unread, 1) == 1);
    }
}
