"""Pull requests opened in the editor: the real git, and a `code` that records how it is run."""

import http.server
import json
import os
import threading

from desktop import SessionTest, wait_until
from desktop.clone import Clone
from desktop.mounts import Mounts
from desktop.processes import output_of

TITLE = "Unable to Open Editor"
GIT = "/usr/bin/git"
BRANCH = "booking/split"
BACKGROUND = os.path.join(os.path.dirname(os.path.abspath(__file__)), "desktop/in_background_of_terminal")

SCENARIO = {
    "account": {"login": "robin-k"},
    "repositories": [{"fullName": "harbourlight/ferry-api"}],
    "pullRequests": [
        {
            "repository": "harbourlight/ferry-api",
            "number": 412,
            "title": "Split bookings",
            "author": "mara-lindqvist",
            "created": "6d",
            "updated": "2h",
            "head": BRANCH,
        }
    ],
}


class Locked:
    """A web server that asks whoever comes for a name and a password; yields a repository's address."""

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):  # The name is the library's.
            self.send_response(401)
            self.send_header("WWW-Authenticate", 'Basic realm="Repositories"')
            self.end_headers()

        def log_message(self, *_):
            pass

    def __enter__(self):
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self.Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        return f"http://127.0.0.1:{self.server.server_port}/ferry-api.git"

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()


class EditorTest(SessionTest):
    """One pull request on the screen, and the key that opens it in the editor."""

    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.projects = os.path.join(self.session.home, "projects")
        self.programs.record("code")
        self.start_github(SCENARIO)
        self.program = None
        self.reader = None

    def clone(self, *branches):
        """The user's clone, whose origin has these branches."""
        return Clone(self.session.processes, self.projects, "ferry-api", branches)

    def open_in_editor(self, folder=None, mounts=None, path=None, through=None):
        """Starts the program, anew if it runs, with this project directory and presses the key."""
        if self.program is not None:
            self.session.processes.end(self.program)
        folder = folder or self.projects
        self.select("harbourlight/ferry-api", **{"editor.projectDirectory": folder})

        def started(*command):
            if path:
                command = ("/usr/bin/env", f"PATH={path}", *command)
            if through:
                command = through(*command)
            return mounts.command(*command) if mounts else command

        self.program = self.start_tarnwick(through=started)
        self.focused_panel()
        self.reader = self.accessibility()
        self.press_the_key()

    def press_the_key(self):
        wait_until(self.row_is_there, "the row")
        self.screen.key("Home", "ctrl+e")

    def row_is_there(self):
        return any("Split bookings" in name for name in self.reader.names("list item"))

    def wait_for_calls(self, number):
        """The arguments that `code` got each time, once it ran so often."""
        wait_until(lambda: len(self.programs.arguments("code")) >= number, "a run of code")
        return self.programs.arguments("code")

    def message(self):
        """The alert's text, once it is there."""
        self.reader.find("label", TITLE)
        text = self.reader.find(None, TITLE).description
        self.reader.find("label", text)
        return text

    def dismiss(self):
        self.reader.press("push button", "OK")
        self.reader.wait_until_gone("label", TITLE)


class WorktreeTests(EditorTest):
    def trace(self):
        """What git is asked for from here on; a function that returns it as commands."""
        file = os.path.join(self.session.folder, "git-trace")
        self.session.environment["GIT_TRACE2_EVENT"] = file

        def commands():
            with open(file, encoding="utf-8") as lines:
                events = [json.loads(line) for line in lines]
            # Those that git runs itself have a place below their parent's.
            return [
                event["argv"]
                for event in events
                if event["event"] == "start" and "/" not in event["sid"]
            ]

        return commands

    def testTheEditorOpensANewWorktreeAndTheSecondTimeTheSame(self):
        clone = self.clone(BRANCH)
        worktree = clone.worktree("booking-split")
        commands = self.trace()
        self.open_in_editor()
        self.assertEqual(self.wait_for_calls(1), [["--new-window", worktree]])
        git = ["/usr/bin/git", "-C", clone.path]
        looking = [
            [*git, "fetch", "origin"],
            [*git, "worktree", "list", "--porcelain", "-z"],
        ]
        making = [
            [*git, "show-ref", "--verify", "--quiet", "refs/heads/booking/split"],
            [*git, "worktree", "add", "-b", BRANCH, "--", worktree, "origin/booking/split"],
        ]
        self.assertEqual(commands(), looking + making)
        # The editor has the place.
        self.panel_gone()

        self.activate()
        self.focused_panel()
        self.press_the_key()
        self.assertEqual(self.wait_for_calls(2), [["--new-window", worktree]] * 2)
        self.assertEqual(commands(), looking + making + looking)
        del self.session.environment["GIT_TRACE2_EVENT"]
        self.assertEqual(clone.git("rev-parse", "--abbrev-ref", "HEAD", at=worktree), BRANCH)
        self.assertEqual(clone.git("rev-parse", "--abbrev-ref", "HEAD"), "main")

    def testTheOverlayTellsTheStepAndThePanelIsOutOfUse(self):
        clone = self.clone(BRANCH)
        let_through = clone.hold_fetches()
        self.open_in_editor()
        overlay = "Opening in Editor"
        self.reader.find("label", overlay)
        wait_until(
            lambda: self.reader.find(None, overlay).description == "Fetching origin…", "the step"
        )
        self.assertNotIn("enabled", self.reader.find("push button", "List options").states)
        self.screen.key("Escape")
        let_through()
        self.wait_for_calls(1)
        self.reader.wait_until_gone("label", overlay)


