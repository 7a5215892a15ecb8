"""A small ONU on a UDP port of this machine, with a road to it that can be made bad."""

import socket
import struct
import threading

from omci_wire import *  # noqa: F403

# class -> sizes of attributes 1, 2, ...; typed from G.988. "T" and a number: a table of rows of that many octets.
CLASSES = {
    2: [1],
    7: [14, 1, 1, 1, 25, 16],
    11: [1, 1, 1, 1, 1, 1, 1, 2, 1, 2, 1, 1, 1, 1, 1],
    53: [1, 2, 1, 1, 1, 1, 1, 1, 1, 1, 2, 1, 1],
    58: [1, 2, 2, 1, 2, 2, 2, 2, 2, "T20", "T7", "T5", "T7", 2],
    134: [1, 6, 25, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 25, 25, 2],
    136: [2, 1, 1, 2],
    137: [2, 2],
    139: [2, 2, 2, 1],
    141: [2, 1, 1, 2, 2, 25, 25, 1, 1],
    142: [1, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2],
    143: [2, 2, 1, 1, 1, 1, 1, 2],
    145: [2, 2, 2, 2, 1, "T30"],
    146: [1, 1, 2, 2, 1, 2, 2, 2, 2],
    148: [1, 25, 25, 25, 25],
    150: [2, 2, 4, 4, 2, 4, 4, 2, 1, 2, 4, "T5", 1, 1, 2],
    153: [2, 2, 25, 2, 2, 4, 2, 2, 2, 2, 1, 1],
    157: [1] + 15 * [25],
    158: [1, 25, "T29"],
    171: [1, 2, 2, 2, 1, "T16", 2, 24],
    256: [4, 14, 8, 1, 1, 1, 1, 1, 1, 24, 12, 1],
    263: [1, 2, 2, 1, 1, 1, 1, 1, 1, 2, 1, 1, 2, 2, 1, 1],
    272: [2],
    307: [2] + 15 * [25],
}
SET_BY_CREATE = {171: [1, 7], 272: [1]}
UNREADABLE = {158: [2]}
READ_ONLY = {256: [1, 2, 3]}

SUCCESS, PROCESSING_ERROR, NOT_SUPPORTED, PARAMETER_ERROR = 0, 1, 2, 3
UNKNOWN_CLASS, UNKNOWN_INSTANCE, INSTANCE_EXISTS, ATTRIBUTES_FAILED = 4, 5, 7, 9


def bit(number):
    return 0x8000 >> (number - 1)


def is_table(size):
    return isinstance(size, str)


