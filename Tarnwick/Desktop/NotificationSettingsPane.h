#pragma once

#include "Tarnwick/Desktop/Launch.h"

#include <functional>
#include <optional>

namespace Tarnwick {

/// The command that shows the notification settings of the desktop that XDG_CURRENT_DESKTOP names,
/// or nothing where the desktop has none or its program is not installed. Safe from any thread.
std::optional<Launch> notificationSettingsPane(
    const GitHub::Environment& environment, const GitHub::IsExecutable& isExecutable);

}  // namespace Tarnwick
