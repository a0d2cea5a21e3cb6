"""What a screen reader finds of the program."""

from desktop import SessionTest


class AccessibilityTests(SessionTest):
    has_accessibility = True

    def testThePanelsWindowIsThere(self):
        self.start_tarnwick()
        window = self.panel()
        screen_reader = self.accessibility()
        frame = screen_reader.find(role="frame", name="Tarnwick")
        self.assertEqual(frame.box, self.screen.place(window))
        self.assertEqual(frame.children, 1)
