"""What test scripts build on."""

import os
import re
import sys
import tempfile
import unittest

from .accessibility import Accessibility
from .github import GitHub
from .processes import ended
from .programs import Programs
from .session import Session
from .waiting import wait_until

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as cmake_file:
    VERSION = re.search(r"^project\(Tarnwick VERSION ([\d.]+)", cmake_file.read(), re.MULTILINE)[1]
PROGRAMS = os.environ.get("TARNWICK_PROGRAMS", os.path.join(ROOT, "build", "dev", "bin"))

NAME = "dev.tarnwick.Tarnwick"
PATH = "/dev/tarnwick/Tarnwick"
APPLICATION = "org.freedesktop.Application"

# Two repositories with 13 pull requests, some of them blocked.
REPOSITORIES = ("harbourlight/ferry-api", "harbourlight/tide-tables")


class SessionTest(unittest.TestCase):
    """Each test gets a session with a display, a bus and a window manager, and a home of its own. A
    class that wants another one says so here."""

    has_bus = True
    has_accessibility = False
    window_manager = ("openbox",)

    def setUp(self):
        self.session = Session()
        self.addCleanup(self._end)
        self.session.start_display()
        if self.has_bus:
            self.session.start_bus()
        if self.has_accessibility:
            self.session.start_accessibility()
            self._screen_reader = Accessibility(self.session.processes)
        if self.window_manager:
            self.session.start_window_manager(*self.window_manager)
        self.screen = self.session.screen
        self.programs = Programs(
            os.path.join(self.session.folder, "programs"), self.session.environment
        )
        self.github = None

    def _end(self):
        failed = any(
            error for _, error in getattr(self._outcome, "errors", []) if error
        ) or not self._succeeded()
        if failed and self.session.screen is not None:
            self.session.screen.screenshot(os.path.join(self.session.logs, "screen.png"))
            place = self.session.logs
            print(f"\n{self.id()}: logs and a picture of the screen lie in {place}", file=sys.stderr)
            print(self.session.screen.tree(), file=sys.stderr)
            print(self.session.processes.what_was_said(), file=sys.stderr)
        self.session.end(keep=failed)

    def _succeeded(self):
        result = getattr(self._outcome, "result", None)
        troubles = (getattr(result, "failures", []) or []) + (getattr(result, "errors", []) or [])
        return all(test is not self for test, _ in troubles)

    # The program

    def start_github(self, scenario="everyday", faults=()):
        """Makes gh ask the sample GitHub, as programs that start from here on see it."""
        folder = tempfile.mkdtemp(dir=self.session.folder)
        self.github = GitHub(self.session.processes, PROGRAMS, folder, scenario, faults)
        self.session.environment["GH_CONFIG_DIR"] = self.github.configuration
        return self.github

    def select(self, *repositories, **settings):
        """Writes settings as an earlier run would have left them: these repositories, any reviewer,
        drafts too, and what else is given with "_" in the place of "."."""
        lines = {
            "filters.repositories": ", ".join(repositories or REPOSITORIES),
            "filters.repositoriesConfigured": "true",
            "filters.reviewers": "Any",
            "filters.status": "Draft, Open",
            "filters.schemaVersion": "2",
            **{name.replace("_", "."): value for name, value in settings.items()},
        }
        self.write_settings("".join(f"{name}={value}\n" for name, value in lines.items()))

    @property
    def settings_file(self):
        return os.path.join(self.session.environment["XDG_CONFIG_HOME"], NAME, "settings.ini")

    @property
    def cache_file(self):
        return os.path.join(self.session.environment["XDG_DATA_HOME"], NAME, "pull-requests.json")

    def write_settings(self, lines):
        os.makedirs(os.path.dirname(self.settings_file), exist_ok=True)
        with open(self.settings_file, "w", encoding="utf-8") as file:
            file.write("[General]\n" + lines)

    def read_settings(self):
        with open(self.settings_file, encoding="utf-8") as file:
            return file.read()

    def start_tarnwick(self, *arguments, environment=None, through=None):
        """Starts the program; on the sample GitHub with some repositories selected, where the test
        arranged nothing else. `through` makes of a command one that starts it, as `Mounts.command`
        does."""
        if self.github is None:
            self.start_github()
        if not os.path.exists(self.settings_file):
            self.select()
        command = (os.path.join(PROGRAMS, "tarnwick"), *arguments)
        if through:
            command = through(*command)
        return self.session.processes.start(*command, environment=environment)

    def run_tarnwick(self, *arguments, environment=None, through=None):
        """Runs it to its end."""
        command = (os.path.join(PROGRAMS, "tarnwick"), *arguments)
        if through:
            command = through(*command)
        return self.session.processes.run(*command, environment=environment)

    def wait_for_end(self, process, limit=20):
        """The exit status once the program and what it started has ended."""
        wait_until(lambda: ended(process), "the end of the program", limit)
        return process.wait()

    # The program on the bus

    def activate(self, platform_data="{}"):
        return self.session.call(NAME, PATH, f"{APPLICATION}.Activate", platform_data)

    def action(self, name, parameters="[]", platform_data="{}"):
        return self.session.call(
            NAME, PATH, f"{APPLICATION}.ActivateAction", name, parameters, platform_data
        )

    def wait_for_name(self):
        wait_until(lambda: self.session.owns_name(NAME), "the program on the bus")

    def reload(self):
        """Has the list refreshed, and waits until all that it takes was asked for."""
        asked = len(self.github.requests("repositories"))
        self.action("reload")
        wait_until(lambda: len(self.github.requests("repositories")) > asked, "a refresh")

    # What is to be seen

    def focused_panel(self):
        """The panel's window once it is in sight and has the keyboard."""
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        return window

    def clipboard(self):
        """The text that was copied last."""
        return self.session.processes.run("xclip", "-out", "-selection", "clipboard").stdout

    def panel(self):
        """The panel's window once it is in sight."""
        return self.screen.wait_for_window()

    def panel_gone(self):
        self.screen.wait_for_no_window()

    def tray_icon(self, area):
        """Where the program's green drop is in this area of the desktop's panel, once it is
        there."""

        def find():
            return self.screen.find(area, is_drop)

        return wait_until(find, "the icon in the tray")

    def accessibility(self):
        """The session's screen reader. Requires: `has_accessibility`."""
        return self._screen_reader


def is_drop(red, green, blue):
    return green > red + 80 and green > blue + 15
