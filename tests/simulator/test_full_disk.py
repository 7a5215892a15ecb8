"""A disk that fills up under the simulator's own files: told once, nothing torn, and the ONU goes on."""

import errno
import os
import subprocess
import struct
import unittest
from unittest import mock

import onu_sim
from onu_sim import GET, PROGRAM, SET, TIMEOUT, OnuSimTest, read_lines

ONU_G = 256
FULL = os.strerror(errno.ENOSPC)
# What a file of limited size gives in place of a full disk.
TOO_LARGE = os.strerror(errno.EFBIG)


class FullDisk(OnuSimTest):
    def start_with_room(self, octets, *options):
        """The program, each of whose files has room for so many octets."""
        wrapper = self.write("limited", f"#!/bin/sh\ntrap '' XFSZ\nulimit -f {octets // 512}\nexec {PROGRAM} \"$@\"\n")
        os.chmod(wrapper, 0o755)
        with mock.patch.object(onu_sim, "PROGRAM", wrapper):
            # At this level standard error is a file, which has to hold what is looked for.
            return self.start(*options, log_level=1)

    def talk(self, simulator, rounds):
        for number in range(rounds):
            self.assertEqual(0, simulator.omci(SET, ONU_G, 0, b"\x02\x00" + bytes([number % 2]))[0])
            self.assertEqual(0, simulator.omci(GET, ONU_G, 0, b"\x02\x00")[0])

    def complaints(self, simulator, text):
        with open(simulator.error_output, encoding="utf-8") as file:
            return [line for line in file if text in line]

    def test_logs_end_with_a_whole_line_and_the_onu_goes_on(self):
        room = 65536
        simulator = self.start_with_room(room)
        self.talk(simulator, 300)
        lines = read_lines(simulator.library_log)
        self.assertLess(0, len(lines))
        self.assertLess(room * 3 // 4, os.path.getsize(simulator.library_log))
        self.assertEqual(1, len(self.complaints(simulator, f"onu-sim: cannot write {simulator.library_log}: {TOO_LARGE}")))
        self.assertEqual(sorted(line["n"] for line in lines), [line["n"] for line in lines])
        self.assertIn("result", simulator.ask({"instances": True}))
        self.assertEqual(0, simulator.stop())
        self.assertEqual(len(lines), len(read_lines(simulator.library_log)))

    def test_a_capture_ends_with_a_whole_frame(self):
        room = 8192
        path = os.path.join(self.directory, "frames.pcap")
        simulator = self.start_with_room(room, "--pcap", path)
        self.talk(simulator, 100)
        self.assertEqual(1, len(self.complaints(simulator, f"onu-sim: cannot write the capture: {TOO_LARGE}")))
        self.assertEqual(0, simulator.stop())
        with open(path, "rb") as file:
            capture = file.read()
        offset, frames = 24, 0
        while offset < len(capture):
            length = struct.unpack_from("<I", capture, offset + 8)[0]
            offset, frames = offset + 16 + length, frames + 1
        self.assertEqual(len(capture), offset)
        self.assertEqual((room - 24) // (16 + 14 + 48), frames)

    def test_a_log_on_a_full_device_is_told_of(self):
        command = [PROGRAM, "--listen", "127.0.0.1:0", "--library-log", "/dev/full", "--log-level", "0"]
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as process:
            self.assertIn("listening on", process.stdout.readline())
            process.terminate()
            _, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual(0, process.returncode)
        self.assertEqual(1, errors.count(f"onu-sim: cannot write /dev/full: {FULL}"), errors)

    def test_what_cannot_be_begun_ends_the_program(self):
        for options in (["--listen", "127.0.0.1:0", "--pcap", "/dev/full"], ["--describe"]):
            with self.subTest(options), open("/dev/full", "w", encoding="utf-8") as full:
                done = subprocess.run([PROGRAM, *options], stdout=full, stderr=subprocess.PIPE, text=True,
                                      timeout=TIMEOUT, check=False)
                self.assertEqual(1, done.returncode)
                self.assertIn(FULL, done.stderr)
                self.assertIn("onu-sim: cannot write", done.stderr)


class UnansweredRefresh(OnuSimTest):
    def test_other_requests_are_answered_and_the_program_ends(self):
        ani = 1025
        simulator = self.start()
        simulator.ask({"hardware": {"ani": {str(ani): {"rx": 7}}}})
        self.assertEqual(b"\0\7", simulator.omci(GET, 263, ani, b"\0\x40")[3:5])
        simulator.ask({"hardware": {"answer_refresh": False, "ani": {str(ani): {"rx": 9}}}})
        self.assertEqual(b"\0\7", simulator.omci(GET, 263, ani, b"\0\x40")[3:5])
        self.assertEqual(0, simulator.omci(GET, ONU_G, 0, b"\x80\0")[0])
        self.assertEqual(0, simulator.stop())


if __name__ == "__main__":
    unittest.main()
