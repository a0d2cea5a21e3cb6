#include "Tarnwick/Desktop/NotificationSettingsPane.h"

#include <set>

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;

struct PaneCase {
    std::string desktop;
    std::set<std::string> installed;
    std::optional<Launch> expected;
};

class NotificationSettingsPane : public testing::TestWithParam<PaneCase> {};

TEST_P(NotificationSettingsPane, isTheDesktopsOwn)
{
    const auto& [desktop, installed, expected] = GetParam();
    const auto pane = notificationSettingsPane(
        {{"PATH", "/usr/local/bin:/usr/bin"}, {"XDG_CURRENT_DESKTOP", desktop}},
        [&](const std::filesystem::path& path) { return installed.contains(path.string()); });
    EXPECT_EQ(pane, expected);
}

const std::set<std::string> everything{
    "/usr/bin/gnome-control-center",
    "/usr/bin/systemsettings",
    "/usr/bin/kcmshell6",
    "/usr/bin/kcmshell5",
    "/usr/bin/xfce4-notifyd-config"};
const Launch gnome{"/usr/bin/gnome-control-center", {"notifications"}, {}};
const Launch plasma{"/usr/bin/systemsettings", {"kcm_notifications"}, {}};
const Launch xfce{"/usr/bin/xfce4-notifyd-config", {}, {}};

INSTANTIATE_TEST_SUITE_P(
    Desktops,
    NotificationSettingsPane,
    testing::Values(
        PaneCase{"GNOME", everything, gnome},
        PaneCase{"ubuntu:GNOME", everything, gnome},
        PaneCase{"KDE", everything, plasma},
        PaneCase{
            "KDE",
            {"/usr/bin/kcmshell6", "/usr/bin/kcmshell5"},
            Launch{"/usr/bin/kcmshell6", {"kcm_notifications"}, {}}},
        PaneCase{
            "KDE",
            {"/usr/local/bin/kcmshell5"},
            Launch{"/usr/local/bin/kcmshell5", {"kcm_notifications"}, {}}},
        PaneCase{"XFCE", everything, xfce},
        PaneCase{"XFCE", {"/usr/bin/gnome-control-center"}, std::nullopt},
        PaneCase{"sway", everything, std::nullopt},
        PaneCase{"GNOMEX", everything, std::nullopt},
        PaneCase{"", everything, std::nullopt}));

}  // namespace
