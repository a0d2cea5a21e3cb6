#include "SampleGitHub/GhEnvironment.h"

#include <string_view>

#include <unistd.h>

namespace SampleGitHub {

Environment currentEnvironment()
{
    Environment environment;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const std::size_t equals = text.find('=');
        if (equals != std::string_view::npos) {
            environment.emplace(text.substr(0, equals), text.substr(equals + 1));
        }
    }
    return environment;
}

Environment withGhConfiguration(Environment environment, const std::filesystem::path& folder)
{
    for (const char* const name :
         {"GH_TOKEN",
          "GITHUB_TOKEN",
          "GH_ENTERPRISE_TOKEN",
          "GITHUB_ENTERPRISE_TOKEN",
          "GH_HOST",
          "GH_REPO",
          "GH_DEBUG",
          "DEBUG",
          "GH_FORCE_TTY",
          "CLICOLOR_FORCE"}) {
        environment.erase(name);
    }
    environment["GH_CONFIG_DIR"] = std::filesystem::absolute(folder).string();
    environment["GH_NO_UPDATE_NOTIFIER"] = "1";
    return environment;
}

}  // namespace SampleGitHub
