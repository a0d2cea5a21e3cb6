"""What the program does while there is nothing to do: nothing."""

import time

from desktop import SessionTest, wait_until
from desktop.kernel import wait_until_at_rest, wake_ups

# Far longer than any animation, and shorter than the time between two refreshes.
WHILE = 5.0


class RestTests(SessionTest):
    window_manager = ("xfwm4", "--compositor=off")

    def assertNothingWakes(self, program):
        wait_until_at_rest(program.pid)
        before = wake_ups(program.pid)
        # Not a wait for something to come about: this is the time that is looked at.
        time.sleep(WHILE)
        after = wake_ups(program.pid)
        woken = {name: after[name] - before.get(name, 0) for name in after}
        self.assertEqual({name: count for name, count in woken.items() if count}, {})

    def testInTheTrayNothingWakesIt(self):
        self.session.start_xfce_panel()
        program = self.start_tarnwick("--background")
        wait_until(lambda: self.github.requests("repositories"), "the first refresh")
        self.assertNothingWakes(program)

    def testNothingWakesItAfterThePanelWasShown(self):
        self.session.start_xfce_panel()
        program = self.start_tarnwick("--background")
        self.wait_for_name()
        self.activate()
        self.panel()
        wait_until(lambda: self.github.requests("repositories"), "the first refresh")
        self.action("toggle")
        self.panel_gone()
        self.assertNothingWakes(program)
