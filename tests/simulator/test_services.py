"""The services that the simulated data path says it serves, as an OLT builds them and takes them down."""

import random
import struct
import unittest

from data_path import (BRIDGE, BRIDGE_PORT, EXTENDED_VLAN_TAGGING, GEM_INTERWORKING_TP, GEM_PORT, MAPPER,
                       MULTICAST_GEM_INTERWORKING_TP, NO_TP, ON_BRIDGE_PORT, ON_MAPPER, ON_UNI, ON_VEIP,
                       PPTP_ETHERNET_UNI, T_CONT, TO_GEM, TO_MAPPER, TO_MULTICAST, TO_UNI, TO_VEIP, UNI, VEIP,
                       VEIP_INSTANCE, VLAN_FILTER, DataPathTest, translation, unset, vlan_row)
from onu_sim import CREATE, DELETE, MIB_RESET, SET

ONU_G, ONU_DATA = 256, 2
TRANSLATION = {"tags": 1, "inner": {"vid": 100}, "remove": 1,
               "add_inner": {"vid": 200, "priority": "inner", "tpid_de": 0}}


class ServicesTest(DataPathTest):
    def services(self):
        return self.ask(services=True)["result"]

    def one(self, kind, instance):
        """The entry of a port; None when there is none."""
        found = [entry for entry in self.services()[kind] if entry["instance"] == instance]
        self.assertLessEqual(len(found), 1)
        return found[0] if found else None

    def uni(self, instance=UNI):
        return self.one("ethernet_unis", instance)

    def port(self, instance):
        return self.one("bridge_ports", instance)

    def internet(self):
        """A UNI, port 2, and a mapper, port 1, on bridge 1; all p-bits on GEM port 1001 in T-CONT 0x100."""
        self.t_cont(0x100, 1024)
        self.gem_port(1, 1001, t_cont=0x100)
        self.bridge()
        self.mapper(1)
        self.gem_interworking_tp(1, 1, service_profile=1)
        self.set(MAPPER, 1, 0x7F80, struct.pack(">8H", *[1] * 8))
        self.bridge_port(1, TO_MAPPER, 1)
        self.bridge_port(2, TO_UNI, UNI)
        self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 0)

    GEM = {"port_id": 1001, "direction": "both", "pbits": list(range(8)), "t_cont": 0x100, "alloc_id": 1024,
           "unlocked": True, "interworking_tp": 1, "gem_port": 1}


