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

/// What the list shows and how it comes about: the pull requests, the state of the refresh, the
/// filters and the settings. Views and commands read it, call it and follow its signals; each
/// signal says that the property of its name changed. Main thread only; nothing blocks but changes
/// of settings, for as long as a small file takes to write, and the destructor, which waits until
/// the last snapshot is on disk.
class PullRequestMenuModel final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PullRequestMenuModel)

public:
    /// What the model stands on. All are required but those that say what is so without them.
    struct Collaborators {
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider;
        std::shared_ptr<DefaultsStore> defaults;
        PullRequestDiskCache cache;
        std::shared_ptr<PullRequestNotifying> notifier;
        std::shared_ptr<LoginItem> loginItem;
        std::shared_ptr<Clock> clock;
        std::shared_ptr<const ExternalNavigation> navigation;
        /// Where `defaults` and `cache` are being read already; without it, the model reads them.
        std::shared_ptr<Preload> preload = nullptr;
        /// Tells when `defaults` are to be read again; without it, that happens when the list is
        /// opened and with each change.
        std::shared_ptr<FileWatcher> settingsWatcher = nullptr;
        /// Whether what a refresh finds is kept for the next start.
        bool keepsList = true;
        /// Where a program that notifies keeps what was blocked. Others have none: what they find
        /// unblocked, nobody was told.
        std::optional<BlockedPullRequestsFile> blocked = std::nullopt;
        /// Where a program that notifies keeps whose turn it was. Others have none, and ask nothing
        /// for the sake of notifications.
        std::optional<KnownTurnsFile> turns = std::nullopt;
        /// Tells when the machine has slept; without it, the clock alone does.
        std::shared_ptr<MachineEvents> machine = nullptr;
        /// Who opens what is clicked among the notifications, which counts as a visit.
        std::shared_ptr<NotificationPresentationDelegate> notificationDelegate = nullptr;
    };

    /// Reads and migrates the settings, shows the last snapshot if it was taken for the same
    /// reviewers, and starts polling.
    explicit PullRequestMenuModel(Collaborators collaborators);

    ~PullRequestMenuModel() override { stop(); }

    const MenuState& state() const { return _state; }

    /// The listed pull requests, those of them that are shown, and what is said of them.
    const PullRequestList& list() const { return _list; }

    const std::vector<PullRequestKit::PullRequestRow>& rows() const { return _list.rows(); }

    /// What was asked for apart from the list, by identity; empty while nothing needs it. Not null.
    const PullRequestKit::SharedFacts& facts() const { return _facts.facts(); }

    /// What GitHub granted when it last told.
    const std::optional<PullRequestKit::Quota>& quota() const { return _pollingRest.quota(); }

    /// Set while polling rests because little of it is left.
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

    /// Why the last refresh that ended has renewed nothing, until one succeeds. Unlike the texts
    /// above it stays while the next one runs.
    const std::optional<MenuState>& lastFailure() const { return _lastFailure; }

    /// The time of day that everything in the list is reckoned from.
    PullRequestKit::Date now() const { return _parts.clock->now(); }

    /// The filters and settings as they are now.
    const Settings& settings() const { return _settings; }

    /// Set while the provider knows of more pull requests than it listed.
    const std::optional<Truncation>& truncation() const { return _truncation; }

    const VisitStore& visits() const { return _visits; }

    /// What has changed since the user last looked at the pull request.
    SinceVisit sinceVisit(const PullRequestKit::PullRequest& pullRequest) const
    {
        return _visits.sinceVisit(pullRequest, _facts.of(pullRequest.id));
    }

    /// The user looks at the pull request as it is listed, or says so, now.
    void recordVisit(const PullRequestKit::PullRequestID& id);

    /// As if the user had never looked at it.
    void forgetVisit(const PullRequestKit::PullRequestID& id);

    /// The same for the pull request with this page. Nothing happens when none has it.
    void recordVisit(const PullRequestKit::Url& page);

    /// What the user mutes, and until when.
    MuteOperations& mutes() { return _mutes; }

    const MuteOperations& mutes() const { return _mutes; }

    /// The way out of the program, for whoever shows the model.
    const ExternalNavigation& navigation() const { return *_parts.navigation; }

    /// Opens a worktree on the pull request's head branch in the editor; `progress` is told what is
    /// done meanwhile. Yields what went wrong as a text for the user, or nothing.
    QCoro::Task<std::optional<std::string>> openInEditor(
        PullRequestKit::PullRequest pullRequest, ProgressSink progress);

    /// To be called each time the list comes in sight: starts a refresh in place of a running one
    /// that an earlier call started.
    void menuOpened();

    /// One refresh; returns at once while another one runs. Resumes when it has ended.
    QCoro::Task<> refresh() { return _refreshCycle.refresh(); }

    /// Asks for the facts of the rows that want some, whatever the settings are; resumes when
    /// nothing is being asked for. Nothing happens before a refresh has brought a list.
    QCoro::Task<> askForFacts();

    /// Asks everything that runs to stop, child processes included, and waits for nothing. The
    /// model refreshes no more. For the end of the process.
    void stop();

    void toggleRepository(const std::string& name) { _operations.toggleRepository(name); }

    /// Selects every repository that is known, or none.
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

    /// Nothing happens when the value is the current one.
    void setArrangement(Arrangement value) { _operations.set(&Settings::arrangement, value); }

    /// The user has answered to what is said about the list by whose turn it is.
    void setInvolvedExplained() { _operations.set(&Settings::isInvolvedExplained, true); }

    /// Sets every filter to its default but for the selection of repositories.
    void resetFilters() { _operations.resetFilters(); }

    /// Fetches anew, because other pull requests are asked for. Nothing happens when the value is
    /// the current one.
    void setReviewerFilter(ReviewerFilter value)
    {
        _operations.set(&Settings::reviewerFilter, value);
    }

    void setPollingInterval(PollingInterval interval) { _operations.setPollingInterval(interval); }

    /// The setting changes at once; it is on disk within 300 ms, with the next change of another
    /// setting, or when `flushSettings` is called or the model stops.
    void setProjectDirectory(const std::string& directory)
    {
        _operations.setProjectDirectory(directory);
    }

    void flushSettings() { _operations.flush(); }

    /// Takes over what other processes have stored since. Nothing is fetched, and nobody notified,
    /// unless a setting is another one than before.
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
    /// Another number of pull requests is hidden, or others are, or they changed.
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
    /// Other processes have stored something; it may be what the model knows nothing of.
    void settingsReadAgain();
    /// The rows are as before: otherwise `rowsChanged` alone says that both changed.
    void detailsChanged();
    /// Turns or groups of the same rows: otherwise `rowsChanged` alone says that both changed.
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

    /// The selection of repositories has to rest before it is fetched for.
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
    std::optional<std::string> _settingsProblem;  ///< Why the settings are not kept.
    std::optional<std::string> _refreshError;
    std::optional<Truncation> _truncation;
    std::optional<MenuState> _lastFailure;

    PullRequestList _list;
    FactsQuestions _facts;
    PollingRest _pollingRest;
    bool _hasSnapshot = false;
    std::stop_source _lifetime;  ///< Stopped when the model goes.
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
