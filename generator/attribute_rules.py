"""From one attribute row of a catalogue file to an Attribute, with every check that concerns it alone."""

import re

from model import KINDS, LETTERS, NUMERIC_KINDS, Attribute
from problems import Place

NAME_PATTERN = re.compile(r"[A-Z][A-Za-z0-9_]*")
MAX_OCTETS = 25  # what a Get response and a start-up value can carry


def read_attribute(row, number: int, marks: dict[str, list[str]], place: Place) -> Attribute | None:
    """The attribute of `[name, kind, bytes, access(, default)]`, or None after objecting.

    `marks` are the lists of attribute names of the class's deviation keys."""
    if not _is_well_formed(row, number, place):
        return None
    name, kind, size, letters, *rest = row
    here = place.of_attribute(name)
    sound = [
        _check_size(kind, size, name in marks["odd_size"], here),
        _check_letters(letters, kind, here),
        _check_marks(name, kind, marks, here),
    ]
    if not all(sound):
        return None
    default = _default_of(kind, size, rest, here)
    if default is None:
        return None
    return Attribute(
        name=name,
        number=number,
        kind=kind,
        size=size,
        letters=letters,
        default=default,
        table_write_mode=1 if name in marks["table_write_mode_1"] else 0,
        has_definition=name not in marks["without_definition"],
        stored_count=name in marks["stored_count"],
    )


def _is_well_formed(row, number: int, place: Place) -> bool:
    expected = (str, str, int, str)
    good = isinstance(row, list) and len(row) in (4, 5)
    good = good and all(type(item) is kind for item, kind in zip(row, expected))
    if not good:
        place.object_to(f"attribute {number}: expected [name, kind, bytes, access(, default)], got {row}")
        return False
    if not NAME_PATTERN.fullmatch(row[0]):
        place.object_to(f"attribute {number}: name '{row[0]}' does not match {NAME_PATTERN.pattern}")
        return False
    if row[1] not in KINDS:
        place.of_attribute(row[0]).object_to(f"unknown kind '{row[1]}', expected one of {', '.join(KINDS)}")
        return False
    return True


def _check_size(kind: str, size: int, odd: bool, here: Place) -> bool:
    if kind in NUMERIC_KINDS:
        if (size != NUMERIC_KINDS[kind]) == odd and size > 0:
            return True
        here.object_to("odd_size is needless: the size fits the kind" if odd and size > 0
                       else f"size {size} does not fit kind {kind}")
        return False
    limit = MAX_OCTETS if kind == "octets" else 0xFFFF
    if odd:
        here.object_to(f"odd_size is for numbers, not for kind {kind}")
    elif not 0 < size <= limit:
        here.object_to(f"size {size} does not fit kind {kind}, expected 1 to {limit}")
    return not odd and 0 < size <= limit


def _check_letters(letters: str, kind: str, here: Place) -> bool:
    unknown = [letter for letter in letters if letter not in LETTERS]
    if unknown:
        here.object_to(f"unknown access letter '{unknown[0]}' in '{letters}', known are {LETTERS}")
    elif not letters or letters != "".join(letter for letter in LETTERS if letter in letters):
        here.object_to(f"access '{letters}' is not in the order {LETTERS}, each letter once")
    elif ("N" in letters) != (kind == "table"):
        here.object_to("access N (get next) belongs to tables, and every table has it")
    elif "C" in letters and kind == "table":
        here.object_to("a table can't be set by create")
    elif not set("RW") & set(letters):
        here.object_to(f"access '{letters}' is neither readable nor writable")
    else:
        return True
    return False


def _check_marks(name: str, kind: str, marks: dict[str, list[str]], here: Place) -> bool:
    wrong = [key for key in ("table_write_mode_1", "stored_count") if name in marks[key] and kind != "table"]
    for key in wrong:
        here.object_to(f"{key} is for tables, not for kind {kind}")
    return not wrong


def _default_of(kind: str, size: int, rest: list, here: Place) -> int | bytes | None:
    if kind == "table":
        if rest:
            here.object_to("a table has no default, it starts empty")
            return None
        return 0
    if kind == "octets":
        return _octets_default(size, rest[0] if rest else "", here)
    if not rest or type(rest[0]) is not int:
        here.object_to(f"kind {kind} needs a number as default")
        return None
    bits = 8 * min(size, NUMERIC_KINDS[kind])
    low, high = (-(1 << (bits - 1)), (1 << (bits - 1)) - 1) if kind.startswith("s") else (0, (1 << bits) - 1)
    if not low <= rest[0] <= high:
        here.object_to(f"default {rest[0]} is outside {low} to {high}")
        return None
    return rest[0]


def _octets_default(size: int, text, here: Place) -> bytes | None:
    if type(text) is not str:
        here.object_to(f"default {text} of octets must be a text or a text of 0x and hexadecimal digits")
        return None
    try:
        octets = bytes.fromhex(text[2:]) if text.startswith("0x") else text.encode("ascii")
    except ValueError:
        here.object_to(f"default '{text}' is neither ASCII text nor whole hexadecimal octets")
        return None
    if len(octets) > size:
        here.object_to(f"default '{text}' has {len(octets)} octets, more than {size}")
        return None
    return octets.ljust(size, b"\0")
