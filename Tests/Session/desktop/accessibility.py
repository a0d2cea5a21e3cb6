"""What a screen reader finds in the program, and the pressing that it does for its user."""

import json
import os
import select
from typing import NamedTuple

from .screen import Rectangle
from .waiting import LIMIT, wait_until

SCREEN_READER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "screen_reader.py")


class Element(NamedTuple):
    """Of the states, those that tests ask for: "checked", "enabled", "focused" and "selected"."""

    number: int
    role: str
    name: str
    description: str
    states: frozenset
    box: Rectangle
    children: int


class Accessibility:
    """To be made before the program starts, which asks once at its start who listens: menus are
    seen when they open."""

    def __init__(self, processes, program="tarnwick"):
        self._process = processes.start_piped("/usr/bin/python3", SCREEN_READER, program)
        self.find_all("application")

    def _ask(self, **question):
        self._process.stdin.write(json.dumps(question) + "\n")
        self._process.stdin.flush()
        if not select.select([self._process.stdout], [], [], LIMIT)[0]:
            raise AssertionError(f"The screen reader gave no answer within {LIMIT:g} s")
        answer = self._process.stdout.readline()
        if not answer:
            raise AssertionError(f"The screen reader ended; see {self._process.log}")
        return json.loads(answer)

    def find_all(self, role=None, name=None):
        """The elements in sight of the role (such as "push button") and the name, either of which
        may be left out; parents before their children."""
        return [
            Element(
                **{
                    **element,
                    "states": frozenset(element["states"]),
                    "box": Rectangle(*element["box"]) if element["box"] else None,
                }
            )
            for element in self._ask(ask="find", role=role, name=name)
        ]

    def find(self, role=None, name=None):
        """The first such element, once it is there."""
        return wait_until(lambda: self.find_all(role, name), f'{role or "element"} "{name}"')[0]

    def names(self, role):
        return [element.name for element in self.find_all(role)]

    def wait_until_gone(self, role=None, name=None):
        wait_until(lambda: not self.find_all(role, name), f'that no {role or "element"} is "{name}"')

    def press(self, role, name):
        """Does what a screen reader's user does to press it, once it is there."""
        self._ask(ask="press", number=self.find(role, name).number)
