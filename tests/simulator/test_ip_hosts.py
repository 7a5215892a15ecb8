"""IP hosts of the simulated hardware."""

import struct
import unittest

from onu_sim import AVC, GET, MIB_RESET, OnuSimTest
from voice_service import IP_HOST, Provisioner

BRIDGE_PORT = 47


class IpHosts(OnuSimTest):
    ADDRESS, LEASE = bytes([10, 0, 0, 9]), bytes([192, 0, 2, 10])

    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.olt = Provisioner(self.simulator)
        self.simulator.omci(MIB_RESET, 2, 0)

    def hardware(self, **settings):
        self.assertEqual({"result": 0}, self.simulator.ask({"hardware": settings}))

    def connect(self, host=0, port=1):
        self.olt.create(BRIDGE_PORT, port, struct.pack(">HBBHHHBBB", 1, port, 4, host, 0, 0, 0, 0, 0))

    def configure(self, host=0):
        for mask, octets in ((0x0800, bytes([255, 255, 255, 0])), (0x1000, self.ADDRESS),
                             (0x0400, bytes([10, 0, 0, 1]))):
            self.olt.set(IP_HOST, host, mask, octets)

    def current(self, host=0):
        contents = self.simulator.omci(GET, IP_HOST, host, b"\x00\xe0")
        self.assertEqual(0, contents[0])
        return contents[3:7], contents[7:11], contents[11:15]

    def host(self, instance=0):
        return next(host for host in self.simulator.ask({"ip_hosts": True})["result"] if host["instance"] == instance)

    def changes(self):
        return self.simulator.hardware_calls("sendAttributeValueChange")

    def drain(self, count):
        """Takes that many notifications off the socket."""
        for _ in range(count):
            self.assertEqual(b"\0\0", self.simulator.udp.recv(2048)[:2])

    def test_stack_that_the_olt_has_not_enabled_reports_nothing(self):
        self.connect()
        before = len(self.changes())
        self.configure()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x01")
        self.olt.set(IP_HOST, 0, 0x8000, b"\x06")
        self.assertEqual(before, len(self.changes()))
        self.assertEqual((bytes(4), bytes(4), bytes(4)), self.current())
        self.assertEqual("off", self.host()["mode"])

    def test_static_address_is_reported_once_the_bridge_port_is_provisioned(self):
        self.connect()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x08")
        self.configure()
        self.drain(3)
        self.assertEqual(self.ADDRESS, self.current()[0])
        self.assertEqual({"instance": 0, "mode": "static", "bridge_port": 1, "address": "10.0.0.9",
                          "mask": "255.255.255.0", "gateway": "10.0.0.1"}, self.host())

    def test_dhcp_address_is_reported_and_goes_to_the_olt_as_a_value_change(self):
        self.connect()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x09")
        changed = b""
        while changed[2:4] != bytes([AVC, 0x0A]) or changed[4:8] != struct.pack(">HH", IP_HOST, 0):
            changed = self.simulator.udp.recv(2048)
        self.assertEqual(struct.pack(">H", 0x80) + self.LEASE, changed[8:14])
        for mask in (0x40, 0x20):
            self.assertEqual(struct.pack(">H", mask), self.simulator.udp.recv(2048)[8:10])
        self.assertEqual((self.LEASE, bytes([255, 255, 255, 0]), bytes([192, 0, 2, 1])), self.current())
        self.assertEqual("dhcp", self.host()["mode"])

    def test_lease_as_told_and_renewed(self):
        self.hardware(dhcp={"0": {"address": "10.1.1.5", "gateway": "10.1.1.1"}})
        self.connect()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x09")
        self.drain(3)
        self.assertEqual(bytes([10, 1, 1, 5]), self.current()[0])
        before = len(self.changes())
        self.hardware(dhcp={"0": {"address": "10.1.1.6"}})
        self.drain(1)
        self.assertEqual(bytes([10, 1, 1, 6]), self.current()[0])
        self.assertEqual(before + 1, len(self.changes()))

    def test_server_that_does_not_answer(self):
        self.hardware(dhcp={"0": False})
        self.connect()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x09")
        self.assertEqual(bytes(4), self.current()[0])
        self.assertEqual(("dhcp", "0.0.0.0"), (self.host()["mode"], self.host()["address"]))

    def test_second_host_has_its_own_address(self):
        self.connect(host=1, port=2)
        self.olt.set(IP_HOST, 1, 0x8000, b"\x09")
        self.drain(3)
        self.assertEqual(bytes([192, 0, 2, 11]), self.current(1)[0])
        self.assertEqual(bytes(4), self.current(0)[0])

    def test_address_goes_when_the_olt_disables_the_stack(self):
        self.connect()
        self.olt.set(IP_HOST, 0, 0x8000, b"\x08")
        self.configure()
        self.drain(3)
        self.olt.set(IP_HOST, 0, 0x8000, b"\x00")
        self.drain(3)
        self.assertEqual((bytes(4), bytes(4), bytes(4)), self.current())

    def test_wrong_question_is_refused(self):
        self.assertIn("ip_hosts", self.simulator.ask({"ip_hosts": {}})["error"])

    def test_wrong_servers_are_refused(self):
        for server, *parts in (({"address": "10.0.0"}, "10.0.0", "IPv4"), ({"address": 7}, "address"), (True, "false"),
                               ({"dns": "10.0.0.1"}, "dns"), ({"gateway": "0.0.0.0"}, "gateway")):
            with self.subTest(server):
                answer = self.simulator.ask({"hardware": {"dhcp": {"0": server}}})
                self.assertEqual(["error"], list(answer))
                for part in parts:
                    self.assertIn(part, answer["error"])


if __name__ == "__main__":
    unittest.main()
