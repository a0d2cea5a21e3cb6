"""A module sees the headers of those that it links, and no others."""

import unittest

from tree import PROJECT, TreeTest

MODULES = """
tarnwick_module(Other FOLDER Small SOURCES Other.cpp)
tarnwick_module(User SOURCES User.cpp PUBLIC Small)
"""


class WallsTest(TreeTest):
    def setUp(self):
        super().setUp()
        self.write("CMakeLists.txt", PROJECT + MODULES)
        self.write("Small.cpp", '#include "Small/Small.h"\n')
        self.write("Other.h", "#pragma once\n")
        self.write("Other.cpp", '#include "Small/Other.h"\n')
        self.write("Private.h", "#pragma once\n")

    def compile(self, *includes):
        self.write("User.cpp", "".join(f'#include "{header}"\n' for header in includes))
        configured = self.run_here("cmake", "--preset", "dev")
        self.assertEqual(configured.returncode, 0, configured.stdout)
        return self.run_here("cmake", "--build", "--preset", "dev")

    def testHeadersOfLinkedModulesAreSeen(self):
        done = self.compile("Small/Small.h")
        self.assertEqual(done.returncode, 0, done.stdout)

    def testNoOtherHeaderOfTheFolderIs(self):
        for header in ("Small/Other.h", "Small/Private.h"):
            with self.subTest(header):
                done = self.compile(header)
                self.assertNotEqual(done.returncode, 0)
                self.assertIn(f"fatal error: {header}: No such file", done.stdout)

    def testAHeaderThatIsNoLongerAModulesIsNoLongerSeen(self):
        self.assertEqual(self.compile("Small/Small.h").returncode, 0)
        self.write("CMakeLists.txt", (PROJECT + MODULES).replace(" HEADERS Small.h", ""))
        self.write("Small.cpp", "")
        self.run_here("mv", "Small.h", "Gone.h")
        self.assertNotEqual(self.compile("Small/Small.h").returncode, 0)


if __name__ == "__main__":
    unittest.main()
