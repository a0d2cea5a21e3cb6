"""tools/run and tools/screenshot, with the programs built already."""

import filecmp
import os
import re
import shutil
import signal

from desktop import SessionTest, wait_until
from desktop.case import PROGRAMS, ROOT
from desktop.processes import output_of

SIGNED_OUT = (
    "tools/run: gh is not signed in, so this runs on the sample GitHub. "
    'Sign in with "gh auth login".\n'
)
NO_DISPLAY = "tools/run: No display is available; printing the list.\n"
BUILDING = "tools/run: Building…\n"
SHOWS_SAMPLE = (
    "tools/run: The panel shows the sample GitHub (scenario everyday) until you choose Quit or "
    "press Ctrl+C here.\n"
)
SHOWS_OWN = (
    "tools/run: The panel shows your pull requests until you choose Quit or press Ctrl+C here.\n"
)


# Takes the place of the program's own build, which takes minutes; the tools that build are the real ones.
BUILD = f"""cmake_minimum_required(VERSION 3.25)
project(Tree LANGUAGES NONE)
include("{ROOT}/cmake/Module.cmake")
tarnwick_glob(sources "${{CMAKE_SOURCE_DIR}}/sources" "*.txt")
add_custom_command(OUTPUT built DEPENDS ${{sources}} COMMAND "${{CMAKE_COMMAND}}" -E touch built)
add_custom_target(tarnwick DEPENDS built)
add_custom_target(tarnwick-sample-github DEPENDS built)
"""


class ToolsTest(SessionTest):
    def setUp(self):
        super().setUp()
        self.tree = os.path.join(self.session.folder, "tree")
        self._lay_out_tree()

    def _lay_out_tree(self):
        """A source folder in which nothing is left to install or to build."""
        self.write("CMakeLists.txt", BUILD)
        self.write("sources/one.txt", "")
        for name in ("CMakePresets.json", "tools/configure", "tools/run"):
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            shutil.copy(os.path.join(ROOT, name), self.path(name))
        for name in ("tools/screenshot", "SampleGitHub"):
            os.symlink(os.path.join(ROOT, name), self.path(name))
        self.write("tools/setup", "#!/bin/sh\n")
        os.chmod(self.path("tools/setup"), 0o755)
        for command in (self.path("tools/configure"),), ("ninja", "-C", self.path("build/release"), "tarnwick"):
            done = self.session.processes.run(*command)
            self.assertEqual(done.returncode, 0, done.stderr)
        os.symlink(PROGRAMS, self.path("build/release/bin"))

    def path(self, name):
        """Of a file of the source folder."""
        return os.path.join(self.tree, name)

    def write(self, name, text):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    @property
    def tools_run(self):
        return self.path("tools/run")

    def start(self, *arguments, environment=None):
        return self.session.processes.start(self.tools_run, *arguments, environment=environment)

    def run_to_end(self, *arguments, environment=None, limit=20):
        return self.session.processes.run(
            self.tools_run, *arguments, environment=environment, limit=limit
        )


