"""Commands on one entity, seen from both ends of the road."""

import struct
import unittest

from fake_onu import FakeOnu
from omci_wire import (CREATE, EXTENDED, GET, GET_CURRENT_DATA, SET, SET_TABLE)
from support import OMCI_OLT, OltTest

ONU_G = {1: b"ABCD", 2: b"V1.0", 3: b"ABCD\x12\x34\x56\x78", 4: b"\x02", 7: b"\x01", 10: b"logical id", 11: b"secret"}


class GetTest(OltTest):
    def test_named_attributes_in_one_message(self):
        with FakeOnu() as onu:
            onu.add(256, 0, ONU_G)
            done = self.olt(onu, "get", "onu-g", "0", "vendor id", "AdministrativeState")
            self.assertIn('"ABCD"', done.stdout)
            self.assertIn("1 (locked)", done.stdout)
            self.assertEqual(len(onu.requests), 1)
            self.assertEqual(onu.requests[0].type, GET)
            self.assertEqual(onu.requests[0].contents[:2], b"\x82\x00")

    def test_class_and_attribute_by_number_in_either_base(self):
        with FakeOnu() as onu:
            onu.add(263, 0x401, {10: b"\x12\x34"})
            answer = self.json_of(self.olt(onu, "--json", "get", "0x107", "1025", "10"))
            self.assertEqual(answer["attributes"], {"OpticalSignalLevel": 0x1234})
            self.assertEqual((answer["class"], answer["name"], answer["instance"]), (263, "AniG", 1025))
            self.assertEqual((answer["result"], answer["result_text"]), (0, "success"))

    def test_global_options_may_follow_the_command(self):
        with FakeOnu() as onu:
            onu.add(256, 0, ONU_G)
            done = self.olt(onu, "get", "OnuG", "0", "VendorId", "--json", "--extended", options=())
            self.assertEqual(self.json_of(done)["attributes"], {"VendorId": "0x41424344"})
            self.assertEqual(onu.requests[0].device, EXTENDED)

    def test_all_attributes_are_spread_over_messages_of_25_octets(self):
        with FakeOnu() as onu:
            onu.add(256, 0, ONU_G)
            answer = self.json_of(self.olt(onu, "--json", "get", "OmciMeOnuG", "0"))
            self.assertEqual(len(answer["attributes"]), 12)
            self.assertEqual(answer["attributes"]["LogicalPassword"], "0x" + b"secret".ljust(12, b"\0").hex())
            masks = [struct.unpack(">H", request.contents[:2])[0] for request in onu.requests]
            self.assertGreater(len(masks), 1)
            self.assertEqual(sum(masks), 0xFFF0)

    def test_extended_takes_all_attributes_at_once(self):
        with FakeOnu() as onu:
            onu.add(256, 0, ONU_G)
            answer = self.json_of(self.olt(onu, "--extended", "--json", "get", "OnuG", "0"))
            self.assertEqual(len(answer["attributes"]), 12)
            self.assertEqual([request.device for request in onu.requests], [EXTENDED])

    def test_write_only_attributes_are_not_asked_for_unnamed(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            answer = self.json_of(self.olt(onu, "--json", "get", "OnuRemoteDebug", "0"))
            self.assertEqual(list(answer["attributes"]), ["CommandFormat", "ReplyTable"])

    def test_table_attribute_answers_its_size(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            onu.rows[158, 0, 3] = [bytes(29), bytes(29)]
            answer = self.json_of(self.olt(onu, "--json", "get", "OnuRemoteDebug", "0", "ReplyTable"))
            self.assertEqual(answer["attributes"], {"ReplyTable": 58})

    def test_failed_attributes_are_named_and_the_others_shown(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            done = self.olt(onu, "get", "OnuRemoteDebug", "0", "CommandFormat", "Command", expect=1)
            self.assertIn("attribute(s) failed or unknown", done.stderr)
            self.assertIn("failed: Command", done.stderr)
            self.assertIn("CommandFormat", done.stdout)

    def test_unknown_class_and_instance_are_results_in_words(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            self.assertIn("unknown managed entity (result 4)", self.olt(onu, "get", "999", "0", expect=1).stderr)
            done = self.olt(onu, "--json", "get", "OnuG", "7", expect=1)
            answer = self.json_of(done)
            self.assertEqual((answer["result"], answer["result_text"]), (5, "unknown managed entity instance"))

    def test_success_without_the_value_is_no_success(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            onu.road = lambda number, reply: [(0, reply[:9] + bytes(2) + reply[11:])]  # an empty attribute mask
            self.assertIn("lacks VendorId", self.olt(onu, "get", "OnuG", "0", "VendorId", expect=1).stderr)

    def test_current_data_has_its_own_message_type(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            self.olt(onu, "get-current-data", "OnuG", "0", "VendorId")
            self.assertEqual(onu.requests[0].type, GET_CURRENT_DATA)


class SetTest(OltTest):
    def test_value_forms_reach_the_wire(self):
        with FakeOnu() as onu:
            onu.add(134, 0)
            self.olt(onu, "set", "134", "0", "IpAddress=10.1.2.3", "Mask=0xffffff00", "IpOptions=0x03",
                     "MacAddress=00:11:22:aa:bb:cc", "OnuIdentifier=an onu")
            values = onu.mib[134, 0]
            self.assertEqual(values[3], bytes([10, 1, 2, 3]))
            self.assertEqual(values[4], bytes([255, 255, 255, 0]))
            self.assertEqual(values[0], b"\x03")
            self.assertEqual(values[1], bytes.fromhex("001122aabbcc"))
            self.assertEqual(values[2], b"an onu".ljust(25, b"\0"))

    def test_values_beyond_30_octets_go_out_in_several_messages(self):
        with FakeOnu() as onu:
            onu.add(134, 0)
            self.olt(onu, "set", "134", "0", "HostName=host", "DomainName=domain", "OnuIdentifier=onu")
            self.assertEqual([request.type for request in onu.requests], [SET] * 3)
            self.assertEqual([onu.mib[134, 0][n - 1].rstrip(b"\0") for n in (3, 14, 15)], [b"onu", b"domain", b"host"])

    def test_extended_needs_one_message(self):
        with FakeOnu() as onu:
            onu.add(134, 0)
            self.olt(onu, "--extended", "set", "134", "0", "HostName=host", "DomainName=domain")
            self.assertEqual(len(onu.requests), 1)
            self.assertEqual(onu.mib[134, 0][14], b"host".ljust(25, b"\0"))

    def test_refused_attributes_are_named(self):
        with FakeOnu() as onu:
            onu.add(256, 0)
            done = self.olt(onu, "set", "OnuG", "0", "VendorId=XXXX", "BatteryBackup=1", expect=1)
            self.assertIn("failed: VendorId", done.stderr)
            answer = self.json_of(self.olt(onu, "--json", "set", "OnuG", "0", "Version=X", expect=1))
            self.assertEqual((answer["result"], answer["failed"]), (9, ["Version"]))

    def test_table_rows_by_set_table(self):
        rows = ["0x" + bytes(range(n, n + 29)).hex() for n in (1, 2)]
        with FakeOnu() as onu:
            onu.add(158, 0)
            self.olt(onu, "--extended", "set-table", "OnuRemoteDebug", "0", "ReplyTable", *rows)
            self.assertEqual(onu.requests[0].type, SET_TABLE)
            self.assertEqual(onu.rows[158, 0, 3], [bytes(range(n, n + 29)) for n in (1, 2)])
            self.olt(onu, "set-table", "OnuRemoteDebug", "0", "ReplyTable", *rows, expect=2)


class CreateAndDeleteTest(OltTest):
    def test_create_carries_given_values(self):
        with FakeOnu() as onu:
            self.olt(onu, "create", "GAL Ethernet profile", "1", "Maximum GEM payload size=4095")
            self.assertEqual(onu.requests[0].type, CREATE)
            self.assertEqual(onu.mib[272, 1], [b"\x0f\xff"])

    def test_create_fills_in_defaults(self):
        with FakeOnu() as onu:
            self.olt(onu, "create", "272", "1")
            self.assertEqual(onu.mib[272, 1], [b"\0\0"])

    def test_create_twice_says_so(self):
        with FakeOnu() as onu:
            self.olt(onu, "create", "272", "1")
            self.assertIn("instance exists", self.olt(onu, "create", "272", "1", expect=1).stderr)

    def test_delete(self):
        with FakeOnu() as onu:
            onu.add(272, 1)
            self.olt(onu, "delete", "272", "1")
            self.assertNotIn((272, 1), onu.mib)
            self.assertIn("unknown managed entity instance", self.olt(onu, "delete", "272", "1", expect=1).stderr)


class GetNextTest(OltTest):
    def test_whole_table_row_by_row(self):
        text = b"version 1.2.3\nuptime 4 days, 3 hours and 2 minutes"
        rows = [text[at:at + 29].ljust(29, b"\0") for at in range(0, len(text), 29)]
        for options in ([], ["--extended"]):
            with self.subTest(options=options), FakeOnu() as onu:
                onu.add(158, 0)
                onu.rows[158, 0, 3] = rows
                answer = self.json_of(self.olt(onu, *options, "--json", "get-next", "OnuRemoteDebug", "0"))
                self.assertEqual(answer["size"], 58)
                self.assertEqual(answer["rows"], ["0x" + row.hex() for row in rows])
                self.assertEqual(onu.requests[0].type, GET)

    def test_empty_table_asks_for_no_row(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            answer = self.json_of(self.olt(onu, "--json", "get-next", "158", "0", "ReplyTable"))
            self.assertEqual(answer["rows"], [])
            self.assertEqual(len(onu.requests), 1)

    def test_refusal_after_the_size(self):
        with FakeOnu() as onu:
            onu.add(158, 0)
            onu.rows[158, 0, 3] = [bytes(29)]
            onu._get_next = lambda key, frame: struct.pack(">BH", 2, 0)
            self.assertIn("command not supported", self.olt(onu, "get-next", "158", "0", expect=1).stderr)


class VlanTableTest(OltTest):
    ROWS = [bytes.fromhex(row) for row in ("f800000080320000400f000000080644", "f8000000f8000000000f00000000000c")]

    def test_whole_table_in_words_from_an_onu_that_answers_its_size(self):
        for options in ([], ["--extended"]):
            with FakeOnu() as onu:
                onu.add(171, 1)
                onu.rows[171, 1, 6] = self.ROWS
                text = self.olt(onu, *options, "vlan", "1").stdout
                self.assertIn("VID 100, any priority: remove 1 tag, add VID 200 priority copied from inner\n", text)
                self.assertIn("untagged: add VID 1 priority 0", text)
                answer = self.json_of(self.olt(onu, *options, "--json", "vlan", "1"))
                self.assertFalse(answer["newest_only"])
                self.assertEqual([row["octets"] for row in answer["rows"]], ["0x" + row.hex() for row in self.ROWS])
                self.assertIn("untagged: add VID 1", self.olt(onu, *options, "get-next", "171", "1").stdout)

    def test_newest_row_of_an_onu_that_tells_no_other_is_called_so(self):
        with FakeOnu() as onu:
            onu.add(171, 1)
            onu._get = lambda key, frame: struct.pack(">BH", 0, 0x0400) + self.ROWS[0]
            onu._get_next = lambda key, frame: struct.pack(">BH", 2, 0)
            for command in (["vlan", "1"], ["get-next", "171", "1"]):
                self.assertIn("this ONU reads back the newest row only\n", self.olt(onu, *command).stderr)
                answer = self.json_of(self.olt(onu, "--json", *command))
                self.assertTrue(answer["newest_only"])
                self.assertEqual(len(answer["rows"]), 1)

    def test_empty_table(self):
        with FakeOnu() as onu:
            onu.add(171, 1)
            self.assertIn("no rules", self.olt(onu, "vlan", "1").stdout)

    def test_rows_of_fields_in_one_message(self):
        with FakeOnu() as onu:
            onu.add(171, 1)
            self.olt(onu, "--extended", "set-table", "171", "1", "6", "filter-inner-vid=100 treat-inner-vid=200",
                     "0x" + self.ROWS[1].hex())
            self.assertEqual(onu.requests[-1].contents[2:], b"".join(self.ROWS))


class UsageTest(OltTest):
    def test_nothing_is_sent_for_what_cannot_be_asked(self):
        cases = [
            (["get", "OnuH", "0"], "did you mean"),
            (["get", "OnuG", "0", "VendorIdd"], "did you mean VendorId"),
            (["get", "OnuG", "0", "AdminState"], "did you mean AdministrativeState"),
            (["get", "OnuG", "0", "17"], "has no attribute 17"),
            (["get", "OnuG", "65536"], "isn't a number from 0 to 65535"),
            (["get", "65536", "0"], "out of range"),
            (["set", "OnuG", "0", "BatteryBackup=256"], "0 to 255 fit"),
            (["set", "OnuG", "0", "BatteryBackup=yes"], "isn't a number"),
            (["set", "OnuG", "0", "BatteryBackup"], "isn't ATTRIBUTE=VALUE"),
            (["set", "OnuG", "0", "BatteryBackup=1", "batterybackup=0"], "given twice"),
            (["set", "OnuG", "0", "VendorId=ABCDE"], "4 fit"),
            (["set", "OnuG", "0", "VendorId=0xABC"], "whole number of octets"),
            (["create", "OnuG", "0", "BatteryBackup=1"], "isn't set by create"),
            (["get-next", "OnuG", "0"], "has no table"),
            (["get-next", "OnuG", "0", "VendorId"], "isn't a table"),
            (["gett", "OnuG", "0"], "did you mean get"),
            (["get", "OnuG"], "INSTANCE is required"),
            (["raw", "0x123"], "whole number of octets"),
            (["--mic", "md5", "mib-reset"], "--mic md5"),
            (["--timeout", "0", "mib-reset"], "--timeout"),
        ]
        with FakeOnu() as onu:
            for arguments, complaint in cases:
                with self.subTest(arguments=arguments):
                    done = self.olt(onu, *arguments, expect=2)
                    self.assertIn(complaint, done.stderr)
                    self.assertEqual(done.stdout, "")
            self.assertEqual(onu.requests, [])

    def test_connect_is_checked(self):
        for connect in ("127.0.0.1", "127.0.0.1:0", "127.0.0.1:70000", ":5000"):
            with self.subTest(connect=connect):
                done = self.run_program([OMCI_OLT, "--connect", connect, "mib-reset"], 2)
                self.assertIn("--connect", done.stderr)
        self.assertIn("--connect", self.run_program([OMCI_OLT, "mib-reset"], 2).stderr)

    def test_help_and_version(self):
        text = self.run_program([OMCI_OLT, "--help"]).stdout
        for expected in ("Exit codes:", "Examples:", "mib-upload", "--mic"):
            self.assertIn(expected, text)
        self.assertIn("ATTRIBUTE=VALUE", self.run_program([OMCI_OLT, "create", "--help"]).stdout)
        self.assertRegex(self.run_program([OMCI_OLT, "--version"]).stdout, r"^omci-olt \d+\.\d+\.\d+\n$")

    def test_errors_are_objects_with_json(self):
        answer = self.json_of(self.run_program([OMCI_OLT, "--json", "get", "OnuX", "0"], 2))
        self.assertEqual(answer["exit_code"], 2)
        self.assertIn("OnuX", answer["error"])

    def test_catalogue_of_this_program(self):
        self.assertEqual(len(self.run_program([OMCI_OLT, "classes"]).stdout.splitlines()), 116)
        self.assertIn("BatteryBackup", self.run_program([OMCI_OLT, "classes", "ONU-G"]).stdout)


if __name__ == "__main__":
    unittest.main()
