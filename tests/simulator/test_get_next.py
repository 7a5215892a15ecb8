"""Get next of every table: the debug service's reply, the portal's message, the CFM stack, and what the stores hold."""

import struct
import unittest

from onu_sim import CREATE, GET, MIB_RESET, SET, OnuSimTest

GET_NEXT, SET_TABLE = 26, 29
SUCCESS, PROCESSING_ERROR, NOT_SUPPORTED, PARAMETER_ERROR = 0, 1, 2, 3
UNKNOWN_INSTANCE = 5
ROW = 29


class GetNextTest(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.ask = self.simulator.ask

    def extended(self, message, entity_class, instance, contents=b""):
        self.simulator.transaction += 1
        frame = struct.pack(">HBBHHH", self.simulator.transaction, message | 0x40, 0x0B, entity_class, instance,
                            len(contents)) + contents + bytes(4)
        self.simulator.udp.sendto(frame, self.simulator.address)
        return self.simulator.udp.recv(2048)[10:-4]

    def baseline(self, message, entity_class, instance, contents=b""):
        return self.simulator.omci(message, entity_class, instance, contents)

    def next(self, entity_class, instance, mask, sequence, send=None):
        """Result, mask, data."""
        contents = (send or self.baseline)(GET_NEXT, entity_class, instance, struct.pack(">HH", mask, sequence))
        return contents[0], struct.unpack(">H", contents[1:3])[0], contents[3:]

    def size(self, entity_class, instance, mask):
        return struct.unpack(">I", self.baseline(GET, entity_class, instance, struct.pack(">H", mask))[3:7])[0]

    def results(self, entity_class, instance, mask, *sequence):
        return [self.next(entity_class, instance, mask, number)[0] for number in sequence]


class RemoteDebug(GetNextTest):
    def command(self, text):
        self.assertEqual(SUCCESS, self.baseline(SET, 158, 0, struct.pack(">H", 0x4000) + text.ljust(25, b"\0"))[0])

    def reply(self, send=None):
        size = self.size(158, 0, 0x2000)
        self.assertEqual(0, size % ROW)
        rows = [self.next(158, 0, 0x2000, number, send) for number in range(size // ROW)]
        self.assertTrue(all(row[:2] == (SUCCESS, 0x2000) for row in rows))
        return b"".join(row[2] for row in rows).rstrip(b"\0").decode()

    def test_service_knows_its_commands(self):
        for text, words in ((b"version", "onu-sim "), (b"UPTIME", "up 0 h 0 min"), (b"time", "not synchronized"),
                            (b"services", "T-CONTs: 8\n"), (b"counters", "baseline requests: "),
                            (b" help ", "uptime: since the last restart\n"), (b"reboot", "unknown command\nversion:")):
            with self.subTest(text):
                self.command(text)
                self.assertIn(words, self.reply())
                self.assertIn(words, self.reply(self.extended))
        self.assertNotIn("reboot", self.ask({"system": True})["result"])

    def test_command_of_all_its_octets_is_no_trouble(self):
        self.command(b"x" * 25)
        self.assertTrue(self.reply().startswith("unknown command"))

    def test_each_get_asks_the_hardware_anew_and_restarts_the_rows(self):
        self.command(b"help")
        first = self.reply()
        self.assertEqual(first, self.reply())
        self.assertEqual(2, len(self.simulator.hardware_calls("getRemoteDebugReply")))

    def test_reply_that_is_set_stands_before_the_service(self):
        self.ask({"hardware": {"debug_reply": "41" * 30}})
        self.command(b"version")
        self.assertEqual(30, self.size(158, 0, 0x2000))
        self.assertEqual([b"A" * 29, b"A" + bytes(28)], [self.next(158, 0, 0x2000, number)[2] for number in (0, 1)])
        self.ask({"hardware": {"debug_reply": None}})
        self.assertTrue(self.reply().startswith("onu-sim "))

    def test_get_next_before_any_get_is_a_processing_error_and_the_host_lives_on(self):
        self.assertEqual([PROCESSING_ERROR], self.results(158, 0, 0x2000, 0))
        self.assertEqual(1, self.ask({"statistics": True})["result"]["exceptions"])
        self.command(b"version")
        self.assertTrue(self.reply().startswith("onu-sim "))

    def test_sequence_numbers_count_every_request(self):
        self.ask({"hardware": {"debug_reply": "42" * (5 * ROW)}})
        for asked, expected in (((0, 1, 2, 3, 4), [0] * 5),
                                ((0, 0, 2, 3), [SUCCESS, PARAMETER_ERROR, SUCCESS, SUCCESS]),  # repeated
                                ((0, 2, 2), [SUCCESS, PARAMETER_ERROR, SUCCESS]),  # skipped
                                ((1, 1), [PARAMETER_ERROR, SUCCESS]),
                                ((7, 0xFFFF), [PARAMETER_ERROR] * 2)):  # out of range
            with self.subTest(asked):
                self.assertEqual(5 * ROW, self.size(158, 0, 0x2000))
                self.assertEqual(expected, self.results(158, 0, 0x2000, *asked))

    def test_row_behind_the_last_is_a_processing_error(self):
        self.ask({"hardware": {"debug_reply": "43" * ROW}})
        self.size(158, 0, 0x2000)
        self.assertEqual([SUCCESS, PROCESSING_ERROR], self.results(158, 0, 0x2000, 0, 1))

    def test_another_attribute_or_instance_is_refused(self):
        self.size(158, 0, 0x2000)
        self.assertEqual(NOT_SUPPORTED, self.next(158, 0, 0x4000, 0)[0])
        self.assertEqual(UNKNOWN_INSTANCE, self.next(158, 1, 0x2000, 0)[0])

    def test_hardware_that_throws_leaves_the_host_alive(self):
        self.ask({"hardware": {"throw": ["getRemoteDebugReply"]}})
        self.assertEqual(PROCESSING_ERROR, self.baseline(GET, 158, 0, b"\x20\x00")[0])
        self.ask({"hardware": {"throw": []}})
        self.command(b"version")
        self.assertTrue(self.reply().startswith("onu-sim "))


class StatusPortal(GetNextTest):
    MASK = 0x20

    def setUp(self):
        super().setUp()
        self.assertEqual({"result": 0}, self.ask({"create": {"class": 65420, "instance": 257}}))

    def message(self):
        self.assertEqual(256, self.size(65420, 257, self.MASK))
        return b"".join(self.next(65420, 257, self.MASK, number)[2] for number in range(9))

    def test_message_comes_in_nine_rows_of_which_the_last_ends_early(self):
        text = bytes(0x30 + number % 64 for number in range(256))
        self.ask({"hardware": {"status_message": text.decode()}})
        joined = self.message()
        self.assertEqual(text, joined[:256])
        self.assertEqual(bytes(5), joined[256:])

    def test_portal_speaks_for_itself_until_it_is_told_what_to_say(self):
        self.assertEqual(b"portal 257 in service", self.message().rstrip(b"\0"))

    def test_get_restarts_the_rows(self):
        self.message()
        self.assertEqual([PARAMETER_ERROR], self.results(65420, 257, self.MASK, 0))
        self.message()

    def test_configuration_table_reads_as_zeros(self):
        self.baseline(SET, 65420, 257, struct.pack(">H", 0x100) + b"document".ljust(25, b"\0"))
        self.size(65420, 257, self.MASK)
        self.assertEqual((SUCCESS, 0x100, bytes(29)), self.next(65420, 257, 0x100, 0))
        self.assertEqual([(b"document" + bytes(17)).hex()],
                         self.ask({"rows": {"class": 65420, "instance": 257, "attribute": 0x100}})["result"])


class CfmStack(GetNextTest):
    def test_first_row_is_zero_and_the_second_out_of_order(self):
        self.assertEqual(SUCCESS, self.baseline(CREATE, 45, 1, bytes(15))[0])
        self.assertEqual(0, self.size(305, 1, 0x4000))
        self.assertEqual((SUCCESS, 0x4000, bytes(29)), self.next(305, 1, 0x4000, 0))
        self.assertEqual((SUCCESS, 0x4000, bytes(18)), self.next(305, 1, 0x4000, 0, self.extended))
        self.assertEqual([PARAMETER_ERROR], self.results(305, 1, 0x4000, 1))
        self.assertEqual(NOT_SUPPORTED, self.next(305, 1, 0x2000, 0)[0])
        self.assertEqual(UNKNOWN_INSTANCE, self.next(305, 9, 0x4000, 0)[0])


class StoredTables(GetNextTest):
    """Tables that the host serves from the stores."""

    def setUp(self):
        super().setUp()
        self.assertEqual({"result": 0}, self.ask({"create": {"class": 303, "instance": 1}}))
        self.rows = [bytes([number + 1]) * 17 for number in range(3)]
        for row in self.rows:
            self.assertEqual(SUCCESS, self.baseline(SET, 332, 0, struct.pack(">H", 0x4000) + row)[0])

    def test_rows_come_in_the_order_of_their_sets(self):
        self.assertEqual(3, self.size(332, 0, 0x4000))
        for number, row in enumerate(self.rows):
            self.assertEqual((SUCCESS, 0x4000, row + bytes(12)), self.next(332, 0, 0x4000, number))
            self.assertEqual((SUCCESS, 0x4000, row), self.next(332, 0, 0x4000, number, self.extended))
        listed = self.ask({"rows": {"class": 332, "instance": 0, "attribute": "OltRandomChallengeTable"}})["result"]
        self.assertEqual([row.hex() for row in self.rows], listed)

    def test_any_order_and_repeats_are_fine(self):
        self.assertEqual([SUCCESS] * 4, self.results(332, 0, 0x4000, 2, 0, 0, 1))

    def test_missing_row_is_a_parameter_error(self):
        self.assertEqual([PARAMETER_ERROR] * 3, self.results(332, 0, 0x4000, 3, 4, 0xFFFF))
        self.assertEqual([PARAMETER_ERROR], self.results(332, 0, 0x200, 0))

    def test_reset_empties_it(self):
        self.baseline(MIB_RESET, 2, 0)
        self.assertEqual(0, self.size(332, 0, 0x4000))
        self.assertEqual([PARAMETER_ERROR], self.results(332, 0, 0x4000, 0))

    def test_another_attribute_class_or_instance_is_refused(self):
        for mask in (0x2000, 0x6000, 0, 1):
            self.assertEqual(NOT_SUPPORTED, self.next(332, 0, mask, 0)[0], hex(mask))
        self.assertEqual(UNKNOWN_INSTANCE, self.next(332, 7, 0x4000, 0)[0])
        self.assertEqual(NOT_SUPPORTED, self.next(264, 257, 0x8000, 0)[0])

    def test_row_longer_than_a_baseline_message_takes_several_numbers(self):
        row = bytes(range(1, 129))
        for _ in range(2):
            self.assertEqual({"result": 0}, self.ask({"set": {"class": 303, "instance": 1, "attribute": 0x800,
                                                              "bytes": row.hex()}}))
        self.assertEqual(2, self.size(303, 1, 0x800))
        for first in (0, 5):
            pieces = [self.next(303, 1, 0x800, first + number) for number in range(5)]
            self.assertTrue(all(piece[0] == SUCCESS for piece in pieces))
            self.assertEqual(row + bytes(5 * 29 - 128), b"".join(piece[2] for piece in pieces))
        self.assertEqual([PARAMETER_ERROR], self.results(303, 1, 0x800, 10))
        self.assertEqual([row] * 2, [self.next(303, 1, 0x800, number, self.extended)[2] for number in range(2)])

    def test_extended_request_that_is_cut_off_is_a_parameter_error(self):
        self.assertEqual(PARAMETER_ERROR, self.extended(GET_NEXT, 332, 0, b"\x40\x00")[0])

    def test_set_table_adds_all_its_rows(self):
        rows = b"".join(bytes([0x41 + number]) * 17 for number in range(4))
        self.assertEqual(SUCCESS, self.extended(SET_TABLE, 332, 0, struct.pack(">H", 0x4000) + rows)[0])
        self.assertEqual(7, self.size(332, 0, 0x4000))
        self.assertEqual(b"D" * 17, self.next(332, 0, 0x4000, 6, self.extended)[2])

    def test_rows_of_what_is_not_there_are_refused(self):
        for request, words in (({"class": 332, "instance": 0, "attribute": 0x2000}, "no such table"),
                               ({"class": 332, "instance": 3, "attribute": 0x4000}, "no instance 3"),
                               ({"class": 9, "instance": 0, "attribute": 1}, "class 9")):
            self.assertIn(words, self.ask({"rows": request})["error"])


if __name__ == "__main__":
    unittest.main()
