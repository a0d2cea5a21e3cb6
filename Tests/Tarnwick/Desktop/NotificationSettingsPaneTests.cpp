#include "Tarnwick/Desktop/NotificationSettingsPane.h"

#include <set>
#include <vector>

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;

struct PaneCase {
    std::string desktop;
    std::set<std::string> installed;
    std::optional<Launch> expected;
};

const std::set<std::string> everything{
    "/usr/bin/gnome-control-center",
    "/usr/bin/systemsettings",
    "/usr/bin/kcmshell6",
    "/usr/bin/kcmshell5",
    "/usr/bin/xfce4-notifyd-config"};
const Launch gnome{"/usr/bin/gnome-control-center", {"notifications"}, {}};
const Launch plasma{"/usr/bin/systemsettings", {"kcm_notifications"}, {}};
const Launch xfce{"/usr/bin/xfce4-notifyd-config", {}, {}};

TEST(NotificationSettingsPane, isTheDesktopsOwn)
{
    const std::vector<PaneCase> cases{
        {"GNOME", everything, gnome},
        {"ubuntu:GNOME", everything, gnome},
        {"KDE", everything, plasma},
        {"KDE",
         {"/usr/bin/kcmshell6", "/usr/bin/kcmshell5"},
         Launch{"/usr/bin/kcmshell6", {"kcm_notifications"}, {}}},
        {"KDE",
         {"/usr/local/bin/kcmshell5"},
         Launch{"/usr/local/bin/kcmshell5", {"kcm_notifications"}, {}}},
        {"XFCE", everything, xfce},
        {"XFCE", {"/usr/bin/gnome-control-center"}, std::nullopt},
        {"sway", everything, std::nullopt},
        {"GNOMEX", everything, std::nullopt},
        {"", everything, std::nullopt}};
    for (const PaneCase& each : cases) {
        const auto& [desktop, installed, expected] = each;
        const auto pane = notificationSettingsPane(
            {{"PATH", "/usr/local/bin:/usr/bin"}, {"XDG_CURRENT_DESKTOP", desktop}},
            [&](const std::filesystem::path& path) { return installed.contains(path.string()); });
        EXPECT_EQ(pane, expected) << desktop;
    }
}

}  // namespace
