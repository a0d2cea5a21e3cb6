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

/// Everything that the user has set, as plain values. The initial values are those of a fresh
/// installation.
struct Settings {
    std::set<std::string> selectedRepositories;  ///< owner/name; an empty set shows nothing.
    std::set<StatusFilter> statuses{StatusFilter::open};
    std::set<ChecksFilter> checks = everyCase<ChecksFilter>();
    std::set<ReviewFilter> reviewFilters;  ///< An empty set filters nothing.
    std::set<MergeabilityFilter> mergeabilities = everyCase<MergeabilityFilter>();
    ReviewerFilter reviewerFilter = ReviewerFilter::myself;
    Arrangement arrangement = Arrangement::byReviewState;
    PollingInterval pollingInterval = PollingInterval::fiveMinutes;
    std::string projectDirectory;  ///< The folder of the local clones; may be empty.
    bool unblockedNotificationsEnabled = false;
    bool newPullRequestNotificationsEnabled = false;
    bool yourTurnNotificationsEnabled = false;
    bool darkMode = false;  ///< The panel's appearance.
    /// The user has answered to what is said about the list by whose turn it is.
    bool isInvolvedExplained = false;
    Mutes mutes = {};
    Logins mutedAuthors = {};

    bool operator==(const Settings&) const = default;
};

/// Whether every filter is as in a fresh installation, whatever repositories are selected.
bool hasDefaultFilters(const Settings& settings);

/// Whether a notification of any kind is turned on.
bool notifies(const Settings& settings);

/// Whether the user is still to be told that the list by whose turn it is has only what asks for a
/// review.
bool isInvolvedHintDue(const Settings& settings);

/// The settings in the user's defaults, each under a key of its own, and the one place where they
/// are changed: every change is read, made and written as one step against other processes, and
/// writes the keys of what it changed and no others. Main thread only.
class SettingsStore {
public:
    /// Requires: `defaults` outlives the store.
    explicit SettingsStore(DefaultsStore& defaults);

    /// Reads every setting and brings older forms up to date, which is all that it writes: loading
    /// again yields the same settings and writes nothing. Unknown texts and values of a foreign
    /// type are passed over.
    Settings load();

    /// What `load` yields, but nothing is written, whoever may be writing the file just now.
    Settings current();

    /// Reads what is stored, has `change` change it, and writes what is different, and `chosen`,
    /// the key of a setting that is written even if it stays the same. Yields what is stored then.
    Settings change(
        const std::function<void(Settings&)>& change,
        const std::optional<std::string_view>& chosen = {});

    /// The same for the selection of repositories, which counts as configured even if it stays the
    /// same.
    Settings selectRepositories(const std::vector<std::string>& names, bool isSelected);
    Settings setSelectedRepositories(const std::set<std::string>& names);

    /// Whether a selection of repositories has been written at least once, by this process or by
    /// another.
    bool isRepositorySelectionConfigured() const;

    /// Writes an empty selection unless one has been written before; whether it did.
    bool resetUnconfiguredSelection();

private:
    Settings changeSelection(const std::function<void(std::set<std::string>&)>& change);

    DefaultsStore& _defaults;
};

}  // namespace Tarnwick
