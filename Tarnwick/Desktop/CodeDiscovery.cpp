#include "Tarnwick/Desktop/CodeDiscovery.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace Tarnwick {

std::vector<std::filesystem::path> codeCandidates(const GitHub::Environment& environment)
{
    const std::string application =
        "/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code";
    std::vector<std::filesystem::path> candidates{
        "/usr/local/bin/code", "/opt/homebrew/bin/code", application};
    if (const auto home = environment.find("HOME"); home != environment.end()) {
        candidates.emplace_back(home->second + application);
    }
    std::ranges::move(
        GitHub::searchPathCandidates(environment, "code"), std::back_inserter(candidates));
    return candidates;
}

std::optional<std::filesystem::path> codeExecutable(
    const GitHub::Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable)
{
    for (std::filesystem::path& candidate : codeCandidates(environment)) {
        if (isExecutable(candidate)) {
            return std::move(candidate);
        }
    }
    return std::nullopt;
}

}  // namespace Tarnwick
