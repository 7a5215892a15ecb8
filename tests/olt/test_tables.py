"""Tables and the debug service: get-next and debug, against an ONU in Python and against onu-sim."""

import struct
import unittest

from fake_onu import FakeOnu
from omci_wire import SET
from support import OltTest
from onu import Onu as Simulator

TEXT = b"version 1.2.3\nup 4 days, 3 hours and 2 minutes\n"
ROWS = [TEXT[at:at + 29].ljust(29, b"\0") for at in range(0, len(TEXT), 29)]


class Debug(OltTest):
    def debug(self, rows, *options, words=("version",), command_format=0):
        with FakeOnu() as onu:
            onu.add(158, 0, {1: bytes([command_format])})
            onu.rows[158, 0, 3] = rows
            done = self.olt(onu, *options, "debug", *words)
            self.sent = [request.contents for request in onu.requests if request.type == SET]
            return done

    def test_reply_is_joined_to_text_in_both_formats(self):
        for options in ([], ["--extended"]):
            self.assertEqual(TEXT.decode(), self.debug(ROWS, *options).stdout)
            self.assertEqual([struct.pack(">H", 0x4000) + b"version".ljust(25, b"\0")],
                             [contents[-27:] if options else contents[:27] for contents in self.sent])

    def test_words_are_one_command(self):
        self.debug([], words=("show", "all"))
        self.assertEqual(b"show all", self.sent[0][2:].rstrip(b"\0"))

    def test_reply_in_the_free_format_is_shown_as_octets(self):
        row = bytes(range(1, 30))
        self.assertEqual([row[:16].hex(), row[16:].hex()], self.debug([row], command_format=1).stdout.split())
        answer = self.json_of(self.debug([row], "--json", command_format=1))
        self.assertEqual(("free", "0x" + row.hex()), (answer["format"], answer["octets"]))

    def test_text_that_is_none_is_shown_as_octets(self):
        answer = self.json_of(self.debug([b"\x01" + bytes(28)], "--json"))
        self.assertEqual(("ascii", "0x01"), (answer["format"], answer["octets"]))

    def test_json_holds_command_and_text(self):
        answer = self.json_of(self.debug(ROWS, "--json"))
        self.assertEqual(("version", TEXT.decode(), 0), (answer["debug_command"], answer["text"], answer["result"]))

    def test_no_reply_is_no_line(self):
        self.assertEqual("", self.debug([]).stdout)

    def test_command_that_is_too_long_is_not_sent(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            self.assertIn("at most 25", self.olt(onu, "debug", "x" * 26, expect=2).stderr)
            self.assertEqual([], onu.requests)

    def test_onu_without_the_entity_refuses(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.assertIn("unknown", self.olt(onu, "debug", "version", expect=1).stderr)
            self.assertEqual(5, self.json_of(self.olt(onu, "--json", "debug", "version", expect=1))["result"])


class OnuSim(OltTest):
    def setUp(self):
        super().setUp()
        self.onu = self.enterContext(Simulator(self.directory))

    def table(self, *arguments, options=()):
        return self.json_of(self.olt(self.onu, *options, "--json", "get-next", *arguments))

    def test_debug_service_answers_in_both_formats(self):
        for options in ([], ["--extended"]):
            self.assertTrue(self.olt(self.onu, *options, "debug", "version").stdout.startswith("onu-sim "))
            self.assertIn("T-CONTs: 8\n", self.olt(self.onu, *options, "debug", "services").stdout)
            self.assertIn("counters: messages so far\n", self.olt(self.onu, *options, "debug", "nonsense").stdout)

    def test_stored_table_is_read_row_by_row_in_both_formats(self):
        rows = [f"0x{number:02x}{'41' * 16}" for number in range(1, 21)]
        for row in rows:
            self.olt(self.onu, "set", "EnhancedSecurityControl", "0", "OltRandomChallengeTable=" + row)
        for options in ([], ["--extended"]):
            answer = self.table("EnhancedSecurityControl", "0", "OltRandomChallengeTable", options=options)
            # As many rows as a row has octets, and more: both ways to count are told apart.
            self.assertEqual((20, rows), (answer["size"], answer["rows"]))
            for count in (1, 17):
                self.olt(self.onu, "mib-reset")
                for row in rows[:count]:
                    self.olt(self.onu, "set", "EnhancedSecurityControl", "0", "OltRandomChallengeTable=" + row)
                answer = self.table("EnhancedSecurityControl", "0", "OltRandomChallengeTable", options=options)
                self.assertEqual((count, rows[:count]), (answer["size"], answer["rows"]))
            for row in rows[17:]:
                self.olt(self.onu, "set", "EnhancedSecurityControl", "0", "OltRandomChallengeTable=" + row)

    def test_rows_longer_than_a_baseline_message_are_joined(self):
        self.onu.ask(create={"class": 303, "instance": 1})
        rows = [bytes([number] * 128).hex() for number in (1, 2, 3)]
        for row in rows:
            self.onu.ask(set={"class": 303, "instance": 1, "attribute": 0x800, "bytes": row})
        for options in ([], ["--extended"]):
            answer = self.table("303", "1", "LastReceivedErroredCcmTable", options=options)
            self.assertEqual(["0x" + row for row in rows], answer["rows"])

    def test_portal_message_ends_within_its_last_row(self):
        self.onu.ask(create={"class": 65420, "instance": 257})
        self.onu.ask(hardware={"status_message": "x" * 256})
        for options in ([], ["--extended"]):
            rows = self.table("65420", "257", "StatusMessage", options=options)["rows"]
            self.assertEqual([29] * 8 + [24], [len(row) // 2 - 1 for row in rows])

    def test_empty_table_has_no_rows(self):
        self.assertEqual([], self.table("EnhancedSecurityControl", "0", "BroadcastKeyTable")["rows"])


if __name__ == "__main__":
    unittest.main()
