"""The program's place among those that start with the session."""

import os

from desktop import SessionTest, wait_until
from desktop.case import NAME, PROGRAMS


class LoginTests(SessionTest):
    has_accessibility = True

    def testOpenAtLoginWritesAnAutostartEntryAndTakesItAway(self):
        self.start_tarnwick("--toggle")
        self.focused_panel()
        reader = self.accessibility()
        reader.press("push button", "List options")
        reader.press("menu item", "Settings")
        self.assertNotIn("checked", reader.find("menu item", "Open at Login").states)
        entry = os.path.join(
            self.session.environment["XDG_CONFIG_HOME"], "autostart", f"{NAME}.desktop"
        )
        self.assertFalse(os.path.exists(entry))

        reader.press("menu item", "Open at Login")
        wait_until(lambda: os.path.exists(entry), "the autostart entry")
        checked = self.session.processes.run("desktop-file-validate", entry)
        self.assertEqual((checked.returncode, checked.stdout), (0, ""))
        with open(entry, encoding="utf-8") as file:
            lines = file.read().splitlines()
        self.assertIn(f"Exec={os.path.join(PROGRAMS, 'tarnwick')} --background", lines)
        self.assertIn("checked", reader.find("menu item", "Open at Login").states)

        reader.press("menu item", "Open at Login")
        wait_until(lambda: not os.path.exists(entry), "the end of the autostart entry")
        self.assertNotIn("checked", reader.find("menu item", "Open at Login").states)
