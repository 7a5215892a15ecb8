"""Software images, seen from both ends of the road."""

import random
import signal
import subprocess
import unittest

from fake_image_store import BUSY, REFUSED, SECTION, FakeImageStore
from omci_wire import EXTENDED, crc32
from support import PATIENT, OltTest

QUICK = ("--poll", "0.02")


class DownloadTest(OltTest):
    def file(self, size, name="image.bin"):
        image = random.Random(size).randbytes(size)
        with open(self.path(name), "wb") as file:
            file.write(image)
        return image, self.path(name)

    def download(self, onu, path, *arguments, expect=0, options=PATIENT):
        done = self.olt(onu, "--json", "download", path, "--instance", "1", *QUICK, *arguments, expect=expect,
                        options=options)
        return self.json_of(done)


class RoadOfTheImage(DownloadTest):
    def test_baseline_sections_have_31_octets_and_the_last_is_padded(self):
        image, path = self.file(31 * 40 + 5)
        with FakeImageStore() as onu:
            answer = self.download(onu, path, "--window", "16")
            self.assertEqual(image, onu.image[:len(image)])
            self.assertEqual(bytes(26), onu.image[len(image):])
            self.assertEqual([(16, len(image), 1)], onu.starts)
            self.assertEqual([16, 16, 9], [len(numbers) for numbers, _ in onu.windows])
            self.assertEqual((41, 3, 16), (answer["sections"], answer["windows"], answer["window"]))
            self.assertEqual("0x%08x" % crc32(image), answer["crc"])
            self.assertEqual((0, "success"), (answer["result"], answer["result_text"]))

    def test_extended_sections_go_to_the_message_limit_and_the_last_is_short(self):
        image, path = self.file(1965 * 3 + 7)
        with FakeImageStore() as onu:
            self.download(onu, path, "--window", "2", "--extended")
            self.assertEqual(image, onu.image)
            sections = [request for request in onu.requests if request.type == SECTION]
            self.assertEqual([1966, 1966, 1966, 8], [len(section.contents) for section in sections])
            self.assertEqual({EXTENDED}, {section.device for section in sections})

    def test_only_the_last_section_of_a_window_asks_for_an_answer(self):
        _, path = self.file(31 * 10)
        with FakeImageStore() as onu:
            self.download(onu, path, "--window", "4")
            asked = [bool(request.flags) for request in onu.requests if request.type == SECTION]
            self.assertEqual([False, False, False, True] * 2 + [False, True], asked)

    def test_onu_may_make_the_window_smaller(self):
        image, path = self.file(31 * 10)
        with FakeImageStore() as onu:
            onu.window = 3
            self.assertEqual(3, self.download(onu, path)["window"])
            self.assertEqual([3, 3, 3, 1], [len(numbers) for numbers, _ in onu.windows])
            self.assertEqual(image, onu.image)

    def test_image_of_one_octet_and_windows_of_one_and_256_sections(self):
        for size, window in ((1, 1), (1, 256), (31 * 300, 256), (31 * 3, 1)):
            with self.subTest(size=size, window=window), FakeImageStore() as onu:
                image, path = self.file(size)
                self.download(onu, path, "--window", str(window))
                self.assertEqual(image, onu.image[:size])
                self.assertEqual(window, onu.starts[0][0])

    def test_report_for_people(self):
        _, path = self.file(3100)
        with FakeImageStore() as onu:
            done = self.olt(onu, "download", path, "--instance", "1", *QUICK)
            self.assertIn("to SoftwareImage (7) instance 1", done.stdout)
            self.assertIn("3100 octets", done.stdout)
            self.assertIn("100 sections, 4 windows of up to 32", done.stdout)
            self.assertEqual("", done.stderr)


