"""That the documents speak of what is there."""

import glob
import os
import re
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.realpath(__file__))))
RELIABILITY = os.path.join(ROOT, "docs", "Reliability.md")
CPP_TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP)\(\s*(\w+),\s*(\w+)", re.M)
SESSION_CLASS = re.compile(r"^class (\w+)(?:\((.*)\))?:|^    def (test\w+)", re.M)
LINK = re.compile(r"\]\(([^)#:]+?)(?:#[^)]*)?\)")


def text_of(file):
    with open(os.path.join(ROOT, file), encoding="utf-8") as opened:
        return opened.read()


def files(pattern):
    """Of the sources, which need not lie in a repository."""
    found = (os.path.relpath(file, ROOT) for file in glob.glob(f"{ROOT}/**/{pattern}", recursive=True))
    return sorted(file for file in found if not file.startswith("build/"))


def tests_there_are():
    names = set()
    for file in files("Tests/**/*.cpp"):
        names.update(".".join(found) for found in CPP_TEST.findall(text_of(file)))
    for file in files("Tests/Session/*_tests.py"):
        script = os.path.basename(file).removesuffix("_tests.py")
        tests = {}
        for new_class, bases, test in SESSION_CLASS.findall(text_of(file)):
            if new_class:
                tests[new_class] = current = []
                for base in bases.split(", "):
                    current.extend(tests.get(base, ()))
            else:
                current.append(test)
        names.update(f"{script}.{name}.{test}" for name, found in tests.items() for test in found)
    return names


class DocumentsTests(unittest.TestCase):
    def testEveryFaultNamesTestsThatAreThere(self):
        there = tests_there_are()
        rows = [line for line in text_of(RELIABILITY).splitlines() if line.startswith("| ")]
        named = set()
        for row in rows:
            named.update(re.findall(r"`((?:\w+\.)+\w+)`", row.split("|")[-2]))
        self.assertGreater(len(named), 30)
        self.assertEqual(sorted(named - there), [])

    def testEveryLinkLeadsToAFile(self):
        for document in files("*.md"):
            folder = os.path.dirname(os.path.join(ROOT, document))
            for link in LINK.findall(text_of(document)):
                with self.subTest(document=document, link=link):
                    self.assertTrue(os.path.exists(os.path.join(folder, link)))


if __name__ == "__main__":
    unittest.main()
