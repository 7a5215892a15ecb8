"""The sessions of the pages, typed word by word in a fresh folder: each command prints what the page says."""

import os
import tempfile
import unittest
from pathlib import Path

import pages

import console

TUTORIAL = pages.TREE / "docs" / "tutorial.md"
README = pages.TREE / "README.md"
PROGRAMS = Path(os.environ.get("NRVK_PROGRAMS", pages.BUILD / "bin"))


class Sessions(unittest.TestCase):
    maxDiff = None

    def follow(self, page, least):
        steps = console.steps(page.read_text())
        self.assertGreater(len(steps), least)
        for step, printed in console.outputs(steps, PROGRAMS):
            self.assertEqual(console.comparable(step.output), console.comparable(printed),
                             f"{page.name}:{step.line}: {step.command}")

    def test_tutorial(self):
        self.follow(TUTORIAL, 40)

    def test_readme(self):
        self.follow(README, 6)

    def test_the_build_that_the_test_replaces_is_that_of_the_page_on_building(self):
        text = TUTORIAL.read_text()
        skipped = [block["text"] for block in console.BLOCK.finditer(text) if block["skipped"]]
        self.assertEqual(1, len(skipped))
        building = (pages.TREE / "docs" / "building.md").read_text()
        for command in ("cmake --preset release", "cmake --build --preset release"):
            self.assertIn(f"$ {command}", skipped[0])
            self.assertIn(f"\n{command}\n", building)


class Console(unittest.TestCase):
    def folder(self):
        return Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_commands_and_outputs_are_told_apart(self):
        found = console.steps("# P\n\n```console\n$ one \\\n>  two\nout\n$ three\n```\n\n```\n$ no\n```\n\n"
                              "<!-- replaced in the test by x -->\n```console\n$ skipped\n```\n")
        self.assertEqual([("one \\\n two", "out\n", 4), ("three", "", 7)],
                         [(step.command, step.output, step.line) for step in found])

    def test_only_what_varies_is_a_placeholder(self):
        page = "190 entities, 0.05 s\n2026-01-31T12:00:00.000123Z  OLT->ONU  0x4a31  set request"
        self.assertEqual(console.comparable(page), console.comparable(
            "190 entities, 1.25 s\n2027-02-01T13:00:01.5Z  OLT->ONU  0x0001  set request"))
        for other in ("191 entities, 0.05 s", "190 entities, 5 s", "190 entities"):
            self.assertNotEqual(console.comparable(page.splitlines()[0]), console.comparable(other))

    def test_the_shell_keeps_folder_functions_and_jobs(self):
        folder = self.folder()
        with console.Shell(PROGRAMS, folder) as shell:
            self.assertEqual("", shell.run("mkdir a; cd a; say() { echo \"said $1\"; }"))
            self.assertEqual(f"{folder}/a\nsaid x\n", shell.run("pwd; say x"))
            self.assertEqual("", shell.run("sleep 60 &"))
            self.assertEqual("143\n", shell.run("kill %1; wait %1; echo $?").splitlines(keepends=True)[-1])

    def test_a_command_that_does_not_end_is_told(self):
        with console.Shell(PROGRAMS, self.folder()) as shell:
            with self.assertRaisesRegex(TimeoutError, "sleep 60\nbefore"):
                shell.run("echo before; sleep 60", timeout=1)

    def test_outputs_are_written_anew(self):
        text = "```console\n$ echo a \\\n>   b\nold\nolder\n$ true\n$ printf 'c \\n'\n```\nrest\n"
        self.assertEqual("```console\n$ echo a \\\n>   b\na b\n$ true\n$ printf 'c \\n'\nc\n```\nrest\n",
                         console.rewritten(text, PROGRAMS))


if __name__ == "__main__":
    unittest.main()
