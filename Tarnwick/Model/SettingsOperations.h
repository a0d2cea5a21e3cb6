#pragma once

#include "Tarnwick/Model/Settings.h"

#include <QObject>

#include <vector>

namespace Tarnwick {

/// How the user changes the filters and settings. Each change is stored at once; the signals say
/// what follows from it. A toggle takes a value out of its set, or puts it in. Main thread only.
class SettingsOperations final : public QObject {
    Q_OBJECT

public:
    /// Requires: `settings` and `store` outlive this object.
    SettingsOperations(Settings& settings, SettingsStore& store);

    void toggleStatus(StatusFilter value);
    void toggleChecks(ChecksFilter value);
    void toggleReviewFilter(ReviewFilter value);
    void toggleMergeability(MergeabilityFilter value);

    /// Every filter gets its default; the repositories stay selected.
    void resetFilters();

    void toggleRepository(const std::string& name);
    void selectRepositories(const std::vector<std::string>& names, bool selected);
    void setSelectedRepositories(std::set<std::string> names);

    /// Selects nothing on a first run, as long as no selection was ever stored; having been stored,
    /// the selection is the user's.
    void resetUnconfiguredSelection();

    /// Nothing happens when the value is the current one.
    void setReviewerFilter(ReviewerFilter value);
    void setPollingInterval(PollingInterval interval);
    void setProjectDirectory(const std::string& directory);
    void setDarkMode(bool isDark);

Q_SIGNALS:
    /// Some setting changed; each of the others goes with this one.
    void changed();
    void filtersChanged();    ///< Other rows pass.
    void selectionChanged();  ///< By the user; other repositories are to be fetched.
    void reviewersChanged();  ///< Other pull requests are to be fetched.
    void pollingIntervalChanged();
    void darkModeChanged();

private:
    template<typename E>
    void toggle(
        std::set<E> Settings::* filter, E value, void (SettingsStore::*write)(const std::set<E>&));
    void storeSelection();

    Settings& _settings;
    SettingsStore& _store;
};

}  // namespace Tarnwick
