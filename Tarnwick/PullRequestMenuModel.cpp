#include "Tarnwick/PullRequestMenuModel.h"

#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"
#include "Tarnwick/Model/OpenInEditor.h"
#include "Tarnwick/Model/WantedFacts.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;
using namespace std::chrono_literals;

namespace {

using Model = PullRequestMenuModel;

}  // namespace

PullRequestMenuModel::PullRequestMenuModel(Collaborators collaborators)
    : _parts(std::move(collaborators))
    , _settingsStore(*_parts.defaults)
    , _settings(_parts.preload ? _parts.preload->settings() : _settingsStore.load())
    , _operations(_settings, _settingsStore, _parts.clock)
    , _mutes(_settings, _operations, _parts.clock)
    , _visits(
          *_parts.defaults,
          VisitStore::programPrefix,
          [clock = _parts.clock] { return clock->now(); })
    , _snapshotWriter(_parts.cache)
    , _notifications(_parts.notifier, _settings, _operations)
    , _news({_notifications, _snapshotWriter, _settings, _parts.blocked, _parts.turns})
    , _list(
          _settings,
          {.facts = [this]() -> const FactsByID& { return *_facts.facts(); },
           .login = [this] { return _account ? *_account : std::string_view(); }})
    , _facts(
          {.provider = _parts.provider,
           .clock = _parts.clock,
           .rows = [this]() -> const std::vector<PullRequestRow>& { return _list.rows(); },
           .isUseful = [this] { return needsFacts(_settings, _news.tellsOfTurns()); },
           .save = [this](const SharedFacts& facts) { saveFacts(facts); }})
    , _pollingRest(_parts.clock)
    , _refreshCycle(
          _parts.provider,
          _parts.clock,
          {.begin = [this] { refreshBegins(); },
           .start = [this](const std::optional<std::string>& account) { return signedIn(account); },
           .accept =
               [this](RefreshResult result, const RefreshStart& start) {
                   return accept(std::move(result), start);
               },
           .fail = [this](const MenuState& failure) { cannotRefresh(failure); },
           .refused = [this] { _pollingRest.refused(); }})
    , _polling(
          _parts.clock,
          _parts.machine,
          {.refresh = [this] { return refresh(); },
           .lastEnd = [this] { return _refreshCycle.lastEnd(); },
           .rest = [this] { return _pollingRest.remaining(); }})
{
    followSettings();
    followNotifications();
    followList();
    readLaunchAtLogin();
    showLastList();
    showSettingsProblem();
    _mutes.endOutdated();
    _mutes.wait();
    schedulePolling();
    _notifications.prepare();
}

void PullRequestMenuModel::stop()
{
    _lifetime.request_stop();
    _refreshCycle.stop();
    _facts.stop();
    _mutes.stop();
    _polling.stop();
    flushSettings();
}

void PullRequestMenuModel::followSettings()
{
    using Operations = SettingsOperations;
    const auto arrangeAnew = [this] {
        _list.rebuild();
        _facts.askWhereUseful();
    };
    connect(&_operations, &Operations::changed, this, &Model::settingsChanged);
    connect(this, &Model::settingsChanged, this, &Model::showSettingsProblem);
    connect(&_operations, &Operations::flushed, this, &Model::showSettingsProblem);
    connect(&_operations, &Operations::darkModeChanged, this, &Model::darkModeChanged);
    connect(&_operations, &Operations::filtersChanged, this, arrangeAnew);
    connect(&_operations, &Operations::filtersChanged, this, [this] { _mutes.wait(); });
    connect(&_operations, &Operations::arrangementChanged, this, arrangeAnew);
    connect(&_operations, &Operations::selectionChanged, &_list, &PullRequestList::rebuild);
    connect(&_operations, &Operations::selectionChanged, this, &Model::scheduleRepositoryRefresh);
    // The rows stay until the answer for the other reviewers arrives: an empty list would claim
    // that there are none.
    connect(&_operations, &Operations::reviewersChanged, this, [this] { scheduleRefresh(0ms); });
    connect(&_operations, &Operations::pollingIntervalChanged, this, &Model::schedulePolling);
    if (_parts.settingsWatcher) {
        connect(_parts.settingsWatcher.get(), &FileWatcher::changed, this, [this] {
            readSettingsAgain();
            Q_EMIT visitsChanged();
            Q_EMIT settingsReadAgain();
        });
    }
}

