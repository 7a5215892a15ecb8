"""The ONU itself: self-tests, optical levels, clock, links, alarms, restart."""

import datetime
import socket
import struct
import subprocess
import time
import unittest

from onu_sim import ALARM, AVC, GET, MIB_RESET, MIB_UPLOAD, PROGRAM, REBOOT, TIMEOUT, OnuSimTest, baseline

SYNCHRONIZE_TIME, TEST, TEST_RESULT = 24, 18, 27
SELF_TEST = b"\x07"
UTC = datetime.timezone.utc


def signed(octets):
    return struct.unpack(">h", octets)[0]


class Equipment(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.ask = self.simulator.ask
        self.ani = self.ask({"instances": True})["result"]["263"][0]

    def notification(self):
        """The next frame that was not asked for: transaction, message type, format, class, instance, contents."""
        frame = self.simulator.udp.recv(2048)
        return struct.unpack(">HBBHH", frame[:8]) + (frame[8:-8] if frame[3] == 0x0A else frame[10:-4],)

    def extended(self, message, entity_class, instance, contents=b""):
        """One extended request; the contents of its response."""
        self.simulator.transaction += 1
        frame = struct.pack(">HBBHHH", self.simulator.transaction, message | 0x40, 0x0B, entity_class, instance,
                            len(contents)) + contents + bytes(4)
        self.simulator.udp.sendto(frame, self.simulator.address)
        response = self.simulator.udp.recv(2048)
        self.assertEqual(self.simulator.transaction, struct.unpack(">H", response[:2])[0])
        return response[10:-4]

    def levels(self):
        contents = self.simulator.omci(GET, 263, self.ani, b"\x00\x44")
        return signed(contents[3:5]), signed(contents[5:7])


class SelfTest(Equipment):
    def test_result_follows_the_reply_under_its_transaction(self):
        for entity_class, instance, operation in ((256, 0, "testOnu"), (263, self.ani, "testAni")):
            with self.subTest(entity_class):
                self.assertEqual(0, self.simulator.omci(TEST, entity_class, instance, SELF_TEST)[0])
                result = self.notification()
                self.assertEqual((self.simulator.transaction, TEST_RESULT, 0x0A, entity_class, instance), result[:5])
                self.assertEqual([[self.simulator.transaction]],
                                 [call["args"] for call in self.simulator.hardware_calls(operation)])

    def test_onu_g_tells_its_outcome(self):
        for word, code in (("passed", 1), ("failed", 0), ("not completed", 2)):
            self.assertEqual({"result": 0}, self.ask({"hardware": {"self_test": word}}))
            self.simulator.omci(TEST, 256, 0, SELF_TEST)
            self.assertEqual(bytes([0, code]), self.notification()[5][:2])

    def test_ani_g_measures_the_levels_that_its_attributes_show(self):
        self.ask({"hardware": {"ani": {str(self.ani): {"rx": -9000, "tx": 500}}}})
        self.assertEqual((-9000, 500), self.levels())
        self.simulator.omci(TEST, 263, self.ani, SELF_TEST)
        triples = dict(struct.iter_unpack(">Bh", self.notification()[5][:15]))
        self.assertEqual({1, 3, 5, 9, 12}, set(triples))
        # The message refers power to a microwatt, the attributes to a milliwatt: 30 dB in steps of 0.002 dB.
        self.assertEqual((-9000 + 15000, 500 + 15000), (triples[3], triples[5]))
        self.assertEqual(165, triples[1])
        self.assertTrue(30 < triples[12] / 256 < 60)

    def test_extended_request_gets_an_extended_result(self):
        self.assertEqual(b"\0", self.extended(TEST, 263, self.ani, SELF_TEST))
        result = self.notification()
        self.assertEqual((self.simulator.transaction, TEST_RESULT, 0x0B, 263, self.ani), result[:5])
        self.assertEqual(15, len(result[5]))

    def test_other_selectors_are_refused_and_nothing_follows(self):
        self.assertEqual(3, self.simulator.omci(TEST, 263, self.ani, b"\x06")[0])
        self.assertEqual(5, self.simulator.omci(TEST, 263, 9, SELF_TEST)[0])
        self.assertEqual([], self.simulator.hardware_calls("testAni"))
        self.assertEqual(0, self.ask({"statistics": True})["result"]["test_results"])

    def test_hardware_may_keep_silent(self):
        self.ask({"hardware": {"self_test": "silent"}})
        self.assertEqual(0, self.simulator.omci(TEST, 256, 0, SELF_TEST)[0])
        self.assertEqual(0, self.ask({"statistics": True})["result"]["test_results"])
        self.assertIn("teapot", self.ask({"hardware": {"self_test": "teapot"}})["error"])


class Optics(Equipment):
    def test_levels_stand_still_in_the_first_minute(self):
        self.assertEqual((-10000, 1000), self.levels())

    def test_levels_drift_and_those_that_are_set_stay(self):
        self.simulator.stop()
        # One step of the drift a millisecond.
        self.simulator = self.start("--time-scale", "60000")
        self.ask = self.simulator.ask
        seen = {self.levels() for _ in range(200)}
        self.assertGreater(len({received for received, _ in seen}), 3)
        self.assertTrue(all(abs(received + 10000) <= 60 and abs(sent - 1000) <= 14 for received, sent in seen))
        self.ask({"hardware": {"ani": {str(self.ani): {"rx": 7}}}})
        self.assertEqual({7}, {self.levels()[0] for _ in range(20)})
        self.simulator.call("updateAniGTransmitOpticalLevel", self.ani, 9)
        self.assertEqual({(7, 9)}, {self.levels() for _ in range(20)})


class Clock(Equipment):
    def clock(self):
        answer = self.ask({"clock": True})["result"]
        return datetime.datetime.strptime(answer["utc"], "%Y-%m-%dT%H:%M:%SZ"), answer["synchronized"]

    def assert_runs_from(self, start):
        now, synchronized = self.clock()
        self.assertTrue(synchronized)
        self.assertTrue(start <= now < start + datetime.timedelta(minutes=2), now)

    def synchronize(self, *fields):
        return self.simulator.omci(SYNCHRONIZE_TIME, 256, 0, struct.pack(">HBBBBB", *fields))[0]

    def test_synchronize_time_sets_it(self):
        self.assertFalse(self.clock()[1])
        self.assertEqual(0, self.synchronize(2031, 12, 31, 23, 58, 59))
        self.assert_runs_from(datetime.datetime(2031, 12, 31, 23, 58, 59))
        self.assertEqual(1, len(self.simulator.hardware_calls("synchronizeTime")))

    def test_what_is_no_date_leaves_it(self):
        self.synchronize(2031, 1, 2, 3, 4, 5)
        for fields in ((2031, 13, 1, 0, 0, 0), (2031, 2, 29, 0, 0, 0), (2031, 1, 1, 24, 0, 0), (0, 0, 0, 0, 0, 0)):
            self.assertEqual(0, self.synchronize(*fields))
            self.assert_runs_from(datetime.datetime(2031, 1, 2, 3, 4, 5))

    def test_time_of_day_of_the_ont_system_sets_it(self):
        # The library takes the bytes as local time.
        local = datetime.datetime(2032, 3, 4, 5, 6, 7)
        value = struct.pack(">HBBBBB", *local.timetuple()[:6]).hex()
        instance = self.ask({"instances": True})["result"]["65300"][0]
        self.ask({"set": {"class": 65300, "instance": instance, "attribute": 1, "bytes": value}})
        self.assert_runs_from(local.astimezone(UTC).replace(tzinfo=None))

    def test_restart_forgets_it(self):
        self.synchronize(2031, 12, 31, 0, 0, 0)
        self.ask({"reboot": True})
        self.assertFalse(self.clock()[1])


class Links(Equipment):
    def set_link(self, uni, **link):
        self.assertEqual({"result": 0}, self.ask({"hardware": {"uni": {str(uni): link}}}))

    def test_link_change_sends_an_attribute_value_change_in_both_formats(self):
        self.simulator.omci(MIB_RESET, 2, 0)
        self.set_link(257, oper=1)
        self.assertEqual((0, AVC, 0x0A, 11, 257), self.notification()[:5])
        self.extended(GET, 2, 0, b"\x80\x00")
        self.set_link(257, oper=0)
        change = self.notification()
        self.assertEqual((0, AVC, 0x0B, 11, 257), change[:5])
        self.assertEqual(b"\x04\x00\x00", change[5])

    def test_same_link_again_is_no_news(self):
        self.simulator.omci(MIB_RESET, 2, 0)
        self.set_link(257, oper=1)
        self.set_link(257, oper=1)
        self.assertEqual(1, self.ask({"statistics": True})["result"]["attribute_value_changes"])

    def test_speed_and_duplex_reach_the_configuration_indication(self):
        self.set_link(258, speed=100, duplex=0)
        self.assertEqual("12", self.ask({"get": {"class": 11, "instance": 258, "attribute": "ConfigInd"}})["bytes"])
        self.assertEqual("12", self.ask({"picture": {"class": 11}})["result"]["values"][str(258 << 16 | 0x200)])

    def test_reported_link_is_what_is_read_live(self):
        self.simulator.call("updatePptpEthernetUniMEOperStateSpeedMode", 257, 1, 10, 1)
        state = self.ask({"get": {"class": 11, "instance": 257, "attribute": "OperationalState"}})
        indication = self.ask({"get": {"class": 11, "instance": 257, "attribute": "ConfigInd"}})
        self.assertEqual(("01", "01"), (state["bytes"], indication["bytes"]))

    def test_link_of_a_port_that_is_not_there_is_kept_for_later(self):
        self.set_link(300, oper=1)
        self.assertEqual(0, self.ask({"statistics": True})["result"]["attribute_value_changes"])
        self.assertEqual({"result": -1},
                         self.simulator.call("updatePptpEthernetUniMEOperStateSpeedMode", 301, 0, 10, 1))


class Alarms(Equipment):
    def alarm(self, entity_class, instance, number, state):
        self.assertEqual({"result": 0}, self.ask({"alarm": {"class": entity_class, "instance": instance,
                                                            "number": number, "state": state}}))

    def stored(self, mode):
        """Class and instance of each entity in get all alarms."""
        count = struct.unpack(">H", self.simulator.omci(11, 2, 0, bytes([mode]))[:2])[0]
        return [struct.unpack(">HH", self.simulator.omci(12, 2, 0, struct.pack(">H", number))[:4])
                for number in range(count)]

    def test_sequence_number_starts_anew_with_each_list(self):
        self.simulator.omci(MIB_UPLOAD, 2, 0)
        for number, sequence in ((0, 1), (1, 2)):
            self.alarm(263, self.ani, number, True)
            notification = self.notification()
            self.assertEqual((0, ALARM, 0x0A, 263, self.ani), notification[:5])
            self.assertEqual(sequence, notification[5][31])
        self.assertEqual([(263, self.ani)], self.stored(0))
        self.alarm(263, self.ani, 0, False)
        notification = self.notification()
        self.assertEqual((0x40, 1), (notification[5][0], notification[5][31]))

    def test_alarm_reporting_control_hides_an_entity_from_mode_one(self):
        self.alarm(263, self.ani, 0, True)
        self.alarm(11, 257, 0, True)
        self.ask({"set": {"class": 11, "instance": 257, "attribute": "Arc", "bytes": "01"}})
        self.assertEqual([(11, 257), (263, self.ani)], self.stored(0))
        self.assertEqual([(263, self.ani)], self.stored(1))

    def test_alarm_of_a_class_outside_get_all_alarms_stays_on_the_onu(self):
        self.simulator.omci(MIB_UPLOAD, 2, 0)
        self.alarm(264, 257, 3, True)
        self.assertEqual(0, self.ask({"statistics": True})["result"]["alarms"])
        self.assertEqual([], self.stored(0))


class AlarmReplay(Equipment):
    def test_time_out_clears_only_the_flag(self):
        self.simulator.stop()
        # The 60 s of the upload run out within a millisecond.
        self.simulator = self.start("--time-scale", "60000")
        self.ask = self.simulator.ask
        alarm = {"class": 263, "instance": self.ani, "number": 0, "state": True}
        self.ask({"alarm": alarm})
        self.assertEqual(b"\0\1", self.simulator.omci(11, 2, 0, b"\0")[:2])
        self.ask({"alarm": {**alarm, "state": False}})
        deadline = time.monotonic() + TIMEOUT
        while self.ask({"timers": True})["result"]:
            self.assertLess(time.monotonic(), deadline, "the timer of get all alarms never ends")
        self.assertEqual(struct.pack(">HHB", 263, self.ani, 0x80), self.simulator.omci(12, 2, 0, b"\0\0")[:5])


class Restart(Equipment):
    def test_restart_is_told_on_standard_error(self):
        with subprocess.Popen([PROGRAM, "--log-level", "2"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True) as process, socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as udp:
            udp.settimeout(TIMEOUT)
            udp.sendto(baseline(1, REBOOT, 256, 0), ("127.0.0.1", int(process.stdout.readline().rsplit(":", 1)[1])))
            self.assertEqual(0, udp.recv(2048)[8])
            # Standard error stays open, so that a line that never comes ends in the time-out of the test.
            self.assertTrue(any("has restarted" in line for line in iter(process.stderr.readline, "")))
            process.terminate()
            process.communicate(timeout=TIMEOUT)

    def test_notifications_wait_for_the_next_upload(self):
        self.simulator.omci(MIB_RESET, 2, 0)
        self.ask({"reboot": True})
        self.ask({"hardware": {"uni": {"257": {"oper": 1}}}})
        counted = self.ask({"statistics": True})["result"]
        self.assertEqual(0, counted["attribute_value_changes"])
        self.assertGreater(counted["suppressed_notifications"], 0)


if __name__ == "__main__":
    unittest.main()
