#include "Tarnwick/Desktop/AppImage.h"

#include <algorithm>
#include <system_error>

namespace Tarnwick {
namespace {

std::filesystem::path pathIn(const GitHub::Environment& environment, const char* name)
{
    const auto variable = environment.find(name);
    return variable == environment.end() ? std::string{} : variable->second;
}

bool isWithin(const std::filesystem::path& file, const std::filesystem::path& folder)
{
    std::error_code error;
    const auto realFile = std::filesystem::weakly_canonical(file, error);
    const auto realFolder = std::filesystem::weakly_canonical(folder, error);
    const auto [folderEnd, fileRest] = std::ranges::mismatch(realFolder, realFile);
    return !error && folderEnd == realFolder.end() && fileRest != realFile.end();
}

}  // namespace

std::filesystem::path appImageOf(
    const GitHub::Environment& environment, const std::filesystem::path& executable)
{
    const auto file = pathIn(environment, "APPIMAGE");
    const auto folder = pathIn(environment, "APPDIR");
    std::error_code error;
    const bool isAppImage = file.is_absolute() && std::filesystem::is_regular_file(file, error)
                            && folder.is_absolute() && isWithin(executable, folder);
    return isAppImage ? file : std::filesystem::path{};
}

std::filesystem::path startableFile(
    const GitHub::Environment& environment, const std::filesystem::path& executable)
{
    const auto appImage = appImageOf(environment, executable);
    return appImage.empty() ? executable : appImage;
}

}  // namespace Tarnwick
