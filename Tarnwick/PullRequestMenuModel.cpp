#include "Tarnwick/PullRequestMenuModel.h"

#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"
#include "Tarnwick/Model/OpenInEditor.h"
#include "Tarnwick/Model/WantedFacts.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;
using namespace std::chrono_literals;

namespace {

/// How long the selection of repositories has to rest before it is fetched for.
constexpr std::chrono::milliseconds selectionRest = 250ms;

SharedPullRequests noPullRequests()
{
    return std::make_shared<const std::vector<PullRequest>>();
}

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
    , _rows(std::make_shared<const std::vector<PullRequestRow>>())
    , _turns(std::make_shared<const std::vector<Turn>>())
    , _allPullRequests(noPullRequests())
    , _details(std::make_shared<const DetailsByID>())
    , _facts(
          {.provider = _parts.provider,
           .clock = _parts.clock,
           .rows = [this]() -> const std::vector<PullRequestRow>& { return *_rows; },
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
    followFacts();
    readLaunchAtLogin();
    showLastList();
    showSettingsProblem();
    _mutes.endOutdated();
    _mutes.wait();
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
    _refreshCycle.stop();
    _facts.stop();
    _mutes.stop();
    _polling.stop();
    flushSettings();
}

void PullRequestMenuModel::followSettings()
{
    using Operations = SettingsOperations;
    using Model = PullRequestMenuModel;
    const auto arrangeAnew = [this] {
        rebuildRows();
        _facts.askWhereUseful();
    };
    connect(&_operations, &Operations::changed, this, &Model::settingsChanged);
    connect(this, &Model::settingsChanged, this, &Model::showSettingsProblem);
    connect(&_operations, &Operations::flushed, this, &Model::showSettingsProblem);
    connect(&_operations, &Operations::darkModeChanged, this, &Model::darkModeChanged);
    connect(&_operations, &Operations::filtersChanged, this, arrangeAnew);
    connect(&_operations, &Operations::filtersChanged, this, [this] { _mutes.wait(); });
    connect(&_operations, &Operations::arrangementChanged, this, arrangeAnew);
    connect(&_operations, &Operations::selectionChanged, this, &Model::rebuildRows);
    connect(&_operations, &Operations::selectionChanged, this, &Model::scheduleRepositoryRefresh);
    // The rows stay, and go on to be filtered, until the answer for the other reviewers is there:
    // an empty list would say that there are none.
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

void PullRequestMenuModel::followFacts()
{
    using Model = PullRequestMenuModel;
    connect(&_facts, &FactsQuestions::factsChanged, this, [this] {
        if (_settings.arrangement == Arrangement::byWhoseTurn) {
            rebuildRows();
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
    using Model = PullRequestMenuModel;
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

// The list

void PullRequestMenuModel::showLastList()
{
    auto list = _parts.preload ? _parts.preload->takeList() : lastList(_parts.cache, _settings);
    if (!list) {
        return;
    }
    setRows(
        std::move(list->list),
        list->hidden,
        std::make_shared<const DetailsByID>(std::move(list->details)));
    if (list->facts.facts) {
        _facts.recall(std::move(list->facts.facts));
    }
    if (list->facts.quota && list->facts.quota->resetAt > _parts.clock->now()) {
        _pollingRest.setQuota(*list->facts.quota);
    }
    _allPullRequests =
        std::make_shared<const std::vector<PullRequest>>(std::move(list->snapshot.pullRequests));
    _repositories = std::move(list->snapshot.repositories);
    _account = std::move(list->snapshot.account);
    _lastRefreshed = list->snapshot.refreshedAt;
    _hasSnapshot = true;
    _state = {MenuState::Kind::loaded, {}};
    _operations.resetUnconfiguredSelection();
    if (_settings.selectedRepositories.empty()) {
        rebuildRows();
    }
}

void PullRequestMenuModel::rebuildRows()
{
    FilteredRows list = filteredRows(*_allPullRequests, _settings);
    setRows(arranged(_settings.arrangement, std::move(list.rows), turnSources()), list.hidden);
}

SharedRows PullRequestMenuModel::rowsWithHidden() const
{
    const auto list = arrangedWithHidden();
    return {list, &list->rows};
}

std::shared_ptr<const ArrangedRows> PullRequestMenuModel::arrangedWithHidden() const
{
    return std::make_shared<const ArrangedRows>(arranged(
        _settings.arrangement,
        Tarnwick::rowsWithHidden(*_allPullRequests, _settings),
        turnSources(),
        [this](const PullRequest& pullRequest) { return sightOf(pullRequest) == Sight::inSight; }));
}

TurnSources PullRequestMenuModel::turnSources() const
{
    return {
        *_allPullRequests, *_details, *_facts.facts(), _account ? *_account : std::string_view()};
}

void PullRequestMenuModel::setRows(ArrangedRows list, HiddenCounts hidden)
{
    const HiddenCounts previous = std::exchange(_hidden, hidden);
    const bool areOtherTurns = *_turns != list.turns || _groups != list.groups;
    if (areOtherTurns) {
        _turns = std::make_shared<const std::vector<Turn>>(std::move(list.turns));
        _groups = std::move(list.groups);
    }
    if (*_rows != list.rows) {
        _rows = std::make_shared<const std::vector<PullRequestRow>>(std::move(list.rows));
        Q_EMIT rowsChanged();
    } else if (areOtherTurns) {
        Q_EMIT turnsChanged();
    }
    if (previous.total() > 0 || hidden.total() > 0) {
        Q_EMIT hiddenChanged();
    }
}

void PullRequestMenuModel::setRows(ArrangedRows list, HiddenCounts hidden, SharedDetails details)
{
    const bool areOtherDetails = *_details != *details;
    if (areOtherDetails) {
        _details = std::move(details);
    }
    const SharedRows before = _rows;
    setRows(std::move(list), hidden);
    if (areOtherDetails && _rows == before) {
        Q_EMIT detailsChanged();
    }
}

// Refreshes

void PullRequestMenuModel::menuOpened()
{
    readLaunchAtLogin();
    const ReviewerFilter reviewers = _settings.reviewerFilter;
    readSettingsAgain();
    if (_settings.reviewerFilter == reviewers) {  // Else a refresh for the others has just begun.
        _refreshCycle.start();
    }
}

void PullRequestMenuModel::schedulePolling()
{
    _polling.start(secondsOf(_settings.pollingInterval));
}

void PullRequestMenuModel::scheduleRefresh(std::chrono::milliseconds delay)
{
    // The list will be another one.
    _facts.cancel();
    _refreshCycle.schedule(delay);
}

void PullRequestMenuModel::scheduleRepositoryRefresh()
{
    scheduleRefresh(selectionRest);
}

void PullRequestMenuModel::setState(MenuState state)
{
    assign(_state, std::move(state), &PullRequestMenuModel::stateChanged);
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
    assign(_account, account, &PullRequestMenuModel::accountChanged);
    if (!_hasSnapshot) {
        setState({MenuState::Kind::loading, {}});
    }
    return {account, std::make_shared<const Settings>(_settings), _facts.facts()};
}

/// The refresh ends without an answer: what is in sight stays, with a text that says so; with
/// nothing in sight the state says it.
void PullRequestMenuModel::cannotRefresh(const MenuState& failure)
{
    assign(_lastFailure, failure, &PullRequestMenuModel::lastFailureChanged);
    if (_hasSnapshot) {
        setState({MenuState::Kind::loaded, {}});
        assign(
            _refreshError,
            "Showing cached data: " + failure.message,
            &PullRequestMenuModel::refreshErrorChanged);
        return;
    }
    setRows({}, {});
    setState(failure);
}

bool PullRequestMenuModel::accept(RefreshResult result, const RefreshStart& start)
{
    // The change that made the answer stale has scheduled the refresh that fetches the right one.
    if (start.settings->reviewerFilter != _settings.reviewerFilter
        || start.settings->selectedRepositories != _settings.selectedRepositories) {
        return false;
    }
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
    _news.recall(*_allPullRequests, _lastRefreshed);
    _allPullRequests = result.pullRequests;
    _visits.noteListed(*_allPullRequests);
    setRows(std::move(result.list), result.hidden, std::move(result.details));
    _mutes.endChanged(*_allPullRequests);
    assign(_shortfall, result.shortfall, &PullRequestMenuModel::shortfallChanged);
    const Date now = _parts.clock->now();
    assign(_lastRefreshed, now, &PullRequestMenuModel::lastRefreshedChanged);
    _hasSnapshot = true;
    assign(_lastFailure, std::nullopt, &PullRequestMenuModel::lastFailureChanged);
    setState({MenuState::Kind::loaded, {}});

    result.baseline.refreshedAt = now;
    _news.tell(*_rows, *_allPullRequests, std::move(result.baseline));
    result.snapshot.refreshedAt = now;
    if (_parts.keepsList) {
        _snapshotWriter.save(std::move(result.snapshot), _details);
    }
    _facts.setListed(_allPullRequests);
    return true;
}

// Facts

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
        _news.tellTurns(*_rows, turnSources(), _account, _parts.clock->now());
    }
}

void PullRequestMenuModel::saveFacts(const SharedFacts& facts)
{
    if (_parts.keepsList) {
        _snapshotWriter.save(
            PullRequestFactsFile::beside(_parts.cache), {facts, _pollingRest.quota()});
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

/// Says after each change that settings cannot be kept, and takes it back when they can.
void PullRequestMenuModel::showSettingsProblem()
{
    auto text = _parts.defaults->problem();
    const auto previous = std::exchange(_settingsProblem, text);
    if (text || _settingsError == previous) {
        setSettingsError(std::move(text));
    }
}

void PullRequestMenuModel::setSettingsError(std::optional<std::string> error)
{
    assign(_settingsError, std::move(error), &PullRequestMenuModel::settingsErrorChanged);
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
        _parts.loginItem->toggle();
    } catch (const std::exception& error) {
        setSettingsError(std::string("Open at Login could not be changed: ") + error.what());
    }
    readLaunchAtLogin();
}

void PullRequestMenuModel::dismissRefreshError()
{
    assign(_refreshError, std::nullopt, &PullRequestMenuModel::refreshErrorChanged);
}

void PullRequestMenuModel::dismissSettingsError()
{
    setSettingsError(std::nullopt);
}

// Leaving the list

void PullRequestMenuModel::recordVisit(const PullRequestID& id)
{
    const auto found = std::ranges::find(*_allPullRequests, id, &PullRequest::id);
    if (found != _allPullRequests->end()) {
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
    const auto found = std::ranges::find(*_allPullRequests, page, &PullRequest::url);
    if (found != _allPullRequests->end()) {
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
