"""The sample GitHub that the program asks through the real gh."""

import json
import os
import shutil

from .processes import Processes
from .waiting import wait_until

SCENARIOS = os.path.join(
    os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))),
    "SampleGitHub",
    "Scenarios",
)


class GitHub:
    """Serves a scenario until the session ends, or until `end`."""

    def __init__(
        self, processes: Processes, programs, folder, scenario="everyday", faults=(), now=None
    ):
        self._processes = processes
        self._program = os.path.join(programs, "tarnwick-sample-github")
        self._folder = folder
        os.makedirs(folder, exist_ok=True)
        self.configuration = os.path.join(folder, "gh")
        self._record = os.path.join(folder, "requests")
        self._socket = os.path.join(folder, "socket")
        self.process = None
        self.serve(scenario, faults, now)

    def serve(self, scenario="everyday", faults=(), now=None):
        """Starts to serve; in the place of what was served, if anything was. The scenario is a name
        or what a scenario file holds; ages count back from `now`, such as 2026-03-01T12:00:00Z."""
        self.end()
        shutil.rmtree(self.configuration, ignore_errors=True)
        if isinstance(scenario, dict):
            file = os.path.join(self._folder, "scenario.json")
            with open(file, "w", encoding="utf-8") as text:
                json.dump(scenario, text)
            scenario = file
        arguments = ["--socket", self._socket, "--config-dir", self.configuration]
        arguments += ["--scenario", scenario, "--record", self._record]
        if now:
            arguments += ["--now", now]
        for fault in faults:
            arguments += ["--fault", fault]
        self.process = self._processes.start(self._program, *arguments)
        # Its last word before it answers.
        wait_until(lambda: self._processes.says(self.process, "Serving "), "the sample GitHub")

    def requests(self, kind=None):
        """What was asked so far, as the records of the server."""
        if not os.path.exists(self._record):
            return []
        with open(self._record, encoding="utf-8") as file:
            records = [json.loads(line) for line in file.read().splitlines()]
        return [record for record in records if kind is None or record["kind"] == kind]

    def end(self):
        if self.process is not None:
            self._processes.end(self.process)


def scenario_named(name):
    """What a scenario file holds, to be changed and served."""
    with open(os.path.join(SCENARIOS, f"{name}.json"), encoding="utf-8") as file:
        return json.load(file)