class Services(ServicesTest):
    def test_an_onu_without_services_says_so(self):
        self.assertEqual({"ethernet_unis": [], "veips": [], "bridge_ports": []}, self.services())
        self.assertIn("true", self.ask(services=False)["error"])

    def test_a_service_leads_from_the_uni_to_the_t_cont(self):
        self.internet()
        self.assertEqual({"instance": UNI, "unlocked": True, "provisioned": True, "bridge_ports": [2],
                          "vlan_rules": [], "gem_ports": [dict(self.GEM, via_port=1)]}, self.uni())
        self.assertEqual({"instance": 1, "bridge": 1, "tp_type": TO_MAPPER, "tp_pointer": 1, "unlocked": True,
                          "untagged_pbit": "dscp", "vlan_rules": [], "gem_ports": [self.GEM]}, self.port(1))
        self.assertEqual({"instance": 2, "bridge": 1, "tp_type": TO_UNI, "tp_pointer": UNI, "unlocked": True,
                          "vlan_rules": [], "gem_ports": [dict(self.GEM, via_port=1)]}, self.port(2))

    def test_rules_of_a_uni_come_and_go_with_its_service(self):
        self.internet()
        self.tagging(1, ON_UNI, UNI, translation(100, 200))
        self.assertEqual([TRANSLATION], self.uni()["vlan_rules"])
        self.tagging_row(1, unset(translation(100, 0)))
        self.assertEqual(([], True), (self.uni()["vlan_rules"], self.uni()["provisioned"]))
        self.tagging_row(1, translation(100, 200))
        self.delete(EXTENDED_VLAN_TAGGING, 1)
        self.assertEqual(([], False), (self.uni()["vlan_rules"], self.uni()["provisioned"]))

    def test_rules_say_what_they_ask_for_and_what_they_do(self):
        untagged = vlan_row(ethertype=2, add_inner=(0, 100, 6))
        two_tags = vlan_row(outer=(3, 7, 4), inner=(8, 4096, 5), remove=2, add_outer=(9, 4097, 1),
                            add_inner=(10, 4096, 3))
        discard = vlan_row(inner=(14, 4096, 0), remove=3)
        self.tagging(1, ON_UNI, UNI, untagged, two_tags, discard)
        self.assertEqual(
            [{"tags": 0, "ethertype": "PPPoE", "remove": 0, "add_inner": {"vid": 100, "priority": 0, "tpid_de": 6}},
             {"tags": 2, "outer": {"priority": 3, "vid": 7, "tpid_de": 4}, "inner": {"tpid_de": 5}, "remove": 2,
              "add_outer": {"vid": "outer", "priority": "outer", "tpid_de": 1},
              "add_inner": {"vid": "inner", "priority": "dscp", "tpid_de": 3}},
             {"tags": 1, "inner": {"default": True}, "discard": True}], self.uni()["vlan_rules"])

    def test_rules_of_a_bridge_port_are_read_with_the_port_and_what_is_behind_it(self):
        self.internet()
        self.tagging(1, ON_BRIDGE_PORT, 2, translation(100, 200))
        self.assertEqual([TRANSLATION], self.port(2)["vlan_rules"])
        self.tagging(2, ON_MAPPER, 1, translation(100, 200))
        self.assertEqual([], self.port(1)["vlan_rules"])
        self.vlan_filter(1, [100])
        self.assertEqual([TRANSLATION], self.port(1)["vlan_rules"])

    def test_a_veip_is_served_while_it_is_unlocked(self):
        self.internet()
        self.bridge_port(3, TO_VEIP, VEIP_INSTANCE)
        self.tagging(1, ON_VEIP, VEIP_INSTANCE, translation(100, 200))
        self.assertIsNone(self.one("veips", VEIP_INSTANCE))
        self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 0)
        self.assertEqual({"instance": VEIP_INSTANCE, "unlocked": True, "provisioned": True, "bridge_ports": [3],
                          "vlan_rules": [TRANSLATION], "gem_ports": [dict(self.GEM, via_port=1)]},
                         self.one("veips", VEIP_INSTANCE))
        self.assertTrue(self.port(3)["unlocked"])
        self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 1)
        veip = self.one("veips", VEIP_INSTANCE)
        self.assertEqual((False, False, []), (veip["unlocked"], veip["provisioned"], veip["vlan_rules"]))

    def test_a_locked_uni_keeps_its_bridge_port(self):
        self.internet()
        self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 1)
        self.assertEqual((False, False), (self.uni()["unlocked"], self.uni()["provisioned"]))
        self.assertFalse(self.port(2)["unlocked"])
        self.assertTrue(self.port(1)["unlocked"])

    def test_p_bits_move_with_the_mappers_pointers(self):
        self.internet()
        self.gem_port(2, 1002, t_cont=0x101)
        self.t_cont(0x101, 1025)
        self.gem_interworking_tp(2, 2, service_profile=1)
        self.mapper_pointer(1, 5, 2)
        self.mapper_pointer(1, 7, NO_TP)
        voice = {"port_id": 1002, "direction": "both", "pbits": [5], "t_cont": 0x101, "alloc_id": 1025,
                 "unlocked": True, "interworking_tp": 2, "gem_port": 2}
        self.assertEqual([dict(self.GEM, pbits=[0, 1, 2, 3, 4, 6]), voice], self.port(1)["gem_ports"])

    def test_a_vlan_filter_counts_once_its_number_of_entries_is_set(self):
        self.internet()
        self.vlan_filter(1, [100, 0x600A])
        expected = {"forward_operation": 16, "tcis": [100, 0x600A]}
        self.assertEqual(expected, self.port(1)["vlan_filter"])
        self.set(VLAN_FILTER, 1, 0x8000, struct.pack(">12H", 7, *[0] * 11))
        self.assertEqual(expected, self.port(1)["vlan_filter"])
        self.set_u8(VLAN_FILTER, 1, 0x2000, 255)
        self.assertEqual([7] + [0] * 11, self.port(1)["vlan_filter"]["tcis"])
        self.delete(VLAN_FILTER, 1)
        self.assertIsNone(self.port(1))

    def test_an_alloc_id_counts_once_a_gem_service_is_provisioned(self):
        self.internet()
        self.t_cont(0x100, 2000)
        self.assertEqual(1024, self.port(1)["gem_ports"][0]["alloc_id"])
        self.bridge_port(3, TO_MAPPER, 1)
        self.assertEqual(2000, self.port(1)["gem_ports"][0]["alloc_id"])
        self.t_cont(0x100, 0xFF)
        self.assertIsNone(self.port(1)["gem_ports"][0]["alloc_id"])

    def test_multicast_comes_down_on_the_side(self):
        self.internet()
        self.gem_port(3, 4000, direction=2)
        self.multicast_gem_interworking_tp(3, 3)
        self.bridge_port(3, TO_MULTICAST, 3)
        self.assertEqual(["multicast GEM interworking TP 3"], self.port(3)["missing"])
        self.set(MULTICAST_GEM_INTERWORKING_TP, 3, 0x80, bytes(11) + b"\1")
        multicast = {"port_id": 4000, "direction": "downstream", "multicast": True, "unlocked": True,
                     "interworking_tp": 3, "gem_port": 3}
        self.assertEqual([multicast], self.port(3)["gem_ports"])
        self.assertNotIn("missing", self.port(3))
        self.assertEqual([dict(self.GEM, via_port=1), dict(multicast, via_port=3)], self.uni()["gem_ports"])
        self.delete(MULTICAST_GEM_INTERWORKING_TP, 3)
        self.assertEqual([], self.port(3)["gem_ports"])

    def test_a_port_on_a_gem_interworking_tp_takes_all_p_bits(self):
        self.internet()
        self.bridge_port(3, TO_GEM, 1)
        self.assertEqual([self.GEM], self.port(3)["gem_ports"])

    def test_a_mapper_may_serve_a_uni_without_a_bridge(self):
        self.internet()
        self.mapper(9)
        self.set(MAPPER, 9, 0x8008, struct.pack(">HB", UNI + 1, 1))
        self.set_u8(PPTP_ETHERNET_UNI, UNI + 1, 0x800, 0)
        self.mapper_pointer(9, 2, 1)
        uni = self.uni(UNI + 1)
        self.assertEqual(([], [dict(self.GEM, pbits=[2])]), (uni["bridge_ports"], uni["gem_ports"]))

    def test_the_lock_of_the_onu_locks_the_gem_ports(self):
        self.internet()
        self.set_u8(ONU_G, 0, 0x0200, 1)
        self.assertFalse(self.port(1)["gem_ports"][0]["unlocked"])
        self.bridge_port(3, TO_MAPPER, 1)
        self.assertFalse(self.port(3)["gem_ports"][0]["unlocked"])
        self.set_u8(ONU_G, 0, 0x0200, 0)
        self.assertTrue(self.port(1)["gem_ports"][0]["unlocked"])

    def test_untagged_frames_take_the_mappers_default_p_bit(self):
        self.bridge()
        self.mapper(4, unmarked=1, default_pbit=6)
        self.bridge_port(4, TO_MAPPER, 4)
        self.assertEqual(6, self.port(4)["untagged_pbit"])

    def test_ports_stand_in_order_of_instance(self):
        self.bridge()
        for instance in (9, 3, 7):
            self.bridge_port(instance, TO_UNI, UNI)
        self.assertEqual([3, 7, 9], [port["instance"] for port in self.services()["bridge_ports"]])

    def test_hardware_that_throws_has_done_nothing(self):
        self.bridge()
        self.ask(hardware={"throw": ["provisionBridgePort"]})
        self.simulator.omci(CREATE, BRIDGE_PORT, 5, struct.pack(">HBBH", 1, 5, TO_UNI, UNI))
        self.assertIsNone(self.port(5))

    def test_without_the_interface_nothing_is_learnt(self):
        self.internet()
        before = self.services()
        self.ask(hardware={"interface": False})
        self.bridge_port(7, TO_UNI, UNI)
        self.assertEqual(before, self.services())


