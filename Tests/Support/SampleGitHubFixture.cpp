#include "Support/SampleGitHubFixture.h"

#include "PullRequestKit/Date.h"
#include "SampleGitHub/GhConfiguration.h"

#include <utility>

namespace TestSupport {
namespace {

/// What reports of sanitizers and coverage need, and where programs and libraries are found.
bool isInherited(const std::string& name)
{
    return name == "PATH" || name == "LD_LIBRARY_PATH" || name == "LLVM_PROFILE_FILE"
           || name.starts_with("GCOV_PREFIX") || name.ends_with("SAN_OPTIONS");
}

SampleGitHub::Environment makeEnvironment(const std::filesystem::path& folder)
{
    SampleGitHub::Environment environment = SampleGitHub::currentEnvironment();
    std::erase_if(environment, [](const auto& entry) { return !isInherited(entry.first); });
    environment["LANG"] = "C.UTF-8";
    environment["TZ"] = "UTC";
    for (const auto& [name, place] : SampleGitHub::Environment{
             {"HOME", "home"},
             {"TMPDIR", "tmp"},
             {"XDG_CONFIG_HOME", "home/.config"},
             {"XDG_DATA_HOME", "home/.local/share"},
             {"XDG_STATE_HOME", "home/.local/state"},
             {"XDG_CACHE_HOME", "home/.cache"},
             {"XDG_RUNTIME_DIR", "run"}}) {
        std::filesystem::create_directories(folder / place);
        environment[name] = (folder / place).string();
    }
    return SampleGitHub::withGhConfiguration(std::move(environment), folder / "gh");
}

}  // namespace

SampleGitHubFixture::SampleGitHubFixture()
    : _environment(makeEnvironment(_folder.path()))
{}

void SampleGitHubFixture::serve(const std::string& scenario)
{
    serve(SampleGitHub::loadScenario(scenario));
}

void SampleGitHubFixture::serve(SampleGitHub::Scenario scenario)
{
    const auto account = scenario.account;
    SampleGitHub::ServerOptions options;
    options.socket = folder() / "socket";
    options.scenario = std::move(scenario);
    options.gitHub = _gitHub;
    options.now = PullRequestKit::parseDate("2026-03-01T12:00:00Z");
    _server.emplace(std::move(options));
    SampleGitHub::writeGhConfiguration(folder() / "gh", _server->socket(), account);
}

void SampleGitHubFixture::setFault(const std::string& text)
{
    server().setFaults({SampleGitHub::parseFault(text)});
}

ProgramResult SampleGitHubFixture::gh(const std::vector<std::string>& arguments) const
{
    return runProgram("gh", arguments, _environment, folder());
}

}  // namespace TestSupport
