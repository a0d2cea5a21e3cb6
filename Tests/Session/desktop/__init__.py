"""A desktop session of a test's own, and the program in it."""

from .case import SessionTest
from .waiting import wait_until

__all__ = ["SessionTest", "wait_until"]
