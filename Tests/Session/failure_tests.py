"""What users see when something is missing or fails, and that they lose nothing by it."""

import json
import os
import signal

from desktop import SessionTest, wait_until
from desktop.mounts import Mounts
from desktop.processes import output_of

CACHED = "Showing cached data: "

# Stands in for the desktop's portal: prints what it is to open.
PORTAL = """
from gi.repository import Gio, GLib

INTERFACE = Gio.DBusNodeInfo.new_for_xml(
    "<node><interface name='org.freedesktop.portal.OpenURI'><method name='OpenURI'>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='a{sv}' direction='in'/>"
    "<arg type='o' direction='out'/></method></interface></node>"
).interfaces[0]


def call(bus, sender, path, interface, method, arguments, invocation):
    print(arguments.unpack(), flush=True)
    invocation.return_value(GLib.Variant("(o)", ("/request",)))


def acquired(bus, name):
    bus.register_object("/org/freedesktop/portal/desktop", INTERFACE, call)


name = "org.freedesktop.portal.Desktop"
Gio.bus_own_name(Gio.BusType.SESSION, name, 0, acquired, None, None)
GLib.MainLoop().run()
"""


def bytes_of(file):
    with open(file, "rb") as opened:
        return opened.read()


class FailureTest(SessionTest):
    """The panel as a screen reader finds it. The sample GitHub and the settings are there before
    the program."""

    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.start_github()
        self.select()
        self.reader = None

    def open_panel(self, **options):
        program = self.start_tarnwick(**options)
        self.focused_panel()
        self.reader = self.accessibility()
        return program

    def end(self, program):
        self.session.processes.end(program)

    def find_texts(self, *texts):
        for text in texts:
            self.reader.find("label", text)

    def find_rows(self):
        """The 13 pull requests that the settings select."""
        self.find_beginning("13 pull requests")
        self.reader.find("list item")

    def find_beginning(self, beginning):
        """What the first element says whose name begins so, once there is one."""

        def names():
            names = (element.name for element in self.reader.find_all())
            return [name for name in names if name.startswith(beginning)]

        return wait_until(names, f'"{beginning}…"')[0]

    def write_cache(self):
        """Has the program leave a cache behind."""
        program = self.start_tarnwick("--background")
        wait_until(lambda: os.path.exists(self.cache_file), "the cache")
        self.end(program)
        return bytes_of(self.cache_file)


class AccountTests(FailureTest):
    def testWithoutGhThePanelSaysWhatToInstall(self):
        mounts = Mounts()
        for place in ("/opt/homebrew/bin/gh", "/usr/local/bin/gh", "/usr/bin/gh"):
            if os.path.exists(place):
                mounts.hide_program(place)
        with_path = ("/usr/bin/env", "PATH=/nowhere")
        self.open_panel(through=lambda *command: mounts.command(*with_path, *command))
        self.find_texts(
            "GitHub CLI unavailable",
            "GitHub CLI (gh) was not found. Install it, then run gh auth login.",
            "Run `gh auth login` in Terminal, then try again.",
        )
        self.reader.find("push button", "Copy gh auth login")
        self.reader.press("push button", "Try Again")
        self.find_texts("GitHub CLI unavailable")

    def testSigningInAndOutAreSeenAtTheNextRefresh(self):
        settings = self.read_settings()
        self.github.serve("signed-out")
        self.open_panel()
        # The wording is gh's own and differs between its versions.
        status = self.session.processes.run("gh", "auth", "status")
        nobody = status.stderr.strip()
        self.assertEqual(status.returncode, 1)
        self.assertRegex(nobody, "^You are not logged into any GitHub hosts.*gh auth login")
        self.find_texts(
            "Sign in to GitHub", nobody, "Run `gh auth login` in Terminal, then try again."
        )
        self.github.serve("everyday")
        self.reader.press("push button", "Try Again")
        self.find_rows()
        self.github.serve("signed-out")
        self.screen.key("r")
        self.reader.find(None, CACHED + nobody)
        self.find_rows()
        for line in settings.splitlines():
            self.assertIn(line, self.read_settings().splitlines())


