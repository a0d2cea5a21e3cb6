"""One long session, in which everything is used that the panel has. What it is for shows best in a
build with sanitizers: they speak up at the program's end."""

import os

from desktop import SessionTest, wait_until
from desktop.processes import output_of
from desktop.screen import Rectangle
from desktop.session import SCREEN

TOP = Rectangle(SCREEN[0] - 160, 0, 160, 30)
ROUNDS = 2
COUNT = "13 pull requests, Updated just now"


def is_of_a_reader(line):
    """Qt 6.8 says it of each question about something that is gone by then, which only the asker can avoid."""
    return line.startswith("qt.accessibility.atspi: Could not find accessible on path")


class DayTests(SessionTest):
    has_accessibility = True
    window_manager = ("xfwm4", "--compositor=off")

    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        self.host = self.session.start_xfce_panel()
        self.program = self.start_tarnwick("--background")
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")
        self.reader = self.accessibility()

    def testADayOfUseEndsWithoutAWord(self):
        for _ in range(ROUNDS):
            self.open_by_the_icon()
            self.move_and_find()
            self.read_in_the_browser()
            self.fail_to_edit()
            self.change_options()
            self.choose_repositories()
            self.lose_and_find_github()
            self.screen.key("Escape")
            self.panel_gone()
            self.restart_the_host()
        self.assertEqual(self.action("quit").returncode, 0)
        self.assertEqual(self.wait_for_end(self.program, 60), 0)
        self.assertEqual([line for line in output_of(self.program).splitlines() if not is_of_a_reader(line)], [])

    def open_by_the_icon(self):
        self.screen.click(*self.tray_icon(TOP).centre)
        self.focused_panel()
        self.reader.find(name=COUNT)

    def move_and_find(self):
        self.screen.key("Home", "j", "Down", "k", "Next", "End", "Prior", "Up")
        self.screen.type("/tomasz")
        self.reader.find("label", "4 of 13")
        self.screen.key("Down", "Down", "slash", "Escape")
        self.reader.find(name=COUNT)

    def read_in_the_browser(self):
        opened = len(self.programs.calls("xdg-open"))
        self.screen.key("Home", "Return")
        wait_until(lambda: len(self.programs.calls("xdg-open")) > opened, "the browser")
        self.panel_gone()
        self.run_tarnwick("--toggle")
        self.focused_panel()

    def fail_to_edit(self):
        self.screen.key("Home", "ctrl+e")
        self.reader.press("push button", "Copy error title and message")
        wait_until(lambda: "Unable to Open Editor" in self.clipboard(), "the copied message")
        self.reader.press("push button", "OK")
        self.reader.wait_until_gone("push button", "OK")

    def change_options(self):
        for submenu, item in (
            ("Settings", "Dark Mode"),
            ("Polling", "30 minutes"),
            ("Reviewers", "Myself"),
            ("Reviewers", "Involved"),
            ("Reviewers", "Any"),
            ("Checks", "Pass"),
            ("Checks", "Pass"),
        ):
            self.choose(submenu, item)
            self.screen.key("Escape", "Escape")
            self.reader.wait_until_gone("popup menu", "List options")
        # There is no server of notifications in this session.
        self.choose("Notifications", "New PR")
        self.reader.press("push button", "OK")
        self.reader.wait_until_gone("push button", "OK")
        self.reader.find(name=COUNT)

    def choose(self, submenu, item):
        self.reader.press("push button", "List options")
        self.reader.press("menu item", submenu)
        self.reader.press("menu item", item)

    def choose_repositories(self):
        self.reader.press("push button", "List options")
        self.reader.press("menu item", "Repositories")
        self.reader.find("label", "2 selected")
        self.screen.type("ferry-web")
        self.screen.key("Down", "space")
        self.reader.find("label", "3 selected")
        self.screen.key("space")
        self.reader.find("label", "2 selected")
        self.reader.press("push button", "Done")
        self.reader.find(name=COUNT)

    def lose_and_find_github(self):
        for trouble in ({"faults": ["server-error@search"]}, {"scenario": "signed-out"}):
            self.github.serve(**trouble)
            self.reload_until_it_fails()
            self.github.serve()
            self.reader.press("push button", "Try Again")
            self.reader.wait_until_gone("push button", "Dismiss")
        self.reader.find(name=COUNT)

    def reload_until_it_fails(self):
        """A refresh that is under way already may still have met the server before."""

        def fails():
            self.action("reload")
            return self.reader.find_all("push button", "Dismiss")

        wait_until(fails, "a refresh that fails")

    def restart_the_host(self):
        self.session.processes.end(self.host)
        self.host = self.session.start_xfce_panel()
