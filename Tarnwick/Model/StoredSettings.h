#pragma once

#include "Tarnwick/Model/Settings.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnwick {

/// The settings as the defaults hold them, older forms translated.
struct StoredSettings {
    Settings settings;

    /// What is to be written, in this order, so that nothing is left to translate.
    std::vector<std::pair<std::string_view, std::string>> corrections;
};

/// Unknown texts and values of a foreign type are passed over. Writes nothing.
StoredSettings readSettings(const DefaultsStore& defaults);

/// Writes the settings in which the two differ, each under its own key, and the one whose key is
/// `chosen` in any case. A selection of repositories counts as configured from then on.
void writeDifferences(
    DefaultsStore& defaults,
    const Settings& before,
    const Settings& after,
    const std::optional<std::string_view>& chosen);

/// Writes the selection, and that there is one.
void persistRepositories(DefaultsStore& defaults, const std::set<std::string>& names);

}  // namespace Tarnwick
