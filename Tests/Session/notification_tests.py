"""Notifications of pull requests, on desktops with a server of them and without one."""

import datetime
import os

from desktop import SessionTest, wait_until
from desktop.github import scenario_named
from desktop.notifications import Dunst, Recorder, Shown, XfceNotifyd
from desktop.waiting import stays

TIDE_TABLES = "harbourlight/tide-tables"
EBB = "https://github.com/harbourlight/tide-tables/pull/82"


def an_hour_from_now():
    later = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(hours=1)
    return later.strftime("%Y-%m-%dT%H:%M:%SZ")


def with_a_new_one():
    """The everyday scenario and a pull request that was made just now."""
    scenario = scenario_named("everyday")
    scenario["pullRequests"].append(
        {
            "repository": TIDE_TABLES,
            "number": 82,
            "title": "Ebb & <b>flow</b>",
            "author": "yuki-h",
            "created": "0s",
            "updated": "0s",
            "head": "ebb",
        }
    )
    return scenario


def with_one_unblocked(state="SUCCESS"):
    """The everyday scenario after the failed check of one has passed, or is in this state; "" is running."""
    scenario = scenario_named("everyday")
    for pull_request in scenario["pullRequests"]:
        if pull_request["repository"] == TIDE_TABLES and pull_request["number"] == 79:
            pull_request["checks"][0]["state"] = state
    return scenario


class NotificationTest(SessionTest):
    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")

    def start(self, **settings):
        """Starts the program, and waits until it knows which pull requests there are."""
        self.start_github()
        self.select(TIDE_TABLES, **settings)
        self.program = self.start_tarnwick("--background")
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")

    def refresh_with(self, scenario, now=None):
        self.github.serve(scenario, now=now or an_hour_from_now())
        self.reload()

    def opened(self):
        return wait_until(lambda: self.programs.arguments("xdg-open"), "what was opened")


class DunstTests(NotificationTest):
    def setUp(self):
        super().setUp()
        self.dunst = Dunst(self.session)

    def testANewPullRequestIsToldAndAClickOpensIt(self):
        self.start(notifications_newPullRequests="true")
        self.refresh_with(with_a_new_one())
        wait_until(lambda: self.dunst.count() == 1, "a notification")
        self.dunst.click()
        self.assertEqual(self.opened(), [[EBB]])
        wait_until(
            lambda: "\nlastVisitedAt.github%7Cgithub.com%7Charbourlight%2Ftide-tables%7C82=@Date("
            in self.read_settings(),
            "the visit",
        )
        self.assertEqual(
            self.dunst.close(), [Shown("Tarnwick", "Ebb & <b>flow</b>", "New pull request")]
        )

    def testAnUnblockedPullRequestIsTold(self):
        self.start(notifications_unblocked="true")
        self.refresh_with(with_one_unblocked())
        wait_until(lambda: self.dunst.count() == 1, "a notification")
        self.assertEqual(
            self.dunst.close(),
            [
                Shown(
                    "Tarnwick",
                    "Swap the order of smoothing and clipping",
                    "Pull request unblocked",
                )
            ],
        )
        self.assertEqual(self.programs.calls("xdg-open"), [])

    def testAnUnblockedPullRequestIsToldOnceWhateverComesInBetween(self):
        self.start(notifications_unblocked="true")
        self.refresh_with(with_one_unblocked(""))
        self.program.terminate()
        self.wait_for_end(self.program)
        self.github.serve(with_one_unblocked(), now=an_hour_from_now())
        # A list is the first to find it, and notifies nobody.
        self.assertEqual(self.run_tarnwick("list").returncode, 0)
        self.start_tarnwick("--background")
        wait_until(lambda: self.dunst.count() == 1, "a notification")
        self.wait_for_name()
        self.reload()
        stays(lambda: self.dunst.count() == 1, "one notification", 1)


