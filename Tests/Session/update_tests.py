"""Updates as their user meets them: from the menu to the installer, by the word of the real dpkg and
apt."""

import os
import subprocess

from desktop import SessionTest, wait_until
from desktop.case import PROGRAMS, VERSION
from desktop.update_server import PACKAGE, STANZA, UpdateServer
from desktop.waiting import stays

# The program with an updater of the tests.
PROGRAM = os.path.join(os.path.dirname(PROGRAMS), "with-updates", "tarnwick")

DIALOG = "^Software Update"

OFFER = f"Tarnwick 99.0 is available, and you have {VERSION}. "


class UpdateTest(SessionTest):
    """A program that dpkg owns, in databases of dpkg and apt that are the test's own, with a server of
    updates."""

    has_accessibility = True

    def setUp(self):
        super().setUp()
        self.server = UpdateServer(os.path.join(self.session.folder, "updates"))
        self.addCleanup(self.server.end)
        self.session.environment.update(
            TARNWICK_UPDATE_FEED=self.server.feed,
            TARNWICK_UPDATE_KEY=self.server.public_key,
            TARNWICK_UPDATE_AUTHORITY=self.server.authority,
        )
        self.new = self.server.package("99.0-1")
        self.server.offer("99.0", self.new, notes="&lt;p&gt;Calmer &amp;amp; faster.&lt;/p&gt;")
        self.programs.record("xdg-open")
        self.make_databases()
        self.reader = None

    def folder(self, *names):
        path = os.path.join(self.session.folder, "system", *names)
        os.makedirs(path, exist_ok=True)
        return path

    def write(self, path, text):
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def make_databases(self):
        dpkg, info = self.folder("dpkg"), self.folder("dpkg", "info")
        installed = STANZA.format(version=VERSION) + "Status: install ok installed\n"
        status = self.write(os.path.join(dpkg, "status"), installed)
        self.write(os.path.join(info, "format"), "1\n")
        self.write(os.path.join(info, "tarnwick.list"), PROGRAM + "\n")
        configuration = self.write(
            os.path.join(self.folder("apt"), "apt.conf"),
            f"""Dir "{self.folder("apt")}";
Dir::State "{self.folder("apt", "state")}";
Dir::State::status "{status}";
Dir::Cache "{self.folder("apt", "cache")}";
Dir::Etc::sourcelist "{self.sources}";
Dir::Etc::sourceparts "/dev/null";
Acquire::Languages "none";
APT::Sandbox::User "";
""",
        )
        self.session.environment.update(DPKG_ADMINDIR=dpkg, APT_CONFIG=configuration)

    @property
    def sources(self):
        return os.path.join(self.folder("apt"), "sources.list")

    def put_into_a_repository(self):
        repository = self.folder("repository")
        self.write(
            os.path.join(repository, "Packages"),
            STANZA.format(version=VERSION)
            + f"Filename: ./tarnwick.deb\nSize: 1\nSHA256: {'0' * 64}\n",
        )
        self.write(self.sources, f"deb [trusted=yes] file:{repository} ./\n")
        subprocess.run(
            ("apt-get", "update"),
            env=self.session.environment,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            check=True,
        )

    def start(self, *arguments):
        self.start_github()
        self.select("harbourlight/tide-tables")
        program = self.session.processes.start(PROGRAM, *arguments)
        self.reader = self.accessibility()
        self.wait_for_name()
        return program

    def check(self):
        """Has the user check from the panel's menu."""
        self.focused_panel()
        self.reader.press("push button", "List options")
        self.reader.press("menu item", "Check for Updates…")

    def install(self):
        self.check()
        self.reader.press("push button", "Install Update")

    def opened(self):
        """The files that were handed to the system's installer."""
        return [arguments[0] for arguments in self.programs.arguments("xdg-open")]

    def left_behind(self):
        """The downloads in the user's cache folder."""
        folder = os.path.join(
            self.session.environment["XDG_CACHE_HOME"], "dev.tarnwick.Tarnwick", "updates"
        )
        return os.listdir(folder) if os.path.exists(folder) else []

    def assert_refused(self, reason):
        """The download is deleted for this reason, and handed to nobody."""
        self.wait_for_text("Update Error")
        self.wait_for_text(f'The download "{PACKAGE}" was deleted because {reason}.')
        self.assertEqual(self.left_behind(), [])
        stays(lambda: not self.opened(), "nothing opened", 0.3)

    def dialog(self):
        """The dialog's window once it is in sight."""
        return self.screen.wait_for_window(DIALOG)

    def wait_for_dialog_focus(self):
        window = self.dialog()
        wait_until(lambda: self.screen.has_focus(window), "the focus of the dialog")
        return window

    def dialog_gone(self):
        self.screen.wait_for_no_window(DIALOG)

    def wait_for_text(self, text):
        self.reader.find("label", text)


