"""The benchmark table: floors, ratios, comparison with an earlier run."""

import importlib.util
import io
import unittest
from contextlib import redirect_stdout

import project

_MODULE = importlib.util.spec_from_file_location("bench_report", project.SOURCE / "scripts" / "bench_report.py")
bench_report = importlib.util.module_from_spec(_MODULE)
_MODULE.loader.exec_module(bench_report)


def benchmark(name, time, unit="ns", **more):
    return {"name": name, "run_type": "iteration", "cpu_time": time, "time_unit": unit} | more


class Table(unittest.TestCase):
    def table(self, found, earlier=None):
        text = io.StringIO()
        with redirect_stdout(text):
            slower = bench_report.print_table(found, earlier or {})
        return text.getvalue(), slower

    def test_aBenchmarkStandsBesideItsFloor(self):
        text, _ = self.table({"AdapterGet": 30.0, "AdapterGet_floor": 10.0})
        self.assertIn("3.0x", text)
        self.assertNotIn("AdapterGet_floor", text)

    def test_argumentsFollowTheFloorsName(self):
        text, _ = self.table({"AdapterGet/25": 50.0, "AdapterGet_floor/25": 20.0})
        self.assertIn("2.5x", text)

    def test_withoutAFloorThereIsNoRatio(self):
        text, _ = self.table({"StartUp": 2e6})
        self.assertIn("2.00 ms", text)
        self.assertNotIn("x\n", text)

    def test_whatHasBecomeSlowerIsNamed(self):
        text, slower = self.table({"A": 130.0, "B": 110.0}, {"A": 100.0, "B": 100.0})
        self.assertEqual(slower, ["A"])
        self.assertIn("+10%", text)


class Report(unittest.TestCase):
    def test_unitsAreLevelledAndAggregatesLeftOut(self):
        found = bench_report.times([benchmark("A", 2, "us"), benchmark("A", 5, run_type="aggregate"), benchmark("B", 3)])
        self.assertEqual(found, {"A": 2000.0, "B": 3.0})

    def test_aFailedBenchmarkEndsTheRun(self):
        with self.assertRaises(SystemExit) as refusal:
            bench_report.times([benchmark("A", 1, error_occurred=True, error_message="no such class")])
        self.assertIn("no such class", str(refusal.exception))


if __name__ == "__main__":
    unittest.main()
