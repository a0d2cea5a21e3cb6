"""The panel as its users find it: by the keyboard alone, and by a screen reader."""

import re

from desktop import SessionTest, wait_until
from desktop.screen import Rectangle

TIDE_TABLES = "harbourlight/tide-tables"


class PanelTest(SessionTest):
    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        self.reader = None

    def open(self, *repositories, scenario="everyday"):
        """Opens the panel as a key binding does."""
        self.start_github(scenario)
        self.select(*repositories)
        self.start_tarnwick("--toggle")
        self.reader = self.accessibility()
        return self.focused_panel()

    def rows(self):
        """The sentences of the rows in sight."""
        return self.reader.names("list item")

    def chosen(self):
        """The row that has the keyboard."""
        rows = self.reader.find_all("list item")
        return next((row for row in rows if "focused" in row.states), None)

    def press_key(self, name, title):
        """Presses a key until the row of this title has the keyboard, and returns the row."""

        def row():
            chosen = self.chosen()
            return chosen if chosen is not None and chosen.name.startswith(f"{title}, ") else None

        self.screen.key(name)
        return wait_until(row, f'the row "{title}"')

    def wait_for_focus(self, role, name):
        wait_until(
            lambda: "focused" in self.reader.find(role, name).states, f'the focus of "{name}"'
        )

    def setting(self, name):
        match = re.search(rf"^{re.escape(name)}=(.*)$", self.read_settings(), re.MULTILINE)
        return match[1] if match else None


class ReadingTests(PanelTest):
    def testAScreenReaderReadsTheRowsAsSentences(self):
        self.open("harbourlight/ferry-web")
        self.reader.find(name="9 pull requests, Updated just now")
        self.assertEqual(
            self.rows()[:7],
            [
                "Search as you type, against the release, Open pull request, No reviewers, "
                "0/0 checks",
                "Search as you type, first attempt, Open pull request, merge conflict, "
                "No reviewers, 0/0 checks",
                "Highlight what was searched for, Open pull request, Reviews pending, 0/0 checks",
                "🚢 Celebrate the hundredth crossing with confetti 🎉, Open pull request, "
                "Reviews commented, 2/2 checks",
                "Design tokens for light and dark, Open pull request, All reviews approved, "
                "1/1 checks",
                "Dark checkout, Draft pull request, No reviewers, 0/0 checks",
                "Dark timetable, Open pull request, Reviews pending, 1/1 checks",
            ],
        )
        self.assertEqual(self.reader.find("list").name, "Pull requests")
        self.assertEqual(self.reader.names("push button"), ["Tarnwick", "Find", "List options"])
        self.assertEqual(
            self.reader.find("push button", "Tarnwick").description, "Open tarnwick.dev"
        )

    def testAScreenReaderGoesThroughTheOptions(self):
        self.open(TIDE_TABLES)
        self.reader.press("push button", "List options")
        self.reader.find("menu item", "Quit")
        self.assertEqual(
            ", ".join(self.reader.names("menu item")),
            "Reload, Polling, Notifications, Settings, Repositories, Reviewers, Status, Checks, "
            "Reviews, Merge-ready, Reset Filters, Arrange, Help, Quit",
        )
        self.reader.press("menu item", "Polling")
        self.reader.find("menu item", "1 hour")
        self.assertEqual(self.checked(), ["5 minutes"])
        self.reader.press("menu item", "1 minute")
        wait_until(lambda: self.setting("polling.interval") == "60", "the setting")
        self.assertEqual(self.checked(), ["1 minute"])
        self.reader.press("menu item", "Reviewers")
        self.reader.find("menu item", "Myself")
        self.assertEqual(self.checked(), ["Any"])
        self.reader.press("menu item", "Myself")
        wait_until(lambda: len(self.rows()) == 2, "the two that ask for the user's review")

    def checked(self):
        items = self.reader.find_all("menu item")
        return [item.name for item in items if "checked" in item.states]

    def testASignedOutUserCopiesTheCommandAndTriesAgain(self):
        self.open(TIDE_TABLES, scenario="signed-out")
        self.reader.find("label", "Sign in to GitHub")
        self.reader.find("label", "Run `gh auth login` in Terminal, then try again.")
        self.reader.press("push button", "Copy gh auth login")
        wait_until(lambda: self.clipboard() == "gh auth login", "the copied command")
        self.github.serve("everyday")
        self.reader.press("push button", "Try Again")
        self.reader.find("list item")
        self.assertEqual(len(self.rows()), 5)
        self.wait_for_focus("list", "Pull requests")

    def testDarkModeSwitchesAtOnce(self):
        window = self.open(TIDE_TABLES)
        self.reader.find("list item")
        place = self.screen.place(window)
        below = Rectangle(place.x + 100, place.bottom - 60, 1, 1)
        self.reader.press("push button", "List options")
        helping = self.reader.find("menu item", "Help").box
        menu = Rectangle(helping.right - 20, helping.centre[1], 1, 1)
        self.reader.press("menu item", "Settings")
        self.reader.find("menu item", "Dark Mode")

        def are(brightness):
            return all(brightness(sum(self.screen.pixels(spot)[0][0])) for spot in (below, menu))

        self.assertTrue(are(lambda sum_of_colors: sum_of_colors > 700))
        self.assertEqual(self.checked(), [])
        self.reader.press("menu item", "Dark Mode")
        wait_until(lambda: are(lambda sum_of_colors: sum_of_colors < 150), "the dark")
        self.assertEqual(self.checked(), ["Dark Mode"])
        self.assertEqual(self.setting("appearance.darkMode"), "true")
        self.reader.press("menu item", "Dark Mode")
        wait_until(lambda: are(lambda sum_of_colors: sum_of_colors > 700), "the light")
        self.assertEqual(self.setting("appearance.darkMode"), "false")


