"""Programs that a test starts, each in a process group of its own, and all of which it ends."""

import atexit
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
        # A run that is interrupted comes to no clean-up of its tests.
        atexit.register(self.end_all)

    def start(self, *command, environment=None, **options):
        """The output goes to a file; the environment is the session's and what is given here, of
        which None takes a variable away."""
        log = self._log_of(command)
        with open(log, "wb") as output:
            return self._started(command, environment, log, stdout=output, stderr=output, **options)

    def start_piped(self, *command):
        """Starts a program that is written to and read from in lines."""
        log = self._log_of(command)
        with open(log, "wb") as errors:
            return self._started(
                command,
                None,
                log,
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                stderr=errors,
                text=True,
            )

    def _log_of(self, command):
        self._count += 1
        return os.path.join(self.logs, f"{self._count:02}-{os.path.basename(command[0])}.log")

    def _started(self, command, environment, log, **options):
        process = subprocess.Popen(
            command,
            env=self.variables(environment),
            start_new_session=True,
            **{"stdin": subprocess.DEVNULL, **options},
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

    @staticmethod
    def says(process, text):
        """Whether the text is in what the program has said so far."""
        return text in output_of(process)

    def what_was_said(self, lines=30):
        """The last lines of each log, for whoever looks into a failure."""
        ends = []
        for name in sorted(os.listdir(self.logs)):
            if name.endswith(".log"):
                with open(os.path.join(self.logs, name), encoding="utf-8", errors="replace") as log:
                    end = "".join(log.readlines()[-lines:])
                ends.append(f"--- {name}\n{end}")
        return "".join(ends)

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
        for pipe in (process.stdin, process.stdout):
            if pipe is not None:
                pipe.close()
        if process in self._running:
            self._running.remove(process)

    def forget(self, process):
        """For a program that has ended, and whose children end by themselves."""
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
