"""The counters of performance monitoring, against the simulated ONU."""

import json
import signal
import subprocess
import unittest
import xml.dom.minidom

from support import PATIENT, OltTest
from onu import Onu as Simulator

EXTENDED = "EthernetFrameExtendedPM"


class PmTest(OltTest):
    def setUp(self):
        super().setUp()
        self.onu = self.enterContext(Simulator(self.directory))
        self.pm(running=False, traffic=True)
        self.olt(self.onu, "mib-reset")
        self.olt(self.onu, "create", EXTENDED, "257")

    def pm(self, **fields):
        return self.onu.ask(pm=fields)["result"]

    def tell(self, entity_class, instance, counters):
        self.assertEqual(self.onu.ask(hardware={"counters": {str(entity_class): {str(instance): counters}}}),
                         {"result": 0})

    def watch(self, *arguments, options=()):
        """A watch that waits after each reading for a line on its output; ends with the block."""
        process = subprocess.Popen(self.command(self.onu, *options, "pm", EXTENDED, "257", *arguments),
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, cwd=self.directory)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def test_last_and_running_interval(self):
        self.pm(advance=self.pm()["seconds_left"])
        self.pm(advance=60)
        last = self.json_of(self.olt(self.onu, "--json", "pm", EXTENDED, "257"))
        running = self.json_of(self.olt(self.onu, "--json", "pm", EXTENDED, "257", "--current"))
        self.assertEqual((last["interval"], running["interval"]), ("last", "running"))
        self.assertEqual(len(last["counters"]), 14)
        self.assertGreater(last["counters"]["Frames"], running["counters"]["Frames"])
        self.assertGreater(running["counters"]["Frames"], 0)
        self.assertEqual((last["deltas"], last["rates"]), ({}, {}))
        text = self.olt(self.onu, "pm", EXTENDED, "257").stdout
        self.assertRegex(text, rf"5 +Frames +{last['counters']['Frames']}\n")
        self.assertIn("last interval, interval end time 0", text)

    def test_both_formats_read_the_same(self):
        self.pm(advance=60)
        answers = [self.json_of(self.olt(self.onu, *options, "--json", "pm", EXTENDED, "257", "--current"))["counters"]
                   for options in ((), ("--extended",))]
        self.assertEqual(answers[0], answers[1])

    def test_a_watch_has_deltas_and_rates(self):
        self.pm(traffic=False)
        self.tell(334, 257, [{}, {"octets": 1000}])
        process = self.watch("--current", "--watch", "0.2", "--count", "3", options=("--json",))
        first = json.loads(process.stdout.readline())
        self.assertEqual(first["counters"]["Octets"], 1000)
        self.tell(334, 257, [{}, {"octets": 5000}])
        samples = [json.loads(line) for line in process.communicate(timeout=60)[0].splitlines()]
        self.assertEqual([sample["sample"] for sample in samples], [2, 3])
        self.assertEqual(sum(sample["deltas"]["Octets"] for sample in samples), 4000)
        self.assertGreater(max(sample["rates"]["Octets"] for sample in samples), 0)
        self.assertEqual([sample["restarted"] for sample in samples], [False, False])
        self.assertEqual(process.returncode, 0)

    def test_counters_that_begin_anew_are_told_apart(self):
        self.pm(traffic=False)
        self.tell(334, 257, [{}, {"octets": 1000}])
        process = self.watch("--current", "--watch", "3", "--count", "2", options=("--json",))
        json.loads(process.stdout.readline())
        self.tell(334, 257, [{}, {"octets": 30}])
        sample = json.loads(process.stdout.readline())
        self.assertTrue(sample["restarted"])
        self.assertEqual(sample["deltas"]["Octets"], 30)
        self.assertNotIn("Octets", sample["rates"])

    def test_alarms_show_during_a_watch(self):
        self.olt(self.onu, "create", "ThresholdData1", "5", "ThresholdValue_1=10")
        self.olt(self.onu, "set", EXTENDED, "257", "ControlBlock=0x0005")
        process = self.watch("--current", "--watch", "2", "--count", "3")
        process.stdout.readline()
        self.tell(334, 257, [{}, {"dropEvents": 10}])
        _, errors = process.communicate(timeout=60)
        self.assertIn("drop events", errors)

    def test_the_plot_in_the_terminal_is_a_column_of_bars(self):
        self.pm(running=True)
        text = self.olt(self.onu, "pm", EXTENDED, "257", "--current", "--watch", "1.2", "--count", "4", "--plot").stdout
        self.assertIn("Over time", text)
        self.assertIn("█", text)

    def test_the_plot_in_a_file_is_svg(self):
        self.pm(running=True)
        for arguments in ("--plot", self.path("frames.svg")), ("--plot=" + self.path("frames.svg"),):
            self.olt(self.onu, "pm", EXTENDED, "257", "--current", "--watch", "1.2", "--count", "4", *arguments)
            with open(self.path("frames.svg"), encoding="utf-8") as file:
                document = xml.dom.minidom.parseString(file.read())
            texts = [element.firstChild.data for element in document.getElementsByTagName("text")]
            self.assertIn("Frames_1024_1518_Octets", texts)
            self.assertIn(f"{EXTENDED} (334) instance 257 (0x0101)", texts)
            lines = [path for path in document.getElementsByTagName("path") if path.getAttribute("class") == "rate"]
            self.assertEqual(len(lines), 14)

    def test_ctrl_c_ends_a_watch_well(self):
        process = self.watch("--current", "--watch", "1")
        process.stdout.readline()
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=60)
        self.assertEqual(process.returncode, 0)

    def test_what_makes_no_sense_is_refused_before_anything_is_sent(self):
        for arguments, complaint in ((("OnuG", "0"), "no performance monitoring class"),
                                     ((EXTENDED, "257", "--plot"), "--watch"),
                                     ((EXTENDED, "257", "--watch", "1", "--plot", "x.png"), "x.png"),
                                     ((EXTENDED, "257", "--watch", "-1"), "--watch"),
                                     ((EXTENDED,), "INSTANCE"), (("FecPm", "1"), "FecPm")):
            done = self.olt(self.onu, "pm", *arguments, expect=2)
            self.assertIn(complaint, done.stderr)

    def test_an_entity_that_is_not_there(self):
        done = self.olt(self.onu, "pm", EXTENDED, "9", expect=1)
        self.assertIn("unknown", done.stderr)
        answer = self.json_of(self.olt(self.onu, "--json", "pm", EXTENDED, "9", expect=1))
        self.assertEqual(answer["result"], 5)

    def test_a_drawing_that_cannot_be_written(self):
        done = self.olt(self.onu, "pm", EXTENDED, "257", "--watch", "1", "--count", "1", "--plot", "/nowhere/a.svg",
                        expect=2)
        self.assertIn("/nowhere/a.svg", done.stderr)


if __name__ == "__main__":
    unittest.main()