class BrokenServices(ServicesTest):
    """Pointers that lead nowhere, deletion in the wrong order, resets: the model stays true and the program alive."""

    def test_dangling_pointers_are_missing_in_words(self):
        self.bridge_port(1, TO_MAPPER, 9, bridge=1)
        self.bridge_port(2, TO_UNI, 999, bridge=1)
        self.bridge_port(3, TO_GEM, 8, bridge=1)
        self.mapper(7)
        self.bridge_port(4, TO_MAPPER, 7, bridge=1)
        self.mapper_pointer(7, 0, 6)
        self.gem_interworking_tp(5, 44)
        self.mapper_pointer(7, 1, 5)
        self.gem_port(45, 1001, t_cont=0x999)
        self.gem_interworking_tp(4, 45)
        self.mapper_pointer(7, 2, 4)
        self.assertEqual(["802.1p mapper 9"], self.port(1)["missing"])
        self.assertEqual(["GEM interworking TP 8"], self.port(3)["missing"])
        self.assertEqual(["GEM interworking TP 6", "GEM port network CTP 44", f"T-CONT {0x999}"],
                         self.port(4)["missing"])
        self.assertEqual(["MAC bridge service profile 1", "802.1p mapper 9", "GEM interworking TP 8",
                          "GEM interworking TP 6", "GEM port network CTP 44", f"T-CONT {0x999}"],
                         self.port(2)["missing"])
        self.assertEqual([{"port_id": 1001, "direction": "both", "pbits": [2], "t_cont": 0x999, "alloc_id": None,
                           "unlocked": True, "interworking_tp": 4, "gem_port": 45}], self.port(4)["gem_ports"])

    def test_pointers_in_a_circle_end(self):
        self.bridge()
        self.mapper(1)
        self.set(MAPPER, 1, 0x8008, struct.pack(">HB", UNI, 1))
        self.gem_interworking_tp(1, 1, service_profile=1)
        self.gem_port(1, 1001)
        self.bridge_port(1, TO_MAPPER, 1)
        self.bridge_port(2, TO_UNI, UNI)
        self.mapper_pointer(1, 0, 1)
        self.set_u8(PPTP_ETHERNET_UNI, UNI, 0x800, 0)
        # Once through the bridge, once through the mapper.
        self.assertEqual(2, len(self.uni()["gem_ports"]))

    def test_deletion_in_the_wrong_order_leaves_what_the_hardware_was_not_told_of(self):
        self.internet()
        self.delete(GEM_PORT, 1)
        self.assertEqual([self.GEM], self.port(1)["gem_ports"])
        self.delete(GEM_INTERWORKING_TP, 1)
        self.assertEqual(["GEM interworking TP 1"], self.port(1)["missing"])
        self.delete(BRIDGE, 1)
        self.delete(BRIDGE_PORT, 1)
        self.assertIsNone(self.port(1))
        self.assertEqual([], self.port(2)["gem_ports"])
        self.delete(MAPPER, 1)
        self.delete(BRIDGE_PORT, 2)
        self.assertEqual([], self.services()["bridge_ports"])
        self.assertEqual(([], False), (self.uni()["bridge_ports"], self.uni()["provisioned"]))

    def test_a_deleted_mapper_takes_its_p_bits_along(self):
        self.internet()
        self.delete(BRIDGE_PORT, 1)
        self.delete(MAPPER, 1)
        self.bridge_port(1, TO_MAPPER, 1)
        self.assertEqual((["802.1p mapper 1"], []), (self.port(1)["missing"], self.port(1)["gem_ports"]))

    def test_a_mib_reset_in_the_middle_ends_all_services(self):
        self.internet()
        self.tagging(1, ON_UNI, UNI, translation(100, 200))
        self.send(MIB_RESET, ONU_DATA, 0, b"")
        self.assertEqual({"ethernet_unis": [], "veips": [], "bridge_ports": []}, self.services())
        self.internet()
        self.assertEqual([dict(self.GEM, via_port=1)], self.uni()["gem_ports"])

    def test_resets_of_the_onus_own_and_restarts_end_all_services(self):
        for request in ({"mib-reset": True}, {"reboot": True}):
            self.internet()
            self.assertIn("result", self.simulator.ask(request))
            self.assertEqual({"ethernet_unis": [], "veips": [], "bridge_ports": []}, self.services())

    def test_300_rules_are_all_served_and_all_can_be_unset(self):
        rules = [translation(vid, vid + 1000) for vid in range(1, 301)]
        self.tagging(1, ON_VEIP, VEIP_INSTANCE, *rules)
        self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 0)
        self.assertEqual(list(range(1, 301)), self.vids_of_veip())
        for row in rules[1:]:
            self.tagging_row(1, unset(row))
        self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 0)
        self.assertEqual([1], self.vids_of_veip())

    def vids_of_veip(self):
        return [rule["inner"]["vid"] for rule in self.one("veips", VEIP_INSTANCE)["vlan_rules"]]

    def test_without_hardware_a_service_is_built_and_taken_down_all_the_same(self):
        self.ask(hardware={"interface": False})
        self.internet()
        self.tagging(1, ON_UNI, UNI, translation(100, 200), unset(translation(100, 0)), unset(translation(7, 0)),
                     bytes(16))
        self.set_u8(VEIP, VEIP_INSTANCE, 0x8000, 0)
        self.t_cont(0x100, 0xFF)
        for entity_class, instance in ((GEM_PORT, 1), (MAPPER, 1), (BRIDGE, 1), (BRIDGE_PORT, 1),
                                       (GEM_INTERWORKING_TP, 1), (EXTENDED_VLAN_TAGGING, 1), (BRIDGE_PORT, 2)):
            self.delete(entity_class, instance)
        self.send(MIB_RESET, ONU_DATA, 0, b"")
        self.assertEqual(0, self.ask(statistics=True)["result"]["exceptions"])

    def anything(self, chance):
        """One frame of an OLT that has lost its way; whatever the answer."""
        def instance():
            return chance.randrange(1, 5)

        def tp():
            return chance.choice([1, 2, 3, 4, UNI, VEIP_INSTANCE, NO_TP])

        mask = struct.pack(">H", chance.choice([0x4000, 0x2000, 0x0400, 0x0200, 0x0100]))
        row = chance.choice([translation(instance(), 5), unset(translation(instance(), 5)), bytes(16)])
        message, entity_class, target, contents = chance.choice([
            (CREATE, BRIDGE, instance(), bytes(17)),
            (CREATE, BRIDGE_PORT, instance(), struct.pack(">HBBH", instance(), 1, chance.choice([0, 1, 3, 4, 5, 6, 11]),
                                                          tp())),
            (CREATE, MAPPER, instance(), struct.pack(">9HBBB", tp(), *(tp() for _ in range(8)), 0, 0,
                                                     chance.choice([0, 1, 7]))),
            (SET, MAPPER, instance(), mask + struct.pack(">H", tp())),
            (CREATE, GEM_PORT, instance(), struct.pack(">HHB", 1000, 0x100 + instance(), instance())),
            (CREATE, GEM_INTERWORKING_TP, instance(), struct.pack(">HBHHBH", tp(), 5, tp(), tp(), 0, 1)),
            (CREATE, MULTICAST_GEM_INTERWORKING_TP, instance(), struct.pack(">HBH", tp(), 0, tp())),
            (SET, MULTICAST_GEM_INTERWORKING_TP, instance(), b"\0\x80" + bytes(12)),
            (CREATE, EXTENDED_VLAN_TAGGING, instance(), struct.pack(">BH", chance.randrange(12), tp())),
            (SET, EXTENDED_VLAN_TAGGING, instance(), b"\x04\0" + row),
            (CREATE, VLAN_FILTER, instance(), bytes(24) + b"\x10\x0c"),
            (SET, PPTP_ETHERNET_UNI, UNI, b"\x08\0" + bytes([chance.randrange(2)])),
            (SET, VEIP, VEIP_INSTANCE, b"\x80\0" + bytes([chance.randrange(2)])),
            (SET, T_CONT, 0x101, b"\x80\0" + struct.pack(">H", chance.choice([255, 1024, 65535]))),
            (DELETE, chance.choice([BRIDGE, BRIDGE_PORT, MAPPER, GEM_PORT, GEM_INTERWORKING_TP, VLAN_FILTER,
                                    MULTICAST_GEM_INTERWORKING_TP, EXTENDED_VLAN_TAGGING]), instance(), b""),
        ])
        self.simulator.omci(message, entity_class, target, contents)

    def test_an_olt_that_has_lost_its_way_breaks_nothing(self):
        chance = random.Random(4711)
        for step in range(600):
            self.anything(chance)
            if step % 100 == 99:
                services = self.services()
                ports = {port["instance"]: port for port in services["bridge_ports"]}
                self.assertEqual(sorted(ports), list(ports))
                for port in services["ethernet_unis"] + services["veips"]:
                    self.assertLessEqual(set(port["bridge_ports"]), set(ports))
                    for gem_port in port["gem_ports"]:
                        if "via_port" in gem_port:
                            behind = {name: value for name, value in gem_port.items() if name != "via_port"}
                            self.assertIn(behind, ports[gem_port["via_port"]]["gem_ports"])
            if step % 200 == 199:
                self.send(MIB_RESET, ONU_DATA, 0, b"")
        self.assertEqual(0, self.ask(statistics=True)["result"]["exceptions"])


