"""Actions on the ONU, and what it says unasked."""

import json
import struct
import subprocess
import unittest

from fake_onu import FakeOnu
from omci_wire import (ALARM, AVC, BASELINE, EXTENDED, GET_ALL_ALARMS, NOTIFICATION, REBOOT, SYNCHRONIZE_TIME, TEST,
                       TEST_RESULT, Frame, build)
from support import OltTest


def bitmap(*numbers):
    octets = bytearray(28)
    for number in numbers:
        octets[number // 8] |= 0x80 >> number % 8
    return bytes(octets)


def alarm(entity_class, instance, octets, sequence):
    return build(0, NOTIFICATION, ALARM, BASELINE, entity_class, instance, octets + bytes(3) + bytes([sequence]))


class AlarmsTest(OltTest):
    def test_alarms_are_listed_by_name_in_both_formats(self):
        for options in ([], ["--extended"]):
            with self.subTest(options=options), FakeOnu() as onu:
                onu.add(2, 0)
                onu.alarms = {(11, 0x101): bitmap(0), (263, 0x401): bitmap(2, 4, 200)}
                answer = self.json_of(self.olt(onu, *options, "--json", "alarms"))
                self.assertEqual([(e["class"], e["instance"]) for e in answer["entities"]], [(11, 0x101), (263, 0x401)])
                self.assertEqual(answer["entities"][0]["alarms"], [{"number": 0, "name": "LAN loss of signal"}])
                self.assertEqual([a["number"] for a in answer["entities"][1]["alarms"]], [2, 4, 200])
                self.assertIn("LAN loss of signal", self.olt(onu, *options, "alarms").stdout)

    def test_retrieval_mode(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.assertIn("no active alarms", self.olt(onu, "alarms").stdout)
            self.olt(onu, "alarms", "--without-arc")
            modes = [request.contents[0] for request in onu.requests if request.type == GET_ALL_ALARMS]
            self.assertEqual(modes, [0, 1])


class ActionTest(OltTest):
    def test_time_goes_out_field_by_field(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            self.olt(onu, "sync-time", "--time", "2031-02-28 23:59:58")
            request = onu.requests[0]
            self.assertEqual((request.type, request.entity_class), (SYNCHRONIZE_TIME, 256))
            self.assertEqual(struct.unpack(">H5B", request.contents[:7]), (2031, 2, 28, 23, 59, 58))
            self.olt(onu, "sync-time")
            self.assertGreaterEqual(struct.unpack(">H", onu.requests[1].contents[:2])[0], 2024)
            self.olt(onu, "sync-time", "--time", "tomorrow", expect=2)
            self.olt(onu, "sync-time", "--time", "2031-02-30x", expect=2)

    def test_reboot_flags(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            self.olt(onu, "reboot")
            self.olt(onu, "reboot", "--unless", "emergency")
            self.assertEqual([(r.type, r.contents[0]) for r in onu.requests], [(REBOOT, 0), (REBOOT, 2)])

    def test_self_test_waits_for_its_own_result(self):
        triples = struct.pack(">BHBhBhBHBh", 1, 165, 3, -5000, 5, 1000, 9, 4000, 12, -256)

        def results(frame):
            def make(transaction):
                return build(transaction, NOTIFICATION, TEST_RESULT, BASELINE, 263, 0x401, triples)
            return [make(0), make(frame.transaction)] if frame.type == TEST else []

        with FakeOnu() as onu:
            onu.add(263, 0x401)
            onu.after = results
            answer = self.json_of(self.olt(onu, "--json", "test", "AniG", "0x401"))
            self.assertEqual(onu.requests[0].contents[0], 7)
            self.assertEqual(answer["test_result"], {
                "supply_voltage_v": 3.3, "received_power_dbu": -10.0, "transmitted_power_dbu": 2.0,
                "laser_bias_ma": 8.0, "temperature_c": -1.0})

    def test_missing_test_result_is_a_time_out(self):
        with FakeOnu() as onu:
            onu.add(263, 0x401)
            self.assertIn("no test result", self.olt(onu, "test", "263", "0x401", "--wait", "0.2", expect=3).stderr)
            self.olt(onu, "test", "263", "0x401", "--wait", "0")


class WatchTest(OltTest):
    def watch(self, onu, *arguments):
        return self.olt(onu, "--json", "watch", *arguments)

    def test_messages_come_decoded_one_object_a_line(self):
        change = struct.pack(">HB", 0x0100, 1) + b"\x01"
        sent = [alarm(263, 0x401, bitmap(0), 1),
                build(0, NOTIFICATION, AVC, BASELINE, 256, 0, struct.pack(">H", 0x0100) + b"\x01"),
                build(0, NOTIFICATION, AVC, EXTENDED, 263, 0x401, struct.pack(">HB", 0x0100, 1)),
                alarm(263, 0x401, bitmap(), 2)]
        self.assertEqual(len(change), 4)
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.after = lambda frame: sent if len(onu.requests) == 1 else []
            lines = [json.loads(line) for line in self.watch(onu, "--count", "4").stdout.splitlines()]
        self.assertEqual([line["message"] for line in lines],
                         ["alarm", "attribute value change", "attribute value change", "alarm"])
        self.assertEqual(lines[0]["alarms"], [{"number": 0, "name": "low received optical power"}])
        self.assertEqual(lines[1]["attributes"], {"OperationalState": 1})
        self.assertEqual(lines[2]["attributes"], {"Arc": 1})
        self.assertEqual((lines[2]["name"], lines[2]["instance"]), ("AniG", 0x401))
        self.assertEqual(lines[3]["alarms"], [])

    def test_lost_alarms_show_in_the_sequence(self):
        sent = [alarm(11, 0x101, bitmap(0), sequence) for sequence in (254, 255, 1, 4)]
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.after = lambda frame: sent if len(onu.requests) == 1 else []
            lines = [json.loads(line) for line in self.watch(onu, "--count", "4").stdout.splitlines()]
        self.assertEqual([line.get("lost_alarms", 0) for line in lines], [0, 0, 0, 2])

    def test_polling_keeps_the_watch_the_peer(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.watch(onu, "--for", "0.6", "--poll", "0.1")
            self.assertGreaterEqual(len(onu.requests), 4)

    def test_upload_first(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.watch(onu, "--for", "0.1", "--mib-upload")
            self.assertEqual([request.type for request in onu.requests][:3], [13, 14, 9])

    def test_watch_outlives_a_silent_onu(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.road = lambda number, reply: [] if 1 <= number <= 3 else [(0, reply)]
            onu.after = lambda frame: [alarm(11, 0x101, bitmap(0), 1)] if len(onu.requests) == 6 else []
            options = ("--timeout", "300", "--retries", "0", "--json")
            done = self.olt(onu, "watch", "--count", "1", "--poll", "0.1", options=options)
            self.assertEqual(json.loads(done.stdout)["alarms"][0]["number"], 0)
            self.assertEqual(done.stderr.count("still watching"), 1)
            self.assertEqual(done.stderr.count("answers again"), 1)

    def test_ctrl_c_is_a_good_end(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.after = lambda frame: [alarm(11, 0x101, bitmap(0), 1)] if len(onu.requests) == 1 else []
            process = subprocess.Popen(self.command(onu, "watch"), stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            line = process.stdout.readline().decode()
            process.send_signal(2)
            _, err = process.communicate(timeout=10)
            self.assertEqual((process.returncode, err), (0, b""))
            self.assertRegex(line, r"^\d{4}-\d\d-\d\dT.*Z  alarm PptpEthernetUni \(11\) instance 257: .*LAN loss of signal")


class RawTest(OltTest):
    def test_octets_go_out_as_they_are(self):
        octets = build(0x1234, 0x40, 9, BASELINE, 272, 1, b"\x80\0")
        with FakeOnu() as onu:
            onu.add(272, 1, {1: b"\0\5"})
            done = self.olt(onu, "raw", octets.hex())
            self.assertEqual(onu.requests[0].octets, octets)
            answer = Frame(bytes.fromhex(done.stdout.splitlines()[0]))
            self.assertEqual((answer.transaction, answer.contents[:5]), (0x1234, b"\0\x80\0\0\5"))
            self.assertIn("get response GalEthernetProfile (272) instance 1: success; MaxGemPayloadSize = 5", done.stdout)

    def test_complete_adds_padding_trailer_and_mic(self):
        with FakeOnu(mic="crc32") as onu:
            onu.add(2, 0)
            self.olt(onu, "--mic", "crc32", "raw", "--complete", "1234 4f0a", "0002 0000")
            self.assertEqual(onu.requests[0].octets, build(0x1234, 0x40, 15, BASELINE, 2, 0, b"", "crc32"))

    def test_refusal_and_silence(self):
        with FakeOnu() as onu:
            onu.road = lambda number, reply: [(0, reply)] if number == 0 else []
            frame = build(1, 0x40, 9, BASELINE, 999, 0, b"\x80\0").hex()
            self.assertIn("unknown managed entity", self.olt(onu, "raw", frame, expect=1).stdout)
            self.olt(onu, "raw", frame, expect=3, options=("--timeout", "100"))
            self.assertEqual(len(onu.requests), 2)
            self.olt(onu, "raw", "--no-answer", frame)


if __name__ == "__main__":
    unittest.main()
