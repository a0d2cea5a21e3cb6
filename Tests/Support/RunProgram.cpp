#include "Support/RunProgram.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> list;
    for (std::string& text : texts) {
        list.push_back(text.data());
    }
    list.push_back(nullptr);
    return list;
}

std::string contents(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

pid_t start(
    std::vector<std::string> command,
    std::vector<std::string> environment,
    const std::filesystem::path& output,
    const std::filesystem::path& errors)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC;
    constexpr mode_t mode = 0600;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), flags, mode);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), flags, mode);
    pid_t child = 0;
    const int error = posix_spawnp(
        &child,
        command.front().c_str(),
        &actions,
        nullptr,
        pointers(command).data(),
        pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), command.front());
    }
    return child;
}

}  // namespace

ProgramResult runProgram(
    const std::string& executable,
    const std::vector<std::string>& arguments,
    const std::map<std::string, std::string>& environment,
    const std::filesystem::path& folder)
{
    constexpr int signalStatus = 128;
    std::vector<std::string> command{executable};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<std::string> entries;
    for (const auto& [name, value] : environment) {
        entries.push_back(name);
        entries.back().append("=").append(value);
    }
    const std::filesystem::path output = folder / "standard-output";
    const std::filesystem::path errors = folder / "standard-error";
    const pid_t child = start(std::move(command), std::move(entries), output, errors);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    return {
        WIFSIGNALED(status) ? signalStatus + WTERMSIG(status) : WEXITSTATUS(status),
        contents(output),
        contents(errors)};
}

}  // namespace TestSupport
