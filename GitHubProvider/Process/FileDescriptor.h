#pragma once

#include <utility>

#include <unistd.h>

namespace GitHub {

/// Owns a file descriptor and closes it.
class FileDescriptor {
public:
    FileDescriptor() = default;

    /// Takes ownership of `number`. A negative number owns nothing.
    explicit FileDescriptor(int number) noexcept
        : _number(number)
    {}

    FileDescriptor(FileDescriptor&& other) noexcept
        : _number(std::exchange(other._number, -1))
    {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(_number, other._number);
        return *this;
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    ~FileDescriptor() { close(); }

    bool isOpen() const { return _number >= 0; }

    /// Negative when nothing is open; `poll` ignores negative entries.
    int number() const { return _number; }

    void close()
    {
        if (isOpen()) {
            ::close(std::exchange(_number, -1));
        }
    }

private:
    int _number = -1;
};

}  // namespace GitHub
