"""A fake ONU that takes software images, and can be told to take them badly."""

import struct

from fake_onu import BASELINE, PROCESSING_ERROR, SUCCESS, UNKNOWN_INSTANCE, FakeOnu
from omci_wire import crc32

START_DOWNLOAD, SECTION, END_DOWNLOAD, ACTIVATE, COMMIT = 19, 20, 21, 22, 23
SOFTWARE_IMAGE = 7
REFUSED, BUSY = PROCESSING_ERROR, 6


class FakeImageStore(FakeOnu):
    def __init__(self, mic="none"):
        super().__init__(mic)
        for instance, flags in ((0, b"\1"), (1, b"\0")):
            self.add(SOFTWARE_IMAGE, instance, {1: b"V1.%d" % instance, 2: flags, 3: flags, 4: b"\1", 5: b"product"})
        self.window = 256         # sections in a window, at most
        self.start_result = SUCCESS
        self.end_results = [BUSY, SUCCESS]  # of a good image, the last one for ever
        self.image = b""
        self.starts = []          # (window, size, instance) as proposed
        self.windows = []         # (section numbers, result) of each window
        self.polls = 0
        self.activated = []
        self.committed = []
        self.refuse = lambda number: False  # whether to refuse window `number`, counted from 0
        self._part = []
        self._size = 0

    def _execute(self, frame):
        handlers = {START_DOWNLOAD: self._start_download, SECTION: self._section, END_DOWNLOAD: self._end_download,
                    ACTIVATE: self._activate, COMMIT: self._commit}
        if frame.entity_class != SOFTWARE_IMAGE or frame.type not in handlers:
            return super()._execute(frame)
        if (SOFTWARE_IMAGE, frame.instance) not in self.mib:
            return bytes([UNKNOWN_INSTANCE])
        return handlers[frame.type](frame)

    def _start_download(self, frame):
        window, size, count, instance = struct.unpack(">BIBH", frame.contents[:8])
        assert count == 1
        self.starts.append((window + 1, size, instance))
        self.image, self._part, self._size, self.polls = b"", [], size, 0
        return struct.pack(">BBB", self.start_result, min(window + 1, self.window) - 1, 0)

    def _section(self, frame):
        self._part.append((frame.contents[0], frame.contents[1:]))
        if not frame.flags:
            return None
        numbers = [number for number, _ in self._part]
        good = numbers == list(range(len(numbers))) and not self.refuse(len(self.windows))
        result = SUCCESS if good else REFUSED
        self.windows.append((numbers, result))
        if good:
            self.image += b"".join(part for _, part in self._part)
        self._part = []
        return bytes((result, numbers[-1]))

    def _end_download(self, frame):
        crc, size, count, _instance = struct.unpack(">IIBH", frame.contents[:11])
        assert count == 1
        # Padding of the last baseline section.
        image = self.image[:self._size]
        if (crc, size) != (crc32(image), self._size) or (frame.device != BASELINE and image != self.image):
            return bytes((REFUSED, 0))
        result = self.end_results[min(self.polls, len(self.end_results) - 1)]
        self.polls += 1
        return bytes((result, 0))

    def _activate(self, frame):
        self.activated.append((frame.instance, frame.contents[0]))
        return bytes([SUCCESS])

    def _commit(self, frame):
        self.committed.append(frame.instance)
        return bytes([SUCCESS])
