"""The benchmark table: floors, ratios, comparison with a baseline; the page; the count of instructions."""

import io
import json
import sys
import tempfile
import unittest
from contextlib import redirect_stdout
from pathlib import Path

import project

sys.path.insert(0, str(project.SOURCE / "scripts"))

import bench_report  # noqa: E402
import instruction_report  # noqa: E402
import performance_page  # noqa: E402


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

    def test_whatHasBecomeSlowerBesideItsFloorIsNamed(self):
        now = {"A": 130.0, "A_floor": 10.0, "B": 220.0, "B_floor": 20.0, "C": 900.0}
        text, slower = self.table(now, {"A": 10.0, "B": 10.0, "C": 1.0})
        self.assertEqual(slower, ["A"])
        self.assertIn("+10%", text)

    def test_aSlowerMachineIsNoChange(self):
        _, slower = self.table({"A": 1000.0, "A_floor": 100.0}, {"A": 10.0})
        self.assertEqual(slower, [])


class Report(unittest.TestCase):
    def test_unitsAreLevelledAndAggregatesLeftOut(self):
        found = bench_report.times([benchmark("A", 2, "us"), benchmark("A", 5, run_type="aggregate"), benchmark("B", 3)])
        self.assertEqual(found, {"A": 2000.0, "B": 3.0})

    def test_theLeastOfTheRepetitionsCounts(self):
        found = bench_report.times([benchmark("A", 7), benchmark("A", 5), benchmark("A", 6)])
        self.assertEqual(found, {"A": 5.0})

    def test_ratiosComeFromABaselineOrAnEarlierRun(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "figures.json"
            path.write_text(json.dumps({"ratios": {"A": 2.5}}))
            self.assertEqual(bench_report.earlier_ratios(path), {"A": 2.5})
            path.write_text(json.dumps({"benchmarks": [benchmark("A", 6), benchmark("A_floor", 2), benchmark("B", 1)]}))
            self.assertEqual(bench_report.earlier_ratios(path), {"A": 3.0})

    def test_aFailedBenchmarkEndsTheRun(self):
        with self.assertRaises(SystemExit) as refusal:
            bench_report.times([benchmark("A", 1, error_occurred=True, error_message="no such class")])
        self.assertIn("no such class", str(refusal.exception))


class Page(unittest.TestCase):
    def test_aTableReplacesWhatStandsBetweenItsMarks(self):
        page = "before\n<!-- sizes: written by scripts/bench --markdown -->\nold\n<!-- end of sizes -->\nafter\n"
        new = performance_page.replace(page, "sizes", performance_page.table(["section", "bytes"], [("`.text`", 5)]))
        self.assertNotIn("old", new)
        self.assertIn("| `.text` | 5 |", new)
        self.assertTrue(new.startswith("before\n") and new.endswith("after\n"))

    def test_aPageWithoutThePlaceIsRefused(self):
        with self.assertRaises(SystemExit):
            performance_page.replace("nothing", "sizes", [])

    def test_targetsAreTimesOrRatios(self):
        targets = {"A": {"ratio": 3}, "B": {"ns": 1000}}
        self.assertEqual(performance_page.target_of("A", 31.0, 10.0, targets), ("3x", "no"))
        self.assertEqual(performance_page.target_of("A", 29.0, 10.0, targets), ("3x", "yes"))
        self.assertEqual(performance_page.target_of("B", 999.0, None, targets), ("under 1.00 us", "yes"))
        self.assertEqual(performance_page.target_of("C", 1.0, None, targets), ("-", "-"))

    def test_aFigureWithoutATargetIsOnlyShown(self):
        figures = {"library_bytes": 900 * 1024, "idle_kib": 11 * 1024, "idle_share_kib": 4 * 1024}
        rows = list(performance_page.figure_rows(figures, {"library_bytes": 1 << 20, "idle_kib": 10 * 1024}))
        self.assertEqual([(row[1], row[-1]) for row in rows],
                         [("900.0 KiB", "yes"), ("11.0 MiB", "no"), ("4.0 MiB", "-")])


class Instructions(unittest.TestCase):
    """The gate that counts instructions."""

    ANNOTATED = ("  1,234,000  Roads.cpp:nrvk_road_set_u16 [/x/instruction_roads]\n"
                 "    500,000  ???:setAttribute [/x/lib.so]\n     99,000  ???:nrvk_road_get_u16 [/x/instruction_roads]\n")

    def compare(self, found, committed):
        with redirect_stdout(io.StringIO()):
            return instruction_report.compare(found, committed, 0.02)

    def test_instructionsAreSharedAmongTheOperations(self):
        totals = instruction_report.totals_of(self.ANNOTATED)
        operations = instruction_report.operations_of("nrvk_road_set_u16 1000\nnrvk_road_get_u16 10\n")
        self.assertEqual(instruction_report.per_operation(operations, totals), {"set_u16": 1234.0, "get_u16": 9900.0})

    def test_aRoadThatIsNotInTheProfileEndsTheRun(self):
        with self.assertRaises(SystemExit):
            instruction_report.per_operation({"set_u8": 1}, {})

    def test_moreThanTheToleranceIsWrong(self):
        self.assertEqual(self.compare({"a": 101.9}, {"a": 100.0}), [])
        self.assertEqual(len(self.compare({"a": 102.1}, {"a": 100.0})), 1)
        self.assertEqual(self.compare({"a": 50.0}, {"a": 100.0}), [])

    def test_roadsWithoutAFigureAndFiguresWithoutARoadAreWrong(self):
        self.assertEqual(len(self.compare({"a": 1.0}, {"b": 1.0})), 2)

    def test_aShareThatGrowsWithTheSizeIsWrong(self):
        self.assertEqual(instruction_report.growing({"upload_of_10": 100.0, "upload_of_1000": 105.0, "b": 1.0}), [])
        self.assertEqual(len(instruction_report.growing({"upload_of_10": 100.0, "upload_of_1000": 120.0})), 1)


if __name__ == "__main__":
    unittest.main()