void PullRequestMenuModel::followList()
{
    connect(&_list, &PullRequestList::rowsChanged, this, &Model::rowsChanged);
    connect(&_list, &PullRequestList::hiddenChanged, this, &Model::hiddenChanged);
    connect(&_list, &PullRequestList::detailsChanged, this, &Model::detailsChanged);
    connect(&_list, &PullRequestList::turnsChanged, this, &Model::turnsChanged);
    connect(&_facts, &FactsQuestions::factsChanged, this, [this] {
        if (_settings.arrangement == Arrangement::byWhoseTurn) {
            _list.rebuild();
        }
        Q_EMIT factsChanged();
    });
    connect(&_facts, &FactsQuestions::quotaTold, &_pollingRest, &PollingRest::setQuota);
    connect(&_facts, &FactsQuestions::settled, this, &Model::factsSettled);
    connect(&_pollingRest, &PollingRest::quotaChanged, this, &Model::quotaChanged);
    connect(&_pollingRest, &PollingRest::restingQuotaChanged, this, &Model::restingQuotaChanged);
    connect(&_refreshCycle, &RefreshCycle::isRefreshingChanged, this, &Model::isRefreshingChanged);
}

void PullRequestMenuModel::followNotifications()
{
    using Notifications = PullRequestNotifications;
    connect(
        &_notifications,
        &Notifications::settingsChangeRequiredChanged,
        this,
        &Model::notificationSettingsRequiredChanged);
    connect(&_notifications, &Notifications::errorChanged, this, &Model::setSettingsError);
    if (_parts.notificationDelegate) {
        _parts.notificationDelegate->setOpened([self = QPointer(this)](const Url& page) {
            if (self) {
                self->recordVisit(page);
            }
        });
    }
}

void PullRequestMenuModel::showLastList()
{
    auto list = _parts.preload ? _parts.preload->takeList() : lastList(_parts.cache, _settings);
    if (!list) {
        return;
    }
    _list.set(
        std::make_shared<const std::vector<PullRequest>>(std::move(list->snapshot.pullRequests)),
        std::move(list->list),
        list->hidden,
        std::make_shared<const DetailsByID>(std::move(list->details)));
    if (list->facts.facts) {
        _facts.recall(std::move(list->facts.facts));
    }
    if (list->facts.quota && list->facts.quota->resetAt > _parts.clock->now()) {
        _pollingRest.setQuota(*list->facts.quota);
    }
    _repositories = std::move(list->snapshot.repositories);
    _account = std::move(list->snapshot.account);
    _lastRefreshed = list->snapshot.refreshedAt;
    _hasSnapshot = true;
    _state = {MenuState::Kind::loaded, {}};
    _operations.resetUnconfiguredSelection();
    if (_settings.selectedRepositories.empty()) {
        _list.rebuild();
    }
}

void PullRequestMenuModel::menuOpened()
{
    readLaunchAtLogin();
    const ReviewerFilter reviewers = _settings.reviewerFilter;
    readSettingsAgain();
    if (_settings.reviewerFilter == reviewers) {  // Else a refresh for the others has just begun.
        _refreshCycle.start();
    }
}

void PullRequestMenuModel::scheduleRefresh(std::chrono::milliseconds delay)
{
    // The list is about to change.
    _facts.cancel();
    _refreshCycle.schedule(delay);
}

void PullRequestMenuModel::refreshBegins()
{
    dismissRefreshError();
    if (!_hasSnapshot) {
        setState({MenuState::Kind::checkingAuthentication, {}});
    }
}

RefreshStart PullRequestMenuModel::signedIn(const std::optional<std::string>& account)
{
    assign(_account, account, &Model::accountChanged);
    if (!_hasSnapshot) {
        setState({MenuState::Kind::loading, {}});
    }
    return {account, std::make_shared<const Settings>(_settings), _facts.facts()};
}

/// A failed refresh keeps the visible rows and adds an error; without rows it becomes the state.
void PullRequestMenuModel::cannotRefresh(const MenuState& failure)
{
    assign(_lastFailure, failure, &Model::lastFailureChanged);
    if (_hasSnapshot) {
        setState({MenuState::Kind::loaded, {}});
        assign(
            _refreshError, "Showing cached data: " + failure.message, &Model::refreshErrorChanged);
        return;
    }
    _list.clear();
    setState(failure);
}

