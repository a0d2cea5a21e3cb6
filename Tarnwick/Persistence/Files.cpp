#include "Tarnwick/Persistence/Files.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tarnwick::Files {
namespace {

[[noreturn]] void throwError(int reason)
{
    throw std::system_error(reason, std::generic_category());
}

/// Yields what a system call yields, and throws when that is an error. A call that a signal
/// interrupted is made again.
template<typename Call>
auto checked(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    if (result < 0) {
        throwError(errno);
    }
    return result;
}

class Descriptor {
public:
    explicit Descriptor(int number)
        : _number(number)
    {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() { close(_number); }

    int number() const { return _number; }

private:
    int _number;
};

/// The file beside the old one in which the new one comes to be; gone at the end unless it took the
/// old one's place.
class Replacement {
public:
    explicit Replacement(const std::filesystem::path& target)
        : _target(target)
        , _name(target.string() + ".XXXXXX")
        , _file(checked([this] { return mkostemp(_name.data(), O_CLOEXEC); }))
    {}

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    ~Replacement()
    {
        if (!_isInPlace) {
            unlink(_name.c_str());
        }
    }

    /// A full disk takes a part of the bytes and reports that as success: hence the loop.
    void write(std::string_view contents) const
    {
        while (!contents.empty()) {
            const auto count =
                checked([&] { return ::write(_file.number(), contents.data(), contents.size()); });
            contents.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void putInPlace(mode_t permissions)
    {
        checked([&] { return fchmod(_file.number(), permissions); });
        checked([&] { return fsync(_file.number()); });
        checked([&] { return rename(_name.c_str(), _target.c_str()); });
        _isInPlace = true;
    }

private:
    std::filesystem::path _target;
    std::string _name;
    Descriptor _file;
    bool _isInPlace = false;
};

struct stat statusOf(const Descriptor& file)
{
    struct stat status{};
    checked([&] { return fstat(file.number(), &status); });
    return status;
}

/// The file that a path leads to, whose folder is made if it is missing.
std::filesystem::path withFolder(const std::filesystem::path& path)
{
    auto target = std::filesystem::weakly_canonical(path);
    std::filesystem::create_directories(target.parent_path());
    return target;
}

}  // namespace

std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit)
{
    const int number = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number < 0) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        throwError(errno);
    }
    const Descriptor file(number);
    const struct stat status = statusOf(file);
    if (!S_ISREG(status.st_mode)) {
        throwError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    if (static_cast<std::size_t>(status.st_size) > limit) {
        throwError(EFBIG);
    }
    std::string contents(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    while (length < contents.size()) {
        const auto count = checked(
            [&] { return ::read(number, contents.data() + length, contents.size() - length); });
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    contents.resize(length);
    return contents;
}

void replace(const std::filesystem::path& path, std::string_view contents, mode_t permissions)
{
    const auto target = withFolder(path);
    Replacement replacement(target);
    replacement.write(contents);
    replacement.putInPlace(permissions);
}

FolderLock::FolderLock(const std::filesystem::path& file)
    : _folder(checked([folder = withFolder(file).parent_path()] {
        return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }))
{
    while (flock(_folder, LOCK_EX) != 0 && errno == EINTR) {}
}

FolderLock::~FolderLock()
{
    close(_folder);
}

}  // namespace Tarnwick::Files
