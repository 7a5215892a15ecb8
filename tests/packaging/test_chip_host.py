"""The worked example of a port answers an OLT."""

import json
import os
import subprocess
import tempfile
import unittest


class ChipHost(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        environment = dict(os.environ, TMPDIR=directory.name)
        self.host = subprocess.Popen([os.environ["CHIP_HOST"]], stdout=subprocess.PIPE, text=True, env=environment)
        self.addCleanup(self.stop)
        first = self.host.stdout.readline()
        self.assertTrue(first.startswith("listening on "), first)
        self.address = first.split()[-1]

    def stop(self):
        self.host.kill()
        self.host.wait()
        self.host.stdout.close()

    def olt(self, *arguments):
        command = [os.environ["OMCI_OLT"], "--connect", self.address, "--timeout", "10000", "--json", *arguments]
        done = subprocess.run(command, capture_output=True, text=True, timeout=60)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(done.stdout.splitlines()[-1])

    def chip_says(self, text):
        """Reads on until the chip has said so; a host that dies ends the reading."""
        for line in self.host.stdout:
            if line == f"chip: {text}\n":
                return
        self.fail(f"the chip never said: {text}")

    def test_unlockedPortComesUp(self):
        self.olt("set", "PptpEthernetUni", "0x101", "AdministrativeState=0")
        self.chip_says("port 0x0101 on")
        values = self.olt("get", "PptpEthernetUni", "0x101", "OperationalState")
        self.assertEqual(values["attributes"]["OperationalState"], 0)
        self.olt("set", "PptpEthernetUni", "0x101", "AdministrativeState=1")
        values = self.olt("get", "PptpEthernetUni", "0x101", "OperationalState")
        self.assertEqual(values["attributes"]["OperationalState"], 1)

    def test_opticalLevelIsReadFromTheChip(self):
        values = self.olt("get", "AniG", "0x401", "OpticalSignalLevel")
        self.assertEqual(values["attributes"]["OpticalSignalLevel"] & 0xFFFF, 0xDBDE)

    def test_bridgePortReachesTheChip(self):
        self.olt("create", "MacBridgePortConfigurationData", "7", "BridgeIdPointer=1", "PortNum=2", "TpType=1")
        self.olt("set", "MacBridgePortConfigurationData", "7", "TpPointer=0x101")
        self.chip_says("bridge 1, port 2 of kind 1 at 0x0101")


if __name__ == "__main__":
    unittest.main()
