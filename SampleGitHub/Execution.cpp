#include "SampleGitHub/Execution.h"

#include <stdexcept>
#include <system_error>

#include <spawn.h>
#include <sys/wait.h>

namespace SampleGitHub {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> list;
    list.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        list.push_back(text.data());
    }
    list.push_back(nullptr);
    return list;
}

pid_t start(
    std::vector<std::string> command, const Environment& environment, const sigset_t& signalMask)
{
    std::vector<std::string> entries;
    entries.reserve(environment.size());
    for (const auto& [name, value] : environment) {
        entries.push_back(name);
        entries.back().append("=").append(value);
    }
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setsigmask(&attributes, &signalMask);
    pid_t child = 0;
    const int error = posix_spawnp(
        &child,
        command.front().c_str(),
        nullptr,
        &attributes,
        pointers(command).data(),
        pointers(entries).data());
    posix_spawnattr_destroy(&attributes);
    if (error != 0) {
        throw std::runtime_error(
            "The command " + command.front()
            + " could not be started: " + std::generic_category().message(error) + ".");
    }
    return child;
}

}  // namespace

int runCommand(
    const std::vector<std::string>& command, const Environment& environment, const Signals& signals)
{
    constexpr int signalStatus = 128;
    const pid_t child = start(command, environment, signals.before());
    while (true) {
        const int signal = signals.wait();
        if (signal != SIGCHLD) {
            kill(child, signal);
            continue;
        }
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child) {
            return WIFSIGNALED(status) ? signalStatus + WTERMSIG(status) : WEXITSTATUS(status);
        }
    }
}

}  // namespace SampleGitHub
