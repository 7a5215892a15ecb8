"""Performance monitoring of onu-sim: intervals, counters, simulated traffic, threshold crossing alerts."""

import struct
import subprocess
import time
import unittest

from onu_sim import (ALARM, CREATE, DELETE, GET, GET_CURRENT_DATA, MIB_RESET, PROGRAM, REBOOT, SET, TIMEOUT,
                     OnuSimTest)

SYNCHRONIZE_TIME = 24
EXTENDED, EXTENDED_64, UPSTREAM, DOWNSTREAM, FEC, GAL = 334, 425, 322, 321, 312, 276
GEM_CTP_PM, GEM_PORT_PM, CTP, BRIDGE_PORT, UNI, THRESHOLDS_1, THRESHOLDS_2 = 341, 267, 268, 47, 11, 273, 274
INTERVAL_END, POINTER, FIRST_COUNTER, OCTETS, FRAMES, CRC_ERRORS = 0x8000, 0x4000, 0x2000, 0x1000, 0x0800, 0x0100
SUCCESS = 0


def control_block(threshold=0, parent=(0, 0), accumulation=0, alerts=0, fields=0):
    return struct.pack(">HHHHHH4x", threshold, *parent, accumulation, alerts, fields)


CONTINUOUS, CLEAR = 0x0001, 0x8000


