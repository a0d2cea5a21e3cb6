"""tools/run, with the programs built already."""

import os
import shutil
import signal

from desktop import SessionTest, wait_until
from desktop.case import PROGRAMS, ROOT
from desktop.processes import output_of

SIGNED_OUT = (
    "tools/run: gh is not signed in, so this is the sample GitHub; "
    '"gh auth login" signs in.\n'
)
NO_DISPLAY = "tools/run: There is no display for the panel, so this is the list.\n"
SHOWS_SAMPLE = (
    "tools/run: The panel shows the sample GitHub (scenario everyday) until you choose Quit or "
    "press Ctrl+C here.\n"
)
SHOWS_OWN = (
    "tools/run: The panel shows your pull requests until you choose Quit or press Ctrl+C here.\n"
)


class RunTests(SessionTest):
    def setUp(self):
        super().setUp()
        self.tree = os.path.join(self.session.folder, "tree")
        self._lay_out_tree()

    def _lay_out_tree(self):
        """A source folder in which nothing is left to install or to build."""
        release = os.path.join(self.tree, "build", "release")
        os.makedirs(release)
        os.makedirs(os.path.join(self.tree, "tools"))
        shutil.copy(os.path.join(ROOT, "tools", "run"), os.path.join(self.tree, "tools", "run"))
        os.symlink(PROGRAMS, os.path.join(release, "bin"))
        with open(os.path.join(release, "build.ninja"), "w", encoding="utf-8"):
            pass
        self._write_program(os.path.join(self.tree, "tools", "setup"), "true")
        programs = os.path.join(self.tree, "programs")
        os.makedirs(programs)
        self._write_program(os.path.join(programs, "ninja"), "echo 'ninja: no work to do.'")
        environment = self.session.environment
        environment["PATH"] = f"{programs}:{environment['PATH']}"

    def _write_program(self, path, line):
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\n{line}\n")
        os.chmod(path, 0o755)

    @property
    def tools_run(self):
        return os.path.join(self.tree, "tools", "run")

    def start(self, *arguments, environment=None):
        return self.session.processes.start(self.tools_run, *arguments, environment=environment)

    def run_to_end(self, *arguments, environment=None):
        return self.session.processes.run(self.tools_run, *arguments, environment=environment)

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
            "tools/run: Tarnwick runs already and would come up in the place of the sample; "
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
                "tools/run: --scenario wants the name of a scenario, such as everyday.\n",
            )
