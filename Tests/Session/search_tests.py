"""The search of launchers, over the protocols of GNOME and Plasma."""

import os

from desktop import SessionTest, wait_until
from desktop.case import NAME, PATH, PROGRAMS
from desktop.waiting import stays

GNOME = "org.gnome.Shell.SearchProvider2"
KRUNNER = "org.kde.krunner1"
KEY = "github|github.com|harbourlight/ferry-api|412"


class SearchTest(SessionTest):
    def ask(self, member, *arguments):
        answer = self.session.call(NAME, PATH, member, *arguments)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        return answer.stdout

    def gnome(self, member, *arguments):
        return self.ask(f"{GNOME}.{member}", *arguments)

    def krunner(self, member, *arguments):
        return self.ask(f"{KRUNNER}.{member}", *arguments)

    def start_listed(self):
        self.programs.record("xdg-open")
        self.start_tarnwick("--background")
        self.wait_for_name()
        wait_until(lambda: KEY in self.gnome("GetInitialResultSet", "['#412']"), "the list")

    def opened(self):
        return str(self.programs.arguments("xdg-open"))


class GnomeTests(SearchTest):
    def testItFindsFromThreeLettersOn(self):
        self.start_listed()
        self.assertEqual(self.gnome("GetInitialResultSet", "['sp']"), "(@as [],)\n")
        self.assertIn(KEY, self.gnome("GetInitialResultSet", "['Split', 'BOOK']"))
        self.assertIn(KEY, self.gnome("GetSubsearchResultSet", "['x']", "['412']"))
        self.assertEqual(self.gnome("GetInitialResultSet", f"['{'x' * 10_000}']"), "(@as [],)\n")

    def testItDescribesWhatItFound(self):
        self.start_listed()
        described = self.gnome("GetResultMetas", f"['{KEY}', 'unknown']")
        self.assertIn("'name': <'Split bookings into reservation and payment'>", described)
        self.assertIn("'description': <'harbourlight/ferry-api #412 · ", described)
        self.assertEqual(described.count("'id':"), 1)

    def testAResultOpensInTheBrowserAndAnUnknownOneNothing(self):
        self.start_listed()
        self.gnome("ActivateResult", "unknown", "['split']", "0")
        self.gnome("ActivateResult", KEY, "['split']", "0")
        wait_until(self.opened, "the browser")
        wait_until(lambda: "/harbourlight/ferry-api/pull/412" in self.opened(), "the page")
        self.assertEqual(len(self.programs.calls("xdg-open")), 1)

    def testShowAllOpensThePanel(self):
        self.start_listed()
        self.gnome("LaunchSearch", "['split', 'bookings']", "0")
        self.panel()

    def testItRefusesOtherArguments(self):
        self.start_listed()
        refused = self.session.call(NAME, PATH, f"{GNOME}.GetInitialResultSet", "'split'")
        self.assertEqual(refused.returncode, 1)


class KRunnerTests(SearchTest):
    def testItMatchesFromThreeLettersOn(self):
        self.start_listed()
        self.assertRegex(self.krunner("Match", "sp"), r"^\(@a\(sssida\{sv\}\) \[\],\)$")
        matched = self.krunner("Match", "split book")
        self.assertIn(f"'{KEY}', 'Split bookings into reservation and payment'", matched)
        self.assertRegex(matched, "'Show all [1-9] in Tarnwick'")
        self.assertRegex(self.krunner("Actions"), r"^\(@a\(sss\) \[\],\)$")

    def testAMatchOpensInTheBrowser(self):
        self.start_listed()
        self.krunner("Run", KEY, "")
        wait_until(lambda: "/harbourlight/ferry-api/pull/412" in self.opened(), "the page")

    def testTheLastMatchShowsThePanel(self):
        self.start_listed()
        self.krunner("Match", "split")
        self.krunner("Run", "all", "")
        self.panel()


class ServiceTests(SearchTest):
    """The program as the bus starts it."""

    def start_service(self):
        self.start_github()
        self.select()
        self.run_tarnwick("list")
        asked = len(self.github.requests())
        program = self.session.processes.start(os.path.join(PROGRAMS, "tarnwick"), "--service")
        self.wait_for_name()
        return program, asked

    def testItAnswersFromTheKeptListAndAsksNothing(self):
        _, asked = self.start_service()
        self.assertIn(KEY, self.gnome("GetInitialResultSet", "['split']"))
        stays(lambda: self.screen.windows() == [], "the empty screen", 1)
        self.assertEqual(len(self.github.requests()), asked)

    def testItBecomesTheProgramWhenItsPanelIsWanted(self):
        _, asked = self.start_service()
        self.assertEqual(self.activate().returncode, 0)
        self.panel()
        wait_until(lambda: len(self.github.requests()) > asked, "a refresh")

    def testAStartFindsIt(self):
        self.start_service()
        self.assertEqual(self.run_tarnwick().returncode, 0)
        self.panel()
