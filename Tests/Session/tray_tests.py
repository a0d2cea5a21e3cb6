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


class XfceTests(SessionTest):
    window_manager = ("xfwm4", "--compositor=off")

    def testAClickOnTheIconOpensThePanelBelowItAndTheNextClosesIt(self):
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        icon = self.tray_icon(TOP)
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
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.screen.click(*self.tray_icon(TOP).centre)
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        self.screen.key("Escape")
        self.panel_gone()
        self.assertTrue(self.session.owns_name("dev.tarnwick.Tarnwick"))

    def testThePanelClosesWhenTheFocusLeavesIt(self):
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        icon = self.tray_icon(TOP)
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
        self.session.start_xfce_panel()
        program = self.start_tarnwick("--background")
        icon = self.tray_icon(TOP)
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
        self.assertEqual(self.wait_for_end(program), 0)

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
        self.session.start_xfce_panel()
        program = self.start_tarnwick("--background")
        self.screen.click(*self.tray_icon(TOP).centre)
        window = self.panel()
        before = self.screen.place(window)
        with self.screen.dragging((before.x + 1, before.y + 300)) as drag_by:
            drag_by((-5, 0), lambda: self.screen.place(window).width >= before.width + 50)
            # The window manager has the keyboard meanwhile.
            stays(lambda: self.screen.windows() == [window], "the panel", 0.5)
        self.assertEqual(self.action("quit").returncode, 0)
        self.wait_for_end(program)
        stored = re.search(r"^panel.size=(\d+)x620$", self.read_settings(), re.MULTILINE)
        self.assertGreaterEqual(int(stored[1]), before.width + 50)

    def testTheIconComesWithAHostThatStartsLater(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.session.start_xfce_panel()
        icon = self.tray_icon(TOP)
        self.screen.click(*icon.centre)
        self.panel()

    def testTheIconComesBackWithAHostThatRestarts(self):
        host = self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.tray_icon(TOP)
        self.session.processes.end(host)
        self.session.start_xfce_panel()
        icon = self.tray_icon(TOP)
        self.screen.click(*icon.centre)
        self.panel()

    def testTheIconHasADotWhileAShownPullRequestIsBlocked(self):
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.tray_icon(TOP)
        wait_until(lambda: self.screen.find(TOP, is_dot), "the dot")

    def testTheIconHasNoDotWhileNothingIsBlocked(self):
        self.start_github("empty")
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.tray_icon(TOP)
        wait_until(lambda: self.github.requests("repositories"), "the first refresh")
        stays(lambda: not self.screen.find(TOP, is_dot), "an icon without a dot", 0.3)


    def testTheTooltipGoesAwayWhileThePanelIsOpen(self):
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        icon = self.tray_icon(TOP)
        wait_until(lambda: "13 pull requests · Updated " in tooltip(self.session), "the tooltip")
        self.screen.click(*icon.centre)
        self.focused_panel()
        wait_until(lambda: tooltip(self.session) == "", "no tooltip")
        self.screen.key("Escape")
        self.panel_gone()
        wait_until(lambda: "13 pull requests" in tooltip(self.session), "the tooltip again")

    def testSignedOutTheIconIsHollowAndItsTooltipSaysWhy(self):
        self.session.start_xfce_panel()
        shows_trouble(self, TOP)

    def testAFailedRefreshOfAYoungListIsNoTrouble(self):
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        icon = self.tray_icon(TOP)
        wait_until(lambda: self.screen.find(TOP, is_dot), "the first list")
        calm = self.screen.pixels(icon)
        self.github.serve(faults=["server-error@search"])
        self.action("reload")
        wait_until(lambda: self.github.requests("search")[1:], "the request that fails")
        stays(lambda: self.screen.pixels(icon) == calm, "the calm icon", 1)
        self.assertRegex(tooltip(self.session), r"^13 pull requests · Updated \d\d:\d\d$")


class MenuTests(SessionTest):
    """The menu as hosts read it, over its own protocol."""

    window_manager = ("xfwm4", "--compositor=off")

    def menu(self, member, *arguments):
        """A call of the item's menu."""
        answer = self.session.call(item_of(self.session), "/MenuBar", f"com.canonical.dbusmenu.{member}", "--", *arguments)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        return answer.stdout

    def entries(self):
        """Each entry's number and label; "" is a separator's. Those that cannot be pressed have a "!"
        in front."""
        layout = self.menu("GetLayout", "0", "-1", "[]")
        found = re.findall(r"<\((\d+), (\{.*?\}), @av \[\]\)>", layout)
        return [
            (
                number,
                ("!" if "'enabled': <false>" in values else "")
                + (re.search(r"'label': <['\"](.*?)['\"]>", values) or ("", ""))[1],
            )
            for number, values in found
        ]

    def testItSaysWhatWaitsAndOpensIt(self):
        self.programs.record("xdg-open")
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.tray_icon(TOP)
        wait_until(lambda: any("#412" in label for _, label in self.entries()), "the menu's rows")
        labels = [label for _, label in self.entries()]
        self.assertRegex(labels[0], r"^!\d+ waits? on you · \d")
        self.assertEqual(labels[-4:], ["", "Open Tarnwick", "Reload", "Quit"])
        self.assertLessEqual(len(labels), 1 + 8 + 4)
        number = next(number for number, label in self.entries() if "#412" in label)
        self.menu("Event", number, "clicked", "<0>", "0")
        wait_until(
            lambda: "/harbourlight/ferry-api/pull/412" in str(self.programs.arguments("xdg-open")),
            "the browser",
        )


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


class LxqtTests(SessionTest):
    def testSignedOutTheIconIsHollowAndItsTooltipSaysWhy(self):
        self.session.start_lxqt_panel()
        shows_trouble(self, BOTTOM)

    def testAClickOnTheIconOpensThePanelAboveItAndTheNextClosesIt(self):
        self.session.start_lxqt_panel()
        self.start_tarnwick("--background")
        icon = self.tray_icon(BOTTOM)
        self.screen.click(*icon.centre)
        place = self.screen.place(self.panel())
        self.assertEqual((place.width, place.height), (440, 620))
        self.assertEqual(place.bottom, self.screen.work_area().bottom - 4)
        self.screen.click(*icon.centre)
        self.panel_gone()
        self.screen.click(*icon.centre)
        self.panel()

    def testTheIconComesWithAHostThatStartsLater(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.session.start_lxqt_panel()
        self.screen.click(*self.tray_icon(BOTTOM).centre)
        self.panel()

    def testTheIconComesBackWithAHostThatRestarts(self):
        host = self.session.start_lxqt_panel()
        self.start_tarnwick("--background")
        self.tray_icon(BOTTOM)
        self.session.processes.end(host)
        self.session.start_lxqt_panel()
        self.screen.click(*self.tray_icon(BOTTOM).centre)
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


def shows_trouble(test, area):
    """Signs the user out of a list with a blocked pull request, and in again."""
    test.start_tarnwick("--background")
    icon = test.tray_icon(area)
    wait_until(lambda: test.screen.find(area, is_dot), "the dot of the first list")
    test.github.serve(faults=["unauthorized"])
    test.action("reload")
    wait_until(
        lambda: re.fullmatch(
            r"Sign in to GitHub · Not updated since \d\d:\d\d", tooltip(test.session)
        ),
        "the tooltip",
    )
    wait_until(lambda: not test.screen.find(area, is_dot), "an icon without a dot")
    test.assertIsNotNone(test.screen.find(icon, is_drop))
    middle = Rectangle(icon.x + icon.width // 4, icon.centre[1] - 1, 2, 2)
    test.assertIsNone(test.screen.find(middle, is_drop), "the drop is not hollow")
    test.github.serve()
    test.action("reload")
    wait_until(lambda: test.screen.find(area, is_dot), "the dot again")
    test.assertIn("13 pull requests · Updated ", tooltip(test.session))


def is_not_black(*colour):
    return max(colour) > 60


def is_dot(red, green, blue):
    return red > 190 and green < 110 and blue < 120
