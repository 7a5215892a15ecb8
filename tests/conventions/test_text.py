"""Files of the tree keep its habits: names, blanks, paths, size."""

import re
import unittest

import project

TEXT_SUFFIXES = {".h", ".cpp", ".py", ".toml", ".md", ".j2", ".cmake", ".txt", ".json", ".ini", ".sh", ".yml", ""}
LONGEST_FILE = 700
# Recorded material is kept as it came.
RECORDED = ("tests/data/", "tests/golden/")
# What the fuzzers begin with is octets, whatever it looks like.
SEEDS = "fuzz/corpus/"
# A path of one developer's machine; the library's own (/opt/addons, /tmp/ont_image.sef) are part of its contract.
MACHINE_PATH = re.compile(r"(?<![\w./-])/(?:home/(?!root/\.)|root/|work/|Users/)")
FILE_NAME = re.compile(r"^[A-Za-z0-9_.@-]+$")
# Shell scripts that people call have plain names; Python and C++ files are importable or class-like.
PYTHON_NAME = re.compile(r"^[a-z][a-z0-9_]*\.py$")


def complaints(name, text):
    """What is wrong with one file, a line each."""
    found = []
    recorded = name.startswith(RECORDED)
    lines = text.split("\n")
    for number, line in enumerate(lines, 1):
        if not recorded and "\t" in line:
            found.append(f"{name}:{number}: tab")
        if not recorded and line != line.rstrip():
            found.append(f"{name}:{number}: blank at the end of the line")
        if MACHINE_PATH.search(line):
            found.append(f"{name}:{number}: path of one machine")
    if text and not text.endswith("\n"):
        found.append(f"{name}: no newline at the end")
    if not recorded and len(lines) - 1 > LONGEST_FILE:
        found.append(f"{name}: {len(lines) - 1} lines, more than {LONGEST_FILE}")
    return found


def name_complaints(name):
    last = name.rsplit("/", 1)[-1]
    if not FILE_NAME.match(last):
        return [f"{name}: file name"]
    if last.endswith(".py") and not PYTHON_NAME.match(last):
        return [f"{name}: Python files are in lower case with underscores"]
    return []


class Files(unittest.TestCase):
    def test_keepTheHabitsOfTheTree(self):
        found = []
        for path in project.tracked_files():
            name = path.relative_to(project.SOURCE).as_posix()
            found += name_complaints(name)
            if path.suffix in TEXT_SUFFIXES and not name.startswith(SEEDS):
                try:
                    found += complaints(name, path.read_text())
                except UnicodeDecodeError:
                    found.append(f"{name}: not UTF-8")
        self.assertEqual(found, [])

    def test_generatedSourcesAreNotUnderVersionControl(self):
        names = [path.relative_to(project.SOURCE).parts[0] for path in project.tracked_files()]
        self.assertNotIn("build", names)
        self.assertNotIn("generated", names)


class Check(unittest.TestCase):
    def test_eachHabitIsChecked(self):
        self.assertEqual(complaints("a.h", "int a;\n"), [])
        for text in ["\tint a;\n", "int a; \n", "int a;", "// /ho" + "me/someone/tree\n", "int a;\n" * 701]:
            self.assertEqual(len(complaints("a.h", text)), 1, text[:30])

    def test_pathsOfTheLibrarysContractAreNoOffence(self):
        self.assertEqual(complaints("a.h", '"cp /var/log/messages /home/root/."\n"/opt/addons/etc/appinfo.ini"\n'), [])

    def test_namesAreChecked(self):
        self.assertEqual(name_complaints("src/OmciMeAniG.h"), [])
        self.assertEqual(len(name_complaints("src/with blank.h")), 1)
        self.assertEqual(len(name_complaints("generator/Catalogue.py")), 1)


if __name__ == "__main__":
    unittest.main()