class KeyboardTests(PanelTest):
    def testKeysMoveOpenAndClose(self):
        self.open()
        self.wait_for_focus("list", "Pull requests")
        self.press_key("j", "Read the gauges of Nordhavn")
        self.press_key("Down", "Clip before smoothing after all")
        self.press_key("j", "Bump golang.org/x/net from 0.26.0 to 0.28.0")
        self.press_key("k", "Clip before smoothing after all")
        first = self.press_key("Up", "Read the gauges of Nordhavn")
        self.press_key("End", "Update to Go 1.23 and drop the vendored drivers")
        self.assertNotIn(first.name, self.rows())
        self.press_key("Home", "Read the gauges of Nordhavn")
        self.screen.key("Next")
        wait_until(lambda: self.chosen().box.y >= first.box.y + 300, "the row a page below")
        self.press_key("Prior", "Read the gauges of Nordhavn")
        self.screen.key("Return")
        wait_until(lambda: self.programs.calls("xdg-open"), "the opened pull request")
        self.assertEqual(
            self.programs.arguments("xdg-open"),
            [["https://github.com/harbourlight/tide-tables/pull/77"]],
        )
        self.panel_gone()
        self.run_tarnwick("--toggle")
        self.focused_panel()
        self.screen.key("Escape")
        self.panel_gone()

    def testSlashFindsAndEscapeEndsFindingFirst(self):
        window = self.open()
        self.wait_for_focus("list", "Pull requests")
        self.screen.type("/TOMASZ")
        wait_until(lambda: len(self.rows()) == 4, "what was found")
        self.reader.find(name="4 pull requests, Updated just now")
        self.reader.find("label", "4 of 13")
        self.press_key("Down", "Clip before smoothing after all")
        self.screen.key("slash")
        self.wait_for_focus("text", "Find pull requests")
        self.screen.key("Escape")
        self.reader.find(name="13 pull requests, Updated just now")
        self.wait_for_focus("list", "Pull requests")
        self.assertEqual(self.screen.windows(), [window])
        self.screen.key("Escape")
        self.panel_gone()

    def testRReloadsAndCommaOpensTheMenu(self):
        self.open(TIDE_TABLES)
        self.wait_for_focus("list", "Pull requests")
        asked = len(self.github.requests("repositories"))
        self.screen.key("r")
        wait_until(lambda: len(self.github.requests("repositories")) > asked, "a refresh")
        for key in ("comma", "Menu"):
            self.screen.key(key)
            self.reader.find("popup menu", "List options")
            self.screen.key("Escape")
            self.reader.wait_until_gone("popup menu", "List options")
        self.screen.key("comma")
        self.wait_for_focus("menu item", "Reload")
        self.screen.key("Down")
        self.wait_for_focus("menu item", "Polling")
        self.screen.key("Right", "Up")
        self.wait_for_focus("menu item", "1 hour")
        self.screen.key("Return")
        wait_until(lambda: self.setting("polling.interval") == "3600", "the setting")
        self.screen.key("Escape", "Escape")
        self.reader.wait_until_gone("popup menu", "List options")
        self.wait_for_focus("list", "Pull requests")

    def testTheRowsMenuCopies(self):
        self.open(TIDE_TABLES)
        self.wait_for_focus("list", "Pull requests")
        link = "https://github.com/harbourlight/tide-tables/pull/77"
        for keys, item, copied in (
            (("Up",), "Copy Branch Name", "nordhavn"),
            (("Up", "Up"), "Copy Link", link),
        ):
            self.press_key("Home", "Read the gauges of Nordhavn")
            self.screen.key("shift+F10")
            self.reader.find("menu item", item)
            self.screen.key(*keys)
            self.wait_for_focus("menu item", item)
            self.screen.key("Return")
            wait_until(lambda: self.clipboard() == copied, f"the clipboard after {item}")
            self.reader.wait_until_gone("menu item", item)

    def testTabGoesThroughHeaderListAndInfoBars(self):
        self.open(TIDE_TABLES)
        self.wait_for_focus("list", "Pull requests")
        self.github.serve(faults=["server-error@search"])
        self.action("reload")
        self.reader.find("push button", "Try Again")
        for role, name in (
            ("push button", "Try Again"),
            ("push button", "Dismiss"),
            ("push button", "Tarnwick"),
            ("push button", "Find"),
            ("push button", "List options"),
            ("list", "Pull requests"),
        ):
            self.screen.key("Tab")
            self.wait_for_focus(role, name)


