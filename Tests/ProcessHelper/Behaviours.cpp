#include "Behaviours.h"

#include "Channel.h"
#include "Printing.h"

#include <array>
#include <csignal>
#include <filesystem>

#include <poll.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace ProcessHelper {
namespace {

using Arguments = std::vector<std::string>;

std::size_t sizeArgument(const Arguments& arguments, std::size_t index)
{
    return std::stoul(arguments.at(index));
}

/// exit STATUS
int exitWith(const Arguments& arguments)
{
    return std::stoi(arguments.at(0));
}

/// die SIGNAL
int dieBySignal(const Arguments& arguments)
{
    const rlimit noCoreFile{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCoreFile);
    const int number = std::stoi(arguments.at(0));
    std::signal(number, SIG_DFL);
    std::raise(number);
    return 95;
}

/// echo ARGUMENT…: each with a null character after it.
int echo(const Arguments& arguments)
{
    for (const std::string& argument : arguments) {
        writeAll(STDOUT_FILENO, argument + '\0');
    }
    return 0;
}

/// say TEXT: exactly this text.
int say(const Arguments& arguments)
{
    writeAll(STDOUT_FILENO, arguments.at(0));
    return 0;
}

/// print BYTES BYTES: so many on standard output and standard error, in turn.
int print(const Arguments& arguments)
{
    writePatternsInTurn(sizeArgument(arguments, 0), sizeArgument(arguments, 1));
    return 0;
}

/// fill-output-first BYTES: standard output whole, then standard error.
int fillOutputFirst(const Arguments& arguments)
{
    writePattern(STDOUT_FILENO, sizeArgument(arguments, 0));
    writePattern(STDERR_FILENO, sizeArgument(arguments, 0));
    return 0;
}

/// fill-error-first BYTES: standard error whole, then standard output.
int fillErrorFirst(const Arguments& arguments)
{
    writePattern(STDERR_FILENO, sizeArgument(arguments, 0));
    writePattern(STDOUT_FILENO, sizeArgument(arguments, 0));
    return 0;
}

/// copy-input: standard input to standard output.
int copyInput(const Arguments& /*arguments*/)
{
    std::array<char, 4096> piece{};
    ssize_t count = 0;
    while ((count = ::read(STDIN_FILENO, piece.data(), piece.size())) > 0) {
        writeAll(STDOUT_FILENO, std::string_view(piece.data(), static_cast<std::size_t>(count)));
    }
    return 0;
}

/// print-environment: each entry with a null character after it.
int printEnvironment(const Arguments& /*arguments*/)
{
    for (char** entry = environ; *entry != nullptr; ++entry) {
        writeAll(STDOUT_FILENO, std::string(*entry) + '\0');
    }
    return 0;
}

/// print-surroundings: the working directory, whether session and process group are its own, the
/// blocked and the ignored signals, a line each.
int printSurroundings(const Arguments& /*arguments*/)
{
    sigset_t mask;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    std::string blocked;
    std::string ignored;
    for (int number = 1; number <= SIGRTMAX; ++number) {
        struct sigaction action{};
        if (::sigaction(number, nullptr, &action) != 0) {
            continue;  // The C library keeps a few for itself.
        }
        blocked += ::sigismember(&mask, number) == 1 ? ' ' + std::to_string(number) : "";
        ignored += action.sa_handler == SIG_IGN ? ' ' + std::to_string(number) : "";
    }
    writeAll(
        STDOUT_FILENO,
        std::filesystem::current_path().string() + '\n'
            + (::getsid(0) == ::getpid() ? "own session\n" : "another's session\n")
            + (::getpgrp() == ::getpid() ? "own group" : "another's group") + "\nblocked:" + blocked
            + "\nignored:" + ignored + '\n');
    return 0;
}

/// list-descriptors: the numbers of all that are open, one a line.
int listDescriptors(const Arguments& /*arguments*/)
{
    for (int number = 0; number < 1024; ++number) {
        if (std::filesystem::is_symlink("/proc/self/fd/" + std::to_string(number))) {
            writeAll(STDOUT_FILENO, std::to_string(number) + '\n');
        }
    }
    return 0;
}

/// wait CHANNEL: tells its process number and waits for a release.
int wait(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    channel.tell(std::to_string(::getpid()));
    channel.waitForRelease();
    return 0;
}

/// wait-blindly: does nothing, but no longer than the time limit of a test.
int waitBlindly(const Arguments& /*arguments*/)
{
    limitLife();
    ::pause();
    return 0;
}

/// stop CHANNEL SIGNAL: tells its process number and stops itself by this signal; tells when it
/// goes on, and waits for a release.
int stop(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    channel.tell(std::to_string(::getpid()));
    std::raise(std::stoi(arguments.at(1)));
    channel.tell("went on");
    channel.waitForRelease();
    return 0;
}

/// stop-blindly: stops itself, and then does nothing.
int stopBlindly(const Arguments& /*arguments*/)
{
    std::raise(SIGSTOP);
    return waitBlindly({});
}

/// close-streams CHANNEL: closes both streams, tells so, and ends with status 7 when released.
int closeStreams(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    ::close(STDOUT_FILENO);
    ::close(STDERR_FILENO);
    channel.tell("closed");
    channel.waitForRelease();
    return 7;
}

/// Takes requests to end in their turn instead of ending.
class TerminationRequests {
public:
    TerminationRequests()
    {
        sigset_t signals;
        ::sigemptyset(&signals);
        ::sigaddset(&signals, SIGTERM);
        ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        _descriptor = ::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
    }

