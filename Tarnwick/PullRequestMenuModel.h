#pragma once

#include "PullRequestKit/PullRequestProvider.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Desktop/LoginItem.h"
#include "Tarnwick/Desktop/MachineEvents.h"
#include "Tarnwick/Desktop/PullRequestNotifying.h"
#include "Tarnwick/ExternalNavigation.h"
#include "Tarnwick/Model/FactsQuestions.h"
#include "Tarnwick/Model/MenuState.h"
#include "Tarnwick/Model/MuteOperations.h"
#include "Tarnwick/Model/Polling.h"
#include "Tarnwick/Model/PollingRest.h"
#include "Tarnwick/Model/Preload.h"
#include "Tarnwick/Model/PullRequestList.h"
#include "Tarnwick/Model/RefreshCycle.h"
#include "Tarnwick/Model/RefreshNews.h"
#include "Tarnwick/Model/SettingsOperations.h"
#include "Tarnwick/Persistence/DefaultsStore.h"
#include "Tarnwick/Persistence/FileWatcher.h"
#include "Tarnwick/Persistence/VisitStore.h"

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarnwick {

class NotificationPresentationDelegate;

/// The state behind the list: the pull requests, the refresh, the filters and the settings. Views
/// and commands read it, call it and connect to its signals. Each signal says that the property of
/// its name changed. Main thread only. Only two things block: changes of settings, while a small
/// file is written, and the destructor, until the last snapshot is on disk.
class PullRequestMenuModel final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PullRequestMenuModel)

