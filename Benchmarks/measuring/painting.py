"""Times at which a window is painted, from the X server."""

import select
import time

from Xlib import X
from Xlib.display import Display
from Xlib.ext import damage

# Of a window's area, to ignore blinking cursors and clocks.
MOST = 0.5


class PaintingWatch:
    """Waits until most of an area of `size` is painted, on the whole screen or in one window."""

    def __init__(self, display, size, window=None):
        self._display = Display(display)
        self._least = MOST * size[0] * size[1]
        self._display.damage_query_version()
        drawable = window or self._display.screen().root.id
        area = self._display.create_resource_object("window", drawable)
        area.damage_create(damage.DamageReportRawRectangles)
        self._kind = self._display.extension_event.DamageNotify
        self.forget()

    def forget(self):
        """Ignores what was painted so far."""
        self._display.sync()
        while self._display.pending_events():
            self._display.next_event()

    def wait(self, limit=20):
        """The time of the next painting by the monotonic clock."""
        deadline = time.monotonic() + limit
        painted = 0
        while True:
            while self._display.pending_events():
                event = self._display.next_event()
                if event.type == self._kind:
                    now = time.monotonic()
                    painted = max(painted, event.area.width * event.area.height)
                    if painted >= self._least:
                        return now
            left = deadline - time.monotonic()
            if left <= 0:
                raise AssertionError(f"Nothing was painted within {limit:g} s")
            select.select([self._display], [], [], left)

    def close(self):
        self._display.close()
