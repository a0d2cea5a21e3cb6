"""What has changed since the user looked, and what the user wants out of sight."""

import re

from desktop import SessionTest, wait_until
from desktop.github import scenario_named

TIDE_TABLES = "harbourlight/tide-tables"
NORDHAVN = "Read the gauges of Nordhavn"
NOW = "2026-03-01T12:00:00Z"


class LookedTest(SessionTest):
    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        self.scenario = scenario_named("everyday")
        self.start_github()
        self.github.serve(self.scenario, now=NOW)
        self.select(TIDE_TABLES)
        self.start_tarnwick("--toggle")
        self.reader = self.accessibility()
        self.focused_panel()
        self.row(NORDHAVN)

    def row(self, title):
        """The row of this title, once it is there."""
        return wait_until(lambda: self.row_now(title), f'the row "{title}"')

    def row_now(self, title):
        rows = self.reader.find_all("list item")
        return next((row for row in rows if row.name.startswith(f"{title}, ")), None)

    def pull_request(self, number):
        return next(
            found
            for found in self.scenario["pullRequests"]
            if (found["repository"], found["number"]) == (TIDE_TABLES, number)
        )

    def choose(self, title, *items):
        """Opens the menu of the row and chooses these, one after the other."""

        def is_chosen():
            return "focused" in self.row(title).states

        self.screen.key("Home")
        for _ in range(len(self.reader.names("list item"))):
            if is_chosen():
                break
            self.screen.key("Down")
        wait_until(is_chosen, f'the selection of "{title}"')
        self.screen.key("shift+F10")
        for item in items:
            self.reader.press("menu item", item)
        self.reader.wait_until_gone("menu item", items[-1])

    def refresh(self):
        asked = len(self.github.requests("repositories"))
        self.screen.key("r")
        wait_until(lambda: len(self.github.requests("repositories")) > asked, "a refresh")

    def listed(self):
        return self.run_tarnwick("list")


class MuteTests(LookedTest):
    def testAMutedRowIsOutOfSightUntilItChanges(self):
        count = len(self.reader.names("list item"))
        self.choose(NORDHAVN, "Mute", "Until It Changes")
        chip = "Show 1 hidden pull request"
        self.assertEqual(self.reader.find("push button", chip).description, "1 muted")
        self.assertIsNone(self.row_now(NORDHAVN))
        self.assertEqual(len(self.reader.names("list item")), count - 1)
        self.assertTrue(
            any("focused" in row.states for row in self.reader.find_all("list item")),
            "the next row is selected",
        )
        self.assertNotIn(NORDHAVN, self.listed().stdout)
        self.refresh()
        self.screen.key("h")
        row = self.row(NORDHAVN)
        self.assertTrue(row.description.startswith("Muted until it changes. "), row.description)
        self.screen.key("h")
        self.reader.find("push button", chip)

        self.pull_request(77)["isDraft"] = True
        self.github.serve(self.scenario, now=NOW)
        self.refresh()
        self.row(NORDHAVN)
        self.reader.wait_until_gone("push button", chip)
        self.assertNotIn("mutes.pullRequest.", self.read_settings())

    def testAnAuthorIsMutedAndUnmutedInTheOptions(self):
        swap = "Swap the order of smoothing and clipping"
        clip = "Clip before smoothing after all"
        self.choose(swap, "Mute", "All by tomasz-w")
        self.reader.find("push button", "Show 2 hidden pull requests")
        self.assertIsNone(self.row_now(clip))
        self.reader.press("push button", "List options")
        self.reader.press("menu item", "Muted Authors")
        self.assertIn("checked", self.reader.find("menu item", "tomasz-w").states)
        self.reader.press("menu item", "tomasz-w")
        self.screen.key("Escape", "Escape")
        self.row(swap)
        self.row(clip)
        self.choose(clip, "Mute", "All by tomasz-w")
        self.reader.find("push button", "Show 2 hidden pull requests")
        self.screen.key("h")
        self.assertIn("Author muted. ", self.row(swap).description)
        self.choose(swap, "Unmute tomasz-w")
        self.reader.wait_until_gone("push button", "Hide 2 pull requests")

    def testAMuteForADayIsFollowedFromAnotherProcess(self):
        self.choose(NORDHAVN, "Mute", "For a Day")
        self.screen.key("h")
        self.assertRegex(self.row(NORDHAVN).description, r"^Muted until \d\d:\d\d\. ")
        settings = self.read_settings()
        line = re.search(r"mutes\.pullRequest\..*=@Date\(.*\)\n", settings)[0]
        self.write_settings(settings.replace("[General]\n", "").replace(line, ""))
        self.reader.wait_until_gone("push button", "Hide 1 pull request")
        self.assertFalse(self.row(NORDHAVN).description.startswith("Muted"))
