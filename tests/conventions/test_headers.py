"""Each public header compiles alone, as the first thing that a host includes."""

import os
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import project

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]


def complaint_about(header):
    """None, or what the compiler says of a source that includes this header alone, twice."""
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder) / "alone.cpp"
        source.write_text(f'#include "{header.name}"\n#include "{header.name}"\n')
        try:
            project.run([project.COMPILER, "-std=c++17", "-fsyntax-only", *WARNINGS, f"-I{header.parent}",
                         *project.include_options(), source])
        except AssertionError as error:
            return f"{header.name}: {error}"
    return None


class PublicHeaders(unittest.TestCase):
    def test_compileAlone(self):
        with ThreadPoolExecutor(os.cpu_count() or 2) as pool:
            complaints = [text for text in pool.map(complaint_about, project.public_headers()) if text]
        self.assertEqual(complaints, [])

    def test_aHeaderThatNeedsAnotherIsFound(self):
        with tempfile.TemporaryDirectory() as folder:
            header = Path(folder) / "NeedsVector.h"
            header.write_text("std::vector<int> numbers();\n")
            self.assertIn("vector", complaint_about(header) or "")


if __name__ == "__main__":
    unittest.main()
