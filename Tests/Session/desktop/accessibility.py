"""What a screen reader finds. One session to a process: the library keeps its first bus."""

import os

from .waiting import wait_until


class Accessibility:
    def __init__(self, environment):
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = environment[name]
        import pyatspi  # pylint: disable=import-outside-toplevel

        self._library = pyatspi

    def application(self, name="tarnwick"):
        """The program's root, once it is there."""

        def find():
            for application in self._library.Registry.getDesktop(0):
                if application is not None and application.name.lower() == name:
                    return application
            return None

        return wait_until(find, f'"{name}" among the accessible programs')

    def find_all(self, role=None, name=None):
        """Every element of the role (such as "push button") and the name, either of which may be
        left out."""

        def matches(element):
            return (role is None or element.getRoleName() == role) and (
                name is None or element.name == name
            )

        found = []
        waiting = [self.application()]
        while waiting:
            element = waiting.pop()
            if element is None:
                continue
            try:
                if matches(element):
                    found.append(element)
                waiting.extend(reversed(list(element)))
            except Exception:  # An element that went away meanwhile. pylint: disable=broad-except
                continue
        return found

    def find(self, role=None, name=None):
        """The first such element, once it is there."""
        return wait_until(lambda: self.find_all(role, name), f'{role or "element"} "{name}"')[0]

    def press(self, element):
        """Does what a screen reader's user does to press it."""
        actions = element.queryAction()
        names = [actions.getName(index) for index in range(actions.nActions)]
        actions.doAction(names.index("Press"))

    def extents(self, element):
        """Left, top, width and height on the screen."""
        box = element.queryComponent().getExtents(self._library.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height
