"""onu-sim as a service: the manager hears when it is ready and when it ends."""

import os
import signal
import socket
import subprocess
import tempfile
import unittest

from onu_sim import PROGRAM, TIMEOUT


class Service(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = directory.name
        self.manager = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        self.addCleanup(self.manager.close)
        self.manager.settimeout(TIMEOUT)
        self.manager.bind(os.path.join(self.directory, "notify"))

    def start(self, address=None):
        environment = dict(os.environ, TMPDIR=self.directory,
                           NOTIFY_SOCKET=address if address is not None else os.path.join(self.directory, "notify"))
        program = subprocess.Popen([PROGRAM, "--listen", "127.0.0.1:0", "--log-level", "0"], stdout=subprocess.PIPE,
                                   env=environment, text=True)
        self.addCleanup(program.stdout.close)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        return program

    def test_managerHearsReadyAfterTheFirstLineAndStoppingAtTheEnd(self):
        program = self.start()
        self.assertEqual(self.manager.recv(100), b"READY=1")
        self.assertTrue(program.stdout.readline().startswith("listening on "))
        program.send_signal(signal.SIGTERM)
        self.assertEqual(self.manager.recv(100), b"STOPPING=1")
        self.assertEqual(program.wait(TIMEOUT), 0)

    def test_endLeavesNothingBehind(self):
        program = self.start()
        self.assertEqual(self.manager.recv(100), b"READY=1")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(TIMEOUT), 0)
        self.assertEqual(os.listdir(self.directory), ["notify"])

    def test_managerAtAnAbstractAddressHearsToo(self):
        name = f"onu-sim-test-{os.getpid()}"
        with socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as manager:
            manager.settimeout(TIMEOUT)
            manager.bind("\0" + name)
            program = self.start("@" + name)
            self.assertEqual(manager.recv(100), b"READY=1")
            program.send_signal(signal.SIGTERM)
            self.assertEqual(manager.recv(100), b"STOPPING=1")
            self.assertEqual(program.wait(TIMEOUT), 0)

    def test_runsWhereNoManagerListens(self):
        gone = os.path.join(self.directory, "gone")
        for address in ("", "@", "/", "relative/notify", gone, "/" + 200 * "x", "vsock:2:1234"):
            with self.subTest(address):
                program = self.start(address)
                self.assertTrue(program.stdout.readline().startswith("listening on "))
                program.send_signal(signal.SIGTERM)
                self.assertEqual(program.wait(TIMEOUT), 0)


if __name__ == "__main__":
    unittest.main()
