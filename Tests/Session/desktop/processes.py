"""Programs that a test starts, each in a process group of its own, and all of which it ends."""

import os
import signal
import subprocess

from .waiting import wait_until


class Processes:
    """Starts programs with their output in files, and ends every one of them, by its id."""

    def __init__(self, logs, environment):
        self.logs = logs
        self.environment = environment
        self._running = []
        self._count = 0

    def start(self, *command, environment=None, **options):
        """The output goes to a file; the environment is the session's and what is given here, of
        which None takes a variable away."""
        self._count += 1
        name = os.path.basename(command[0])
        log = os.path.join(self.logs, f"{self._count:02}-{name}.log")
        with open(log, "wb") as output:
            process = subprocess.Popen(
                command,
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=subprocess.STDOUT,
                env=self.variables(environment),
                start_new_session=True,
                **options,
            )
        process.log = log
        self._running.append(process)
        return process

    def run(self, *command, environment=None, limit=20):
        """Runs a program to its end and returns it with its output."""
        return subprocess.run(
            command,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            timeout=limit,
            check=False,
            env=self.variables(environment),
        )

    def variables(self, changes=None):
        merged = {**self.environment, **(changes or {})}
        return {name: value for name, value in merged.items() if value is not None}

    def end(self, process, limit=5):
        """Ends a program and what it started."""
        for number in (signal.SIGTERM, signal.SIGKILL):
            if not group_lives(process.pid):
                break
            try:
                os.killpg(process.pid, number)
            except ProcessLookupError:
                break
            try:
                wait_until(lambda: ended(process), f"the end of {process.args[0]}", limit)
            except AssertionError:
                continue
        process.wait()
        if process in self._running:
            self._running.remove(process)

    def end_all(self):
        for process in reversed(list(self._running)):
            self.end(process)


def ended(process):
    """Whether the program and everything that it started has ended."""
    process.poll()
    return not group_lives(process.pid)


def group_lives(group):
    try:
        os.killpg(group, 0)
    except ProcessLookupError:
        return False
    return True


def output_of(process):
    with open(process.log, encoding="utf-8", errors="replace") as log:
        return log.read()
