#pragma once

#include "GitHubProvider/Gh.h"
#include "GitHubProvider/GitHubProvider.h"
#include "GitHubProvider/Process/ProcessCommandRunner.h"
#include "Support/SampleGitHubFixture.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace TestSupport {

/// Runs commands for real and remembers their arguments.
class RecordingRunner final : public GitHub::CommandRunning {
public:
    GitHub::CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const override
    {
        commands.push_back(arguments);
        return _runner.run(executable, arguments, stopToken);
    }

    mutable std::vector<std::vector<std::string>> commands;

private:
    GitHub::ProcessCommandRunner _runner{std::chrono::seconds(30)};
};

/// The provider with the real runner and the real `gh`, in this process.
class ProviderTest : public SampleGitHubFixture {
protected:
    ~ProviderTest() override { replaceEnvironment(_before); }

    /// Serves, and takes the environment on in which `gh` sees the server.
    template<typename Scenario>
    void serveHere(const Scenario& scenario)
    {
        serve(scenario);
        replaceEnvironment(environment());
    }

    GitHub::GitHubProvider provider()
    {
        return {
            GitHub::publicHost,
            [environment = environment()] { return GitHub::findGH(environment); },
            runner,
            [this](const std::string& line) { log.push_back(line); },
            [this] { return now; }};
    }

    std::vector<SampleGitHub::RecordedRequest> requests(SampleGitHub::RequestKind kind)
    {
        auto all = server().requests();
        std::erase_if(all, [&](const auto& recorded) { return recorded.kind != kind; });
        return all;
    }

    std::shared_ptr<RecordingRunner> runner = std::make_shared<RecordingRunner>();
    std::vector<std::string> log;
    std::chrono::system_clock::time_point now = std::chrono::system_clock::now();

private:
    static void replaceEnvironment(const SampleGitHub::Environment& wanted)
    {
        for (const auto& [name, value] : SampleGitHub::currentEnvironment()) {
            ::unsetenv(name.c_str());
        }
        for (const auto& [name, value] : wanted) {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }

    const SampleGitHub::Environment _before = SampleGitHub::currentEnvironment();
};

}  // namespace TestSupport
