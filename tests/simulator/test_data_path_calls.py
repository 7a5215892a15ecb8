"""Each call on the data path as the hardware log writes it, brought about by frames."""

import struct
import unittest

from data_path import (BRIDGE, BRIDGE_PORT, EXTENDED_VLAN_TAGGING, GEM_INTERWORKING_TP, IP_HOST, MAPPER,
                       MULTICAST_GEM_INTERWORKING_TP, NO_TP, ON_UNI, PPTP_ETHERNET_UNI, T_CONT, TO_MAPPER, TO_UNI, UNI,
                       VEIP, VEIP_INSTANCE, VLAN_FILTER, DataPathTest, entity, translation)
from onu_sim import CREATE, DELETE, GET, MIB_RESET

PPTP_VIDEO_UNI, PPTP_VIDEO_ANI, ONU_G, ONU_DATA, MEP = 82, 90, 256, 2, 302
VIDEO_UNI, VIDEO_ANI = 0x401, 0x501


class DataPathCalls(DataPathTest):
    def states(self, call):
        read = self.last_call(call)["read"]
        return read["administrative"], read["operational"]

    def test_the_mib_reset_clears_the_data_path(self):
        self.assertEqual([("resetDataPathConfiguration",)],
                         self.calls(lambda: self.send(MIB_RESET, ONU_DATA, 0, b""))[-1:])

    def test_bridge_ports_come_as_entities_and_go_as_instance_numbers(self):
        self.bridge()
        self.assertEqual([("provisionBridgePort", entity(BRIDGE_PORT, 5))],
                         self.calls(lambda: self.bridge_port(5, TO_UNI, UNI)))
        self.assertEqual([("removeBridgePortService", 5), ("removeUniService", entity(PPTP_ETHERNET_UNI, UNI))],
                         self.calls(lambda: self.delete(BRIDGE_PORT, 5)))
        self.assertEqual((1, 1), self.states("removeUniService"))

    def test_a_port_of_a_mapper_takes_the_mappers_tps_along(self):
        self.bridge()
        self.mapper(7)
        self.bridge_port(5, TO_MAPPER, 7)
        self.assertEqual([("removeBridgePortService", 5), ("removeMapperInterworkingTps", entity(MAPPER, 7), NO_TP)],
                         self.calls(lambda: self.delete(BRIDGE_PORT, 5)))

    def test_a_mapper_is_provisioned_and_goes_under_its_own_number(self):
        self.mapper(7)
        self.assertEqual([("provisionMapper", entity(MAPPER, 7))], self.calls(lambda: self.mapper_pointer(7, 2, 9)))
        self.assertEqual([("removeBridgePortService", 7)], self.calls(lambda: self.delete(MAPPER, 7)))

    def test_gem_interworking_tps_come_and_go_as_entities(self):
        tp = entity(GEM_INTERWORKING_TP, 9)
        self.assertEqual([("provisionGemInterworkingTp", tp)], self.calls(lambda: self.gem_interworking_tp(9, 1)))
        self.assertEqual([("removeGemInterworkingTp", tp)],
                         self.calls(lambda: self.delete(GEM_INTERWORKING_TP, 9)))

    def test_a_multicast_gem_interworking_tp_waits_for_its_first_group(self):
        tp = entity(MULTICAST_GEM_INTERWORKING_TP, 9)
        self.assertEqual([], self.calls(lambda: self.multicast_gem_interworking_tp(9, 1)))
        self.assertEqual([("provisionMulticastGemInterworkingTp", tp)],
                         self.calls(lambda: self.set(MULTICAST_GEM_INTERWORKING_TP, 9, 0x80, bytes(11) + b"\1")))
        self.assertEqual([("removeMulticastGemInterworkingTp", tp)],
                         self.calls(lambda: self.delete(MULTICAST_GEM_INTERWORKING_TP, 9)))

    def test_a_t_cont_goes_when_its_alloc_id_does(self):
        self.assertEqual([], self.calls(lambda: self.t_cont(0x100, 1024)))
        self.assertEqual([("removeTCont", entity(T_CONT, 0x100))], self.calls(lambda: self.t_cont(0x100, 0xFFFF)))

    def test_an_unlocked_uni_is_enabled_before_its_service(self):
        self.bridge()
        self.bridge_port(5, TO_UNI, UNI)
        uni, port = entity(PPTP_ETHERNET_UNI, UNI), entity(BRIDGE_PORT, 5)
        self.assertEqual([("findMacBridgePortByTp", 1, UNI, port), ("setUniAdminState", UNI, 0),
                          ("provisionUniService", uni)],
                         self.calls(lambda: self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 0)))
        self.assertEqual((0, 1), self.states("provisionUniService"))
        self.assertEqual([("findMacBridgePortByTp", 1, UNI, port), ("removeUniService", uni),
                          ("setUniAdminState", UNI, 1)],
                         self.calls(lambda: self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 1)))
        self.assertEqual((1, 1), self.states("setUniAdminState"))

    def test_a_uni_without_a_bridge_port_is_not_found(self):
        self.assertEqual([("findMacBridgePortByTp", 1, UNI, None), ("setUniAdminState", UNI, 0)],
                         self.calls(lambda: self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 0)))

    def test_autodetection_takes_instance_and_value(self):
        self.assertEqual([("setUniAutodetection", UNI, 0x30)],
                         self.calls(lambda: self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x2000, 0x30)))
        self.assertEqual((1, 1), self.states("setUniAutodetection"))

    def test_live_values_of_a_uni_are_asked_for_with_the_action(self):
        self.assertEqual([("getUniOperationalState", 9, UNI), ("getUniLinkSpeed", 9, UNI), ("getUniDuplex", 9, UNI)],
                         self.calls(lambda: self.send(GET, PPTP_ETHERNET_UNI, UNI, b"\x06\x00")))

    def test_the_first_rule_replaces_a_unis_service_with_an_evc(self):
        uni = entity(PPTP_ETHERNET_UNI, UNI)
        self.tagging(1, ON_UNI, UNI)
        self.assertEqual([("removeUniService", uni), ("provisionUniService", uni),
                          ("provisionEvcAndEvcMap", "OMCI_200", 200, "OMCI_100_8", 100, 8, False, True)],
                         self.calls(lambda: self.tagging_row(1, translation(100, 200))))
        self.assertEqual([("removeUniService", uni)], self.calls(lambda: self.delete(EXTENDED_VLAN_TAGGING, 1)))

    def test_a_veip_comes_and_goes_with_its_states(self):
        veip = entity(VEIP, VEIP_INSTANCE)
        self.assertEqual([("removeVeip", veip)], self.calls(lambda: self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 1)))
        self.assertEqual((1, 1), self.states("removeVeip"))
        self.assertEqual([("provisionVeip", veip)], self.calls(lambda: self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 0)))
        self.assertEqual((0, 1), self.states("provisionVeip"))

    def test_video_output_is_on_when_both_ends_are_unlocked(self):
        self.assertEqual([("setVideoAdminState", VIDEO_UNI, 1)],
                         self.calls(lambda: self.set_u8(PPTP_VIDEO_UNI, VIDEO_UNI, 0x8000, 1)))
        self.assertEqual([("setVideoAdminState", VIDEO_UNI, 0)],
                         self.calls(lambda: self.set_u8(PPTP_VIDEO_UNI, VIDEO_UNI, 0x8000, 0)))
        self.assertEqual((0, 1), self.states("setVideoAdminState"))
        self.assertEqual([("setVideoAdminState", VIDEO_ANI, 1)],
                         self.calls(lambda: self.set_u8(PPTP_VIDEO_ANI, VIDEO_ANI, 0x8000, 1)))

    def test_a_filter_finds_the_port_of_its_number(self):
        self.bridge()
        self.bridge_port(5, TO_UNI, UNI)
        port = entity(BRIDGE_PORT, 5)
        self.assertEqual([("findMacBridgePortByTp", 5, 5, port), ("provisionBridgePort", port)],
                         self.calls(lambda: self.vlan_filter(5, [100])))
        self.assertEqual([("removeBridgePortService", 5)], self.calls(lambda: self.delete(VLAN_FILTER, 5)))
        self.assertEqual([("findMacBridgePortByTp", 5, 6, None)],
                         self.calls(lambda: self.create(VLAN_FILTER, 6, bytes(24) + b"\x10\1", result=3)))

    def test_an_ip_hosts_port_is_found_by_key_kind_4(self):
        host = self.ask(instances=True)["result"][str(IP_HOST)][0]
        self.tagging(1, 3, host)
        self.assertEqual([("findMacBridgePortByTp", 4, host, None)],
                         self.calls(lambda: self.tagging_row(1, translation(100, 200))))

    def test_the_lock_of_the_onu_reaches_every_gem_port(self):
        self.gem_port(1, 1001)
        self.gem_port(2, 4094)
        self.gem_interworking_tp(9, 1)
        self.multicast_gem_interworking_tp(10, 2)
        calls = self.calls(lambda: self.set_u8(ONU_G, 0, 0x0200, 1))
        self.assertEqual([("setGemPortAdminState", 9, 1001, 1), ("setGemPortAdminState", 10, 4094, 1)],
                         [call for call in calls if call[0] == "setGemPortAdminState"])

    def test_a_mep_resolves_the_port_and_its_bridge(self):
        self.bridge(7)
        self.bridge_port(5, TO_UNI, UNI, bridge=7)
        calls = self.calls(lambda: self.simulator.omci(CREATE, MEP, 1, struct.pack(">HBHHB", 5, 0, 1, 1, 0)))
        self.assertEqual({("resolveDot1agLayer2Entity", 5, 0, 7)}, set(calls))

    def test_deleting_in_the_wrong_order_names_what_is_left(self):
        self.bridge()
        self.mapper(7)
        self.bridge_port(5, TO_MAPPER, 7)
        self.delete(MAPPER, 7)
        self.delete(BRIDGE, 1)
        calls = self.calls(lambda: self.simulator.omci(DELETE, BRIDGE_PORT, 5))
        self.assertEqual([("removeBridgePortService", 5)], calls)


if __name__ == "__main__":
    unittest.main()