class RunTests(ToolsTest):
    def testTheSamplesPanelStaysUntilItIsQuit(self):
        program = self.start("--sample")
        self.panel()
        self.assertIsNone(program.poll())
        self.assertEqual(output_of(program), SHOWS_SAMPLE)
        self.assertEqual(self.action("quit").returncode, 0)
        self.assertEqual(self.wait_for_end(program), 0)

    def testCtrlCEndsTheSampleAndAllOfItsPrograms(self):
        program = self.start("--sample")
        self.panel()
        os.killpg(program.pid, signal.SIGINT)
        self.assertNotEqual(self.wait_for_end(program), 0)

    def testTheSampleLeavesTheUsersSettingsAlone(self):
        program = self.start("--sample")
        self.panel()
        self.action("quit")
        self.wait_for_end(program)
        self.assertFalse(os.path.exists(os.path.dirname(self.settings_file)))
        self.assertFalse(os.path.exists(os.path.dirname(self.cache_file)))

    def testWhereGhIsSignedInThePanelShowsTheUsersOwn(self):
        self.start_github()
        self.select()
        program = self.start()
        self.panel()
        self.assertEqual(output_of(program), SHOWS_OWN)
        wait_until(lambda: self.github.requests("search"), "a search")
        self.action("quit")
        self.assertEqual(self.wait_for_end(program), 0)

    def testWhereGhIsNotSignedInThePanelShowsTheSample(self):
        program = self.start()
        self.panel()
        self.assertEqual(output_of(program), SIGNED_OUT + SHOWS_SAMPLE)

    def testASampleDoesNotRaiseThePanelOfARunningTarnwick(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        answer = self.run_to_end("--sample")
        self.assertEqual(answer.returncode, 1)
        self.assertEqual(
            answer.stderr,
            "tools/run: Tarnwick is already running and would open instead of the sample; "
            "quit it first.\n",
        )
        self.assertEqual(self.screen.windows(), [])

    def testWithoutADisplayItSaysSoAndPrintsTheList(self):
        self.start_github()
        self.select()
        answer = self.run_to_end(environment={"DISPLAY": None})
        self.assertEqual(answer.returncode, 0)
        self.assertEqual(answer.stderr, NO_DISPLAY)
        self.assertIn("#412 Split bookings into reservation and payment", answer.stdout)

    def testWithoutADisplayTheSampleIsAListToo(self):
        answer = self.run_to_end(environment={"DISPLAY": None})
        self.assertEqual(answer.returncode, 0)
        self.assertEqual(answer.stderr, SIGNED_OUT + NO_DISPLAY)
        self.assertIn("#412 ", answer.stdout)

    def testArgumentsAreThePrograms(self):
        answer = self.run_to_end("--version", environment={"DISPLAY": None})
        self.assertEqual(answer.stderr, "")
        self.assertRegex(answer.stdout, r"^tarnwick \d")

    def testAScenarioHasAName(self):
        for arguments in (("--sample", "--scenario"), ("--sample", "--scenario", "../x")):
            answer = self.run_to_end(*arguments)
            self.assertEqual(answer.returncode, 2)
            self.assertEqual(
                answer.stderr,
                "tools/run: --scenario needs the name of a scenario, such as everyday.\n",
            )


class BuildTests(ToolsTest):
    """What it says and does before the program starts."""

    def said(self):
        answer = self.run_to_end("--version", environment={"DISPLAY": None})
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertRegex(answer.stdout, r"^tarnwick \d")
        return answer.stderr

    def make_newer(self, name):
        """Than all that has been built, by more than the grain of a file system's clock."""
        later = os.stat(self.path("build/release/built")).st_mtime_ns + 20_000_000
        os.utime(self.path(name), ns=(later, later))

    def testItBuildsOnlyWhatHasChanged(self):
        self.assertEqual(self.said(), "")
        self.make_newer("sources/one.txt")
        self.assertEqual(self.said(), BUILDING)

    def testASourceThatComesOrGoesIsSeen(self):
        self.write("sources/two.txt", "")
        self.make_newer("sources")
        self.assertEqual(self.said(), BUILDING)
        self.make_newer("sources/two.txt")
        self.assertEqual(self.said(), BUILDING)

    def testChangedPresetsTakeEffect(self):
        self.make_newer("CMakePresets.json")
        self.assertTrue(self.said().startswith("tools/run: Configuring…\n"))

    def testTestsStayOutUnlessTheyWereConfiguredByHand(self):
        cache = self.path("build/release/CMakeCache.txt")
        for value in ("OFF", "ON"):
            done = self.session.processes.run("cmake", f"-DTARNWICK_TESTS={value}", self.path("build/release"))
            self.assertEqual(done.returncode, 0, done.stderr)
            done = self.session.processes.run(self.path("tools/configure"))
            self.assertEqual(done.returncode, 0, done.stderr)
            with open(cache, encoding="utf-8") as file:
                self.assertRegex(file.read(), rf"(?m)^TARNWICK_TESTS:\w+={value}$")

    def testNinjaCanTellOfTheWholeBuildWhetherThereIsWork(self):
        """It cannot where globs are to be checked, which it would say here."""
        answer = self.session.processes.run("ninja", "-C", os.path.dirname(PROGRAMS), "-n", "tarnwick")
        self.assertEqual(answer.returncode, 0, answer.stdout)
        self.assertNotIn("globbed", answer.stdout)
        self.assertRegex(answer.stdout, r"(?m)\bno work to do\b|^\[\d+/\d+\]")


class ScreenshotTests(ToolsTest):
    """It makes a session of its own, so this one gives it no display."""

    def start_screenshot(self, *arguments):
        return self.run_to_end("--screenshot", *arguments, environment={"DISPLAY": None}, limit=60)

    def screenshot(self, name, *options):
        file = os.path.join(self.session.folder, name)
        answer = self.start_screenshot(file, *options)
        self.assertEqual((answer.returncode, answer.stdout, answer.stderr), (0, "", ""))
        return file

    def size_of(self, file):
        return self.session.processes.run("identify", "-format", "%wx%h", file).stdout

    def colors_of(self, file, *points):
        """The colors at these points, as hexadecimal digits for red, green, blue and opacity."""
        found = []
        for x, y in points:
            pixel = f"{file}[1x1+{x}+{y}]"
            text = self.session.processes.run("convert", pixel, "-depth", "8", "txt:-").stdout
            found.append(re.search(r"#([0-9A-F]{8})", text)[1])
        return found

    def testThePictureIsThePanelAlone(self):
        picture = self.screenshot("light.png")
        self.assertEqual(self.size_of(picture), "440x620")
        corner, border, header, content = self.colors_of(
            picture, (0, 0), (220, 0), (220, 22), (220, 48)
        )
        self.assertTrue(corner.endswith("00"), corner)
        self.assertEqual(border, "000000FF")
        self.assertEqual(header, "F8FAF9FF")
        self.assertEqual(content, "FFFFFFFF")

    def testPicturesOfTheSameAreEqualToTheByte(self):
        options = ("--dark", "--scale", "1.5", "--set", "panel.size=400x500")
        options += ("--scenario", "signed-out")
        first, second = (self.screenshot(name, *options) for name in ("first.png", "second.png"))
        self.assertEqual(self.size_of(first), "600x750")
        self.assertEqual(self.colors_of(first, (300, 33)), ["141A18FF"])
        colors = self.session.processes.run(
            "convert", first, "-depth", "8", "-format", "%c", "histogram:info:-"
        )
        # The button that copies the command for signing in.
        self.assertIn("#3CCB9BFF", colors.stdout)
        self.assertTrue(filecmp.cmp(first, second, shallow=False))

    def testBadArgumentsAreToldInASentence(self):
        for arguments, sentence in (
            ((), "The following arguments are required: FILE."),
            (("/nowhere/x.png",), "The folder /nowhere does not exist."),
            (("x.png", "--scale", "9"), "--scale needs a factor from 1 to 4."),
            (("x.png", "--scenario", "../x"), "--scenario needs the name of a scenario, such as everyday."),
            (("x.png", "--set", "dark"), "--set needs a key and a value, such as polling.interval=60."),
        ):
            answer = self.start_screenshot(*arguments)
            self.assertEqual(answer.returncode, 2)
            self.assertEqual(answer.stderr, f"tools/screenshot: {sentence}\n")