    /// For `poll`.
    int descriptor() const { return _descriptor; }

    /// Takes a request if there is one, and tells so.
    bool take(const Channel& channel) const
    {
        signalfd_siginfo request{};
        if (::read(_descriptor, &request, sizeof request) < 0) {
            return false;
        }
        channel.tell("asked to end");
        return true;
    }

private:
    int _descriptor;
};

/// survive-termination CHANNEL: tells when it is asked to end, but ends only when released.
int surviveTermination(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    const TerminationRequests requests;
    channel.tell("ready");
    std::array<pollfd, 2> polled{
        {{channel.descriptor(), POLLIN, 0}, {requests.descriptor(), POLLIN, 0}}};
    while (polled[0].revents == 0) {
        ::poll(polled.data(), polled.size(), -1);
        requests.take(channel);
    }
    return 0;
}

/// print-through-termination CHANNEL BYTES: prints without end; when asked to end, prints so much
/// more on each stream and ends with status 0.
int printThroughTermination(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    const TerminationRequests requests;
    channel.tell("ready");
    while (!requests.take(channel)) {
        writePattern(STDOUT_FILENO, 4096);
    }
    fillErrorFirst({arguments.at(1)});
    channel.tell("printed all");
    return 0;
}

/// Starts a process that keeps both streams open until it is released, and then prints "late".
void leaveGrandchild(const Channel& channel)
{
    if (::fork() == 0) {
        limitLife();
        channel.tell("grandchild ready");
        channel.waitForRelease();
        // Nobody may be listening any more; that must not look like the grandchild's failure.
        std::signal(SIGPIPE, SIG_IGN);
        writeAll(STDOUT_FILENO, "late");
        ::_exit(0);
    }
}

/// leave-grandchild CHANNEL: ends at once with status 5.
int endBeforeGrandchild(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    leaveGrandchild(channel);
    return 5;
}

/// wait-beside-grandchild CHANNEL: does not end by itself.
int waitBesideGrandchild(const Arguments& arguments)
{
    const Channel channel(arguments.at(0));
    leaveGrandchild(channel);
    return waitBlindly({});
}

}  // namespace

const std::map<std::string, Behaviour>& behaviours()
{
    static const std::map<std::string, Behaviour> all{
        {"close-streams", closeStreams},
        {"copy-input", copyInput},
        {"die", dieBySignal},
        {"echo", echo},
        {"exit", exitWith},
        {"fill-error-first", fillErrorFirst},
        {"fill-output-first", fillOutputFirst},
        {"leave-grandchild", endBeforeGrandchild},
        {"list-descriptors", listDescriptors},
        {"print", print},
        {"print-environment", printEnvironment},
        {"print-surroundings", printSurroundings},
        {"print-through-termination", printThroughTermination},
        {"say", say},
        {"stop", stop},
        {"stop-blindly", stopBlindly},
        {"survive-termination", surviveTermination},
        {"wait", wait},
        {"wait-beside-grandchild", waitBesideGrandchild},
        {"wait-blindly", waitBlindly},
    };
    return all;
}

}  // namespace ProcessHelper
