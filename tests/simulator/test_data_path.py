"""What the simulated hardware reads of the MIB while the library provisions it, and questions about the VLAN table."""

import unittest

from data_path import (BRIDGE_PORT, EXTENDED_VLAN_TAGGING, IP_HOST, MAPPER, NO_TP, ON_BRIDGE_PORT, ON_IP_HOST, ON_UNI,
                       PPTP_ETHERNET_UNI, T_CONT, TO_GEM, TO_IP_HOST, TO_UNI, UNI, DataPathTest, entity, translation,
                       unset, vlan_row)

TRANSLATE = vlan_row(inner=(3, 100, 0), remove=1, add_inner=(4, 200, 0))
TRANSLATE_RECORD = {"FOP": 15, "FOV": 4096, "FOT": 0, "pad1": 0, "FIP": 3, "FIV": 100, "FIT": 0, "pad2": 0, "FET": 0,
                    "TTR": 1, "pad3": 0, "TOP": 15, "TOV": 0, "TOT": 0, "pad4": 0, "TIP": 4, "TIV": 200, "TIT": 0}
TRANSLATE_EVC = ["OMCI_200", 200, "OMCI_100_3", 100, 3, False, True]


class ReadsDuringACall(DataPathTest):
    def test_a_rule_on_a_uni_is_read_as_row_rule_and_evc(self):
        self.tagging(1, ON_UNI, UNI, TRANSLATE)
        call = self.last_call("provisionUniService")
        self.assertEqual([entity(PPTP_ETHERNET_UNI, UNI)], call["args"])
        self.assertEqual(["administrative", "operational", "rows", "newest", "rule", "evc"], list(call["read"]))
        self.assertEqual([TRANSLATE_RECORD], call["read"]["rows"])
        self.assertEqual(TRANSLATE_RECORD, call["read"]["newest"])
        rule = call["read"]["rule"]
        self.assertEqual((0x1F3C, 1, 3), (rule["ruleFlags"], rule["frameTagCount"], rule["tagAction"]))
        self.assertEqual(" 0" * 24, rule["dscpToPbitMapping"])
        self.assertNotIn("hostData", rule)
        self.assertEqual(0, call["read"]["evc"])
        evc = self.last_call("provisionEvcAndEvcMap")
        self.assertEqual(TRANSLATE_EVC, evc["args"])
        self.assertGreater(evc["n"], call["n"])

    def test_rows_are_in_order_of_arrival_and_the_newest_is_the_last(self):
        self.tagging(1, ON_UNI, UNI, translation(100, 200), translation(101, 201))
        read = self.last_call("provisionUniService")["read"]
        self.assertEqual([100, 101], [row["FIV"] for row in read["rows"]])
        self.assertEqual(101, read["newest"]["FIV"])
        self.tagging_row(1, unset(translation(101, 0)))
        read = self.last_call("provisionUniService")["read"]
        self.assertEqual(([100], 100), ([row["FIV"] for row in read["rows"]], read["newest"]["FIV"]))

    def test_without_rows_a_service_reads_the_states_alone(self):
        self.tagging(1, ON_UNI, UNI, TRANSLATE)
        self.tagging_row(1, unset(TRANSLATE))
        self.assertEqual(["administrative", "operational"], list(self.last_call("provisionUniService")["read"]))
        self.assertEqual(1, len(self.simulator.hardware_calls("provisionEvcAndEvcMap")))

    def test_a_rule_without_an_evc_makes_no_line_of_its_own(self):
        self.tagging(1, ON_UNI, UNI, vlan_row(inner=(8, 100, 0), remove=1))
        self.assertEqual(0, self.last_call("provisionUniService")["read"]["evc"])
        self.assertEqual([], self.simulator.hardware_calls("provisionEvcAndEvcMap"))

    def test_a_row_unset_without_a_match_leaves_no_rule_to_read(self):
        self.bridge()
        self.bridge_port(5, TO_UNI, UNI)
        self.tagging(1, ON_UNI, UNI, TRANSLATE, unset(translation(7, 7)))
        self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 0)
        read = self.last_call("provisionUniService")["read"]
        self.assertEqual(([TRANSLATE_RECORD], None), (read["rows"], read["rule"]))

    def test_an_entity_without_rows_does_not_hide_one_that_has_some(self):
        self.tagging(1, ON_UNI, UNI)
        self.tagging(2, ON_UNI, UNI, TRANSLATE)
        self.assertEqual([TRANSLATE_RECORD], self.last_call("provisionUniService")["read"]["rows"])

    def test_a_rule_on_a_bridge_port_is_read_with_the_port(self):
        self.bridge()
        self.bridge_port(5, TO_UNI, UNI)
        self.assertNotIn("read", self.last_call("provisionBridgePort"))
        self.tagging(1, ON_BRIDGE_PORT, 5, TRANSLATE)
        call = self.last_call("provisionBridgePort")
        self.assertEqual([entity(BRIDGE_PORT, 5)], call["args"])
        self.assertEqual(["rows", "newest", "rule", "evc"], list(call["read"]))
        self.assertEqual([TRANSLATE_RECORD], call["read"]["rows"])

    def test_a_rule_on_an_ip_host_is_read_with_the_port_behind_it(self):
        host = self.ask(instances=True)["result"][str(IP_HOST)][0]
        self.bridge()
        self.bridge_port(5, TO_IP_HOST, host)
        self.tagging(1, ON_IP_HOST, host, TRANSLATE)
        call = self.last_call("provisionBridgePort")
        self.assertEqual([entity(BRIDGE_PORT, 5)], call["args"])
        self.assertEqual([TRANSLATE_RECORD], call["read"]["rows"])

    def test_a_rule_of_another_port_is_not_read(self):
        self.bridge()
        self.bridge_port(5, TO_UNI, UNI)
        self.tagging(1, ON_BRIDGE_PORT, 5, TRANSLATE)
        self.bridge_port(6, TO_GEM, 5)
        self.assertNotIn("read", self.last_call("provisionBridgePort"))

    def test_a_mappers_old_pointers_are_read(self):
        self.mapper(3)
        self.mapper_pointer(3, 3, 5)
        call = self.last_call("provisionMapper")
        self.assertEqual([NO_TP, 8], [call["read"]["old"][3], len(call["read"]["old"])])
        self.mapper_pointer(3, 3, 7)
        call = self.last_call("removeMapperInterworkingTps")
        self.assertEqual([entity(MAPPER, 3), NO_TP], call["args"])
        self.assertEqual(5, call["read"]["old"][3])

    def test_a_deleted_port_reads_no_old_pointers_of_its_mapper(self):
        self.bridge()
        self.mapper(3)
        self.mapper_pointer(3, 3, 5)
        self.bridge_port(5, 3, 3)
        self.delete(BRIDGE_PORT, 5)
        self.assertEqual({"old": [NO_TP] * 8}, self.last_call("removeMapperInterworkingTps")["read"])

    def test_a_t_conts_old_alloc_id_is_read(self):
        self.t_cont(0x100, 300)
        self.t_cont(0x100, 0xFF)
        call = self.last_call("removeTCont")
        self.assertEqual([entity(T_CONT, 0x100)], call["args"])
        self.assertEqual({"alloc_id": 300}, call["read"])


