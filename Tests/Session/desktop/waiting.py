"""Waiting for what other programs do."""

import time

# Far beyond what anything here takes, so that a slow machine fails nothing.
LIMIT = 60.0


def wait_until(condition, what, limit=LIMIT):
    """Returns the condition's first true value; fails with `what` when none comes in time."""
    deadline = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"{what} did not come about within {limit:g} s")
        time.sleep(0.02)


def stays(condition, what, duration):
    """Fails when the condition ends within this time."""
    deadline = time.monotonic() + duration
    while time.monotonic() < deadline:
        if not condition():
            raise AssertionError(f"{what} did not last")
        time.sleep(0.02)
