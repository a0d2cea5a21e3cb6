#include "SampleGitHub/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace SampleGitHub {
namespace {

constexpr std::size_t longestPlace = 60;

std::string place()
{
    const char* const variable = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe)
    const std::string folder = variable != nullptr ? variable : "";
    return folder.empty() || folder.size() > longestPlace ? "/tmp" : folder;
}

}  // namespace

TemporaryFolder::TemporaryFolder()
{
    std::string path = place() + "/tarnwick-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) {
        throw std::system_error(
            errno, std::generic_category(), "A temporary folder could not be created");
    }
    _path = path;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(_path, ignored);
}

}  // namespace SampleGitHub
