"""The catalogue's checks: each broken catalogue is refused with file, class and attribute named."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from generator_path import CATALOGUE, ROOT

import catalogue

THINGS = """\
# Things to test with.

[Thing]
class      = 300
name       = "THING"
entity     = "Thing"
clause     = "9.1.1"
created_by = ["onu", "olt"]
uploads    = ["mib"]
extended   = ["impl"]
attributes = [
    ["Level",     "u8",     1,  "CRWU", 7],
    ["Address",   "octets", 4,  "RW"],
    ["FrameTable", "table", 12, "RWN"],
]

[Other]
class      = 301
name       = "OTHER"
entity     = "Other"
created_by = []
uploads    = []
extended   = []
odd_size   = ["Counter"]
attributes = [
    ["Counter",   "u32",    5,  "R",    0],
    ["Offset",    "s8",     1,  "RW",  -1],
]
"""

STARTUP = """\
rows = [
    ["Thing", 1, "instanceOnuG", "updateOnuG"],
    ["Other"],
]
[values.Thing]
Level   = [1, "8"]
Address = [5, "NRVK"]
"""


class BrokenCatalogue(unittest.TestCase):
    """Each test breaks one thing of a sound catalogue and expects exactly the message for it."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name) / "catalogue"
        self.directory.mkdir()
        self.things, self.startup = THINGS, STARTUP

    def change(self, old: str, new: str) -> None:
        self.assertEqual(self.things.count(old) + self.startup.count(old), 1, f"'{old}' must stand there once")
        self.things, self.startup = self.things.replace(old, new), self.startup.replace(old, new)

    def load(self, totals=None):
        (self.directory / "things.toml").write_text(self.things)
        (self.directory / "startup.toml").write_text(self.startup)
        return catalogue.load(self.directory, totals)

    def messages(self, totals=None) -> list[str]:
        with self.assertRaises(catalogue.CatalogueError) as caught:
            self.load(totals)
        return list(caught.exception.messages)

    def refused(self, old: str, new: str, *expected: str) -> None:
        self.change(old, new)
        self.assertEqual(self.messages(), [f"catalogue/{text}" for text in expected])

    def test_sound_catalogue_loads(self):
        self.assertEqual([e.short_name for e in self.load().classes], ["Thing", "Other"])

    # The class

    def test_unknown_key(self):
        self.refused('clause     = "9.1.1"', 'colour = "red"', "things.toml: Thing: unknown key 'colour'")

    def test_missing_key(self):
        self.refused('entity     = "Thing"\n', "", "things.toml: Thing: key 'entity' is missing")

    def test_wrong_type_of_key(self):
        self.refused("class      = 300", 'class = "300"', "things.toml: Thing: key 'class' must be of type int")

    def test_key_outside_a_class(self):
        self.refused("\n[Thing]", "\ncolour = 1\n[Thing]",
                     "things.toml: colour: expected a table of keys for one class")

    def test_class_id_out_of_range(self):
        self.refused("class      = 300", "class = 65536", "things.toml: Thing: class 65536 is outside 1 to 65535")

    def test_name_differs_from_class_name(self):
        self.refused('"THING"', '"THIN"', "things.toml: Thing: name 'THIN' is not the class name in upper case")

    def test_class_name_with_a_bad_letter(self):
        self.refused("[Other]\n", '["Oth-er"]\n',
                     "things.toml: Oth-er: class name does not match [A-Z][A-Za-z0-9_]*",
                     "things.toml: Oth-er: name 'OTHER' is not the class name in upper case",
                     "startup.toml: row 1: unknown class 'Other'")

    def test_bad_clause(self):
        self.refused('"9.1.1"', '"IX"', "things.toml: Thing: clause 'IX' is not a G.988 clause like 9.2.1")

    def test_unknown_creator(self):
        self.refused('["onu", "olt"]', '["onu", "ems"]', "things.toml: Thing: created_by ['onu', 'ems'] must be of "
                     "onu, olt, in this order, each once")

    def test_unknown_upload(self):
        self.refused('["mib"]', '["mips"]',
                     "things.toml: Thing: uploads ['mips'] must be of mib, alarms, in this order, each once")

    def test_unknown_role(self):
        self.refused('["impl"]', '["adapter", "impl"]', "things.toml: Thing: extended ['adapter', 'impl'] must be of "
                     "impl, adapter, in this order, each once")

    def test_duplicate_class_id(self):
        self.refused("class      = 301", "class = 300",
                     "things.toml: Other: class 300 is already used by catalogue/things.toml: Thing")

    def test_duplicate_name_in_another_file(self):
        other = "# More." + THINGS[THINGS.index("\n\n[Thing]"):THINGS.index("[Other]")].replace("300", "302")
        (self.directory / "more.toml").write_text(other)
        self.assertEqual(self.messages(), ["catalogue/things.toml: Thing: name THING is already used by "
                                           "catalogue/more.toml: Thing"])

    def test_set_by_create_without_creator(self):
        self.refused('["onu", "olt"]', '["onu"]', 'things.toml: Thing: create mask 0x8000, but created_by lacks "olt"')

    def test_uploaded_attribute_without_upload(self):
        self.refused('uploads    = ["mib"]', "uploads = []",
                     'things.toml: Thing.Level: access U, but the class\'s uploads lacks "mib"')

    def test_upload_without_attribute(self):
        self.refused('"CRWU"', '"CRW"', 'things.toml: Thing: uploads has "mib", but no attribute has the letter U')

    # Masks and other deviations

    def test_needless_mask(self):
        self.refused("attributes = [\n    [\"Level\"", "get_mask = 0xE000\nattributes = [\n    [\"Level\"",
                     "things.toml: Thing: get_mask 0xE000 is needless: the access letters give the same")

    def test_mask_of_absent_attribute(self):
        self.refused("attributes = [\n    [\"Level\"", "set_mask = 0xF000\nattributes = [\n    [\"Level\"",
                     "things.toml: Thing: set_mask 61440 is not a mask of the class's attributes")

    def test_stated_mask_wins(self):
        self.change('"octets", 4,  "RW"]', '"octets", 4,  "W"]')
        self.change("attributes = [\n    [\"Level\"", "get_mask = 0xE000\nattributes = [\n    [\"Level\"")
        self.assertEqual(self.load().classes[0].get_mask, 0xE000)

    def test_attribute_without_definition_counts_in_no_mask(self):
        self.change('uploads    = ["mib"]', 'without_definition = ["Address"]\nuploads = ["mib"]')
        self.change('Address = [5, "NRVK"]\n', "")
        thing = self.load().classes[0]
        self.assertEqual((thing.get_mask, thing.set_mask), (0xA000, 0xA000))

    def test_deviation_names_no_attribute(self):
        self.refused('odd_size   = ["Counter"]', 'odd_size = ["Counter"]\nstored_count = ["Row"]',
                     "things.toml: Other: stored_count names 'Row', which is no attribute")

    def test_deviation_is_no_list(self):
        self.refused('odd_size   = ["Counter"]', "odd_size = true",
                     "things.toml: Other: key 'odd_size' must be of type list")

    def test_table_deviation_on_a_number(self):
        self.refused('odd_size   = ["Counter"]', 'odd_size = ["Counter"]\ntable_write_mode_1 = ["Offset"]',
                     "things.toml: Other.Offset: table_write_mode_1 is for tables, not for kind s8")

    def test_refreshed_counters_of_a_class_without_behaviour(self):
        self.refused('odd_size   = ["Counter"]', 'odd_size = ["Counter"]\nrefreshed_counters = true',
                     'things.toml: Other: refreshed_counters, but extended lacks "impl", which has the refresh',
                     "things.toml: Other: refreshed_counters is for PM entities: interval end time, thresholds, counters")

    def test_refreshed_counters_of_what_is_no_counter(self):
        self.change('"Level",     "u8",     1,  "CRWU", 7]', '"IntervalEndTime", "u8", 1, "R", 0]')
        self.change('Level   = [1, "8"]\n', "")
        self.change('["Address",   "octets", 4,  "RW"]', '["Address", "octets", 4, "CRWU"]')
        self.refused('uploads    = ["mib"]', 'uploads = ["mib"]\nrefreshed_counters = true',
                     "things.toml: Thing.FrameTable: refreshed_counters, but this is no counter (a number, access R)")

    def test_refreshed_counters_is_no_switch(self):
        self.refused('odd_size   = ["Counter"]', 'odd_size = ["Counter"]\nrefreshed_counters = 1',
                     "things.toml: Other: key 'refreshed_counters' must be true or left out")

    def test_needless_odd_size(self):
        self.refused('"u32",    5', '"u32", 4',
                     "things.toml: Other.Counter: odd_size is needless: the size fits the kind")

    def test_odd_size_of_octets(self):
        self.refused('uploads    = ["mib"]', 'uploads = ["mib"]\nodd_size = ["Address"]',
                     "things.toml: Thing.Address: odd_size is for numbers, not for kind octets")

    # Attributes

    def test_too_many_attributes(self):
        rows = "\n".join(f'    ["Extra{n}", "u8", 1, "R", 0],' for n in range(15))
        self.refused('    ["Counter"', rows + '\n    ["Counter"', "things.toml: Other: 17 attributes, expected 1 to 16")

    def test_no_attributes(self):
        self.refused(self.things[self.things.index('    ["Counter"'):], "]\n",
                     "things.toml: Other: odd_size names 'Counter', which is no attribute")

    def test_duplicate_attribute(self):
        self.refused('"Address", ', '"Level", ', "things.toml: Thing.Level: the class has two attributes of this name")

    def test_malformed_attribute(self):
        self.refused('1,  "CRWU", 7', '"CRWU", 7', "things.toml: Thing: attribute 1: expected [name, kind, bytes, "
                     "access(, default)], got ['Level', 'u8', 'CRWU', 7]")

    def test_bad_attribute_name(self):
        self.refused('"Offset"', '"offset"',
                     "things.toml: Other: attribute 2: name 'offset' does not match [A-Z][A-Za-z0-9_]*")

    def test_unknown_kind(self):
        self.refused('"s8"', '"s32"', "things.toml: Other.Offset: unknown kind 's32', expected one of "
                     "u8, u16, u32, u64, s8, s16, octets, table")

    def test_size_against_kind(self):
        self.refused('"u8",     1', '"u16", 3', "things.toml: Thing.Level: size 3 does not fit kind u16")

    def test_octets_too_wide(self):
        self.refused('"octets", 4', '"octets", 26', "things.toml: Thing.Address: size 26 does not fit kind octets, "
                     "expected 1 to 25")

    def test_empty_table_row(self):
        self.refused('"table", 12', '"table", 0', "things.toml: Thing.FrameTable: size 0 does not fit kind table, "
                     "expected 1 to 65535")

    def test_unknown_letter(self):
        self.refused('"CRWU"', '"CRWX"',
                     "things.toml: Thing.Level: unknown access letter 'X' in 'CRWX', known are CRWUAN")

    def test_letters_out_of_order(self):
        self.refused('"CRWU"', '"CWRU"', "things.toml: Thing.Level: access 'CWRU' is not in the order CRWUAN, "
                     "each letter once")

    def test_letter_twice(self):
        self.refused('"CRWU"', '"CRRU"', "things.toml: Thing.Level: access 'CRRU' is not in the order CRWUAN, "
                     "each letter once")

    def test_get_next_of_no_table(self):
        self.refused('"RW"],', '"RWN"],', "things.toml: Thing.Address: access N (get next) belongs to tables, "
                     "and every table has it")

    def test_table_without_get_next(self):
        self.refused('"RWN"]', '"RW"]', "things.toml: Thing.FrameTable: access N (get next) belongs to tables, "
                     "and every table has it")

    def test_table_set_by_create(self):
        self.refused('"RWN"', '"CRWN"', "things.toml: Thing.FrameTable: a table can't be set by create")

    def test_neither_readable_nor_writable(self):
        self.refused('"R",    0', '"A", 0', "things.toml: Other.Counter: access 'A' is neither readable nor writable")

    # Defaults

    def test_number_without_default(self):
        self.refused('"CRWU", 7', '"CRWU"', "things.toml: Thing.Level: kind u8 needs a number as default")

    def test_default_of_wrong_type(self):
        self.refused('"CRWU", 7', '"CRWU", "7"', "things.toml: Thing.Level: kind u8 needs a number as default")

    def test_default_out_of_range(self):
        self.refused('"CRWU", 7', '"CRWU", 256', "things.toml: Thing.Level: default 256 is outside 0 to 255")

    def test_signed_default_out_of_range(self):
        self.refused('"RW",  -1', '"RW", 128', "things.toml: Other.Offset: default 128 is outside -128 to 127")

    def test_default_of_table(self):
        self.refused('"RWN"]', '"RWN", 0]', "things.toml: Thing.FrameTable: a table has no default, it starts empty")

    def test_octet_default_too_long(self):
        self.refused('"RW"],', '"RW", "0x0102030405"],',
                     "things.toml: Thing.Address: default '0x0102030405' has 5 octets, more than 4")

    def test_octet_default_of_half_an_octet(self):
        self.refused('"RW"],', '"RW", "0x123"],', "things.toml: Thing.Address: default '0x123' is neither ASCII text "
                     "nor whole hexadecimal octets")

    def test_octet_default_of_a_number(self):
        self.refused('"RW"],', '"RW", 0],', "things.toml: Thing.Address: default 0 of octets must be a text or a text "
                     "of 0x and hexadecimal digits")

    def test_octet_defaults_are_filled_with_zeros(self):
        self.change('"RW"],', '"RW", "0x84"],')
        self.assertEqual(self.load().classes[0].attributes[1].default, b"\x84\0\0\0")

    def test_octet_default_as_text(self):
        self.change('"RW"],', '"RW", "ab"],')
        self.assertEqual(self.load().classes[0].attributes[1].default, b"ab\0\0")

    # Files

    def test_file_that_is_no_toml(self):
        self.change("[Other]", "[Other")
        [message, *_] = self.messages()
        self.assertRegex(message, r"^catalogue/things\.toml: is not valid TOML: .*line 17")

    def test_file_without_a_title(self):
        self.refused("# Things to test with.", "",
                     "things.toml: the first line must be a comment that says what family this is")

    def test_missing_startup_table(self):
        self.load()
        (self.directory / "startup.toml").unlink()
        with self.assertRaisesRegex(catalogue.CatalogueError, "startup.toml: can't be read: No such file"):
            catalogue.load(self.directory, None)

    def test_directory_without_files(self):
        with self.assertRaisesRegex(catalogue.CatalogueError, "no catalogue files"):
            catalogue.load(self.directory, None)

    # The start-up table

    def test_startup_row_of_unknown_class(self):
        self.refused('["Other"],', '["Another"],', "startup.toml: row 1: unknown class 'Another'")

    def test_malformed_startup_row(self):
        self.refused('["Other"],', '["Other", 1],', "startup.toml: row 1: expected [entity], or [entity, count, "
                     "instance(, update)], got ['Other', 1]")

    def test_two_startup_rows_of_a_class(self):
        self.refused('["Other"],', '["Other"], ["Other"],', "startup.toml: Other: the class has two rows")

    def test_unknown_instance_function(self):
        self.refused('"instanceOnuG"', '"instanceThing"',
                     "startup.toml: Thing: unknown instance function 'instanceThing'",
                     "startup.toml: Thing: values of a class without a row")

    def test_unknown_update_function(self):
        self.refused('"updateOnuG"', '"updateThing"', "startup.toml: Thing: unknown update function 'updateThing'",
                     "startup.toml: Thing: values of a class without a row")

    def test_startup_count_out_of_range(self):
        self.refused('["Other"],', '["Other", 256, "instanceOnuG"],',
                     "startup.toml: Other: count 256 is outside 0 to 255",
                     'startup.toml: Other: has instances at start-up, but created_by lacks "onu"')

    def test_startup_value_of_unknown_attribute(self):
        self.refused('Level   = [1, "8"]', 'Height = [1, "8"]', "startup.toml: Thing.Height: unknown attribute")

    def test_startup_values_without_a_row(self):
        self.refused('[values.Thing]', '[values.Things]', "startup.toml: Things: values of a class without a row")

    def test_unknown_startup_key(self):
        self.refused("rows = [", "colour = 1\nrows = [", "startup.toml: unknown key 'colour'")

    def test_startup_values_of_wrong_shape(self):
        self.change("[values.Thing]", "[[values]]")
        self.assertEqual(self.messages(), ["catalogue/startup.toml: expected an array 'rows' and one table of values "
                                           "per class"])

    def test_malformed_startup_value(self):
        self.refused('[1, "8"]', "[1, 8]", "startup.toml: Thing.Level: expected [value kind, text], got [1, 8]")

    def test_unknown_value_kind(self):
        self.refused('[1, "8"]', '[6, "8"]', "startup.toml: Thing.Level: unknown value kind 6, expected 0 to 5")

    def test_value_kind_against_width(self):
        self.refused('[1, "8"]', '[2, "8"]',
                     "startup.toml: Thing.Level: value kind 2 is 16 bits wide, the attribute has 8")

    def test_value_kind_none_with_text(self):
        self.refused('[1, "8"]', '[0, "8"]', "startup.toml: Thing.Level: value kind 0 takes no text")

    def test_text_for_a_number(self):
        self.refused('[1, "8"]', '[5, "8"]', "startup.toml: Thing.Level: value kind 5 is for octets, not for u8")

    def test_text_too_long(self):
        self.refused('[5, "NRVK"]', "[5, { blanks = 5 }]",
                     "startup.toml: Thing.Address: text of 5 bytes is longer than 4")

    def test_value_wider_than_a_table_row(self):
        self.change('"table", 12', '"table", 2')
        self.refused('Level   = [1, "8"]', 'FrameTable = [3, "8"]',
                     "startup.toml: Thing.FrameTable: value kind 3 is 32 bits wide, the attribute has 16")

    def test_value_without_definition(self):
        self.change('uploads    = ["mib"]', 'without_definition = ["Address"]\nuploads = ["mib"]')
        self.assertEqual(self.messages(), ["catalogue/startup.toml: Thing.Address: an attribute without a definition "
                                           "can't have a start-up value"])

    def test_row_of_a_broken_class_is_not_objected_to_again(self):
        self.refused('"u8",     1', '"u8", 2', "things.toml: Thing.Level: size 2 does not fit kind u8")

    # All of it

    def test_all_problems_are_collected(self):
        self.refused('"s8",     1,  "RW",  -1', '"s8", 2, "RX", -1',
                     "things.toml: Other.Offset: size 2 does not fit kind s8",
                     "things.toml: Other.Offset: unknown access letter 'X' in 'RX', known are CRWUAN")

    def test_totals(self):
        self.assertEqual(self.messages(catalogue.Totals()), [
            "catalogue/*.toml: classes: found 2, expected 115",
            "catalogue/*.toml: onu_creatable: found 1, expected 63",
            "catalogue/*.toml: olt_creatable: found 1, expected 71",
            "catalogue/*.toml: impl_extended: found 1, expected 73",
            "catalogue/*.toml: adapter_extended: found 0, expected 27",
            "catalogue/*.toml: startup_rows: found 2, expected 88",
        ])


class CommandLine(unittest.TestCase):
    def run_on(self, directory) -> subprocess.CompletedProcess:
        return subprocess.run([sys.executable, ROOT / "generator" / "catalogue.py", directory],
                              capture_output=True, text=True, check=False)

    def test_sound_catalogue_prints_a_summary(self):
        done = self.run_on(CATALOGUE)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout, "115 classes, 1010 attributes, 88 start-up rows\n")

    def test_broken_catalogue_prints_problems_and_exits_with_1(self):
        with tempfile.TemporaryDirectory() as directory:
            (Path(directory) / "things.toml").write_text(THINGS.replace('"u8",     1', '"u8", 2'))
            (Path(directory) / "startup.toml").write_text(STARTUP)
            done = self.run_on(directory)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("/things.toml: Thing.Level: size 2 does not fit kind u8\n1 problem in the catalogue\n",
                      "/" + done.stderr.partition("/")[2])


if __name__ == "__main__":
    unittest.main()
