#pragma once

#include "Tarnwick/Async/Alarm.h"
#include "Tarnwick/Model/Settings.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarnwick {

/// How the filters and settings change, by the user and by other processes. Each change of the user
/// starts from what is stored by then and is stored at once, but for the project directory; the
/// signals say what follows from it. A toggle takes a value out of its set, or puts it in. Main
/// thread only.
class SettingsOperations final : public QObject {
    Q_OBJECT

public:
    /// Requires: `settings` and `store` outlive this object, and a clock.
    SettingsOperations(Settings& settings, SettingsStore& store, std::shared_ptr<Clock> clock);

    void change(const std::function<void(Settings&)>& change) { store(change); }

    /// Of what the user sees, even if another process has just done the same.
    template<typename E>
    void toggle(std::set<E> Settings::* filter, E value)
    {
        const bool isContained = (_settings.*filter).contains(value);
        change([&](Settings& settings) {
            (settings.*filter).erase(value);
            if (!isContained) {
                (settings.*filter).insert(value);
            }
        });
    }

    /// Nothing happens when the value is the current one.
    template<typename Value>
    void set(Value Settings::* setting, std::type_identity_t<Value> value)
    {
        if (_settings.*setting != value) {
            change([&](Settings& settings) { settings.*setting = std::move(value); });
        }
    }

    /// Every filter gets its default; the repositories stay selected.
    void resetFilters();

    void toggleRepository(const std::string& name);
    void selectRepositories(const std::vector<std::string>& names, bool selected);
    void setSelectedRepositories(const std::set<std::string>& names);

    /// Selects nothing on a first run, as long as no selection was ever stored; having been stored,
    /// the selection is the user's.
    void resetUnconfiguredSelection();

    void setPollingInterval(PollingInterval interval);

    /// One of the flags of the notifications.
    void setNotifications(bool Settings::* flag, bool isOn);

    /// Takes effect at once. It changes with every key that the user presses, so it is stored with
    /// the next change, by `flush`, or 200 ms later.
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
    void flushed();  ///< The project directory was written by itself, or could not be.

private:
    /// What follows from a change, whether or not a value is another one.
    enum class Effect {
        none,
        selection,
        pollingInterval
    };

    void store(
        const std::function<void(Settings&)>& change,
        Effect effect = Effect::none,
        const std::optional<std::string_view>& chosen = {});
    void storeDirectory();
    void adopt(Settings settings, Effect effect = Effect::none);

    Settings& _settings;
    SettingsStore& _store;
    std::optional<std::string> _unsavedDirectory;
    Alarm _flushAlarm;
};

}  // namespace Tarnwick
