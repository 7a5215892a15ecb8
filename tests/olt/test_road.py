"""A bad road between OLT and ONU: lost, late, doubled, reordered and damaged datagrams."""

import time
import unittest

from fake_onu import FakeOnu
from omci_wire import AVC, BASELINE, NOTIFICATION, RESPONSE, build
from support import OMCI_OLT, OltTest


def flipped(octets, at):
    return octets[:at] + bytes([octets[at] ^ 0x55]) + octets[at + 1:]


class RoadTest(OltTest):
    def test_lost_answer_is_asked_for_under_the_same_transaction(self):
        with FakeOnu() as onu:
            onu.road = lambda number, reply: [] if number < 2 else [(0, reply)]
            self.olt(onu, "create", "272", "1", options=("--timeout", "100"))
            self.assertGreaterEqual(len(onu.requests), 3)
            self.assertEqual(len({request.octets for request in onu.requests}), 1)
            self.assertEqual(len(onu.executed), 1)

    def test_retries_are_counted_and_then_given_up(self):
        with FakeOnu() as onu:
            onu.road = lambda number, reply: []
            start = time.monotonic()
            done = self.olt(onu, "create", "272", "1", expect=3, options=("--timeout", "100", "--retries", "2"))
            self.assertLess(time.monotonic() - start, 3)
            self.assertIn("no answer to create after 3 attempts of 100 ms", done.stderr)
            self.assertEqual(len(onu.requests), 3)

    def test_nobody_listens(self):
        with FakeOnu() as onu:
            address = onu.address
        command = [OMCI_OLT, "--connect", address, "--timeout", "50", "--retries", "1", "mib-reset"]
        self.assertIn("refused", self.run_program(command, 3).stderr)

    def test_late_answer_is_taken_while_the_retry_is_open(self):
        with FakeOnu() as onu:
            onu.road = lambda number, reply: [(0.3, reply)] if number == 0 else []
            self.olt(onu, "create", "272", "1", options=("--timeout", "200"))
            self.assertEqual(len(onu.executed), 1)

    def test_late_and_doubled_answers_do_not_answer_the_next_command(self):
        script = self.write("script", "get 272 1\n" + "get 272 2\n" * 3)
        with FakeOnu() as onu:
            for instance in (1, 2):
                onu.add(272, instance, {1: bytes([0, instance])})
            onu.road = lambda number, reply: [(0, reply), (0, reply), (0.02, reply)] if number == 0 else [(0.05, reply)]
            lines = self.olt(onu, "--json", "run", script).stdout.splitlines()
            self.assertEqual([line.split('"MaxGemPayloadSize":')[1][0] for line in lines], list("1222"))

    def test_reordered_answers(self):
        script = self.write("script", "get 272 1\nget 272 2\n")
        with FakeOnu() as onu:
            onu.add(272, 1, {1: b"\0\1"})
            onu.add(272, 2, {1: b"\0\2"})
            # The first answer comes after the retry's, in the middle of the second command.
            onu.road = lambda number, reply: [[(0.25, reply)], [(0, reply)], [(0.15, reply)]][min(number, 2)]
            lines = self.olt(onu, "--json", "run", script, options=("--timeout", "200")).stdout.splitlines()
            self.assertIn('"MaxGemPayloadSize":1', lines[0])
            self.assertIn('"MaxGemPayloadSize":2', lines[1])

    def test_damaged_answer_is_dropped_by_its_mic(self):
        with FakeOnu(mic="crc32") as onu:
            onu.add(272, 1, {1: b"\x0f\xff"})
            onu.road = lambda number, reply: [(0, flipped(reply, 11))] if number == 0 else [(0, reply)]
            answer = self.json_of(self.olt(onu, "--mic", "crc32", "--json", "get", "272", "1",
                                           options=("--timeout", "300")))
            self.assertEqual(answer["attributes"], {"MaxGemPayloadSize": 4095})
            self.assertGreaterEqual(len(onu.requests), 2)

    def test_damaged_headers_are_not_mistaken_for_the_answer(self):
        with FakeOnu() as onu:
            onu.add(272, 1, {1: b"\x0f\xff"})
            onu.road = lambda number, reply: [(0, flipped(reply, at)) for at in range(8)] + [(0, reply)]
            answer = self.json_of(self.olt(onu, "--json", "get", "272", "1"))
            self.assertEqual(answer["attributes"], {"MaxGemPayloadSize": 4095})

    def test_rubbish_is_skipped(self):
        rubbish = [b"\xff", bytes(7), bytes(48), b"\xff" * 2000, bytes([0, 1, 0x29, 0x0B, 0, 2, 0, 0, 0xFF, 0xFF])]
        with FakeOnu() as onu:
            onu.add(272, 1)
            onu.road = lambda number, reply: [(0, octets) for octets in rubbish] + [(0, reply[:20]), (0, reply)]
            self.olt(onu, "get", "272", "1")
            self.assertEqual(len(onu.requests), 1)

    def test_flood_of_rubbish_does_not_stop_the_clock(self):
        with FakeOnu() as onu:
            onu.road = lambda number, reply: [(0.001 * n, bytes(9)) for n in range(1, 400)]
            done = self.olt(onu, "mib-reset", expect=3, options=("--timeout", "100", "--retries", "1"))
            self.assertIn("undecodable", done.stderr)

    def test_wrong_mic_mode_is_hinted_at(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            done = self.olt(onu, "--mic", "crc32", "mib-reset", expect=3, options=("--timeout", "50", "--retries", "0"))
            self.assertIn("wrong MIC", done.stderr)

    def test_answers_without_mic_or_trailer(self):
        for length in (44, 40):
            with self.subTest(length=length), FakeOnu() as onu:
                onu.add(272, 1)
                onu.road = lambda number, reply, cut=length: [(0, reply[:cut])]
                self.olt(onu, "get", "272", "1")

    def test_baseline_answer_to_an_extended_request(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.road = lambda number, reply: [(0, build(onu.requests[-1].transaction, RESPONSE, 15, BASELINE, 2, 0, b"\0"))]
            self.olt(onu, "--extended", "mib-reset")

    def test_notification_in_between_is_no_answer(self):
        change = build(0, NOTIFICATION, AVC, BASELINE, 272, 1, b"\x80\0\x11\x11")
        with FakeOnu() as onu:
            onu.add(272, 1, {1: b"\0\5"})
            onu.road = lambda number, reply: [(0, change), (0, reply)]
            answer = self.json_of(self.olt(onu, "--json", "get", "272", "1"))
            self.assertEqual(answer["attributes"], {"MaxGemPayloadSize": 5})

    def test_two_runs_use_different_transactions(self):
        with FakeOnu() as onu:
            onu.add(272, 1)
            for _ in range(4):
                self.olt(onu, "get", "272", "1")
            self.assertGreater(len({request.transaction for request in onu.requests}), 2)
            self.assertTrue(all(0 < request.transaction < 0x8000 for request in onu.requests))


if __name__ == "__main__":
    unittest.main()
