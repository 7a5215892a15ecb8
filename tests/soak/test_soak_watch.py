"""What a soak complains of, and that its client does not believe everything."""

import os
import socket
import struct
import subprocess
import sys
import threading
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts"))

import soak_watch  # noqa: E402  (the path has to be known first)

QUIET = {"rss_kib": 9000, "threads": 1, "descriptors": 9}


class Complaints(unittest.TestCase):
    def test_a_quiet_onu_gets_none(self):
        self.assertEqual([], soak_watch.complaints([QUIET, {**QUIET, "rss_kib": 9500}], [], 0))

    def test_each_thing_left_over_gets_one(self):
        for later in ({"rss_kib": 9000 + soak_watch.MOST_GROWTH_KIB + 1}, {"threads": 2}, {"descriptors": 10}):
            self.assertEqual(1, len(soak_watch.complaints([QUIET, {**QUIET, **later}], [], 0)), later)
        self.assertEqual(1, len(soak_watch.complaints([QUIET], [{}] * (soak_watch.STANDING_TIMERS + 1), 0)))
        self.assertEqual(1, len(soak_watch.complaints([QUIET], [], 1)))


class Liar(threading.Thread):
    """Answers every request with success, and every get with values that nobody has set."""

    def __init__(self):
        super().__init__(daemon=True)
        self.road = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.road.bind(("127.0.0.1", 0))
        self.address = f"127.0.0.1:{self.road.getsockname()[1]}"
        self.start()

    def run(self):
        while True:
            try:
                frame, client = self.road.recvfrom(65536)
            except OSError:
                return
            if len(frame) >= 12 and frame[2] & 0xE0 == 0x40:
                mask = frame[8:10] if frame[3] == 0x0A else frame[10:12]
                values = b"\0" + mask + bytes(29) if frame[3] == 0x0A else struct.pack(">H", 39) + b"\0" + mask + bytes(36)
                tail = b"\0\0\0\x28" + bytes(4) if frame[3] == 0x0A else bytes(4)
                self.road.sendto(frame[:2] + bytes([frame[2] ^ 0x60]) + frame[3:8] + values + tail, client)


class Client(unittest.TestCase):
    def run_client(self, *arguments):
        return subprocess.run([os.environ["SOAK_CLIENT"], *arguments], capture_output=True, text=True, timeout=120,
                              check=False)

    def test_a_wrong_answer_ends_the_run(self):
        liar = Liar()
        self.addCleanup(liar.road.close)
        done = self.run_client(liar.address, "10000")
        self.assertEqual(1, done.returncode, done.stdout)
        self.assertIn("instead of", done.stderr)

    def test_nobody_there_ends_the_run(self):
        done = self.run_client("127.0.0.1:9", "100")
        self.assertEqual(1, done.returncode)
        self.assertIn("the ONU is gone", done.stderr)

    def test_wrong_arguments_are_refused(self):
        for arguments in ((), ("127.0.0.1:1",), ("127.0.0.1:1", "0"), ("nowhere", "5"), ("127.0.0.1:1", "5", "5000")):
            self.assertEqual(1, self.run_client(*arguments).returncode, arguments)


class Watch(unittest.TestCase):
    def test_a_client_that_fails_fails_the_soak(self):
        done = subprocess.run([sys.executable, "-B", soak_watch.__file__, "--messages", "1000000", "--onu-sim",
                               os.environ["ONU_SIM"], "--client", "/bin/false"], capture_output=True, text=True,
                              timeout=120, check=False)
        self.assertEqual(1, done.returncode)
        self.assertIn("an answer was wrong, or none came", done.stderr)


if __name__ == "__main__":
    unittest.main()
