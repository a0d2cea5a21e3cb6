#include "Tarnwick/ExternalNavigation.h"

#include "Fakes/EventLoop.h"
#include "Fakes/RecordingSurroundings.h"
#include "PullRequestKit/Errors.h"
#include "Support/Errors.h"

#include <thread>

namespace {

using namespace TestSupport;

class ExternalNavigationTest : public testing::Test {
protected:
    void openInCode(const std::string& branch)
    {
        const ExternalNavigation navigation = desktop.navigation();
        auto opening = navigation.openInCode(
            "/home/octo/projects/api", branch, desktop.progress(), stop.get_token());
        runToEnd(std::move(opening));
    }

    std::string messageOf(const std::string& branch)
    {
        return TestSupport::messageOf<ExternalNavigationError>([&] { openInCode(branch); });
    }

    /// A branch that has a worktree already, which saves two commands.
    void haveWorktree()
    {
        using namespace std::string_literals;
        desktop.ends(0);
        desktop.ends(0, "worktree /trees/login\0branch refs/heads/login\0\0"s);
    }

    void openSettings() const
    {
        desktop.navigation().openNotificationSettings();
        processEvents();
    }

    RecordingSurroundings desktop;
    std::stop_source stop;
};

TEST_F(ExternalNavigationTest, opensTheWorktreeInANewWindowOnceThePanelIsGone)
{
    haveWorktree();
    desktop.ends(0);
    openInCode("login");
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "progress Fetching origin…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [fetch] [origin]",
            "progress Looking for an existing worktree…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [worktree] [list] [--porcelain] [-z]",
            "progress Opening Visual Studio Code…",
            "dismiss focus",
            "run /usr/bin/code [--new-window] [/trees/login]"));
}

TEST_F(ExternalNavigationTest, runsNothingWhenThereIsNoCodeCommand)
{
    desktop.executables.clear();
    EXPECT_EQ(messageOf("login"), "Visual Studio Code's `code` command was not found.");
    EXPECT_EQ(messageOf(""), "Visual Studio Code's `code` command was not found.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(ExternalNavigationTest, keepsThePanelWhenTheWorktreeCannotBePrepared)
{
    desktop.ends(128, {}, "fatal: offline");
    EXPECT_EQ(messageOf("login"), "Fetching origin failed (exit 128).\nfatal: offline");
    EXPECT_EQ(desktop.journal().size(), 2U);
}

TEST_F(ExternalNavigationTest, saysWhatTheEditorSaidWhenItFails)
{
    haveWorktree();
    desktop.ends(3, "ignored", "no display\n");
    EXPECT_EQ(messageOf("login"), "Opening Visual Studio Code failed (exit 3).\nno display");
}

TEST_F(ExternalNavigationTest, doesNotOpenTheEditorOnceItIsStopped)
{
    desktop.ends(0);
    desktop.ends(0);
    desktop.ends(0);
    desktop.meanwhile([this] { stop.request_stop(); });
    EXPECT_THROW(openInCode("login"), CancellationError);
    EXPECT_EQ(desktop.journal().size(), 8U);
}

TEST_F(ExternalNavigationTest, opensALinkWithTheDesktopsOpenerAndTheToken)
{
    desktop.navigation().open({"https://github.com/octo/tools/pull/7"}, "token-1");
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "dismiss any",
            "launch /usr/bin/xdg-open [https://github.com/octo/tools/pull/7] token token-1"));
}

TEST_F(ExternalNavigationTest, asksThePortalWhereThereIsNoOpener)
{
    desktop.executables.erase("/usr/bin/xdg-open");
    desktop.navigation().open({"https://github.com/octo"});
    EXPECT_THAT(
        desktop.journal(), ElementsAre("dismiss any", "portal https://github.com/octo token "));
}

TEST_F(ExternalNavigationTest, opensTheSettingsPaneSoonAndDismissesThePanel)
{
    desktop.environment["XDG_CURRENT_DESKTOP"] = "ubuntu:GNOME";
    desktop.executables.insert("/usr/bin/gnome-control-center");
    desktop.navigation().openNotificationSettings();
    EXPECT_THAT(desktop.journal(), IsEmpty());
    processEvents();
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre("dismiss any", "launch /usr/bin/gnome-control-center [notifications] token "));
}

TEST_F(ExternalNavigationTest, opensTheSettingsPaneFromAnyThread)
{
    desktop.environment["XDG_CURRENT_DESKTOP"] = "KDE";
    desktop.executables.insert("/usr/bin/systemsettings");
    std::thread([this] { desktop.navigation().openNotificationSettings(); }).join();
    EXPECT_THAT(desktop.journal(), IsEmpty());
    processEvents();
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre("dismiss any", "launch /usr/bin/systemsettings [kcm_notifications] token "));
}

TEST_F(ExternalNavigationTest, doesNothingWhereNoSettingsPaneIsFound)
{
    desktop.environment["XDG_CURRENT_DESKTOP"] = "sway";
    openSettings();
    desktop.environment["XDG_CURRENT_DESKTOP"] = "GNOME";
    openSettings();
    desktop.environment.erase("XDG_CURRENT_DESKTOP");
    openSettings();
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST(ExternalNavigationError, describesItselfByItsMessage)
{
    const ExternalNavigationError error("First line.\nsecond line");
    EXPECT_EQ(error.message(), "First line.\nsecond line");
    EXPECT_STREQ(error.what(), "First line.\nsecond line");
}

}  // namespace
