#include "TarnwickDirect/SoftwareUpdate/Installation.h"

#include "PullRequestKit/Errors.h"
#include "Tarnwick/Desktop/AppImage.h"

#include <system_error>

namespace TarnwickDirect {
namespace {

/// What a program prints, or nothing when it fails or is not there.
std::string outputOf(
    const GitHub::CommandRunning& runner,
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

/// What stands before the packager's revision in a version such as "0.2.0-1".
std::string upstreamVersion(const std::string& version)
{
    return version.substr(0, version.rfind('-'));
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
    const GitHub::Environment& environment,
    const std::filesystem::path& executable,
    const GitHub::CommandRunning& runner,
    std::stop_token stopToken)
{
    if (const auto appImage = Tarnwick::appImageOf(environment, executable); !appImage.empty()) {
        return {.kind = Installation::Kind::appImage, .program = appImage};
    }
    const std::string package =
        packageIn(outputOf(runner, "/usr/bin/dpkg-query", {"-S", executable.string()}, stopToken));
    if (package.empty()) {
        return {};
    }
    Installation found{
        .kind = Installation::Kind::repositoryPackage, .program = executable, .package = package};
    if (outputOf(runner, "/usr/bin/apt-cache", {"madison", package}, stopToken).empty()) {
        found.kind = Installation::Kind::debianPackage;
        found.packageVersion = upstreamVersion(
            outputOf(runner, "/usr/bin/dpkg-query", {"-W", "-f=${Version}", package}, stopToken));
    }
    return found;
}

}  // namespace TarnwickDirect
