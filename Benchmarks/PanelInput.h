#pragma once

#include "Benchmarks/Timing.h"
#include "PullRequestKit/PullRequestProvider.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QTemporaryDir>

#include <atomic>
#include <memory>
#include <vector>

namespace Benchmarks {

/// Answers at once, with the next of its lists at each refresh. Create on the main thread.
class TurningProvider final : public PullRequestKit::PullRequestProvider {
public:
    using PullRequests = std::vector<PullRequestKit::PullRequest>;

    TurningProvider(
        std::vector<PullRequests> lists,
        std::vector<PullRequestKit::RepositorySummary> repositories);

    /// The main thread's processor time at the last answer.
    Seconds mainThreadAtAnswer() const { return Seconds(_mainThreadAtAnswer.load()); }

    std::string_view id() const override;
    std::string_view displayName() const override;
    PullRequestKit::AuthenticationStatus authenticationStatus(
        std::stop_token stopToken) const override;
    std::vector<PullRequestKit::RepositorySummary> repositories(
        std::stop_token stopToken) const override;
    PullRequests pullRequests(
        PullRequestKit::ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const override;

private:
    clockid_t _mainThread{};
    mutable std::atomic<double> _mainThreadAtAnswer = 0;
    std::vector<PullRequests> _lists;
    std::vector<PullRequestKit::RepositorySummary> _repositories;
    mutable std::size_t _next = 0;  ///< Used by one refresh at a time.
};

/// The repositories of a large account with a few dozen owners.
std::vector<PullRequestKit::RepositorySummary> makeRepositories(std::size_t count);

/// A list of 1,000, and the same with a tenth changed and moved, a few removed and a few added.
std::vector<TurningProvider::PullRequests> listBeforeAndAfter();

/// A model with this provider, all repositories selected, temporary files and no desktop.
class ModelOnProvider {
public:
    explicit ModelOnProvider(std::shared_ptr<TurningProvider> provider);

    Tarnwick::PullRequestMenuModel& model() { return *_model; }

    /// From the start of a refresh to its end, including events.
    void refresh();

private:
    QTemporaryDir _folder;
    std::unique_ptr<Tarnwick::PullRequestMenuModel> _model;
};

}  // namespace Benchmarks
