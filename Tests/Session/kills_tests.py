"""Programs that are killed at any moment: nothing is damaged, and nothing is left behind for good.

TARNWICK_KILLS says how many are killed, else 60."""

import json
import os
import random
import re
import signal
import sys
import threading
import time

from desktop import SessionTest, wait_until
from desktop.quick_gh import remembering_gh

KILLS = int(os.environ.get("TARNWICK_KILLS", "60"))
LANES = 3

ALL = ("harbourlight/ferry-api", "harbourlight/ferry-web", "harbourlight/tide-tables")
LEFTOVER = re.compile(r"\.[A-Za-z0-9]{6}$")


class KillTests(SessionTest):
    def setUp(self):
        super().setUp()
        self.start_github()
        answers = os.path.join(self.session.folder, "answers")
        self.through = remembering_gh(self.programs, answers)
        self.select(*ALL, notifications_unblocked="true")
        self.settings_folder = os.path.dirname(self.settings_file)
        self.data_folder = os.path.dirname(self.cache_file)
        self.killed = 0
        self.ended_before = 0
        self.lock = threading.Lock()

    def command(self):
        """What is started, and how long it takes at most."""
        chance = random.random()
        if chance < 0.2:
            return (), self.panel_time
        if chance < 0.6:
            return ("list",), self.list_time
        verb = random.choice(("select", "unselect"))
        return ("repositories", verb, *random.sample(ALL, random.randint(1, 3))), self.list_time

    def run_well(self, *arguments):
        """Runs it to its end, and yields how long that takes."""
        start = time.monotonic()
        process = self.start_tarnwick(*arguments, through=self.through)
        self.assertEqual(self.wait_for_end(process), 0)
        return time.monotonic() - start

    def kill_one(self):
        arguments, longest = self.command()
        with self.lock:
            process = self.start_tarnwick(*arguments, through=self.through)
        # Not a wait for something: any moment is the right one.
        time.sleep(random.uniform(0, longest * 1.2))
        was_running = process.poll() is None
        if was_running:
            os.kill(process.pid, signal.SIGKILL)
        process.wait()
        os.remove(process.log)
        with self.lock:
            self.session.processes.forget(process)
            self.killed += was_running
            self.ended_before += not was_running
        self.check_files()

    def check_files(self):
        text = self.read_settings()
        self.assertTrue(text.startswith("[General]\n") and text.endswith("\n"), text)
        lines = dict(line.split("=", 1) for line in text.splitlines()[1:])
        selected = lines["filters.repositories"].replace("@Empty()", "")
        self.assertLessEqual(set(filter(None, selected.split(", "))), set(ALL))
        self.assertEqual(lines["notifications.unblocked"], "true")
        self.assertEqual(lines["filters.reviewers"], "Any")
        for name in os.listdir(self.data_folder) if os.path.isdir(self.data_folder) else ():
            if name.endswith(".json"):
                with open(os.path.join(self.data_folder, name), encoding="utf-8") as file:
                    json.load(file)

    def leftovers(self):
        return [
            os.path.join(folder, name)
            for folder in (self.settings_folder, self.data_folder)
            for name in os.listdir(folder)
            if LEFTOVER.search(name)
        ]

    def run_to_the_end(self):
        """A change of the settings, a list and a panel that writes whatever it keeps."""
        self.run_well("repositories", "unselect", "--all")
        self.run_well("repositories", "select", *ALL)
        self.run_well("list")
        before = os.stat(self.cache_file).st_ino, os.stat(self.cache_file).st_mtime_ns
        panel = self.start_tarnwick(through=self.through)
        wait_until(
            lambda: (os.stat(self.cache_file).st_ino, os.stat(self.cache_file).st_mtime_ns)
            != before,
            "a refresh of the panel",
        )
        panel.terminate()
        self.wait_for_end(panel)

    def testKilledProgramsDamageNothingAndLeaveNothing(self):
        self.run_to_the_end()
        self.list_time = max(self.run_well("list") for _ in range(3))
        self.panel_time = 2 * self.list_time
        failures = []

        def work():
            while not failures and self.killed < KILLS:
                try:
                    self.kill_one()
                except Exception as error:  # A thread's own would be lost.
                    failures.append(error)

        lanes = [threading.Thread(target=work) for _ in range(LANES)]
        for lane in lanes:
            lane.start()
        for lane in lanes:
            lane.join()
        if failures:
            raise failures[0]
        left = self.leftovers()
        print(
            f"{self.killed} killed, {self.ended_before} ended before that, {len(left)} files left",
            file=sys.stderr,
        )
        for file in left:
            minutes_ago = time.time() - 61
            os.utime(file, (minutes_ago, minutes_ago))
        self.run_to_the_end()
        self.check_files()
        self.assertEqual(self.leftovers(), [])
