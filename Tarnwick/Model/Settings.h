#pragma once

#include "Tarnwick/Model/Filters.h"
#include "Tarnwick/Model/Mutes.h"
#include "Tarnwick/Model/NamedSets.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// All user settings. The initial values are the defaults.
struct Settings {
    std::set<std::string> selectedRepositories;  ///< owner/name; empty shows nothing.
    std::set<StatusFilter> statuses{StatusFilter::open};
    std::set<ChecksFilter> checks = everyCase<ChecksFilter>();
    std::set<ReviewFilter> reviewFilters;  ///< Empty filters nothing.
    std::set<MergeabilityFilter> mergeabilities = everyCase<MergeabilityFilter>();
    ReviewerFilter reviewerFilter = ReviewerFilter::myself;
    Arrangement arrangement = Arrangement::byReviewState;
    PollingInterval pollingInterval = PollingInterval::fiveMinutes;
    std::string projectDirectory;  ///< The folder of the local clones; may be empty.
    bool unblockedNotificationsEnabled = false;
    bool newPullRequestNotificationsEnabled = false;
    bool yourTurnNotificationsEnabled = false;
    bool darkMode = false;
    /// The hint on the arrangement by turn was dismissed.
    bool isInvolvedExplained = false;
    Mutes mutes = {};
    Logins mutedAuthors = {};

    bool operator==(const Settings&) const = default;
};

/// Whether every filter has its default, regardless of the selected repositories.
bool hasDefaultFilters(const Settings& settings);

bool notifies(const Settings& settings);

/// Whether to show the hint that the list by turn only includes review requests.
bool isInvolvedHintDue(const Settings& settings);

/// Loads and stores the settings. Every change is a transaction across processes and writes only
/// the keys that changed. Main thread only.
class SettingsStore {
public:
    /// Requires: `defaults` outlives it.
    explicit SettingsStore(DefaultsStore& defaults);

    /// Reads all settings and migrates older forms, which is all it writes. Ignores unknown texts
    /// and values of a wrong type.
    Settings load();

    /// Like `load`, without writing.
    Settings current();

    /// Rereads the settings, applies `change` and writes the differences. The key `chosen` is
    /// written even if unchanged. Returns the stored settings.
    Settings change(
        const std::function<void(Settings&)>& change,
        const std::optional<std::string_view>& chosen = {});

    /// The same for the selected repositories, which then count as configured.
    Settings selectRepositories(const std::vector<std::string>& names, bool isSelected);
    Settings setSelectedRepositories(const std::set<std::string>& names);

    /// Whether the selection was ever stored by any process.
    bool isRepositorySelectionConfigured() const;

    /// Stores an empty selection unless one was ever stored. Returns whether it did.
    bool resetUnconfiguredSelection();

private:
    Settings changeSelection(const std::function<void(std::set<std::string>&)>& change);

    DefaultsStore& _defaults;
};

}  // namespace Tarnwick
