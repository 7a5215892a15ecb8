"""The generated C++: four typical classes to the letter, the same each time, and only what changed is written."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GENERATOR = ROOT / "generator" / "generate.py"
GOLDEN = Path(__file__).parent / "golden"

# Plain; octets and a hand-written role; a table; counters wider on the wire than in memory.
TYPICAL = ("OnuData", "OltG", "PortMappingPackage", "GemPortPMHistoryData")
FILES = ("publicapi/ont_omci_managed_entity/OmciMe{}If.h", "src/impl/OmciMe{}Impl.h", "src/impl/OmciMe{}Impl.cpp",
         "src/adapter/OmciMe{}Adapter.h", "src/adapter/OmciMe{}Adapter.cpp")
# The only role that stands for the golden files.
ROLE = "implExtended/OmciMeOltGImplExtended.h"


class Generation(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.handwritten = self.folder / "handwritten"
        (self.handwritten / ROLE).parent.mkdir(parents=True)
        (self.handwritten / ROLE).touch()
        self.output = self.folder / "out"

    def generate(self, *options, catalogue=ROOT / "catalogue"):
        return subprocess.run([sys.executable, GENERATOR, "--catalogue", catalogue, "--handwritten", self.handwritten,
                               *options], capture_output=True, text=True, check=False)

    def written(self):
        return {path.relative_to(self.output).as_posix(): path.read_bytes()
                for path in self.output.rglob("*") if path.is_file()}

    def test_typicalClassesAreToTheLetter(self):
        self.assertEqual(self.generate("--output", self.output).returncode, 0)
        for name in TYPICAL:
            for file in FILES:
                path = file.format(name)
                with self.subTest(path):
                    self.assertEqual((self.output / path).read_text(), (GOLDEN / f"{Path(path).name}.txt").read_text())

    def test_isTheSameEachTime(self):
        self.generate("--output", self.output)
        first = self.written()
        shutil.rmtree(self.output)
        self.generate("--output", self.output)
        self.assertEqual(self.written(), first)

    def test_nothingIsTouchedWhereNothingChanged(self):
        self.generate("--output", self.output)
        times = {path: path.stat().st_mtime_ns for path in self.output.rglob("*.cpp")}
        self.generate("--output", self.output)
        self.assertEqual({path: path.stat().st_mtime_ns for path in self.output.rglob("*.cpp")}, times)

    def test_changedFamilyChangesItsOwnClassesOnly(self):
        catalogue = self.folder / "catalogue"
        shutil.copytree(ROOT / "catalogue", catalogue)
        self.generate("--output", self.output, catalogue=catalogue)
        before = self.written()
        file = catalogue / "onu.toml"
        text = file.read_text()
        self.assertIn('"MibDataSync",', text)
        file.write_text(text.replace('"MibDataSync",', '"MibDataSynx",'))
        self.generate("--output", self.output, catalogue=catalogue)
        changed = {path for path, content in self.written().items() if before.get(path) != content}
        self.assertEqual({path for path in changed if path.endswith((".h", ".cpp"))},
                         {file.format("OnuData") for file in FILES} - {FILES[3].format("OnuData")})

    def test_rolesToComeAreCounted(self):
        self.assertEqual(self.generate("--output", self.output).stdout, "hand-written roles to come: 99\n")

    def test_listNamesEverySourceWithItsFamilyAndWritesNothing(self):
        lines = self.generate("--list").stdout.splitlines()
        self.assertEqual(len(lines), 2 * 115 + 3)
        self.assertIn("onu;src/impl/OmciMeOnuDataImpl.cpp", lines)
        self.assertFalse(self.output.exists())

    def test_brokenCatalogueIsRefusedWithItsPlace(self):
        catalogue = self.folder / "catalogue"
        shutil.copytree(ROOT / "catalogue", catalogue)
        file = catalogue / "onu.toml"
        file.write_text(file.read_text().replace('"SrIndication",', '"Sr Indication",'))
        outcome = self.generate("--output", self.output, catalogue=catalogue)
        self.assertEqual(outcome.returncode, 1)
        self.assertIn("catalogue/onu.toml: AniG: attribute 1: name 'Sr Indication'", outcome.stderr)

    def test_missingFolderIsRefused(self):
        outcome = self.generate("--output", self.output, catalogue=self.folder / "nowhere")
        self.assertEqual(outcome.returncode, 1)
        self.assertIn("nowhere", outcome.stderr)


if __name__ == "__main__":
    unittest.main()
