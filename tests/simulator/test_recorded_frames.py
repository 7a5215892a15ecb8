"""Requests of other OLTs, recorded: each gets a well-formed answer, whatever it asks for."""

import json
import os
import struct
import unittest

from onu_sim import OnuSimTest

FRAMES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "omci-frames.jsonl")
BASELINE, EXTENDED = 0x0A, 0x0B
ACKNOWLEDGE_REQUEST, ACKNOWLEDGEMENT = 0x40, 0x20
AUTONOMOUS = (16, 17, 27)
# Answers without a result octet: MIB upload, get all alarms and what follows them.
WITHOUT_RESULT = (11, 12, 13, 14)
RESULTS = (0, 1, 2, 3, 4, 5, 6, 7, 9)
SHORTEST_CONTENTS = {9: 3, 28: 3, 26: 3}


def recorded_requests():
    """(line, octets, meaning) of the frames that an OLT sends and wants answered."""
    found = []
    with open(FRAMES, encoding="utf-8") as file:
        for line, text in enumerate(file, 1):
            entry = json.loads(text)
            octets = bytes.fromhex(entry["hex"])
            is_request = len(octets) >= 8 and not octets[2] & ACKNOWLEDGEMENT and octets[2] & 0x1F not in AUTONOMOUS
            if is_request and octets[2] & ACKNOWLEDGE_REQUEST:
                found.append((line, octets, entry["meaning"]))
    return found


class RecordedRequests(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()

    def exchange(self, octets):
        self.simulator.udp.sendto(octets, self.simulator.address)
        while True:
            answer = self.simulator.udp.recv(4096)
            if answer[2] & 0x1F not in AUTONOMOUS:
                return answer

    def check(self, request, answer):
        message = request[2] & 0x1F
        self.assertEqual(answer[0:2], request[0:2], "transaction id")
        self.assertEqual(answer[2], ACKNOWLEDGEMENT | message, "message type")
        self.assertEqual(answer[3], request[3], "format")
        self.assertEqual(answer[4:8], request[4:8], "class and instance")
        if answer[3] == BASELINE:
            self.assertEqual(len(answer), 48)
            self.assertEqual(answer[40:44], bytes([0, 0, 0, 0x28]))
            contents = answer[8:40]
        else:
            length = struct.unpack(">H", answer[8:10])[0]
            self.assertEqual(len(answer), 10 + length + 4)
            contents = answer[10:10 + length]
        if message not in WITHOUT_RESULT:
            self.assertIn(contents[0], RESULTS)
            if contents[0] == 0:
                self.assertGreaterEqual(len(contents), SHORTEST_CONTENTS.get(message, 1))

    def test_every_recorded_request_gets_a_well_formed_answer(self):
        requests = recorded_requests()
        self.assertGreater(len(requests), 60)
        self.assertEqual({octets[3] for _, octets, _ in requests}, {BASELINE, EXTENDED})
        for line, octets, meaning in requests:
            with self.subTest(line=line, meaning=meaning):
                self.check(octets, self.exchange(octets))

    def test_requests_that_want_no_answer_get_none(self):
        requests = recorded_requests()
        # The next answer belongs to the next request: nothing came in between.
        for _, octets, _ in requests[:20]:
            silent = octets[:2] + bytes([octets[2] & ~ACKNOWLEDGE_REQUEST]) + octets[3:]
            self.simulator.udp.sendto(silent, self.simulator.address)
        probe = requests[0][1]
        probe = struct.pack(">H", 0x7E57) + probe[2:]
        self.check(probe, self.exchange(probe))


if __name__ == "__main__":
    unittest.main()
