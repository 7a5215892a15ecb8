"""What the generator makes of the catalogue for tools and readers: JSON and reference pages."""

import json
import os
import tempfile
import unittest
from pathlib import Path

from generator_path import CATALOGUE

import catalogue
import catalogue_json
import reference_pages
from output import write_if_changed


class InTemporaryDirectory(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.catalogue = catalogue.load(CATALOGUE)

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name)


class WriteIfChanged(InTemporaryDirectory):
    def test_makes_the_directory_and_writes(self):
        path = self.directory / "a" / "b.txt"
        self.assertTrue(write_if_changed(path, "text\n"))
        self.assertEqual(path.read_text(), "text\n")

    def test_same_text_leaves_the_file_alone(self):
        path = self.directory / "b.txt"
        write_if_changed(path, "text\n")
        os.utime(path, (1, 1))
        self.assertFalse(write_if_changed(path, "text\n"))
        self.assertEqual(path.stat().st_mtime, 1)

    def test_other_text_replaces_it(self):
        path = self.directory / "b.txt"
        write_if_changed(path, "a longer text\n")
        self.assertTrue(write_if_changed(path, "text\n"))
        self.assertEqual(path.read_text(), "text\n")


class Json(InTemporaryDirectory):
    def test_all_classes_by_id_and_all_rows(self):
        path = self.directory / "catalogue.json"
        self.assertTrue(catalogue_json.write(self.catalogue, path))
        content = json.loads(path.read_text())
        class_ids = [entity["class"] for entity in content["classes"]]
        self.assertEqual((len(class_ids), class_ids), (115, sorted(class_ids)))
        self.assertEqual(len(content["startup_rows"]), 88)

    def test_one_class(self):
        content = json.loads(catalogue_json.render(self.catalogue))
        olt_g = next(entity for entity in content["classes"] if entity["class"] == 131)
        vendor_id = olt_g["attributes"][0]
        del olt_g["attributes"]
        self.assertEqual(olt_g, {
            "class": 131, "short_name": "OltG", "name": "OLTG", "entity": "OLT-G", "clause": "9.12.2", "family": "onu",
            "set_mask": 0xF000, "get_mask": 0xF000, "get_next_mask": 0, "create_mask": 0, "mib_upload": True,
            "alarm_upload": False, "olt_creatable": False, "onu_creatable": True,
        })
        self.assertEqual(vendor_id, {
            "name": "OltVendorId", "mask": 0x8000, "size": 4, "kind": 2, "type": "u32", "table": False,
            "table_write_mode": 0, "flags": 14, "letters": "RWU", "has_definition": True, "default": "20202020",
        })

    def test_one_startup_row(self):
        content = json.loads(catalogue_json.render(self.catalogue))
        row = next(row for row in content["startup_rows"] if row["class"] == 131)
        self.assertEqual(row, {
            "class": 131, "short_name": "OltG", "count": 1, "instance": "instanceOltG", "update": None,
            "values": [{"name": "EquipmentId", "mask": 0x4000, "kind": 5, "text": ""},
                       {"name": "Version", "mask": 0x2000, "kind": 5, "text": ""}],
        })

    def test_second_write_changes_nothing(self):
        path = self.directory / "catalogue.json"
        catalogue_json.write(self.catalogue, path)
        self.assertFalse(catalogue_json.write(catalogue.load(CATALOGUE), path))


class ReferencePages(InTemporaryDirectory):
    def setUp(self):
        super().setUp()
        self.pages = reference_pages.render(self.catalogue)

    def test_a_page_per_family_and_an_index(self):
        paths = reference_pages.write(self.catalogue, self.directory)
        expected = {f"{family.stem}.md" for family in self.catalogue.families} | {"index.md"}
        self.assertEqual({path.name for path in paths}, expected)
        self.assertEqual({path.name for path in self.directory.iterdir()}, {path.name for path in paths})
        for path in paths:
            self.assertEqual(path.read_text(), self.pages[path.name])

    def test_index_lists_every_class_once(self):
        for entity in self.catalogue.classes:
            row = f"| {entity.class_id} | {entity.entity} | `{entity.short_name}` |"
            self.assertEqual(self.pages["index.md"].count(row), 1, row)

    def test_family_page_has_every_attribute_of_its_classes(self):
        for entity in self.catalogue.classes:
            page = self.pages[f"{entity.family}.md"]
            section = page.split(f"\n## {entity.entity} ({entity.class_id})\n")[1].split("\n## ")[0]
            rows = [line for line in section.splitlines() if line.startswith(tuple("| %d |" % n for n in range(1, 17)))]
            self.assertEqual(len(rows), len(entity.attributes), entity.short_name)
            for attribute, row in zip(entity.attributes, rows):
                self.assertIn(f"| `{attribute.name}` | 0x{attribute.mask:04X} | {attribute.kind} | {attribute.size} |"
                              f" {attribute.letters} |", row)

    def test_class_facts(self):
        page = self.pages["onu.md"]
        self.assertIn("| G.988 clause | 9.2.1 |\n| Created by | the ONU |\n| Uploads | MIB and alarms |\n", page)
        self.assertIn("| Hand-written | `OmciMeAniGImplExtended`, `OmciMeAniGAdapterExtended` |\n", page)
        self.assertIn("Start-up: 1 instance, ids by `instanceOltG`.\n", page)
        self.assertIn(" Values: `VendorId` \"NRVK\"; `Version` 9 blanks; `SerialNumber` 3 blanks.\n", page)
        self.assertIn("| 0x84, then zero |\n", page)

    def test_letters_are_explained_on_each_family_page(self):
        for name, page in self.pages.items():
            if name != "index.md":
                self.assertIn("**N** served through get next.", page)

    def test_no_empty_line_twice(self):
        for name, page in self.pages.items():
            self.assertNotIn("\n\n\n", page, name)
            self.assertTrue(page.endswith("\n") and not page.endswith("\n\n"), name)


if __name__ == "__main__":
    unittest.main()
