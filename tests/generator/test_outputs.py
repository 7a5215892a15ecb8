"""What the generator makes of the catalogue for tools and readers: JSON and reference pages."""

import json
import os
import re
import tempfile
import unittest
from pathlib import Path

from generator_path import CATALOGUE, ROOT as TREE

import catalogue
import catalogue_json
import reference_links
import reference_pages
from output import write_if_changed

TO_TREE = "../tree"


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
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.pages = reference_pages.render(cls.catalogue, TREE, TO_TREE)

    def test_a_page_per_family_and_an_index(self):
        paths = reference_pages.write(self.catalogue, self.directory, TREE)
        expected = {f"{family.stem}.md" for family in self.catalogue.families} | {"index.md"}
        self.assertEqual({path.name for path in paths}, expected)
        self.assertEqual({path.name for path in self.directory.iterdir()}, {path.name for path in paths})
        for path in paths:
            self.assertEqual(path.read_text(), self.pages[path.name].replace(TO_TREE, os.path.relpath(TREE, self.directory)))

    def test_index_lists_every_class_once_by_number_name_and_family(self):
        index = self.pages["index.md"]
        by_number, by_name, by_family = (index.split(f"\n## {title}\n")[1].split("\n## ")[0]
                                         for title in ("By number", "By name", "By family"))
        for entity in self.catalogue.classes:
            target = f"{entity.family}.md#{reference_links.slug(f'{entity.entity} ({entity.class_id})')}"
            self.assertEqual(by_number.count(f"\n| {entity.class_id} | [{entity.entity}]({target}) |"), 1)
            self.assertEqual(by_name.count(f"\n| [`{entity.short_name}`]({target}) | {entity.class_id} |"), 1)
            self.assertEqual(by_family.count(f" [{entity.entity} ({entity.class_id})]({target})"), 1)
        names = re.findall(r"^\| \[`(\w+)`\]", by_name, re.MULTILINE)
        self.assertEqual(names, sorted(names, key=str.lower))

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
        self.assertIn("Start-up: 1 instance, ids by `instanceOltG`.\n", page)
        self.assertIn(" Values: `VendorId` \"NRVK\"; `Version` 9 blanks; `SerialNumber` 3 blanks.\n", page)
        self.assertIn("| 0x84, then zero |\n", page)

    def test_what_is_special_about_a_class_is_linked(self):
        section = self.pages["vlan.md"].split("(171)\n")[1]
        name = "OmciMeExtendedVlanTaggingOperationConfigurationData"
        self.assertIn(f"[{name}If.h](../../publicapi/ont_omci_managed_entity/{name}If.h)", section)
        self.assertIn(f"[{name}ImplExtended.cpp]({TO_TREE}/src/implExtended/{name}ImplExtended.cpp)", section)
        self.assertIn(f"[ExtendedVlanTableTest.cpp]({TO_TREE}/tests/implExtended/ExtendedVlanTableTest.cpp)", section)
        self.assertIn(f"[VLAN rows]({TO_TREE}/docs/omci-olt.md#vlan-rows) of `docs/omci-olt.md`", section)
        self.assertIn("**Behaviour.** Extended VLAN tagging operation configuration data (G.988 9.3.13, class 171).", section)

    def test_each_class_written_by_hand_tells_its_behaviour(self):
        links = reference_links.find(self.catalogue, TREE)
        for entity in self.catalogue.classes:
            headers = [path for path in links[entity.class_id].sources if path.endswith(".h")]
            self.assertEqual(len(headers), len(entity.roles), entity.short_name)
            self.assertEqual(len(headers), len(links[entity.class_id].behaviour), headers)

    def test_each_link_into_the_tree_leads_to_a_file(self):
        for name, page in self.pages.items():
            for target in re.findall(r"\]\(" + TO_TREE + r"/([^)#]+)", page):
                self.assertTrue((TREE / target).is_file(), f"{name}: {target}")

    def test_a_class_is_found_by_name_number_and_title(self):
        text = "# Page\n\nclass 7\n\n## Two\n\nclasses 321, 322 and 334; `AniG`\n\n## Three\n\nGEM port network CTP\n"
        (self.directory / "docs").mkdir()
        (self.directory / "docs" / "page.md").write_text(text)
        links = reference_links.find(self.catalogue, self.directory)
        told = {class_id: [section.title for section in found.sections] for class_id, found in links.items() if found.sections}
        self.assertEqual(told, {7: ["Page"], 321: ["Two"], 322: ["Two"], 334: ["Two"], 263: ["Two"], 268: ["Three"]})

    def test_anchors_are_those_of_github(self):
        self.assertEqual(reference_links.slug("GEM port network CTP (268)"), "gem-port-network-ctp-268")
        self.assertEqual(reference_links.slug("The `--json` option, and more"), "the---json-option-and-more")

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
