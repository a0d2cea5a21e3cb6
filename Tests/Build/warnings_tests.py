"""A warning stops those who work on the program, and nobody who only builds it: other compilers and newer
libraries warn of other things."""

import json
import unittest

from tree import TreeTest

WARNS = "int answer(int unused)\n{\n    return 42;\n}\n"
FOR_USERS = {"release"}


class WarningsTest(TreeTest):
    def setUp(self):
        super().setUp()
        self.write("Small.cpp", WARNS)

    def build(self, folder, *configuration):
        """The status and the output of a build in the folder."""
        done = self.run_here("cmake", *configuration)
        self.assertEqual(done.returncode, 0, done.stdout)
        done = self.run_here("cmake", "--build", folder)
        return done.returncode, done.stdout

    def testADevelopersBuildStops(self):
        status, output = self.build("build/dev", "--preset", "dev")
        self.assertNotEqual(status, 0)
        self.assertIn("error: unused parameter", output)

    def testAUsersBuildWarnsAndGoesOn(self):
        for folder, configuration in (
            ("build/release", ("--preset", "release")),
            ("build/plain", ("-G", "Ninja", "-B", "build/plain")),
        ):
            status, output = self.build(folder, *configuration)
            self.assertEqual(status, 0, output)
            self.assertIn("warning: unused parameter", output)

    def testABuildFolderThatStoppedAtWarningsNoLongerDoes(self):
        status, output = self.build("build/release", "--preset", "release", "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON")
        self.assertNotEqual(status, 0, output)
        status, output = self.build("build/release", "--preset", "release")
        self.assertEqual(status, 0, output)

    def testEveryOtherPresetIsADevelopers(self):
        with open(self.path("CMakePresets.json"), encoding="utf-8") as file:
            presets = {preset["name"]: preset for preset in json.load(file)["configurePresets"]}

        def is_strict(name):
            preset = presets[name]
            own = preset.get("cacheVariables", {}).get("CMAKE_COMPILE_WARNING_AS_ERROR")
            return own == "ON" if own else is_strict(preset["inherits"])

        visible = {name for name, preset in presets.items() if not preset.get("hidden")}
        self.assertLess(FOR_USERS, visible)
        self.assertEqual({name for name in visible if not is_strict(name)}, FOR_USERS)


if __name__ == "__main__":
    unittest.main()
