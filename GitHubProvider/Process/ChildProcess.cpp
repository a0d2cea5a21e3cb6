#include "GitHubProvider/Process/ChildProcess.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace GitHub {
namespace {

struct Pipe {
    FileDescriptor readingEnd;
    FileDescriptor writingEnd;
};

/// For functions that return their error number; `errno` is what callers look at.
void require(int errorNumber)
{
    if (errorNumber != 0) {
        throw std::system_error(errorNumber, std::generic_category());
    }
}

/// Where this program has no standard streams, a pipe can get their numbers, which the child's
/// streams are about to take.
FileDescriptor movedAboveStandardStreams(FileDescriptor descriptor)
{
    if (descriptor.number() > STDERR_FILENO) {
        return descriptor;
    }
    FileDescriptor moved(::fcntl(descriptor.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    require(moved.isOpen() ? 0 : errno);
    return moved;
}

/// Closed on exec, so that a child started by another thread does not hold it open.
Pipe openPipe()
{
    int ends[2] = {-1, -1};
    require(::pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno);
    FileDescriptor readingEnd(ends[0]);
    return {std::move(readingEnd), movedAboveStandardStreams(FileDescriptor(ends[1]))};
}

class SpawnAttributes {
public:
    /// Signals start afresh: this program may block or ignore some that the child must obey. In a
    /// session of its own the child has no terminal: one that reads from it in the background would
    /// be stopped, and this program, which counts the time limit, together with it.
    SpawnAttributes()
    {
        require(::posix_spawnattr_init(&_attributes));
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&_attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&_attributes, &signals);
        ::posix_spawnattr_setflags(
            &_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    }

    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    ~SpawnAttributes() { ::posix_spawnattr_destroy(&_attributes); }

    const posix_spawnattr_t* get() const { return &_attributes; }

private:
    posix_spawnattr_t _attributes{};
};

class SpawnActions {
public:
    SpawnActions(const FileDescriptor& standardOutput, const FileDescriptor& standardError)
    {
        require(::posix_spawn_file_actions_init(&_actions));
        const int error = add(standardOutput.number(), standardError.number());
        if (error != 0) {
            ::posix_spawn_file_actions_destroy(&_actions);
            require(error);
        }
    }

    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    ~SpawnActions() { ::posix_spawn_file_actions_destroy(&_actions); }

    const posix_spawn_file_actions_t* get() const { return &_actions; }

private:
    int add(int standardOutput, int standardError)
    {
        int error = ::posix_spawn_file_actions_adddup2(&_actions, standardOutput, STDOUT_FILENO);
        if (error == 0 && ::isatty(STDIN_FILENO) == 1) {
            // From another session it could be read without any control, and what the user types
            // for the shell would go to the child.
            error = ::posix_spawn_file_actions_addopen(
                &_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        }
        if (error == 0) {
            error = ::posix_spawn_file_actions_adddup2(&_actions, standardError, STDERR_FILENO);
        }
        if (error == 0) {
            // Libraries of a desktop program open descriptors that are not closed on exec.
            error = ::posix_spawn_file_actions_addclosefrom_np(&_actions, STDERR_FILENO + 1);
        }
        return error;
    }

    posix_spawn_file_actions_t _actions{};
};

/// The operating system's texts end at the first null character, so one with such a character
/// inside would arrive cut off.
std::vector<char*> argumentPointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        require(text.find('\0') == std::string::npos ? 0 : EINVAL);
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// This program's variables in their order, and these behind them in place of their namesakes.
std::vector<std::string> environmentWith(const std::map<std::string, std::string>& variables)
{
    std::vector<std::string> entries;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        std::string text(*entry);
        if (!variables.contains(text.substr(0, text.find('=')))) {
            entries.push_back(std::move(text));
        }
    }
    for (const auto& [name, value] : variables) {
        entries.push_back(name);
        entries.back().append("=").append(value);
    }
    return entries;
}

pid_t spawn(
    const std::filesystem::path& executable,
    const std::vector<std::string>& arguments,
    const std::map<std::string, std::string>& variables,
    const FileDescriptor& standardOutput,
    const FileDescriptor& standardError)
{
    std::vector<std::string> texts{executable.string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    const std::vector<char*> pointers = argumentPointers(texts);
    std::vector<std::string> environment = environmentWith(variables);
    const std::vector<char*> environmentPointers = argumentPointers(environment);
    const SpawnActions actions(standardOutput, standardError);
    const SpawnAttributes attributes;
    pid_t id = -1;
    require(::posix_spawn(
        &id,
        executable.c_str(),
        actions.get(),
        attributes.get(),
        pointers.data(),
        environmentPointers.data()));
    return id;
}

/// Blocks until the child has ended and leaves it in the system's table, where its number stays its
/// own.
void waitForEnd(pid_t id)
{
    siginfo_t ended{};
    while (::waitid(P_PID, static_cast<id_t>(id), &ended, WEXITED | WNOWAIT) < 0
           && errno == EINTR) {}
}

}  // namespace

ChildProcess::ChildProcess(
    const std::filesystem::path& executable,
    const std::vector<std::string>& arguments,
    const ChildSettings& settings)
try
    : _reach(settings.reach) {
    Pipe output = openPipe();
    Pipe error = openPipe();
    _standardOutput = std::move(output.readingEnd);
    _standardError = std::move(error.readingEnd);
    _id = spawn(executable, arguments, settings.variables, output.writingEnd, error.writingEnd);
    output.writingEnd.close();
    error.writingEnd.close();
    // The system calls' own numbers, because C libraries before 2.36 have no functions for them.
    _descriptor = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, _id, 0)));
    if (!_descriptor.isOpen()) {
        const int errorNumber = errno;
        abandon();
        require(errorNumber);
    }
} catch (const std::system_error& failure) {
    throw launchError(failure.code().value(), executable);
}

ChildProcess::~ChildProcess()
{
    if (_id >= 0) {
        abandon();
    }
}

bool ChildProcess::isRunning() const
{
    const std::lock_guard lock(_mutex);
    return _id >= 0;
}

void ChildProcess::terminate() const
{
    const std::lock_guard lock(_mutex);
    if (_id >= 0) {
        askToEnd();
    }
}

/// Requires: nobody has waited for the child, so its number is still its own, and its group's.
void ChildProcess::askToEnd() const
{
    const pid_t target = _reach == ChildSettings::Reach::group ? -_id : _id;
    ::kill(target, SIGTERM);
    ::kill(target, SIGCONT);
}

std::int32_t ChildProcess::wait()
{
    assert(_id >= 0);
    waitForEnd(_id);
    const std::lock_guard lock(_mutex);
    int status = 0;
    if (::waitpid(std::exchange(_id, -1), &status, 0) < 0) {
        throw std::system_error(
            errno, std::generic_category(), "Could not learn how a program ended");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// A child that writes into a full pipe would not end while the pipe has a reader.
void ChildProcess::abandon()
{
    _standardOutput.close();
    _standardError.close();
    askToEnd();
    int status = 0;
    while (::waitpid(_id, &status, 0) < 0 && errno == EINTR) {}
    _id = -1;
}

std::system_error launchError(int errorNumber, const std::filesystem::path& executable)
{
    return {errorNumber, std::generic_category(), "Could not start " + executable.string()};
}

}  // namespace GitHub
