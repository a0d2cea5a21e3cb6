"""What an installation puts where, and whether those accept it who read it."""

import configparser
import glob
import gzip
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

from place import BUILD, ROOT, run

NAME = "dev.tarnwick.Tarnwick"

# Without the documents under docs/, of which there may be more at any time.
FILES = """
bin/tarnwick
share/applications/dev.tarnwick.Tarnwick.desktop
share/bash-completion/completions/tarnwick
share/dbus-1/interfaces/dev.tarnwick.Tarnwick.Status.xml
share/dbus-1/services/dev.tarnwick.Tarnwick.service
share/doc/tarnwick/README.md
share/doc/tarnwick/changelog.Debian.gz
share/doc/tarnwick/changelog.gz
share/doc/tarnwick/copyright
share/fish/vendor_completions.d/tarnwick.fish
share/gnome-shell/search-providers/dev.tarnwick.Tarnwick.search-provider.ini
share/icons/hicolor/scalable/apps/dev.tarnwick.Tarnwick.svg
share/icons/hicolor/symbolic/apps/dev.tarnwick.Tarnwick-symbolic.svg
share/krunner/dbusplugins/dev.tarnwick.Tarnwick.desktop
share/man/man1/tarnwick.1.gz
share/metainfo/dev.tarnwick.Tarnwick.metainfo.xml
share/tarnwick/Tarnwick_Tarnwick.bundle
share/zsh/vendor-completions/_tarnwick
""".split()


def entry_of(path):
    entry = configparser.RawConfigParser(delimiters=("=",))
    entry.optionxform = str
    with open(path, encoding="utf-8") as file:
        entry.read_file(file)
    return entry


class InstalledTest(unittest.TestCase):
    """An installation below a folder of the class's own."""

    prefix = "/usr"
    is_staged = True

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        if cls.is_staged:
            destination = {"DESTDIR": cls.folder}
            prefix = cls.prefix
            cls.place = cls.folder + cls.prefix
        else:
            destination = {}
            prefix = cls.place = os.path.join(cls.folder, "a place", "of mine")
        done = run("cmake", "--install", BUILD, "--prefix", prefix, env={**os.environ, **destination})
        if done.returncode != 0:
            raise AssertionError(done.stdout)

    def path(self, *names):
        return os.path.join(self.place, *names)

    def desktop_entry(self):
        return self.path("share/applications", f"{NAME}.desktop")

    def service(self):
        return self.path("share/dbus-1/services", f"{NAME}.service")

    def assertAccepts(self, *command):
        done = run(*command)
        self.assertEqual((done.returncode, done.stdout), (0, ""), command)


