"""onu-sim as its users start it: a process, a UDP socket, a control socket, logs."""

import contextlib
import json
import os
import shutil
import socket
import struct
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["ONU_SIM"]
TIMEOUT = 20

CREATE, DELETE, SET, GET, MIB_UPLOAD, MIB_RESET, ALARM, AVC, REBOOT = 4, 6, 8, 9, 13, 15, 16, 17, 25
GET_CURRENT_DATA = 28
ACKNOWLEDGE_REQUEST = 0x40


def baseline(transaction, message, entity_class, instance, contents=b""):
    header = struct.pack(">HBBHH", transaction, message | ACKNOWLEDGE_REQUEST, 0x0A, entity_class, instance)
    return header + contents.ljust(32, b"\0") + struct.pack(">I", 0x28) + bytes(4)


class OnuSim:
    """One running program in a directory of its own."""

    def __init__(self, *options, directory, log_level=0):
        self.directory = directory
        self.hardware_log = os.path.join(directory, "hardware.jsonl")
        self.library_log = os.path.join(directory, "library.jsonl")
        self.control_path = os.path.join(directory, "control")
        command = [PROGRAM, "--listen", "127.0.0.1:0", "--control", self.control_path,
                   "--hardware-log", self.hardware_log, "--library-log", self.library_log,
                   "--log-level", str(log_level), *options]
        environment = dict(os.environ, TMPDIR=directory)
        self.error_output = os.path.join(directory, "stderr") if log_level else None
        with open(self.error_output, "w", encoding="utf-8") if log_level else contextlib.nullcontext() as errors:
            self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=errors, env=environment, text=True)
        self.first_line = self.process.stdout.readline()
        self.address = ("127.0.0.1", int(self.first_line.rsplit(":", 1)[1]))
        self.transaction = 0
        self.udp = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.udp.settimeout(TIMEOUT)
        self.connection = self.connect()

    def connect(self):
        connection = socket.socket(socket.AF_UNIX)
        connection.settimeout(TIMEOUT)
        connection.connect(self.control_path)
        with connection:
            return connection.makefile("rwb")

    def ask(self, request, connection=None):
        """One request line, one answer."""
        connection = connection or self.connection
        line = request if isinstance(request, bytes) else json.dumps(request).encode()
        connection.write(line + b"\n")
        connection.flush()
        return json.loads(connection.readline())

    def call(self, name, *arguments):
        return self.ask({"call": name, "args": list(arguments)})

    def omci(self, message, entity_class, instance, contents=b""):
        """One baseline request; the contents of its response."""
        self.transaction += 1
        self.udp.sendto(baseline(self.transaction, message, entity_class, instance, contents), self.address)
        response = self.udp.recv(2048)
        assert struct.unpack(">H", response[:2])[0] == self.transaction
        return response[8:40]

    def hardware_calls(self, name=None):
        lines = read_lines(self.hardware_log)
        return [line for line in lines if name is None or line["call"] == name]

    def stop(self):
        self.udp.close()
        self.connection.close()
        self.process.terminate()
        code = self.process.wait(TIMEOUT)
        self.process.stdout.close()
        return code


def read_lines(path):
    with open(path, encoding="utf-8") as file:
        return [json.loads(line) for line in file]


class OnuSimTest(unittest.TestCase):
    """Each test has its own directory, and its own program once it asks for one."""

    def setUp(self):
        self.directory = tempfile.mkdtemp(prefix="onu-sim-test-")
        self.addCleanup(shutil.rmtree, self.directory, ignore_errors=True)

    def start(self, *options, **more):
        simulator = OnuSim(*options, directory=self.directory, **more)
        self.addCleanup(lambda: simulator.process.poll() is None and simulator.stop())
        return simulator

    def write(self, name, text):
        path = os.path.join(self.directory, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path
