"""What the program tells bars and scripts: its interface on the bus, and "tarnwick watch"."""

import datetime
import json
import os
import signal

from desktop import SessionTest, wait_until
from desktop.case import NAME, PATH, PROGRAMS, ROOT
from desktop.processes import output_of
from desktop.kernel import wait_until_at_rest, wake_ups
from desktop.waiting import stays

STATUS = "dev.tarnwick.Tarnwick.Status"
PROPERTIES = "org.freedesktop.DBus.Properties"
LONG_AGO = "2020-01-01T00:00:00Z"
STAND_IN = os.path.join(ROOT, "Tests", "Session", "desktop", "status_program.py")
NUMBERS = {
    "WaitingOnYou": 0,
    "ReadyToMerge": 0,
    "Blocked": 0,
    "Listed": 40,
    "IsStale": False,
    "LastRefreshed": 1_700_000_000,
}


class StatusTest(SessionTest):
    def status(self, member, *arguments):
        return self.session.call(NAME, PATH, f"{STATUS}.{member}", *arguments)

    def value(self, name):
        answer = self.session.call(NAME, PATH, f"{PROPERTIES}.Get", STATUS, name)
        return answer.stdout.strip()

    def watch(self, form):
        """A running "tarnwick watch", and a function that reads its last line."""
        process = self.session.processes.start(os.path.join(PROGRAMS, "tarnwick"), "watch", "--format", form)

        def last_line():
            lines = output_of(process).splitlines()
            return lines[-1] if lines else ""

        return process, last_line

    def start_stand_in(self, **numbers):
        """In the place of the program. Returns what tells it other numbers."""
        process = self.session.processes.start_piped(STAND_IN)

        def tell(**changed):
            process.stdin.write(json.dumps(changed) + "\n")
            process.stdin.flush()

        tell(**{**NUMBERS, **numbers})
        self.wait_for_name()
        return tell

    def write_cache_time(self, time):
        with open(self.cache_file, encoding="utf-8") as file:
            snapshot = json.load(file)
        snapshot["refreshedAt"] = time
        with open(self.cache_file, "w", encoding="utf-8") as file:
            json.dump(snapshot, file)

    def wait_for_list(self):
        wait_until(lambda: self.value("Listed") == "(<uint32 13>,)", "the list's numbers")


