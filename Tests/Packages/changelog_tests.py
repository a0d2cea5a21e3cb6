"""How the sections of CHANGELOG.md become release notes."""

import datetime
import os
import sys
import tempfile
import unittest

from place import ROOT

sys.path.insert(0, os.path.join(ROOT, "packaging"))

# pylint: disable=wrong-import-position
import changelog

RELEASED = """# Changelog

What users notice.

## [Unreleased]

## [1.1.0] - 2026-05-02

Words for the reader of the file.

### Added

- A list with `--json`,
  which goes on here.
- Rows & columns < 3.

### Fixed

- It starts.

## [1.0.0] - 2026-04-01

### Added

- Everything.
"""

WORDS = [
    changelog.Group("Added", ["A list with `--json`, which goes on here.", "Rows & columns < 3."]),
    changelog.Group("Fixed", ["It starts."]),
]


class ChangelogTests(unittest.TestCase):
    def setUp(self):
        handle, self.path = tempfile.mkstemp(suffix=".md")
        os.close(handle)
        self.addCleanup(os.remove, self.path)
        os.environ["SOURCE_DATE_EPOCH"] = "1780000000"
        self.addCleanup(os.environ.pop, "SOURCE_DATE_EPOCH")

    def read(self, text, version):
        with open(self.path, "w", encoding="utf-8") as file:
            file.write(text)
        return changelog.read(self.path, version)

    def refusal(self, text, version="1.0.0"):
        with self.assertRaises(changelog.ChangelogError) as caught:
            self.read(text, version)
        return str(caught.exception)

    def testReadsSectionsGroupsAndItemsOfSeveralLines(self):
        newest, oldest = self.read(RELEASED, "1.1.0")
        self.assertEqual(
            newest, changelog.Release("1.1.0", datetime.date(2026, 5, 2), True, WORDS)
        )
        self.assertEqual((oldest.version, oldest.date), ("1.0.0", datetime.date(2026, 4, 1)))

    def testWhatIsUnreleasedBecomesADevelopmentVersionOfTheDayOfTheBuild(self):
        text = RELEASED.replace("## [1.1.0] - 2026-05-02", "").replace("[Unreleased]\n", "[Unreleased]")
        newest = self.read(text, "1.1.0")[0]
        self.assertEqual(
            newest, changelog.Release("1.1.0~dev", datetime.date(2026, 5, 28), False, WORDS)
        )

    def testRefusesItemsThatMissedTheirRelease(self):
        text = RELEASED.replace("## [Unreleased]\n", "## [Unreleased]\n\n### Added\n\n- Late.\n")
        self.assertEqual(
            self.refusal(text, "1.1.0"), '"Unreleased" has items although 1.1.0 has a section.'
        )

    def testRefusesAReleaseWithoutADate(self):
        self.assertEqual(
            self.refusal("## [1.0.0]\n\n- It.\n"), "The section [1.0.0] has no date."
        )

    def testRefusesAFileThatDoesNotBeginWithTheVersion(self):
        self.assertEqual(
            self.refusal("## [0.9.0] - 2026-01-01\n"),
            "The first section is neither [Unreleased] nor [1.0.0].",
        )

    def testRefusesHeadingsThatAreNoVersions(self):
        self.assertEqual(self.refusal("## Soon\n"), '"## Soon" is not a version heading.')

    def testRefusesLinesThatWouldBeLost(self):
        self.assertEqual(
            self.refusal("## [1.0.0] - 2026-01-01\n\n### Added\n\n* Starred.\n"),
            '"* Starred." is neither a heading nor an item.',
        )

    def testHtmlEscapesAndMarksCode(self):
        self.assertEqual(
            changelog.as_html(self.read(RELEASED, "1.1.0")[0]),
            "<h3>Added</h3>\n<ul>\n"
            "<li>A list with <code>--json</code>, which goes on here.</li>\n"
            "<li>Rows &amp; columns &lt; 3.</li>\n</ul>\n"
            "<h3>Fixed</h3>\n<ul>\n<li>It starts.</li>\n</ul>\n",
        )

    def testDebianEntriesNameVersionDateAndMaintainer(self):
        text = changelog.as_debian(
            self.read(RELEASED, "1.1.0"), "tarnwick", "1", "Somebody <somebody@example.org>"
        )
        self.assertEqual(
            text,
            "tarnwick (1.1.0-1) stable; urgency=medium\n\n"
            "  * A list with --json, which goes on here.\n"
            "  * Rows & columns < 3.\n"
            "  * It starts.\n\n"
            " -- Somebody <somebody@example.org>  Sat, 02 May 2026 00:00:00 +0000\n\n"
            "tarnwick (1.0.0-1) stable; urgency=medium\n\n"
            "  * Everything.\n\n"
            " -- Somebody <somebody@example.org>  Wed, 01 Apr 2026 00:00:00 +0000\n",
        )

    def testAppstreamTellsReleasesFromDevelopment(self):
        released = changelog.as_appstream(self.read(RELEASED, "1.1.0"))
        self.assertIn('<release version="1.1.0" date="2026-05-02" type="stable">', released)
        self.assertIn("<li>A list with <code>--json</code>, which goes on here.</li>", released)
        coming = changelog.as_appstream(self.read("## [Unreleased]\n\n### Added\n\n- It.\n", "1.0.0"))
        self.assertIn('<release version="1.0.0~dev" date="2026-05-28" type="development">', coming)


if __name__ == "__main__":
    unittest.main()
