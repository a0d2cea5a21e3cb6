#include "Fakes/FakeProvider.h"

namespace TestSupport {

using namespace PullRequestKit;

AuthenticationStatus FakeProvider::authenticationStatus(std::stop_token /*stopToken*/) const
{
    const std::lock_guard lock(_mutex);
    ++_statusCalls;
    return _status;
}

FakeProvider::Repositories FakeProvider::repositories(std::stop_token /*stopToken*/) const
{
    const std::lock_guard lock(_mutex);
    if (!_repositoriesError.empty()) {
        throw ProviderError(_repositoriesError);
    }
    return _repositories;
}

FakeProvider::PullRequests FakeProvider::pullRequests(
    ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    std::stop_token stopToken) const
{
    std::unique_lock lock(_mutex);
    _requests.push_back({reviewerScope, repositories});
    // The answer is the one of the time of asking, however long it takes.
    const PullRequests answer = _pullRequests;
    const std::string error = _error;
    const bool isRefused = _isRefused;
    ++_waiting;
    const bool isReleased = _released.wait(lock, stopToken, [&] { return !_isHeld; });
    --_waiting;
    if (!isReleased || stopToken.stop_requested()) {
        ++_cancelled;
        throw CancellationError();
    }
    if (isRefused) {
        throw SecondaryLimitError("Too many requests.");
    }
    if (!error.empty()) {
        throw ProviderError(error);
    }
    return answer;
}

PullRequestList FakeProvider::listPullRequests(
    ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    std::stop_token stopToken) const
{
    PullRequests answer = pullRequests(reviewerScope, repositories, std::move(stopToken));
    const std::lock_guard lock(_mutex);
    return {std::move(answer), _found, _details};
}

FactsAnswer FakeProvider::facts(
    std::span<const PullRequest> pullRequests, std::stop_token stopToken) const
{
    std::unique_lock lock(_mutex);
    auto& numbers = _factsRequests.emplace_back();
    for (const PullRequest& pullRequest : pullRequests) {
        numbers.push_back(pullRequest.id.number);
    }
    const AnswerFacts answer = _facts;
    ++_waitingForFacts;
    const bool isReleased = _released.wait(lock, stopToken, [&] { return !_areFactsHeld; });
    --_waitingForFacts;
    if (!isReleased || stopToken.stop_requested()) {
        throw CancellationError();
    }
    return answer ? answer(pullRequests) : FactsAnswer();
}

void FakeProvider::setFacts(AnswerFacts answer)
{
    const std::lock_guard lock(_mutex);
    _facts = std::move(answer);
}

void FakeProvider::holdFacts()
{
    const std::lock_guard lock(_mutex);
    _areFactsHeld = true;
}

void FakeProvider::releaseFacts()
{
    {
        const std::lock_guard lock(_mutex);
        _areFactsHeld = false;
    }
    _released.notify_all();
}

int FakeProvider::waitingForFacts() const
{
    const std::lock_guard lock(_mutex);
    return _waitingForFacts;
}

std::vector<std::vector<std::int64_t>> FakeProvider::factsRequests() const
{
    const std::lock_guard lock(_mutex);
    return _factsRequests;
}

void FakeProvider::setFound(std::optional<std::int64_t> found)
{
    const std::lock_guard lock(_mutex);
    _found = found;
}

void FakeProvider::setDetails(std::vector<PullRequestDetails> details)
{
    const std::lock_guard lock(_mutex);
    _details = std::move(details);
}

void FakeProvider::setStatus(AuthenticationStatus status)
{
    const std::lock_guard lock(_mutex);
    _status = std::move(status);
}

void FakeProvider::setPullRequests(PullRequests pullRequests)
{
    const std::lock_guard lock(_mutex);
    _pullRequests = std::move(pullRequests);
}

void FakeProvider::setRepositories(std::vector<std::string> names)
{
    const std::lock_guard lock(_mutex);
    _repositories.clear();
    for (std::string& name : names) {
        RepositorySummary& summary = _repositories.emplace_back();
        summary.fullName = std::move(name);
    }
}

void FakeProvider::setError(std::string message)
{
    const std::lock_guard lock(_mutex);
    _error = std::move(message);
}

void FakeProvider::setRefused(bool isRefused)
{
    const std::lock_guard lock(_mutex);
    _isRefused = isRefused;
}

void FakeProvider::setRepositoriesError(std::string message)
{
    const std::lock_guard lock(_mutex);
    _repositoriesError = std::move(message);
}

void FakeProvider::hold()
{
    const std::lock_guard lock(_mutex);
    _isHeld = true;
}

void FakeProvider::release()
{
    {
        const std::lock_guard lock(_mutex);
        _isHeld = false;
    }
    _released.notify_all();
}

int FakeProvider::waiting() const
{
    const std::lock_guard lock(_mutex);
    return _waiting;
}

int FakeProvider::statusCalls() const
{
    const std::lock_guard lock(_mutex);
    return _statusCalls;
}

int FakeProvider::cancelled() const
{
    const std::lock_guard lock(_mutex);
    return _cancelled;
}

std::vector<FakeProvider::Request> FakeProvider::requests() const
{
    const std::lock_guard lock(_mutex);
    return _requests;
}

}  // namespace TestSupport
