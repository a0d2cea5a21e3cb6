"""What the kernel tells about a running program."""

import os
import re
import time

from .waiting import wait_until


def proportional_memory(pid):
    """In KiB: its own pages, and its share of those that others have too."""
    return memory_field(pid, "Pss")


def private_memory(pid):
    """In KiB: what would be free without it."""
    return memory_field(pid, "Private_Clean") + memory_field(pid, "Private_Dirty")


def memory_field(pid, name):
    with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
        return int(re.search(rf"^{name}: +(\d+) kB", file.read(), re.MULTILINE)[1])


def main_thread_time(pid):
    """In seconds: the processor's time that the main thread has used until now, to which other
    programs do not add."""
    with open(f"/proc/{pid}/task/{pid}/schedstat", encoding="ascii") as file:
        return int(file.read().split()[0]) / 1e9


def libraries(pid):
    """The shared libraries that it was linked with or has loaded since."""
    with open(f"/proc/{pid}/maps", encoding="utf-8") as file:
        return set(re.findall(r"\S*/lib[^/\s]+\.so[^/\s]*", file.read()))


def wake_ups(pid):
    """How often each thread has waited for something until now, by the thread's number and name."""
    counts = {}
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/status", encoding="utf-8") as file:
            status = file.read()
        name = re.search(r"^Name:\s+(.*)$", status, re.MULTILINE)[1]
        waits = re.search(r"^voluntary_ctxt_switches:\s+(\d+)$", status, re.MULTILINE)[1]
        counts[(int(task), name)] = int(waits)
    return counts


def wait_until_at_rest(pid, quiet=2.0, limit=180):
    """Until it has had no children, and no thread of it has woken up, for `quiet` seconds."""
    seen = {"counts": None, "since": 0.0}

    def is_at_rest():
        counts = wake_ups(pid)
        if counts != seen["counts"] or has_children(pid):
            seen["counts"], seen["since"] = counts, time.monotonic()
        return time.monotonic() - seen["since"] >= quiet

    wait_until(is_at_rest, "rest", limit)


def has_children(pid):
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{task}/children", encoding="ascii") as file:
                if file.read().strip():
                    return True
        except FileNotFoundError:
            continue
    return False
