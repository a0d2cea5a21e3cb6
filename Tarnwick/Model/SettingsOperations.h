#pragma once

#include "Tarnwick/Model/Settings.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace Tarnwick {

/// How the filters and settings change, by the user and by other processes. Each change of the user
/// starts from what is stored by then and is stored at once, but for the project directory; the
/// signals say what follows from it. A toggle takes a value out of its set, or puts it in. Main
/// thread only.
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
    void setArrangement(Arrangement value);
    void setInvolvedExplained();
    void setPollingInterval(PollingInterval interval);
    void setDarkMode(bool isDark);

    /// Replaces an earlier mute of the pull request. `storageKey` is that of its identity.
    void mute(const std::string& storageKey, const Mute& mute);
    void unmute(const std::string& storageKey);
    void setAuthorMuted(const std::string& login, bool isMuted);

    /// Takes out what has ended, by what `lasting` leaves of the mutes. Nothing is stored when it
    /// leaves all as they are.
    void endMutes(const std::function<Mutes(Mutes)>& lasting);

    /// One of the flags of the notifications.
    void setNotifications(bool Settings::* flag, bool isOn);

    /// Takes effect at once and is stored with the next change, or by `flush`: it changes with
    /// every key that the user presses.
    void setProjectDirectory(const std::string& directory);
    void flush();

    /// Takes over what other processes have stored, and writes nothing.
    void readAgain();

Q_SIGNALS:
    /// Some setting changed; each of the others goes with this one.
    void changed();
    void filtersChanged();      ///< Other rows pass.
    void selectionChanged();    ///< Other repositories are to be fetched.
    void reviewersChanged();    ///< Other pull requests are to be fetched.
    void arrangementChanged();  ///< The same rows in another order.
    void pollingIntervalChanged();
    void darkModeChanged();

private:
    /// What follows from a change, whether or not a value is another one.
    enum class Effect {
        none,
        selection,
        pollingInterval
    };

    template<typename E>
    void toggle(std::set<E> Settings::* filter, E value);
    void changeSelection(const std::function<void(std::set<std::string>&)>& change);
    void change(
        const std::function<void(Settings&)>& change,
        Effect effect = Effect::none,
        const std::optional<QString>& chosen = {});
    void adopt(Settings settings, Effect effect = Effect::none);

    Settings& _settings;
    SettingsStore& _store;
    std::optional<std::string> _unsavedDirectory;
};

}  // namespace Tarnwick
