"""What a screen reader finds of the program."""

from desktop import SessionTest, wait_until


class AccessibilityTests(SessionTest):
    has_accessibility = True

    def testThePanelsWindowIsThere(self):
        self.start_tarnwick()
        window = self.panel()
        screen_reader = self.accessibility()
        frame = screen_reader.find(role="frame", name="Tarnwick")
        self.assertEqual(frame.box, self.screen.place(window))
        self.assertEqual(frame.children, 1)

    def testHeadingsStandAmongTheRowsAndAreNoStops(self):
        self.select("harbourlight/ferry-web", list_arrangement="By Whose Turn")
        self.start_tarnwick("--toggle")
        self.focused_panel()
        screen_reader = self.accessibility()
        screen_reader.find("heading")
        self.assertEqual(
            screen_reader.names("heading"),
            ["Waiting on You, 3 pull requests", "Waiting on Others, 6 pull requests"],
        )
        self.screen.key("Home")
        rows = wait_until(
            lambda: [row for row in screen_reader.find_all("list item") if "focused" in row.states],
            "the first row",
        )
        self.screen.key("Up")
        heading = screen_reader.find("heading")
        self.assertNotIn("focused", heading.states)
        self.assertNotIn("selected", heading.states)
        self.assertEqual(heading.box.y + heading.box.height, rows[0].box.y)
        self.assertEqual(heading.box.width, rows[0].box.width)