class VlanQuestions(DataPathTest):
    def vlan(self, what, **more):
        return self.ask(vlan={"instance": 1, "what": what, **more})

    def test_a_missing_entity_and_unknown_questions_are_refused(self):
        self.assertIn("entity 1", self.vlan("row")["error"])
        self.tagging(1, ON_UNI, UNI)
        self.assertIn("row, rule, evc", self.vlan("teapot")["error"])
        self.assertIn("frame", self.vlan("evc", request=True)["error"])
        self.assertIn("request", self.vlan("evc", frame=TRANSLATE_RECORD)["error"])
        self.assertIn("FOP", self.vlan("evc", frame={"FOP": 256}, request=True)["error"])
        self.assertIn("teapot", self.vlan("evc", frame={"teapot": 1}, request=True)["error"])
        self.assertEqual([], self.simulator.hardware_calls("provisionEvcAndEvcMap"))

    def test_an_empty_table_has_neither_row_nor_rule(self):
        self.tagging(1, ON_UNI, UNI)
        self.assertEqual({"result": None}, self.vlan("row"))
        self.assertEqual(0, self.vlan("rule")["result"])
        self.assertEqual({"result": {"count": 0, "rows": []}}, self.vlan("table"))

    def test_row_rule_and_table_show_the_rules(self):
        self.tagging(1, ON_UNI, UNI, TRANSLATE)
        self.assertEqual({"result": TRANSLATE_RECORD}, self.vlan("row"))
        rule = self.vlan("rule")
        self.assertEqual((1, 3, 100), (rule["result"], rule["out"]["tagAction"], rule["out"]["FIV"]))
        self.assertEqual({"result": {"count": 1, "rows": [TRANSLATE_RECORD]}}, self.vlan("table"))

    def test_the_count_of_300_rules_is_the_librarys_own(self):
        self.tagging(1, ON_IP_HOST + 1, UNI, *(translation(vid, vid) for vid in range(1, 301)))
        table = self.vlan("table")["result"]
        self.assertEqual((44, 300), (table["count"], len(table["rows"])))
        self.assertEqual(300, self.vlan("row")["result"]["FIV"])

    def test_an_evc_is_provisioned_for_any_frame(self):
        self.tagging(1, ON_UNI, UNI)
        frame = dict(TRANSLATE_RECORD, TIV=201)
        self.assertEqual({"result": 0}, self.vlan("evc", frame=frame, request=False))
        self.assertEqual(["OMCI_201", 201, "OMCI_100_3", 100, 3, False, False],
                         self.last_call("provisionEvcAndEvcMap")["args"])

    def test_erase_empties_the_table_if_there_is_hardware(self):
        self.tagging(1, ON_UNI, UNI, TRANSLATE)
        self.ask(hardware={"interface": False})
        self.assertEqual({"result": False}, self.vlan("erase"))
        self.assertEqual(1, self.vlan("table")["result"]["count"])
        self.ask(hardware={"interface": True})
        self.assertEqual({"result": True}, self.vlan("erase"))
        self.assertEqual({"result": {"count": 0, "rows": []}}, self.vlan("table"))

    def test_an_entity_that_has_gone_cannot_be_asked(self):
        self.tagging(1, ON_UNI, UNI, TRANSLATE)
        self.delete(EXTENDED_VLAN_TAGGING, 1)
        self.assertIn("entity 1", self.vlan("table")["error"])


