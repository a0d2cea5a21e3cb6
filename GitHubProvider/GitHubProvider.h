#pragma once

#include "GitHubProvider/BaseRuleCache.h"
#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/Facts.h"
#include "GitHubProvider/Gh.h"
#include "GitHubProvider/Process/CommandRunning.h"
#include "GitHubProvider/SearchMemory.h"
#include "GitHubProvider/SystemLog.h"
#include "PullRequestKit/PullRequestProvider.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// The default host of `gh`.
inline constexpr const char* publicHost = "github.com";

/// GitHub through the user's `gh`, with its login, host and tokens. Caches the rules of base
/// branches and the fields that the host does not know.
class GitHubProvider final : public PullRequestKit::PullRequestProvider {
public:
    /// Logs the steps of searches to `log`. Requires: no null arguments.
    GitHubProvider(
        std::string host,
        FindGh findGh,
        std::shared_ptr<const CommandRunning> runner,
        LogSink log,
        WallClock wallClock = std::chrono::system_clock::now,
        SteadyClock steadyClock = std::chrono::steady_clock::now,
        std::shared_ptr<SearchMemory> memory = std::make_shared<SearchMemory>());

    std::string_view id() const override;
    std::string_view displayName() const override;

    PullRequestKit::AuthenticationStatus authenticationStatus(
        std::stop_token stopToken) const override;

    std::vector<PullRequestKit::RepositorySummary> repositories(
        std::stop_token stopToken) const override;

    /// Open pull requests, last updated first. Without repositories `gh` is not run.
    std::vector<PullRequestKit::PullRequest> pullRequests(
        PullRequestKit::ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const override;

    PullRequestKit::PullRequestList listPullRequests(
        PullRequestKit::ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const override;

    PullRequestKit::FactsAnswer facts(
        std::span<const PullRequestKit::PullRequest> pullRequests,
        std::stop_token stopToken) const override;

private:
    std::string _host;
    Gh _gh;
    LogSink _log;
    SteadyClock _steadyClock;
    WallClock _wallClock;
    std::shared_ptr<SearchMemory> _memory;
    mutable BaseRuleCache _ruleCache;
    Facts _facts;
};

}  // namespace GitHub
