"""Captures: what --pcap writes, what decode makes of captures and of digits."""

import json
import os
import struct
import subprocess
import time
import unittest

from fake_onu import FakeOnu
from onu import Onu
from support import OMCI_OLT, OltTest

SERVICE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "service.omci")
OLT_ADDRESS, ONU_ADDRESS = bytes([2, 0, 0, 0, 0, 1]), bytes([2, 0, 0, 0, 0, 2])


def read_capture(path):
    """(seconds, destination, source, ethertype, frame) of each packet, read as the format's own description has it."""
    with open(path, "rb") as file:
        data = file.read()
    magic, _, _, _, _, _, link = struct.unpack("<IHHiIII", data[:24])
    assert (magic, link) == (0xA1B2C3D4, 1), (magic, link)
    packets, at = [], 24
    while at < len(data):
        seconds, micro, kept, length = struct.unpack("<IIII", data[at:at + 16])
        packet = data[at + 16:at + 16 + kept]
        assert len(packet) == kept == length
        packets.append((seconds + micro / 1e6, packet[:6], packet[6:12], struct.unpack(">H", packet[12:14])[0],
                        packet[14:]))
        at += 16 + kept
    return packets


def write_capture(path, packets, link=1):
    """packets: (seconds, frame, from the ONU?)."""
    data = struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, link)
    for seconds, frame, upstream in packets:
        addresses = OLT_ADDRESS + ONU_ADDRESS if upstream else ONU_ADDRESS + OLT_ADDRESS
        packet = addresses + b"\x88\xb5" + frame
        data += struct.pack("<IIII", int(seconds), round(seconds % 1 * 1e6), len(packet), len(packet)) + packet
    with open(path, "wb") as file:
        file.write(data)
    return path