class InstallingTests(UpdateTest):
    def testFromTheMenuToTheInstallerByTheKeyboardAlone(self):
        self.start()
        self.focused_panel()
        self.screen.key("comma")
        self.reader.find("menu item", "Check for Updates…")
        self.screen.key("Up", "Up", "Up", "Return")
        self.wait_for_text("A new version of Tarnwick is available!")
        self.wait_for_text(OFFER + "Would you like to install it now?")
        self.assertEqual(self.reader.find("label", "Calmer & faster.").description, "Release notes")
        self.reader.find("dialog", "A new version of Tarnwick is available!")
        self.assertEqual(
            self.reader.names("push button")[-3:],
            ["Skip This Version", "Remind Me Later", "Install Update"],
        )
        self.wait_for_dialog_focus()
        self.screen.key("Return")
        self.wait_for_text("Continue in the Installer")
        opened = wait_until(self.opened, "the installer")
        self.assertEqual([os.path.basename(path) for path in opened], [PACKAGE])
        with open(opened[0], "rb") as file:
            self.assertEqual(file.read(), self.new)
        self.wait_for_text(
            f'The system\'s installer was asked to open "{PACKAGE}". If it does not, run '
            f"\"sudo apt install '{opened[0]}'\"."
        )
        self.wait_for_dialog_focus()
        self.screen.key("Return")
        self.dialog_gone()
        self.focused_panel()
        self.assertTrue(os.path.exists(opened[0]))

    def testASignatureOfOtherBytesInstallsNothing(self):
        self.server.offer("99.0", self.new, signed=self.new + b"\n")
        self.start()
        self.install()
        self.assert_refused("its signature is not valid")
        self.reader.press("push button", "OK")
        self.dialog_gone()
        self.focused_panel()

    def testACancelledDownloadLeavesNothing(self):
        self.server.never_finish()
        self.start()
        self.install()
        self.wait_for_text("Downloading Update…")
        wait_until(self.left_behind, "the download")
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.assertEqual(self.left_behind(), [])
        self.focused_panel()

    def testTheProgramsEndDuringADownloadLeavesNothing(self):
        self.server.never_finish()
        for end in (lambda _: self.action("quit"), lambda program: program.terminate()):
            program = self.start("--background")
            self.action("check-for-updates")
            self.reader.press("push button", "Install Update")
            wait_until(self.left_behind, "the download")
            end(program)
            self.wait_for_end(program)
            self.assertEqual(self.left_behind(), [])

    def testTheDisplaysEndDuringADownloadLeavesNothing(self):
        self.server.never_finish()
        program = self.start("--background")
        self.action("check-for-updates")
        self.reader.press("push button", "Install Update")
        wait_until(self.left_behind, "the download")
        self.session.processes.end(self.session.display)
        self.session.screen = None
        # As Qt ends a program whose display is gone.
        self.assertEqual(self.wait_for_end(program), 1)
        self.assertEqual(self.left_behind(), [])


