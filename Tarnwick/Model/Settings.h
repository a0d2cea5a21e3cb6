#pragma once

#include "Tarnwick/Model/Filters.h"
#include "Tarnwick/Model/NamedSets.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <set>
#include <string>

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
    PollingInterval pollingInterval = PollingInterval::fiveMinutes;
    std::string projectDirectory;  ///< The folder of the local clones; may be empty.
    bool unblockedNotificationsEnabled = false;
    bool newPullRequestNotificationsEnabled = false;
    bool darkMode = false;  ///< The panel's appearance.

    bool operator==(const Settings&) const = default;
};

/// Whether every filter is as in a fresh installation, whatever repositories are selected.
bool hasDefaultFilters(const Settings& settings);

/// The settings in the user's defaults, each under a key of its own. A writer writes its own keys
/// and no others. Main thread only.
class SettingsStore {
public:
    /// Requires: `defaults` outlives the store.
    explicit SettingsStore(DefaultsStore& defaults);

    /// Reads every setting and brings older forms up to date, which is all that it writes: loading
    /// again yields the same settings and writes nothing. Unknown texts and values of a foreign
    /// type are passed over.
    Settings load();

    /// Whether a selection of repositories has been written at least once, by this process or by
    /// another.
    bool isRepositorySelectionConfigured() const;

    /// Writes the selection, and that there is one.
    void setSelectedRepositories(const std::set<std::string>& names);

    void setStatuses(const std::set<StatusFilter>& values);
    void setChecks(const std::set<ChecksFilter>& values);
    void setReviewFilters(const std::set<ReviewFilter>& values);
    void setMergeabilities(const std::set<MergeabilityFilter>& values);
    void setReviewerFilter(ReviewerFilter value);
    void setPollingInterval(PollingInterval value);
    void setProjectDirectory(const std::string& path);
    void setUnblockedNotificationsEnabled(bool enabled);
    void setNewPullRequestNotificationsEnabled(bool enabled);
    void setDarkMode(bool isDark);

private:
    std::set<StatusFilter> loadStatuses();
    std::set<ChecksFilter> loadChecks();
    std::set<ReviewFilter> loadReviewFilters();
    std::set<MergeabilityFilter> loadMergeabilities();
    PollingInterval loadPollingInterval() const;
    ReviewerFilter loadReviewerFilter();

    DefaultsStore& _defaults;
};

}  // namespace Tarnwick
