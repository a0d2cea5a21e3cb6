#include "GitHubProvider/Process/Environment.h"

#include <algorithm>
#include <system_error>

#include <unistd.h>

namespace GitHub {

std::string valueIn(const Environment& environment, const std::string& name)
{
    const auto found = environment.find(name);
    return found == environment.end() ? std::string() : found->second;
}

bool isExecutableFile(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::filesystem::path> findProgram(
    const Environment& environment,
    std::string_view name,
    const IsExecutable& isExecutable,
    std::vector<std::filesystem::path> places)
{
    const std::string path = valueIn(environment, "PATH");
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (end > 0) {
            places.emplace_back(std::string(rest.substr(0, end)).append("/").append(name));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    const auto found = std::ranges::find_if(places, isExecutable);
    return found == places.end() ? std::nullopt : std::optional(*found);
}

}  // namespace GitHub
