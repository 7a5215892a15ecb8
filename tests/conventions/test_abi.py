"""scripts/abi sees what would break a host or a hardware layer that is in the field."""

import platform
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import project

HEADER = """\
struct Row
{
    unsigned char first;
    unsigned short second;
};
class Hardware
{
public:
    virtual ~Hardware() = default;
    virtual int switchOn(Row row) = 0;
    virtual int switchOff() = 0;
};
class Store
{
public:
    __attribute__((visibility("default"))) static bool erase(unsigned short instance);
};
"""
SOURCE = '#include "Store.h"\nbool Store::erase(unsigned short) { return true; }\n'
EXTRA = 'extern "C" __attribute__((visibility("default"))) void extra() {}\n'


@unittest.skipUnless(shutil.which("abidiff"), "abidiff is not installed (scripts/install-dependencies check)")
@unittest.skipUnless(platform.machine() == "x86_64", "the committed interface is that of x86-64")
class Interface(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.build(HEADER)
        outcome = self.abi("--update")
        self.assertEqual(outcome.returncode, 0, outcome.stderr)

    def build(self, header, source=SOURCE):
        (self.folder / "Store.h").write_text(header)
        (self.folder / "store.cpp").write_text(source)
        project.run(["g++", "-std=c++17", "-shared", "-fPIC", "-fvisibility=hidden", "-o", self.folder / "libstore.so",
                     self.folder / "store.cpp"])

    def abi(self, *options):
        return subprocess.run([project.SOURCE / "scripts" / "abi", "--library", self.folder / "libstore.so", "--headers",
                               self.folder, "--baseline", self.folder / "base.abixml.xz", *options],
                              capture_output=True, text=True)

    def refused_after(self, old, new, source=SOURCE):
        """The report on the interface with that piece of the header replaced."""
        self.assertIn(old, HEADER)
        self.build(HEADER.replace(old, new), source)
        outcome = self.abi()
        self.assertEqual(outcome.returncode, 1, outcome.stdout + outcome.stderr)
        self.assertIn("scripts/abi --update", outcome.stderr)
        return outcome.stdout

    def test_unchangedInterfacePasses(self):
        self.build(HEADER.replace("class Store", "// A comment is no interface.\nclass Store"))
        outcome = self.abi()
        self.assertEqual(outcome.returncode, 0, outcome.stdout + outcome.stderr)

    def test_memberOfAnotherTypeInTheSamePlaceIsRefused(self):
        self.assertIn("'struct Row' changed", self.refused_after("unsigned char first", "signed char first"))

    def test_newMemberOfARecordIsRefused(self):
        self.assertIn("'struct Row' changed", self.refused_after("short second;", "short second;\n    unsigned third;"))

    def test_virtualOperationThatMovesIsRefusedThoughItsTableIsElsewhere(self):
        report = self.refused_after("    virtual int switchOff", "    virtual int dim() = 0;\n    virtual int switchOff")
        self.assertIn("Hardware::dim()", report)
        self.assertIn("vtable offset", report)

    def test_otherResultOfAFunctionIsRefusedThoughItsSymbolStays(self):
        report = self.refused_after("static bool erase", "static int erase", SOURCE.replace("bool", "int"))
        self.assertIn("erase", report)

    def test_functionThatIsNoLongerExportedIsRefused(self):
        self.build(HEADER + EXTRA.replace(" {}", ";"), SOURCE + EXTRA)
        self.abi("--update")
        self.build(HEADER)
        outcome = self.abi()
        self.assertEqual(outcome.returncode, 1)
        self.assertIn("extra", outcome.stdout)

    def test_additionIsToldToo(self):
        self.build(HEADER + EXTRA.replace(" {}", ";"), SOURCE + EXTRA)
        outcome = self.abi()
        self.assertEqual(outcome.returncode, 1)
        self.assertIn("extra", outcome.stdout)


class Committed(unittest.TestCase):
    def test_interfaceNamesNoPlaceOfThisMachine(self):
        committed = project.SOURCE / "packaging" / "abi" / "libnrvk-omci-me.abixml.xz"
        text = project.run(["xz", "--decompress", "--stdout", committed])
        self.assertIn("OmciHardwareIfc", text)
        self.assertNotIn(str(project.SOURCE), text)
        self.assertNotRegex(text, r"'/(?:tmp|home|root|usr)/")


if __name__ == "__main__":
    unittest.main()
