"""mib-diff, statistics, and what onu-sim's options for them promise."""

import json
import unittest

from onu import Onu, OnuTest
from support import OMCI_OLT, OltTest


class MibDiffTest(OnuTest):
    def save(self, name, *options):
        self.olt(self.onu, "mib-upload", "--save", self.path(name), *options)
        return self.path(name)

    def diff(self, *arguments, expect=1):
        return self.json_of(self.olt(self.onu, "--json", "mib-diff", *arguments, expect=expect))["differences"]

    def test_same_mib_makes_no_difference(self):
        before = self.save("a.json")
        done = self.olt(self.onu, "mib-diff", before, "--ignore", "Onu2G.SysupTime")
        self.assertEqual(done.stdout, "no difference\n")

    def test_added_missing_and_changed(self):
        self.olt(self.onu, "create", "GalEthernetProfile", "1")
        before = self.save("a.json")
        self.olt(self.onu, "delete", "GalEthernetProfile", "1")
        self.olt(self.onu, "create", "TrafficDescriptor", "5")
        self.olt(self.onu, "set", "OnuG", "0", "BatteryBackup=1")
        after = self.save("b.json")
        ignore = ("--ignore", "OnuData", "--ignore", "Onu2G.SysupTime")
        self.assertEqual([(d["class"], d["instance"], d["attribute"], d["before"], d["after"])
                          for d in self.diff(before, after, *ignore)],
                         [(256, 0, "BatteryBackup", "0", "1"), (272, 1, None, "present", None),
                          (280, 5, None, None, "present")])
        text = self.olt(self.onu, "mib-diff", before, after, *ignore, expect=1).stdout
        self.assertEqual(text, "OnuG (256)\n  instance 0: BatteryBackup changed from 0 to 1\n"
                               "GalEthernetProfile (272)\n  instance 1: missing\n"
                               "TrafficDescriptor (280)\n  instance 5: added\n3 differences\n")
        # The same against the ONU itself.
        self.assertEqual(self.diff(before, *ignore), self.diff(before, after, *ignore))

    def test_plain_upload_compares_with_an_onu_that_has_mappers(self):
        self.olt(self.onu, "create", "MacBridgePortConfigurationData", "1", "TpType=3", "TpPointer=1")
        self.olt(self.onu, "create", "MapperServiceProfile802_1P", "1")
        self.diff(self.save("a.json"), "--ignore", "Onu2G.SysupTime", expect=0)
        self.diff(self.save("b.json", "--complete"), "--ignore", "Onu2G.SysupTime", expect=0)
        self.olt(self.onu, "set", "130", "1", "DefaultPBitAssumption=3")
        differences = self.diff(self.path("b.json"), "--ignore", "OnuData", "--ignore", "Onu2G.SysupTime")
        self.assertEqual([(d["class"], d["attribute"]) for d in differences], [(130, "DefaultPBitAssumption")])

    def test_wrong_names_and_files(self):
        before = self.save("a.json")
        self.assertIn("did you mean", self.olt(self.onu, "mib-diff", before, "--ignore", "OnuGee", expect=2).stderr)
        self.assertIn("no attribute", self.olt(self.onu, "mib-diff", before, "--ignore", "OnuG.X", expect=2).stderr)
        self.assertIn("isn't a saved MIB", self.olt(self.onu, "mib-diff", self.write("x", "[]"), expect=2).stderr)


class StatisticsTest(OnuTest):
    def statistics(self):
        return json.loads(self.run_program([OMCI_OLT, "--json", "statistics", self.onu.control]).stdout)

    def test_messages_by_format_and_result(self):
        self.olt(self.onu, "get", "OnuG", "0", "VendorId")
        self.olt(self.onu, "--extended", "get", "OnuG", "0", "VendorId")
        self.olt(self.onu, "get", "OnuG", "7", "VendorId", expect=1)
        self.olt(self.onu, "raw", "1234490a", "--no-answer")
        self.olt(self.onu, "mib-upload")
        counted = self.statistics()
        self.assertEqual(counted["messages"]["get"], {
            "baseline": 2, "extended": 1, "results": {"success": 2, "unknown managed entity instance": 1}})
        self.assertEqual(counted["drops"]["too short for a header"], 1)
        self.assertEqual(counted["extended_requests"], 1)

    def test_handlers_are_listed_by_class_the_slowest_first(self):
        self.olt(self.onu, "get", "OnuG", "0")
        self.olt(self.onu, "mib-upload")
        self.olt(self.onu, "get", "999", "0", "1", expect=1)
        handlers = self.statistics()["handlers"]
        self.assertEqual({handler["class"] for handler in handlers}, {2, 256})
        slowest = [handler["slowest_us"] for handler in handlers]
        self.assertEqual(slowest, sorted(slowest, reverse=True))
        for handler in handlers:
            self.assertLessEqual(handler["mean_us"], handler["slowest_us"])

    def test_notifications_are_counted(self):
        self.olt(self.onu, "mib-upload")
        self.onu.ask(alarm={"class": 11, "instance": 0x101, "number": 0, "state": True})
        text = self.run_program([OMCI_OLT, "statistics", self.onu.control]).stdout
        self.assertRegex(text, r"sent unasked: \d+ attribute value changes, 1 alarms, 0 test results")
        self.assertRegex(text, r"(?m)^MIB upload +1 +0 +1 success$")

    def test_nobody_there(self):
        done = self.run_program([OMCI_OLT, "statistics", self.path("nobody")], 3)
        self.assertIn("onu-sim --control", done.stderr)


