"""A desktop session with the large sample account, or with its cache only."""

import os
import sys

from gi.repository import Gio, GLib

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "Tests", "Session"))

from desktop.github import GitHub  # noqa: E402
from desktop.session import Session  # noqa: E402

NAME = "dev.tarnwick.Tarnwick"
PATH = "/dev/tarnwick/Tarnwick"

SETTINGS = """filters.reviewers=Any
filters.status=Draft, Open
polling.interval=1800
"""

# The panel's first size, also used for the baseline windows.
SIZE = (440, 620)


class Place:
    """A session with a display and a bus, settings that select everything, and the cache of a
    refresh."""

    def __init__(self, programs):
        self.programs = programs
        self.session = Session()
        self.session.start_display()
        self.session.start_bus()
        folder = os.path.join(self.session.folder, "github")
        self.github = GitHub(self.session.processes, programs, folder, "large")
        self.session.environment["GH_CONFIG_DIR"] = self.github.configuration
        self.rows = self._fill()

    def _run(self, *arguments):
        answer = self.session.processes.run(
            os.path.join(self.programs, "tarnwick"), *arguments, limit=120
        )
        if answer.returncode != 0:
            raise AssertionError(f"tarnwick {arguments[0]} failed: {answer.stderr}")
        return answer.stdout

    def _fill(self):
        self._run("repositories", "select", "--all")
        with open(self._settings_file, "a", encoding="utf-8") as file:
            file.write(SETTINGS)
        return self._run("list", "--json").count('"depth":')

    @property
    def _settings_file(self):
        return os.path.join(self.session.environment["XDG_CONFIG_HOME"], NAME, "settings.ini")

    def lose_github(self):
        """Disconnects `gh` from the sample."""
        self.github.end()

    def keep_details(self, is_kept):
        """Whether programs started from now on find the stored details."""
        data = os.path.join(self.session.environment["XDG_DATA_HOME"], NAME, "pull-request-details.json")
        away = f"{data}.away"
        if is_kept and os.path.exists(away):
            os.rename(away, data)
        elif not is_kept and not os.path.exists(away):
            os.rename(data, away)

    @property
    def display(self):
        return self.session.environment["DISPLAY"]

    def start_tray(self):
        """Starts a window manager and a desktop panel with a tray."""
        self.session.start_window_manager("xfwm4", "--compositor=off")
        self.session.start_xfce_panel()

    def panel(self):
        """Waits for the panel and returns its window."""
        return self.session.screen.wait_for_window()

    def start(self, program, *arguments):
        return self.session.processes.start(os.path.join(self.programs, program), *arguments)

    def end(self, process):
        self.session.processes.end(process)

    def close(self):
        self.session.end(keep=False)


class Bus:
    """Calls the running program without starting a process."""

    def __init__(self, session):
        flags = (
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        )
        self._connection = Gio.DBusConnection.new_for_address_sync(
            session.environment["DBUS_SESSION_BUS_ADDRESS"], flags, None, None
        )

    def toggle(self):
        """Shows or hides the panel without waiting."""
        arguments = GLib.Variant("(sava{sv})", ("toggle", [], {}))
        self._connection.call(
            NAME,
            PATH,
            "org.freedesktop.Application",
            "ActivateAction",
            arguments,
            None,
            Gio.DBusCallFlags.NONE,
            -1,
            None,
            None,
        )
        self._connection.flush_sync(None)
