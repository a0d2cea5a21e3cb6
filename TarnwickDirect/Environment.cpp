#include "TarnwickDirect/Environment.h"

#include "GitHubProvider/GitHubProvider.h"

#include <QByteArray>
#include <QtGlobal>

#include <string_view>

#include <unistd.h>

namespace TarnwickDirect {

void prepareEnvironment()
{
    for (const char* const name :
         {"CLICOLOR_FORCE", "GH_FORCE_TTY", "GH_DEBUG", "DEBUG", "GH_HOST"}) {
        qunsetenv(name);
    }
    // A `gh` that is signed in to github.com uses it by default. With a token from the environment
    // it may use another host from its configuration. If nobody is signed in, GH_HOST would make gh
    // 2.23 report an invalid token in a missing file instead.
    if (!qEnvironmentVariableIsEmpty("GH_TOKEN") || !qEnvironmentVariableIsEmpty("GITHUB_TOKEN")) {
        qputenv("GH_HOST", GitHub::publicHost);
    }
}

std::map<std::string, std::string> environment()
{
    std::map<std::string, std::string> variables;
    for (char** entry = ::environ; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        const std::size_t equals = text.find('=');
        if (equals != std::string_view::npos) {
            variables.emplace(text.substr(0, equals), text.substr(equals + 1));
        }
    }
    return variables;
}

}  // namespace TarnwickDirect
