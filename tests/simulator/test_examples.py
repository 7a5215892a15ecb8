"""The examples of the documentation do what their files say, in both message formats."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "docs" / "examples"
PROGRAMS = os.path.dirname(os.environ["ONU_SIM"])
TIMEOUT = 120


class Examples(unittest.TestCase):
    def run_example(self, *arguments):
        return subprocess.run([sys.executable, "-B", EXAMPLES / "run", "--bin", PROGRAMS, *arguments],
                              capture_output=True, text=True, timeout=TIMEOUT)

    def copy(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        return pathlib.Path(shutil.copytree(EXAMPLES / "residential-service", os.path.join(directory.name, "service")))

    def services(self):
        """Folders of examples that this runs; others have their own tests."""
        folders = sorted(path.parent for path in EXAMPLES.glob("*/provision.omci"))
        self.assertIn("residential-service", [folder.name for folder in folders])
        return folders

    def test_each_service_has_its_three_files(self):
        for folder in self.services():
            self.assertLessEqual({"calls.txt", "services.json"}, {path.name for path in folder.iterdir()})

    def test_calls_and_services_are_as_written_in_both_formats(self):
        for folder in self.services():
            for options in ((), ("--extended",)):
                with self.subTest(example=folder.name, options=options):
                    done = self.run_example(folder.name, "--check", *options)
                    self.assertEqual((0, "", ""), (done.returncode, done.stdout, done.stderr))

    def test_another_outcome_is_told_line_by_line(self):
        example = self.copy()
        script = example / "provision.omci"
        script.write_text(script.read_text().replace("AllocId=1024", "AllocId=2000"))
        done = self.run_example(str(example), "--check")
        self.assertEqual(1, done.returncode)
        told = done.stdout.splitlines()
        self.assertTrue(any(line.startswith("-") and '"alloc_id": 1024' in line for line in told), done.stdout)
        self.assertTrue(any(line.startswith("+") and '"alloc_id": 2000' in line for line in told), done.stdout)
        self.assertNotIn("calls.txt", done.stdout)

    def test_a_refused_command_is_told(self):
        example = self.copy()
        with open(example / "provision.omci", "a", encoding="utf-8") as script:
            script.write("create GalEthernetProfile 1\n")
        done = self.run_example(str(example))
        self.assertEqual(1, done.returncode)
        self.assertIn("instance exists", done.stderr)

    def test_what_is_not_there_is_named(self):
        self.assertIn("no-such-example has no provision.omci", self.run_example("no-such-example").stderr)
        done = self.run_example("--bin", self.copy().parent)
        self.assertIn("omci-olt is not there", done.stderr)


if __name__ == "__main__":
    unittest.main()
