#include "TarnwickDirect/Application/Desktop.h"
#include "TarnwickDirect/CommandLine/ListCommand.h"
#include "TarnwickDirect/CommandLine/RepositoriesCommand.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"
#include "TarnwickDirect/CommandLine/StandardOutput.h"
#include "TarnwickDirect/CommandLine/Terminal.h"
#include "TarnwickDirect/CommandLine/WatchCommand.h"
#include "TarnwickDirect/Drain.h"
#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/Memory.h"
#include "TarnwickDirect/QtMessages.h"
#include "TarnwickDirect/SoftwareUpdate/ModuleUpdater.h"
#include "TarnwickDirect/Version.h"

#include <QCoreApplication>

#include <iostream>

using namespace TarnwickDirect;

namespace {

constexpr int usageStatus = 2;

template<typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};

int print(const std::string& text)
{
    StandardOutput output;
    output.stream() << text;
    return output.finish();
}

/// Commands do not initialize the desktop part.
int runInTerminal(const Command& command, int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const SignalHandler signalHandler;
    const int status = std::visit(
        Overloaded{
            [](const ShowPanel&) { return 0; },
            [](const ShowHelp&) { return print(helpText()); },
            [](const ShowVersion&) { return print("tarnwick " + std::string(version()) + "\n"); },
            [&](const ListPullRequests& list) { return listPullRequests(list, signalHandler); },
            [&](const WatchList& list) { return watch(list, signalHandler); },
            [&](const ListRepositories& list) { return listRepositories(list, signalHandler); },
            [&](const ChangeSelection& change) { return changeSelection(change, signalHandler); }},
        command);
    drain();
    if (signalHandler.signal()) {
        signalHandler.endProcess();
    }
    return status;
}

/// Empty if the program was built without a feed and thus without the module.
MakeUpdater programUpdater()
{
#ifdef TARNWICK_UPDATE_MODULE
    return updaterFromModule(QStringLiteral(TARNWICK_UPDATE_MODULE));
#else
    return {};
#endif
}

}  // namespace

int main(int argc, char** argv)
{
    Memory::holdLittle();
    StandardOutput::holdPlaces();
    leaveOutLocaleMessage();
    try {
        const Command command =
            parseArguments(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
        prepareEnvironment();
        if (const auto* const show = std::get_if<ShowPanel>(&command)) {
            return runOnDesktop(*show, programUpdater(), argc, argv);
        }
        return runInTerminal(command, argc, argv);
    } catch (const UsageError& error) {
        std::cerr << message(error.what()) << " See \"tarnwick --help\".\n";
        return usageStatus;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
