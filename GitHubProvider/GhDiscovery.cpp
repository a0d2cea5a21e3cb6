#include "GitHubProvider/GhDiscovery.h"

#include <algorithm>
#include <iterator>
#include <system_error>

#include <unistd.h>

namespace GitHub {

std::vector<std::filesystem::path> searchPathCandidates(
    const Environment& environment, std::string_view program)
{
    std::vector<std::filesystem::path> candidates;
    const auto path = environment.find("PATH");
    std::string_view rest = path == environment.end() ? std::string_view() : path->second;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (end > 0) {
            candidates.emplace_back(std::string(rest.substr(0, end)).append("/").append(program));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return candidates;
}

std::vector<std::filesystem::path> ghCandidates(const Environment& environment)
{
    std::vector<std::filesystem::path> candidates{
        "/opt/homebrew/bin/gh", "/usr/local/bin/gh", "/usr/bin/gh"};
    std::ranges::move(searchPathCandidates(environment, "gh"), std::back_inserter(candidates));
    return candidates;
}

bool isExecutableFile(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::filesystem::path> findGH(
    const Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable)
{
    for (std::filesystem::path& candidate : ghCandidates(environment)) {
        if (isExecutable(candidate)) {
            return std::move(candidate);
        }
    }
    return std::nullopt;
}

}  // namespace GitHub
