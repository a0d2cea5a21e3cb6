"""The program on a Wayland session without an X server."""

import re

from desktop import SessionTest, wait_until
from desktop.processes import output_of


class WaylandTests(SessionTest):
    window_manager = None

    def setUp(self):
        super().setUp()
        self.session.start_weston()

    def start(self, *arguments):
        """Starts the program so that it tells what it asks of the compositor."""
        return self.start_tarnwick(*arguments, environment={"WAYLAND_DEBUG": "1"})

    def testItOpensAnOrdinaryWindow(self):
        program = self.start()
        for request in (
            r'set_title\("Tarnwick"\)',
            r'set_app_id\("dev.tarnwick.Tarnwick"\)',
            r"set_min_size\(360, 320\)",
            # Libwayland's separator is "@", from 1.23 on "#".
            r"\.attach\(wl_buffer[@#]",
        ):
            wait_until(lambda request=request: re.search(request, output_of(program)), request)

    def testItAnswersOnTheBusAndQuits(self):
        program = self.start("--background")
        self.wait_for_name()
        self.assertNotIn("set_app_id", output_of(program))
        self.assertEqual(self.run_tarnwick("--toggle").returncode, 0)
        wait_until(lambda: "set_app_id" in output_of(program), "a window")
        self.assertEqual(self.action("quit").returncode, 0)
        self.assertEqual(self.wait_for_end(program), 0)
