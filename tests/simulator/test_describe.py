"""--describe against values typed from the field's standard, class by class."""

import json
import subprocess
import unittest

from onu_sim import PROGRAM

C, R, W, U, A, N = 1, 2, 4, 8, 16, 32

# class: name, set mask, get mask, create mask, MIB upload, alarm upload, OLT creates it,
#        attributes (name, size, kind, access, default)
CLASSES = {
    2: ("ONUDATA", 0x8000, 0x8000, 0, True, False, False,
        [("MibDataSync", 1, 0, R | W | U, "00")]),
    264: ("UNIG", 0xD800, 0xF800, 0, True, False, False,
          [("Deprecated", 2, 1, R | W | U, "0000"), ("AdministrativeState", 1, 0, R | W | U, "00"),
           ("ManagementCapability", 1, 0, R | U, "00"), ("NonOmciManagementIdentifier", 2, 1, R | W | U, "0000"),
           ("RelayAgentOptions", 2, 1, R | W | U, "0000")]),
    329: ("VIRTUALETHERNETINTERFACEPOINT", 0xB000, 0xF800, 0, True, True, False,
          [("AdministrativeState", 1, 0, R | W | U, "01"), ("OperationalState", 1, 0, R | U | A, "00"),
           ("InterdomainName", 25, 0, R | W | U, "00" * 25), ("TcpUdpPointer", 2, 1, R | W | U, "ffff"),
           ("IanaAssignedPort", 2, 1, R | U, "ffff")]),
    82: ("PPTPVIDEOUNI", 0xB800, 0xF800, 0, True, True, False,
         [("AdministrativeState", 1, 0, R | W | U, "00"), ("OperationalState", 1, 0, R | U | A, "00"),
          ("Arc", 1, 0, R | W | U | A, "00"), ("ArcInterval", 1, 0, R | W | U, "00"),
          ("PowerControl", 1, 0, R | W | U, "00")]),
    273: ("THRESHOLDDATA1", 0xFE00, 0xFE00, 0xFE00, True, False, True,
          [(f"ThresholdValue_{i}", 4, 2, C | R | W | U, "00000000") for i in range(1, 8)]),
    274: ("THRESHOLDDATA2", 0xFE00, 0xFE00, 0xFE00, True, False, True,
          [(f"ThresholdValue_{i}", 4, 2, C | R | W | U, "00000000") for i in range(8, 15)]),
    426: ("THRESHOLDDATA64BIT", 0xFFFC, 0xFFFC, 0, True, False, True,
          [(f"ThresholdValue_{i}", 8, 3, R | W | U, "ff" * 8) for i in range(1, 15)]),
    89: ("ETHERNETPERFORMANCEMONITORINGHISTORYDATA2", 0x4000, 0xE000, 0x4000, False, False, True,
         [("IntervalEndTime", 1, 0, R, "00"), ("ThresholdData_1by2_Id", 2, 1, C | R | W, "0000"),
          ("PppoeFilteredFrameCounter", 4, 2, R, "00000000")]),
    51: ("MACBRIDGEPERFORMANCEMONITORINGHISTORYDATA", 0x4000, 0xE000, 0x4000, False, False, True,
         [("IntervalEndTime", 1, 0, R, "00"), ("ThresholdData_1by2_Id", 2, 1, C | R | W, "0000"),
          ("BridgeLearningEntryDiscardCount", 4, 2, R, "00000000")]),
    52: ("MACBRIDGEPORTPERFORMANCEMONITORINGHISTORYDATA", 0x4000, 0xFE00, 0x4000, False, False, True,
         [("IntervalEndTime", 1, 0, R, "00"), ("ThresholdData_1by2_Id", 2, 1, C | R | W, "0000"),
          ("ForwardedFrameCounter", 4, 2, R, "00000000"), ("DelayExceededDiscardCounter", 4, 2, R, "00000000"),
          ("MtuExceededDiscardCounter", 4, 2, R, "00000000"), ("ReceivedFrameCounter", 4, 2, R, "00000000"),
          ("ReceivedAndDiscardedCounter", 4, 2, R, "00000000")]),
    276: ("GALETHERNETPERFORMANCEMONITORINGHISTORYDATA", 0x4000, 0xE000, 0x4000, False, False, True,
          [("IntervalEndTime", 1, 0, R, "00"), ("ThresholdData_1by2_Id", 2, 1, C | R | W, "0000"),
           ("DiscardedFrames", 4, 2, R, "00000000")]),
    312: ("FECPMHISTORYDATA", 0x4000, 0xFE00, 0x4000, True, True, True,
          [("IntervalEndTime", 1, 0, R, "00"), ("ThresholdData_1_2_Id", 2, 1, C | R | W | U, "0000"),
           ("CorrectedBytes", 4, 2, R, "00000000"), ("CorrectedCodeWords", 4, 2, R, "00000000"),
           ("UncorrectableCodeWords", 4, 2, R, "00000000"), ("TotalCodeWords", 4, 2, R, "00000000"),
           ("FecSeconds", 2, 1, R, "0000")]),
}


class Describe(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        done = subprocess.run([PROGRAM, "--describe"], capture_output=True, text=True, timeout=60, check=True)
        cls.all = json.loads(done.stdout)
        cls.by_class = {entry["class"]: entry for entry in cls.all}

    def test_all_classes_in_ascending_order(self):
        classes = [entry["class"] for entry in self.all]
        self.assertEqual(115, len(classes))
        self.assertEqual(sorted(set(classes)), classes)
        self.assertEqual(71, sum(entry["olt_creatable"] for entry in self.all))

    def test_classes_are_as_the_standard_has_them(self):
        for entity_class, expected in CLASSES.items():
            with self.subTest(entity_class):
                entry = self.by_class[entity_class]
                name, set_mask, get_mask, create_mask, upload, alarms, creatable, attributes = expected
                self.assertEqual([name, set_mask, get_mask, 0, create_mask, upload, alarms, creatable],
                                 [entry[key] for key in ("name", "set_mask", "get_mask", "get_next_mask", "create_mask",
                                                         "mib_upload", "alarm_upload", "olt_creatable")])
                self.assertEqual([{"name": attribute[0], "mask": 0x8000 >> place, "size": attribute[1],
                                   "kind": attribute[2], "table": False, "table_write_mode": 0,
                                   "flags": attribute[3], "default": attribute[4]}
                                  for place, attribute in enumerate(attributes)], entry["attributes"])

    def test_tables_show_their_row_and_an_empty_count(self):
        attribute = next(attribute for attribute in self.by_class[158]["attributes"] if attribute["table"])
        self.assertEqual(("ReplyTable", 0x2000, "00000000"),
                         (attribute["name"], attribute["mask"], attribute["default"]))
        write_only = [attribute["name"] for attribute in self.by_class[332]["attributes"]
                      if attribute["table_write_mode"] == 1]
        self.assertEqual(["OltRandomChallengeTable", "OltAuthenticationResultTable", "BroadcastKeyTable"], write_only)


if __name__ == "__main__":
    unittest.main()
