"""One program to a session, and how others talk to it."""

import os
import signal
import time

from desktop import SessionTest, wait_until
from desktop.case import APPLICATION, NAME, PATH
from desktop.processes import output_of
from desktop.quick_gh import in_place_of_gh


class InstanceTests(SessionTest):
    def testASecondStartShowsThePanelOfTheFirstAndEnds(self):
        first = self.start_tarnwick("--background")
        self.wait_for_name()
        second = self.run_tarnwick()
        self.assertEqual((second.returncode, second.stdout, second.stderr), (0, "", ""))
        self.panel()
        self.assertIsNone(first.poll())

    def testASecondStartInTheBackgroundChangesNothing(self):
        self.start_tarnwick()
        window = self.panel()
        self.assertEqual(self.run_tarnwick("--background").returncode, 0)
        self.assertEqual(self.screen.windows(), [window])

    def testToggleShowsAndHides(self):
        self.start_tarnwick("--toggle")
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        self.assertEqual(self.run_tarnwick("--toggle").returncode, 0)
        self.panel_gone()
        self.assertEqual(self.run_tarnwick("--toggle").returncode, 0)
        self.panel()

    def testOfManyStartsAtOnceOneRemains(self):
        programs = [self.start_tarnwick() for _ in range(8)]
        self.wait_for_name()
        wait_until(
            lambda: sum(program.poll() is None for program in programs) == 1, "one program"
        )
        ended = [program.returncode for program in programs if program.returncode is not None]
        self.assertEqual(ended, [0] * 7)
        self.assertEqual("".join(output_of(program) for program in programs), "")
        self.assertEqual(len(self.screen.windows()), 1)

    def testAStartWhileTheFirstEndsBecomesTheFirst(self):
        for end in ("quit", "SIGTERM"):
            with self.subTest(end=end):
                first, running = self.start_with_a_gh_that_ends_late()
                if end == "quit":
                    self.action("quit")
                else:
                    first.terminate()
                second = self.start_tarnwick()
                self.panel()
                self.assertIsNone(first.poll())
                os.unlink(running)
                self.assertEqual(self.wait_for_end(first), 0 if end == "quit" else -signal.SIGTERM)
                self.assertIsNone(second.poll())
                self.action("quit")
                self.wait_for_end(second)

    def start_with_a_gh_that_ends_late(self):
        """The program with a child, which it waits for, and the file without which the child
        ends."""
        running = os.path.join(self.session.folder, "running")
        late = f"trap '' TERM; touch {running}; while [ -e {running} ]; do sleep 0.05; done"
        through = in_place_of_gh(self.programs.add("late-gh", f"#!/bin/sh\n{late}\n"))
        program = self.start_tarnwick("--background", through=through)
        wait_until(lambda: os.path.exists(running), "a run of gh")
        self.wait_for_name()
        return program, running

    def testTheInterfaceActivatesTogglesAndQuits(self):
        program = self.start_tarnwick("--background")
        self.wait_for_name()
        self.assertEqual(self.activate().returncode, 0)
        window = self.panel()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the panel")
        self.action("toggle")
        self.panel_gone()
        opened = self.session.call(NAME, PATH, f"{APPLICATION}.Open", "['file:///tmp/x']", "{}")
        self.assertEqual(opened.returncode, 0)
        self.panel()
        self.assertEqual(self.action("quit").returncode, 0)
        self.assertEqual(self.wait_for_end(program), 0)

    def testTheInterfaceReloads(self):
        self.start_tarnwick("--background")
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")
        searches = len(self.github.requests("search"))
        self.assertEqual(self.action("reload").returncode, 0)
        wait_until(lambda: len(self.github.requests("search")) > searches, "a refresh")

    def testTheInterfaceRefusesWhatItDoesNotKnow(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        unknown = self.action("dance")
        self.assertEqual(unknown.returncode, 1)
        self.assertIn('Unknown action "dance".', unknown.stderr)
        wrong = self.session.call(NAME, PATH, f"{APPLICATION}.Activate", "7")
        self.assertEqual(wrong.returncode, 1)

    def testTheInterfaceDescribesItself(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        described = self.session.processes.run(
            "gdbus", "introspect", "--session", f"--dest={NAME}", f"--object-path={PATH}"
        )
        for member in ("Activate(in  a{sv} platform_data)", "in  as uris", "in  av parameter"):
            self.assertIn(member, described.stdout)

    def testActivationTakesTheStartupId(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        data = "{'desktop-startup-id': <'test-1_TIME0'>, 'activation-token': <'token'>}"
        self.assertEqual(self.activate(data).returncode, 0)
        self.panel()

    def testALaterStartIsQuick(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        start = time.monotonic()
        self.run_tarnwick("--toggle")
        self.assertLess(time.monotonic() - start, 2)
        self.panel()


class NoBusTests(SessionTest):
    has_bus = False

    def setUp(self):
        super().setUp()
        self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere/bus"

    def testWithoutABusEveryStartIsItsOwn(self):
        first = self.start_tarnwick()
        self.panel()
        second = self.start_tarnwick()
        wait_until(lambda: len(self.screen.windows()) == 2, "two windows")
        self.assertIsNone(first.poll())
        self.assertIsNone(second.poll())
        self.assertEqual(output_of(first) + output_of(second), "")

    def testWithoutABusTheListComesAllTheSame(self):
        self.start_tarnwick()
        wait_until(lambda: self.github.requests("repositories"), "a refresh")


class NoDisplayTests(SessionTest):
    def testWithoutADisplayItSaysSo(self):
        for display in (None, ":9999"):
            answer = self.run_tarnwick(environment={"DISPLAY": display, "WAYLAND_DISPLAY": None})
            self.assertEqual(answer.returncode, 1)
            self.assertEqual(
                answer.stderr,
                'No display is available. "tarnwick list" prints the pull requests in a terminal.\n',
            )
