"""Notification servers, of which a session has one or none."""

import glob
import json
import os
from typing import NamedTuple

from .waiting import wait_until

NAME = "org.freedesktop.Notifications"
RECORDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "notification_server.py")


class Shown(NamedTuple):
    program: str
    summary: str
    body: str


class Dunst:
    """Shows notifications in a window without buttons, which takes clicks."""

    def __init__(self, session):
        self._session = session
        session.processes.start("dunst")
        wait_until(lambda: session.owns_name(NAME), "dunst")

    def _control(self, *command):
        return self._session.processes.run("dunstctl", *command).stdout.strip()

    def count(self):
        """How many there are to be seen."""
        return int(self._control("count", "displayed") or 0)

    def click(self):
        """Clicks on what is shown with the button that dunst takes for its default action."""
        window = self._session.screen.wait_for_window("^Dunst$")
        self._session.screen.click(*self._session.screen.place(window).centre, button=2)

    def close(self):
        """Closes all that is shown and tells it, with what went before, the latest first."""
        self._control("close-all")
        history = json.loads(self._control("history"))["data"][0]
        fields = ("appname", "summary", "body")
        return [Shown(*(entry[field]["data"] for field in fields)) for entry in history]


class XfceNotifyd:
    """Shows notifications in windows with buttons."""

    def __init__(self, session):
        self._session = session
        session.start_xfconf()
        session.processes.start(*glob.glob("/usr/lib/*/xfce4/notifyd/xfce4-notifyd")[:1])
        wait_until(lambda: session.owns_name(NAME), "xfce4-notifyd")
        self._signals = session.processes.start(
            "gdbus", "monitor", "--session", f"--dest={NAME}"
        )
        wait_until(lambda: session.processes.says(self._signals, "is owned by"), "the monitor")

    def windows(self):
        return self._session.screen.windows("^xfce4-notifyd$")

    def says(self, signal):
        """Whether it has sent this signal, as gdbus writes it."""
        return self._session.processes.says(self._signals, signal)


class Recorder:
    """Shows nothing, records everything, and clicks as it is told."""

    def __init__(self, session):
        self._file = os.path.join(session.folder, "notifications")
        self._process = session.processes.start_piped("/usr/bin/python3", RECORDER, self._file)
        wait_until(lambda: session.owns_name(NAME), "the notification server")

    def requests(self):
        if not os.path.exists(self._file):
            return []
        with open(self._file, encoding="utf-8") as file:
            return [json.loads(line) for line in file.read().splitlines()]

    def click(self, number, action, token):
        self._process.stdin.write(f"{number} {action} {token}\n")
        self._process.stdin.flush()
