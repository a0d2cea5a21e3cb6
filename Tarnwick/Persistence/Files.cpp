#include "Tarnwick/Persistence/Files.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <random>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tarnwick::Files {
namespace {

using GitHub::FileDescriptor;

[[noreturn]] void throwError(int reason)
{
    throw std::system_error(reason, std::generic_category());
}

/// Returns the result of a system call, retried after EINTR. Throws on an error.
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

constexpr std::string_view upperCase = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view lowerCase = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view digits = "0123456789";
constexpr std::size_t markLength = 6;

/// The suffix of a temporary file's name. It contains a capital, a small letter and a digit, so
/// that no copy made by the user looks like it ("backup", "201122").
std::string makeMark()
{
    std::random_device random;
    const auto oneOf = [&](std::string_view characters) {
        return characters[std::uniform_int_distribution<std::size_t>(0, characters.size() - 1)(
            random)];
    };
    const std::string all = std::string(upperCase) + std::string(lowerCase) + std::string(digits);
    std::string mark{oneOf(upperCase), oneOf(lowerCase), oneOf(digits)};
    while (mark.size() < markLength) {
        mark += oneOf(all);
    }
    std::ranges::shuffle(mark, random);
    return mark;
}

bool isMark(std::string_view text)
{
    const auto hasOneOf = [&](std::string_view characters) {
        return text.find_first_of(characters) != std::string_view::npos;
    };
    return text.size() == markLength && hasOneOf(upperCase) && hasOneOf(lowerCase)
           && hasOneOf(digits) && std::ranges::all_of(text, [](unsigned char character) {
                  return std::isalnum(character) != 0;
              });
}

std::string temporaryName(const std::filesystem::path& target)
{
    return target.string() + "." + makeMark();
}

/// The temporary file beside the target. Removed unless it replaced the target.
class Replacement {
public:
    explicit Replacement(const std::filesystem::path& target)
        : _target(target)
        , _file(create())
    {}

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    ~Replacement()
    {
        if (!_isInPlace) {
            unlink(_name.c_str());
        }
    }

    /// A write to a full disk may succeed in part.
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
    int create()
    {
        constexpr mode_t whileWritten = 0600;
        return checked([this] {
            int file = -1;
            do {
                _name = temporaryName(_target);
                file = open(_name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, whileWritten);
            } while (file < 0 && errno == EEXIST);
            return file;
        });
    }

    std::filesystem::path _target;
    std::string _name;
    FileDescriptor _file;
    bool _isInPlace = false;
};

FileDescriptor openFolder(const std::filesystem::path& folder)
{
    return FileDescriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool isSame(const timespec& one, const timespec& other)
{
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

struct stat statusOf(const FileDescriptor& file)
{
    struct stat status{};
    checked([&] { return fstat(file.number(), &status); });
    return status;
}

/// The resolved path. Creates its folder if missing.
std::filesystem::path withFolder(const std::filesystem::path& path)
{
    auto target = std::filesystem::weakly_canonical(path);
    std::filesystem::create_directories(target.parent_path());
    return target;
}

/// A rename is durable once its folder is synchronized. Errors are ignored, because the new file is
/// already in place.
void synchronizeFolder(const std::filesystem::path& folder)
{
    if (const FileDescriptor descriptor = openFolder(folder); descriptor.isOpen()) {
        fsync(descriptor.number());
    }
}

/// Whether this is the temporary file of a killed process. Files beside a JSON file all belong to
/// the program, so leftovers of any of them count.
bool isLeftover(const std::filesystem::path& file, const std::filesystem::path& target)
{
    const std::string extension = file.extension().string();
    const std::filesystem::path meant = file.stem();
    return !extension.empty() && isMark(std::string_view(extension).substr(1))
           && (meant == target.filename()
               || (target.extension() == ".json" && meant.extension() == ".json"));
}

/// Removes leftovers older than a minute; younger ones may still be in use.
void removeLeftovers(const std::filesystem::path& target)
{
    constexpr std::chrono::minutes inUse{1};
    const auto limit = std::filesystem::file_time_type::clock::now() - inUse;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(target.parent_path(), error), end;
         !error && entry != end;
         entry.increment(error)) {
        if (!isLeftover(entry->path(), target)) {
            continue;
        }
        std::error_code reason;
        const auto written = entry->last_write_time(reason);
        if (!reason && written < limit
            && entry->symlink_status(reason).type() == std::filesystem::file_type::regular) {
            std::filesystem::remove(entry->path(), reason);
        }
    }
}

}  // namespace

std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit)
{
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        throwError(errno);
    }
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
        const auto count = checked([&] {
            return ::read(file.number(), contents.data() + length, contents.size() - length);
        });
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
    synchronizeFolder(target.parent_path());
    removeLeftovers(target);
}

Stamp stampOf(const std::filesystem::path& path)
{
    struct stat status{};
    if (stat(path.c_str(), &status) != 0) {
        return {};
    }
    return {status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

bool Stamp::operator==(const Stamp& other) const
{
    return number == other.number && size == other.size && isSame(modified, other.modified)
           && isSame(changed, other.changed);
}

FolderLock::FolderLock(const std::filesystem::path& file)
    : _folder(openFolder(withFolder(file).parent_path()))
{
    if (!_folder.isOpen()) {
        throwError(errno);
    }
    constexpr std::chrono::milliseconds pause{1};
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (flock(_folder.number(), LOCK_EX | LOCK_NB) != 0
           && (errno == EWOULDBLOCK || errno == EINTR)) {
        if (std::chrono::steady_clock::now() >= deadline) {
            throwError(EBUSY);
        }
        std::this_thread::sleep_for(pause);
    }
}

}  // namespace Tarnwick::Files
