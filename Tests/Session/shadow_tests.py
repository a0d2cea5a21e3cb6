"""The panel's own shadow, which is there only where the window system blends windows."""

from desktop import SessionTest, wait_until
from desktop.screen import Rectangle
from desktop.session import SCREEN

TOP = Rectangle(SCREEN[0] - 160, 0, 160, 30)

# What lies behind the panel.
GRAY = (192, 192, 192)


class ShadowTest(SessionTest):
    def open_panel(self):
        """Opens the panel over something gray, and returns where it is."""
        self.session.processes.start(
            "xmessage", "-bg", "#c0c0c0", "-geometry", "1200x700+0+60", " " * 4
        )
        self.screen.wait_for_window("xmessage")
        self.session.start_xfce_panel()
        self.start_tarnwick("--background")
        self.screen.click(*self.tray_icon(TOP).centre)
        return self.screen.place(self.focused_panel())

    def beside(self, panel, width=40):
        """The pixels left of the panel at half its height, from the panel on."""
        row = self.screen.pixels(Rectangle(panel.x - width, panel.centre[1], width, 1))[0]
        return row[::-1]


class BlendingTests(ShadowTest):
    window_manager = ("xfwm4", "--compositor=on")

    def testThePanelCastsAShadowThatGoesWithIt(self):
        panel = self.open_panel()
        wait_until(lambda: self.beside(panel)[1][0] < 180, "the shadow")
        pixels = self.beside(panel)
        self.assertEqual(pixels, sorted(pixels), "it fades out")
        self.assertGreater(pixels[-1][0], 180)
        below = self.screen.pixels(Rectangle(panel.centre[0], panel.bottom + 2, 1, 1))[0][0]
        self.assertLess(below[0], pixels[1][0])
        # It takes no clicks and has no part in the panel's size.
        self.assertEqual((panel.width, panel.height), (440, 620))
        self.screen.key("Escape")
        self.panel_gone()
        wait_until(lambda: set(self.beside(panel)) == {GRAY}, "the end of the shadow")


class CuttingTests(ShadowTest):
    window_manager = ("xfwm4", "--compositor=off")

    def testWithoutBlendingThereIsNone(self):
        panel = self.open_panel()
        wait_until(lambda: set(self.beside(panel)) == {GRAY}, "what is behind the panel")
