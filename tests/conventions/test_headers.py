"""Each public header compiles alone, as the first thing that a host includes."""

import os
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import project

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]


def complaint_about(header, folder):
    """None, or what the compiler says of a source that includes this header alone, twice."""
    source = Path(folder) / f"{header.stem}.cpp"
    text = f'#include "{header.name}"\n#include "{header.name}"\n'
    if not source.exists() or source.read_text() != text:
        source.write_text(text)
    try:
        project.run([*project.LAUNCHER, project.COMPILER, "-std=c++17", "-O0", *WARNINGS, f"-I{header.parent}",
                     *project.include_options(), "-c", source, "-o", source.with_suffix(".o")])
    except AssertionError as error:
        return f"{header.name}: {error}"
    return None


class PublicHeaders(unittest.TestCase):
    def test_compileAlone(self):
        # In the build tree, at the same place each time, for the compiler cache.
        folder = project.BUILD / "conventions"
        folder.mkdir(parents=True, exist_ok=True)
        with ThreadPoolExecutor(os.cpu_count() or 2) as pool:
            complaints = list(pool.map(lambda header: complaint_about(header, folder), project.public_headers()))
        self.assertEqual([text for text in complaints if text], [])

    def test_aHeaderThatNeedsAnotherIsFound(self):
        with tempfile.TemporaryDirectory() as folder:
            header = Path(folder) / "NeedsVector.h"
            header.write_text("std::vector<int> numbers();\n")
            self.assertIn("vector", complaint_about(header, folder) or "")


if __name__ == "__main__":
    unittest.main()