class InterfaceTests(StatusTest):
    def testThePropertiesAreTheNumbersOfTheList(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.wait_for_list()
        self.assertEqual(self.value("IsStale"), "(<false>,)")
        self.assertRegex(self.value("LastRefreshed"), r"^\(<int64 1[0-9]{9}>,\)$")
        everything = self.session.call(NAME, PATH, f"{PROPERTIES}.GetAll", STATUS).stdout
        for name in ("WaitingOnYou", "ReadyToMerge", "Blocked", "Listed", "IsStale", "LastRefreshed"):
            self.assertIn(f"'{name}'", everything)

    def testThereAreNoOtherPropertiesAndNoneCanBeWritten(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        unknown = self.session.call(NAME, PATH, f"{PROPERTIES}.Get", STATUS, "Mood")
        self.assertIn('Unknown property "Mood".', unknown.stderr)
        written = self.session.call(NAME, PATH, f"{PROPERTIES}.Set", STATUS, "Listed", "<uint32 3>")
        self.assertIn('The property "Listed" is read-only.', written.stderr)

    def testItRefreshes(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.wait_for_list()
        searches = len(self.github.requests("search"))
        self.assertEqual(self.status("Refresh").returncode, 0)
        wait_until(lambda: len(self.github.requests("search")) > searches, "a refresh")

    def testItShowsThePanel(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.assertEqual(self.status("Show").returncode, 0)
        self.panel()

    def testItOpensWhatIsListedAndNothingElse(self):
        self.programs.record("xdg-open")
        self.start_tarnwick("--background")
        self.wait_for_name()
        self.wait_for_list()
        self.assertEqual(self.status("OpenPullRequest", "harbourlight/ferry-api#412").returncode, 0)
        wait_until(lambda: self.programs.calls("xdg-open"), "the browser")
        self.assertIn("/harbourlight/ferry-api/pull/412", str(self.programs.calls("xdg-open")))
        for stranger in ("harbourlight/ferry-api#1", "", "https://example.org/", "x" * 10_000):
            refused = self.status("OpenPullRequest", stranger)
            self.assertIn("No such pull request is listed.", refused.stderr)

    def testItDescribesItself(self):
        self.start_tarnwick("--background")
        self.wait_for_name()
        described = self.session.processes.run(
            "gdbus", "introspect", "--session", f"--dest={NAME}", f"--object-path={PATH}"
        )
        for member in ("readonly u WaitingOnYou", "readonly x LastRefreshed", "OpenPullRequest(in  s which)"):
            self.assertIn(member, described.stdout)


class WatchTests(StatusTest):
    def testItFollowsTheRunningProgram(self):
        self.start_github()
        self.select()
        _, last_line = self.watch("line")
        wait_until(lambda: last_line() == "Not updated yet", "the first line")
        self.start_tarnwick("--background")
        wait_until(lambda: "13 pull requests" in last_line() or "wait" in last_line(), "the list")

    def testItStartsNothingAndAsksNothing(self):
        self.start_github()
        self.select()
        _, last_line = self.watch("waybar")
        wait_until(lambda: last_line(), "the first line")
        self.assertEqual(json.loads(last_line())["class"], "stale")
        stays(lambda: not self.session.owns_name(NAME), "the bus without the program", 1)
        self.assertEqual(self.github.requests(), [])

    def testItFollowsTheFilesWhereNoProgramRuns(self):
        self.start_github()
        self.select()
        _, last_line = self.watch("json")
        wait_until(lambda: last_line(), "the first line")
        self.assertEqual(json.loads(last_line())["rows"], [])
        listed = self.run_tarnwick("list", "--json").stdout
        wait_until(lambda: len(json.loads(last_line())["rows"]) == 13, "the new list")
        self.assertEqual(
            [row["pullRequest"] for row in json.loads(last_line())["rows"]],
            [row["pullRequest"] for row in json.loads(listed)["rows"]],
        )
        self.assertEqual(self.run_tarnwick("list", "--cached", "--json").stdout.strip(), last_line())

    def testAnOldListIsStale(self):
        self.start_github()
        self.select()
        self.run_tarnwick("list")
        _, last_line = self.watch("waybar")
        wait_until(lambda: last_line(), "the first line")
        self.assertNotEqual(json.loads(last_line())["class"], "stale")
        self.write_cache_time(LONG_AGO)
        wait_until(lambda: json.loads(last_line())["class"] == "stale", "the old list")

    def testItReadsTheCacheOfAnotherVersionAndNoneThatIsBroken(self):
        self.start_github()
        self.select()
        self.run_tarnwick("list")
        with open(self.cache_file, encoding="utf-8") as file:
            snapshot = json.load(file)
        for name in ("reviewerScope", "repositoryScope", "reviewFilters", "states"):
            del snapshot[name]
        with open(self.cache_file, "w", encoding="utf-8") as file:
            json.dump({**snapshot, "later": {"also": 1}}, file)
        _, last_line = self.watch("line")
        wait_until(lambda: last_line().startswith("5 wait on you"), "the list of another version")
        with open(self.cache_file, "w", encoding="utf-8") as file:
            file.write('{"pullRequests":[')
        wait_until(lambda: last_line() == "Not updated yet", "the broken list")
        cached = self.run_tarnwick("list", "--cached")
        self.assertEqual((cached.returncode, cached.stdout), (0, ""))
        self.assertEqual(cached.stderr, 'No list has been saved yet. Run "tarnwick list" first.\n')

    def testItIsStaleAfterTwiceTheIntervalWhenTheProgramIsKilled(self):
        self.start_github()
        self.select(polling_interval="60")
        program = self.start_tarnwick("--background")
        self.wait_for_name()
        self.wait_for_list()
        watch, last_line = self.watch("waybar")
        wait_until(lambda: last_line(), "the first line")
        program.send_signal(signal.SIGKILL)
        program.wait()
        # As if nearly two minutes had gone by since.
        nearly = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(seconds=110)
        self.write_cache_time(nearly.strftime("%Y-%m-%dT%H:%M:%SZ"))
        stays(lambda: json.loads(last_line())["class"] != "stale", "the list of a minute ago", 2)
        wait_until(lambda: json.loads(last_line())["class"] == "stale", "the end of the second minute")
        self.assertIsNone(watch.poll())

    def testItFollowsABusThatGoesAndComesBack(self):
        self.start_github()
        self.select()
        self.run_tarnwick("list")
        watch, last_line = self.watch("line")
        self.start_stand_in(WaitingOnYou=71)
        wait_until(lambda: "71 wait on you" in last_line(), "the program's numbers")
        for count in (72, 73):
            self.session.processes.end(self.session.bus)
            wait_until(lambda: last_line().startswith("5 wait on you"), "the numbers on disk")
            self.session.start_bus()
            self.start_stand_in(WaitingOnYou=count)
            wait_until(lambda: f"{count} wait on you" in last_line(), "the program on the new bus")
        self.assertIsNone(watch.poll())

    def testItFindsABusThatComesLater(self):
        self.session.processes.end(self.session.bus)
        watch, last_line = self.watch("line")
        wait_until(lambda: last_line() == "Not updated yet", "the first line")
        self.session.start_bus()
        self.start_stand_in(WaitingOnYou=71)
        wait_until(lambda: "71 wait on you" in last_line(), "the program's numbers")
        self.assertIsNone(watch.poll())

    def testNothingWakesItWithoutABus(self):
        self.session.processes.end(self.session.bus)
        watch, last_line = self.watch("line")
        wait_until(lambda: last_line(), "the first line")
        wait_until_at_rest(watch.pid)
        before = wake_ups(watch.pid)
        stays(lambda: wake_ups(watch.pid) == before, "the rest", 5)

    def testTwoHundredOfThemFollow(self):
        self.start_github()
        self.select()
        self.run_tarnwick("list")
        watches = [self.watch("line") for _ in range(200)]
        wait_until(lambda: all(last_line() for _, last_line in watches), "the first line of each")
        tell = self.start_stand_in(WaitingOnYou=71)
        wait_until(lambda: all("71 wait on you" in last_line() for _, last_line in watches), "the program's numbers")
        tell(WaitingOnYou=72)
        wait_until(lambda: all("72 wait on you" in last_line() for _, last_line in watches), "the change")
        self.assertEqual([watch for watch, _ in watches if watch.poll() is not None], [])

    def testASignalEndsIt(self):
        watch, last_line = self.watch("line")
        wait_until(lambda: last_line(), "the first line")
        watch.send_signal(signal.SIGTERM)
        self.assertEqual(self.wait_for_end(watch), -signal.SIGTERM)

    def testTheEndOfTheReaderEndsIt(self):
        ended = self.session.processes.run(
            "bash", "-c", '"$0" watch --format line | head -n 1; echo "${PIPESTATUS[0]}"', os.path.join(PROGRAMS, "tarnwick")
        )
        self.assertEqual(ended.stdout, "Not updated yet\n0\n")
