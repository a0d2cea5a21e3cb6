#include "TarnwickDirect/SoftwareUpdate/PackageInstaller.h"

#include <algorithm>

namespace TarnwickDirect {

std::optional<Tarnwick::Launch> packageInstaller(
    const GitHub::Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable,
    const std::filesystem::path& package)
{
    const auto candidates = GitHub::searchPathCandidates(environment, "xdg-open");
    const auto found = std::ranges::find_if(candidates, isExecutable);
    if (found == candidates.end()) {
        return std::nullopt;
    }
    return Tarnwick::Launch{
        .executable = *found, .arguments = {package.string()}, .activationToken = {}};
}

}  // namespace TarnwickDirect
