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
    // A `gh` that is signed in to github.com asks it by itself. A token from the environment can go
    // with a configuration that knows another host alone, and then that host would be asked. Where
    // nobody is signed in, a host from the environment makes gh 2.23 speak of a token in a file
    // that is not there, in place of saying that nobody is.
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
