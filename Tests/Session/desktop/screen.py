"""What is on the display, and the user's hands."""

import contextlib
import os
import re
from typing import NamedTuple

from .waiting import wait_until


class Rectangle(NamedTuple):
    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height


class Screen:
    def __init__(self, processes):
        self._processes = processes

    def _xdotool(self, *arguments):
        return self._processes.run("xdotool", *arguments)

    # Windows

    def windows(self, title="^Tarnwick$"):
        """The ids of the visible windows with this title."""
        found = self._xdotool("search", "--onlyvisible", "--name", title)
        return [int(line) for line in found.stdout.split()]

    def place(self, window):
        """Where it is without the window manager's frame."""
        text = self._processes.run("xwininfo", "-id", str(window)).stdout
        values = (
            re.search(rf"{label}: +(-?\d+)", text)
            for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        )
        return Rectangle(*(int(value[1]) if value else 0 for value in values))

    def has_focus(self, window):
        return self._xdotool("getwindowfocus").stdout.strip() == str(window)

    def property(self, window, name):
        return self._processes.run("xprop", "-id", str(window), name).stdout.strip()

    def tree(self):
        """All windows and which one has the focus, for whoever looks into a failure."""
        tree = self._processes.run("xwininfo", "-root", "-tree").stdout
        return f"{tree}Focus: {self._xdotool('getwindowfocus').stdout}"

    def work_area(self):
        """What the desktop's panels leave free."""
        text = self._processes.run("xprop", "-root", "_NET_WORKAREA").stdout
        return Rectangle(*(int(number) for number in re.findall(r"\d+", text)[:4]))

    # The user

    def move(self, x, y):
        self._xdotool("mousemove", str(x), str(y))

    def click(self, x, y, button=1):
        self._xdotool("mousemove", str(x), str(y), "click", str(button))

    @contextlib.contextmanager
    def dragging(self, start):
        """Holds the left button down from `start` on. Yields a function that moves the pointer on
        by steps until a condition holds: a window manager follows only from when it has taken
        the pointer over."""
        self._xdotool("mousemove", *map(str, start), "mousedown", "1")

        def drag_by(step, until):
            def go_on():
                self._xdotool("mousemove_relative", "--", *map(str, step))
                return until()

            wait_until(go_on, "what dragging does")

        try:
            yield drag_by
        finally:
            self._xdotool("mouseup", "1")

    def key(self, *names):
        """Presses keys by their X names, such as "Escape", "Return" or "alt+F4"."""
        self._xdotool("key", "--clearmodifiers", *names)

    def type(self, text):
        self._xdotool("type", text)

    # Pictures

    def screenshot(self, file):
        self._processes.run("import", "-window", "root", file)

    def pixels(self, area):
        """The colors in the area: rows of (red, green, blue)."""
        size = f"{area.width}x{area.height}+{area.x}+{area.y}"
        file = os.path.join(self._processes.logs, "pixels.ppm")
        self._processes.run("import", "-window", "root", "-crop", size, "-depth", "8", file)
        with open(file, "rb") as picture:
            data = picture.read()
        header = re.match(rb"P6\s(\d+)\s(\d+)\s(\d+)\s", data)
        width, height = int(header[1]), int(header[2])
        body = data[header.end() :]
        values = list(zip(body[0::3], body[1::3], body[2::3]))
        return [values[row * width : (row + 1) * width] for row in range(height)]

    def find(self, area, is_sought):
        """The box around all pixels of the area whose color is sought, or None."""
        found = [
            (x, y)
            for y, row in enumerate(self.pixels(area))
            for x, color in enumerate(row)
            if is_sought(*color)
        ]
        if not found:
            return None
        left, right = min(x for x, _ in found), max(x for x, _ in found)
        top, bottom = min(y for _, y in found), max(y for _, y in found)
        return Rectangle(area.x + left, area.y + top, right - left + 1, bottom - top + 1)

    def wait_for_window(self, title="^Tarnwick$"):
        return wait_until(lambda: self.windows(title), f'a window "{title}"')[0]

    def wait_for_no_window(self, title="^Tarnwick$"):
        wait_until(lambda: not self.windows(title), f'that no window is "{title}"')
