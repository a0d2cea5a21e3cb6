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

/// Changes settings for the user and follows other processes. Changes are applied to the stored
/// settings and, except for the project directory, stored at once. Main thread only.
class SettingsOperations final : public QObject {
    Q_OBJECT

public:
    /// Requires: `settings` and `store` outlive it, and `clock` is not null.
    SettingsOperations(Settings& settings, SettingsStore& store, std::shared_ptr<Clock> clock);

    void change(const std::function<void(Settings&)>& change) { store(change); }

    /// Adds or removes the value, depending on what the user currently sees.
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

    /// Does nothing if the value is unchanged.
    template<typename Value>
    void set(Value Settings::* setting, std::type_identity_t<Value> value)
    {
        if (_settings.*setting != value) {
            change([&](Settings& settings) { settings.*setting = std::move(value); });
        }
    }

    /// Resets all filters; the selected repositories stay.
    void resetFilters();

    void toggleRepository(const std::string& name);
    void selectRepositories(const std::vector<std::string>& names, bool selected);
    void setSelectedRepositories(const std::set<std::string>& names);

    /// Stores an empty selection unless one was ever stored.
    void resetUnconfiguredSelection();

    void setPollingInterval(PollingInterval interval);

    void setNotifications(bool Settings::* flag, bool isOn);

    /// Takes effect at once, but is stored with the next change, by `flush`, or after 200 ms,
    /// because it changes with every keystroke.
    void setProjectDirectory(const std::string& directory);
    void flush();

    /// Applies the changes of other processes without writing.
    void readAgain();

Q_SIGNALS:
    /// Emitted with each of the others.
    void changed();
    void filtersChanged();      ///< Other rows are visible.
    void selectionChanged();    ///< Other repositories have to be fetched.
    void reviewersChanged();    ///< Other pull requests have to be fetched.
    void arrangementChanged();  ///< The same rows in another order.
    void pollingIntervalChanged();
    void darkModeChanged();
    void flushed();  ///< The project directory alone was written, or failed to be.

private:
    /// Effects that apply even if no value changed.
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
    void apply(Settings settings, Effect effect = Effect::none);

    Settings& _settings;
    SettingsStore& _store;
    std::optional<std::string> _unsavedDirectory;
    Alarm _flushAlarm;
};

}  // namespace Tarnwick
