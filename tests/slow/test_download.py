"""An image of 64 MiB over loopback with 1 % of all datagrams lost, bit-exact in both formats."""

import os
import random
import unittest

from support import OltTest
from test_onu_sim import Simulator

IMAGE_SIZE = 64 << 20
FORMAT = {"baseline": (), "extended": ("--extended",)}
WINDOW = {"baseline": 32, "extended": 16}


class LargeDownload(OltTest):
    def setUp(self):
        super().setUp()
        self.onu = self.enterContext(Simulator(self.directory))
        self.image = random.Random(64).randbytes(IMAGE_SIZE)
        with open(self.path("image.bin"), "wb") as file:
            file.write(self.image)

    def arrives(self, message_format):
        command = self.command(self.onu, "--json", "download", self.path("image.bin"), "--instance", "1", "--drop", "1",
                               "--window", str(WINDOW[message_format]), *FORMAT[message_format],
                               options=("--timeout", "20", "--retries", "1000"))
        answer = self.json_of(self.run_program(command, timeout=3000))
        print(f"{message_format}: {answer['seconds']:.1f} s, {answer['octets_per_second'] / 1e6:.2f} MB/s, "
              f"{answer['dropped']} datagrams lost, {answer['repeated_windows']} of {answer['windows']} windows again, "
              f"{answer['retransmissions']} retransmissions", flush=True)
        with open(os.path.join(self.directory, "state/opt/addons/images/app2.sef"), "rb") as file:
            self.assertTrue(self.image == file.read(), "what the board's script got differs")
        self.assertGreater(answer["dropped"], 0)

    def test_extended(self):
        self.arrives("extended")

    def test_baseline(self):
        self.arrives("baseline")


if __name__ == "__main__":
    unittest.main()