class Retransmission(DownloadTest):
    def test_refused_window_goes_out_again_from_its_first_section(self):
        image, path = self.file(31 * 12)
        with FakeImageStore() as onu:
            onu.refuse = lambda number: number == 1
            answer = self.download(onu, path, "--window", "4")
            self.assertEqual([list(range(4))] * 4, [numbers for numbers, _ in onu.windows])
            self.assertEqual(image, onu.image)
            self.assertEqual((3, 1), (answer["windows"], answer["repeated_windows"]))

    def test_windows_shrink_while_refusals_go_on_and_grow_again(self):
        image, path = self.file(31 * 800)
        with FakeImageStore() as onu:
            onu.refuse = lambda number: number < 8
            self.download(onu, path, "--window", "16")
            sizes = [len(numbers) for numbers, _ in onu.windows]
            self.assertEqual([16, 16, 8, 8, 4, 4, 2, 2, 1, 1, 1, 1, 2], sizes[:13])
            self.assertEqual(16, max(sizes[13:]))
            self.assertEqual(image, onu.image)

    def test_window_that_is_refused_for_ever_ends_the_download(self):
        _, path = self.file(31 * 12)
        with FakeImageStore() as onu:
            onu.refuse = lambda number: True
            answer = self.download(onu, path, expect=1)
            self.assertEqual((REFUSED, "download section"), (answer["result"], answer["step"]))

    def test_lost_answer_to_a_window_repeats_its_last_section_only(self):
        image, path = self.file(31 * 12)
        with FakeImageStore() as onu:
            # The answer to the second window gets lost; the start's is number 0.
            onu.road = lambda number, reply: [] if number == 2 else [(0, reply)]
            answer = self.download(onu, path, "--window", "4", options=("--timeout", "200"))
            self.assertGreaterEqual(answer["retransmissions"], 1)
            self.assertEqual(3, len(onu.windows))
            self.assertEqual(image, onu.image)

    def test_image_survives_a_road_that_loses_datagrams(self):
        for options in ((), ("--extended",)):
            with self.subTest(options=options), FakeImageStore() as onu:
                image, path = self.file(31 * 1000 if not options else 1965 * 100)
                answer = self.download(onu, path, "--drop", "3",
                                       options=("--timeout", "100", "--retries", "20", *options))
                self.assertEqual(image, onu.image)
                self.assertGreater(answer["dropped"], 0)
                self.assertGreater(answer["repeated_windows"], 0)

    def test_onu_that_falls_silent_is_unreachable(self):
        _, path = self.file(31 * 12)
        with FakeImageStore() as onu:
            onu.road = lambda number, reply: [(0, reply)] if number < 2 else []
            done = self.olt(onu, "download", path, "--instance", "1", "--window", "4", expect=3,
                            options=("--timeout", "50", "--retries", "1"))
            self.assertIn("no answer to download section", done.stderr)