class ServiceLines(ServicesTest):
    """What the program says on standard error."""

    log_level = 5

    def lines(self):
        self.ask(services=True)  # what the frames before it brought has been printed
        with open(self.simulator.error_output, encoding="utf-8") as file:
            return [line.split("logChanges: ")[1].strip() for line in file if "logChanges: " in line]

    def test_each_change_is_a_line(self):
        self.internet()
        gem = "GEM port 1001 (p-bits 0 to 7, T-CONT 256 alloc-ID 1024, direction both)"
        self.assertEqual([f"Bridge port 1: unlocked, VLAN rules 0, {gem}",
                          f"Bridge port 2: locked, VLAN rules 0, {gem}",
                          f"Bridge port 2: unlocked, VLAN rules 0, {gem}",
                          f"Ethernet UNI 257: unlocked, not provisioned, VLAN rules 0, {gem}",
                          f"Ethernet UNI 257: unlocked, VLAN rules 0, {gem}"], self.lines())

    def test_what_changes_nothing_is_no_line(self):
        self.internet()
        before = self.lines()
        self.bridge_port(9, 0, 0)
        self.set_u8(MAPPER, 1, 0x40, 0)
        self.assertEqual(before, self.lines())

    def test_other_rules_of_the_same_number_are_a_change(self):
        self.internet()
        self.tagging(1, ON_UNI, UNI, translation(100, 200))
        before = len(self.lines())
        self.tagging(2, ON_UNI, UNI + 1)
        self.set_u16(EXTENDED_VLAN_TAGGING, 1, 0x0200, UNI + 1)
        self.set_u16(EXTENDED_VLAN_TAGGING, 2, 0x0200, UNI)
        self.tagging_row(2, translation(101, 200))
        self.assertEqual(["Ethernet UNI 257: unlocked, not provisioned, VLAN rules 0",
                          "Ethernet UNI 257: unlocked, VLAN rules 1"],
                         [line[:line.index(", GEM")] for line in self.lines()[before:]])

    def test_an_end_is_a_line(self):
        self.internet()
        self.delete(BRIDGE_PORT, 1)
        self.assertEqual(["Bridge port 2: unlocked, VLAN rules 0", "Ethernet UNI 257: unlocked, VLAN rules 0",
                          "Bridge port 1: no service any more"], self.lines()[-3:])

    def test_p_bits_multicast_locks_and_what_is_missing_are_in_the_line(self):
        self.internet()
        self.mapper_pointer(1, 3, NO_TP)
        self.mapper_pointer(1, 4, 77)
        self.assertIn("p-bits [0,1,2,5,6,7]", self.lines()[-1])
        self.assertIn("missing GEM interworking TP 77", self.lines()[-1])
        self.t_cont(0x100, 0xFF)
        self.set_u8(ONU_G, 0, 0x0200, 1)
        self.assertIn("alloc-ID none, direction both, locked)", self.lines()[-1])
        self.gem_port(3, 4000, direction=2)
        self.bridge_port(3, TO_MULTICAST, 3)
        self.multicast_gem_interworking_tp(3, 3)
        self.set(MULTICAST_GEM_INTERWORKING_TP, 3, 0x80, bytes(11) + b"\1")
        self.assertIn("Bridge port 3: unlocked, VLAN rules 0, GEM port 4000 (multicast, direction downstream, locked)",
                      self.lines())


if __name__ == "__main__":
    unittest.main()
