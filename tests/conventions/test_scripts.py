"""The scripts that people and CI call."""

import os
import re
import shutil
import subprocess
import unittest

import project

SCRIPTS = project.SOURCE / "scripts"
COMMANDS = ["install-dependencies", "test", "demo", "bench", "docs", "arm-sysroot", "mips-sysroot", "abi", "coverage", "fuzz", "package"]
PURPOSES = {"docs", "package", "build", "run", "test", "check", "cross"}


def shell_files():
    """Files of the tree that a shell reads."""
    found = []
    for path in project.tracked_files():
        if path.suffix in (".sh", "") and re.match(r"#!.*\bbash\b|# shellcheck shell=bash",
                                                   path.read_text(errors="replace")[:80]):
            found.append(path)
    return found


class Scripts(unittest.TestCase):
    def test_eachCommandIsExecutableAndExplainsItself(self):
        for name in COMMANDS:
            with self.subTest(name):
                self.assertTrue(os.access(SCRIPTS / name, os.X_OK))
                text = project.run([SCRIPTS / name, "--help"])
                self.assertIn(f"scripts/{name}", text)

    def test_anUnknownOptionIsRefusedByName(self):
        for name in COMMANDS:
            with self.subTest(name):
                outcome = subprocess.run([SCRIPTS / name, "--no-such-option"], capture_output=True, text=True)
                self.assertNotEqual(outcome.returncode, 0)
                self.assertIn("--no-such-option", outcome.stderr)

    def test_shellIsCleanUnderShellcheck(self):
        if not shutil.which("shellcheck"):
            self.skipTest("shellcheck is not installed (scripts/install-dependencies check)")
        files = shell_files()
        self.assertGreater(len(files), 4)
        outcome = subprocess.run(["shellcheck", "-x", *files], capture_output=True, text=True, cwd=project.SOURCE)
        self.assertEqual(outcome.stdout, "")


class Packages(unittest.TestCase):
    def setUp(self):
        lines = (SCRIPTS / "packages.txt").read_text().splitlines()
        self.rows = [line.split(maxsplit=2) for line in lines if line and not line.startswith("#")]

    def test_eachRowHasPurposePackageAndReason(self):
        for row in self.rows:
            self.assertEqual(len(row), 3, row)
            self.assertIn(row[0], PURPOSES)

    def test_eachPackageStandsOnce(self):
        names = [row[1] for row in self.rows]
        self.assertEqual(sorted(names), sorted(set(names)))

    def test_listOfAPurposeIsWhatTheFileSays(self):
        listed = project.run([SCRIPTS / "install-dependencies", "--list", "build"]).split()
        self.assertEqual(listed, [row[1] for row in self.rows if row[0] == "build"])


if __name__ == "__main__":
    unittest.main()