class XfceTests(NotificationTest):
    def testANewPullRequestIsToldAndItsButtonOpensIt(self):
        server = XfceNotifyd(self.session)
        self.start(notifications_newPullRequests="true")
        self.refresh_with(with_a_new_one())
        place = self.screen.place(wait_until(server.windows, "a notification")[0])
        # The only button is in the lower right corner.
        self.screen.click(place.right - 56, place.bottom - 30)
        self.assertEqual(self.opened(), [[EBB]])
        wait_until(lambda: server.says("ActionInvoked (uint32 1, 'open')"), "the button's signal")
        wait_until(lambda: not server.windows(), "the end of the notification")


class RecordedTests(NotificationTest):
    def testTheRequestIsCompleteAndTheTokenGoesToTheBrowser(self):
        server = Recorder(self.session)
        self.start(notifications_newPullRequests="true", notifications_unblocked="true")
        now = an_hour_from_now()
        self.refresh_with(with_a_new_one(), now)
        first = wait_until(server.requests, "a notification")[0]
        self.assertEqual(
            first,
            {
                "number": 1,
                "program": "Tarnwick",
                "replaced": 0,
                "icon": "dev.tarnwick.Tarnwick",
                "summary": "Ebb & <b>flow</b>",
                "body": "New pull request",
                "actions": ["default", "", "open", "Open"],
                "hints": {
                    "desktop-entry": "dev.tarnwick.Tarnwick",
                    "sound-name": "message-new-instant",
                    "x-dev.tarnwick.thread": "tarnwick.pull-requests",
                },
                "timeout": -1,
            },
        )
        self.refresh_with("everyday", now)
        self.refresh_with(with_a_new_one(), now)
        second = wait_until(lambda: server.requests()[1:], "the notification again")[0]
        self.assertEqual(second, {**first, "replaced": 1})
        server.click(1, "default", "token-7")
        self.opened()
        self.assertEqual(
            self.programs.calls("xdg-open"), [{"arguments": [EBB], "token": "token-7"}]
        )


class NoServerTests(SessionTest):
    has_accessibility = True

    def testWithoutAServerTurningOneOnSaysSoAndLeavesItOff(self):
        self.session.environment["XDG_CURRENT_DESKTOP"] = "XFCE"
        self.programs.record("xfce4-notifyd-config")
        self.start_tarnwick("--toggle")
        self.focused_panel()
        reader = self.accessibility()
        self.turn_on(reader, "New PR")
        reader.find("label", "Notifications Are Disabled")
        reader.find(
            "label",
            "Enable notifications for Tarnwick, then turn the notification you want on again.",
        )
        # It would hide the alert.
        reader.wait_until_gone("popup menu", "List options")
        self.assertIn("notifications.newPullRequests=false", self.read_settings())
        reader.press("push button", "Open System Settings")
        wait_until(lambda: self.programs.calls("xfce4-notifyd-config"), "the settings")
        self.assertEqual(self.programs.arguments("xfce4-notifyd-config"), [[]])
        self.panel_gone()
        self.activate()
        self.focused_panel()
        self.turn_on(reader, "Unblocked")
        reader.press("push button", "Cancel")
        reader.wait_until_gone("label", "Notifications Are Disabled")
        self.assertIn("notifications.unblocked=false", self.read_settings())
        self.assertEqual(len(self.programs.calls("xfce4-notifyd-config")), 1)

    def testWhereThereAreNoSettingsToOpenItSaysWhatIsMissing(self):
        self.start_tarnwick("--toggle")
        self.focused_panel()
        reader = self.accessibility()
        self.turn_on(reader, "New PR")
        reader.find("dialog", "Notifications Are Disabled")
        reader.find(
            "label",
            "No program on this desktop shows notifications. Install or start a notification "
            "service, then turn the notification you want on again.",
        )
        self.assertNotIn("Open System Settings", reader.names("push button"))
        reader.press("push button", "OK")
        reader.wait_until_gone("dialog", "Notifications Are Disabled")
        self.assertEqual(len(self.screen.windows()), 1)

    @staticmethod
    def turn_on(reader, name):
        reader.press("push button", "List options")
        reader.press("menu item", "Notifications")
        reader.press("menu item", name)
