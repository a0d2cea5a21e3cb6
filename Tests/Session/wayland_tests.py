"""The program on a Wayland session without an X server."""

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
            'set_title("Tarnwick")',
            'set_app_id("dev.tarnwick.Tarnwick")',
            "set_min_size(360, 320)",
            ".attach(wl_buffer@",
        ):
            wait_until(lambda request=request: request in output_of(program), request)

    def testItAnswersOnTheBusAndQuits(self):
        program = self.start("--background")
        self.wait_for_name()
        self.assertNotIn("set_app_id", output_of(program))
        self.assertEqual(self.run_tarnwick("--toggle").returncode, 0)
        wait_until(lambda: "set_app_id" in output_of(program), "a window")
        self.assertEqual(self.action("quit").returncode, 0)
        self.assertEqual(self.wait_for_end(program), 0)
