#pragma once

#include "PullRequestKit/PullRequestProvider.h"

#include <condition_variable>
#include <functional>
#include <mutex>

namespace TestSupport {

/// A provider that answers what a test says and remembers what it was asked. Safe from any thread.
class FakeProvider final : public PullRequestKit::PullRequestProvider {
public:
    using PullRequests = std::vector<PullRequestKit::PullRequest>;
    using Repositories = std::vector<PullRequestKit::RepositorySummary>;

    struct Request {
        PullRequestKit::ReviewerScope reviewerScope;
        std::set<std::string> repositories;

        bool operator==(const Request&) const = default;
    };

    std::string_view id() const override { return "fake"; }

    std::string_view displayName() const override { return "Fake"; }

    PullRequestKit::AuthenticationStatus authenticationStatus(
        std::stop_token stopToken) const override;
    Repositories repositories(std::stop_token stopToken) const override;
    PullRequests pullRequests(
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

    void setStatus(PullRequestKit::AuthenticationStatus status);
    void setPullRequests(PullRequests pullRequests);
    /// How many pull requests the next answers say there are.
    void setFound(std::optional<std::int64_t> found);
    /// The details of the pull requests, in their order.
    void setDetails(std::vector<PullRequestKit::PullRequestDetails> details);
    void setRepositories(std::vector<std::string> names);
    /// The next request for pull requests throws a `ProviderError` with this text; empty: none
    /// does.
    void setError(std::string message);
    /// Requests for pull requests throw a `SecondaryLimitError`.
    void setRefused(bool isRefused);
    /// The next listing of repositories throws a `ProviderError` with this text.
    void setRepositoriesError(std::string message);

    /// What the next questions about facts are answered; called on a worker thread.
    using AnswerFacts =
        std::function<PullRequestKit::FactsAnswer(std::span<const PullRequestKit::PullRequest>)>;
    void setFacts(AnswerFacts answer);
    /// Questions about facts wait until `releaseFacts`, or until they are cancelled.
    void holdFacts();
    void releaseFacts();
    /// How many questions about facts wait now.
    int waitingForFacts() const;
    /// The numbers of the pull requests of each question about facts.
    std::vector<std::vector<std::int64_t>> factsRequests() const;

    /// Requests for pull requests wait until `release`, or until they are cancelled.
    void hold();
    void release();

    /// How many requests for pull requests wait now.
    int waiting() const;
    int statusCalls() const;
    /// How many requests for pull requests were cancelled while they waited.
    int cancelled() const;
    std::vector<Request> requests() const;

private:
    mutable std::mutex _mutex;
    mutable std::condition_variable_any _released;
    PullRequestKit::AuthenticationStatus _status = PullRequestKit::Authenticated{"octo"};
    PullRequests _pullRequests;
    std::optional<std::int64_t> _found;
    std::vector<PullRequestKit::PullRequestDetails> _details;
    Repositories _repositories;
    std::string _error;
    bool _isRefused = false;
    std::string _repositoriesError;
    bool _isHeld = false;
    mutable int _waiting = 0;
    mutable int _statusCalls = 0;
    mutable int _cancelled = 0;
    mutable std::vector<Request> _requests;
    AnswerFacts _facts;
    bool _areFactsHeld = false;
    mutable int _waitingForFacts = 0;
    mutable std::vector<std::vector<std::int64_t>> _factsRequests;
};

}  // namespace TestSupport
