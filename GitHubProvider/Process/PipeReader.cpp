#include "GitHubProvider/Process/PipeReader.h"

#include "PullRequestKit/Errors.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace GitHub {
namespace {

using PullRequestKit::ProviderError;

std::string sizeText(std::size_t bytes)
{
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    return bytes > 0 && bytes % mebibyte == 0 ? std::to_string(bytes / mebibyte) + " MiB"
                                              : std::to_string(bytes) + " bytes";
}

}  // namespace

PipeReader::PipeReader(FileDescriptor readingEnd, std::string programName, std::size_t limit)
    : _readingEnd(std::move(readingEnd))
    , _programName(std::move(programName))
    , _limit(limit)
{}

void PipeReader::read()
{
    // The default capacity of a pipe.
    std::array<char, std::size_t{64} << 10> piece;  // NOLINT(*-member-init): read() fills it.
    const ssize_t count = ::read(_readingEnd.number(), piece.data(), piece.size());
    if (count > 0) {
        keep(piece.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
        _readingEnd.close();
    } else if (errno != EINTR) {
        const std::string reason = std::generic_category().message(errno);
        _readingEnd.close();
        throw ProviderError(
            "The output of " + _programName + " could not be read: " + reason + ".");
    }
}

void PipeReader::keep(const char* bytes, std::size_t count)
{
    if (_isDiscarding) {
        return;
    }
    if (count > _limit - _bytes.size()) {
        discard();
        throw ProviderError(
            "The output of " + _programName + " was refused because it is larger than "
            + sizeText(_limit) + ".");
    }
    _bytes.append(bytes, count);
}

void PipeReader::discard()
{
    _isDiscarding = true;
    _bytes = std::string();
}

std::string PipeReader::takeBytes()
{
    return std::exchange(_bytes, std::string());
}

}  // namespace GitHub
