"""What shows on a terminal, and what must not show in a pipe."""

import unittest

from fake_onu import FakeOnu
from support import OltTest


class TerminalTest(OltTest):
    def filled(self, onu):
        onu.add(2, 0)
        onu.add(134, 0, {15: b"host"})
        for instance in range(0x101, 0x121):
            onu.add(11, instance)

    def test_pipe_has_neither_colour_nor_progress(self):
        with FakeOnu() as onu:
            self.filled(onu)
            done = self.olt(onu, "mib-upload")
            self.assertNotIn("\033", done.stdout + done.stderr)
            self.assertNotIn("\r", done.stdout + done.stderr)
            self.assertEqual(done.stderr, "")

    def test_terminal_has_colour_and_progress_that_is_wiped(self):
        with FakeOnu() as onu:
            self.filled(onu)
            text = self.on_terminal(onu, "mib-upload")
            self.assertIn("MIB upload [", text)
            self.assertIn("\033[1m", text)
            bar, _, rest = text.rpartition("\r\033[K")
            self.assertIn("[", bar)
            self.assertNotIn("MIB upload [", rest)

    def test_no_color(self):
        with FakeOnu() as onu:
            self.filled(onu)
            self.assertNotIn("\033[1m", self.on_terminal(onu, "mib-upload", environment={"NO_COLOR": "1"}))

    def test_tables_fit_the_terminal(self):
        with FakeOnu() as onu:
            onu.add(134, 0, {3: bytes(range(1, 26)), 15: b"host"})
            text = self.on_terminal(onu, "get", "134", "0", columns=60, environment={"NO_COLOR": "1"})
            lines = text.replace("\r", "").splitlines()
            self.assertLessEqual(max(map(len, lines)), 60)
            self.assertIn("0x" + bytes(range(1, 26)).hex(), "".join(line.strip() for line in lines))


if __name__ == "__main__":
    unittest.main()
