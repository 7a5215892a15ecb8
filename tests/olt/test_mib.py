"""MIB upload, MIB reset and what is saved."""

import json
import os
import signal
import struct
import subprocess
import time
import unittest

from fake_onu import FakeOnu, CLASSES
from omci_wire import MIB_RESET, MIB_UPLOAD_NEXT
from support import OltTest


def fill(onu):
    onu.add(2, 0, {1: b"\x07"})
    onu.add(256, 0, {1: b"ABCD", 3: b"ABCD\x12\x34\x56\x78", 10: b"logical"})
    onu.add(263, 0x401, {10: b"\x12\x34"})
    for instance in range(0x101, 0x105):
        onu.add(11, instance, {5: b"\x01", 8: b"\x05\xee"})
    onu.add(134, 0, {4: bytes([10, 0, 0, 1]), 15: b"host"})


class MibUploadTest(OltTest):
    def test_saved_mib_holds_every_value_in_both_formats(self):
        texts = []
        for options in ([], ["--extended"]):
            with FakeOnu() as onu:
                fill(onu)
                self.olt(onu, *options, "mib-upload", "--save", self.path("mib.json"))
                with open(self.path("mib.json"), encoding="utf-8") as file:
                    texts.append(file.read())
                self.compare(json.loads(texts[-1]), onu)
        self.assertEqual(texts[0], texts[1])

    def compare(self, saved, onu):
        self.assertEqual((saved["format"], saved["version"]), ("omci-mib", 1))
        entities = [(entity["class"], entity["instance"]) for entity in saved["entities"]]
        self.assertEqual(entities, sorted(onu.mib))
        for entity in saved["entities"]:
            stored = onu.mib[entity["class"], entity["instance"]]
            values = list(entity["attributes"].values())
            self.assertEqual(len(values), len(CLASSES[entity["class"]]))
            for value, octets in zip(values, stored):
                expected = int.from_bytes(octets, "big") if isinstance(value, int) else "0x" + octets.hex()
                self.assertEqual(value, expected)

    def test_names_and_values(self):
        with FakeOnu() as onu:
            fill(onu)
            mib = self.json_of(self.olt(onu, "--json", "mib-upload"))
            uni = next(e for e in mib["entities"] if (e["class"], e["instance"]) == (11, 0x102))
            self.assertEqual(uni["name"], "PptpEthernetUni")
            self.assertEqual(uni["attributes"]["AdministrativeState"], 1)
            self.assertEqual(uni["attributes"]["MaxFrameSize"], 1518)
            host = next(e for e in mib["entities"] if e["class"] == 134)
            self.assertEqual(host["attributes"]["IpAddress"], "0x0a000001")

    def test_summary_counts_entities_by_class(self):
        with FakeOnu() as onu:
            fill(onu)
            text = self.olt(onu, "mib-upload").stdout
            self.assertRegex(text, r"11 +PptpEthernetUni +4 +60\n")
            self.assertRegex(text, r"8 entities, \d+ frames, \d+ octets, \d+\.\d\d s\n$")
            self.assertIn("10.0.0.1", self.olt(onu, "mib-upload", "--all").stdout)

    def test_unknown_classes_are_kept_as_octets(self):
        with FakeOnu() as onu:
            fill(onu)
            onu._start_upload = lambda key, frame: (onu.__dict__.update(
                _upload=[struct.pack(">HHH", 400, 3, 0xC000) + bytes(range(26))]), struct.pack(">H", 1))[1]
            entity = self.json_of(self.olt(onu, "--json", "mib-upload"))["entities"][0]
            self.assertEqual((entity["class"], entity["instance"]), (400, 3))
            self.assertEqual(entity["undecoded"], {"0xc000": "0x" + bytes(range(26)).hex()})

    def test_lost_datagrams_are_asked_for_again(self):
        with FakeOnu() as onu:
            fill(onu)
            onu.road = lambda number, reply: [] if number % 3 == 0 else [(0, reply)]
            mib = self.json_of(self.olt(onu, "--json", "mib-upload", options=("--timeout", "100")))
            self.compare(mib, onu)
            transactions = [request.transaction for request in onu.requests]
            self.assertLess(len(set(transactions)), len(transactions))
            self.assertEqual(len(onu.executed), len(set(transactions)))

    def test_hole_in_the_snapshot_leaves_no_file(self):
        with FakeOnu() as onu:
            fill(onu)
            whole = onu._upload_next
            onu._upload_next = lambda key, frame: b"" if frame.contents[1] == 4 else whole(key, frame)
            done = self.olt(onu, "mib-upload", "--save", self.path("mib.json"), expect=1)
            self.assertIn("MIB upload next 4", done.stderr)
            self.assertEqual(os.listdir(self.directory), [])

    def test_unwritable_file_is_a_usage_error(self):
        with FakeOnu() as onu:
            fill(onu)
            done = self.olt(onu, "mib-upload", "--save", self.path("no/such/mib.json"), expect=2)
            self.assertIn("No such file", done.stderr)

    def test_interrupt_leaves_the_old_file_and_nothing_else(self):
        with FakeOnu() as onu:
            fill(onu)
            self.write("mib.json", "old")
            onu.road = lambda number, reply: [(0, reply)] if number < 4 else []
            command = self.command(onu, "mib-upload", "--save", self.path("mib.json"), options=("--timeout", "30000"))
            process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            while len(onu.requests) < 5:
                time.sleep(0.01)
            process.send_signal(signal.SIGINT)
            out, err = process.communicate(timeout=10)
            self.assertEqual((process.returncode, out, err), (130, b"", b""))
            self.assertEqual(os.listdir(self.directory), ["mib.json"])
            with open(self.path("mib.json"), encoding="utf-8") as file:
                self.assertEqual(file.read(), "old")


class MibResetTest(OltTest):
    def test_reset_goes_to_onu_data(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.olt(onu, "mib-reset")
            request = onu.requests[0]
            self.assertEqual((request.type, request.entity_class, request.instance), (MIB_RESET, 2, 0))

    def test_refusal_is_told_in_words(self):
        with FakeOnu() as onu:
            self.assertIn("unknown managed entity instance", self.olt(onu, "mib-reset", expect=1).stderr)


if __name__ == "__main__":
    unittest.main()