class End(DownloadTest):
    def test_onu_is_asked_until_it_has_stored_the_image(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            onu.end_results = [BUSY] * 5 + [0]
            self.assertEqual(5, self.download(onu, path)["polls"])
            # A question is a new command and not a repetition of the last.
            self.assertEqual(6, onu.polls)

    def test_failed_write_is_told(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            onu.end_results = [BUSY, BUSY, REFUSED]
            done = self.olt(onu, "download", path, "--instance", "1", *QUICK, expect=1)
            self.assertIn("end software download: command processing error (result 1)", done.stderr)
            self.assertIn("cannot store it", done.stderr)

    def test_onu_that_is_busy_for_too_long(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            onu.end_results = [BUSY]
            done = self.olt(onu, "download", path, "--instance", "1", *QUICK, "--wait", "0.2", expect=3)
            self.assertIn("still busy", done.stderr)

    def test_corrupt_section_is_found_by_the_crc(self):
        image, path = self.file(31 * 12)
        with FakeImageStore() as onu:
            answer = self.download(onu, path, "--corrupt-section", "5", expect=1)
            self.assertEqual((REFUSED, "end software download"), (answer["result"], answer["step"]))
            different = [at for at, octet in enumerate(image) if onu.image[at] != octet]
            self.assertEqual([31 * 5], different)

    def test_refused_start_is_told_with_its_likely_cause(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            onu.start_result = REFUSED
            done = self.olt(onu, "download", path, "--instance", "1", expect=1)
            self.assertIn("start software download: command processing error (result 1)", done.stderr)
            self.assertIn("active or committed", done.stderr)
            self.assertEqual([], onu.windows)
            self.assertIn("no such image", self.olt(onu, "download", path, "--instance", "5", expect=1).stderr)


class BadInput(DownloadTest):
    def test_wrong_files_and_numbers_send_nothing(self):
        _, path = self.file(100)
        _, empty = self.file(0, "empty.bin")
        wrong = [(self.path("none"), "--instance", "1"), (empty, "--instance", "1"), (self.directory, "--instance", "1"),
                 (path,), (path, "--instance", "x"), (path, "--instance", "65536"),
                 (path, "--instance", "1", "--window", "0"), (path, "--instance", "1", "--window", "257"),
                 (path, "--instance", "1", "--corrupt-section", "4"), (path, "--instance", "1", "--corrupt-section", "x"),
                 (path, "--instance", "1", "--drop", "91"), (path, "--instance", "1", "--drop", "-1")]
        with FakeImageStore() as onu:
            for arguments in wrong:
                with self.subTest(arguments):
                    self.olt(onu, "download", *arguments, expect=2)
            self.assertEqual([], onu.requests)

    def test_corrupt_section_beyond_the_image_is_told_with_what_there_is(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            done = self.olt(onu, "download", path, "--instance", "1", "--corrupt-section", "4", expect=2)
            self.assertIn("sections 0 to 3", done.stderr)


class Terminal(DownloadTest):
    def test_bar_shows_octets_rate_time_left_and_retransmissions(self):
        _, path = self.file(31 * 4000)
        with FakeImageStore() as onu:
            onu.refuse = lambda number: number == 1
            text = self.on_terminal(onu, "download", path, "--instance", "1", *QUICK, "--window", "4", columns=120)
        self.assertRegex(text, r"download \[#*\.*\] \d+/124000  [\d.]+ MB/s, \d+ s left")
        self.assertIn("1 retransmissions", text)
        self.assertIn("124000/124000  the ONU stores the image", text)
        self.assertIn("downloaded", text)

    def test_interrupt_ends_a_download(self):
        _, path = self.file(100)
        with FakeImageStore() as onu:
            onu.end_results = [BUSY]
            with subprocess.Popen(self.command(onu, "download", path, "--instance", "1", *QUICK),
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
                self.assertTrue(self.wait_until(lambda: onu.polls > 1))
                process.send_signal(signal.SIGINT)
                self.assertEqual(130, process.wait(30))


class Images(DownloadTest):
    def test_table_of_both_slots(self):
        with FakeImageStore() as onu:
            lines = self.olt(onu, "images").stdout.splitlines()
            self.assertEqual(["Image", "Version", "Committed", "Active", "Valid", "Product", "code"], lines[0].split())
            self.assertEqual(["0", "V1.0", "yes", "yes", "yes", "product"], lines[1].split())
            self.assertEqual(["1", "V1.1", "no", "no", "yes", "product"], lines[2].split())

    def test_json_in_both_formats(self):
        for options in ((), ("--extended",)):
            with FakeImageStore() as onu:
                answer = self.json_of(self.olt(onu, *options, "--json", "images"))
                self.assertEqual({"instance": 1, "version": "V1.1", "committed": False, "active": False, "valid": True,
                                  "product_code": "product", "hash": "0x" + "00" * 16}, answer["images"][1])

    def test_onu_with_one_image_or_none(self):
        with FakeImageStore() as onu:
            del onu.mib[7, 1]
            self.assertEqual([0], [image["instance"] for image in
                                   self.json_of(self.olt(onu, "--json", "images"))["images"]])
            del onu.mib[7, 0]
            self.assertIn("unknown managed entity instance", self.olt(onu, "images", expect=1).stderr)

    def test_activate_and_commit_take_the_instance_as_word_or_option(self):
        with FakeImageStore() as onu:
            self.olt(onu, "activate", "1")
            self.olt(onu, "activate", "--instance", "0", "--unless", "calls")
            self.olt(onu, "commit", "1")
            self.assertEqual([(1, 0), (0, 1)], onu.activated)
            self.assertEqual([1], onu.committed)
            for command in ("activate", "commit"):
                self.assertIn("--instance", self.olt(onu, command, expect=2).stderr)
                self.olt(onu, command, "1", "--instance", "1", expect=2)
                self.olt(onu, command, "x", expect=2)
                self.assertIn("unknown managed entity instance", self.olt(onu, command, "7", expect=1).stderr)

    def test_script_does_an_upgrade(self):
        image, path = self.file(100)
        script = self.write("upgrade", f"download '{path}' --instance 1 --poll 0.02 --drop 0\nactivate 1\nreboot\n")
        with FakeImageStore() as onu:
            onu.add(256, 0)
            self.olt(onu, "run", script)
            self.assertEqual(image, onu.image[:100])
            self.assertEqual([(1, 0)], onu.activated)


if __name__ == "__main__":
    unittest.main()
