"""The build says how many hand-written roles are still to come, and the hand-written ones are roles of the catalogue."""

import json
import re
import sys
import tempfile
import unittest
from pathlib import Path

import project

# All that the catalogue lists when every role is written.
IMPL_EXTENDED, ADAPTER_EXTENDED = 73, 27


def written(role):
    """Classes whose hand-written role stands in the tree."""
    folder = project.SOURCE / "src" / f"{role.lower()}Extended"
    suffix = f"{role}Extended"
    return {path.stem.removeprefix("OmciMe").removesuffix(suffix) for path in folder.glob(f"OmciMe*{suffix}.h")}


class HandWrittenRoles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            cls.said = project.run([sys.executable, project.SOURCE / "generator" / "generate.py",
                                    "--catalogue", project.SOURCE / "catalogue",
                                    "--handwritten", project.SOURCE / "src", "--output", folder])
            cls.classes = {entry["short_name"]
                           for entry in json.loads((Path(folder) / "catalogue.json").read_text())["classes"]}

    def test_buildPrintsHowManyAreToCome(self):
        to_come = IMPL_EXTENDED + ADAPTER_EXTENDED - len(written("Impl")) - len(written("Adapter"))
        self.assertEqual(re.findall(r"^hand-written roles to come: (\d+)$", self.said, re.MULTILINE), [str(to_come)])

    def test_whatIsWrittenByHandBelongsToAClass(self):
        self.assertEqual(sorted((written("Impl") | written("Adapter")) - self.classes), [])


if __name__ == "__main__":
    unittest.main()
