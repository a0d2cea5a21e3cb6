#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <utility>
#include <variant>

namespace Tarnwick {

using namespace PullRequestKit;
using namespace std::chrono_literals;

namespace {

/// How soon a refresh that waits for the end of another one looks again.
constexpr std::chrono::milliseconds lookAgain = 50ms;

}  // namespace

void PullRequestMenuModel::menuOpened()
{
    readLaunchAtLogin();
    const ReviewerFilter reviewers = _settings.reviewerFilter;
    readSettingsAgain();
    if (_settings.reviewerFilter != reviewers) {
        return;  // A refresh for the other reviewers has just begun.
    }
    _refreshTask.start(
        [this](std::stop_token stopToken) { return refreshUntilStopped(std::move(stopToken)); });
}

QCoro::Task<> PullRequestMenuModel::refresh()
{
    return refreshUntilStopped(_lifetime.get_token());
}

QCoro::Task<> PullRequestMenuModel::refreshUntilStopped(std::stop_token stopToken)
{
    const QPointer<PullRequestMenuModel> self(this);
    while (_isRefreshing) {
        // A cancelled refresh no longer counts as running, but its child process may still be
        // ending, and two refreshes never overlap.
        if (!_runningRefresh.stop_requested()) {
            co_return;
        }
        const QFuture<void> pause = _parts.clock->sleep(lookAgain, stopToken);
        co_await pause;
        if (!self || stopToken.stop_requested()) {
            co_return;
        }
    }
    begin(stopToken);
    std::optional<std::string> error;
    bool isRefused = false;
    try {
        auto asked = askProvider(stopToken);
        co_await asked;
    } catch (const SecondaryLimitError& limit) {
        error = limit.what();
        isRefused = true;
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    if (!self) {
        co_return;
    }
    if (isRefused) {
        _pollingRest.refused();
    }
    if (error && !stopToken.stop_requested()) {
        cannotAsk({MenuState::Kind::failed, *error});
    }
    assign(_isRefreshing, false, &PullRequestMenuModel::isRefreshingChanged);
}

void PullRequestMenuModel::begin(const std::stop_token& stopToken)
{
    _runningRefresh = stopToken;
    _refreshEnd = RefreshEnd::none;
    assign(_isRefreshing, true, &PullRequestMenuModel::isRefreshingChanged);
    dismissRefreshError();
    if (!_hasSnapshot) {
        assign(
            _state,
            {MenuState::Kind::checkingAuthentication, {}},
            &PullRequestMenuModel::stateChanged);
    }
}

QCoro::Task<> PullRequestMenuModel::askProvider(std::stop_token stopToken)
{
    const QPointer<PullRequestMenuModel> self(this);
    const auto provider = _parts.provider;
    auto asking =
        onWorker([provider, stopToken] { return provider->authenticationStatus(stopToken); });
    const AuthenticationStatus status = co_await asking;
    if (!self || stopToken.stop_requested()) {
        co_return;
    }
    if (const auto* const signedOut = std::get_if<NotAuthenticated>(&status)) {
        cannotAsk({MenuState::Kind::signedOut, signedOut->message});
        co_return;
    }
    if (const auto* const unavailable = std::get_if<Unavailable>(&status)) {
        cannotAsk(
            {MenuState::Kind::unavailable, unavailable->message, unavailable->isServiceOutOfReach});
        co_return;
    }
    const auto& account = std::get<Authenticated>(status).account;
    assign(_account, account, &PullRequestMenuModel::accountChanged);
    if (!_hasSnapshot) {
        assign(_state, {MenuState::Kind::loading, {}}, &PullRequestMenuModel::stateChanged);
    }

    const RefreshStart start{account, std::make_shared<const Settings>(_settings), _facts.facts()};
    auto fetching = onWorker([provider, start, stopToken] {
        const FetchRequest request{
            reviewerScopeOf(start.settings->reviewerFilter), start.settings->selectedRepositories};
        return refreshResult(fetch(*provider, request, stopToken), start);
    });
    RefreshResult result = co_await fetching;
    if (!self || stopToken.stop_requested()) {
        co_return;
    }
    // The change that made the answer stale has scheduled the refresh that fetches the right one.
    const bool isStale = start.settings->reviewerFilter != _settings.reviewerFilter
                         || start.settings->selectedRepositories != _settings.selectedRepositories;
    if (!isStale) {
        accept(std::move(result), start);
    }
}

/// The refresh ends without an answer: what is in sight stays, with a text that says so; with
/// nothing in sight the state says it.
void PullRequestMenuModel::cannotAsk(MenuState failure)
{
    _refreshEnd =
        failure.kind == MenuState::Kind::signedOut ? RefreshEnd::signedOut : RefreshEnd::failed;
    assign(_lastFailure, failure, &PullRequestMenuModel::lastFailureChanged);
    if (_hasSnapshot) {
        assign(_state, {MenuState::Kind::loaded, {}}, &PullRequestMenuModel::stateChanged);
        assign(
            _refreshError,
            "Showing cached data: " + failure.message,
            &PullRequestMenuModel::refreshErrorChanged);
        return;
    }
    setRows({}, {});
    assign(_state, std::move(failure), &PullRequestMenuModel::stateChanged);
}

void PullRequestMenuModel::accept(RefreshResult result, const RefreshStart& start)
{
    if (_repositories != result.snapshot.repositories) {
        _repositories = result.snapshot.repositories;
        Q_EMIT repositoriesChanged();
    }
    _operations.resetUnconfiguredSelection();
    if (_settings != *start.settings || start.facts != _facts.facts()) {
        // The user has chosen something else since, or an earlier question was answered.
        result = refreshResult(
            std::move(result),
            {start.account, std::make_shared<const Settings>(_settings), _facts.facts()});
    }
    recallBlocked();
    _allPullRequests = result.pullRequests;
    _visits.noteListed(*_allPullRequests);
    setRows(std::move(result.list), result.hidden, std::move(result.details));
    _operations.endMutes([this, now = _parts.clock->now()](Mutes mutes) {
        return withoutEnded(std::move(mutes), *_allPullRequests, now);
    });
    assign(_shortfall, result.shortfall, &PullRequestMenuModel::shortfallChanged);
    const Date now = _parts.clock->now();
    assign(_lastRefreshed, now, &PullRequestMenuModel::lastRefreshedChanged);
    _hasSnapshot = true;
    _refreshEnd = RefreshEnd::fresh;
    assign(_lastFailure, std::nullopt, &PullRequestMenuModel::lastFailureChanged);
    assign(_state, {MenuState::Kind::loaded, {}}, &PullRequestMenuModel::stateChanged);

    auto appeared = newPullRequests(*_rows, result.baseline.scope, _newPullRequestBaseline);
    _newPullRequestBaseline = std::move(result.baseline);
    _newPullRequestBaseline->refreshedAt = now;
    std::unordered_set<PullRequestID> toldAsNew;
    for (const PullRequest& pullRequest : appeared) {
        if (_settings.newPullRequestNotificationsEnabled) {
            toldAsNew.insert(pullRequest.id);
        }
    }
    _isAccepting = true;
    _notifications.deliver({std::move(appeared), unblockedToTell(now)});
    _isAccepting = false;
    rememberBlocked();
    result.snapshot.refreshedAt = now;
    if (_parts.keepsList) {
        _snapshotWriter.save(std::move(result.snapshot), _details);
    }
    refreshFacts(std::move(toldAsNew));
}

/// Nobody is told of what is muted, nor later that it was unblocked meanwhile.
std::vector<PullRequest> PullRequestMenuModel::unblockedToTell(Date now)
{
    std::vector<PullRequest> unblocked = _blocked.update(*_allPullRequests, now);
    std::erase_if(unblocked, [this](const PullRequest& pullRequest) {
        if (!isMuted(sightOf(pullRequest))) {
            return false;
        }
        _blocked.settle(pullRequest.id);
        return true;
    });
    return unblocked;
}

/// Before the first refresh is taken over: what was blocked when the program last ran, and what the
/// list shows as blocked, which `tarnwick list` may have found since.
void PullRequestMenuModel::recallBlocked()
{
    if (std::exchange(_hasRecalledBlocked, true)) {
        return;
    }
    if (_parts.blocked) {
        _blocked = _parts.blocked->load();
        _hasBlockedOnDisk = !_blocked.entries.empty();
    }
    if (_lastRefreshed) {
        _blocked.learn(*_allPullRequests, *_lastRefreshed);
    }
}

void PullRequestMenuModel::rememberBlocked()
{
    const bool hasSome = !_blocked.entries.empty();
    if (_parts.blocked && (std::exchange(_hasBlockedOnDisk, hasSome) || hasSome)) {
        _snapshotWriter.save(*_parts.blocked, _blocked);
    }
}

// When

void PullRequestMenuModel::schedulePolling()
{
    _polling.start(secondsOf(_settings.pollingInterval));
}

void PullRequestMenuModel::scheduleRefresh(std::chrono::milliseconds delay)
{
    // The list will be another one.
    _facts.cancel();
    _refreshTask.start([this, delay](std::stop_token stopToken) {
        return refreshWhenIdle(delay, std::move(stopToken));
    });
}

/// A refresh that must not be left out: it waits for the end of a running one, whose answer no
/// longer is the right one.
QCoro::Task<> PullRequestMenuModel::refreshWhenIdle(
    std::chrono::milliseconds delay, std::stop_token stopToken)
{
    const auto clock = _parts.clock;
    if (delay > 0ms) {
        const QFuture<void> rest = clock->sleep(delay, stopToken);
        co_await rest;
    }
    while (!stopToken.stop_requested() && _isRefreshing) {
        const QFuture<void> pause = clock->sleep(lookAgain, stopToken);
        co_await pause;
    }
    if (!stopToken.stop_requested()) {
        auto refreshing = refreshUntilStopped(stopToken);
        co_await refreshing;
    }
}

}  // namespace Tarnwick