class FakeOnu:
    """`mib` maps (class, instance) to a list of attribute values. `road` is called with the number of the request from 0,
    and yields the datagrams that go back for it: a list of (delay in seconds, octets). Requests that are to have no answer
    don't count."""

    def __init__(self, mic="none"):
        self.mic = mic
        self.mib = {}
        self.alarms = {}          # (class, instance) -> bitmap of 28 octets
        self.rows = {}            # (class, instance, attribute) -> list of rows
        self.requests = []        # every datagram's frame
        self.executed = []        # frames that were run, not answered from the last reply
        self.road = lambda number, reply: [(0, reply)]
        self.after = lambda frame: []  # notifications that follow a request: octets
        self._last = None
        self._upload = []
        self._peer = None
        self._timers = []
        self._socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._socket.bind(("127.0.0.1", 0))
        self.address = "127.0.0.1:%d" % self._socket.getsockname()[1]
        self._thread = threading.Thread(target=self._serve, daemon=True)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._socket.sendto(b"", self._socket.getsockname())
        self._thread.join()
        for timer in self._timers:
            timer.cancel()
            timer.join()
        self._socket.close()

    def add(self, entity_class, instance, values=None):
        sizes = CLASSES[entity_class]
        filled = [bytes(4 if is_table(size) else size) for size in sizes]
        for number, value in (values or {}).items():
            filled[number - 1] = value.ljust(len(filled[number - 1]), b"\0")
        self.mib[entity_class, instance] = filled

    def notify(self, message_type, entity_class, instance, contents, device=BASELINE, transaction=0):
        self._send(build(transaction, NOTIFICATION, message_type, device, entity_class, instance, contents, self.mic))

    def _send(self, octets):
        self._socket.sendto(octets, self._peer)

    def _serve(self):
        number = 0
        while True:
            octets, peer = self._socket.recvfrom(65536)
            if not octets:
                return
            self._peer = peer
            frame = Frame(octets)
            self.requests.append(frame)
            reply = self._answer(frame)
            if reply is None:
                continue
            for delay, datagram in self.road(number, reply):
                if delay == 0:
                    self._send(datagram)
                else:
                    self._timers.append(threading.Timer(delay, self._send, [datagram]))
                    self._timers[-1].start()
            for notification in self.after(frame):
                self._send(notification)
            number += 1

    def _answer(self, frame):
        if self._last and self._last[0] == frame.octets:
            return self._last[1]
        self.executed.append(frame)
        contents = self._execute(frame)
        if contents is None:
            return None
        reply = build(frame.transaction, RESPONSE, frame.type, frame.device, frame.entity_class, frame.instance,
                      contents, self.mic)
        self._last = (frame.octets, reply)
        return reply

    def _execute(self, frame):
        key = (frame.entity_class, frame.instance)
        if frame.entity_class not in CLASSES:
            return bytes([UNKNOWN_CLASS])
        if frame.type == CREATE:
            return self._create(key, frame)
        if key not in self.mib:
            return bytes([UNKNOWN_INSTANCE])
        handlers = {GET: self._get, GET_CURRENT_DATA: self._get, SET: self._set, SET_TABLE: self._set_table,
                    GET_NEXT: self._get_next, MIB_UPLOAD: self._start_upload, MIB_UPLOAD_NEXT: self._upload_next,
                    GET_ALL_ALARMS: self._start_alarms, GET_ALL_ALARMS_NEXT: self._alarms_next}
        if frame.type in handlers:
            return handlers[frame.type](key, frame)
        if frame.type == DELETE:
            del self.mib[key]
        if frame.type in (DELETE, MIB_RESET, TEST, REBOOT, SYNCHRONIZE_TIME):
            return bytes([SUCCESS])
        return bytes([NOT_SUPPORTED])

    def _create(self, key, frame):
        if key in self.mib:
            return bytes([INSTANCE_EXISTS])
        values, at = {}, 0
        for number in SET_BY_CREATE.get(key[0], []):
            size = CLASSES[key[0]][number - 1]
            values[number] = frame.contents[at:at + size]
            at += size
        self.add(*key, values)
        return bytes([SUCCESS])

    def _get(self, key, frame):
        mask = struct.unpack(">H", frame.contents[:2])[0]
        returned = missing = failed = 0
        values = b""
        room = 1959 if frame.extended else 25
        for number in range(1, 17):
            if not mask & bit(number):
                continue
            if number > len(CLASSES[key[0]]):
                missing |= bit(number)
            elif number in UNREADABLE.get(key[0], []) or len(values + self.mib[key][number - 1]) > room:
                failed |= bit(number)
            else:
                value = self.mib[key][number - 1]
                if is_table(CLASSES[key[0]][number - 1]):
                    value = struct.pack(">I", sum(map(len, self.rows.get((*key, number), []))))
                values += value
                returned |= bit(number)
        result = ATTRIBUTES_FAILED if missing or failed else SUCCESS
        head = struct.pack(">BH", result, returned)
        masks = struct.pack(">HH", missing, failed)
        return head + masks + values if frame.extended else head + values.ljust(25, b"\0") + masks

    def _set(self, key, frame):
        mask = struct.unpack(">H", frame.contents[:2])[0]
        at, failed = 2, 0
        for number, size in enumerate(CLASSES[key[0]], 1):
            if not mask & bit(number):
                continue
            length = int(size[1:]) if is_table(size) else size
            value = frame.contents[at:at + length]
            at += length
            if number in READ_ONLY.get(key[0], []):
                failed |= bit(number)
            elif is_table(size):
                self.rows.setdefault((*key, number), []).append(value)
            else:
                self.mib[key][number - 1] = value
        if not failed:
            return bytes([SUCCESS])
        return struct.pack(">BHH", ATTRIBUTES_FAILED, 0, failed)

    def _set_table(self, key, frame):
        mask = struct.unpack(">H", frame.contents[:2])[0]
        for number, size in enumerate(CLASSES[key[0]], 1):
            if mask & bit(number):
                length, rows = int(size[1:]), frame.contents[2:]
                self.rows[(*key, number)] = [rows[at:at + length] for at in range(0, len(rows), length)]
        return bytes([SUCCESS])

    def _get_next(self, key, frame):
        mask, sequence = struct.unpack(">HH", frame.contents[:4])
        for number in range(1, len(CLASSES[key[0]]) + 1):
            if mask == bit(number) and (*key, number) in self.rows:
                whole = b"".join(self.rows[(*key, number)])
                part = whole[29 * sequence:29 * (sequence + 1)]
                return struct.pack(">BH", SUCCESS if part else PARAMETER_ERROR, mask) + part
        return struct.pack(">BH", NOT_SUPPORTED, mask)

    def _start_upload(self, _key, frame):
        entries = []
        for (entity_class, instance), values in sorted(self.mib.items()):
            portions = [[0, b""]]
            for number, size in enumerate(CLASSES[entity_class], 1):
                if is_table(size) or number in UNREADABLE.get(entity_class, []):
                    continue
                if len(portions[-1][1]) + size > 26:
                    portions.append([0, b""])
                portions[-1][0] |= bit(number)
                portions[-1][1] += values[number - 1]
            entries += [(entity_class, instance, mask, data) for mask, data in portions]
        if frame.extended:
            blocks = [struct.pack(">HHHH", len(e[3]), *e[:3]) + e[3] for e in entries]
            self._upload = [b"".join(blocks[at:at + 5]) for at in range(0, len(blocks), 5)]
        else:
            self._upload = [struct.pack(">HHH", *e[:3]) + e[3] for e in entries]
        return struct.pack(">H", len(self._upload))

    def _upload_next(self, _key, frame):
        sequence = struct.unpack(">H", frame.contents[:2])[0]
        return self._upload[sequence] if sequence < len(self._upload) else b""

    def _start_alarms(self, _key, _frame):
        self._snapshot = [struct.pack(">HH", *key) + bitmap for key, bitmap in sorted(self.alarms.items())]
        return struct.pack(">H", len(self._snapshot))

    def _alarms_next(self, _key, frame):
        return self._snapshot[struct.unpack(">H", frame.contents[:2])[0]]
