"""Software images against the simulated ONU: what leaves the file is what the board's script gets."""

import os
import random
import unittest

from omci_wire import crc32
from support import OltTest
from onu import Onu as Simulator

DESCRIPTION = "".join(f"APP{slot}_{key}={value}\n" for slot, values in (
    (1, {"SW_VERSION": "V1.0", "COMMIT": 1, "ACTIVE": 1, "VALID": 1, "PART_SEL": 1}),
    (2, {"SW_VERSION": "", "COMMIT": 0, "ACTIVE": 0, "VALID": 0, "PART_SEL": 2})) for key, value in values.items())
LARGE = 16 << 20


class UpgradeTest(OltTest):
    def setUp(self):
        super().setUp()
        os.makedirs(self.board_path("/opt/addons/etc"))
        with open(self.board_path("/opt/addons/etc/appinfo.ini"), "w", encoding="utf-8") as file:
            file.write(DESCRIPTION)
        self.onu = self.enterContext(Simulator(self.directory))

    def board_path(self, path):
        return self.path("state") + path

    def slot(self, number):
        with open(self.board_path(f"/opt/addons/images/app{number}.sef"), "rb") as file:
            return file.read()

    def file(self, size, seed=0):
        image = random.Random(seed).randbytes(size)
        with open(self.path("image.bin"), "wb") as file:
            file.write(image)
        return image, self.path("image.bin")

    def download(self, path, *arguments, instance=1, expect=0, options=("--timeout", "10000")):
        command = self.command(self.onu, "--json", "download", path, "--instance", str(instance), "--poll", "0.05",
                               *arguments, options=options)
        return self.json_of(self.run_program(command, expect, timeout=280))

    def images(self):
        images = self.json_of(self.olt(self.onu, "--json", "images"))["images"]
        return [(image["version"], image["committed"], image["active"], image["valid"]) for image in images]

    def boot(self):
        """A reboot, until the new life answers."""
        self.olt(self.onu, "reboot")
        self.assertTrue(self.wait_until(
            lambda: "IDLE" in self.onu.ask(show="software-download")["result"]))

    def test_random_16_mib_arrive_byte_for_byte(self):
        image, path = self.file(LARGE)
        for options in (("--extended",), ()):
            with self.subTest(options=options):
                answer = self.download(path, "--window", "64", *options)
                self.assertEqual(LARGE, answer["octets"])
                self.assertTrue(image == self.slot(2), "what the board's script got differs")

    def test_upgrade_moves_from_slot_to_slot(self):
        image, path = self.file(100000)
        version = "IMG-%08X" % crc32(image)
        self.assertEqual([("V1.0", True, True, True), ("", False, False, False)], self.images())
        self.download(path)
        self.assertTrue(self.wait_until(lambda: self.images()[1] == (version, False, False, True)))
        self.olt(self.onu, "activate", "1")
        self.assertIn("processing error", self.olt(self.onu, "download", path, "--instance", "1", expect=1).stderr)
        self.boot()
        self.assertEqual([("V1.0", True, False, True), (version, False, True, True)], self.images())
        self.olt(self.onu, "commit", "1")
        self.assertEqual([("V1.0", False, False, True), (version, True, True, True)], self.images())
        other, path = self.file(100001, 1)
        self.download(path, instance=0)
        self.assertTrue(other == self.slot(1))

    def test_bad_road_loses_nothing_of_the_image(self):
        image, path = self.file(300000)
        for number, options in enumerate(((), ("--extended",))):
            with self.subTest(options=options):
                answer = self.download(path, "--drop", "1", options=("--timeout", "300", "--retries", "30", *options))
                self.assertTrue(image == self.slot(2))
                self.assertGreater(answer["dropped"], 0, number)

    def test_corrupt_section_is_refused_and_the_next_download_goes_well(self):
        image, path = self.file(100000)
        answer = self.download(path, "--corrupt-section", "7", expect=1)
        self.assertEqual("end software download", answer["step"])
        self.assertFalse(os.path.exists(self.board_path("/opt/addons/images/app2.sef")))
        self.download(path)
        self.assertTrue(image == self.slot(2))

    def test_refused_verification_is_a_failed_download(self):
        _, path = self.file(1000)
        self.onu.ask(board={"verify": "line:bad signature"})
        answer = self.download(path, expect=1)
        self.assertEqual(("end software download", 1), (answer["step"], answer["result"]))
        self.assertEqual([("V1.0", True, True, True), ("", False, False, False)], self.images())

    def test_running_image_is_refused(self):
        _, path = self.file(1000)
        # The library looks at the description at the start and once in 2 seconds after that.
        done = self.olt(self.onu, "download", path, "--instance", "0", expect=1)
        self.assertIn("start software download", done.stderr)


if __name__ == "__main__":
    unittest.main()
