"""The catalogue against values kept apart from it, and the model's derived values."""

import unittest

import expected_classes as expected
from generator_path import CATALOGUE

import catalogue
from model import Attribute


def ids(entities) -> set[int]:
    return {entity.class_id for entity in entities}


class WholeCatalogue(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.catalogue = catalogue.load(CATALOGUE)
        cls.by_id = {entity.class_id: entity for entity in cls.catalogue.classes}
        cls.rows = {row.entity.class_id: row for row in cls.catalogue.startup_rows}

    def startup_value(self, class_id: int, number: int) -> tuple[int, str]:
        row = self.rows[class_id]
        return row.kinds[number - 1], row.texts[number - 1]


class Conformity(WholeCatalogue):
    def test_every_class_line(self):
        self.assertEqual(len(expected.CLASS_LINES), 115)
        self.assertEqual([line[0] for line in expected.CLASS_LINES], [e.class_id for e in self.catalogue.classes])
        for class_id, name, set_mask, get_mask, get_next_mask, create_mask, uploads, roles in expected.CLASS_LINES:
            with self.subTest(name):
                entity = self.by_id[class_id]
                self.assertEqual(entity.name, name)
                self.assertEqual(hex(entity.set_mask), hex(set_mask))
                self.assertEqual(hex(entity.get_mask), hex(get_mask))
                self.assertEqual(hex(entity.get_next_mask), hex(get_next_mask))
                self.assertEqual(hex(entity.create_mask), hex(create_mask))
                self.assertEqual(entity.in_mib_upload, "mib" in uploads)
                self.assertEqual(entity.in_alarm_upload, "alarms" in uploads)
                self.assertEqual(entity.impl_extended, "impl" in roles)
                self.assertEqual(entity.adapter_extended, "adapter" in roles)

    def test_onu_may_create_63_classes(self):
        self.assertEqual(len(expected.ONU_CREATABLE), 63)
        self.assertEqual(ids(e for e in self.catalogue.classes if e.onu_creatable), expected.ONU_CREATABLE)

    def test_olt_may_create_71_classes(self):
        creatable = {line[0] for line in expected.CLASS_LINES if line[5]} | expected.OLT_CREATABLE_WITHOUT_CREATE_MASK
        self.assertEqual(len(creatable), 71)
        self.assertEqual(ids(e for e in self.catalogue.classes if e.olt_creatable), creatable)

    def test_73_impl_extended_and_27_adapter_extended(self):
        self.assertEqual(sum(entity.impl_extended for entity in self.catalogue.classes), 73)
        self.assertEqual(len(expected.ADAPTER_EXTENDED), 27)
        self.assertEqual(ids(e for e in self.catalogue.classes if e.adapter_extended), expected.ADAPTER_EXTENDED)

    def test_only_vendor_ids_and_known_gaps_lack_a_clause(self):
        vendor = {class_id for class_id in self.by_id if class_id == 242 or class_id >= 65280}
        without = ids(e for e in self.catalogue.classes if e.clause is None)
        self.assertEqual(without - vendor, {267, 426})
        self.assertLessEqual(vendor, without)

    def test_defaults_that_are_not_zero(self):
        found = {(e.class_id, a.number): a.default_bytes.hex() for e in self.catalogue.classes for a in e.attributes
                 if not a.has_zero_default and e.class_id not in (130, 426)}
        self.assertEqual(found, expected.DEFAULTS)
        self.assertEqual({a.default_bytes.hex() for a in self.by_id[426].attributes}, {"ff" * 8})
        self.assertEqual([a.default_bytes.hex() for a in self.by_id[130].attributes[:9]], ["ffff"] * 9)
        self.assertTrue(all(a.has_zero_default for a in self.by_id[130].attributes[9:]))

    def test_table_rows(self):
        found = {(e.class_id, a.number): a.size for e in self.catalogue.classes for a in e.attributes if a.is_table}
        self.assertEqual(found, expected.TABLES)

    def test_startup_rows_in_order(self):
        self.assertEqual([row.entity.class_id for row in self.catalogue.startup_rows], expected.STARTUP_ORDER)
        found = {c: (r.count, r.instance, r.update) for c, r in self.rows.items() if r.instance or r.update or r.count}
        self.assertEqual(found, expected.STARTUP_FUNCTIONS)

    def test_stated_startup_values(self):
        found = {(row.entity.class_id, number): (row.kinds[number - 1], row.texts[number - 1])
                 for row in self.catalogue.startup_rows for number in row.stated}
        self.assertEqual(found, expected.STARTUP_VALUES)


class UnstatedStartupValues(WholeCatalogue):
    """The rule for attributes that the start-up table says nothing about."""

    def test_kind_by_width(self):
        self.assertEqual(self.startup_value(263, 4), (1, "0"))  # u8
        self.assertEqual(self.startup_value(263, 10), (2, "0"))  # u16
        self.assertEqual(self.startup_value(257, 10), (3, "0"))  # u32
        self.assertEqual(self.startup_value(336, 8), (4, "0"))  # u64
        self.assertEqual(self.startup_value(53, 7), (1, "0"))  # s8
        self.assertEqual(self.startup_value(5, 4), (5, ""))  # octets

    def test_counter_of_5_bytes_is_updated_as_32_bits(self):
        self.assertEqual(self.startup_value(267, 5), (3, "0"))

    def test_no_entry_for_tables(self):
        self.assertEqual(self.startup_value(332, 2), (0, ""))

    def test_no_entry_without_definition(self):
        self.assertEqual(self.startup_value(256, 13), (0, ""))

    def test_no_entry_over_a_class_default(self):
        self.assertEqual(self.startup_value(257, 4), (0, ""))  # SecurityCapability 1
        self.assertEqual(self.startup_value(242, 1), (0, ""))  # FeatureMask 0x84
        self.assertEqual(self.startup_value(277, 8), (0, ""))  # Weight 1

    def test_onu3g_has_entries_for_its_numbers_only(self):
        self.assertEqual(self.rows[65422].kinds, (1, 1, 2, 2, 2, 0, 1) + (0,) * 9)

    def test_no_entry_past_the_last_attribute(self):
        for row in self.catalogue.startup_rows:
            self.assertFalse(any(row.kinds[len(row.entity.attributes):]), row.entity.short_name)


class DerivedValues(unittest.TestCase):
    def attribute(self, name="Level", number=1, kind="u8", size=1, letters="R", default=0) -> Attribute:
        return Attribute(name, number, kind, size, letters, default)

    def test_masks_follow_the_position(self):
        self.assertEqual([self.attribute(number=n).mask for n in (1, 2, 16)], [0x8000, 0x4000, 0x0001])

    def test_flags_follow_the_letters(self):
        self.assertEqual([self.attribute(letters=letter).flags for letter in "CRWUAN"], [1, 2, 4, 8, 16, 32])
        self.assertEqual(self.attribute(letters="CRWUAN").flags, 63)

    def test_kind_codes(self):
        kinds = ("u8", "octets", "table", "u16", "u32", "u64", "s8", "s16")
        self.assertEqual([self.attribute(kind=kind).kind_code for kind in kinds], [0, 0, 0, 1, 2, 3, 4, 5])

    def test_upper_names(self):
        names = {"SrIndication": "SR_INDICATION", "Frames_65_127_Octets": "FRAMES_65_127_OCTETS",
                 "Ipv4MulticastFiltering": "IPV4_MULTICAST_FILTERING", "InterworkTpPointerForPBitPriority0":
                 "INTERWORK_TP_POINTER_FOR_PBIT_PRIORITY0", "Bip32BitErrorCount": "BIP32_BIT_ERROR_COUNT",
                 "QueueDropWQ": "QUEUE_DROP_WQ", "ThresholdData_1by2_Id": "THRESHOLD_DATA_1BY2_ID"}
        self.assertEqual({name: self.attribute(name).upper_name for name in names}, names)

    def test_camel_name(self):
        self.assertEqual(self.attribute("SrIndication").camel_name, "srIndication")

    def test_default_bytes_are_in_network_order(self):
        self.assertEqual(self.attribute(kind="u16", size=2, default=5060).default_bytes, b"\x13\xc4")
        self.assertEqual(self.attribute(kind="s16", size=2, default=-32768).default_bytes, b"\x80\x00")
        self.assertEqual(self.attribute(kind="u32", size=5, default=1).default_bytes, b"\0\0\0\0\x01")
        self.assertEqual(self.attribute(kind="table", size=25, letters="RN").default_bytes, bytes(4))


if __name__ == "__main__":
    unittest.main()