class CheckingTests(UpdateTest):
    def testTheNewestVersionIsUpToDate(self):
        self.server.offer(VERSION, self.new)
        self.start()
        self.check()
        self.wait_for_text("You're up to date!")
        self.wait_for_text(f"Tarnwick {VERSION} is the newest version available.")
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.focused_panel()
        self.assertEqual(self.server.requests, ["/appcast.xml"])

    def testNothingOfTheNetworkIsLoadedBeforeTheFirstCheck(self):
        program = self.start()
        self.focused_panel()

        def has_network():
            with open(f"/proc/{program.pid}/maps", encoding="utf-8") as file:
                return "libQt6Network" in file.read()

        self.assertFalse(has_network())
        self.check()
        self.reader.find("push button", "Install Update")
        self.assertTrue(has_network())

    def testAServerThatNobodyVouchesForIsRefused(self):
        self.session.environment["TARNWICK_UPDATE_AUTHORITY"] = "/nowhere"
        self.start()
        self.check()
        self.wait_for_text(
            "The update feed could not be fetched: the server could not prove its identity."
        )
        self.assertEqual(self.server.requests, [])

    def testTheApplicationsActionChecksWithThePanelHidden(self):
        self.start("--background")
        self.assertEqual(self.action("check-for-updates").returncode, 0)
        self.wait_for_text("A new version of Tarnwick is available!")
        self.wait_for_dialog_focus()
        self.assertEqual(self.screen.windows(), [])

    def testASecondWishShowsTheDialogThatIsThere(self):
        self.server.never_finish()
        self.start("--background")
        self.action("check-for-updates")
        self.reader.press("push button", "Install Update")
        self.wait_for_text("Downloading Update…")
        dialog = self.wait_for_dialog_focus()
        self.session.processes.start("xmessage", "-geometry", "+40+300", "Another window.")
        other = self.screen.wait_for_window("xmessage")
        self.screen.click(*self.screen.place(other).centre)
        wait_until(lambda: not self.screen.has_focus(dialog), "the focus of the other window")
        self.action("check-for-updates")
        wait_until(lambda: self.screen.has_focus(dialog), "the focus of the dialog")
        self.wait_for_text("Downloading Update…")

    def testASkippedVersionIsRemembered(self):
        self.start()
        self.check()
        self.reader.press("push button", "Skip This Version")
        self.dialog_gone()
        wait_until(
            lambda: "updates.skippedVersion=99.0" in self.read_settings(), "the skipped version"
        )

    def testAProgramWithoutAnUpdaterHasNoSuchItemOrAction(self):
        self.start_tarnwick()
        self.reader = self.accessibility()
        self.wait_for_name()
        self.focused_panel()
        self.reader.press("push button", "List options")
        self.reader.find("menu item", "Help")
        self.assertNotIn("Check for Updates…", self.reader.names("menu item"))
        refused = self.action("check-for-updates")
        self.assertEqual(refused.returncode, 1)
        self.assertIn('Unknown action "check-for-updates".', refused.stderr)

    def testOfAPackageOfARepositoryTheDialogNamesTheCommandAndOffersNoDownload(self):
        self.put_into_a_repository()
        self.start()
        self.check()
        self.wait_for_text(
            OFFER + 'Your package manager updates it: run "sudo apt update && sudo apt install '
            '--only-upgrade tarnwick".'
        )
        self.assertEqual(self.reader.names("push button")[-1:], ["OK"])
        self.assertNotIn("Install Update", self.reader.names("push button"))
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.assertEqual(self.server.requests, ["/appcast.xml"])


class PanelTests(UpdateTest):
    window_manager = ("xfwm4", "--compositor=off")

    def setUp(self):
        super().setUp()
        self.session.start_xfce_panel()

    def testThePanelStaysBelowTheDialogUntilTheFocusLeavesBoth(self):
        self.server.never_finish()
        self.start()
        self.install()
        self.wait_for_text("Downloading Update…")
        self.wait_for_dialog_focus()
        stays(self.screen.windows, "the panel", 0.4)
        self.session.processes.start("xmessage", "-geometry", "+40+300", "Another window.")
        other = self.screen.wait_for_window("xmessage")
        self.screen.click(*self.screen.place(other).centre)
        self.panel_gone()
        self.assertTrue(self.screen.windows(DIALOG))

    def testTheFocusComesBackToThePanel(self):
        self.start()
        self.check()
        self.wait_for_text("A new version of Tarnwick is available!")
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.focused_panel()
        self.screen.key("Escape")
        self.panel_gone()
