#include "Tarnwick/PullRequestMenuModel.h"

#include "PullRequestKit/UniquePullRequests.h"
#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/Model/OpenInEditor.h"
#include "Tarnwick/Model/RowFilter.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <utility>
#include <variant>

namespace Tarnwick {

using namespace PullRequestKit;
using namespace std::chrono_literals;

namespace {

/// How long the selection of repositories has to rest before it is fetched for.
constexpr std::chrono::milliseconds selectionRest = 250ms;

/// How soon a refresh that waits for the end of another one looks again.
constexpr std::chrono::milliseconds lookAgain = 50ms;

std::set<std::string> reviewFilterTexts(const std::set<ReviewFilter>& filters)
{
    std::set<std::string> texts;
    for (const ReviewFilter filter : filters) {
        texts.emplace(nameOf(filter));
    }
    return texts;
}

/// Drafts are open pull requests too, so any status lets open ones through and nothing else.
std::set<PullRequestState> statesLetThrough(const std::set<StatusFilter>& statuses)
{
    return statuses.empty() ? std::set<PullRequestState>{}
                            : std::set<PullRequestState>{PullRequestState::open};
}

}  // namespace

PullRequestMenuModel::PullRequestMenuModel(Collaborators collaborators)
    : _parts(std::move(collaborators))
    , _settingsStore(*_parts.defaults)
    , _settings(_settingsStore.load())
    , _operations(_settings, _settingsStore)
    , _visits(
          *_parts.defaults,
          VisitStore::programPrefix,
          [clock = _parts.clock] { return clock->now(); })
    , _snapshotWriter(_parts.cache)
    , _notifications(_parts.notifier, _settings, _settingsStore)
{
    followSettings();
    followNotifications();
    readLaunchAtLogin();
    showSnapshot();
    showSettingsProblem();
    schedulePolling();
    _notifications.prepare();
}

PullRequestMenuModel::~PullRequestMenuModel()
{
    stop();
}

void PullRequestMenuModel::stop()
{
    _lifetime.request_stop();
    _refreshTask.cancel();
    _pollingTask.cancel();
}

void PullRequestMenuModel::followSettings()
{
    using Operations = SettingsOperations;
    connect(&_operations, &Operations::changed, this, &PullRequestMenuModel::settingsChanged);
    connect(this, &PullRequestMenuModel::settingsChanged, this, [this] { showSettingsProblem(); });
    connect(
        &_operations, &Operations::darkModeChanged, this, &PullRequestMenuModel::darkModeChanged);
    connect(&_operations, &Operations::filtersChanged, this, &PullRequestMenuModel::rebuildRows);
    connect(&_operations, &Operations::selectionChanged, this, [this] {
        rebuildRows();
        scheduleRefresh(selectionRest);
    });
    connect(&_operations, &Operations::reviewersChanged, this, [this] {
        // The rows stay until the answer is there: an empty list would say that there are none.
        _allPullRequests.clear();
        scheduleRefresh(0ms);
    });
    connect(
        &_operations,
        &Operations::pollingIntervalChanged,
        this,
        &PullRequestMenuModel::schedulePolling);
}

void PullRequestMenuModel::followNotifications()
{
    connect(
        &_notifications,
        &PullRequestNotifications::settingsChanged,
        this,
        &PullRequestMenuModel::settingsChanged);
    connect(
        &_notifications,
        &PullRequestNotifications::settingsChangeRequiredChanged,
        this,
        &PullRequestMenuModel::notificationSettingsRequiredChanged);
    connect(
        &_notifications,
        &PullRequestNotifications::errorChanged,
        this,
        [this](const std::optional<std::string>& error) {
            assign(_settingsError, error, &PullRequestMenuModel::settingsErrorChanged);
        });
}

template<typename Value>
void PullRequestMenuModel::assign(
    Value& property, std::type_identity_t<Value> value, void (PullRequestMenuModel::*changed)())
{
    if (property != value) {
        property = std::move(value);
        Q_EMIT(this->*changed)();
    }
}

// The list

void PullRequestMenuModel::showSnapshot()
{
    auto snapshot = _parts.snapshot ? _parts.snapshot->take() : _parts.cache.load();
    if (!snapshot
        || (snapshot->reviewerScope
            && *snapshot->reviewerScope != reviewerScopeOf(_settings.reviewerFilter))) {
        return;
    }
    _allPullRequests = uniquePullRequests(std::move(snapshot->pullRequests));
    _repositories = std::move(snapshot->repositories);
    _account = std::move(snapshot->account);
    _lastRefreshed = snapshot->refreshedAt;
    _hasSnapshot = true;
    _state = {MenuState::Kind::loaded, {}};
    _operations.resetUnconfiguredSelection();
    rebuildRows();
}

void PullRequestMenuModel::rebuildRows()
{
    assign(_rows, filteredRows(_allPullRequests, _settings), &PullRequestMenuModel::rowsChanged);
}

void PullRequestMenuModel::saveSnapshot()
{
    CachedPullRequestSnapshot snapshot;
    snapshot.pullRequests = _allPullRequests;
    snapshot.repositories = _repositories;
    snapshot.account = _account;
    snapshot.refreshedAt = *_lastRefreshed;
    snapshot.reviewerScope = reviewerScopeOf(_settings.reviewerFilter);
    snapshot.repositoryScope = _settings.selectedRepositories;
    snapshot.reviewFilters = reviewFilterTexts(_settings.reviewFilters);
    snapshot.states = statesLetThrough(_settings.statuses);
    _snapshotWriter.save(std::move(snapshot));
}

// Refreshing

void PullRequestMenuModel::menuOpened()
{
    readLaunchAtLogin();
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
    try {
        auto asked = askProvider(stopToken);
        co_await asked;
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    if (!self) {
        co_return;
    }
    if (error && !stopToken.stop_requested()) {
        cannotAsk(MenuState::Kind::failed, *error);
    }
    assign(_isRefreshing, false, &PullRequestMenuModel::isRefreshingChanged);
}

void PullRequestMenuModel::begin(const std::stop_token& stopToken)
{
    _runningRefresh = stopToken;
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
        cannotAsk(MenuState::Kind::signedOut, signedOut->message);
        co_return;
    }
    if (const auto* const unavailable = std::get_if<Unavailable>(&status)) {
        cannotAsk(MenuState::Kind::unavailable, unavailable->message);
        co_return;
    }
    const auto& account = std::get<Authenticated>(status).account;
    assign(_account, account, &PullRequestMenuModel::accountChanged);
    if (!_hasSnapshot) {
        assign(_state, {MenuState::Kind::loading, {}}, &PullRequestMenuModel::stateChanged);
    }

    const ReviewerFilter reviewerFilter = _settings.reviewerFilter;
    const FetchRequest request{reviewerScopeOf(reviewerFilter), _settings.selectedRepositories};
    auto fetching =
        onWorker([provider, request, stopToken] { return fetch(*provider, request, stopToken); });
    FetchedPullRequests fetched = co_await fetching;
    if (!self || stopToken.stop_requested()) {
        co_return;
    }
    // The change that made the answer stale has scheduled the refresh that fetches the right one.
    const bool isStale = reviewerFilter != _settings.reviewerFilter
                         || request.repositories != _settings.selectedRepositories;
    if (!isStale) {
        accept(std::move(fetched));
    }
}

/// The refresh ends without an answer: what is in sight stays, with a text that says so; with
/// nothing in sight the state says it.
void PullRequestMenuModel::cannotAsk(MenuState::Kind kind, const std::string& message)
{
    if (_hasSnapshot) {
        assign(_state, {MenuState::Kind::loaded, {}}, &PullRequestMenuModel::stateChanged);
        assign(
            _refreshError,
            "Showing cached data: " + message,
            &PullRequestMenuModel::refreshErrorChanged);
        return;
    }
    assign(_rows, {}, &PullRequestMenuModel::rowsChanged);
    assign(_state, {kind, message}, &PullRequestMenuModel::stateChanged);
}

void PullRequestMenuModel::accept(FetchedPullRequests fetched)
{
    const auto previous = std::exchange(_allPullRequests, std::move(fetched.pullRequests));
    assign(
        _repositories, std::move(fetched.repositories), &PullRequestMenuModel::repositoriesChanged);
    _operations.resetUnconfiguredSelection();
    rebuildRows();
    assign(_shortfall, fetched.shortfall, &PullRequestMenuModel::shortfallChanged);
    const Date now = _parts.clock->now();
    assign(_lastRefreshed, now, &PullRequestMenuModel::lastRefreshedChanged);
    _hasSnapshot = true;
    assign(_state, {MenuState::Kind::loaded, {}}, &PullRequestMenuModel::stateChanged);

    const NotificationScope scope = notificationScope(_account, _settings);
    auto appeared = newPullRequests(_rows, scope, _newPullRequestBaseline);
    _newPullRequestBaseline = makeBaseline(scope, _rows, now);
    _notifications.deliver(
        {std::move(appeared), newlyUnblockedPullRequests(_allPullRequests, previous)});
    saveSnapshot();
}

// When to refresh

void PullRequestMenuModel::schedulePolling()
{
    _pollingTask.start(
        [this](std::stop_token stopToken) { return pollWhileRunning(std::move(stopToken)); });
}

QCoro::Task<> PullRequestMenuModel::pollWhileRunning(std::stop_token stopToken)
{
    while (!stopToken.stop_requested()) {
        const std::chrono::seconds period = secondsOf(_settings.pollingInterval);
        const QFuture<void> pause = _parts.clock->sleep(period, stopToken);
        co_await pause;
        if (stopToken.stop_requested()) {
            co_return;
        }
        auto refreshing = refreshUntilStopped(stopToken);
        co_await refreshing;
    }
}

void PullRequestMenuModel::scheduleRefresh(std::chrono::milliseconds delay)
{
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

// Settings

void PullRequestMenuModel::selectAllRepositories(bool all)
{
    std::set<std::string> names;
    if (all) {
        for (const RepositorySummary& repository : _repositories) {
            names.insert(repository.fullName);
        }
    }
    _operations.setSelectedRepositories(std::move(names));
}

/// Says after each change that settings cannot be kept, and takes it back when they can.
void PullRequestMenuModel::showSettingsProblem()
{
    const std::optional<QString> problem = _parts.defaults->problem();
    auto text = problem ? std::optional(problem->toStdString()) : std::nullopt;
    const auto previous = std::exchange(_settingsProblem, text);
    if (text || _settingsError == previous) {
        assign(_settingsError, std::move(text), &PullRequestMenuModel::settingsErrorChanged);
    }
}

void PullRequestMenuModel::readLaunchAtLogin()
{
    assign(
        _launchAtLoginEnabled,
        _parts.loginItem->isEnabled(),
        &PullRequestMenuModel::launchAtLoginEnabledChanged);
}

void PullRequestMenuModel::toggleLaunchAtLogin()
{
    try {
        if (_parts.loginItem->isEnabled()) {
            _parts.loginItem->unregisterItem();
        } else {
            _parts.loginItem->registerItem();
        }
    } catch (const std::exception& error) {
        assign(
            _settingsError,
            std::string("Open at Login could not be changed: ") + error.what(),
            &PullRequestMenuModel::settingsErrorChanged);
    }
    readLaunchAtLogin();
}

QCoro::Task<> PullRequestMenuModel::toggleUnblockedNotifications()
{
    return _notifications.toggleUnblocked();
}

QCoro::Task<> PullRequestMenuModel::toggleNewPullRequestNotifications()
{
    return _notifications.toggleNewPullRequests();
}

void PullRequestMenuModel::dismissNotificationSettingsRequired()
{
    _notifications.dismissSettingsChange();
}

void PullRequestMenuModel::dismissRefreshError()
{
    assign(_refreshError, std::nullopt, &PullRequestMenuModel::refreshErrorChanged);
}

void PullRequestMenuModel::dismissSettingsError()
{
    assign(_settingsError, std::nullopt, &PullRequestMenuModel::settingsErrorChanged);
}

// Leaving the list

void PullRequestMenuModel::recordVisit(const PullRequestID& id)
{
    _visits.recordVisit(id);
    showSettingsProblem();
    Q_EMIT visitsChanged();
}

QCoro::Task<std::optional<std::string>> PullRequestMenuModel::openInEditor(
    PullRequest pullRequest, ProgressSink progress)
{
    return Tarnwick::openInEditor(
        _parts.navigation,
        _settings.projectDirectory,
        std::move(pullRequest),
        std::move(progress),
        _lifetime.get_token());
}

}  // namespace Tarnwick
