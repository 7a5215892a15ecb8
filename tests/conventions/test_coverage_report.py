"""The report of lines and branches that the tests run."""

import contextlib
import io
import json
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

import project

sys.path.insert(0, str(project.SOURCE / "scripts"))

import coverage_report  # noqa: E402


def line(number, count, *branches, **more):
    return {"line_number": number, "count": count, "branches": [{"count": taken} for taken in branches]} | more


def file(name, *lines):
    return {"file": name, "lines": list(lines)}


class Counts(unittest.TestCase):
    def test_aFolderHasTheSumOfItsFiles(self):
        folders = coverage_report.by_folder([file("src/impl/A.cpp", line(1, 5, 5, 0), line(2, 0)),
                                             file("src/impl/B.cpp", line(1, 1)), file("host/C.cpp", line(7, 1))])
        self.assertEqual(list(folders), ["host", "src/impl"])
        place = folders["src/impl"]
        self.assertEqual((place.lines.met, place.lines.all), (2, 3))
        self.assertEqual((place.branches.met, place.branches.all), (1, 2))

    def test_whatIsExcludedDoesNotCount(self):
        place = coverage_report.place_of(file("src/A.cpp", line(1, 0, 0, 0, **{"gcovr/noncode": True}), line(2, 1)))
        self.assertEqual((place.lines.all, place.branches.all), (1, 0))

    def test_aPercentageIsCutNotRounded(self):
        count = coverage_report.Count()
        count.met, count.all = 9799, 10000
        self.assertIn("97.9 %", str(count))


class Missed(unittest.TestCase):
    def test_linesNeverRunAndBranchesNotTakenAreNamedWithTheirText(self):
        rows = coverage_report.missed(file("src/A.cpp", line(1, 3, 3, 0), line(2, 0, 0, 0), line(3, 4, 1, 3)),
                                      ["  if (ready) {", "      go();", "}"])
        self.assertEqual(rows, ["src/A.cpp:1: 1 of 2 branches: if (ready) {", "src/A.cpp:2: never run: go();"])


class Gate(unittest.TestCase):
    def below(self, *files):
        return coverage_report.below(coverage_report.by_set(coverage_report.by_folder(files)), 98, 92)

    def test_eachOfLibraryAndHostMustReachTheGate(self):
        good = file("host/A.cpp", *[line(n, 1, 1, 1) for n in range(1, 101)])
        bad = file("src/impl/B.cpp", line(1, 1), line(2, 0))
        self.assertEqual(self.below(good), [])
        self.assertEqual(self.below(good, bad), ["src: 50.00 % of the lines, 98 % are asked"])

    def test_branchesCountForThemselves(self):
        self.assertEqual(self.below(file("src/A.cpp", line(1, 1, 1, 0))), ["src: 50.00 % of the branches, 92 % are asked"])

    def test_aReportWithoutFilesIsNoSuccess(self):
        with tempfile.TemporaryDirectory() as folder:
            counts = Path(folder) / "coverage.json"
            counts.write_text(json.dumps({"files": []}))
            arguments = ["coverage_report.py", "--counts", str(counts), "--missed", str(Path(folder) / "missed.txt"),
                         "--lines", "98", "--branches", "92"]
            with mock.patch.object(sys, "argv", arguments), contextlib.redirect_stdout(io.StringIO()), \
                    self.assertRaises(SystemExit) as refusal:
                coverage_report.main()
        self.assertIn("counts no file", str(refusal.exception))


if __name__ == "__main__":
    unittest.main()
