"""OMCI frames, written anew for the tests so that a slip of the program's own codec shows."""

import os
import struct
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))

from omci_crc import crc32  # noqa: E402,F401  for those who build frames and images

CREATE, DELETE, SET, GET = 4, 6, 8, 9
GET_ALL_ALARMS, GET_ALL_ALARMS_NEXT, MIB_UPLOAD, MIB_UPLOAD_NEXT, MIB_RESET = 11, 12, 13, 14, 15
ALARM, AVC, TEST, SYNCHRONIZE_TIME, REBOOT = 16, 17, 18, 24, 25
GET_NEXT, TEST_RESULT, GET_CURRENT_DATA, SET_TABLE = 26, 27, 28, 29

BASELINE, EXTENDED = 0x0A, 0x0B
REQUEST, RESPONSE, NOTIFICATION = 0x40, 0x20, 0x00


class Frame:
    def __init__(self, octets):
        self.octets = octets
        self.transaction, kind, self.device, self.entity_class, self.instance = struct.unpack(">HBBHH", octets[:8])
        self.flags, self.type = kind & 0xE0, kind & 0x1F
        if self.device == BASELINE:
            self.contents = octets[8:40]
        else:
            length = struct.unpack(">H", octets[8:10])[0]
            self.contents = octets[10:10 + length]

    @property
    def extended(self):
        return self.device == EXTENDED


def build(transaction, flags, message_type, device, entity_class, instance, contents, mic="none"):
    head = struct.pack(">HBBHH", transaction, flags | message_type, device, entity_class, instance)
    if device == BASELINE:
        assert len(contents) <= 32, "contents exceed a baseline frame"
        body = head + contents.ljust(32, b"\0") + b"\0\0\0\x28"
    else:
        body = head + struct.pack(">H", len(contents)) + contents
    return body + (struct.pack(">I", crc32(body)) if mic == "crc32" else b"\0\0\0\0")
