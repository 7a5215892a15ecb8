"""Texts that are spread over the parts of large strings and octet strings."""

import struct
import unittest

from fake_onu import FakeOnu
from support import OltTest

LARGE_STRING, OCTET_STRING = 157, 307
LONG = "sip:a-user-with-quite-a-long-name@and-a-domain.that-is-no-shorter.example.net"


def parts_of(text):
    return [text[at:at + 25].encode().ljust(25, b"\0") for at in range(0, len(text), 25)]


class SetTest(OltTest):
    def test_text_is_spread_over_the_parts_of_a_large_string(self):
        for options in ((), ("--extended",)):
            with self.subTest(options), FakeOnu() as onu:
                onu.add(LARGE_STRING, 1)
                self.olt(onu, *options, "set", "LargeString", "1", "Text=" + LONG)
                self.assertEqual(onu.mib[LARGE_STRING, 1][0], bytes([4]))
                self.assertEqual(onu.mib[LARGE_STRING, 1][1:5], parts_of(LONG))
                self.assertEqual(len(onu.requests), 1 if options else 4)

    def test_last_part_is_filled_with_zeros_and_later_ones_stay(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1, {2: b"x" * 25, 3: b"y" * 25})
            self.olt(onu, "set", "large string", "1", "text=10.0.0.1")
            self.assertEqual(onu.mib[LARGE_STRING, 1][:3], [b"\1", b"10.0.0.1".ljust(25, b"\0"), b"y" * 25])

    def test_octet_string_has_a_length_in_octets(self):
        with FakeOnu() as onu:
            onu.add(OCTET_STRING, 1)
            self.olt(onu, "set", "OctetString", "1", "Text=0x" + 26 * "00" + "ff")
            self.assertEqual(onu.mib[OCTET_STRING, 1][:3], [struct.pack(">H", 27), bytes(25), b"\0\xff" + bytes(23)])

    def test_limits_of_a_text(self):
        with FakeOnu() as onu:
            for entity_class in (LARGE_STRING, OCTET_STRING):
                onu.add(entity_class, 1)
                self.olt(onu, "set", str(entity_class), "1", "Text=" + 375 * "x")
                self.assertEqual(onu.mib[entity_class, 1][15], 25 * b"x")
                count = len(onu.requests)
                done = self.olt(onu, "set", str(entity_class), "1", "Text=" + 376 * "x", expect=2)
                self.assertIn("376 octets; 375 fit", done.stderr)
                self.assertEqual(len(onu.requests), count)
                self.olt(onu, "set", str(entity_class), "1", "Text=")
                self.assertEqual(int.from_bytes(onu.mib[entity_class, 1][0], "big"), 0)

    def test_texts_that_make_no_sense_are_refused(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1)
            for assignments, complaint in ((["Text=0x1"], "Text=0x1: isn't a whole number of octets"),
                                           (["Text=a", "Part_1=b"], "Part_1 is given twice"),
                                           (["Text=a", "TEXT=b"], "NumberOfParts is given twice")):
                with self.subTest(assignments):
                    done = self.olt(onu, "set", "LargeString", "1", *assignments, expect=2)
                    self.assertIn(complaint, done.stderr)
            onu.add(256, 0)
            self.assertIn('"Text"', self.olt(onu, "set", "OnuG", "0", "Text=a", expect=2).stderr)
            self.assertEqual(onu.requests, [])

    def test_text_that_looks_like_digits_can_be_forced(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1)
            self.olt(onu, "set", "LargeString", "1", "Text=text:0x10")
            self.assertEqual(onu.mib[LARGE_STRING, 1][1].rstrip(b"\0"), b"0x10")


class GetTest(OltTest):
    def test_parts_are_joined(self):
        for options in ((), ("--extended",)):
            with self.subTest(options), FakeOnu() as onu:
                onu.add(LARGE_STRING, 1, {1: b"\4", **dict(enumerate(parts_of(LONG), 2))})
                done = self.olt(onu, *options, "get", "LargeString", "1")
                self.assertIn('Text           "%s"' % LONG, done.stdout)
                self.assertNotIn("Part_1 ", done.stdout)
                answer = self.json_of(self.olt(onu, *options, "--json", "get", "LargeString", "1"))
                self.assertEqual(answer["text"], LONG)
                self.assertEqual(len(answer["attributes"]), 16)

    def test_text_alone(self):
        with FakeOnu() as onu:
            onu.add(OCTET_STRING, 1, {1: struct.pack(">H", 30), 2: b"a" * 25, 3: b"b" * 25})
            answer = self.json_of(self.olt(onu, "--json", "get", "OctetString", "1", "text"))
            self.assertEqual((answer["attributes"], answer["text"]), ({}, 25 * "a" + 5 * "b"))
            answer = self.json_of(self.olt(onu, "--json", "get", "OctetString", "1", "text", "Length"))
            self.assertEqual(answer["attributes"], {"Length": 30})

    def test_named_parts_are_shown_as_they_are(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1, {1: b"\1", 2: b"abc"})
            done = self.olt(onu, "get", "LargeString", "1", "Part_1")
            self.assertIn('Part_1     "abc"', done.stdout)
            self.assertNotIn("Text", done.stdout)
            self.assertEqual(len(onu.requests), 1)

    def test_octets_that_are_no_text_are_digits(self):
        with FakeOnu() as onu:
            onu.add(OCTET_STRING, 1, {1: b"\0\3", 2: b"\0\xff\1"})
            self.assertEqual(self.json_of(self.olt(onu, "--json", "get", "307", "1"))["text"], "0x00ff01")

    def test_more_parts_than_there_are_end_at_the_last(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1, {1: b"\xff", 2: b"abc", 16: b"xyz"})
            self.assertEqual(self.json_of(self.olt(onu, "--json", "get", "157", "1"))["text"], "abcxyz")
            onu.add(OCTET_STRING, 1, {1: b"\xff\xff", 2: b"abc"})
            answer = self.json_of(self.olt(onu, "--json", "get", "307", "1"))
            self.assertEqual(answer["text"], "0x" + (b"abc" + bytes(372)).hex())

    def test_what_was_set_is_read_back(self):
        with FakeOnu() as onu:
            onu.add(LARGE_STRING, 1)
            for text in ("", "a", 25 * "b", 26 * "c", 375 * "d"):
                self.olt(onu, "set", "157", "1", "Text=" + text)
                self.assertEqual(self.json_of(self.olt(onu, "--json", "get", "157", "1", "Text"))["text"], text)


if __name__ == "__main__":
    unittest.main()
