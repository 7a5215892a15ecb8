"""Software download over real frames: the two-slot board behind it, its failures, reboot."""

import os
import random
import unittest

from onu_sim import OnuSimTest, read_lines
from software_image import (BASELINE, BUSY, DESCRIPTION, EXTENDED, PROCESSING_ERROR, SLOT_1_RUNS, SUCCESS,
                            UNKNOWN_INSTANCE, VERIFY, SoftwareImages, board_file, crc32, descriptions, read_board_file,
                            wait_for)

IMAGE_FILE = "/tmp/ont_image.sef"
SLOT_FILE = "/opt/addons/images/app%d.sef"
FORMATS = ((BASELINE, "baseline"), (EXTENDED, "extended"))


def image_of(size, seed=1):
    return random.Random(seed).randbytes(size)


class DownloadTest(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.begin_with(SLOT_1_RUNS)

    def begin_with(self, description):
        """Starts with the boot side's file in place: the library reads it at the start, then once in 2 seconds."""
        self.write("state" + DESCRIPTION, "".join(f"{key}={value}\n" for key, value in description.items()))
        self.simulator = self.begin()
        self.images = SoftwareImages(self.simulator)

    def begin(self, *options):
        return self.start("--state-dir", os.path.join(self.directory, "state"), *options)

    def board(self, **change):
        self.assertEqual({"result": 0}, self.simulator.ask({"board": change}))

    def commands(self):
        return self.simulator.ask({"system": True})["result"]

    def errors(self):
        return [line["text"] for line in read_lines(self.simulator.library_log) if line["level"] == 3]

    def notifications(self):
        return [call["args"][0] for call in self.simulator.hardware_calls("notifySoftwareDownloadStatus")]

    def assert_running_slot_untouched(self):
        found = descriptions(self.simulator)
        for key in ("SW_VERSION", "COMMIT", "ACTIVE", "VALID"):
            self.assertEqual(str(SLOT_1_RUNS["APP1_" + key]), found["APP1_" + key])

    def assert_next_download_works(self, image):
        self.board(verify="ok")
        self.images.download(image)
        self.assertEqual(SUCCESS, self.images.outcome(image))


class Upgrade(DownloadTest):
    def test_image_arrives_bit_exact_in_both_formats(self):
        for device, name in FORMATS:
            with self.subTest(name):
                images = SoftwareImages(self.simulator, device)
                # Longer each time: the library's file keeps its tail.
                image = image_of(100000 + device, device)
                images.download(image)
                self.assertEqual(SUCCESS, images.outcome(image))
                self.assertEqual(image, read_board_file(self.simulator, IMAGE_FILE))
                self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 2))
                found = descriptions(self.simulator)
                self.assertEqual("IMG-%08X" % crc32(image), found["APP2_SW_VERSION"])
                self.assertEqual("1", found["APP2_VALID"])
                self.assert_running_slot_untouched()
                self.assertEqual((0, 0, 1), images.flags(1))

    def test_activate_reboot_and_commit_change_the_slots(self):
        image = image_of(5000)
        images = self.images
        images.download(image)
        self.assertEqual(SUCCESS, images.outcome(image))
        self.assertEqual(SUCCESS, images.activate(1))
        self.assertIn("/etc/init.d/rcBSP -select_next_app", self.commands())
        # Nothing is different until the reboot.
        self.assertEqual(((1, 1, 1), (0, 0, 1)), (images.flags(0), images.flags(1)))
        images.reboot()
        self.assertEqual(((1, 0, 1), (0, 1, 1)), (images.flags(0), images.flags(1)))
        self.assertEqual(SUCCESS, images.commit(1))
        self.assertIn("/etc/init.d/rcBSP -select_running_app", self.commands())
        self.assertEqual(((0, 0, 1), (1, 1, 1)), (images.flags(0), images.flags(1)))
        images.reboot()
        self.assertEqual(((0, 0, 1), (1, 1, 1)), (images.flags(0), images.flags(1)))
        # The slots have changed places: now the other one takes an image.
        self.assertEqual(PROCESSING_ERROR, images.start(100, 1)[0])
        images.download(image, 0)
        self.assertEqual(SUCCESS, images.outcome(image, 0))
        self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 1))

    def test_image_that_is_not_committed_runs_until_the_next_reboot(self):
        image = image_of(5000)
        self.images.download(image)
        self.images.outcome(image)
        self.images.activate(1)
        self.images.reboot()
        self.assertEqual((0, 1, 1), self.images.flags(1))
        self.images.reboot()
        self.assertEqual(((1, 1, 1), (0, 0, 1)), (self.images.flags(0), self.images.flags(1)))

    def test_slots_outlive_the_process(self):
        image = image_of(5000)
        self.images.download(image)
        self.images.outcome(image)
        self.images.activate(1)
        self.assertEqual(0, self.simulator.stop())
        self.simulator = self.begin()
        images = SoftwareImages(self.simulator)
        self.assertEqual((0, 0, 1), images.flags(1))
        images.reboot()
        self.assertEqual((0, 1, 1), images.flags(1))

    def test_partition_and_not_slot_names_the_instance(self):
        self.simulator.stop()
        self.begin_with({**SLOT_1_RUNS, "APP1_PART_SEL": 2, "APP2_PART_SEL": 1})
        self.assertEqual((1, 1, 1), self.images.flags(1))
        self.assertEqual(PROCESSING_ERROR, self.images.start(100, 1)[0])
        image = image_of(100)
        self.images.download(image, 0)
        self.assertEqual(SUCCESS, self.images.outcome(image, 0))
        self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 2))

    def test_slot_without_a_valid_image_is_not_booted(self):
        self.board(description={"APP2_VALID": 0})
        self.assertEqual(SUCCESS, self.images.activate(1))
        self.images.reboot()
        self.assertEqual((1, 1, 1), self.images.flags(0))

    def test_reboot_without_a_description_writes_none(self):
        self.board(description=None)
        self.images.reboot()
        self.assertFalse(os.path.exists(board_file(self.simulator, DESCRIPTION)))

    def test_first_script_of_a_board_without_a_description_writes_one(self):
        self.board(description=None)
        image = image_of(100)
        self.images.download(image)
        self.assertEqual(SUCCESS, self.images.outcome(image))
        found = descriptions(self.simulator)
        self.assertEqual(["1", "1", "1", "1"],
                         [found[key] for key in ("APP1_COMMIT", "APP1_ACTIVE", "APP1_VALID", "APP2_VALID")])


