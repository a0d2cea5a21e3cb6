#include "TarnwickDirect/CommandLine/Interruption.h"
#include "TarnwickDirect/CommandLine/ListCommand.h"
#include "TarnwickDirect/CommandLine/RepositoriesCommand.h"
#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/Version.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <iostream>

using namespace TarnwickDirect;

namespace {

constexpr int usageStatus = 2;

template<typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};

/// Waits until cancelled work has ended, child processes included, and lets the coroutines that
/// awaited it come to their ends.
void settle()
{
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int run(const Command& command, const Interruption& interruption)
{
    return std::visit(
        Overloaded{
            [](const ShowHelp&) {
                std::cout << helpText();
                return 0;
            },
            [](const ShowVersion&) {
                std::cout << "tarnwick " << version() << '\n';
                return 0;
            },
            [&](const ListPullRequests& list) { return listPullRequests(list, interruption); },
            [&](const ListRepositories& list) { return listRepositories(list, interruption); },
            [&](const ChangeSelection& change) { return changeSelection(change, interruption); }},
        command);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        const Command command =
            parseArguments(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
        prepareEnvironment();
        const QCoreApplication application(argc, argv);
        const Interruption interruption;
        const int status = run(command, interruption);
        settle();
        if (interruption.signal()) {
            interruption.endProcess();
        }
        return status;
    } catch (const UsageError& error) {
        std::cerr << error.what() << " \"tarnwick --help\" shows what there is.\n";
        return usageStatus;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
