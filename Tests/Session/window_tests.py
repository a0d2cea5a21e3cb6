"""The panel where there is no tray, its size, and how the program ends."""

import os
import signal
import time

from desktop import SessionTest, wait_until
from desktop.notifications import Recorder
from desktop.waiting import stays


class WindowTests(SessionTest):
    def testWithoutATrayThePanelIsAnOrdinaryWindow(self):
        self.start_tarnwick()
        window = self.panel()
        self.assertIn(
            "_NET_WM_WINDOW_TYPE_NORMAL", self.screen.property(window, "_NET_WM_WINDOW_TYPE")
        )
        place = self.screen.place(window)
        self.assertEqual((place.width, place.height), (440, 620))

    def testWithoutATrayClosingTheWindowEndsTheProgram(self):
        program = self.start_tarnwick()
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus")
        self.screen.key("alt+F4")
        self.assertEqual(self.wait_for_end(program), 0)

    def testWithoutATrayEscapeMinimizesAndAnotherStartShowsItAgain(self):
        program = self.start_tarnwick()
        window = self.focused_panel()
        self.screen.key("Escape")
        wait_until(
            lambda: "Iconic" in self.screen.property(window, "WM_STATE"), "the minimized window"
        )
        stays(lambda: program.poll() is None, "the program", 0.5)
        self.assertEqual(self.run_tarnwick().returncode, 0)
        self.assertEqual(self.focused_panel(), window)

    def testWithoutATrayControlQEndsTheProgram(self):
        program = self.start_tarnwick()
        self.focused_panel()
        self.screen.key("ctrl+q")
        self.assertEqual(self.wait_for_end(program), 0)

    def testWithNotificationsOnClosingSaysOnceThatTheProgramKeepsRunning(self):
        Recorder(self.session)
        self.select(notifications_unblocked="true")
        program = self.start_tarnwick()
        window = self.focused_panel()
        self.screen.key("alt+F4")
        wait_until(lambda: "window.closingExplained=true" in self.read_settings(), "the card")
        self.assertEqual(self.screen.windows(), [window])
        self.screen.key("Return")
        self.panel_gone()
        stays(lambda: program.poll() is None, "the program", 0.5)
        self.assertEqual(self.run_tarnwick().returncode, 0)
        self.focused_panel()
        self.screen.key("alt+F4")
        self.panel_gone()
        stays(lambda: program.poll() is None, "the program", 0.5)

    def testWithNotificationsOnItStillEndsByASignalOrBecauseItIsAsked(self):
        Recorder(self.session)
        self.select(notifications_unblocked="true")
        program = self.start_tarnwick()
        self.focused_panel()
        self.action("quit")
        self.assertEqual(self.wait_for_end(program), 0)
        program = self.start_tarnwick()
        self.focused_panel()
        os.kill(program.pid, signal.SIGTERM)
        self.assertEqual(self.wait_for_end(program), -signal.SIGTERM)
        self.assertNotIn("closingExplained", self.read_settings())

    def testStartedInTheBackgroundItStaysThereWhenItsWindowIsClosed(self):
        program = self.start_tarnwick("--background")
        self.wait_for_name()
        self.activate()
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus")
        self.screen.key("alt+F4")
        self.panel_gone()
        stays(lambda: program.poll() is None, "the program", 0.5)

    def testTheBackgroundShowsNoWindowAndRefreshes(self):
        self.start_tarnwick("--background")
        wait_until(lambda: self.github.requests("repositories"), "a refresh")
        self.assertEqual(self.screen.windows(), [])

    def testTheSizeIsKept(self):
        program = self.start_tarnwick()
        window = self.panel()
        self.session.processes.run("xdotool", "windowsize", "--sync", str(window), "500", "640")
        self.action("quit")
        self.assertEqual(self.wait_for_end(program), 0)
        self.assertIn("panel.size=500x640", self.read_settings())
        self.start_tarnwick()
        place = self.screen.place(self.panel())
        self.assertEqual((place.width, place.height), (500, 640))

    def testTheWindowCannotBeSmallerThanItsContent(self):
        self.start_tarnwick()
        hints = self.screen.property(self.panel(), "WM_NORMAL_HINTS")
        self.assertIn("program specified minimum size: 360 by 320", hints)


class EndingTests(SessionTest):
    def endedBy(self, number):
        self.start_github(faults=["delay=60000@search"])
        program = self.start_tarnwick()
        wait_until(lambda: self.github.requests("search"), "a search under way")
        start = time.monotonic()
        os.kill(program.pid, number)
        status = self.wait_for_end(program)
        self.assertLess(time.monotonic() - start, 3)
        self.assertEqual(status, -number)

    def testSigtermDuringARefreshEndsItAndItsChildren(self):
        self.endedBy(signal.SIGTERM)

    def testSigintDuringARefreshEndsItAndItsChildren(self):
        self.endedBy(signal.SIGINT)

    def testTheCacheIsWholeWhenItEnds(self):
        program = self.start_tarnwick()
        wait_until(lambda: os.path.exists(self.cache_file), "the cache")
        os.kill(program.pid, signal.SIGTERM)
        self.assertEqual(self.wait_for_end(program), -signal.SIGTERM)
        listed = self.run_tarnwick("list", "--json", environment={"GH_CONFIG_DIR": "/nowhere"})
        self.assertIn('"refreshError":"Showing cached data: ', listed.stdout)

    def testTheEndOfTheDisplayEndsIt(self):
        program = self.start_tarnwick("--background")
        self.wait_for_name()
        self.session.processes.end(self.session.display)
        self.assertEqual(self.wait_for_end(program), 1)