public:
    /// Required unless a comment says otherwise.
    struct Collaborators {
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider;
        std::shared_ptr<DefaultsStore> defaults;
        PullRequestDiskCache cache;
        std::shared_ptr<PullRequestNotifying> notifier;
        std::shared_ptr<LoginItem> loginItem;
        std::shared_ptr<Clock> clock;
        std::shared_ptr<const ExternalNavigation> navigation;
        /// Reads `defaults` and `cache` in advance. Optional.
        std::shared_ptr<Preload> preload = nullptr;
        /// Reports changes of `defaults` by other processes. Without it they are noticed when the
        /// list is opened and on each change.
        std::shared_ptr<FileWatcher> settingsWatcher = nullptr;
        /// Whether to store the results of refreshes.
        bool keepsList = true;
        /// Set in a program that shows notifications.
        std::optional<BlockedPullRequestsFile> blocked = std::nullopt;
        /// Set in a program that shows notifications. Without it notifications need no facts.
        std::optional<KnownTurnsFile> turns = std::nullopt;
        /// Reports that the machine woke up. Without it only the clock does.
        std::shared_ptr<MachineEvents> machine = nullptr;
        /// Opens clicked notifications, which count as visits. Optional.
        std::shared_ptr<NotificationPresentationDelegate> notificationDelegate = nullptr;
    };

    /// Loads and migrates the settings, shows the last snapshot if it was fetched for the same
    /// reviewers, and starts polling.
    explicit PullRequestMenuModel(Collaborators collaborators);

    ~PullRequestMenuModel() override { stop(); }

    const MenuState& state() const { return _state; }

    const PullRequestList& list() const { return _list; }

    const std::vector<PullRequestKit::PullRequestRow>& rows() const { return _list.rows(); }

    /// Empty while no setting needs facts. Not null.
    const PullRequestKit::SharedFacts& facts() const { return _facts.facts(); }

    /// GitHub's quota as last reported.
    const std::optional<PullRequestKit::Quota>& quota() const { return _pollingRest.quota(); }

    /// Set while polling rests because of the quota.
    const std::optional<PullRequestKit::Quota>& restingQuota() const
    {
        return _pollingRest.restingQuota();
    }

    const std::vector<PullRequestKit::RepositorySummary>& repositories() const
    {
        return _repositories;
    }

    const std::optional<std::string>& account() const { return _account; }

    std::optional<PullRequestKit::Date> lastRefreshed() const { return _lastRefreshed; }

    bool isRefreshing() const { return _refreshCycle.isRefreshing(); }

    bool launchAtLoginEnabled() const { return _launchAtLoginEnabled; }

    bool notificationSettingsRequired() const { return _notifications.isSettingsChangeRequired(); }

    const std::optional<std::string>& settingsError() const { return _settingsError; }

    const std::optional<std::string>& refreshError() const { return _refreshError; }

    /// Why the last finished refresh failed; cleared by a successful one. Unlike the errors above
    /// it stays during a refresh.
    const std::optional<MenuState>& lastFailure() const { return _lastFailure; }

    /// The time that ages in the list are relative to.
    PullRequestKit::Date now() const { return _parts.clock->now(); }

    const Settings& settings() const { return _settings; }

    /// Set while the provider has more pull requests than it listed.
    const std::optional<Truncation>& truncation() const { return _truncation; }

    const VisitStore& visits() const { return _visits; }

    /// What changed since the user last opened the pull request.
    SinceVisit sinceVisit(const PullRequestKit::PullRequest& pullRequest) const
    {
        return _visits.sinceVisit(pullRequest, _facts.of(pullRequest.id));
    }

    /// Marks the pull request as seen in its current state.
    void recordVisit(const PullRequestKit::PullRequestID& id);

    void forgetVisit(const PullRequestKit::PullRequestID& id);

    /// Marks the pull request with this page as seen. Does nothing for other URLs.
    void recordVisit(const PullRequestKit::Url& page);

    MuteOperations& mutes() { return _mutes; }

    const MuteOperations& mutes() const { return _mutes; }

    const ExternalNavigation& navigation() const { return *_parts.navigation; }

    /// Opens a worktree on the pull request's head branch in the editor and reports the progress.
    /// Returns an error for the user, or nothing.
    QCoro::Task<std::optional<std::string>> openInEditor(
        PullRequestKit::PullRequest pullRequest, ProgressSink progress);

    /// Call each time the list becomes visible: starts a refresh in place of an earlier call's.
    void menuOpened();

    /// Refreshes once and resumes at its end. Does nothing while another refresh is running.
    QCoro::Task<> refresh() { return _refreshCycle.refresh(); }

    /// Requests missing facts regardless of the settings, and resumes when they have arrived. Does
    /// nothing before the first refresh.
    QCoro::Task<> askForFacts();

    /// Cancels all work, including child processes, without waiting. Allows no further refreshes.
    /// Call at the end of the process.
    void stop();

    void toggleRepository(const std::string& name) { _operations.toggleRepository(name); }

    /// Selects all known repositories, or none.
    void selectAllRepositories(bool all);

    void selectRepositories(const std::vector<std::string>& names, bool selected)
    {
        _operations.selectRepositories(names, selected);
    }

    void toggleStatus(StatusFilter value) { _operations.toggle(&Settings::statuses, value); }

    void toggleChecks(ChecksFilter value) { _operations.toggle(&Settings::checks, value); }

    void toggleReviewFilter(ReviewFilter value)
    {
        _operations.toggle(&Settings::reviewFilters, value);
    }

    void toggleMergeability(MergeabilityFilter value)
    {
        _operations.toggle(&Settings::mergeabilities, value);
    }

    void setArrangement(Arrangement value) { _operations.set(&Settings::arrangement, value); }

    /// Dismisses the hint on the arrangement by turn.
    void setInvolvedExplained() { _operations.set(&Settings::isInvolvedExplained, true); }

    /// Resets all filters; the selected repositories stay.
    void resetFilters() { _operations.resetFilters(); }

    /// Does nothing if the value is unchanged; otherwise refreshes.
    void setReviewerFilter(ReviewerFilter value)
    {
        _operations.set(&Settings::reviewerFilter, value);
    }

    void setPollingInterval(PollingInterval interval) { _operations.setPollingInterval(interval); }

    /// Takes effect at once. Stored after 200 ms, on the next change, by `flushSettings` or `stop`.
    void setProjectDirectory(const std::string& directory)
    {
        _operations.setProjectDirectory(directory);
    }

    void flushSettings() { _operations.flush(); }

    /// Applies the settings of other processes. Refreshes only if a setting changed.
    void readSettingsAgain();

    void setDarkMode(bool isDark) { _operations.set(&Settings::darkMode, isDark); }

    void toggleLaunchAtLogin();

    QCoro::Task<> toggleUnblockedNotifications()
    {
        return _notifications.toggle(&Settings::unblockedNotificationsEnabled);
    }

    QCoro::Task<> toggleNewPullRequestNotifications()
    {
        return _notifications.toggle(&Settings::newPullRequestNotificationsEnabled);
    }

    QCoro::Task<> toggleYourTurnNotifications()
    {
        return _notifications.toggle(&Settings::yourTurnNotificationsEnabled);
    }

    void dismissNotificationSettingsRequired() { _notifications.dismissSettingsChange(); }

    void dismissRefreshError()
    {
        assign(_refreshError, std::nullopt, &PullRequestMenuModel::refreshErrorChanged);
    }

    void dismissSettingsError()
    {
        assign(_settingsError, std::nullopt, &PullRequestMenuModel::settingsErrorChanged);
    }

