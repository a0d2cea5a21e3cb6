"""Where the tests find what they test."""

import os

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BUILD = os.environ.get("TARNWICK_BUILD", os.path.join(ROOT, "build", "dev"))
PROGRAM = os.path.join(BUILD, "bin", "tarnwick")