class PcapTest(OltTest):
    def test_both_ends_capture_the_same_frames(self):
        onu_side, olt_side = self.path("onu.pcap"), self.path("olt.pcap")
        begun = time.time()
        with Onu(self.directory, "--pcap", onu_side) as onu:
            self.olt(onu, "--pcap", olt_side, "run", SERVICE)
        ended = time.time()
        packets = read_capture(olt_side)
        self.assertEqual([packet[1:] for packet in packets], [packet[1:] for packet in read_capture(onu_side)])
        self.assertGreater(len(packets), 60)
        for seconds, destination, source, ethertype, frame in packets:
            self.assertTrue(begun - 1 < seconds < ended + 1)
            upstream = frame[2] & 0x20 != 0
            self.assertEqual((destination, source) == (OLT_ADDRESS, ONU_ADDRESS), upstream)
            self.assertEqual((ethertype, len(frame)), (0x88B5, 48))

    def test_capture_can_be_read_while_it_grows(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            command = self.command(onu, "--pcap", self.path("a.pcap"), "watch", "--poll", "0.1")
            process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            try:
                four_packets = 24 + 4 * (16 + 14 + 48)
                while not os.path.exists(self.path("a.pcap")) or os.path.getsize(self.path("a.pcap")) < four_packets:
                    self.assertIsNone(process.poll())
                    time.sleep(0.01)
                text = self.run_program([OMCI_OLT, "decode", self.path("a.pcap")]).stdout
                self.assertIn("get request OnuData (2)", text)
            finally:
                process.terminate()
                process.communicate(timeout=60)

    def test_unwritable_capture_is_a_usage_error(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            done = self.olt(onu, "--pcap", "/no/such/a.pcap", "mib-reset", expect=2)
            self.assertIn("No such file", done.stderr)
            self.assertEqual(onu.requests, [])


class DecodeTest(OltTest):
    def decode(self, *arguments, stdin=None, expect=0):
        return self.run_program([OMCI_OLT, "decode", *arguments], expect, stdin)

    def decode_json(self, *arguments, stdin=None, expect=0):
        done = self.run_program([OMCI_OLT, "--json", "decode", *arguments], expect, stdin)
        return [json.loads(line) for line in done.stdout.splitlines()]

    def test_capture_in_words(self):
        with Onu(self.directory) as onu:
            self.olt(onu, "--pcap", self.path("a.pcap"), "run", SERVICE)
        text = self.decode(self.path("a.pcap")).stdout
        self.assertRegex(text, r"(?m)^20\d\d-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{6}Z  OLT->ONU  0x[0-9a-f]{4}  MIB reset request")
        self.assertIn("PortId = 1100", text)
        self.assertIn("single-tagged, VID 10, any priority: remove 1 tag, add VID 101 priority copied from inner", text)
        self.assertIn("VlanFilterList = VID 200 priority 5", text)
        objects = self.decode_json(self.path("a.pcap"))
        row = next(o for o in objects if "ReceivedFrameVlanTaggingOperationTable" in o.get("attributes", {}))
        self.assertEqual(row["in_words"]["ReceivedFrameVlanTaggingOperationTable"],
                         "untagged: add VID 100 priority 0")
        self.assertEqual({o["direction"] for o in objects}, {"OLT->ONU", "ONU->OLT"})
        self.assertEqual({o.get("result", 0) for o in objects}, {0})

    def test_rows_of_get_next_come_as_sentences(self):
        rows = [bytes.fromhex("f800000080320000400f000000080644"), bytes.fromhex("f8000000f8000000000f00000000000c")]
        with FakeOnu() as onu:
            onu.add(171, 1)
            onu.rows[171, 1, 6] = rows
            self.olt(onu, "--pcap", self.path("a.pcap"), "vlan", "1")
        rules = [rule for entry in self.decode_json(self.path("a.pcap")) for rule in entry.get("rules", [])]
        self.assertEqual(rules, ["single-tagged, VID 100, any priority: remove 1 tag, add VID 200 priority copied from "
                                 "inner", "untagged: add VID 1 priority 0"])

    def test_captures_on_standard_input(self):
        get = bytes.fromhex("1234490a010000008000") + bytes(38)
        packet = ONU_ADDRESS + OLT_ADDRESS + b"\x88\xb5" + get + bytes(2)
        section = struct.pack("<IIIHHqI", 0x0A0D0D0A, 28, 0x1A2B3C4D, 1, 0, -1, 28)
        interface = struct.pack("<IIHHII", 1, 20, 1, 0, 65535, 20)
        length = 32 + len(packet)
        block = struct.pack("<IIIIIII", 6, length, 0, 0, 7, len(packet) - 2, len(packet) - 2) + packet
        path = self.path("a.pcapng")
        with open(path, "wb") as file:
            file.write(section + interface + block + struct.pack("<I", length))
        for capture in (path, write_capture(self.path("a.pcap"), [(7e-6, get, False)])):
            expected = "1970-01-01T00:00:00.000007Z  OLT->ONU  0x1234  get request OnuG (256) instance 0: VendorId\n"
            self.assertEqual(self.decode(capture).stdout, expected)
            with subprocess.Popen(["cat", capture], stdout=subprocess.PIPE) as cat:
                done = subprocess.run([OMCI_OLT, "decode", "-"], stdin=cat.stdout, capture_output=True, text=True,
                                      timeout=60)
            self.assertEqual((done.returncode, done.stdout), (0, expected), done.stderr)

    def test_text_that_begins_with_an_empty_line(self):
        digits = "\n" + "1234490a010000008000" + "00" * 30 + "\n"
        self.assertIn("get request", self.decode("-", stdin=digits).stdout)
        self.assertIn("get request", self.decode(self.write("frames.txt", digits)).stdout)
        self.assertEqual(self.decode("-", stdin="\n").stdout, "")

    def test_digits_on_standard_input(self):
        digits = "# a comment\n\n12 34 49 0a 0100 0000 8000" + "00" * 30 + "\n0x123429 0a01000000 00 8000 41424344" \
                 + "00" * 25 + "\n"
        for arguments in ([], ["-"], [self.write("frames.txt", digits)]):
            text = self.decode(*arguments, stdin=digits).stdout.splitlines()
            self.assertEqual(len(text), 2)
            self.assertEqual(text[0], "OLT->ONU  0x1234  get request OnuG (256) instance 0: VendorId")
            self.assertIn('ONU->OLT  0x1234  get response OnuG (256) instance 0: success; VendorId = "ABCD"', text[1])

    def test_what_is_no_frame_is_told_and_the_rest_decoded(self):
        stdin = "1234490a\n" + "1234490a01000000" + "00" * 32 + "\n"
        done = self.decode(stdin=stdin, expect=1)
        self.assertIn("no OMCI frame", done.stdout)
        self.assertIn("get request", done.stdout)
        self.assertEqual(self.decode_json(stdin=stdin, expect=1)[0]["hex"], "1234490a")

    def test_what_is_no_digit_names_the_line(self):
        self.assertIn("standard input:2: isn't", self.decode(stdin="\n12 3x\n", expect=2).stderr)
        self.assertIn("No such file", self.decode("/no/such.pcap", expect=2).stderr)

    def test_captures_of_others(self):
        get = bytes.fromhex("1234490a01000000") + bytes(32) + b"\0\0\0\x28" + bytes(4)
        extended = bytes.fromhex("1235490b01000000") + b"\0\x02\x80\0" + bytes(4)
        path = write_capture(self.path("a.pcap"), [(10.5, get + bytes(12), True), (11, extended + bytes(28), True)])
        objects = self.decode_json(path)
        # Padding of the link layer goes, and the direction is the frame's own.
        self.assertEqual([bytes.fromhex(o["hex"]) for o in objects], [get, extended])
        self.assertEqual([o["direction"] for o in objects], ["OLT->ONU"] * 2)
        self.assertEqual(objects[0]["time"], "1970-01-01T00:00:10.500000Z")

    def test_broken_captures(self):
        get = bytes.fromhex("1234490a01000000") + bytes(40)
        path = write_capture(self.path("a.pcap"), [(1, get, False), (2, get, False)])
        with open(path, "rb+") as file:
            file.truncate(os.path.getsize(path) - 5)
        done = self.decode(path)
        self.assertEqual(len(done.stdout.splitlines()), 1)
        self.assertIn("ends inside a packet", done.stderr)
        with open(self.path("b.pcap"), "wb") as file:
            file.write(b"\xd4\xc3\xb2\xa1\x02")
        self.assertIn("b.pcap", self.decode(self.path("b.pcap"), expect=2).stderr)
        done = self.decode(write_capture(self.path("c.pcap"), [], link=113), expect=2)
        self.assertIn("LINUX_SLL", done.stderr)

    def test_packets_of_other_protocols_are_counted(self):
        path = write_capture(self.path("a.pcap"), [(1, bytes.fromhex("1234490a01000000") + bytes(40), False)])
        with open(path, "rb+") as file:
            data = file.read().replace(b"\x88\xb5", b"\x08\x00")
            file.seek(0)
            file.write(data)
        done = self.decode(path)
        self.assertEqual(done.stdout, "")
        self.assertIn("1 packets carry no OMCI", done.stderr)


class ReplayTest(OltTest):
    """A session is recorded with one ONU and played to another one that has just started."""

    def setUp(self):
        super().setUp()
        os.mkdir(self.path("first"))
        os.mkdir(self.path("second"))
        self.capture = self.path("session.pcap")
        with open(SERVICE, encoding="utf-8") as file:
            session = self.write("session.omci", file.read() + "\nget OnuG 0\nget 999 1 1\nmib-upload\nalarms\n")
        with Onu(self.path("first")) as onu:
            self.olt(onu, "--pcap", self.capture, "run", "--keep-going", session, expect=1)

    def replay(self, *arguments, options=(), expect=0):
        with Onu(self.path("second"), *options) as onu:
            done = self.olt(onu, "--json", "replay", self.capture, *arguments, expect=expect)
        return self.json_of(done)

    def test_same_onu_makes_no_difference(self):
        answer = self.replay("--ignore", "Onu2G.SysupTime")
        self.assertEqual(answer["differences"], [])
        self.assertGreater(answer["requests"], 30)

    def test_changed_value_is_exactly_the_difference(self):
        board = self.write("board.ini", "[identity]\nequipment_id = BENCH-7\n")
        answer = self.replay("--ignore", "Onu2G.SysupTime", options=("--board", board), expect=1)
        self.assertEqual(answer["differences"], [
            {"class": 257, "name": "Onu2G", "instance": 0, "attribute": "EquipmentId",
             "before": '"F-XGS-SFU-GPON"', "after": '"BENCH-7"'}])
        answer = self.replay("--ignore", "Onu2G", options=("--board", board))
        self.assertEqual(answer["differences"], [])

    def test_missing_entity_is_told_in_words(self):
        board = self.write("board.ini", "[board]\nethernet_unis = 3\n")
        with Onu(self.path("second"), "--board", board) as onu:
            text = self.olt(onu, "replay", self.capture, expect=1).stdout
        self.assertIn("PptpEthernetUni (11)\n  instance 260: missing\n", text)

    def test_recorded_times_are_kept(self):
        get = bytes.fromhex("1234490a010000008000") + bytes(38)
        self.capture = write_capture(self.path("slow.pcap"), [(5, get, False), (5.7, b"\x12\x35" + get[2:], False)])
        begun = time.monotonic()
        self.assertEqual(self.replay("--timing")["requests"], 2)
        self.assertGreaterEqual(time.monotonic() - begun, 0.7)

    def test_repetitions_are_sent_once(self):
        get = bytes.fromhex("1234490a010000008000") + bytes(38)
        self.capture = write_capture(self.path("a.pcap"), [(5, get, False), (6, get, False)])
        self.assertEqual(self.replay()["requests"], 1)

    def test_nobody_answers(self):
        done = self.run_program([OMCI_OLT, "--connect", "127.0.0.1:9", "--timeout", "50", "--retries", "1", "replay",
                                 self.capture], 3)
        self.assertIn("no answer", done.stderr)

    def test_capture_without_requests_and_unknown_names(self):
        with FakeOnu() as onu:
            empty = write_capture(self.path("a.pcap"), [])
            self.assertIn("holds no request", self.olt(onu, "replay", empty, expect=2).stderr)
            done = self.olt(onu, "replay", self.capture, "--ignore", "AniGe.SrIndication", expect=2)
            self.assertIn("did you mean AniG", done.stderr)
            self.assertEqual(onu.requests, [])


if __name__ == "__main__":
    unittest.main()
