#pragma once

#include "GitHubProvider/GitHubProvider.h"
#include "Support/Errors.h"
#include "Support/ScriptedRunner.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TestSupport {

/// A provider over a scripted `gh` at /opt/gh, with clocks that only the test moves. Every answer
/// of the script must have been used at the end.
class ProviderTest : public testing::Test {
protected:
    std::unique_ptr<GitHub::GitHubProvider> makeProvider(
        std::optional<std::filesystem::path> newExecutable = "/opt/gh")
    {
        executable = std::move(newExecutable);
        return std::make_unique<GitHub::GitHubProvider>(
            "git.example",
            [this] {
                ++looks;
                return executable;
            },
            runner,
            [this](const std::string& line) { log.push_back(line); },
            [this] { return wallTime; },
            [this] { return steadyTime; });
    }

    void TearDown() override { EXPECT_FALSE(runner->hasAnswersLeft()); }

    std::optional<std::filesystem::path> executable;  ///< Where `gh` is when it is looked for.
    int looks = 0;                                    ///< How often it was looked for.
    std::shared_ptr<ScriptedRunner> runner = std::make_shared<ScriptedRunner>();
    std::vector<std::string> log;
    std::chrono::system_clock::time_point wallTime{std::chrono::hours{500'000}};
    std::chrono::steady_clock::time_point steadyTime{std::chrono::hours{7}};
    std::unique_ptr<GitHub::GitHubProvider> provider = makeProvider();
    std::stop_source stop;
};

}  // namespace TestSupport
