"""Where the tests find what they test, and how they run it."""

import os
import subprocess

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BUILD = os.environ.get("TARNWICK_BUILD", os.path.join(ROOT, "build", "dev"))
PROGRAM = os.path.join(BUILD, "bin", "tarnwick")


def run(*command, **options):
    """Runs a program to its end, both of its outputs in `stdout`."""
    return subprocess.run(
        command,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
        **options,
    )
