#!/usr/bin/python3
"""What a screen reader finds, asked for and answered in lines of JSON.

A process of its own for each session, because a process has one session bus. It speaks to the
accessibility bus itself: the usual library waits for itself, and for ever, when an event arrives in
the wrong moment."""

import json
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # pylint: disable=wrong-import-position

REGISTRY = "org.a11y.atspi.Registry"
ROOT = (REGISTRY, "/org/a11y/atspi/accessible/root")
ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
MENUS = ("popup menu", "menu")

# Bits of the answer to GetState.
STATES = {"checked": 4, "enabled": 8, "focused": 12, "selected": 23}
SHOWING = 25

SCREEN_COORDINATES = 0
LIMIT_MILLISECONDS = 10_000


def accessibility_bus():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address = session.call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1, None
    ).unpack()[0]
    return Gio.DBusConnection.new_for_address_sync(
        address,
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
    )


class ScreenReader:
    """Elements are pairs of a name on the bus and a path."""

    def __init__(self, program):
        self._program = program
        self._bus = accessibility_bus()
        self._menus = []
        self._elements = []
        self._bus.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", "StateChanged", None, "showing", 0, self._shown
        )
        self._call(
            (REGISTRY, "/org/a11y/atspi/registry"),
            REGISTRY,
            "RegisterEvent",
            GLib.Variant("(s)", ("Object:StateChanged:Showing",)),
        )

    def _call(self, element, interface, method, arguments=None):
        return self._bus.call_sync(
            *element, interface, method, arguments, None, 0, LIMIT_MILLISECONDS, None
        ).unpack()

    def _property(self, element, name, interface=ACCESSIBLE):
        arguments = GLib.Variant("(ss)", (interface, name))
        return self._call(element, "org.freedesktop.DBus.Properties", "Get", arguments)[0]

    def _role(self, element):
        return self._call(element, ACCESSIBLE, "GetRoleName")[0]

    def _children(self, element):
        return self._call(element, ACCESSIBLE, "GetChildren")[0]

    def _states(self, element):
        low, high = self._call(element, ACCESSIBLE, "GetState")[0]
        bits = low | high << 32
        return lambda number: bool(bits & 1 << number)

    def _shown(self, _bus, sender, path, _interface, _signal, parameters):
        # Menus are windows of their own that no other element has for a child.
        element = (sender, path)
        try:
            if parameters[1] and element not in self._menus and self._role(element) in MENUS:
                self._menus.append(element)
        except GLib.Error:  # It went away meanwhile.
            pass

    def _roots(self):
        # What has happened so far is to be known, however soon the question comes.
        while GLib.MainContext.default().iteration(False):
            pass
        applications = [
            application
            for application in self._children(ROOT)
            if self._property(application, "Name").lower() == self._program
        ]
        return applications + self._menus

    def find(self, role, name):
        """The elements in sight of the role and the name, either of which may be left out."""
        found = []
        seen = set()
        waiting = list(reversed(self._roots()))
        while waiting:
            element = waiting.pop()
            # A menu below another is its child, too.
            if element in seen:
                continue
            seen.add(element)
            try:
                states = self._states(element)
                if not states(SHOWING):
                    continue
                children = self._children(element)
                if role in (None, self._role(element)) and name in (
                    None,
                    self._property(element, "Name"),
                ):
                    found.append(self._described(element, states, len(children)))
            except GLib.Error:  # It went away meanwhile.
                continue
            waiting.extend(reversed(children))
        return found

    def _described(self, element, states, children):
        self._elements.append(element)
        box = None
        if COMPONENT in self._call(element, ACCESSIBLE, "GetInterfaces")[0]:
            arguments = GLib.Variant("(u)", (SCREEN_COORDINATES,))
            box = self._call(element, COMPONENT, "GetExtents", arguments)[0]
        return {
            "number": len(self._elements) - 1,
            "role": self._role(element),
            "name": self._property(element, "Name"),
            "description": self._property(element, "Description"),
            "states": [name for name, number in STATES.items() if states(number)],
            "box": box,
            "children": children,
        }

    def press(self, number):
        element = self._elements[number]
        names = [action[0] for action in self._call(element, ACTION, "GetActions")[0]]
        pressing = next(name for name in ("Press", "Toggle", "ShowMenu") if name in names)
        arguments = GLib.Variant("(i)", (names.index(pressing),))
        return self._call(element, ACTION, "DoAction", arguments)[0]


def main():
    reader = ScreenReader(sys.argv[1])
    for line in sys.stdin:
        question = json.loads(line)
        if question["ask"] == "find":
            result = reader.find(question["role"], question["name"])
        else:
            result = reader.press(question["number"])
        print(json.dumps(result), flush=True)


if __name__ == "__main__":
    main()
