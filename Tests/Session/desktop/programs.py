"""Programs of a test's own, first on the search path, that record how they were run."""

import json
import os
import textwrap

RECORDER = """\
#!/usr/bin/python3
import json, os, sys
call = {{"arguments": sys.argv[1:], "token": os.environ.get("XDG_ACTIVATION_TOKEN")}}
with open({record!r}, "a", encoding="utf-8") as file:
    file.write(json.dumps(call) + "\\n")
"""


class Programs:
    def __init__(self, folder, environment):
        self._folder = folder
        os.makedirs(folder)
        environment["PATH"] = f"{folder}:{environment['PATH']}"

    def add(self, name, script):
        """A program by this text, which begins with its interpreter. Returns where it lies."""
        path = os.path.join(self._folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(textwrap.dedent(script))
        os.chmod(path, 0o755)
        return path

    def record(self, name):
        """A program that does nothing but record its runs."""
        self.add(name, RECORDER.format(record=self._record(name)))

    def calls(self, name):
        """The runs so far: their arguments and the activation token that they were given."""
        if not os.path.exists(self._record(name)):
            return []
        with open(self._record(name), encoding="utf-8") as file:
            return [json.loads(line) for line in file.read().splitlines()]

    def arguments(self, name):
        return [call["arguments"] for call in self.calls(name)]

    def _record(self, name):
        return os.path.join(self._folder, f"{name}.calls")


def only(environment, folder, *names):
    """Lets nothing be found on the search path but these of the programs that are there now, which
    `folder` is made for."""
    os.makedirs(folder)
    for name in names:
        for place in environment["PATH"].split(":"):
            if os.access(os.path.join(place, name), os.X_OK):
                os.symlink(os.path.join(place, name), os.path.join(folder, name))
                break
    environment["PATH"] = folder
