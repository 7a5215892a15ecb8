"""A capture of the demo: decoded, read by tcpdump, replayed without a difference and with the one that was made."""

import json
import os
import random
import re
import shutil
import subprocess
import unittest

from demo_flow import commands, describe_images
from onu import Onu
from support import OMCI_OLT, OltTest
from test_capture import read_capture

RECORDED = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "demo.pcap")
RECORDED_TEXT = os.path.join(os.path.dirname(RECORDED), "demo.txt")
# Seconds since the start, which no two sessions share.
UPTIME = ("--ignore", "Onu2G.SysupTime")
IMAGE_OCTETS = 40_000
PACKET_HEADER, LINK_HEADER = 16, 14


def changed_answer(path, is_wanted, octet):
    """Changes one octet of the first frame that is wanted, in place."""
    with open(path, "rb+") as file:
        data = bytearray(file.read())
        at = 24
        for _, _, _, _, frame in read_capture(path):
            if is_wanted(frame):
                data[at + PACKET_HEADER + LINK_HEADER + octet] ^= 0x01
                file.seek(0)
                file.write(data)
                return
            at += PACKET_HEADER + LINK_HEADER + len(frame)
    raise AssertionError("no frame of the capture is the one to change")


class DemoCaptureTest(OltTest):
    def session(self, name):
        """An ONU as the demo starts it."""
        os.makedirs(self.path(name))
        describe_images(os.path.join(self.path(name), "state"))
        return Onu(self.path(name), "--pcap", self.path(name + ".pcap"))

    def replay(self, capture, expect=0):
        with self.session("again") as onu:
            done = self.olt(onu, "--json", "replay", capture, *UPTIME, expect=expect)
        return self.json_of(done)


class DemoCapture(DemoCaptureTest):
    """The whole demo, upload and upgrade included."""

    def setUp(self):
        super().setUp()
        with open(self.path("image.bin"), "wb") as file:
            file.write(random.Random(1).randbytes(IMAGE_OCTETS))
        with self.session("demo") as onu:
            self.all_commands = commands("", "read_and_set", "upgrade")
            for command in self.all_commands:
                self.olt(onu, *command)
        self.capture = self.path("demo.pcap")

    def test_the_flow_is_the_demos(self):
        words = {word for command in self.all_commands for word in command}
        self.assertLessEqual({"mib-reset", "mib-upload", "get", "set", "create", "delete", "images", "download",
                              "activate", "reboot", "commit"}, words)

    def test_decode_names_every_frame(self):
        lines = self.run_program([OMCI_OLT, "--json", "decode", self.capture]).stdout.splitlines()
        frames = [json.loads(line) for line in lines]
        self.assertEqual([frame.hex() for *_, frame in read_capture(self.capture)], [frame["hex"] for frame in frames])
        self.assertTrue(all("message" in frame and "class" in frame for frame in frames))
        self.assertLessEqual({"OLT->ONU", "ONU->OLT"}, {frame["direction"] for frame in frames})

    @unittest.skipUnless(shutil.which("tcpdump"), "tcpdump is not installed")
    def test_tcpdump_reads_every_packet_whole(self):
        # On standard input, for tcpdump gives up root's right to read before it opens a file.
        with open(self.capture, "rb") as file:
            done = subprocess.run(["tcpdump", "-r", "-", "-enn", "-tt", "-xx"], stdin=file, capture_output=True, text=True,
                                  timeout=60, check=True)
        packets = read_capture(self.capture)
        heads = re.findall(r"(?m)^(\d+\.\d{6}) (\S+) > (\S+), ethertype .*0x88b5.*, length (\d+):", done.stdout)
        self.assertEqual(len(packets), len(heads))
        self.assertNotRegex(done.stderr + done.stdout, r"truncated|bogus|bad dump")
        for (seconds, destination, source, _, frame), head in zip(packets, heads):
            self.assertAlmostEqual(seconds, float(head[0]), places=5)
            self.assertEqual((source.hex(":"), destination.hex(":"), LINK_HEADER + len(frame)),
                             (head[1], head[2], int(head[3])))
        digits = re.sub(r"0x[0-9a-f]+:|\s", "", "".join(re.findall(r"(?m)^\s+0x.*$", done.stdout)))
        self.assertEqual("".join((d + s + b"\x88\xb5" + f).hex() for _, d, s, _, f in packets), digits)

    def test_replay_makes_no_difference(self):
        answer = self.replay(self.capture)
        self.assertEqual([], answer["differences"])
        # Each upload counts as one.
        self.assertGreater(answer["requests"], 40)

    def test_one_changed_value_is_exactly_the_difference(self):
        # The first octet of the vendor id, behind the result and the mask of the response to the get of OnuG.
        changed_answer(self.capture, lambda frame: frame[2] == 0x29 and frame[4:9] == b"\x01\x00\x00\x00\x00", 11)
        differences = self.replay(self.capture, expect=1)["differences"]
        self.assertEqual([(256, 0, "VendorId")],
                         [(one["class"], one["instance"], one["attribute"]) for one in differences])
        self.assertEqual(('"ORVK"', '"NRVK"'), (differences[0]["before"], differences[0]["after"]))


class RecordedDemo(DemoCaptureTest):
    """Attributes read and set, as an earlier build recorded them."""

    def test_decodes_to_the_same_words(self):
        text = self.run_program([OMCI_OLT, "decode", RECORDED]).stdout
        with open(RECORDED_TEXT, encoding="utf-8") as file:
            self.assertEqual(file.read(), text)

    def test_still_gets_the_same_answers(self):
        answer = self.replay(RECORDED)
        self.assertEqual([], answer["differences"])
        self.assertEqual(len(read_capture(RECORDED)), 2 * answer["requests"])

    def test_each_changed_answer_is_a_difference(self):
        capture = self.path("changed.pcap")
        for number, (*_, frame) in enumerate(read_capture(RECORDED)):
            # The result, which every response has.
            if frame[2] & 0x20:
                shutil.copy(RECORDED, capture)
                changed_answer(capture, lambda one, wanted=frame: one == wanted, 8)
                with self.subTest(number):
                    self.assertEqual(1, len(self.replay(capture, expect=1)["differences"]))
                shutil.rmtree(self.path("again"))


if __name__ == "__main__":
    unittest.main()
