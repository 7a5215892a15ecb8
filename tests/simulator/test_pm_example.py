"""The example of performance monitoring does what its description says."""

import os
import re
import subprocess
import unittest

EXAMPLE = os.path.join(os.path.dirname(__file__), "../../docs/examples/performance-monitoring/run")
BIN = os.path.dirname(os.environ["ONU_SIM"])


class PmExample(unittest.TestCase):
    def run_example(self, *arguments):
        return subprocess.run([EXAMPLE, *arguments], capture_output=True, text=True, timeout=200, check=False)

    def test_three_intervals_with_an_alarm_in_each(self):
        done = self.run_example(BIN)
        self.assertEqual(0, done.returncode, done.stdout + done.stderr)
        watch = done.stdout[done.stdout.index("three intervals go by"):done.stdout.index("the last interval, as")]
        crossed = watch.count("threshold crossed: drop events")
        self.assertGreaterEqual(crossed, 2, watch)
        self.assertGreaterEqual(watch.count("counters began anew"), 2, watch)
        self.assertGreaterEqual(len(re.findall("larm.*(?:clear|no alarm)", watch)), 2, watch)
        counts = [int(count) for count in re.findall(r"DropEvents +(\d+)", watch)]
        self.assertGreater(max(counts), 20)
        self.assertTrue(any(after < before for before, after in zip(counts, counts[1:])))
        rest = done.stdout[done.stdout.index("the last interval, as"):]
        last, running, continuous = (int(count) for count in re.findall(r"DropEvents +(\d+)", rest))
        self.assertGreater(last, 20)
        self.assertLess(running, last + 10)
        self.assertGreater(continuous, 2 * last)

    def test_wrong_arguments_are_told(self):
        for argument, complaint in (("--fast", "--fast"), ("/nowhere", "/nowhere")):
            done = self.run_example(argument)
            self.assertNotEqual(0, done.returncode)
            self.assertIn(complaint, done.stderr)


if __name__ == "__main__":
    unittest.main()
