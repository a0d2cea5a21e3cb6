#include "TarnwickDirect/Application/Succession.h"

#include <cerrno>
#include <system_error>

#include <linux/close_range.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

/// As `execve` takes them: with a null at the end. The texts live in `texts`.
std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// An AppImage stays mounted as long as somebody has the descriptor that it passes on.
void closeOnExecution()
{
    constexpr unsigned firstAfterStandardStreams = 3;
    ::close_range(firstAfterStandardStreams, ~0U, CLOSE_RANGE_CLOEXEC);
}

}  // namespace

void succeed(const Tarnwick::Launch& successor, const GitHub::Environment& environment)
{
    std::vector<std::string> arguments{successor.executable.string()};
    arguments.insert(arguments.end(), successor.arguments.begin(), successor.arguments.end());
    std::vector<std::string> variables;
    for (const auto& [name, value] :
         Tarnwick::launchEnvironment(environment, successor.activationToken)) {
        variables.push_back(name);
        variables.back().append("=").append(value);
    }
    closeOnExecution();
    ::execve(
        successor.executable.c_str(), pointersTo(arguments).data(), pointersTo(variables).data());
    throw std::system_error(
        errno,
        std::generic_category(),
        "\"" + successor.executable.string() + "\" cannot be started");
}

}  // namespace TarnwickDirect
