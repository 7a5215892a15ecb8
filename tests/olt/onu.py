"""onu-sim beside omci-olt, one program per test."""

import json
import os
import socket
import subprocess

from support import OltTest

ONU_SIM = os.environ["ONU_SIM"]


class Onu:
    def __init__(self, directory, *options):
        self.control = os.path.join(directory, "control")
        self._command = [ONU_SIM, "--listen", "127.0.0.1:0", "--control", self.control,
                         "--state-dir", os.path.join(directory, "state"), "--log-level", "0", *options]

    def __enter__(self):
        self._process = subprocess.Popen(self._command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.address = self._process.stdout.readline().strip().removeprefix("listening on ")
        self._socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._socket.connect(self.control)
        self._answers = self._socket.makefile()
        return self

    def __exit__(self, *_):
        self._answers.close()
        self._socket.close()
        self._process.terminate()
        self._process.communicate(timeout=60)

    def ask(self, **request):
        self._socket.sendall(json.dumps(request).encode() + b"\n")
        return json.loads(self._answers.readline())


class OnuTest(OltTest):
    OPTIONS = ()

    def setUp(self):
        super().setUp()
        self.onu = self.enterContext(Onu(self.directory, *self.OPTIONS))
