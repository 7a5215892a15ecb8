"""The program itself: options, first line, end, directory, board file, capture."""

import glob
import os
import signal
import struct
import subprocess
import unittest

from onu_sim import GET, MIB_RESET, PROGRAM, REBOOT, OnuSimTest, baseline, read_lines


class Program(OnuSimTest):
    def refuse(self, *options):
        """Runs a program that must not come up; its message."""
        done = subprocess.run([PROGRAM, *options], capture_output=True, text=True, timeout=20, check=False)
        self.assertNotEqual(0, done.returncode)
        self.assertEqual("", done.stdout)
        return done.stderr

    def test_first_line_tells_the_real_port(self):
        simulator = self.start()
        self.assertRegex(simulator.first_line, r"^listening on 127\.0\.0\.1:[1-9][0-9]*\n$")
        self.assertEqual(0, simulator.omci(MIB_RESET, 2, 0)[0])

    def test_private_directory_and_control_socket_go_at_the_end(self):
        for ending in signal.SIGTERM, signal.SIGINT:
            with self.subTest(ending):
                simulator = self.start()
                self.assertEqual(1, len(glob.glob(os.path.join(self.directory, "onu-sandbox-*"))))
                simulator.process.send_signal(ending)
                self.assertEqual(0, simulator.process.wait(20))
                self.assertEqual([], glob.glob(os.path.join(self.directory, "onu-sandbox-*")))
                self.assertFalse(os.path.exists(simulator.control_path))

    def test_state_directory_is_used_as_it_is_and_stays(self):
        path = self.write("root/opt/addons/etc/appinfo.ini", "APP1_COMMIT=1\n")
        simulator = self.start("--state-dir", os.path.join(self.directory, "root"))
        answer = simulator.call("buildCommitCommands")
        if answer["result"] != 0:
            simulator.call("setSoftwareVersionConfigurationFile", "/opt/addons/etc/appinfo.ini")
            answer = simulator.call("buildCommitCommands")
        self.assertEqual(["/etc/init.d/rcBSP -set_commit 1 0", "/etc/init.d/rcBSP -set_commit 2 1"], answer["out"])
        simulator.stop()
        self.assertTrue(os.path.exists(path))

    def test_help_and_version_are_there(self):
        for option, text in (("--version", "onu-sim "), ("--help", "--listen")):
            outcome = subprocess.run([PROGRAM, option], capture_output=True, text=True, check=False)
            self.assertEqual(outcome.returncode, 0)
            self.assertIn(text, outcome.stdout)

    def test_bad_options_are_refused_in_words(self):
        self.assertIn("ADDR:PORT", self.refuse("--listen", "nonsense"))
        self.assertIn("0 to 65535", self.refuse("--listen", "127.0.0.1:70000"))
        self.assertIn("factor above 0", self.refuse("--time-scale", "0"))
        self.assertIn("--mic", self.refuse("--listen", "127.0.0.1:0", "--mic", "md5"))
        self.assertIn("/nonexistent/log", self.refuse("--listen", "127.0.0.1:0", "--hardware-log", "/nonexistent/log"))

    def test_broken_board_files_name_file_line_and_field(self):
        cases = {
            "[board]\n\nt_conts = 256\n": (":3:", "t_conts", "0 to 255"),
            "[board]\nt_conts = -1\n": (":2:", "t_conts", "0 to 255"),
            "[board]\nethernet_unis = two\n": (":2:", "ethernet_unis", "two"),
            "[board]\nfans = 2\n": (":2:", "fans", "not known"),
            "# head\n[fans]\nspeed = 2\n": (":2:", "[fans]", "not known"),
            "t_conts = 2\n": (":1:", "t_conts", "no section"),
            "[board]\nt_conts\n": (":2:", "t_conts", "key = value"),
            "[board]\nt_conts = 2\nt_conts = 3\n": (":3:", "t_conts", "line 2"),
            "[identity]\nmac = 00:11:22:33:44\n": (":2:", "mac", "MAC address"),
        }
        for text, parts in cases.items():
            with self.subTest(text):
                path = self.write("board.ini", text)
                message = self.refuse("--listen", "127.0.0.1:0", "--board", path)
                for part in (path, *parts):
                    self.assertIn(part, message)
        self.assertIn("No such file", self.refuse("--board", "/nonexistent.ini"))

    def test_board_counts_shape_the_mib(self):
        board = self.write("board.ini", "; a small one\n[board]\nt_conts = 2\nethernet_unis = 1\nvideo_unis = 0\n"
                                        "video_anis = 0\nupstream_queues_per_t_cont = 4\n"
                                        "downstream_queues_per_uni = 2\npots_unis = 0\n")
        instances = self.start("--board", board).ask({"instances": True})["result"]
        self.assertEqual([0x100, 0x101], instances["262"])
        self.assertEqual([0x101], instances["11"])
        self.assertEqual(2 * 4 + 2, len(instances["277"]))
        self.assertEqual([], instances["82"])
        self.assertEqual([], instances["53"])

    def test_board_without_a_file_has_the_default_counts(self):
        instances = self.start().ask({"instances": True})["result"]
        self.assertEqual(115, len(instances))
        self.assertEqual([0x100 + i for i in range(8)], instances["262"])
        self.assertEqual([0x101, 0x102, 0x103, 0x104], instances["11"])
        self.assertEqual(8 * 8 + 4 * 4, len(instances["277"]))

    def test_identity_reaches_onu_g(self):
        factory = self.write("factory.ini", "partNo = 9100452F1\n")
        board = self.write("board.ini", "[identity]\nserial_number = 4E52564B12345678\nversion = V1\n"
                                        f"mac = 00:11:22:33:44:55\nfactory_file = {factory}\n")
        simulator = self.start("--board", board)
        serial = simulator.ask({"get": {"class": 256, "instance": 0, "attribute": "SerialNumber"}})
        self.assertEqual("4e52564b12345678", serial["bytes"])
        version = simulator.ask({"get": {"class": 256, "instance": 0, "attribute": "Version"}})
        self.assertEqual(b"9100452F1", bytes.fromhex(version["bytes"]).rstrip(b"\0"))

    def test_fifo_depth_reaches_the_library(self):
        simulator = self.start("--fifo-depth", "4096")
        told = [line["text"] for line in read_lines(simulator.library_log) if "4096" in line["text"]]
        self.assertEqual(1, len(told))
        self.assertEqual({"result": 0}, simulator.ask({"fifo": 8192}))

    def test_log_level_rules_what_is_printed(self):
        for level, count in ((2, 0), (3, 1)):
            command = [PROGRAM, "--log-level", str(level)]
            with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as process:
                process.stdout.readline()
                process.terminate()
                self.assertEqual(count, process.communicate(timeout=20)[1].count("Model name not found"))

    def test_reboot_restarts_the_library_and_keeps_the_sockets(self):
        simulator = self.start()
        simulator.ask({"set": {"class": 2, "instance": 0, "attribute": 1, "bytes": "07"}})
        simulator.ask({"create": {"class": 65414, "instance": 9}})
        simulator.call("findAndUpdate", 262, 3)
        self.assertEqual(0, simulator.omci(REBOOT, 256, 0)[0])
        self.assertIn("reboot", simulator.ask({"system": True})["result"])
        self.assertEqual("00", simulator.ask({"get": {"class": 2, "instance": 0, "attribute": 1}})["bytes"])
        instances = simulator.ask({"instances": True})["result"]
        self.assertEqual([], instances["65414"])
        self.assertEqual(8, len(instances["262"]))
        self.assertEqual(0, simulator.omci(GET, 2, 0, b"\x80\x00")[0])

    def test_capture_holds_both_directions_while_it_grows(self):
        path = os.path.join(self.directory, "frames.pcap")
        simulator = self.start("--pcap", path)
        response = simulator.omci(MIB_RESET, 2, 0)
        with open(path, "rb") as file:
            capture = file.read()
        magic, _, _, _, _, _, link_type = struct.unpack("<IHHiIII", capture[:24])
        self.assertEqual((0xA1B2C3D4, 1), (magic, link_type))
        packets, place = [], 24
        while place < len(capture):
            length = struct.unpack("<I", capture[place + 8:place + 12])[0]
            packets.append(capture[place + 16:place + 16 + length])
            place += 16 + length
        self.assertEqual(2, len(packets))
        self.assertEqual(b"\x88\xb5", packets[0][12:14])
        self.assertEqual(packets[0][:6], packets[1][6:12])
        self.assertEqual(packets[0][6:12], packets[1][:6])
        self.assertEqual(baseline(1, MIB_RESET, 2, 0), packets[0][14:])
        self.assertEqual(response, packets[1][22:54])

    def test_malformed_frames_never_stop_it(self):
        simulator = self.start()
        for frame in b"", b"\0", b"\xff" * 7, b"\0" * 48, b"\xff" * 48, b"\0\1\x4f\x0b\0\2\0\0\xff\xff", b"\0" * 3000:
            simulator.udp.sendto(frame, simulator.address)
        simulator.transaction = 0x4242
        simulator.udp.sendto(baseline(0x4242, GET, 2, 0, b"\x80\x00"), simulator.address)
        while struct.unpack(">H", simulator.udp.recv(2048)[:2])[0] != 0x4242:
            pass
        self.assertGreater(sum(simulator.ask({"statistics": True})["result"]["drops"].values()), 3)


if __name__ == "__main__":
    unittest.main()