class FormatsTest(OltTest):
    def omcc_version(self, onu):
        return self.json_of(self.olt(onu, "--json", "get", "Onu2G", "0", "OmccVersion"))["attributes"]["OmccVersion"]

    def test_one_session_mixes_formats(self):
        with Onu(self.directory) as onu:
            self.assertEqual(self.omcc_version(onu), 0xB3)
            self.olt(onu, "mib-reset")
            baseline = self.json_of(self.olt(onu, "--json", "mib-upload"))["entities"]
            extended = self.json_of(self.olt(onu, "--extended", "--json", "mib-upload"))["entities"]
            self.assertEqual(len(baseline), len(extended))

    def test_baseline_only_onu_is_deaf_to_extended_messages_and_says_so(self):
        with Onu(self.directory, "--baseline-only") as onu:
            self.assertEqual(self.omcc_version(onu), 0xA3)
            self.olt(onu, "mib-reset")
            self.assertEqual(self.omcc_version(onu), 0xA3)
            done = self.olt(onu, "--extended", "get", "OnuG", "0", options=("--timeout", "200", "--retries", "0"),
                            expect=3)
            self.assertIn("no answer", done.stderr)
            counted = onu.ask(statistics=True)["result"]
            self.assertEqual((counted["drops"]["extended message refused"], counted["extended_requests"]), (1, 0))
            onu.ask(reboot=True)
            self.assertEqual(self.omcc_version(onu), 0xA3)


class IdentityTest(OltTest):
    BOARD = ("[identity]\nvendor_id = TEST\nhardware_version = HW-1.2\nequipment_id = BENCH-7\nomcc_version = 0xb4\n"
             "product_code = 4711\nserial_number = 5445535411223344\n")
    EXPECTED = {("OnuG", "VendorId"): "0x54455354", ("OnuG", "SerialNumber"): "0x5445535411223344",
                ("OnuG", "Version"): "0x" + b"HW-1.2".ljust(14, b"\0").hex(),
                ("Onu2G", "EquipmentId"): "0x" + b"BENCH-7".ljust(20, b"\0").hex(),
                ("Onu2G", "OmccVersion"): 0xB4, ("Onu2G", "VendorProductCode"): 4711}

    def test_each_key_lands_on_its_attribute_and_outlives_a_reset(self):
        with Onu(self.directory, "--board", self.write("board.ini", self.BOARD)) as onu:
            for before in ([], ["mib-reset"]):
                if before:
                    self.olt(onu, *before)
                for (entity, attribute), value in self.EXPECTED.items():
                    answer = self.json_of(self.olt(onu, "--json", "get", entity, "0", attribute))
                    self.assertEqual(answer["attributes"][attribute], value, (before, attribute))

    def test_wrong_values_are_refused_with_file_line_and_field(self):
        for line, complaint in (("vendor_id = TOOLONG", "1 to 4 characters"), ("omcc_version = 256", "0 to 255"),
                                ("product_code = x", "0 to 65535"), ("equipment_id = " + "x" * 21, "1 to 20"),
                                ("product = 1", "not known")):
            board = self.write("board.ini", "[identity]\n" + line + "\n")
            done = self.run_program(Onu(self.directory, "--board", board)._command, 1)
            self.assertIn("board.ini:2: ", done.stderr)
            self.assertIn(complaint, done.stderr)


if __name__ == "__main__":
    unittest.main()
