#include "PullRequestKit/Errors.h"
#include "SampleGitHub/CommandLine.h"
#include "SampleGitHub/Execution.h"
#include "SampleGitHub/GhConfiguration.h"
#include "SampleGitHub/RequestLog.h"
#include "SampleGitHub/ScenarioFile.h"
#include "SampleGitHub/Server.h"
#include "SampleGitHub/TemporaryFolder.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

using namespace SampleGitHub;

constexpr int failureStatus = 1;
constexpr int usageStatus = 2;

std::ofstream openRecord(const CommandLine& line)
{
    std::ofstream record;
    if (line.record) {
        record.open(*line.record, std::ios::binary | std::ios::app);
        if (!record) {
            throw std::runtime_error(
                "The file " + line.record->string() + " could not be written.");
        }
    }
    return record;
}

int run(const CommandLine& line)
{
    const Signals signals{SIGINT, SIGTERM, SIGHUP, SIGCHLD};
    std::optional<TemporaryFolder> folder;
    if (!line.socket || !line.configurationFolder) {
        folder.emplace();
    }
    std::ofstream record = openRecord(line);
    ServerOptions options;
    options.socket = line.socket ? *line.socket : folder->path() / "s";
    ScenarioFile file(line.scenario, line.account);
    options.scenario = file.scenario();
    options.changedScenario = [&file] { return file.changed(); };
    options.faults = line.faults;
    options.gitHub = line.gitHub;
    options.now = line.now;
    options.onRequest = [&record](const RecordedRequest& request) {
        if (record.is_open()) {
            record << renderRequest(request) << '\n' << std::flush;
        }
    };
    const auto account = options.scenario.account;
    const Server server(std::move(options));
    const bool isConfigurationWanted = line.configurationFolder || !line.command.empty();
    const std::filesystem::path configuration =
        line.configurationFolder ? *line.configurationFolder : folder->path() / "gh";
    if (isConfigurationWanted) {
        writeGhConfiguration(configuration, server.socket(), account);
    }
    if (!line.command.empty()) {
        return runCommand(
            line.command, withGhConfiguration(currentEnvironment(), configuration), signals);
    }
    std::cout << "Serving " << line.scenario << " on " << server.socket().string() << '\n'
              << std::flush;
    while (signals.wait() == SIGCHLD) {}
    return 0;
}

}  // namespace

int main(int count, char** arguments)
{
    CommandLine line;
    try {
        line = parseCommandLine({arguments + 1, arguments + count});
    } catch (const std::invalid_argument& error) {
        std::cerr << "tarnwick-sample-github: " << error.what() << " Try --help.\n";
        return usageStatus;
    }
    if (line.isHelpWanted) {
        std::cout << helpText();
        return 0;
    }
    try {
        return run(line);
    } catch (const std::exception& error) {
        std::cerr << "tarnwick-sample-github: " << error.what() << '\n';
        return failureStatus;
    }
}
