"""What onu-sim carries in memory: libraries that only some of its options need come with these options."""

import os
import unittest

from onu_sim import OnuSimTest


class MappedLibraries(OnuSimTest):
    def mapped(self, simulator):
        with open(f"/proc/{simulator.process.pid}/maps", encoding="utf-8") as maps:
            return maps.read()

    def test_captureLibraryAndWhatItBringsComeWithACapture(self):
        plain = self.mapped(self.start())
        self.assertIn("libnrvk-omci-me.so", plain)
        for library in ("libpcap", "libdbus", "libsystemd"):
            self.assertNotIn(library, plain)

        os.mkdir(os.path.join(self.directory, "other"))
        self.directory = os.path.join(self.directory, "other")
        self.assertIn("libpcap", self.mapped(self.start("--pcap", os.path.join(self.directory, "frames.pcap"))))


if __name__ == "__main__":
    unittest.main()
