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

/// Throws the error number that POSIX functions return instead of setting `errno`.
void require(int errorNumber)
{
    if (errorNumber != 0) {
        throw std::system_error(errorNumber, std::generic_category());
    }
}

/// If this program was started without standard streams, a pipe can get their numbers, which the
/// child's streams are about to replace.
FileDescriptor movedAboveStandardStreams(FileDescriptor descriptor)
{
    if (descriptor.number() > STDERR_FILENO) {
        return descriptor;
    }
    FileDescriptor moved(::fcntl(descriptor.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    require(moved.isOpen() ? 0 : errno);
    return moved;
}

/// Close-on-exec, so that a child started by another thread does not inherit it.
Pipe openPipe()
{
    int ends[2] = {-1, -1};
    require(::pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno);
    FileDescriptor readingEnd(ends[0]);
    return {std::move(readingEnd), movedAboveStandardStreams(FileDescriptor(ends[1]))};
}

class SpawnAttributes {
public:
    /// Resets signals, which this program may block or ignore. A new session detaches the child
    /// from the terminal: a background child that reads from the terminal would be stopped, and
    /// with it this program, which counts the time limit.
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
            // Across sessions, terminal input has no job control: the child would take what the
            // user types for the shell.
            error = ::posix_spawn_file_actions_addopen(
                &_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        }
        if (error == 0) {
            error = ::posix_spawn_file_actions_adddup2(&_actions, standardError, STDERR_FILENO);
        }
        if (error == 0) {
            // Desktop libraries open descriptors without close-on-exec.
            error = ::posix_spawn_file_actions_addclosefrom_np(&_actions, STDERR_FILENO + 1);
        }
        return error;
    }

    posix_spawn_file_actions_t _actions{};
};

/// The system's strings end at the first null character, so a text that contains one would be
/// truncated.
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

/// This program's environment, with `variables` appended or replacing it.
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

/// Blocks until the child has ended but does not reap it, so its process id stays valid.
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
    // glibc before 2.36 has no wrappers for these system calls.
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

/// Requires: not reaped, so that the ids of the process and its group are still valid.
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
            errno, std::generic_category(), "Could not read the exit status of a program");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// A child blocked on a full pipe would not end while the pipe has a reader.
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