class WorktreeFailureTests(EditorTest):
    def fails_with(self, message):
        self.assertEqual(self.message(), message)
        self.assertEqual(self.programs.arguments("code"), [])

    def testAProjectDirectoryThatIsUnsetOrGoneIsToldWithWhatToDo(self):
        self.open_in_editor(" ")
        self.fails_with("Open Menu > Repositories and set Project Directory first.")
        os.makedirs(self.projects)
        for folder in (self.projects, "/nowhere/projects"):
            self.open_in_editor(folder)
            self.fails_with(
                f"The repository directory does not exist at {folder}/ferry-api. "
                "Open Menu > Repositories and set Project Directory first."
            )
        self.assertEqual(os.listdir(self.projects), [])

    def testWithoutTheEditorGitIsNotRunAndWithoutGitTheAlertSaysSo(self):
        clone = self.clone(BRANCH)
        nothing = os.path.join(self.session.folder, "nothing")
        os.makedirs(nothing)
        mounts = Mounts()
        mounts.hide_program(GIT)
        self.open_in_editor(mounts=mounts, path=nothing)
        self.fails_with("Visual Studio Code's `code` command was not found.")
        self.open_in_editor(mounts=mounts)
        self.fails_with("Could not start /usr/bin/git: Permission denied")
        self.assertEqual(clone.git("branch", "--remotes"), "origin/main")

    def testAnEditorThatFailsIsToldAndTheWorktreeStays(self):
        clone = self.clone(BRANCH)
        self.programs.add("code", "#!/bin/sh\necho 'No more windows.' >&2\nexit 5\n")
        message = "Opening Visual Studio Code failed (exit 5).\nNo more windows."
        for start_tray in (lambda: None, self.session.start_xfce_panel):
            start_tray()
            self.open_in_editor()
            self.assertEqual(self.message(), message)
            # It made room for the editor, which did not come.
            self.focused_panel()
        self.assertTrue(os.path.isdir(clone.worktree("booking-split")))

    def testTheAlertIsCopiedAndTheListIsOfUseAgain(self):
        self.open_in_editor("/nowhere/projects")
        message = self.message()
        self.reader.press("push button", "Copy error title and message")
        wait_until(lambda: self.clipboard() == f"{TITLE}\n\n{message}", "the copied text")
        self.dismiss()
        self.press_the_key()
        self.assertEqual(self.message(), message)


class TerminalTests(EditorTest):
    """The program as `tarnwick &` in a shell, and a git that wants to ask something."""

    def open_with_remote(self, clone, address):
        clone.git("remote", "set-url", "origin", address)
        if self.program is None:
            self.open_in_editor(through=lambda *command: (BACKGROUND, *command))
        else:
            self.dismiss()
            self.press_the_key()
        first, *_, said, advice = self.message().split("\n")
        self.assertEqual(first, "Fetching origin failed (exit 128).")
        return said, advice

    def testGitThatWantsToAskOnTheTerminalFailsAndNothingFreezes(self):
        clone = self.clone(BRANCH)
        with Locked() as address:
            said, advice = self.open_with_remote(clone, address)
        self.assertIn("could not read Username for 'http://127.0.0.1", said)
        self.assertIn("terminal prompts disabled", said)
        self.assertEqual(
            advice,
            "Tarnwick cannot ask for a password or confirm a host key. "
            f"Run `git -C {clone.path} fetch origin` in a terminal first.",
        )

        # What ssh does: it opens the terminal by its name.
        clone.git("config", "protocol.ext.allow", "always")
        self.open_with_remote(
            clone,
            "ext::sh -c read%answer</dev/tty||echo%Host%key%verification%failed>&2".replace("%", "% "),
        )
        self.dismiss()
        self.press_the_key()
        self.message()
        self.assertNotIn("The command was stopped.", output_of(self.program))
