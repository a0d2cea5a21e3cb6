#pragma once

#include "SampleGitHub/GhEnvironment.h"
#include "SampleGitHub/Server.h"
#include "SampleGitHub/TemporaryFolder.h"
#include "Support/Names.h"
#include "Support/RunProgram.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace TestSupport {

/// A sample GitHub of one test's own, and an environment in which programs see it, and the test's
/// folders, and nothing of the user's. The sample's "now" is 2026-03-01T12:00:00Z.
class SampleGitHubFixture : public testing::Test {
protected:
    SampleGitHubFixture();

    /// What several `repo:` terms mean from the next `serve` on.
    void setRepositoryTerms(SampleGitHub::RepositoryTerms terms) { _gitHub.terms = terms; }

    /// In what the GitHub of the next `serve` differs from the usual one.
    SampleGitHub::GitHubOptions& gitHubOptions() { return _gitHub; }

    /// Serves a scenario by its name, with `gh` signed in when the scenario has an account.
    void serve(const std::string& scenario);
    void serve(SampleGitHub::Scenario scenario);

    /// Requires: `serve`.
    SampleGitHub::Server& server() { return *_server; }

    void setFault(const std::string& text);

    /// Runs the real `gh`. Fails the test when there is none.
    ProgramResult gh(const std::vector<std::string>& arguments) const;

    /// What programs under test are to inherit: HOME and the XDG folders lie below `folder()` and
    /// are there, GH_CONFIG_DIR leads `gh` to the server, PATH is the user's.
    const SampleGitHub::Environment& environment() const { return _environment; }

    /// Removed when the test ends. Its path is short enough for sockets.
    const std::filesystem::path& folder() const { return _folder.path(); }

private:
    SampleGitHub::TemporaryFolder _folder;
    SampleGitHub::Environment _environment;
    SampleGitHub::GitHubOptions _gitHub;
    std::optional<SampleGitHub::Server> _server;
};

}  // namespace TestSupport