class SystemInstallationTests(InstalledTest):
    def testInstallsTheseFilesAndTheDocuments(self):
        found = sorted(
            os.path.relpath(os.path.join(folder, name), self.place)
            for folder, _, names in os.walk(self.folder)
            for name in names
        )
        documents = sorted(
            os.path.join("share/doc/tarnwick", os.path.basename(path))
            for path in glob.glob(os.path.join(ROOT, "docs", "*.md"))
        )
        self.assertEqual(found, sorted(FILES + documents))

    def testTheDesktopEntryIsValid(self):
        self.assertAccepts("desktop-file-validate", self.desktop_entry())

    def testTheLauncherStartsTheProgramOfThePath(self):
        entry = entry_of(self.desktop_entry())
        self.assertEqual(entry["Desktop Entry"]["Exec"], "tarnwick")
        self.assertEqual(entry["Desktop Entry"]["Icon"], NAME)
        self.assertEqual(entry["Desktop Entry"]["DBusActivatable"], "true")

    def testTheLauncherHasTheActionsOfTheBus(self):
        entry = entry_of(self.desktop_entry())
        self.assertEqual(entry["Desktop Entry"]["Actions"], "toggle;reload;quit;")
        commands = {name: entry[f"Desktop Action {name}"]["Exec"] for name in ("toggle", "reload", "quit")}
        self.assertEqual(
            commands,
            {
                "toggle": "tarnwick --toggle",
                "reload": f"gapplication action {NAME} reload",
                "quit": f"gapplication action {NAME} quit",
            },
        )

    def testTheBusStartsTheProgramHidden(self):
        service = entry_of(self.service())["D-BUS Service"]
        self.assertEqual(dict(service), {"Name": NAME, "Exec": "/usr/bin/tarnwick --service"})

    def testTheMetadataIsValid(self):
        metadata = self.path("share/metainfo", f"{NAME}.metainfo.xml")
        done = run("appstreamcli", "validate", "--no-net", "--no-color", metadata)
        self.assertEqual(done.returncode, 0, done.stdout)
        remarks = re.findall(r"(?m)^\s*[EWI]: \S+ (.*)$", done.stdout)
        # The developer's name is there twice, and each version misses or dislikes one of the two.
        known = {"unknown-tag developer", "developer-name-tag-deprecated"}
        self.assertEqual([remark for remark in remarks if remark not in known], [])

    def testTheMetadataHasAPictureForEachOfTheDocuments(self):
        component = xml.etree.ElementTree.parse(self.path("share/metainfo", f"{NAME}.metainfo.xml"))
        images = [image.text for image in component.findall("./screenshots/screenshot/image")]
        for image in images:
            self.assertRegex(image, r"^https://[^/]+/pictures/[a-z-]+\.png$")
        self.assertEqual(
            sorted(os.path.basename(image) for image in images),
            sorted(os.listdir(os.path.join(ROOT, "docs", "pictures"))),
        )

    def testTheNewestReleaseIsThisVersion(self):
        component = xml.etree.ElementTree.parse(self.path("share/metainfo", f"{NAME}.metainfo.xml"))
        version = run(self.path("bin", "tarnwick"), "--version").stdout.split()[1]
        release = component.find("./releases/release").get("version")
        self.assertIn(release, (version, f"{version}~dev"))
        with gzip.open(self.path("share/doc/tarnwick/changelog.Debian.gz"), "rt") as file:
            self.assertTrue(file.readline().startswith(f"tarnwick ({release}-1) "))

    def testTheManualPageHasNoMistakes(self):
        page = self.path("share/man/man1/tarnwick.1.gz")
        with gzip.open(page, "rt") as file:
            text = file.read()
        self.assertNotRegex(text, r"@[A-Z_]+@")
        done = subprocess.run(
            ("groff", "-man", "-Tutf8", "-Kutf8", "-ww", "-z"),
            input=text,
            capture_output=True,
            text=True,
            check=False,
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def testTheManualPageTellsEveryOptionOfTheHelpText(self):
        with gzip.open(self.path("share/man/man1/tarnwick.1.gz"), "rt") as file:
            page = file.read().replace("\\-", "-")
        options = set(re.findall(r"--[a-z]+", run(self.path("bin", "tarnwick"), "--help").stdout))
        self.assertEqual(set(re.findall(r"--[a-z]+", page)), options)

    def testTheIconsAreDrawings(self):
        icons = self.path("share/icons/hicolor")
        for name in (f"scalable/apps/{NAME}.svg", f"symbolic/apps/{NAME}-symbolic.svg"):
            root = xml.etree.ElementTree.parse(os.path.join(icons, name)).getroot()
            self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
            self.assertEqual(root.get("width"), root.get("height"))

    @unittest.skipUnless(
        os.path.isdir(os.path.join(ROOT, "build/assets/Licenses")), "fonts and icons could not be fetched"
    )
    def testTheCopyrightFileHasTheLicencesOfFontsAndIcons(self):
        with open(self.path("share/doc/tarnwick/copyright"), encoding="utf-8") as file:
            text = file.read()
        self.assertIn("Copyright: 2026 The Tarnwick authors\nLicense: Expat\n MIT License\n .\n", text)
        self.assertIn("\nLicense: OFL-1.1\n", text)
        self.assertIn("\n SIL OPEN FONT LICENSE Version 1.1 - 26 February 2007\n", text)
        self.assertIn("Comment: Icons of Octicons", text)


class OwnInstallationTests(InstalledTest):
    """In a folder of the user's, with a space in its name."""

    is_staged = False

    def testTheEntriesNameTheProgramByItsPath(self):
        program = self.path("bin", "tarnwick")
        self.assertAccepts("desktop-file-validate", self.desktop_entry())
        entry = entry_of(self.desktop_entry())
        self.assertEqual(entry["Desktop Entry"]["Exec"], f'"{program}"')
        self.assertEqual(entry["Desktop Action toggle"]["Exec"], f'"{program}" --toggle')
        service = entry_of(self.service())["D-BUS Service"]
        self.assertEqual(service["Exec"], f'"{program}" --service')


class UpdatedInstallationTests(InstalledTest):
    """With the entries that a build with an update feed installs."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        with open(os.path.join(BUILD, "packaging", "InstallEntries.cmake"), encoding="utf-8") as file:
            script = file.read()
        condition = re.compile(r'^if\(NOT "[^"]*" STREQUAL ""\)$', re.MULTILINE)
        if len(condition.findall(script)) != 1:
            raise AssertionError("The entries do not depend on the feed alone.")
        # A file that is hardly younger counts as the same.
        shutil.rmtree(os.path.join(cls.place, "share", "applications"))
        changed = os.path.join(cls.folder, "InstallEntries.cmake")
        with open(changed, "w", encoding="utf-8") as file:
            file.write(condition.sub('if(NOT "https://updates.example/feed.xml" STREQUAL "")', script))
        done = run(
            "cmake", "-D", f"CMAKE_INSTALL_PREFIX={cls.prefix}", "-P", changed,
            env={**os.environ, "DESTDIR": cls.folder},
        )
        if done.returncode != 0:
            raise AssertionError(done.stdout)

    def testTheLauncherChecksForUpdates(self):
        self.assertAccepts("desktop-file-validate", self.desktop_entry())
        entry = entry_of(self.desktop_entry())
        self.assertEqual(entry["Desktop Entry"]["Actions"], "toggle;reload;check-for-updates;quit;")
        action = entry["Desktop Action check-for-updates"]
        self.assertEqual(action["Name"], "Check for Updates…")
        self.assertEqual(action["Exec"], f"gapplication action {NAME} check-for-updates")


if __name__ == "__main__":
    unittest.main()
