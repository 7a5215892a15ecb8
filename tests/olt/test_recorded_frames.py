"""Frames of public origin: decode gives the attributes and values that another decoder gave, and the class list has."""

import json
import os
import pathlib
import re
import sys
import unittest

from recorded_names import NAMES
from support import OMCI_OLT, OltTest

TESTS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TESTS / "catalogue"))
import class_list  # noqa: E402

RECORDS = TESTS / "data" / "omci-frames.jsonl"
ENTITY = re.compile(r"ReportedME\{class=(\d+)\(\w+\) inst=0x(\w+) mask=0x\w+ ([^}]*)\}")
ATTRIBUTES = re.compile(r" Attributes\{([^}]*)\}")
MASK = re.compile(r"AttributeMask=0x(\w{4})(?! Result)")
WIDEST_NUMBER = 8
CREATE, SET, GET, UPLOAD_NEXT, CHANGE, CURRENT = 4, 8, 9, 14, 17, 28

# What a create carries differs between editions of G.988: here these aren't set by it, or one octet more is.
NOT_SET_BY_CREATE = {(47, "LaspIdPointer"), (171, "EnhancedMode")}
CREATED_WITH_ONE_OCTET_MORE = 266
# A tagging table read with get is a number of octets there and one row here, so that what follows stands elsewhere.
READ_TABLE = {(171, "ReceivedFrameVlanTaggingOperationTable")}
# The other decoder gives no row of a table that is set, and one octet of the attributes of classes unknown to it.
UNNAMED = re.compile(r"UnknownAttr_\d+$")
ROWS_ALONE = re.compile(r"\{\d+ \[")


def plain(name):
    return re.sub("[^a-z0-9]", "", name.lower())


def size_of(value):
    """Of a value that is octets; numbers have none."""
    return len(value) // 2 - 1 if isinstance(value, str) and value.startswith("0x") else 0


def octets_of(value, size):
    """The octets of a value as JSON or the records have it."""
    if isinstance(value, str) and value.startswith("0x"):
        return bytes.fromhex(value[2:])
    return (int(value) % (1 << 8 * size)).to_bytes(size, "big")


def said(text):
    """Names and values of the records' lists; the entity's own number is the header's matter."""
    pairs = (part.partition("=")[::2] for part in text.split("; ") if part)
    return {name: value for name, value in pairs if name != "ManagedEntityId"}