class Pm(OnuSimTest):
    """Time passes only as a test says."""

    options = ("--traffic",)

    def setUp(self):
        super().setUp()
        self.onu = self.start(*self.options)
        self.pm(running=False)

    def pm(self, **fields):
        answer = self.onu.ask({"pm": fields})
        self.assertIn("result", answer, answer)
        return answer["result"]

    def create(self, entity_class, instance, contents=b""):
        self.assertEqual(SUCCESS, self.onu.omci(CREATE, entity_class, instance, contents)[0])

    def set(self, entity_class, instance, mask, value):
        self.assertEqual(SUCCESS, self.onu.omci(SET, entity_class, instance, struct.pack(">H", mask) + value)[0])

    def read(self, entity_class, instance, mask, message=GET):
        """One number by a frame."""
        answer = self.onu.omci(message, entity_class, instance, struct.pack(">H", mask))
        self.assertEqual(SUCCESS, answer[0], answer.hex())
        size = self.onu.ask({"get": {"class": entity_class, "instance": instance, "attribute": f"0x{mask:04x}",
                                 "action": 0}})
        return int.from_bytes(answer[3:3 + len(size["bytes"]) // 2], "big")

    def history(self, entity_class, instance, mask):
        return self.read(entity_class, instance, mask)

    def current(self, entity_class, instance, mask):
        return self.read(entity_class, instance, mask, GET_CURRENT_DATA)

    def tell(self, entity_class, instance, counters):
        self.assertEqual({"result": 0}, self.onu.ask(
            {"hardware": {"counters": {str(entity_class): {str(instance): counters}}}}))

    def notification(self):
        """The next frame that the ONU sends unasked: its type, class, instance and contents."""
        frame = self.onu.udp.recv(2048)
        transaction, message, _, entity_class, instance = struct.unpack(">HBBHH", frame[:8])
        self.assertEqual(0, transaction)
        return message, entity_class, instance, frame[8:40]

    def alarm(self):
        """Class, instance and the numbers of the alarms in force, of the next alarm message."""
        message, entity_class, instance, contents = self.notification()
        self.assertEqual(ALARM, message)
        numbers = [number for number in range(224) if contents[number // 8] >> (7 - number % 8) & 1]
        return entity_class, instance, numbers

    def alerts(self):
        return [(alert["class"], alert["instance"], alert["number"]) for alert in self.pm()["alerts"]]

    def thresholds(self, instance, *values):
        self.create(THRESHOLDS_1, instance, b"".join(struct.pack(">I", value) for value in values))


class Intervals(Pm):
    options = ()

    def test_the_operations_of_the_interval_counter_are_reachable(self):
        call = self.onu.call
        self.assertEqual({"result": 0}, call("getIntervalCounter"))
        self.assertEqual({"result": 0}, call("setIntervalCounter", 255))
        self.assertEqual({"result": 255}, call("getIntervalCounter"))
        call("incrementIntervalCounter")
        self.assertEqual({"result": 0}, call("getIntervalCounter"))
        call("setIntervalCounter", 7)
        call("resetIntervalCounter")
        self.assertEqual({"result": 0}, call("getIntervalCounter"))
        self.assertIn("error", call("setIntervalCounter", 256))

    def test_an_interval_lasts_fifteen_minutes(self):
        self.assertEqual(900, self.pm()["interval"])
        left = self.pm()["seconds_left"]
        self.assertEqual(0, self.pm(advance=left - 0.5)["finished_intervals"])
        self.assertEqual(1, self.pm(advance=0.5)["finished_intervals"])
        self.assertEqual(3, self.pm(advance=1800)["finished_intervals"])
        self.assertEqual(900, self.pm()["seconds_left"])

    def test_the_interval_can_be_set_while_it_runs(self):
        self.pm(interval=10)
        self.assertEqual(0, self.pm(interval=10, advance=0)["finished_intervals"])
        self.pm(advance=9)
        self.assertEqual(1, self.pm(interval=5, advance=0)["finished_intervals"])
        self.assertEqual(2, self.pm(advance=5)["finished_intervals"])

    def test_interval_end_time_counts_the_intervals_and_wraps(self):
        self.create(CTP, 0x101, struct.pack(">H", 1234))
        self.create(GEM_CTP_PM, 0x101)
        self.pm(interval=1, advance=1)
        self.assertEqual(1, self.history(GEM_CTP_PM, 0x101, INTERVAL_END))
        self.assertEqual(0, self.current(GEM_CTP_PM, 0x101, INTERVAL_END))
        self.pm(advance=255)
        self.assertEqual(0, self.history(GEM_CTP_PM, 0x101, INTERVAL_END))

    def test_synchronize_time_begins_a_new_interval(self):
        self.pm(interval=100, advance=130)
        self.assertEqual(SUCCESS, self.onu.omci(SYNCHRONIZE_TIME, 256, 0, bytes((0x07, 0xEA, 11, 21, 15, 0, 0)))[0])
        state = self.pm()
        self.assertEqual((0, 100), (state["finished_intervals"], state["seconds_left"]))

    def test_a_reboot_begins_with_the_first_interval(self):
        self.pm(interval=100, advance=130)
        self.assertEqual(SUCCESS, self.onu.omci(REBOOT, 256, 0)[0])
        self.wait_for(lambda: self.pm()["finished_intervals"] == 0)
        self.assertEqual(100, self.pm()["seconds_left"])

    def wait_for(self, condition):
        end = time.monotonic() + TIMEOUT
        while not condition():
            self.assertLess(time.monotonic(), end, "timed out")
            time.sleep(0.02)

    def test_the_timers_shown_are_the_librarys_alone(self):
        handlers = [timer["handler"] for timer in self.onu.ask({"timers": True})["result"]]
        self.assertEqual([], [handler for handler in handlers if "onu-sim" in handler])

    def test_requests_that_make_no_sense_change_nothing(self):
        for fields in ({"interval": 0}, {"interval": "900"}, {"interval": 1e9}, {"advance": -1}, {"traffic": 2},
                       {"running": "no"}, {"speed": 3}, {"interval": 5, "traffic": "on"}):
            self.assertEqual(["error"], list(self.onu.ask({"pm": fields})), fields)
        self.assertEqual(["error"], list(self.onu.ask({"pm": True})))
        self.assertEqual((900, False, False), tuple(self.pm()[name] for name in ("interval", "traffic", "running")))


class IntervalsOfTheClock(OnuSimTest):
    def wait_for_intervals(self, onu, count):
        end = time.monotonic() + TIMEOUT
        while onu.ask({"pm": {}})["result"]["finished_intervals"] < count:
            self.assertLess(time.monotonic(), end, "no interval ended")
            time.sleep(0.02)

    def test_intervals_end_by_themselves(self):
        self.wait_for_intervals(self.start("--pm-interval", "0.3"), 2)

    def test_the_time_scale_holds_for_intervals(self):
        self.wait_for_intervals(self.start("--time-scale", "3600"), 2)

    def test_a_hasty_clock_does_no_harm(self):
        onu = self.start("--time-scale", "1000000", "--pm-interval", "0.5", "--traffic")
        onu.omci(CREATE, FEC, 1)
        self.wait_for_intervals(onu, 1)

    def test_an_interval_of_no_length_is_refused(self):
        for value in "0", "-5", "100000", "soon":
            done = subprocess.run([PROGRAM, "--listen", "127.0.0.1:0", "--pm-interval", value], capture_output=True,
                                  text=True, timeout=TIMEOUT, check=False)
            self.assertNotEqual(0, done.returncode)
            self.assertIn("--pm-interval", done.stderr)


class ToldCounters(Pm):
    options = ()

    def test_without_traffic_every_question_gets_what_was_told(self):
        self.create(EXTENDED, 0x101)
        self.create(EXTENDED, 0x181)
        self.tell(EXTENDED, 0x101, [{"octets": 11}, {"octets": 22}])
        for _ in range(3):
            for read in self.history, self.current:
                self.assertEqual(22, read(EXTENDED, 0x101, OCTETS))
                self.assertEqual(11, read(EXTENDED, 0x181, OCTETS))
            self.pm(advance=450)

    def test_without_traffic_a_clear_changes_nothing(self):
        self.create(EXTENDED, 0x101)
        self.tell(EXTENDED, 0x101, [{}, {"octets": 22}])
        self.set(EXTENDED, 0x101, POINTER, control_block(accumulation=CLEAR))
        self.assertEqual(22, self.current(EXTENDED, 0x101, OCTETS))

    def test_what_an_update_entry_reported_is_told(self):
        self.create(FEC, 1)
        self.onu.call("updateTwdmFecStats", 1, [1, 2, 3, 4, 5])
        self.pm(advance=2000)
        self.assertEqual(2, self.history(FEC, 1, OCTETS))

    def test_told_counters_cross_thresholds(self):
        self.thresholds(1, 10, 20, 30, 40)
        self.create(FEC, 1, struct.pack(">H", 1))
        self.onu.omci(MIB_RESET, 2, 0)
        self.thresholds(1, 10, 20, 30, 40)
        self.create(FEC, 1, struct.pack(">H", 1))
        self.tell(FEC, 1, {"correctedBytes": 9, "fecSeconds": 40})
        self.assertEqual((FEC, 1, [4]), self.alarm())
        self.pm(advance=900)
        self.assertEqual((FEC, 1, []), self.alarm())
        self.assertEqual(40, self.history(FEC, 1, 0x0200))

    def test_traffic_goes_on_from_what_was_told(self):
        self.create(GAL, 1)
        self.tell(GAL, 1, {"discardedFrames": 1000000})
        self.pm(traffic=True, advance=1)
        self.assertEqual(0, self.history(GAL, 1, FIRST_COUNTER))
        self.assertGreaterEqual(self.current(GAL, 1, FIRST_COUNTER), 1000000)
        self.tell(GAL, 1, {"discardedFrames": 5})
        self.assertEqual(5, self.current(GAL, 1, FIRST_COUNTER))
        self.pm(traffic=False)
        self.assertEqual(5, self.current(GAL, 1, FIRST_COUNTER))
        self.assertEqual(0, self.history(GAL, 1, FIRST_COUNTER))
        self.tell(GAL, 1, {"discardedFrames": 6})
        self.assertEqual(6, self.history(GAL, 1, FIRST_COUNTER))


class Traffic(Pm):
    def test_current_data_grows_and_becomes_the_history(self):
        self.create(EXTENDED, 0x101)
        self.pm(advance=100)
        first = self.current(EXTENDED, 0x101, FRAMES)
        self.assertGreater(first, 0)
        self.assertEqual(first, self.current(EXTENDED, 0x101, FRAMES))
        self.assertEqual(0, self.history(EXTENDED, 0x101, FRAMES))
        left = self.pm()["seconds_left"]
        self.pm(advance=left)
        whole = self.history(EXTENDED, 0x101, FRAMES)
        self.assertGreater(whole, first)
        self.assertEqual(0, self.current(EXTENDED, 0x101, FRAMES))
        self.pm(advance=50)
        self.assertEqual(whole, self.history(EXTENDED, 0x101, FRAMES))
        self.assertGreater(self.current(EXTENDED, 0x101, FRAMES), 0)

    def test_counters_fit_together(self):
        self.create(EXTENDED, 0x101)
        self.pm(advance=777)
        counters = [self.current(EXTENDED, 0x101, FIRST_COUNTER >> place) for place in range(14)]
        frames, undersize, oversize, sizes = counters[2], counters[6], counters[7], counters[8:]
        self.assertEqual(frames, undersize + oversize + sum(sizes))
        self.assertGreater(counters[1], 64 * sizes[0] + 1024 * sizes[5])
        self.assertGreater(frames, counters[4])

    def test_the_same_time_brings_the_same_traffic(self):
        def counted(parts):
            onu = self.onu = self.start()
            self.pm(running=False, traffic=True)
            self.create(EXTENDED, 0x101)
            self.create(EXTENDED_64, 0x102)
            for part in parts:
                self.pm(advance=part)
            values = (self.current(EXTENDED, 0x101, OCTETS), self.current(EXTENDED_64, 0x102, OCTETS))
            onu.stop()
            return values
        self.onu.stop()
        once = counted([100])
        self.assertGreater(once[0], 0)
        self.assertEqual(once, counted([30, 69, 1]))

    def test_continuous_accumulation_knows_no_intervals(self):
        self.create(EXTENDED, 0x101, control_block(fields=CONTINUOUS))
        self.pm(advance=900)
        before = self.history(EXTENDED, 0x101, FRAMES)
        self.assertEqual(before, self.current(EXTENDED, 0x101, FRAMES))
        self.pm(advance=1800)
        after = self.history(EXTENDED, 0x101, FRAMES)
        self.assertGreater(after, before * 2.5)
        self.set(EXTENDED, 0x101, POINTER, control_block(fields=CONTINUOUS, accumulation=CLEAR))
        self.assertEqual(0, self.history(EXTENDED, 0x101, FRAMES))

    def test_clear_sets_the_running_interval_of_that_instance_back(self):
        self.create(EXTENDED, 0x101)
        self.create(EXTENDED, 0x181)
        self.pm(advance=900)
        self.pm(advance=100)
        history = self.history(EXTENDED, 0x101, OCTETS)
        other = self.current(EXTENDED, 0x181, OCTETS)
        self.set(EXTENDED, 0x101, POINTER, control_block(accumulation=CLEAR))
        self.assertEqual(0, self.current(EXTENDED, 0x101, OCTETS))
        self.assertEqual(history, self.history(EXTENDED, 0x101, OCTETS))
        self.assertEqual(other, self.current(EXTENDED, 0x181, OCTETS))

    def test_the_control_block_stops_single_counters_and_all(self):
        self.create(EXTENDED, 0x101, control_block(accumulation=0b10))
        self.create(EXTENDED, 0x181, control_block(accumulation=0x4000))
        self.pm(advance=100)
        self.assertEqual(0, self.current(EXTENDED, 0x101, OCTETS))
        self.assertGreater(self.current(EXTENDED, 0x101, FRAMES), 0)
        self.assertEqual(0, self.current(EXTENDED, 0x181, FRAMES))

    def test_a_saturated_counter_stays_full(self):
        self.create(EXTENDED, 0x101)
        self.create(EXTENDED_64, 0x102)
        full = {"octets": 0xFFFFFFFFFFFFFFF0}
        self.tell(EXTENDED, 0x101, [full, full])
        self.tell(EXTENDED_64, 0x102, [full, full])
        self.pm(advance=10)
        self.assertEqual(0xFFFFFFFF, self.current(EXTENDED, 0x101, OCTETS))
        self.assertEqual(0xFFFFFFFFFFFFFFFF, self.current(EXTENDED_64, 0x102, OCTETS))

    def test_a_new_entity_counts_from_zero(self):
        self.create(EXTENDED, 0x101)
        self.pm(advance=1000)
        self.onu.omci(DELETE, EXTENDED, 0x101)
        self.create(EXTENDED, 0x101)
        self.assertEqual((0, 0), (self.history(EXTENDED, 0x101, FRAMES), self.current(EXTENDED, 0x101, FRAMES)))

    def test_synchronize_time_sets_interval_counters_back(self):
        self.create(EXTENDED, 0x101)
        self.create(EXTENDED, 0x181, control_block(fields=CONTINUOUS))
        self.pm(advance=1000)
        continuous = self.current(EXTENDED, 0x181, FRAMES)
        self.onu.omci(SYNCHRONIZE_TIME, 256, 0, bytes((0x07, 0xEA, 11, 21, 15, 0, 0)))
        self.assertEqual((0, 0), (self.history(EXTENDED, 0x101, FRAMES), self.current(EXTENDED, 0x101, FRAMES)))
        self.assertEqual(continuous, self.current(EXTENDED, 0x181, FRAMES))

    def test_deleted_entities_leave_nothing_that_measures(self):
        before = self.pm()["measuring_sources"]
        self.create(EXTENDED, 0x101)
        self.assertEqual(before + 1, self.pm(advance=1)["measuring_sources"])
        self.onu.omci(MIB_RESET, 2, 0)
        self.assertEqual(before, self.pm(advance=1)["measuring_sources"])

    def test_fec_gal_and_twdm_classes_measure(self):
        self.create(FEC, 1)
        self.create(GAL, 1)
        for entity_class in 65406, 65407, 65408, 65409, 65410, 65411, 65412, 65413, 65414:
            self.assertEqual({"result": 0}, self.onu.ask({"create": {"class": entity_class, "instance": 1}}))
        self.pm(advance=880)
        subjects = [(FEC, 1), (GAL, 1), *((entity_class, 1) for entity_class in range(65406, 65415))]
        current = {subject: self.current(*subject, FIRST_COUNTER) for subject in subjects}
        for subject in subjects:
            self.assertGreater(current[subject], 0, subject)
            self.assertEqual(0, self.history(*subject, FIRST_COUNTER), subject)
        self.pm(advance=self.pm()["seconds_left"])
        for subject in subjects:
            self.assertGreaterEqual(self.history(*subject, FIRST_COUNTER), current[subject], subject)
            self.assertEqual(0, self.current(*subject, FIRST_COUNTER), subject)
        self.assertEqual(1, self.history(65414, 1, INTERVAL_END))

    def test_gem_port_counters_go_by_port(self):
        self.create(CTP, 0x101, struct.pack(">H", 1234))
        self.create(CTP, 0x102, struct.pack(">H", 1235))
        self.create(GEM_CTP_PM, 0x101)
        self.create(GEM_PORT_PM, 0x102)
        self.pm(advance=500)
        self.assertGreater(self.current(GEM_CTP_PM, 0x101, FIRST_COUNTER), 0)
        self.assertGreater(self.current(GEM_PORT_PM, 0x102, FRAMES), 0)
        self.assertGreater(self.current(GEM_PORT_PM, 0x102, FIRST_COUNTER), 0)


class UniTraffic(Pm):
    def setUp(self):
        super().setUp()
        self.uni = self.onu.ask({"instances": True})["result"][str(UNI)][0]
        self.set(UNI, self.uni, 0x0800, b"\0")
        # Bridge pointer, port number, TP type 1 (PPTP Ethernet UNI), its instance, and the rest at 0.
        self.create(BRIDGE_PORT, 0x201, struct.pack(">HBBH", 1, 1, 1, self.uni))
        self.create(UPSTREAM, 0x201)
        self.create(DOWNSTREAM, 0x201)

    def frames(self, entity_class):
        return self.read_whole(entity_class, GET_CURRENT_DATA)

    def read_whole(self, entity_class, message):
        answer = self.onu.omci(message, entity_class, 0x201, struct.pack(">H", INTERVAL_END | FRAMES))
        self.assertEqual(SUCCESS, answer[0])
        return int.from_bytes(answer[4:8], "big")

    def test_both_directions_of_a_port_count(self):
        self.pm(advance=60)
        up, down = self.frames(UPSTREAM), self.frames(DOWNSTREAM)
        self.assertGreater(up, 0)
        self.assertGreater(down, up)
        self.assertEqual(0, self.read_whole(UPSTREAM, GET))

    def test_a_locked_or_dead_port_carries_nothing(self):
        self.pm(advance=60)
        before = self.frames(UPSTREAM)
        self.set(UNI, self.uni, 0x0800, b"\1")
        self.pm(advance=60)
        self.assertEqual(before, self.frames(UPSTREAM))
        self.set(UNI, self.uni, 0x0800, b"\0")
        self.onu.ask({"hardware": {"uni": {str(self.uni): {"oper": 1}}}})
        self.pm(advance=60)
        self.assertEqual(before, self.frames(UPSTREAM))
        self.onu.ask({"hardware": {"uni": {str(self.uni): {"oper": 0}}}})
        self.pm(advance=60)
        self.assertGreater(self.frames(UPSTREAM), before)

    def test_an_extended_pm_follows_the_port_that_it_names(self):
        self.create(EXTENDED_64, 0x101, control_block(parent=(UNI, self.uni)))
        self.set(UNI, self.uni, 0x0800, b"\1")
        self.pm(advance=60)
        self.assertEqual(0, self.current(EXTENDED_64, 0x101, FRAMES))
        self.set(UNI, self.uni, 0x0800, b"\0")
        self.pm(advance=60)
        self.assertGreater(self.current(EXTENDED_64, 0x101, FRAMES), 0)


class ThresholdCrossing(Pm):
    """Alarms 1 to 4 of the extended Ethernet PM: drop events, CRC errored, undersize and oversize frames."""

    options = ()

    def setUp(self):
        super().setUp()
        self.onu.omci(MIB_RESET, 2, 0)

    def errors(self, instance=0x101, entity_class=EXTENDED, **counters):
        self.tell(entity_class, instance, [{}, counters])

    def test_an_alert_is_raised_at_the_threshold_and_cleared_with_the_interval(self):
        self.thresholds(5, 100, 50)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.errors(dropEvents=99, crcErroredFrames=49)
        self.assertEqual([], self.alerts())
        self.errors(dropEvents=99, crcErroredFrames=50)
        self.assertEqual((EXTENDED, 0x101, [2]), self.alarm())
        self.errors(dropEvents=100, crcErroredFrames=51)
        self.assertEqual((EXTENDED, 0x101, [1, 2]), self.alarm())
        self.pm(advance=900)
        self.assertEqual((EXTENDED, 0x101, [2]), self.alarm())
        self.assertEqual((EXTENDED, 0x101, []), self.alarm())
        self.assertEqual([], self.alerts())

    def test_an_alert_is_sent_once_in_an_interval(self):
        self.thresholds(5, 100)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        for count in 100, 101, 5000:
            self.errors(dropEvents=count)
        self.assertEqual((EXTENDED, 0x101, [1]), self.alarm())
        self.assertEqual(1, self.onu.ask({"statistics": True})["result"]["alarms"])

    def test_a_pointer_that_is_zero_or_dangles_sets_no_threshold(self):
        self.create(EXTENDED, 0x101)
        self.create(EXTENDED, 0x102, control_block(threshold=77))
        self.create(FEC, 1, struct.pack(">H", 0xABCD))
        for instance in 0x101, 0x102:
            self.errors(instance, dropEvents=0xFFFFFFFF)
        self.tell(FEC, 1, [0xFFFFFFFF] * 4 + [0xFFFF])
        self.assertEqual([], self.alerts())

    def test_a_threshold_of_zero_is_none(self):
        self.thresholds(5)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.errors(dropEvents=0xFFFFFFFF)
        self.assertEqual([], self.alerts())

    def test_thresholds_hold_as_they_are_at_the_moment(self):
        self.thresholds(5, 100)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.set(THRESHOLDS_1, 5, 0x8000, struct.pack(">I", 10))
        self.errors(dropEvents=10)
        self.assertEqual([(EXTENDED, 0x101, 1)], self.alerts())
        self.pm(advance=900)
        self.onu.udp.recv(2048)
        self.onu.udp.recv(2048)
        self.onu.omci(DELETE, THRESHOLDS_1, 5)
        self.errors(dropEvents=1000)
        self.assertEqual([], self.alerts())

    def test_the_control_block_can_switch_alerts_off(self):
        self.thresholds(5, 10, 10)
        self.create(EXTENDED, 0x101, control_block(threshold=5, alerts=0x0001))
        self.create(EXTENDED, 0x102, control_block(threshold=5, alerts=0x4000))
        for instance in 0x101, 0x102:
            self.errors(instance, dropEvents=10, crcErroredFrames=10)
        self.assertEqual([(EXTENDED, 0x101, 2)], self.alerts())

    def test_a_continuous_alert_outlives_the_interval(self):
        self.pm(traffic=True)
        self.thresholds(5, 10)
        self.create(EXTENDED, 0x101, control_block(threshold=5, fields=CONTINUOUS))
        self.errors(dropEvents=10)
        self.assertEqual((EXTENDED, 0x101, [1]), self.alarm())
        self.pm(advance=900)
        self.assertIn((EXTENDED, 0x101, 1), self.alerts())
        self.set(EXTENDED, 0x101, POINTER, control_block(threshold=5, fields=CONTINUOUS, accumulation=CLEAR))
        self.assertEqual([], self.alerts())

    def test_the_64_bit_class_has_thresholds_of_64_bits(self):
        self.onu.ask({"create": {"class": 426, "instance": 9}})
        self.create(EXTENDED_64, 0x101, control_block(threshold=9))
        self.errors(entity_class=EXTENDED_64, dropEvents=0xFFFFFFFFFFFFFFFE)
        self.assertEqual([], self.alerts())
        self.set(426, 9, 0x8000, struct.pack(">Q", 0x100000000))
        self.errors(entity_class=EXTENDED_64, dropEvents=0x100000000)
        self.assertEqual((EXTENDED_64, 0x101, [1]), self.alarm())

    def test_thresholds_from_eight_on_come_from_the_second_entity(self):
        entity_class = 65406
        self.thresholds(5, *[0xFFFFFFFF] * 7)
        self.create(THRESHOLDS_2, 5, struct.pack(">I", 3) + bytes(24))
        self.onu.ask({"create": {"class": entity_class, "instance": 1}})
        self.set(entity_class, 1, POINTER, struct.pack(">H", 5))
        self.tell(entity_class, 1, {"lodsEventsRestoredInProtTwdmCh": 3})
        self.assertEqual((entity_class, 1, [8]), self.alarm())

    def test_alerts_are_among_all_alarms(self):
        self.thresholds(5, 10)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.errors(dropEvents=10)
        self.alarm()
        self.assertEqual(1, int.from_bytes(self.onu.omci(11, 2, 0, b"\0")[:2], "big"))
        answer = self.onu.omci(12, 2, 0, b"\0\0")
        self.assertEqual((EXTENDED, 0x101, 0x40), struct.unpack(">HHB", answer[:5]))

    def test_classes_outside_of_the_alarm_upload_keep_the_bit_to_themselves(self):
        self.thresholds(5, 10)
        self.create(GAL, 1, struct.pack(">H", 5))
        self.tell(GAL, 1, [10])
        self.assertEqual([(GAL, 1, 0)], self.alerts())
        self.assertEqual(0, self.onu.ask({"statistics": True})["result"]["alarms"])

    def test_nothing_is_notified_before_the_olt_knows_the_mib(self):
        self.onu.ask({"reboot": True})
        self.pm(running=False)
        self.thresholds(5, 10)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.errors(dropEvents=10)
        self.assertEqual([(EXTENDED, 0x101, 1)], self.alerts())
        self.assertEqual(0, self.onu.ask({"statistics": True})["result"]["alarms"])

    def test_an_entity_made_anew_is_watched_anew(self):
        self.thresholds(5, 10)
        for _ in range(2):
            self.create(EXTENDED, 0x101, control_block(threshold=5))
            self.errors(dropEvents=10)
            self.assertEqual((EXTENDED, 0x101, [1]), self.alarm())
            self.onu.omci(DELETE, EXTENDED, 0x101)


class TrafficAcrossThresholds(Pm):
    def test_traffic_crosses_a_threshold_in_each_interval(self):
        self.onu.omci(MIB_RESET, 2, 0)
        self.pm(interval=100)
        self.thresholds(5, 3)
        self.create(EXTENDED, 0x101, control_block(threshold=5))
        self.pm(advance=self.pm()["seconds_left"])
        for _ in range(3):
            self.assertEqual((EXTENDED, 0x101, [1]), self.alarm())
            self.assertEqual((EXTENDED, 0x101, []), self.alarm())
            self.assertGreaterEqual(self.history(EXTENDED, 0x101, FIRST_COUNTER), 3)
            self.assertEqual(0, self.current(EXTENDED, 0x101, FIRST_COUNTER))
            self.pm(advance=100)


if __name__ == "__main__":
    unittest.main()
