#include "Tarnwick/Desktop/NotificationSettingsPane.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarnwick {
namespace {

using GitHub::IsExecutable;

struct Pane {
    std::string_view desktop;
    std::string_view program;
    std::string_view argument;
};

/// In the order of preference per desktop.
constexpr std::array panes{
    Pane{"GNOME", "gnome-control-center", "notifications"},
    Pane{"Unity", "gnome-control-center", "notifications"},
    Pane{"KDE", "systemsettings", "kcm_notifications"},
    Pane{"KDE", "systemsettings5", "kcm_notifications"},
    Pane{"KDE", "kcmshell6", "kcm_notifications"},
    Pane{"KDE", "kcmshell5", "kcm_notifications"},
    Pane{"XFCE", "xfce4-notifyd-config", {}},
};

std::optional<Launch> paneOf(
    std::string_view desktop,
    const GitHub::Environment& environment,
    const IsExecutable& isExecutable)
{
    for (const Pane& pane : panes) {
        if (pane.desktop != desktop) {
            continue;
        }
        if (const auto program = GitHub::findProgram(environment, pane.program, isExecutable)) {
            Launch launch{*program, {}, {}};
            if (!pane.argument.empty()) {
                launch.arguments.emplace_back(pane.argument);
            }
            return launch;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Launch> notificationSettingsPane(
    const GitHub::Environment& environment, const IsExecutable& isExecutable)
{
    // A list from the most to the least specific name, such as "ubuntu:GNOME".
    const std::string desktops = GitHub::valueIn(environment, "XDG_CURRENT_DESKTOP");
    std::string_view rest = desktops;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (auto launch = paneOf(rest.substr(0, end), environment, isExecutable)) {
            return launch;
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return std::nullopt;
}

}  // namespace Tarnwick
