"""The tray and the search of Plasma, by its own programs. Where they are not installed, which is usual
away from Plasma, there is nothing to see."""

import glob
import os
import shutil
import unittest

from desktop import SessionTest, wait_until
from desktop.case import NAME, ROOT
from desktop.screen import Rectangle
from desktop.session import SCREEN

BOTTOM = Rectangle(SCREEN[0] // 2, SCREEN[1] - 48, SCREEN[0] // 2, 48)
RUNNER = os.path.join(ROOT, "packaging", f"{NAME}.krunner.desktop")


class PlasmaTest(SessionTest):
    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        # Without a graphics card.
        self.session.environment.update({"QT_QUICK_BACKEND": "software", "KWIN_COMPOSE": "N"})


@unittest.skipUnless(shutil.which("plasmashell"), "plasmashell is not installed")
class TrayTests(PlasmaTest):
    def testAClickOnTheIconOpensThePanelAboveItAndTheNextClosesIt(self):
        self.session.processes.start("kded5")
        wait_until(lambda: self.session.owns_name("org.kde.kded5"), "Plasma's services")
        # It answers once it has made its caches.
        call = ("gdbus", "call", "--session", "--timeout=100", "--dest=org.kde.kded5", "--object-path=/kded")
        self.session.processes.run(*call, "--method=org.kde.kded5.loadModule", "statusnotifierwatcher", limit=100)
        wait_until(lambda: self.session.owns_name("org.kde.StatusNotifierWatcher"), "the tray's watcher")
        self.session.processes.start(*glob.glob("/usr/lib/*/libexec/kactivitymanagerd")[:1])
        wait_until(lambda: self.session.owns_name("org.kde.ActivityManager"), "Plasma's activities")
        self.session.processes.start("plasmashell", "--no-respawn")
        self.start_tarnwick("--background")
        icon = self.tray_icon(BOTTOM)
        self.screen.click(*icon.centre)
        place = self.screen.place(self.panel())
        self.assertLess(place.bottom, icon.y)
        self.screen.click(*icon.centre)
        self.panel_gone()


@unittest.skipUnless(shutil.which("krunner"), "krunner is not installed")
class SearchTests(PlasmaTest):
    def testAMatchOpensInTheBrowser(self):
        plugins = os.path.join(self.session.environment["XDG_DATA_HOME"], "krunner", "dbusplugins")
        os.makedirs(plugins)
        shutil.copy(RUNNER, plugins)
        self.start_tarnwick("--background")
        self.wait_for_name()
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")
        self.session.processes.start("krunner", "--daemon")
        wait_until(lambda: self.session.owns_name("org.kde.krunner"), "krunner")
        self.session.call("org.kde.krunner", "/App", "org.kde.krunner.App.query", "bookings")
        self.screen.wait_for_window("krunner")

        def opened():
            self.screen.key("Return")
            return "/harbourlight/ferry-api/pull/412" in str(self.programs.arguments("xdg-open"))

        wait_until(opened, "the browser")
