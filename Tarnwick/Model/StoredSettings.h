#pragma once

#include "Tarnwick/Model/Settings.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnwick {

/// The stored settings after migration.
struct StoredSettings {
    Settings settings;

    /// The writes that complete the migration, in order.
    std::vector<std::pair<std::string_view, std::string>> corrections;
};

/// Ignores unknown texts and values of a wrong type. Writes nothing.
StoredSettings readSettings(const DefaultsStore& defaults);

/// Writes the settings that differ, and the one with the key `chosen` in any case. A written
/// selection of repositories counts as configured.
void writeDifferences(
    DefaultsStore& defaults,
    const Settings& before,
    const Settings& after,
    const std::optional<std::string_view>& chosen);

/// Writes the selection and marks it as configured.
void persistRepositories(DefaultsStore& defaults, const std::set<std::string>& names);

}  // namespace Tarnwick
