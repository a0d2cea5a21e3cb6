"""Updates of a program that came in a Debian package, by the word of the real dpkg and apt."""

import os
import subprocess

from desktop import wait_until
from desktop.waiting import stays
from update_tests import WITH_UPDATES, UpdateTest

PACKAGE = "tarnwick_99.0_amd64.deb"

STANZA = """Package: tarnwick
Version: {version}
Architecture: amd64
Maintainer: Tests <tests@localhost>
Description: A package of the tests
"""


class PackageUpdateTest(UpdateTest):
    """A program that dpkg owns, in databases of dpkg and apt that are the test's own."""

    def setUp(self):
        super().setUp()
        self.program_file = os.path.join(WITH_UPDATES, "tarnwick")
        self.programs.record("xdg-open")
        self.server.offer("99.0", self.new, name=PACKAGE)
        self.make_databases()

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
        installed = STANZA.format(version="0.1.0") + "Status: install ok installed\n"
        status = self.write(os.path.join(dpkg, "status"), installed)
        self.write(os.path.join(info, "format"), "1\n")
        self.write(os.path.join(info, "tarnwick.list"), self.program_file + "\n")
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
            STANZA.format(version="0.1.0")
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

    def opened(self):
        return [arguments[0] for arguments in self.programs.arguments("xdg-open")]


class ByHandTests(PackageUpdateTest):
    def testThePackageIsHandedToTheInstaller(self):
        self.start()
        self.check()
        self.wait_for_text(
            "Tarnwick 99.0 is available, and you have 0.1.0. Would you like to install it now?"
        )
        self.reader.press("push button", "Install Update")
        self.wait_for_text("Continue in the Installer")
        opened = wait_until(self.opened, "the installer")
        self.assertEqual([os.path.basename(path) for path in opened], [PACKAGE])
        with open(opened[0], "rb") as file:
            self.assertEqual(file.read(), self.new)
        self.wait_for_text(
            f'The system\'s installer was asked to open "{PACKAGE}". If it does not, run '
            f"\"sudo apt install '{opened[0]}'\"."
        )
        self.reader.press("push button", "OK")
        self.dialog_gone()
        self.focused_panel()
        self.assertTrue(os.path.exists(opened[0]))

    def testAPackageOfOtherBytesIsHandedToNobody(self):
        self.server.offer("99.0", self.new, signed=self.new + b"\n", name=PACKAGE)
        self.start()
        self.check()
        self.reader.press("push button", "Install Update")
        self.wait_for_text(
            f'The download "{PACKAGE}" was deleted because its signature is not valid.'
        )
        self.assertEqual(self.left_behind(), [])
        stays(lambda: not self.opened(), "nothing opened", 0.3)


class OfARepositoryTests(PackageUpdateTest):
    def testTheDialogNamesTheCommandAndOffersNoDownload(self):
        self.put_into_a_repository()
        self.start()
        self.check()
        self.wait_for_text(
            "Tarnwick 99.0 is available, and you have 0.1.0. Your package manager updates it: run "
            '"sudo apt update && sudo apt install --only-upgrade tarnwick".'
        )
        self.assertEqual(self.reader.names("push button")[-1:], ["OK"])
        self.assertNotIn("Install Update", self.reader.names("push button"))
        self.wait_for_dialog_focus()
        self.screen.key("Escape")
        self.dialog_gone()
        self.assertEqual(self.server.requests, ["/appcast.xml"])
