"""Standard output, a file or the capture takes no more: told, and the exit code says so."""

import errno
import json
import os
import resource
import signal
import subprocess
import unittest

from onu import OnuTest
from support import OMCI_OLT, PATIENT

USAGE = 2
FULL = os.strerror(errno.ENOSPC)
TOO_LARGE = os.strerror(errno.EFBIG)


class FullDisk(OnuTest):
    def run_onto_full_output(self, *command):
        with open("/dev/full", "w", encoding="utf-8") as full:
            return subprocess.run(command, stdout=full, stderr=subprocess.PIPE, text=True, timeout=60, check=False)

    def test_results_that_nobody_gets_are_no_success(self):
        for arguments in (["classes"], ["--json", "classes"], ["--help"], ["--version"]):
            with self.subTest(arguments):
                done = self.run_onto_full_output(OMCI_OLT, *arguments)
                self.assertEqual(USAGE, done.returncode)
                self.assertIn("standard output can't be written", done.stderr)
        done = self.run_onto_full_output(*self.command(self.onu, "mib-upload"))
        self.assertEqual(USAGE, done.returncode)
        self.assertIn(f"omci-olt: standard output can't be written: {FULL}", done.stderr)

    def test_a_file_that_was_good_stays(self):
        kept = self.write("mib.json", "{}\n")
        for target, reason in ((kept, TOO_LARGE), ("/dev/full", FULL)):
            with self.subTest(target):
                done = self.limited("mib-upload", "--save", target)
                self.assertEqual(USAGE, done.returncode, done.stdout + done.stderr)
                self.assertIn(target, done.stderr)
                self.assertIn(reason, done.stderr)
        with open(kept, encoding="utf-8") as file:
            self.assertEqual({}, json.load(file))
        self.assertEqual([], [name for name in os.listdir(self.directory) if ".part" in name])

    def limited(self, *arguments, options=PATIENT):
        """The command, with room for 4096 octets in each of its files."""
        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        return subprocess.run(self.command(self.onu, *arguments, options=options), capture_output=True, text=True,
                              timeout=120, check=False, preexec_fn=limit)

    def test_a_command_stops_where_its_capture_does_and_the_capture_is_whole(self):
        path = self.path("frames.pcap")
        done = self.limited("mib-upload", options=(*PATIENT, "--pcap", path))
        self.assertEqual(USAGE, done.returncode)
        self.assertIn(f"--pcap {path}: cannot write the capture: {TOO_LARGE}", done.stderr)
        frames = self.run_program([OMCI_OLT, "decode", path]).stdout
        self.assertIn("MIB upload", frames)
        self.assertEqual("", self.run_program([OMCI_OLT, "decode", path]).stderr)

    def test_a_capture_that_cannot_be_begun_sends_nothing(self):
        done = self.olt(self.onu, "mib-reset", options=(*PATIENT, "--pcap", "/dev/full"), expect=USAGE)
        self.assertIn(FULL, done.stderr)
        self.assertEqual({}, self.onu.ask(statistics=True)["result"]["requests"])


if __name__ == "__main__":
    unittest.main()