class RecordedFrames(OltTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        with open(RECORDS, encoding="utf-8") as file:
            cls.records = [json.loads(line) for line in file]
        cls.classes = class_list.read()

    def decoded(self):
        """(line, octets, meaning, what decode says) of each."""
        digits = "".join(record["hex"] + "\n" for record in self.records)
        # One of the frames is too short to be one, so that the command says 1.
        done = self.run_program([OMCI_OLT, "--json", "decode", "-"], 1, digits)
        objects = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual(len(objects), len(self.records))
        return [(line, bytes.fromhex(record["hex"]), record["meaning"], told)
                for line, (record, told) in enumerate(zip(self.records, objects), 1)]

    def entities(self, meaning, told):
        """(class, what the record says, what decode says) of each entity whose values a record names."""
        reported = ENTITY.findall(meaning)
        if reported:
            self.assertEqual([(int(number), int(instance, 16)) for number, instance, _ in reported],
                             [(entity["class"], entity["instance"]) for entity in told["entities"]])
            return [(entity["class"], said(text), entity["attributes"])
                    for (_, _, text), entity in zip(reported, told["entities"])]
        values = ATTRIBUTES.search(meaning)
        if not values or ROWS_ALONE.search(values[1]):
            return []
        recorded = said(values[1])
        if told["message"] == "get response" and READ_TABLE & {(told["class"], name) for name in recorded}:
            return []
        attributes = told.get("attributes", {})
        if told["message"] == "get next response":
            attributes = {told["asked"][0]: told["data"]}
        return [(told["class"], recorded, attributes)]

    def compare(self, number, recorded, attributes, message):
        """How many attributes were compared by name and value; fails at any that is on one side alone."""
        by_plain_name = {plain(name): name for name in attributes}
        compared = set()
        for theirs, value in recorded.items():
            created = message == "create request"
            if created and (number, theirs) in NOT_SET_BY_CREATE:
                continue
            ours = NAMES.get((number, theirs)) or by_plain_name.get(plain(theirs))
            self.assertIn(ours, attributes, theirs)
            compared.add(ours)
            if created and (number, theirs) == (CREATED_WITH_ONE_OCTET_MORE, "GalProfilePointer"):
                continue
            size = size_of(attributes[ours]) or size_of(value) or WIDEST_NUMBER
            self.assertEqual(octets_of(attributes[ours], size).hex(), octets_of(value, size).hex(), theirs)
        rest = set(attributes) - compared
        if message == "set request" and not recorded:
            return 0
        if message == "create request" and number == CREATED_WITH_ONE_OCTET_MORE:
            rest -= {"PptpCounter"}
        self.assertEqual(rest, set())
        return len(compared)

    def test_attributes_and_values_are_what_the_other_decoder_says(self):
        frames = attributes = 0
        for line, _, meaning, told in self.decoded():
            with self.subTest(line=line, meaning=meaning):
                for number, recorded, ours in self.entities(meaning, told):
                    if number not in self.classes or any(UNNAMED.match(name) for name in recorded):
                        continue
                    attributes += self.compare(number, recorded, ours, told["message"])
                    frames += 1
        self.assertGreater(frames, 140)
        self.assertGreater(attributes, 550)

    def listed(self, number, mask, octets, rows=False):
        """Names and octets of what a mask chooses, by the class list; of a table a row or, when read, its size."""
        found, at = {}, 0
        for attribute in self.classes[number].attributes:
            if mask & attribute.mask:
                is_size = attribute.kind == "table" and not rows
                size = class_list.ROW_COUNT_OCTETS if is_size else attribute.size
                found[attribute.name] = octets[at:at + size].hex()
                at += size
        return found

    def expected_values(self, octets):
        """(class, names and octets) of a baseline frame with values; nothing of others."""
        message, response = octets[2] & 0x1F, bool(octets[2] & 0x20)
        number, contents = int.from_bytes(octets[4:6], "big"), octets[8:40]
        mask = int.from_bytes(contents[0:2], "big")
        if message == UPLOAD_NEXT and response:
            number, mask = int.from_bytes(contents[0:2], "big"), int.from_bytes(contents[4:6], "big")
            contents = contents[6:]
        elif message in (GET, CURRENT) and response and contents[0] == 0:
            mask, contents = int.from_bytes(contents[1:3], "big"), contents[3:]
        elif message == CHANGE or (message == SET and not response):
            contents = contents[2:]
        elif message == CREATE and not response and number in self.classes:
            mask = sum(attribute.mask for attribute in self.classes[number].attributes if "C" in attribute.access)
        else:
            return None
        known = sum(attribute.mask for attribute in self.classes[number].attributes) if number in self.classes else 0
        return None if not known or mask & ~known else (number, mask, contents)

    def test_attributes_and_values_are_those_of_the_class_list(self):
        frames = attributes = 0
        for line, octets, meaning, told in self.decoded():
            expected = octets[3:4] == b"\x0a" and len(octets) >= 40 and self.expected_values(octets)
            if not expected:
                continue
            number, mask, contents = expected
            with self.subTest(line=line, meaning=meaning):
                ours = (told["entities"][0] if "entities" in told else told).get("attributes", {})
                values = self.listed(number, mask, contents, rows=octets[2] & 0x1F == SET)
                self.assertEqual(sorted(ours), sorted(values))
                for name, value in values.items():
                    self.assertEqual(octets_of(ours[name], len(value) // 2).hex(), value, name)
                attributes += len(values)
                frames += 1
        self.assertGreater(frames, 140)
        self.assertGreater(attributes, 600)

    def test_attributes_asked_for_are_those_of_the_class_list(self):
        frames = 0
        for line, _, meaning, told in self.decoded():
            mask = MASK.search(meaning)
            if not mask or not told["message"].endswith(" request") or told["class"] not in self.classes:
                continue
            with self.subTest(line=line, meaning=meaning):
                self.assertEqual(told["asked"], list(self.listed(told["class"], int(mask[1], 16), b"")))
                frames += 1
        self.assertGreater(frames, 30)

    def test_what_else_a_message_says_is_what_the_other_decoder_says(self):
        numbers = {"NumberOfCommands": "count", "CommandSequenceNumber": "sequence", "alarm-seq": "sequence",
                   "SectionNumber": "section", "ImageSize": "image_size", "RebootCondition": "flags",
                   "ActivateFlags": "flags", "SelectTest": "selector", "AlarmRetrievalMode": "mode"}
        compared = 0
        for line, _, meaning, told in self.decoded():
            with self.subTest(line=line, meaning=meaning):
                for theirs, ours in numbers.items():
                    value = re.search(rf"\b{theirs}=(0x\w+|\d+)", meaning)
                    if value:
                        self.assertEqual(told[ours], int(value[1], 0), theirs)
                        compared += 1
                result = re.search(r"; result=(\d+)\(", meaning)
                if result:
                    self.assertEqual(told["result"], int(result[1]))
                    compared += 1
                alarms = re.search(r"(?:alarm-bitmap|AlarmBitMap)=0x(\w{56})", meaning)
                if alarms:
                    raised = (told["entities"][0] if "entities" in told else told)["alarms"]
                    bits = f"{int(alarms[1], 16):0224b}"
                    self.assertEqual([alarm["number"] for alarm in raised],
                                     [number for number, bit in enumerate(bits) if bit == "1"])
                    compared += 1
        self.assertGreater(compared, 85)


if __name__ == "__main__":
    unittest.main()
