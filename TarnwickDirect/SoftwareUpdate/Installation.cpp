#include "TarnwickDirect/SoftwareUpdate/Installation.h"

#include "PullRequestKit/Errors.h"

#include <algorithm>
#include <system_error>

namespace TarnwickDirect {
namespace {

std::filesystem::path pathIn(const GitHubProvider::Environment& environment, const char* name)
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

/// The file of the AppImage that this program runs from, or an empty path.
std::filesystem::path appImageOf(
    const GitHubProvider::Environment& environment, const std::filesystem::path& executable)
{
    const auto file = pathIn(environment, "APPIMAGE");
    const auto folder = pathIn(environment, "APPDIR");
    std::error_code error;
    const bool isAppImage = file.is_absolute() && std::filesystem::is_regular_file(file, error)
                            && folder.is_absolute() && isWithin(executable, folder);
    return isAppImage ? file : std::filesystem::path{};
}

/// What a program prints, or nothing when it fails or is not there.
std::string outputOf(
    const GitHubProvider::CommandRunning& runner,
    const std::filesystem::path& program,
    const std::vector<std::string>& arguments,
    const std::stop_token& stopToken)
{
    try {
        const auto result = runner.run(program, arguments, stopToken);
        return result.status == 0 ? result.standardOutput : std::string{};
    } catch (const PullRequestKit::ProviderError&) {
        return {};
    } catch (const std::system_error&) {
        return {};
    }
}

/// The package in a line such as "tarnwick:amd64: /usr/bin/tarnwick", or nothing. The lines of
/// several packages and of diversions have spaces before the path.
std::string packageIn(const std::string& listing)
{
    const std::string line = listing.substr(0, listing.find('\n'));
    const auto end = line.find(": /");
    const bool isOnePackage = end != std::string::npos && line.find(' ') > end;
    return isOnePackage ? line.substr(0, end) : std::string{};
}

}  // namespace

std::optional<PackageFormat> Installation::format() const
{
    switch (kind) {
    case Kind::appImage:
        return PackageFormat::appImage;
    case Kind::debianPackage:
        return PackageFormat::debianPackage;
    case Kind::repositoryPackage:
    case Kind::source:
        return std::nullopt;
    }
    return std::nullopt;
}

Installation findInstallation(
    const GitHubProvider::Environment& environment,
    const std::filesystem::path& executable,
    const GitHubProvider::CommandRunning& runner,
    std::stop_token stopToken)
{
    if (const auto appImage = appImageOf(environment, executable); !appImage.empty()) {
        return {.kind = Installation::Kind::appImage, .appImage = appImage, .package = {}};
    }
    const std::string package =
        packageIn(outputOf(runner, "/usr/bin/dpkg-query", {"-S", executable.string()}, stopToken));
    if (package.empty()) {
        return {};
    }
    const bool isInRepository =
        !outputOf(runner, "/usr/bin/apt-cache", {"madison", package}, stopToken).empty();
    return {
        .kind = isInRepository ? Installation::Kind::repositoryPackage
                               : Installation::Kind::debianPackage,
        .appImage = {},
        .package = package};
}

}  // namespace TarnwickDirect