class Restart(DownloadTest):
    def test_only_a_reboot_clears_an_activated_image(self):
        self.assertEqual(SUCCESS, self.images.activate(0))
        self.assertNotIn("/etc/init.d/rcBSP -select_next_app", self.commands())
        self.assertEqual(PROCESSING_ERROR, self.images.start(100)[0])
        self.assertEqual(BUSY, self.images.activate(1))
        self.assertEqual(BUSY, self.images.commit(0))
        self.assertEqual("ACTIVATE SUCCESS", self.images.status()["Word"])
        self.images.reboot()
        self.assertEqual("IDLE", self.images.status()["Word"])
        self.assertEqual(SUCCESS, self.images.start(100)[0])

    def test_display_after_a_reboot_is_that_of_a_new_process(self):
        fresh = self.images.status()
        self.assertEqual("255", fresh["Instance under download"])
        self.images.start(1000)
        self.images.section(0, bytes(31), False)
        self.assertEqual("31", self.images.status()["Image offset"])
        self.assertEqual("DOWNLOAD IN PROGRESS", self.images.status()["Word"])
        self.images.reboot()
        self.assertEqual(fresh, self.images.status())

    def test_reboot_of_the_control_socket_boots_the_selected_slot(self):
        self.images.activate(1)
        self.assertEqual({"result": 0}, self.simulator.ask({"reboot": True}))
        self.assertEqual((0, 1, 1), self.images.flags(1))

    def test_reboot_ends_a_write_that_is_under_way(self):
        image = image_of(5000)
        self.board(verify="hold")
        self.images.download(image)
        self.assertTrue(wait_for(lambda: VERIFY in self.commands()))
        self.images.reboot()
        self.assertEqual("IDLE", self.images.status()["Word"])
        self.assertEqual("V0.9", descriptions(self.simulator)["APP2_SW_VERSION"])
        self.board(verify="release")
        self.assert_next_download_works(image)

    def test_end_of_the_program_does_not_wait_for_a_held_script(self):
        self.board(verify="hold")
        self.images.download(image_of(5000))
        self.assertTrue(wait_for(lambda: VERIFY in self.commands()))
        self.assertEqual(0, self.simulator.stop())


