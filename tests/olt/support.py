"""What the tests of omci-olt share."""

import fcntl
import json
import os
import pty
import select
import struct
import subprocess
import tempfile
import termios
import time
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

    def run_program(self, command, expect=0, stdin=None, timeout=60):
        done = subprocess.run(command, capture_output=True, text=True, timeout=timeout, input=stdin, cwd=self.directory)
        self.assertEqual(done.returncode, expect, f"{command}\n{done.stdout}\n{done.stderr}")
        return done

    def json_of(self, done):
        lines = done.stdout.splitlines()
        self.assertEqual(len(lines), 1, done.stdout)
        return json.loads(lines[0])

    def on_terminal(self, onu, *arguments, columns=80, environment=None):
        """Everything that the command writes to a terminal of so many columns."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        variables = {**os.environ, "TERM": "xterm", **(environment or {})}
        if not environment:
            variables.pop("NO_COLOR", None)
        with subprocess.Popen(self.command(onu, *arguments), stdin=subprocess.DEVNULL, stdout=slave, stderr=slave,
                              env=variables) as process:
            os.close(slave)
            output = b""
            while select.select([master], [], [], 30)[0]:
                try:
                    part = os.read(master, 65536)
                except OSError:  # the other end is closed
                    break
                if not part:
                    break
                output += part
        os.close(master)
        return output.decode()

    @staticmethod
    def wait_until(condition):
        """Whether it became true, on however busy a machine."""
        end = time.monotonic() + 30
        while not condition() and time.monotonic() < end:
            time.sleep(0.01)
        return condition()
