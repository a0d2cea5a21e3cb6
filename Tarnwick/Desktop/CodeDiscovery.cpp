#include "Tarnwick/Desktop/CodeDiscovery.h"

#include <string>
#include <utility>
#include <vector>

namespace Tarnwick {

std::optional<std::filesystem::path> codeExecutable(
    const GitHub::Environment& environment, const GitHub::IsExecutable& isExecutable)
{
    const std::string application =
        "/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code";
    std::vector<std::filesystem::path> places{
        "/usr/local/bin/code", "/opt/homebrew/bin/code", application};
    if (environment.contains("HOME")) {
        places.emplace_back(GitHub::valueIn(environment, "HOME") + application);
    }
    return GitHub::findProgram(environment, "code", isExecutable, std::move(places));
}

}  // namespace Tarnwick
