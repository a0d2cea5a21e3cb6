#include "Tarnwick/Model/Settings.h"

#include "Tarnwick/Model/SettingsKeys.h"
#include "Tarnwick/Model/StoredSettings.h"

namespace Tarnwick {

bool hasDefaultFilters(const Settings& settings)
{
    const Settings defaults;
    return settings.statuses == defaults.statuses && settings.checks == defaults.checks
           && settings.reviewFilters == defaults.reviewFilters
           && settings.mergeabilities == defaults.mergeabilities
           && settings.reviewerFilter == defaults.reviewerFilter;
}

bool notifies(const Settings& settings)
{
    return settings.unblockedNotificationsEnabled || settings.newPullRequestNotificationsEnabled
           || settings.yourTurnNotificationsEnabled;
}

bool isInvolvedHintDue(const Settings& settings)
{
    return settings.arrangement == Arrangement::byWhoseTurn
           && settings.reviewerFilter == ReviewerFilter::myself && !settings.isInvolvedExplained;
}

SettingsStore::SettingsStore(DefaultsStore& defaults)
    : _defaults(defaults)
{}

Settings SettingsStore::load()
{
    _defaults.refresh();
    const StoredSettings stored = readSettings(_defaults);
    return stored.corrections.empty() ? stored.settings : change([](Settings&) {});
}

Settings SettingsStore::current()
{
    _defaults.refresh();
    return readSettings(_defaults).settings;
}

Settings SettingsStore::change(
    const std::function<void(Settings&)>& change, const std::optional<std::string_view>& chosen)
{
    Settings changed;
    _defaults.change([&] {
        const StoredSettings stored = readSettings(_defaults);
        for (const auto& [key, value] : stored.corrections) {
            _defaults.set(key, value);
        }
        changed = stored.settings;
        change(changed);
        writeDifferences(_defaults, stored.settings, changed, chosen);
    });
    return changed;
}

Settings SettingsStore::changeSelection(const std::function<void(std::set<std::string>&)>& change)
{
    Settings changed;
    _defaults.change([&] {
        changed = this->change([&](Settings& settings) { change(settings.selectedRepositories); });
        persistRepositories(_defaults, changed.selectedRepositories);
    });
    return changed;
}

Settings SettingsStore::selectRepositories(const std::vector<std::string>& names, bool isSelected)
{
    return changeSelection([&](std::set<std::string>& selected) {
        for (const std::string& name : names) {
            if (isSelected) {
                selected.insert(name);
            } else {
                selected.erase(name);
            }
        }
    });
}

Settings SettingsStore::setSelectedRepositories(const std::set<std::string>& names)
{
    return changeSelection([&](std::set<std::string>& selected) { selected = names; });
}

bool SettingsStore::isRepositorySelectionConfigured() const
{
    _defaults.refresh();
    return readFlag(_defaults, SettingsKeys::repositoriesConfigured).value_or(false);
}

bool SettingsStore::resetUnconfiguredSelection()
{
    if (isRepositorySelectionConfigured()) {
        return false;
    }
    bool isReset = false;
    _defaults.change([&] {
        isReset = !readFlag(_defaults, SettingsKeys::repositoriesConfigured).value_or(false);
        if (isReset) {
            persistRepositories(_defaults, {});
        }
    });
    return isReset;
}

}  // namespace Tarnwick
