"""What the tests of omci-olt share."""

import json
import os
import subprocess
import tempfile
import unittest

OMCI_OLT = os.environ["OMCI_OLT"]

# On a busy machine an answer that isn't lost may still take its time; a test that counts requests must not see a retry.
PATIENT = ("--timeout", "10000")


class OltTest(unittest.TestCase):
    """Each test has a directory of its own."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = directory.name

    def path(self, name):
        return os.path.join(self.directory, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def command(self, onu, *arguments, options=PATIENT):
        return [OMCI_OLT, "--connect", onu.address, *options, *arguments]

    def olt(self, onu, *arguments, expect=0, options=PATIENT):
        """Runs a command against an ONU; yields the finished process after checking its exit code."""
        return self.run_program(self.command(onu, *arguments, options=options), expect)

    def run_program(self, command, expect=0, stdin=None):
        done = subprocess.run(command, capture_output=True, text=True, timeout=60, input=stdin, cwd=self.directory)
        self.assertEqual(done.returncode, expect, f"{command}\n{done.stdout}\n{done.stderr}")
        return done

    def json_of(self, done):
        lines = done.stdout.splitlines()
        self.assertEqual(len(lines), 1, done.stdout)
        return json.loads(lines[0])