class Failures(DownloadTest):
    def test_held_verification_keeps_the_onu_busy(self):
        image = image_of(5000)
        self.board(verify="hold")
        self.images.download(image)
        self.assertTrue(wait_for(lambda: VERIFY in self.commands()))
        for _ in range(5):
            self.assertEqual(BUSY, self.images.end(image))
        self.assertEqual("WRITE IN PROGRESS", self.images.status()["Word"])
        self.assertEqual(PROCESSING_ERROR, self.images.start(100)[0])
        self.assertEqual(BUSY, self.images.activate(1))
        self.assertEqual(BUSY, self.images.commit(1))
        self.board(verify="release")
        self.assertEqual(SUCCESS, self.images.outcome(image))
        self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 2))

    def test_outcome_may_be_set_while_the_verification_is_held(self):
        image = image_of(5000)
        self.board(verify="hold")
        self.images.download(image)
        self.board(verify="line:7")
        self.assertEqual(BUSY, self.images.end(image))
        self.board(verify="release")
        self.assertEqual(PROCESSING_ERROR, self.images.outcome(image))

    def test_missing_status_file_is_retried_five_times_and_fails(self):
        image = image_of(5000)
        self.board(verify="missing")
        self.images.download(image)
        self.assertEqual(PROCESSING_ERROR, self.images.outcome(image))
        self.assertEqual(5, self.commands().count(VERIFY))
        self.assertIn(f"System call({VERIFY}) failed(). Retry(5/5).", self.errors())
        self.assertIn("Command rejected; image write failed", self.errors())
        self.assertEqual([2, 3, 1], self.notifications())
        self.assert_running_slot_untouched()
        self.assert_next_download_works(image)

    def test_status_file_missing_once_is_made_good_by_the_retry(self):
        image = image_of(5000)
        self.board(verify="missing-once")
        self.images.download(image)
        self.assertEqual(SUCCESS, self.images.outcome(image))
        self.assertEqual(2, self.commands().count(VERIFY))
        self.assertIn(f"System call({VERIFY}) failed(). Retry(1/5).", self.errors())
        self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 2))

    def test_any_other_status_line_fails_at_once(self):
        image = image_of(5000)
        for line in ("1", "bad signature", "", "00"):
            with self.subTest(line):
                before = self.commands().count(VERIFY)
                self.board(verify="line:" + line)
                self.images.download(image)
                self.assertEqual(PROCESSING_ERROR, self.images.outcome(image))
                self.assertEqual(before + 1, self.commands().count(VERIFY))
                self.assertIn(f"System call({VERIFY}) failed({line})", self.errors())
                self.assertEqual("V0.9", descriptions(self.simulator)["APP2_SW_VERSION"])
        self.assert_running_slot_untouched()
        self.assert_next_download_works(image)

    def test_status_line_0_is_success(self):
        image = image_of(5000)
        self.board(verify="line:0")
        self.images.download(image)
        self.assertEqual(SUCCESS, self.images.outcome(image))
        self.assertEqual(image, read_board_file(self.simulator, SLOT_FILE % 2))

    def test_failures_of_the_file_system_leave_the_next_download_possible(self):
        image = image_of(5000)
        for call, number in (("open", 30), ("write", 28)):
            with self.subTest(call):
                self.images.start(len(image))
                self.images.sections(image)
                self.simulator.ask({"fail": {"call": call, "errno": number, "times": 1}})
                self.assertEqual(BUSY, self.images.end(image))
                self.assertEqual(PROCESSING_ERROR, self.images.outcome(image))
                self.assertTrue(any(f"errno({number})" in text for text in self.errors()))
                self.assertEqual("DOWNLOAD SUCCESS", self.images.status()["Word"])
                self.assertNotIn(VERIFY, self.commands())
                self.assert_running_slot_untouched()
        self.assert_next_download_works(image)

    def test_writer_that_cannot_be_started_leaves_the_transfer(self):
        image = image_of(5000)
        self.images.start(len(image))
        self.images.sections(image)
        self.simulator.ask({"fail": {"call": "pthread_create", "errno": 11, "times": 1}})
        self.assertEqual(PROCESSING_ERROR, self.images.end(image))
        self.assertIn("pthread_create() failed(11)", self.errors())
        self.assertEqual(BUSY, self.images.end(image))
        self.assertEqual(SUCCESS, self.images.outcome(image))

    def test_image_that_the_hardware_refuses_is_refused(self):
        image = image_of(5000)
        self.simulator.ask({"hardware": {"image_valid": False}})
        self.images.start(len(image))
        self.images.sections(image)
        self.assertEqual(PROCESSING_ERROR, self.images.end(image))
        self.assertIn("4) Image is not valid", self.errors())
        self.simulator.ask({"hardware": {"image_valid": True}})
        self.assert_next_download_works(image)

    def test_time_out_gives_the_download_up(self):
        self.simulator.stop()
        self.simulator = self.begin("--time-scale", "100")
        images = self.images = SoftwareImages(self.simulator)
        self.assertEqual(SUCCESS, images.start(1000)[0])
        images.section(0, bytes(31), False)
        self.assertTrue(wait_for(lambda: images.status()["Upgrade in progress"] == "no"))
        self.assertEqual("DOWNLOAD IN PROGRESS", images.status()["Word"])
        self.assertEqual(UNKNOWN_INSTANCE, images.section(1, bytes(31), True)[0])

    def test_inactivity_timer_runs_30_seconds_and_ends_with_the_transfer(self):
        def left():
            return [timer["milliseconds_left"] for timer in self.simulator.ask({"timers": True})["result"]
                    if timer["milliseconds_left"] > 2000]
        self.assertEqual([], left())
        self.images.start(1000)
        self.assertEqual(1, len(left()))
        self.assertLessEqual(left()[0], 30000)
        self.images.end(b"", crc=0)
        self.assertEqual([], left())