class PickerTests(PanelTest):
    def testRepositoriesAreChosenByKeys(self):
        self.open(TIDE_TABLES)
        self.wait_for_focus("list", "Pull requests")
        self.screen.key("comma")
        self.wait_for_focus("menu item", "Reload")
        self.screen.key("Down", "Down", "Down", "Down", "Return")
        self.wait_for_focus("text", "Find a repository")
        self.reader.find("label", "1 selected")
        self.assertEqual(
            self.rows(),
            [
                "harbourlight, Select All",
                "harbourlight/ferry-api, Private, Go",
                "harbourlight/ferry-web, Public, TypeScript",
                "harbourlight/tide-tables, Public, Python",
                "robin-k, Select All",
                "robin-k/dotfiles, Public, Shell",
                "robin-k/pocket-atlas, Private, Archived",
            ],
        )
        self.screen.type("WEB")
        wait_until(lambda: len(self.rows()) == 2, "what was found")
        self.screen.key("Down")
        self.wait_for_focus("list item", "harbourlight/ferry-web, Public, TypeScript")
        asked = len(self.github.requests("search"))
        self.screen.key("space")
        self.reader.find("label", "2 selected")
        chosen = self.reader.find("list item", "harbourlight/ferry-web, Public, TypeScript")
        self.assertIn("checked", chosen.states)
        self.assertEqual(
            self.setting("filters.repositories"),
            "harbourlight/ferry-web, harbourlight/tide-tables",
        )
        self.screen.key("Up", "Up")
        self.wait_for_focus("text", "Find a repository")
        self.screen.key("shift+Tab")
        self.wait_for_focus("push button", "Done")
        self.screen.key("space")
        self.wait_for_focus("list", "Pull requests")
        self.reader.find(name="14 pull requests, Updated just now")
        self.assertGreater(len(self.github.requests("search")), asked)
