"""The icon in trays of both kinds, and the panel that it opens."""

import json
import os
import re

from desktop import SessionTest, wait_until
from desktop.case import ROOT, is_drop
from desktop.processes import output_of
from desktop.screen import Rectangle
from desktop.session import SCREEN
from desktop.waiting import stays

# Where icons lie in the two trays.
TOP = Rectangle(SCREEN[0] - 160, 0, 160, 30)
BOTTOM = Rectangle(SCREEN[0] - 160, SCREEN[1] - 32, 160, 32)

# Where the menu of an icon at the top opens.
BELOW = Rectangle(SCREEN[0] - 240, 32, 240, 140)

INDICATOR_HOST = os.path.join(ROOT, "Tests", "Session", "desktop", "indicator_host.py")


class HostTests:
    """What holds at every host; `area` is where its icons lie."""

    def start_in_tray(self):
        """Starts the host and the program; returns the icon's place."""
        self.start_host()
        self.program = self.start_tarnwick("--background")
        return self.tray_icon(self.area)

    def open_by_the_icon(self):
        self.screen.click(*self.tray_icon(self.area).centre)
        return self.panel()

    def testTheIconComesWithAHostThatStartsLater(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.start_host()
        self.open_by_the_icon()

    def testTheIconComesBackWithAHostThatRestarts(self):
        host = self.start_host()
        self.start_tarnwick("--background")
        self.tray_icon(self.area)
        self.session.processes.end(host)
        self.start_host()
        self.open_by_the_icon()

    def testSignedOutTheIconIsHollowAndItsTooltipSaysWhy(self):
        """Out of a list with a blocked pull request, and in again."""
        icon = self.start_in_tray()
        self.wait_for_dot()
        self.github.serve(faults=["unauthorized"])
        self.action("reload")
        wait_until(
            lambda: re.fullmatch(
                r"Sign in to GitHub · Not updated since \d\d:\d\d", tooltip(self.session)
            ),
            "the tooltip",
        )
        wait_until(lambda: not self.screen.find(self.area, is_dot), "an icon without a dot")
        self.assertIsNotNone(self.screen.find(icon, is_drop))
        middle = Rectangle(icon.x + icon.width // 4, icon.centre[1] - 1, 2, 2)
        self.assertIsNone(self.screen.find(middle, is_drop), "the drop is not hollow")
        self.github.serve()
        self.action("reload")
        self.wait_for_dot()
        self.assertIn("13 pull requests · Updated ", tooltip(self.session))

    def wait_for_dot(self):
        wait_until(lambda: self.screen.find(self.area, is_dot), "the dot of a list")


class XfceTests(HostTests, SessionTest):
    window_manager = ("xfwm4", "--compositor=off")
    area = TOP

    def start_host(self):
        return self.session.start_xfce_panel()

    def testAClickOnTheIconOpensThePanelBelowItAndTheNextClosesIt(self):
        icon = self.start_in_tray()
        self.screen.click(*icon.centre)
        place = self.screen.place(self.panel())
        self.assertEqual((place.width, place.height), (440, 620))
        self.assertEqual(place.y, self.screen.work_area().y + 4)
        self.assertLessEqual(abs(place.right - (SCREEN[0] - 4)), 1)
        self.assertLess(place.x, icon.x)
        self.screen.click(*icon.centre)
        self.panel_gone()
        self.screen.click(*icon.centre)
        self.panel()

    def testThePanelHasTheFocusAndEscapeClosesIt(self):
        self.start_in_tray()
        window = self.open_by_the_icon()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        self.screen.key("Escape")
        self.panel_gone()
        self.assertTrue(self.session.owns_name("dev.tarnwick.Tarnwick"))

    def testThePanelClosesWhenTheFocusLeavesIt(self):
        icon = self.start_in_tray()
        self.session.processes.start("xmessage", "-geometry", "+40+300", "Another window.")
        other = self.screen.wait_for_window("xmessage")
        self.screen.click(*icon.centre)
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        self.screen.click(*self.screen.place(other).centre)
        self.panel_gone()
        # A click this soon might be the one that took the focus away.
        stays(lambda: not self.screen.windows(), "the closed panel", 0.4)
        self.screen.click(*icon.centre)
        self.panel()

    def testTheIconsMenuOpensReloadsAndQuits(self):
        icon = self.start_in_tray()
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")
        searches = len(self.github.requests("search"))
        self.choose_in_menu(icon, 2)
        wait_until(lambda: len(self.github.requests("search")) > searches, "a refresh")
        self.assertEqual(self.screen.windows(), [])
        wait_until(self.nothing_is_below, "the end of the menu")
        self.choose_in_menu(icon, 1)
        self.panel()
        self.screen.key("Escape")
        self.panel_gone()
        wait_until(self.nothing_is_below, "the panel's pixels gone")
        self.choose_in_menu(icon, 3)
        self.assertEqual(self.wait_for_end(self.program), 0)

    def nothing_is_below(self):
        return self.screen.find(BELOW, is_not_black) is None

    def choose_in_menu(self, icon, number):
        """Chooses the item at this place of the last three, counted from 1, from the menu that the
        host draws over the black of the screen."""
        self.screen.click(*icon.centre, button=3)
        wait_until(lambda: self.screen.find(BELOW, is_not_black), "the icon's menu")
        for _ in range(4 - number):
            self.screen.key("Up")
        # On the icon it would bring up the tooltip.
        self.screen.move(10, SCREEN[1] - 10)
        self.screen.key("Return")

    def testThePanelIsResizedAtItsEdges(self):
        self.start_in_tray()
        window = self.open_by_the_icon()
        before = self.screen.place(window)
        with self.screen.dragging((before.x + 1, before.y + 300)) as drag_by:
            drag_by((-5, 0), lambda: self.screen.place(window).width >= before.width + 50)
            # The window manager has the keyboard meanwhile.
            stays(lambda: self.screen.windows() == [window], "the panel", 0.5)
        self.assertEqual(self.action("quit").returncode, 0)
        self.wait_for_end(self.program)
        stored = re.search(r"^panel.size=(\d+)x620$", self.read_settings(), re.MULTILINE)
        self.assertGreaterEqual(int(stored[1]), before.width + 50)

    def testTheIconHasADotWhileAShownPullRequestIsBlocked(self):
        self.start_in_tray()
        self.wait_for_dot()

    def testTheIconHasNoDotWhileNothingIsBlocked(self):
        self.start_github("empty")
        self.start_in_tray()
        wait_until(lambda: self.github.requests("repositories"), "the first refresh")
        stays(lambda: not self.screen.find(TOP, is_dot), "an icon without a dot", 0.3)

    def testTheTooltipGoesAwayWhileThePanelIsOpen(self):
        icon = self.start_in_tray()
        wait_until(lambda: "13 pull requests · Updated " in tooltip(self.session), "the tooltip")
        self.screen.click(*icon.centre)
        self.focused_panel()
        wait_until(lambda: tooltip(self.session) == "", "no tooltip")
        self.screen.key("Escape")
        self.panel_gone()
        wait_until(lambda: "13 pull requests" in tooltip(self.session), "the tooltip again")

    def testAFailedRefreshOfAYoungListIsNoTrouble(self):
        icon = self.start_in_tray()
        self.wait_for_dot()
        calm = self.screen.pixels(icon)
        self.github.serve(faults=["server-error@search"])
        self.action("reload")
        wait_until(lambda: self.github.requests("search")[1:], "the request that fails")
        stays(lambda: self.screen.pixels(icon) == calm, "the calm icon", 1)
        self.assertRegex(tooltip(self.session), r"^13 pull requests · Updated \d\d:\d\d$")


class IndicatorTests(SessionTest):
    """A host that has the menu alone, as on GNOME."""

    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        self.host = self.session.processes.start_piped(INDICATOR_HOST)
        wait_until(lambda: self.session.owns_name("org.kde.StatusNotifierWatcher"), "the host")

    def ask(self, words):
        self.host.stdin.write(f"{words}\n")
        self.host.stdin.flush()

    def told(self, key, fits=lambda value: True):
        """What the host tells under this key, once it fits."""
        while True:
            value = json.loads(self.host.stdout.readline()).get(key)
            if value is not None and fits(value):
                return value

    def testTheMenuSaysWhatTheTooltipSaysAndOpensWhatWaits(self):
        self.start_tarnwick("--background")
        self.told("item")
        self.told("menu", lambda labels: any("#412" in label for label in labels))
        self.ask("menu")
        labels = self.told("menu")
        self.assertRegex(labels[0], r"^!\d+ waits? on you · \d")
        self.assertEqual(labels[-4:], ["", "Open Tarnwick", "Reload", "Quit"])
        self.assertLessEqual(len(labels), 1 + 8 + 4)
        self.ask("click #412")
        self.assertTrue(self.told("clicked"))
        wait_until(
            lambda: "/harbourlight/ferry-api/pull/412" in str(self.programs.arguments("xdg-open")),
            "the browser",
        )
        self.ask("click Open Tarnwick")
        self.panel()

    def testTheFirstLineFollowsTrouble(self):
        self.start_tarnwick("--background")
        self.told("menu", lambda labels: "wait" in labels[0])
        self.github.serve(scenario="signed-out")
        self.action("reload")
        self.assertEqual(self.told("menu", lambda labels: "wait" not in labels[0])[-3:], ["Open Tarnwick", "Reload", "Quit"])

    def testALockedScreenBringsNoWindowAndTheIconComesBack(self):
        self.start_tarnwick("--background")
        item = self.told("item")
        for _ in range(2):
            self.ask("lock")
            stays(lambda: not self.screen.windows("^Tarnwick$"), "the screen without a window", 2)
            self.ask("unlock")
            self.assertEqual(self.told("item"), item)
        self.assertEqual(self.screen.windows("^Tarnwick$"), [])


class EmbeddingTests(SessionTest):
    """A program that does not find the bus sees a tray of the old kind alone, into which it puts
    a window."""

    NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere/bus"}

    def testTheIconIsAWindowWhereThereAreNoItems(self):
        self.session.start_xfce_panel()
        program = self.start_tarnwick("--background", environment=self.NO_BUS)
        icon = self.tray_icon(TOP)
        self.screen.click(*icon.centre)
        place = self.screen.place(self.panel())
        self.assertEqual(place.y, self.screen.work_area().y + 4)
        self.screen.click(*icon.centre)
        self.panel_gone()
        self.assertEqual(output_of(program), "")

    def testTheIconComesWithATrayThatStartsLater(self):
        self.start_tarnwick(environment=self.NO_BUS)
        self.panel()
        self.session.start_xfce_panel()
        self.tray_icon(TOP)


class LxqtTests(HostTests, SessionTest):
    area = BOTTOM

    def start_host(self):
        return self.session.start_lxqt_panel()

    def testAClickOnTheIconOpensThePanelAboveItAndTheNextClosesIt(self):
        icon = self.start_in_tray()
        self.screen.click(*icon.centre)
        place = self.screen.place(self.panel())
        self.assertEqual((place.width, place.height), (440, 620))
        self.assertEqual(place.bottom, self.screen.work_area().bottom - 4)
        self.screen.click(*icon.centre)
        self.panel_gone()
        self.screen.click(*icon.centre)
        self.panel()


def item_of(session):
    """The program's name at the tray, or nothing."""
    items = session.call(
        "org.kde.StatusNotifierWatcher",
        "/StatusNotifierWatcher",
        "org.freedesktop.DBus.Properties.Get",
        "org.kde.StatusNotifierWatcher",
        "RegisteredStatusNotifierItems",
    ).stdout
    name = re.search(r"'([^'/]+)/", items)
    return name and name[1]


def tooltip(session):
    """What the program's item tells the tray, without the markup's markers."""
    item = item_of(session)
    if not item:
        return None
    value = session.call(
        item,
        "/StatusNotifierItem",
        "org.freedesktop.DBus.Properties.Get",
        "org.kde.StatusNotifierItem",
        "ToolTip",
    ).stdout
    # The icon's name, its pictures, the title and the text.
    texts = re.findall(r"'([^']*)'", value)
    return texts[1] if len(texts) > 1 else value


def is_not_black(*color):
    return max(color) > 60


def is_dot(red, green, blue):
    return red > 190 and green < 110 and blue < 120
