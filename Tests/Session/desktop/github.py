"""The sample GitHub that the program asks through the real gh."""

import json
import os

from .processes import Processes
from .waiting import wait_until


class GitHub:
    """Serves a scenario until the session ends, or until `end`."""

    def __init__(self, processes: Processes, programs, folder, scenario="everyday", faults=()):
        self._processes = processes
        os.makedirs(folder, exist_ok=True)
        self.configuration = os.path.join(folder, "gh")
        self._record = os.path.join(folder, "requests")
        socket = os.path.join(folder, "socket")
        arguments = ["--socket", socket, "--config-dir", self.configuration]
        arguments += ["--scenario", scenario, "--record", self._record]
        for fault in faults:
            arguments += ["--fault", fault]
        self.process = processes.start(
            os.path.join(programs, "tarnwick-sample-github"), *arguments
        )
        wait_until(
            lambda: os.path.exists(socket)
            and os.path.exists(os.path.join(self.configuration, "config.yml")),
            "the sample GitHub",
        )

    def requests(self, kind=None):
        """What was asked so far, as the records of the server."""
        if not os.path.exists(self._record):
            return []
        with open(self._record, encoding="utf-8") as file:
            records = [json.loads(line) for line in file.read().splitlines()]
        return [record for record in records if kind is None or record["kind"] == kind]

    def end(self):
        self._processes.end(self.process)
