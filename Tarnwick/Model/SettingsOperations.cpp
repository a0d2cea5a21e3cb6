#include "Tarnwick/Model/SettingsOperations.h"

#include <utility>

namespace Tarnwick {

SettingsOperations::SettingsOperations(Settings& settings, SettingsStore& store)
    : _settings(settings)
    , _store(store)
{}

template<typename E>
void SettingsOperations::toggle(
    std::set<E> Settings::* filter, E value, void (SettingsStore::*write)(const std::set<E>&))
{
    std::set<E>& values = _settings.*filter;
    if (values.erase(value) == 0) {
        values.insert(value);
    }
    (_store.*write)(values);
    Q_EMIT filtersChanged();
    Q_EMIT changed();
}

void SettingsOperations::toggleStatus(StatusFilter value)
{
    toggle(&Settings::statuses, value, &SettingsStore::setStatuses);
}

void SettingsOperations::toggleChecks(ChecksFilter value)
{
    toggle(&Settings::checks, value, &SettingsStore::setChecks);
}

void SettingsOperations::toggleReviewFilter(ReviewFilter value)
{
    toggle(&Settings::reviewFilters, value, &SettingsStore::setReviewFilters);
}

void SettingsOperations::toggleMergeability(MergeabilityFilter value)
{
    toggle(&Settings::mergeabilities, value, &SettingsStore::setMergeabilities);
}

void SettingsOperations::resetFilters()
{
    if (hasDefaultFilters(_settings)) {
        return;
    }
    const Settings defaults;
    _settings.statuses = defaults.statuses;
    _settings.checks = defaults.checks;
    _settings.reviewFilters = defaults.reviewFilters;
    _settings.mergeabilities = defaults.mergeabilities;
    _store.setStatuses(_settings.statuses);
    _store.setChecks(_settings.checks);
    _store.setReviewFilters(_settings.reviewFilters);
    _store.setMergeabilities(_settings.mergeabilities);
    Q_EMIT filtersChanged();
    Q_EMIT changed();
    setReviewerFilter(defaults.reviewerFilter);
}

void SettingsOperations::toggleRepository(const std::string& name)
{
    selectRepositories({name}, !_settings.selectedRepositories.contains(name));
}

void SettingsOperations::selectRepositories(const std::vector<std::string>& names, bool selected)
{
    std::set<std::string> selection = _settings.selectedRepositories;
    for (const std::string& name : names) {
        if (selected) {
            selection.insert(name);
        } else {
            selection.erase(name);
        }
    }
    setSelectedRepositories(std::move(selection));
}

void SettingsOperations::setSelectedRepositories(std::set<std::string> names)
{
    _settings.selectedRepositories = std::move(names);
    storeSelection();
    Q_EMIT selectionChanged();
}

void SettingsOperations::resetUnconfiguredSelection()
{
    if (!_store.isRepositorySelectionConfigured()) {
        _settings.selectedRepositories.clear();
        storeSelection();
    }
}

void SettingsOperations::storeSelection()
{
    _store.setSelectedRepositories(_settings.selectedRepositories);
    Q_EMIT changed();
}

void SettingsOperations::setReviewerFilter(ReviewerFilter value)
{
    if (value == _settings.reviewerFilter) {
        return;
    }
    _settings.reviewerFilter = value;
    _store.setReviewerFilter(value);
    Q_EMIT changed();
    Q_EMIT reviewersChanged();
}

void SettingsOperations::setPollingInterval(PollingInterval interval)
{
    _settings.pollingInterval = interval;
    _store.setPollingInterval(interval);
    Q_EMIT changed();
    Q_EMIT pollingIntervalChanged();
}

void SettingsOperations::setProjectDirectory(const std::string& directory)
{
    _settings.projectDirectory = directory;
    _store.setProjectDirectory(directory);
    Q_EMIT changed();
}

void SettingsOperations::setDarkMode(bool isDark)
{
    if (std::exchange(_settings.darkMode, isDark) == isDark) {
        return;
    }
    _store.setDarkMode(isDark);
    Q_EMIT changed();
    Q_EMIT darkModeChanged();
}

}  // namespace Tarnwick