bool PullRequestMenuModel::accept(RefreshResult result, const RefreshStart& start)
{
    // Outdated: the change has already scheduled another refresh.
    if (start.settings->reviewerFilter != _settings.reviewerFilter
        || start.settings->selectedRepositories != _settings.selectedRepositories) {
        return false;
    }
    assign(_repositories, result.snapshot.repositories, &Model::repositoriesChanged);
    _operations.resetUnconfiguredSelection();
    if (_settings != *start.settings || start.facts != _facts.facts()) {
        // Other settings or facts changed meanwhile.
        result = refreshResult(
            std::move(result),
            {start.account, std::make_shared<const Settings>(_settings), _facts.facts()});
    }
    _news.recall(*_list.all(), _lastRefreshed);
    _visits.noteListed(*result.pullRequests);
    _list.set(
        result.pullRequests, std::move(result.list), result.hidden, std::move(result.details));
    _mutes.endChanged(*_list.all());
    assign(_truncation, result.truncation, &Model::truncationChanged);
    const Date now = _parts.clock->now();
    assign(_lastRefreshed, now, &Model::lastRefreshedChanged);
    _hasSnapshot = true;
    assign(_lastFailure, std::nullopt, &Model::lastFailureChanged);
    setState({MenuState::Kind::loaded, {}});

    result.baseline.refreshedAt = now;
    _news.tell(_list.rows(), *_list.all(), std::move(result.baseline));
    result.snapshot.refreshedAt = now;
    if (_parts.keepsList) {
        _snapshotWriter.save(std::move(result.snapshot), _list.details());
    }
    _facts.setListed(_list.all());
    return true;
}

QCoro::Task<> PullRequestMenuModel::askForFacts()
{
    _facts.ask();
    const QFuture<void> answered = _facts.answered();
    co_await answered;
}

void PullRequestMenuModel::factsSettled(bool hitSecondaryLimit, bool isRefreshed)
{
    if (hitSecondaryLimit) {
        _pollingRest.refused();
    } else if (isRefreshed) {
        _pollingRest.granted();
    }
    if (isRefreshed) {
        _news.tellTurns(_list.rows(), _list.turnSources(), _account, _parts.clock->now());
    }
}

void PullRequestMenuModel::saveFacts(const SharedFacts& facts)
{
    if (_parts.keepsList) {
        _snapshotWriter.save(
            PullRequestFactsFile::beside(_parts.cache), {facts, _pollingRest.quota()});
    }
}

void PullRequestMenuModel::selectAllRepositories(bool all)
{
    std::set<std::string> names;
    if (all) {
        for (const RepositorySummary& repository : _repositories) {
            names.insert(repository.fullName);
        }
    }
    _operations.setSelectedRepositories(names);
}

void PullRequestMenuModel::readSettingsAgain()
{
    const Settings before = _settings;
    _operations.readAgain();
    showSettingsProblem();
    const auto isTurnedOn = [&](bool Settings::* flag) {
        return !(before.*flag) && _settings.*flag;
    };
    if (isTurnedOn(&Settings::unblockedNotificationsEnabled)
        || isTurnedOn(&Settings::newPullRequestNotificationsEnabled)
        || isTurnedOn(&Settings::yourTurnNotificationsEnabled)) {
        _notifications.prepare();
    }
}

/// Called after each change: sets or clears the error that settings cannot be stored.
void PullRequestMenuModel::showSettingsProblem()
{
    auto text = _parts.defaults->problem();
    const auto previous = std::exchange(_settingsProblem, text);
    if (text || _settingsError == previous) {
        setSettingsError(std::move(text));
    }
}

void PullRequestMenuModel::readLaunchAtLogin()
{
    assign(
        _launchAtLoginEnabled, _parts.loginItem->isEnabled(), &Model::launchAtLoginEnabledChanged);
}

void PullRequestMenuModel::toggleLaunchAtLogin()
{
    try {
        _parts.loginItem->toggle();
    } catch (const std::exception& error) {
        setSettingsError(std::string("Open at Login could not be changed: ") + error.what());
    }
    readLaunchAtLogin();
}

void PullRequestMenuModel::recordVisit(const PullRequestID& id)
{
    if (const PullRequest* const found = _list.find(id)) {
        _visits.recordVisit(id, seenNow(*found, _facts.of(id)));
    } else {
        _visits.recordVisit(id);
    }
    showSettingsProblem();
    Q_EMIT visitsChanged();
}

void PullRequestMenuModel::forgetVisit(const PullRequestID& id)
{
    _visits.forgetVisit(id);
    showSettingsProblem();
    Q_EMIT visitsChanged();
}

void PullRequestMenuModel::recordVisit(const Url& page)
{
    if (const PullRequest* const found = _list.find(page)) {
        recordVisit(PullRequestID(found->id));
    }
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