class RefreshFailureTests(FailureTest):
    def testOfflineThePanelOffersToTryAgainAndThenTheCache(self):
        self.github.end()
        program = self.open_panel()
        # gh calls this a failed login, and signing in again would not help.
        self.find_texts("GitHub cannot be reached.")
        self.assertEqual(self.reader.find_all("push button", "Copy gh auth login"), [])
        self.assertFalse(os.path.exists(self.cache_file))
        self.github.serve()
        self.reader.press("push button", "Try Again")
        self.find_rows()
        wait_until(lambda: os.path.exists(self.cache_file), "the cache")
        self.end(program)

        self.github.end()
        cache = bytes_of(self.cache_file)
        self.open_panel()
        self.reader.find(None, f"{CACHED}GitHub cannot be reached.")
        self.find_rows()
        self.assertEqual(bytes_of(self.cache_file), cache)
        self.reader.press("push button", "Dismiss")
        self.reader.wait_until_gone("push button", "Dismiss")
        self.screen.key("r")
        self.reader.find("push button", "Dismiss")
        self.github.serve()
        self.reader.press("push button", "Try Again")
        self.reader.wait_until_gone("push button", "Try Again")
        self.find_rows()


class StorageTests(FailureTest):
    def not_kept(self, reason):
        return (
            f"The settings file {self.settings_file} cannot be {reason}, so changes to the "
            "settings are not saved."
        )

    def switch_to_dark(self):
        """By the menu, with the keyboard alone."""
        self.screen.key("comma")
        self.reader.press("menu item", "Settings")
        self.reader.press("menu item", "Dark Mode")

    def testSettingsThatCannotBeWrittenStayAndTheInfoBarSaysSo(self):
        self.write_cache()
        settings = bytes_of(self.settings_file)
        mounts = Mounts()
        mounts.make_read_only(os.path.dirname(self.settings_file))
        self.open_panel(through=mounts.command)
        self.find_rows()
        self.assertEqual(self.reader.find_all(None, self.not_kept("written")), [])
        self.switch_to_dark()
        self.reader.find(None, self.not_kept("written (Read-only file system)"))
        self.assertEqual(bytes_of(self.settings_file), settings)

    def testOnAFullDiskSettingsAndCacheStayAsTheyWere(self):
        self.write_cache()
        folders = [os.path.dirname(file) for file in (self.settings_file, self.cache_file)]
        before = {
            os.path.join(folder, name): bytes_of(os.path.join(folder, name))
            for folder in folders
            for name in os.listdir(folder)
        }
        mounts = Mounts()
        for folder in folders:
            mounts.fill(folder)
        program = self.open_panel(through=mounts.command)
        self.find_rows()
        self.switch_to_dark()
        self.reader.find(None, self.not_kept("written (No space left on device)"))
        self.reload()
        wait_until(lambda: not self.reader.find_all(None, "Refreshing"), "the end of the refresh")
        self.find_rows()
        seen = f"/proc/{program.pid}/root"
        fillers = {os.path.join(folder, "filler") for folder in folders}
        after = {os.path.join(folder, name) for folder in folders for name in os.listdir(seen + folder)}
        self.assertEqual(after, fillers | set(before))
        for file, content in before.items():
            self.assertEqual(bytes_of(seen + file), content, file)

    def testOnAFullDiskTheCommandsPrintWhatThereIsAndSayWhatIsNotKept(self):
        cache = self.write_cache()
        settings = bytes_of(self.settings_file)
        mounts = Mounts()
        for file in (self.settings_file, self.cache_file):
            mounts.fill(os.path.dirname(file))

        listed = self.run_tarnwick("list", "--json", through=mounts.command)
        self.assertEqual((listed.returncode, listed.stderr), (0, ""))
        self.assertEqual(len(json.loads(listed.stdout)["rows"]), 13)
        changed = self.run_tarnwick(
            "repositories", "select", "robin-k/dotfiles", through=mounts.command
        )
        self.assertEqual(changed.returncode, 1)
        self.assertEqual(changed.stderr, self.not_kept("written (No space left on device)") + "\n")
        self.assertEqual((bytes_of(self.settings_file), bytes_of(self.cache_file)), (settings, cache))

    def testASettingsFileThatCannotBeReadIsNeitherUsedNorReplaced(self):
        os.remove(self.settings_file)
        os.makedirs(self.settings_file)
        self.open_panel()
        self.reader.find(None, self.not_kept("read (Is a directory)"))
        self.find_texts("No pull requests involving you were found.")
        self.assertEqual(os.listdir(self.settings_file), [])


