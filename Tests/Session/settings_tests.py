"""Settings that several programs change at the same time, and that the panel follows.

TARNWICK_CHANGES says how many changes are made at once, else 200."""

import os
import random
import re
import sys
import threading

from desktop import SessionTest, wait_until
from desktop.quick_gh import in_place_of_gh
from desktop.processes import output_of

CHANGES = int(os.environ.get("TARNWICK_CHANGES", "200"))
WRITERS = 4
OWN = 8  # Repositories to a writer.

GH = """\
#!/bin/sh
case "$*" in
*"auth status"*) echo "github.com"; echo "  ✓ Logged in to github.com account robin-k (keyring)" ;;
*user/repos*) cat {repositories} ;;
*) echo '{{"data":{{"search":{{"issueCount":0,"nodes":[],"pageInfo":{{"hasNextPage":false,"endCursor":null}}}}}}}}' ;;
esac
"""


def names_of(owner):
    return [f"{owner}/r{number}" for number in range(OWN)]


class SettingsTest(SessionTest):
    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.github = "a program of the test's own"
        owners = [f"writer{number}" for number in range(WRITERS)] + ["panel"]
        file = os.path.join(self.session.folder, "repositories")
        with open(file, "w", encoding="utf-8") as lines:
            for owner in owners:
                for name in names_of(owner):
                    lines.write(
                        f'{{"repository":"{name}","visibility":"public","language":"C",'
                        '"default_branch":"main","archived":false}\n'
                    )
        self.through = in_place_of_gh(self.programs.add("quick-gh", GH.format(repositories=file)))
        self.select("panel/r0")

    def start(self, *arguments):
        return self.start_tarnwick(*arguments, through=self.through)

    def change(self, *arguments):
        """Runs `tarnwick repositories` to its end, which must be a good one."""
        process = self.start("repositories", *arguments)
        self.assertEqual(self.wait_for_end(process), 0)

    def selection(self):
        line = re.search(r"^filters.repositories=(.*)$", self.read_settings(), re.MULTILINE)[1]
        return set(filter(None, line.replace("@Empty()", "").split(", ")))


class WriterTests(SettingsTest):
    def testParallelSelectionsAllRemain(self):
        for _ in range(max(5, CHANGES // 500)):
            self.change("unselect", "--all")
            names = [f"writer{number}/r0" for number in range(WRITERS)]
            started = [self.start("repositories", "select", name) for name in names]
            self.assertEqual([self.wait_for_end(process) for process in started], [0] * WRITERS)
            self.assertEqual(self.selection(), set(names))

    def testFourCommandsAndAPanelLoseNothing(self):
        self.start()
        reader = self.accessibility()
        self.focused_panel()
        reader.press("push button", "List options")
        reader.press("menu item", "Repositories")
        wait_until(
            lambda: "focused" in reader.find("text", "Find a repository").states, "the field"
        )
        self.screen.type("panel/")
        wait_until(lambda: len(reader.names("list item")) == OWN + 1, "the panel's repositories")
        self.screen.key("Down")
        wait_until(
            lambda: "focused"
            in reader.find("list item", "panel/r0, Public, C").states,
            "the first repository",
        )
        expected = {f"writer{number}": set() for number in range(WRITERS)}
        expected["panel"] = {"panel/r0"}
        made = dict.fromkeys(expected, 0)
        failures = []
        starting = threading.Lock()

        def command(owner):
            random_of_owner = random.Random(owner)
            while not failures and made[owner] < CHANGES // (WRITERS + 1):
                isSelected = random_of_owner.random() < 0.5
                names = random_of_owner.sample(names_of(owner), random_of_owner.randint(1, OWN))
                verb = "select" if isSelected else "unselect"
                with starting:
                    process = self.start("repositories", verb, *names)
                if process.wait() != 0:
                    failures.append(output_of(process))
                with starting:
                    self.session.processes.forget(process)
                os.remove(process.log)
                before = set(expected[owner])
                if isSelected:
                    expected[owner].update(names)
                else:
                    expected[owner].difference_update(names)
                made[owner] += len(before ^ expected[owner])

        def press():
            while not failures and made["panel"] < CHANGES // (WRITERS + 1):
                keys = []
                for number in range(OWN):
                    keys += ["space"] + (["Down"] if number < OWN - 1 else [])
                    expected["panel"] ^= {f"panel/r{number}"}
                    made["panel"] += 1
                self.screen.key(*keys, *["Up"] * (OWN - 1))

        threads = [threading.Thread(target=press)]
        threads += [
            threading.Thread(target=command, args=(f"writer{number}",)) for number in range(WRITERS)
        ]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(failures, [])
        wanted = set().union(*expected.values())
        wait_until(lambda: self.selection() == wanted, "every change in the file", 20)
        reader.find("label", f"{len(wanted)} selected")
        print(f"{sum(made.values())} changes: {made}", file=sys.stderr)


class FollowingTests(SettingsTest):
    def testTheOpenPanelShowsWhatACommandSelects(self):
        self.start()
        reader = self.accessibility()
        self.focused_panel()
        reader.press("push button", "List options")
        reader.press("menu item", "Repositories")
        reader.find("label", "1 selected")
        self.change("select", "writer0/r0", "writer1/r1")
        reader.find("label", "3 selected")
        # As an editor does that writes in place.
        text = self.read_settings().replace("panel/r0, ", "")
        with open(self.settings_file, "w", encoding="utf-8") as file:
            file.write(text)
        reader.find("label", "2 selected")
        self.assertEqual(self.selection(), {"writer0/r0", "writer1/r1"})
