#pragma once

#include "Tarnwick/Desktop/Launch.h"

#include <functional>
#include <optional>

namespace Tarnwick {

/// The command that shows the notification settings of the desktop in XDG_CURRENT_DESKTOP; nothing
/// when there is none or it is not installed. Safe from any thread.
std::optional<Launch> notificationSettingsPane(
    const GitHub::Environment& environment, const GitHub::IsExecutable& isExecutable);

}  // namespace Tarnwick
