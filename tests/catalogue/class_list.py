"""The second list of the managed-entity classes: classes-*.txt, read into plain objects."""

import dataclasses
import pathlib

FLAGS = {"C": 1, "R": 2, "W": 4, "U": 8, "A": 16, "N": 32}
KINDS = {"u8": 0, "octets": 0, "table": 0, "u16": 1, "u32": 2, "u64": 3, "s8": 4, "s16": 5}
ROW_COUNT_OCTETS = 4


@dataclasses.dataclass
class Attribute:
    mask: int
    size: int
    kind: str
    access: str
    default: int | None
    name: str

    @property
    def flags(self):
        return sum(FLAGS[letter] for letter in self.access)

    @property
    def default_octets(self):
        """In network order; None where the list keeps none."""
        size = ROW_COUNT_OCTETS if self.kind == "table" else self.size
        return None if self.default is None else (self.default % (1 << 8 * size)).to_bytes(size, "big")


@dataclasses.dataclass
class EntityClass:
    number: int
    name: str
    masks: dict
    in_mib_upload: bool
    in_alarm_upload: bool
    creators: set
    attributes: list


def _class(words):
    masks = {words[place]: int(words[place + 1], 16) for place in range(3, 11, 2)}
    return EntityClass(int(words[1]), words[2], masks, "mib" in words[11:], "alarms" in words[11:],
                       set(words[-1].split("+")), [])


def _attribute(words):
    mask, size, kind, access, default, name = words
    assert kind in KINDS, kind
    return Attribute(int(mask, 16), int(size), kind, access, None if default == "-" else int(default), name)


def read():
    """All classes by number."""
    classes = {}
    for path in sorted(pathlib.Path(__file__).parent.glob("classes-*.txt")):
        current = None
        for line in path.read_text(encoding="utf-8").splitlines():
            words = line.split()
            if not words or words[0] == "#":
                continue
            if words[0] == "class":
                current = _class(words)
                assert current.number not in classes, line
                classes[current.number] = current
            else:
                current.attributes.append(_attribute(words))
    return classes
