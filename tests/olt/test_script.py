"""Scripts of commands."""

import json
import unittest

from fake_onu import FakeOnu
from support import OltTest


class ScriptTest(OltTest):
    def test_lines_run_in_order(self):
        script = self.write("script", """
# a service
create GalEthernetProfile 1 MaxGemPayloadSize=4095   # for all ports
set "ONU-G" 0 'LogicalOnuId=an id with # and blanks'

   create 272 2 "Max Gem Payload Size=\\x30"
get OnuG 0 LogicalOnuId""".replace("\\x30", "7"))
        with FakeOnu() as onu:
            onu.add(256, 0)
            done = self.olt(onu, "run", script)
            self.assertEqual(onu.mib[272, 1], [b"\x0f\xff"])
            self.assertEqual(onu.mib[272, 2], [b"\0\7"])
            self.assertIn('"an id with # and blanks"', done.stdout)

    def test_broken_line_is_refused_before_anything_is_sent(self):
        cases = [
            ("create 272 1\nset OnuG 0 BatteryBackup=300", ":2: BatteryBackup=300: is out of range"),
            ("\n\nfrobnicate", ':3: there is no command "frobnicate"'),
            ("get OnuG 'x", ":1: the quote ' is never closed"),
            ("get OnuG 0 \\", ":1: nothing follows the backslash"),
            ("create 272 1\nget NoSuchClass 0", ":2: unknown class"),
            ("get OnuG", ":1: INSTANCE is required"),
            ("get OnuG 0 --json", ":1:"),
            ("--json get OnuG 0", ":1:"),
            ("run other", ":1: a script can't run another one"),
            ("get OnuG 0\0", ":1: the line holds a zero byte"),
        ]
        with FakeOnu() as onu:
            for text, complaint in cases:
                with self.subTest(text=text):
                    script = self.write("script", text)
                    self.assertIn(script + complaint, self.olt(onu, "run", script, expect=2).stderr)
            self.assertEqual(onu.requests, [])

    def test_missing_script(self):
        with FakeOnu() as onu:
            self.assertIn("No such file", self.olt(onu, "run", self.path("none"), expect=2).stderr)

    def test_first_failure_stops(self):
        script = self.write("script", "create 272 1\ncreate 272 1\ncreate 272 2\n")
        with FakeOnu() as onu:
            done = self.olt(onu, "run", script, expect=1)
            self.assertIn("instance exists", done.stderr)
            self.assertIn(script + ":2: failed; stopped", done.stderr)
            self.assertNotIn((272, 2), onu.mib)

    def test_keep_going(self):
        script = self.write("script", "create 272 1\ncreate 272 1\ncreate 272 2\n")
        with FakeOnu() as onu:
            self.olt(onu, "run", "--keep-going", script, expect=1)
            self.assertIn((272, 2), onu.mib)

    def test_time_out_in_a_script_keeps_its_exit_code(self):
        script = self.write("script", "create 272 1\ncreate 272 2\ncreate 272 3\n")
        with FakeOnu() as onu:
            onu.road = lambda number, reply: [] if number == 1 else [(0, reply)]
            options = ("--timeout", "100", "--retries", "0")
            done = self.olt(onu, "run", "--keep-going", script, expect=3, options=options)
            self.assertIn(script + ":2: no answer to create", done.stderr)
            self.assertIn((272, 3), onu.mib)

    def test_json_gives_one_object_a_line(self):
        script = self.write("script", "create 272 1\nget 272 1\ndelete 272 1\n")
        with FakeOnu() as onu:
            lines = [json.loads(line) for line in self.olt(onu, "--json", "run", script).stdout.splitlines()]
            self.assertEqual([line["command"] for line in lines], ["create", "get", "delete"])

    def test_standard_input(self):
        with FakeOnu() as onu:
            self.run_program(self.command(onu, "run", "-"), stdin="create 272 1\n")
            self.assertIn((272, 1), onu.mib)


if __name__ == "__main__":
    unittest.main()
