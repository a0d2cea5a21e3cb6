"""tools/check-sources finds what it is for, and checks nothing twice."""

import os
import shutil
import unittest
import unittest.mock

from tree import TreeTest

LEANS = "int size()\n{\n    return static_cast<int>(std::vector<int>{1, 2}.size());\n}\n"
STANDS_ALONE = f"#include <vector>\n\n{LEANS}"
UNTIDY = "int* nothing()\n{\n    return 0;\n}\n"

needs_clang_headers = unittest.skipUnless(
    os.path.isdir("/usr/lib/llvm-19/include/clang"), "clang's own headers are not installed"
)


@unittest.skipIf(shutil.which("clang++-19") is None, "clang 19 is not installed")
class CheckSourcesTest(TreeTest):
    def check(self, *arguments):
        done = self.run_here("tools/check-sources", *arguments)
        return done.returncode, done.stdout

    def testASourceThatLeansOnAPrecompiledHeaderIsFound(self):
        self.write("Small.cpp", LEANS)
        for command in ("cmake --preset dev", "cmake --build --preset dev"):
            done = self.run_here(*command.split())
            self.assertEqual(done.returncode, 0, done.stdout)
        status, output = self.check("syntax")
        self.assertEqual(status, 1)
        self.assertIn("Small.cpp:3:29: error: ", output)
        self.write("Small.cpp", STANDS_ALONE)
        self.assertEqual(self.check("syntax"), (0, ""))

    @needs_clang_headers
    def testWhatClangTidyFindsIsFound(self):
        self.write("Small.cpp", UNTIDY)
        self.assertEqual(self.check("syntax"), (0, ""))
        status, output = self.check("tidy", "Small.cpp")
        self.assertEqual(status, 1)
        self.assertIn("Small.cpp:3:12: error: use nullptr", output)

    @needs_clang_headers
    def testWhatClangTidyFindsInAHeaderIsFound(self):
        os.mkdir(self.path("Tests"))
        self.write("Tests/Untidy.h", f"inline {UNTIDY}")
        self.write("Small.cpp", f'#include "{self.path("Tests/Untidy.h")}"\n')
        status, output = self.check("tidy", "Small.cpp")
        self.assertEqual(status, 1)
        self.assertIn("Untidy.h:3:12: error: use nullptr", output)

    @needs_clang_headers
    def testWhatHasPassedIsNotCheckedAgainUntilSomethingChanges(self):
        """A clang-tidy of the test's own counts its runs."""
        os.mkdir(self.path("programs"))
        self.write("programs/clang-tidy-19", f"#!/bin/sh\necho \"$1\" >>{self.path('runs')}\n")
        os.chmod(self.path("programs/clang-tidy-19"), 0o755)
        with unittest.mock.patch.dict(os.environ, {"PATH": f"{self.path('programs')}:{os.environ['PATH']}"}):
            self.write("Small.cpp", STANDS_ALONE)
            self.assertEqual([self.runs_of_tidy() for _ in range(2)], [1, 0])
            self.write("Small.cpp", f"// NOLINTNEXTLINE\n{STANDS_ALONE}")
            self.assertEqual([self.runs_of_tidy() for _ in range(2)], [1, 0])
            self.write(".clang-tidy", "Checks: bugprone-*\n")
            self.assertEqual([self.runs_of_tidy() for _ in range(2)], [1, 0])

    def runs_of_tidy(self):
        self.write("runs", "")
        self.assertEqual(self.check("tidy"), (0, ""))
        with open(self.path("runs"), encoding="utf-8") as file:
            return file.read().split().count("--quiet")

    def testAFileThatIsNotCompiledIsTold(self):
        self.write("Small.cpp", STANDS_ALONE)
        self.assertEqual(
            self.check("syntax", "Other.cpp"),
            (2, "tools/check-sources: Other.cpp: preset tidy does not compile this.\n"),
        )


if __name__ == "__main__":
    unittest.main()
