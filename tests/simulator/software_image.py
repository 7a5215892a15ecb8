"""Software download, activate and commit frame by frame, in both formats."""

import os
import struct
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))

from omci_crc import crc32  # noqa: E402
from onu_sim import ACKNOWLEDGE_REQUEST, TIMEOUT  # noqa: E402

START_DOWNLOAD, SECTION, END_DOWNLOAD, ACTIVATE, COMMIT, GET, REBOOT = 19, 20, 21, 22, 23, 9, 25
SOFTWARE_IMAGE, ONU_G = 7, 256
SUCCESS, PROCESSING_ERROR, UNKNOWN_INSTANCE, BUSY = 0, 1, 5, 6
BASELINE, EXTENDED = 0x0A, 0x0B
ROOM = {BASELINE: 31, EXTENDED: 1965}

DESCRIPTION = "/opt/addons/etc/appinfo.ini"
VERIFY = "/opt/addons/am/verify_and_exec.sh app /tmp/ont_image.sef BLOB_APPS_SUPPORTED=2"
SLOT_1_RUNS = {"APP1_SW_VERSION": "V1.0", "APP1_COMMIT": 1, "APP1_ACTIVE": 1, "APP1_VALID": 1, "APP1_PART_SEL": 1,
               "APP2_SW_VERSION": "V0.9", "APP2_COMMIT": 0, "APP2_ACTIVE": 0, "APP2_VALID": 1, "APP2_PART_SEL": 2}


def wait_for(condition):
    """Whether it became true within the time-out."""
    end = time.monotonic() + TIMEOUT
    while time.monotonic() < end:
        if condition():
            return True
        time.sleep(0.005)
    return False


class SoftwareImages:
    """What an OLT does with the images of a running onu-sim."""

    def __init__(self, simulator, device=BASELINE):
        self.simulator = simulator
        self.device = device

    def send(self, message, instance, contents=b"", entity_class=SOFTWARE_IMAGE, acknowledge=True):
        """The contents of the response; None where none is due."""
        simulator = self.simulator
        simulator.transaction += 1
        head = struct.pack(">HBBHH", simulator.transaction, message | (ACKNOWLEDGE_REQUEST if acknowledge else 0),
                           self.device, entity_class, instance)
        if self.device == BASELINE:
            frame = head + contents.ljust(32, b"\0") + bytes((0, 0, 0, 0x28))
        else:
            frame = head + struct.pack(">H", len(contents)) + contents
        simulator.udp.sendto(frame + bytes(4), simulator.address)
        if not acknowledge:
            return None
        response = simulator.udp.recv(2048)
        assert struct.unpack(">H", response[:2])[0] == simulator.transaction
        return response[8:40] if self.device == BASELINE else response[10:-4]

    def start(self, size, instance=1, window=15):
        return self.send(START_DOWNLOAD, instance, struct.pack(">BIBH", window, size, 1, instance))

    def section(self, number, octets, acknowledge, instance=1):
        return self.send(SECTION, instance, bytes((number,)) + octets, acknowledge=acknowledge)

    def sections(self, image, window=16, instance=1):
        room = ROOM[self.device]
        parts = [image[at:at + room] for at in range(0, len(image), room)]
        for at in range(0, len(parts), window):
            several = parts[at:at + window]
            for number, part in enumerate(several):
                answer = self.section(number, part, number + 1 == len(several), instance)
            assert answer[:2] == bytes((SUCCESS, len(several) - 1)), answer

    def end(self, image, instance=1, crc=None, size=None):
        crc = crc32(image) if crc is None else crc
        return self.send(END_DOWNLOAD, instance,
                         struct.pack(">IIBH", crc, len(image) if size is None else size, 1, instance))[0]

    def download(self, image, instance=1):
        """To the moment at which the writer is under way."""
        assert self.start(len(image), instance)[0] == SUCCESS
        self.sections(image, instance=instance)
        assert self.end(image, instance) == BUSY

    def outcome(self, image, instance=1):
        """Polls until the image is written; the result that the OLT sees."""
        results = []

        def is_through():
            results.append(self.end(image, instance))
            return results[-1] != BUSY
        assert wait_for(is_through), "the ONU is busy for ever"
        return results[-1]

    def activate(self, instance):
        return self.send(ACTIVATE, instance)[0]

    def commit(self, instance):
        return self.send(COMMIT, instance)[0]

    def flags(self, instance):
        """Committed, active, valid, as Get has them."""
        answer = self.send(GET, instance, b"\x70\x00")
        return tuple(answer[3:6] if self.device == BASELINE else answer[7:10])

    def reboot(self):
        before = len(self.lives())
        assert self.send(REBOOT, 0, b"\0", entity_class=ONU_G)[0] == SUCCESS
        assert wait_for(lambda: len(self.lives()) > before)

    def lives(self):
        """One line of the library's log for each start."""
        with open(self.simulator.library_log, encoding="utf-8") as file:
            return [line for line in file if '"Model name not found' in line]

    def status(self):
        """The display as label -> value; of the two lines of the status, number and word."""
        text = self.simulator.ask({"show": "software-download"})["result"]
        lines = [line.split(" : ") for line in text.split("\n\r")[:-1]]
        return {**{label.strip(): value for label, value in lines[:-1]}, "Word": lines[-1][1]}


def board_file(simulator, path):
    return os.path.join(simulator.directory, "state") + path


def read_board_file(simulator, path):
    with open(board_file(simulator, path), "rb") as file:
        return file.read()


def descriptions(simulator):
    lines = read_board_file(simulator, DESCRIPTION).decode().splitlines()
    return dict(line.split("=", 1) for line in lines)
