"""Updates as their user meets them: from the menu to the new version at work."""

import os

from desktop import SessionTest, wait_until
from desktop.case import PROGRAMS
from desktop.update_server import UpdateServer
from desktop.waiting import stays

# Where the program with an updater of the tests lies.
WITH_UPDATES = os.path.join(os.path.dirname(PROGRAMS), "with-updates")

DIALOG = "^Software Update"

# What a file that is an AppImage does: it tells the program where it lies, and starts it.
APPIMAGE = """#!/bin/sh
echo "{version} $*" >> "{record}"
APPIMAGE="{file}" APPDIR="{programs}" exec "{programs}/tarnwick" "$@"
"""


class UpdateTest(SessionTest):
    """The program as an AppImage, with a server of updates."""

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
        self.appimage = os.path.join(self.session.folder, "Tarnwick.AppImage")
        self.record = os.path.join(self.session.folder, "starts")
        with open(self.appimage, "wb") as file:
            file.write(self.version("old"))
        os.chmod(self.appimage, 0o750)
        self.new = self.version("new")
        self.server.offer("99.0", self.new, notes="&lt;p&gt;Calmer &amp;amp; faster.&lt;/p&gt;")
        self.program_file = self.appimage
        self.reader = None

    def version(self, name):
        """An AppImage that leaves its name when it is started."""
        return APPIMAGE.format(
            version=name,
            record=self.record,
            file=self.appimage,
            programs=WITH_UPDATES,
        ).encode()

    def starts(self):
        """The versions that were started, each with its arguments."""
        with open(self.record, encoding="utf-8") as file:
            return file.read().splitlines()

    def start(self, *arguments):
        self.start_github()
        self.select("harbourlight/tide-tables")
        program = self.session.processes.start(self.program_file, *arguments)
        self.reader = self.accessibility()
        self.wait_for_name()
        return program

    def check(self):
        """Has the user check from the panel's menu."""
        self.focused_panel()
        self.reader.press("push button", "List options")
        self.reader.press("menu item", "Check for Updates…")

    def installed(self):
        with open(self.appimage, "rb") as file:
            return file.read()

    def left_behind(self):
        """The downloads in the user's cache folder, and what lies beside the AppImage."""
        folder = os.path.join(
            self.session.environment["XDG_CACHE_HOME"], "dev.tarnwick.Tarnwick", "updates"
        )
        downloads = os.listdir(folder) if os.path.exists(folder) else []
        beside = os.listdir(self.session.folder)
        return downloads + [name for name in beside if name.startswith("Tarnwick.AppImage.")]

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
    def testFromTheMenuToTheNewVersionByTheKeyboardAlone(self):
        program = self.start()
        self.focused_panel()
        self.screen.key("comma")
        self.reader.find("menu item", "Check for Updates…")
        self.screen.key("Up", "Up", "Up", "Return")
        self.wait_for_text("A new version of Tarnwick is available!")
        self.wait_for_text(
            "Tarnwick 99.0 is available, and you have 0.1.0. Would you like to install it now?"
        )
        self.assertEqual(self.reader.find("label", "Calmer & faster.").description, "Release notes")
        self.reader.find("dialog", "A new version of Tarnwick is available!")
        self.assertEqual(
            self.reader.names("push button")[-3:],
            ["Skip This Version", "Remind Me Later", "Install Update"],
        )
        self.wait_for_dialog_focus()
        self.screen.key("Return")
        self.wait_for_text("Update Installed")
        self.assertEqual(self.installed(), self.new)
        self.assertEqual(os.stat(self.appimage).st_mode & 0o777, 0o750)
        self.assertEqual(self.left_behind(), [])
        self.wait_for_dialog_focus()
        self.screen.key("Return")
        wait_until(lambda: self.starts() == ["old ", "new "], "the start of the new version")
        self.wait_for_name()
        self.focused_panel()
        self.assertIsNone(program.poll())

    def testTheNewVersionComesUpHiddenWhenTheOldOneIs(self):
        self.start("--background")
        self.action("check-for-updates")
        self.reader.press("push button", "Install Update")
        self.reader.press("push button", "Restart Now")
        wait_until(
            lambda: self.starts() == ["old --background", "new --background"],
            "the start of the new version",
        )
        self.wait_for_name()
        self.assertEqual(self.screen.windows(), [])

    def testLaterLeavesTheOldVersionAtWork(self):
        self.start()
        self.check()
        self.reader.press("push button", "Install Update")
        self.reader.press("push button", "Later")
        self.dialog_gone()
        self.focused_panel()
        self.assertEqual(self.installed(), self.new)
        self.assertEqual(self.starts(), ["old "])

    def testASignatureOfOtherBytesInstallsNothing(self):
        self.server.offer("99.0", self.new, signed=self.new + b"\n")
        self.start()
        self.check()
        self.reader.press("push button", "Install Update")
        self.wait_for_text("Update Error")
        self.wait_for_text(
            'The download "Tarnwick.AppImage" was deleted because its signature is not valid.'
        )
        self.assertEqual(self.installed(), self.version("old"))
        self.assertEqual(self.left_behind(), [])
        self.reader.press("push button", "OK")
        self.dialog_gone()
        self.focused_panel()

    def testACancelledDownloadLeavesNothing(self):
        self.server.never_finish("/Tarnwick.AppImage")
        self.start()
        self.check()
        self.reader.press("push button", "Install Update")
        self.wait_for_text("Downloading Update…")
        wait_until(self.left_behind, "the download")
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.assertEqual(self.left_behind(), [])
        self.assertEqual(self.installed(), self.version("old"))
        self.focused_panel()

    def testTheProgramsEndDuringADownloadLeavesNothing(self):
        self.server.never_finish("/Tarnwick.AppImage")
        for end in (lambda _: self.action("quit"), lambda program: program.terminate()):
            program = self.start("--background")
            self.action("check-for-updates")
            self.reader.press("push button", "Install Update")
            wait_until(self.left_behind, "the download")
            end(program)
            self.wait_for_end(program)
            self.assertEqual(self.left_behind(), [])
            self.assertEqual(self.installed(), self.version("old"))

    def testTheDisplaysEndDuringADownloadLeavesNothing(self):
        self.server.never_finish("/Tarnwick.AppImage")
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
        self.server.offer("0.1.0", self.new)
        self.start()
        self.check()
        self.wait_for_text("You're up to date!")
        self.wait_for_text("Tarnwick 0.1.0 is the newest version available.")
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

    def testWithoutANetworkItSaysSo(self):
        self.session.environment["TARNWICK_UPDATE_FEED"] = "https://127.0.0.1:9/appcast.xml"
        self.start()
        self.check()
        self.wait_for_text("Update Error")
        self.wait_for_text(
            "The update feed could not be fetched: the server refused the connection."
        )
        self.reader.press("push button", "OK")
        self.dialog_gone()
        self.check()
        self.wait_for_text("Update Error")

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
        self.server.never_finish("/Tarnwick.AppImage")
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
        self.assertIn('There is no action "check-for-updates".', refused.stderr)


class PanelTests(UpdateTest):
    window_manager = ("xfwm4", "--compositor=off")

    def setUp(self):
        super().setUp()
        self.session.start_xfce_panel()

    def testThePanelStaysBelowTheDialogUntilTheFocusLeavesBoth(self):
        self.server.never_finish("/Tarnwick.AppImage")
        self.start()
        self.check()
        self.reader.press("push button", "Install Update")
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
