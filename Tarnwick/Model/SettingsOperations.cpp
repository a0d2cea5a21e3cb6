#include "Tarnwick/Model/SettingsOperations.h"

#include "Tarnwick/Model/SettingsKeys.h"

#include <utility>

namespace Tarnwick {
namespace {

constexpr std::chrono::milliseconds directoryRest{200};

std::string_view keyOfNotifications(bool Settings::* flag)
{
    if (flag == &Settings::unblockedNotificationsEnabled) {
        return SettingsKeys::unblockedNotifications;
    }
    return flag == &Settings::yourTurnNotificationsEnabled
               ? SettingsKeys::yourTurnNotifications
               : SettingsKeys::newPullRequestNotifications;
}

bool passSameRows(const Settings& one, const Settings& other)
{
    return one.statuses == other.statuses && one.checks == other.checks
           && one.reviewFilters == other.reviewFilters && one.mergeabilities == other.mergeabilities
           && one.mutes == other.mutes && one.mutedAuthors == other.mutedAuthors;
}

}  // namespace

SettingsOperations::SettingsOperations(
    Settings& settings, SettingsStore& store, std::shared_ptr<Clock> clock)
    : _settings(settings)
    , _store(store)
    , _flushAlarm(std::move(clock), [this] { flush(); })
{}

void SettingsOperations::resetFilters()
{
    if (hasDefaultFilters(_settings)) {
        return;
    }
    change([defaults = Settings()](Settings& settings) {
        settings.statuses = defaults.statuses;
        settings.checks = defaults.checks;
        settings.reviewFilters = defaults.reviewFilters;
        settings.mergeabilities = defaults.mergeabilities;
        settings.reviewerFilter = defaults.reviewerFilter;
    });
}

void SettingsOperations::toggleRepository(const std::string& name)
{
    selectRepositories({name}, !_settings.selectedRepositories.contains(name));
}

void SettingsOperations::selectRepositories(const std::vector<std::string>& names, bool selected)
{
    storeDirectory();
    apply(_store.selectRepositories(names, selected), Effect::selection);
}

void SettingsOperations::setSelectedRepositories(const std::set<std::string>& names)
{
    storeDirectory();
    apply(_store.setSelectedRepositories(names), Effect::selection);
}

void SettingsOperations::resetUnconfiguredSelection()
{
    if (_store.resetUnconfiguredSelection()) {
        _settings.selectedRepositories.clear();
        Q_EMIT changed();
    }
}

void SettingsOperations::setPollingInterval(PollingInterval interval)
{
    store(
        [&](Settings& settings) { settings.pollingInterval = interval; },
        Effect::pollingInterval,
        SettingsKeys::pollingInterval);
}

void SettingsOperations::setNotifications(bool Settings::* flag, bool isOn)
{
    store(
        [&](Settings& settings) { settings.*flag = isOn; }, Effect::none, keyOfNotifications(flag));
}

void SettingsOperations::setProjectDirectory(const std::string& directory)
{
    if (!std::exchange(_unsavedDirectory, directory)) {
        _flushAlarm.ringAfter(directoryRest);
    }
    if (std::exchange(_settings.projectDirectory, directory) != directory) {
        Q_EMIT changed();
    }
}

void SettingsOperations::flush()
{
    if (_unsavedDirectory) {
        storeDirectory();
        Q_EMIT flushed();
    }
}

void SettingsOperations::storeDirectory()
{
    if (_unsavedDirectory) {
        store([](Settings&) {});
    }
}

void SettingsOperations::readAgain()
{
    Settings settings = _store.current();
    if (_unsavedDirectory) {
        settings.projectDirectory = *_unsavedDirectory;
    }
    apply(std::move(settings));
}

void SettingsOperations::store(
    const std::function<void(Settings&)>& change,
    Effect effect,
    const std::optional<std::string_view>& chosen)
{
    _flushAlarm.cancel();
    const auto directory = std::exchange(_unsavedDirectory, std::nullopt);
    const auto changeAll = [&](Settings& settings) {
        if (directory) {
            settings.projectDirectory = *directory;
        }
        change(settings);
    };
    Settings stored = _store.change(changeAll, chosen);
    apply(std::move(stored), effect);
}

/// Emits each signal once, after all settings have changed.
void SettingsOperations::apply(Settings settings, Effect effect)
{
    const Settings before = std::exchange(_settings, std::move(settings));
    const Settings now = _settings;
    if (!passSameRows(before, now)) {
        Q_EMIT filtersChanged();
    }
    if (before != now || effect != Effect::none) {
        Q_EMIT changed();
    }
    if (before.selectedRepositories != now.selectedRepositories || effect == Effect::selection) {
        Q_EMIT selectionChanged();
    }
    if (before.reviewerFilter != now.reviewerFilter) {
        Q_EMIT reviewersChanged();
    }
    if (before.arrangement != now.arrangement) {
        Q_EMIT arrangementChanged();
    }
    if (before.pollingInterval != now.pollingInterval || effect == Effect::pollingInterval) {
        Q_EMIT pollingIntervalChanged();
    }
    if (before.darkMode != now.darkMode) {
        Q_EMIT darkModeChanged();
    }
}

}  // namespace Tarnwick
