"""tools/test --on, as far as it goes without a release of its own."""

import contextlib
import importlib.machinery
import importlib.util
import io
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

from tree import ROOT

PROGRAM = os.path.join(ROOT, "Tests", "Packages", "on-release")
TEST = os.path.join(ROOT, "tools", "test")


def on_release():
    """The program as a module."""
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("on_release", PROGRAM)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class OnReleaseTest(unittest.TestCase):
    def said_by(self, *command):
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual(done.stdout, "")
        return done.returncode, done.stderr

    def testAReleaseHasAName(self):
        for arguments in ((), ("",), ("../trixie",), ("--keep",)):
            self.assertEqual(
                self.said_by(TEST, "--on", *arguments),
                (2, "tools/test: --on needs the name of a release, such as trixie.\n"),
            )

    @unittest.skipIf(shutil.which("debootstrap") is None or os.geteuid() != 0, "needs root and debootstrap")
    def testAReleaseThatDebootstrapDoesNotKnowIsTold(self):
        self.assertEqual(
            self.said_by(PROGRAM, "sarge-and-a-half"),
            (2, "Tests/Packages/on-release: debootstrap knows no sarge-and-a-half.\n"),
        )

    def testWhoIsNotRootIsTold(self):
        said = io.StringIO()
        program = on_release()
        with (
            unittest.mock.patch("os.geteuid", return_value=1000),
            unittest.mock.patch("sys.argv", ["on-release", "trixie"]),
            contextlib.redirect_stderr(said),
        ):
            self.assertEqual(program.main(), 77)
        self.assertEqual(said.getvalue(), "Tests/Packages/on-release: This needs root.\n")

    @unittest.skipUnless(os.path.exists(os.path.join(ROOT, ".git")), "needs git's list of the sources")
    def testTheSourcesAreCopiedWithoutWhatWasBuilt(self):
        with tempfile.TemporaryDirectory() as folder:
            on_release().copy_sources(folder)
            self.assertTrue(os.access(os.path.join(folder, "tools", "run"), os.X_OK))
            self.assertTrue(os.path.exists(os.path.join(folder, "CMakeLists.txt")))
            self.assertFalse(os.path.exists(os.path.join(folder, ".git")))
            built = os.path.join(folder, "build")
            self.assertLessEqual(set(os.listdir(built)) if os.path.exists(built) else set(), {"assets"})


if __name__ == "__main__":
    unittest.main()