class NamedOperations(DataPathTest):
    def test_entities_can_be_asked_by_name(self):
        self.mapper(3)
        self.assertEqual({"result": 65535}, self.simulator.call("getOldInterworkingTpForPbit", 3, 8))
        self.assertIn("instance 4", self.simulator.call("getOldInterworkingTpForPbit", 4, 8)["error"])

    def test_the_state_of_the_download_lasts_until_a_restart(self):
        self.assertEqual({"result": -1}, self.simulator.call("updateSoftwareDownloadStatus", 16))
        self.assertEqual({"result": 0}, self.simulator.call("updateSoftwareDownloadStatus", 3))
        self.assertEqual({"result": 3}, self.simulator.call("getSoftwareDownloadStatus"))
        self.assertIn("DOWNLOAD IN PROGRESS", self.ask(show="software-download")["result"])
        self.ask(reboot=True)
        self.assertNotEqual({"result": 3}, self.simulator.call("getSoftwareDownloadStatus"))

    def test_the_port_of_an_ip_host_is_provisioned_on_request(self):
        host = self.ask(instances=True)["result"][str(IP_HOST)][0]
        self.bridge()
        self.bridge_port(5, TO_IP_HOST, host)
        before = len(self.simulator.hardware_calls("provisionBridgePort"))
        self.assertIn("result", self.simulator.call("layer2Provisioning", host))
        self.assertEqual(before + 1, len(self.simulator.hardware_calls("provisionBridgePort")))
        self.assertIn("instance 999", self.simulator.call("layer2Provisioning", 999)["error"])


if __name__ == "__main__":
    unittest.main()
