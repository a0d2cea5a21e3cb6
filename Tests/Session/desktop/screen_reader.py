#!/usr/bin/python3
"""What a screen reader finds, asked for and answered in lines of JSON.

A process of its own for each session, because the library keeps to the bus that it saw first."""

import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # pylint: disable=wrong-import-position

STATES = {
    "checked": Atspi.StateType.CHECKED,
    "enabled": Atspi.StateType.ENABLED,
    "focused": Atspi.StateType.FOCUSED,
    "selected": Atspi.StateType.SELECTED,
}


class ScreenReader:
    def __init__(self, program):
        self._program = program
        self._menus = []
        self._elements = []
        self._listener = Atspi.EventListener.new(self._shown)
        self._listener.register("object:state-changed:showing")

    def _shown(self, event):
        # Menus are windows of their own that no other element has for a child.
        if event.source.get_role() in (Atspi.Role.POPUP_MENU, Atspi.Role.MENU):
            if event.detail1 and event.source not in self._menus:
                event.source.set_cache_mask(Atspi.Cache.NONE)
                self._menus.append(event.source)

    def _roots(self):
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        found = []
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_name().lower() == self._program:
                application.set_cache_mask(Atspi.Cache.NONE)
                found.append(application)
        return found + self._menus

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
                states = element.get_state_set()
                if not states.contains(Atspi.StateType.SHOWING):
                    continue
                children = [
                    element.get_child_at_index(index)
                    for index in range(element.get_child_count())
                ]
                if role in (None, element.get_role_name()) and name in (None, element.get_name()):
                    found.append(self._described(element, states, len(children)))
            except GLib.Error:  # It went away meanwhile.
                continue
            waiting.extend(child for child in reversed(children) if child is not None)
        return found

    def _described(self, element, states, children):
        self._elements.append(element)
        box = None
        if element.get_component_iface() is not None:
            extents = element.get_extents(Atspi.CoordType.SCREEN)
            box = [extents.x, extents.y, extents.width, extents.height]
        return {
            "number": len(self._elements) - 1,
            "role": element.get_role_name(),
            "name": element.get_name(),
            "description": element.get_description(),
            "states": [name for name, state in STATES.items() if states.contains(state)],
            "box": box,
            "children": children,
        }

    def press(self, number):
        element = self._elements[number]
        names = [element.get_action_name(index) for index in range(element.get_n_actions())]
        pressing = next(name for name in ("Press", "Toggle", "ShowMenu") if name in names)
        return element.do_action(names.index(pressing))


def main():
    reader = ScreenReader(sys.argv[1])
    loop = GLib.MainLoop()

    def answer(channel, _condition):
        line = channel.readline()
        if not line:
            loop.quit()
            return False
        question = json.loads(line)
        if question["ask"] == "find":
            result = reader.find(question["role"], question["name"])
        else:
            result = reader.press(question["number"])
        print(json.dumps(result), flush=True)
        return True

    GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, answer)
    loop.run()


if __name__ == "__main__":
    main()