Q_SIGNALS:
    void stateChanged();
    void rowsChanged();
    /// The hidden pull requests or their number changed.
    void hiddenChanged();
    void repositoriesChanged();
    void accountChanged();
    void lastRefreshedChanged();
    void isRefreshingChanged();
    void launchAtLoginEnabledChanged();
    void notificationSettingsRequiredChanged();
    void settingsErrorChanged();
    void refreshErrorChanged();
    void settingsChanged();
    void darkModeChanged();
    void truncationChanged();
    void lastFailureChanged();
    void visitsChanged();
    /// Other processes changed the stored data, possibly beyond the settings.
    void settingsReadAgain();
    /// Not emitted together with `rowsChanged`, which implies it.
    void detailsChanged();
    /// The same rows have other turns or groups. `rowsChanged` implies it.
    void turnsChanged();
    void factsChanged();
    void quotaChanged();
    void restingQuotaChanged();

private:
    template<typename Value>
    void assign(
        Value& property,
        std::type_identity_t<Value> value,
        void (PullRequestMenuModel::*changed)());

    void setState(MenuState state)
    {
        assign(_state, std::move(state), &PullRequestMenuModel::stateChanged);
    }

    void setSettingsError(std::optional<std::string> error)
    {
        assign(_settingsError, std::move(error), &PullRequestMenuModel::settingsErrorChanged);
    }

    void showLastList();
    void refreshBegins();
    RefreshStart signedIn(const std::optional<std::string>& account);
    bool accept(RefreshResult result, const RefreshStart& start);
    void cannotRefresh(const MenuState& failure);

    void schedulePolling() { _polling.start(secondsOf(_settings.pollingInterval)); }

    void scheduleRefresh(std::chrono::milliseconds delay);

    /// Waits until the user has finished selecting.
    void scheduleRepositoryRefresh() { scheduleRefresh(std::chrono::milliseconds{250}); }

    void followList();
    void factsSettled(bool hitSecondaryLimit, bool isRefreshed);
    void saveFacts(const PullRequestKit::SharedFacts& facts);
    void followSettings();
    void followNotifications();
    void showSettingsProblem();
    void readLaunchAtLogin();

    Collaborators _parts;
    SettingsStore _settingsStore;
    Settings _settings;
    SettingsOperations _operations;
    MuteOperations _mutes;
    VisitStore _visits;
    SnapshotWriter _snapshotWriter;
    PullRequestNotifications _notifications;
    RefreshNews _news;

    MenuState _state;
    std::vector<PullRequestKit::RepositorySummary> _repositories;
    std::optional<std::string> _account;
    std::optional<PullRequestKit::Date> _lastRefreshed;
    bool _launchAtLoginEnabled = false;
    std::optional<std::string> _settingsError;
    std::optional<std::string> _settingsProblem;  ///< Why the settings cannot be stored.
    std::optional<std::string> _refreshError;
    std::optional<Truncation> _truncation;
    std::optional<MenuState> _lastFailure;

    PullRequestList _list;
    FactsQuestions _facts;
    PollingRest _pollingRest;
    bool _hasSnapshot = false;
    std::stop_source _lifetime;  ///< Stopped on destruction.
    RefreshCycle _refreshCycle;
    Polling _polling;
};

template<typename Value>
void PullRequestMenuModel::assign(
    Value& property, std::type_identity_t<Value> value, void (PullRequestMenuModel::*changed)())
{
    if (property != value) {
        property = std::move(value);
        Q_EMIT(this->*changed)();
    }
}

}  // namespace Tarnwick