class BadInput(DownloadTest):
    def assert_refused(self, text, *start, **options):
        self.assertEqual(PROCESSING_ERROR, self.images.start(*start, **options)[0])
        self.assertIn(text, self.errors())
        self.assertEqual("DOWNLOAD START FAILED", self.images.status()["Word"])

    def test_start_of_no_or_too_large_an_image(self):
        self.assert_refused("Image size is 0", 0)
        self.board(free_space=3000)
        self.assertEqual(SUCCESS, self.images.start(1000)[0])
        self.assertEqual(UNKNOWN_INSTANCE, self.images.section(0, b"", True, 0)[0])
        self.board(free_space=2999)
        self.assert_refused("Available memory space(2999) is insufficient memory to download image size 3000", 1000)
        self.board(free_space=1 << 30)
        self.assert_refused("Available memory space(1073741824) is insufficient memory to download image size "
                            "4294967293", 0xFFFFFFFF)
        self.assert_next_download_works(image_of(100))

    def test_start_for_an_image_that_is_active_committed_or_not_there(self):
        self.assert_refused("Instance(0) is active", 100, 0)
        self.simulator.stop()
        self.begin_with({**SLOT_1_RUNS, "APP1_COMMIT": 0, "APP2_COMMIT": 1})
        self.assert_refused("Instance(1) is committed", 100, 1)
        self.assertEqual(UNKNOWN_INSTANCE, self.images.start(100, 2)[0])
        self.assertIn("Instance(2) for Software Image not found", self.errors())

    def test_sections_out_of_order_are_reported_at_the_end_of_the_window(self):
        for device, name in FORMATS:
            with self.subTest(name):
                images = SoftwareImages(self.simulator, device)
                self.assertEqual(SUCCESS, images.start(100000)[0])
                images.section(0, bytes(31), False)
                images.section(2, bytes(31), False)
                images.section(3, bytes(31), False)
                self.assertEqual(bytes((PROCESSING_ERROR, 1)), images.section(4, bytes(31), True)[:2])
                self.assertIn("Received unexpected section number: expected(1), actual(2)", self.errors())
                self.assertEqual(bytes((SUCCESS, 0)), images.section(0, bytes(31), True)[:2])
                images.section(0, b"", True, 0)

    def test_section_that_is_too_long_or_empty(self):
        images = SoftwareImages(self.simulator, EXTENDED)
        self.assertEqual(SUCCESS, images.start(100)[0])
        self.assertEqual(bytes((SUCCESS, 0)), images.section(0, b"", True)[:2])
        self.assertEqual(bytes((PROCESSING_ERROR, 0)), images.section(0, bytes(101), True)[:2])
        self.assertIn("Overflow image received : expected(100), actual(0)", self.errors())

    def test_section_for_the_other_instance_or_after_the_last_byte(self):
        self.images.start(31)
        self.assertEqual(UNKNOWN_INSTANCE, self.images.section(0, bytes(31), True, 0)[0])
        self.assertIn("Instance(1) under download, command received for instance(0)", self.errors())
        self.assertEqual(SUCCESS, self.images.start(31)[0])
        self.images.sections(bytes(31))
        self.assertEqual(UNKNOWN_INSTANCE, self.images.section(0, bytes(31), True)[0])
        self.assertIn("Status = DOWNLOAD COMPLETE not allowed", self.errors())
        self.assert_next_download_works(image_of(100))

    def test_end_with_wrong_crc_size_or_instance(self):
        image = image_of(100)
        for wrong in ({"crc": 1}, {"size": 99}):
            self.images.start(len(image))
            self.images.sections(image)
            self.assertEqual(PROCESSING_ERROR, self.images.end(image, **wrong))
            self.assertEqual("DOWNLOAD FAILURE", self.images.status()["Word"])
        self.assertIn(f"2) Mismatch CRC-32({crc32(image)}; 1)", self.errors())
        self.assertIn("3) Mismatch image size(100; 99)", self.errors())
        self.images.start(len(image))
        self.assertEqual(UNKNOWN_INSTANCE, self.images.end(image, 0))
        self.assert_running_slot_untouched()
        self.images.sections(image)
        self.assertEqual(BUSY, self.images.end(image))
        self.assertEqual(SUCCESS, self.images.outcome(image))

    def test_missing_description_leaves_the_flags_and_every_download_possible(self):
        self.board(description=None)
        self.assertEqual({"result": 0}, self.simulator.ask({"reboot": True}))
        self.assertIn("Can't load file(/opt/addons/etc/appinfo.ini)", self.errors())
        self.assertEqual(((0, 0, 0), (0, 0, 0)), (self.images.flags(0), self.images.flags(1)))
        self.assert_next_download_works(image_of(100))

    def test_broken_description_leaves_what_the_olt_commits(self):
        path = board_file(self.simulator, DESCRIPTION)
        os.remove(path)
        os.mkdir(path)
        self.assertEqual(SUCCESS, self.images.commit(1))
        self.assertIn("Can't load file(/opt/addons/etc/appinfo.ini)", self.errors())
        self.assertEqual(((0, 1, 1), (1, 0, 1)), (self.images.flags(0), self.images.flags(1)))

    def test_requests_that_the_board_cannot_take(self):
        before = descriptions(self.simulator)
        for change, part in (({}, "nothing to change"), ({"verify": "teapot"}, "teapot"), ({"verify": 1}, "verify"),
                             ({"free_space": -1}, "free_space"), ({"description": 1}, "description"),
                             ({"description": {"APP3_VALID": 1}}, "APP3_VALID"),
                             ({"description": {"APP1_VALID": [1]}}, "APP1_VALID"),
                             ({"description": {"APP2_VALID": 7}, "verify": "teapot"}, "teapot"),
                             ({"description": {"APP1_SW_VERSION": "V1\nAPP1_VALID=1"}}, "one line"),
                             ({"teapot": 1}, "teapot")):
            answer = self.simulator.ask({"board": change})
            self.assertEqual(["error"], list(answer))
            self.assertIn(part, answer["error"])
        self.assertEqual(before, descriptions(self.simulator))
        self.assertIn("software-download", self.simulator.ask({"show": "teapot"})["error"])


if __name__ == "__main__":
    unittest.main()
