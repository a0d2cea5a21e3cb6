"""The check of a release by the program's own verifier, over packages and feeds of the tests'."""

import datetime
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

from place import BUILD, ROOT

sys.path.insert(0, os.path.join(ROOT, "packaging"))

# pylint: disable=wrong-import-position
import appcast
import changelog
import signing

CHECKER = os.path.join(BUILD, "bin", "tarnwick-check-release")


class CheckReleaseTests(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        self.key = self.new_key("key.pem")
        self.package = self.build("tarnwick", "1.1.0-1")
        self.feed = self.path("appcast.xml")
        self.write_feed("1.1.0")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def build(self, name, version):
        """A package, as the file that the feed describes."""
        control = self.path("root/DEBIAN/control")
        os.makedirs(os.path.dirname(control), exist_ok=True)
        with open(control, "w", encoding="utf-8") as file:
            file.write(
                f"Package: {name}\nVersion: {version}\nArchitecture: amd64\n"
                "Maintainer: Tests <tests@localhost>\nDescription: A package of the tests\n"
            )
        package = self.path("tarnwick_1.1.0-1_amd64.deb")
        command = ("dpkg-deb", "--build", self.path("root"), package)
        subprocess.run(command, capture_output=True, check=True)
        return package

    def new_key(self, name):
        path = self.path(name)
        subprocess.run(("openssl", "genpkey", "-algorithm", "ed25519", "-out", path), check=True)
        return path

    def write_feed(self, version, url="https://example.org/tarnwick_1.1.0-1_amd64.deb", before=None):
        release = changelog.Release(version, datetime.date(2026, 5, 2), True, [])
        signed = signing.signature(self.key, self.package)
        entry = appcast.item(release, "<p>Notes</p>", self.package, url, signed)
        text = appcast.feed(entry, before)
        self.write("appcast.xml", text)
        return text

    def check(self, key=None, version="1.1.0"):
        command = (CHECKER, self.feed, self.package, signing.public_key(key or self.key), version)
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def refusal(self, **options):
        done = self.check(**options)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        return done.stderr

    def testPassesWhatIsRight(self):
        done = self.check()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(
            done.stdout,
            "The feed offers 1.1.0, and tarnwick_1.1.0-1_amd64.deb is the file it describes, "
            "signed with the key.\n",
        )

    def testPassesAFeedThatKeepsEarlierItems(self):
        before = self.write("before.xml", self.write_feed("1.0.0"))
        self.write_feed("1.1.0", before=before)
        self.assertEqual(self.check().returncode, 0)

    def testRefusesOtherBytesOfTheSameLengthAndKeepsThem(self):
        with open(self.package, "r+b") as file:
            file.seek(-1, os.SEEK_END)
            file.write(b"?")
        self.assertIn("its signature is not valid", self.refusal())
        self.assertTrue(os.path.exists(self.package))

    def testRefusesAnotherLength(self):
        self.write("tarnwick_1.1.0-1_amd64.deb", "Other bytes.\n")
        self.assertIn("it has 13 bytes instead of", self.refusal())

    def testRefusesAPackageOfAnotherVersionOrName(self):
        self.build("tarnwick", "1.0.0-1")
        self.write_feed("1.1.0")
        self.assertIn("it is version 1.0.0-1, not 1.1.0", self.refusal())
        self.build("tarnwick-tools", "1.1.0-1")
        self.write_feed("1.1.0")
        self.assertIn("it is the package tarnwick-tools, not tarnwick", self.refusal())

    def testRefusesAnotherKey(self):
        self.assertIn("tarnwick_1.1.0-1_amd64.deb", self.refusal(key=self.new_key("other.pem")))

    def testRefusesAFeedThatOffersAnotherVersion(self):
        self.assertEqual(
            self.refusal(version="1.2.0"),
            "The feed does not offer 1.2.0 to those who have an older version.\n",
        )

    def testRefusesAFeedThatHasSomethingNewer(self):
        before = self.write("before.xml", self.write_feed("1.2.0"))
        self.write_feed("1.1.0", before=before)
        self.assertEqual(
            self.refusal(), "The feed does not offer 1.1.0 to those who have an older version.\n"
        )

    def testRefusesAnotherFileName(self):
        self.write_feed("1.1.0", url="https://example.org/other.deb")
        self.assertEqual(self.refusal(), "The feed names the file other.deb.\n")

    def testRefusesAnAddressThatIsNotHttps(self):
        self.write_feed("1.1.0", url="http://example.org/tarnwick_1.1.0-1_amd64.deb")
        self.assertEqual(self.refusal(), "The address of version 1.1.0 is not an HTTPS address.\n")

    def testRefusesACommandLineThatMakesNoSense(self):
        done = subprocess.run((CHECKER, self.feed), capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout), (2, ""))


if __name__ == "__main__":
    unittest.main()