class OpeningTests(FailureTest):
    def open_first_row(self):
        self.focused_panel()
        self.find_rows()
        self.screen.key("Home", "Return")
        self.panel_gone()

    def testWithoutALinkOpenerThePortalIsAskedAndWithoutThatThePanelCanComeBack(self):
        program = self.open_panel(environment={"PATH": "/nowhere"})
        self.open_first_row()
        wait_until(lambda: "lastVisitedAt." in self.read_settings(), "the visit")
        self.activate()
        portal = self.session.processes.start("/usr/bin/python3", "-c", PORTAL)
        wait_until(lambda: self.session.owns_name("org.freedesktop.portal.Desktop"), "the portal")
        self.open_first_row()
        wait_until(lambda: output_of(portal), "a call of the portal")
        self.assertEqual(
            output_of(portal), "('', 'https://github.com/harbourlight/tide-tables/pull/77', {})\n"
        )
        self.assertEqual(output_of(program), "")


class InstanceTests(FailureTest):
    def testASecondStartSaysThatTheFirstDoesNotAnswer(self):
        first = self.open_panel()
        os.kill(first.pid, signal.SIGSTOP)
        second = self.run_tarnwick()
        os.kill(first.pid, signal.SIGCONT)
        self.assertEqual(second.returncode, 1)
        self.assertEqual(second.stderr, "Tarnwick is already running but does not respond.\n")
        self.assertIsNone(first.poll())


class BusTests(SessionTest):
    def testWithoutTheBusThatItBeganWithItGoesOn(self):
        program = self.start_tarnwick()
        window = self.focused_panel()
        wait_until(lambda: os.path.exists(self.cache_file), "the first refresh")
        self.session.processes.end(self.session.bus)
        asked = len(self.github.requests("repositories"))
        self.screen.key("r")
        wait_until(lambda: len(self.github.requests("repositories")) > asked, "a refresh")
        self.assertEqual(self.screen.windows(), [window])
        self.screen.key("ctrl+q")
        self.assertEqual(self.wait_for_end(program), 0)
        self.assertEqual(output_of(program), "")


class EndingTests(FailureTest):
    has_accessibility = False

    def begin_refresh(self):
        """A refresh that does not end by itself, over a list from a cache. Returns the program."""
        self.files = (self.settings_file, self.cache_file)
        self.write_cache()
        self.before = [bytes_of(file) for file in self.files]
        self.github.serve(faults=["delay=60000@search"])
        asked = len(self.github.requests("search"))
        program = self.start_tarnwick()
        wait_until(lambda: len(self.github.requests("search")) > asked, "a search under way")
        return program

    def nothing_is_lost(self):
        self.assertEqual([bytes_of(file) for file in self.files], self.before)

    def testTheSessionsEndDuringARefreshCostsNothing(self):
        program = self.begin_refresh()
        os.kill(program.pid, signal.SIGTERM)
        self.assertEqual(self.wait_for_end(program), -signal.SIGTERM)
        self.nothing_is_lost()

    def testTheDisplaysEndDuringARefreshCostsNothing(self):
        program = self.begin_refresh()
        self.session.processes.end(self.session.display)
        # What it started ends too.
        self.wait_for_end(program)
        self.nothing_is_lost()
