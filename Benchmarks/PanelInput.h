#pragma once

#include "Benchmarks/Timing.h"
#include "PullRequestKit/PullRequestProvider.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QTemporaryDir>

#include <atomic>
#include <memory>
#include <vector>

namespace Benchmarks {

/// A service that answers at once: its lists in turn, one more refresh one list further. To be made
/// on the main thread.
class TurningProvider final : public PullRequestKit::PullRequestProvider {
public:
    using PullRequests = std::vector<PullRequestKit::PullRequest>;

    TurningProvider(
        std::vector<PullRequests> lists,
        std::vector<PullRequestKit::RepositorySummary> repositories);

    /// The processor's time that the main thread had used when the last request was answered.
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

/// As many as a large account can choose from, under a few dozen owners.
std::vector<PullRequestKit::RepositorySummary> makeRepositories(std::size_t count);

/// A list of 1,000, and the same after a tenth of it says something else and stands elsewhere, a
/// few are gone and a few are new.
std::vector<TurningProvider::PullRequests> listBeforeAndAfter();

/// A model on the provider, with every repository of both selected, files of its own and nothing
/// else of the desktop.
class ModelOnProvider {
public:
    explicit ModelOnProvider(std::shared_ptr<TurningProvider> provider);

    Tarnwick::PullRequestMenuModel& model() { return *_model; }

    /// From the start of one refresh to its end, events in between included.
    void refresh();

private:
    QTemporaryDir _folder;
    std::unique_ptr<Tarnwick::PullRequestMenuModel> _model;
};

}  // namespace Benchmarks
