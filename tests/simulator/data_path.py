"""An OLT's hands on the layer-2 data path of onu-sim: entities as they are created and set over frames."""

import struct

from onu_sim import CREATE, DELETE, SET, OnuSimTest

PPTP_ETHERNET_UNI, BRIDGE, BRIDGE_PORT, VLAN_FILTER, MAPPER = 11, 45, 47, 84, 130
IP_HOST, EXTENDED_VLAN_TAGGING, T_CONT, GEM_INTERWORKING_TP, GEM_PORT = 134, 171, 262, 266, 268
MULTICAST_GEM_INTERWORKING_TP, MULTICAST_PROFILE, MULTICAST_SUBSCRIBER, VEIP = 281, 309, 310, 329
UNI, VEIP_INSTANCE, NO_TP = 0x101, 0x201, 65535
TO_UNI, TO_MAPPER, TO_IP_HOST, TO_GEM, TO_MULTICAST, TO_VEIP = 1, 3, 4, 5, 6, 11
ON_BRIDGE_PORT, ON_MAPPER, ON_UNI, ON_IP_HOST, ON_VEIP = 0, 1, 2, 3, 10
TAGGING_TABLE = 0x0400


def vlan_row(outer=(15, 4096, 0), inner=(15, 4096, 0), ethertype=0, remove=0, add_outer=(15, 0, 0),
             add_inner=(15, 0, 0)):
    """Tags are priority, VID, TPID/DE."""
    def tag(priority, vid, tpid):
        return priority << 28 | vid << 15 | tpid << 12

    def treatment(priority, vid, tpid):
        return priority << 16 | vid << 3 | tpid

    return struct.pack(">IIII", tag(*outer), tag(*inner) | ethertype, remove << 30 | treatment(*add_outer),
                       treatment(*add_inner))


def translation(vid, new_vid, priority=8):
    """Single-tagged frames of a VID leave with another."""
    return vlan_row(inner=(priority, vid, 0), remove=1, add_inner=(priority, new_vid, 0))


def unset(row):
    """The row that takes out the first rule with the same filter."""
    return row[:8] + b"\xff" * 8


class DataPathTest(OnuSimTest):
    """Each step is one frame that has to succeed."""

    log_level = 0

    def setUp(self):
        super().setUp()
        self.simulator = self.start(log_level=self.log_level)

    def send(self, message, entity_class, instance, contents, result=0):
        self.assertEqual(result, self.simulator.omci(message, entity_class, instance, contents)[0])

    def create(self, entity_class, instance, contents=b"", result=0):
        self.send(CREATE, entity_class, instance, contents, result)

    def set(self, entity_class, instance, mask, contents, result=0):
        self.send(SET, entity_class, instance, struct.pack(">H", mask) + contents, result)

    def delete(self, entity_class, instance, result=0):
        self.send(DELETE, entity_class, instance, b"", result)

    def set_u8(self, entity_class, instance, mask, value, result=0):
        self.set(entity_class, instance, mask, bytes([value]), result)

    def set_u16(self, entity_class, instance, mask, value, result=0):
        self.set(entity_class, instance, mask, struct.pack(">H", value), result)

    def bridge(self, instance=1):
        self.create(BRIDGE, instance, bytes(10))

    def bridge_port(self, instance, tp_type, tp_pointer, bridge=1):
        self.create(BRIDGE_PORT, instance, struct.pack(">HBBHHHBBBB", bridge, instance & 0xFF, tp_type, tp_pointer,
                                                       0, 0, 0, 0, 0, 0))

    def mapper(self, instance, pointers=None, unmarked=0, default_pbit=0):
        """`pointers`: p-bit to interworking TP."""
        tps = [(pointers or {}).get(pbit, NO_TP) for pbit in range(8)]
        self.create(MAPPER, instance, struct.pack(">9HBBB", NO_TP, *tps, unmarked, default_pbit, 0))

    def mapper_pointer(self, instance, pbit, tp):
        self.set_u16(MAPPER, instance, 0x4000 >> pbit, tp)

    def vlan_filter(self, port, vids, forward=0x10):
        self.create(VLAN_FILTER, port, struct.pack(">12H", *vids, *[0] * (12 - len(vids)))
                    + bytes([forward, len(vids)]))

    def tagging(self, instance, association, pointer, *rows):
        self.create(EXTENDED_VLAN_TAGGING, instance, struct.pack(">BH", association, pointer))
        for row in rows:
            self.tagging_row(instance, row)

    def tagging_row(self, instance, row, result=0):
        self.set(EXTENDED_VLAN_TAGGING, instance, TAGGING_TABLE, row, result)

    def t_cont(self, instance, alloc_id):
        self.set_u16(T_CONT, instance, 0x8000, alloc_id)

    def gem_port(self, instance, port_id, t_cont=0, direction=3, queue=0):
        self.create(GEM_PORT, instance, struct.pack(">HHBHHHHB", port_id, t_cont, direction, queue, 0, 0, 0, 0))

    def gem_interworking_tp(self, instance, gem_port, option=5, service_profile=0):
        self.create(GEM_INTERWORKING_TP, instance, struct.pack(">HBHHBH", gem_port, option, service_profile, 0, 0, 0))

    def multicast_gem_interworking_tp(self, instance, gem_port):
        self.create(MULTICAST_GEM_INTERWORKING_TP, instance, struct.pack(">HBHHHB", gem_port, 0, 0, 0, 0, 0))

    def ask(self, **request):
        return self.simulator.ask(request)

    def last_call(self, name):
        return self.simulator.hardware_calls(name)[-1]

    def calls(self, action):
        """The calls that the action brings, in order of their beginning, as name and arguments."""
        before = len(self.simulator.hardware_calls())
        action()
        lines = sorted(self.simulator.hardware_calls()[before:], key=lambda line: line["n"])
        return [(line["call"], *line["args"]) for line in lines]


def entity(entity_class, instance):
    return {"class": entity_class, "instance": instance}
