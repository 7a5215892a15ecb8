"""The catalogue as data: managed-entity classes, their attributes, and the rows of the start-up table.

Plain immutable records without file access; `catalogue.load` builds them from the TOML files. Masks have
attribute 1 at 0x8000 and attribute 16 at 0x0001. Access letters are C set by create, R readable by Get,
W writable by Set, U in MIB upload, A reports attribute value change, N served through get next.
"""

import re
from dataclasses import dataclass, field

LETTERS = "CRWUAN"
FLAG_BITS = {letter: 1 << index for index, letter in enumerate(LETTERS)}
LETTER_WORDS = {
    "C": "set by create",
    "R": "readable by Get",
    "W": "writable by Set",
    "U": "in MIB upload",
    "A": "reports attribute value change",
    "N": "served through get next",
}

# Kind -> bytes of a value; octets and tables carry their own size.
NUMERIC_KINDS = {"u8": 1, "u16": 2, "u32": 4, "u64": 8, "s8": 1, "s16": 2}
KINDS = (*NUMERIC_KINDS, "octets", "table")
KIND_CODES = {"u8": 0, "octets": 0, "table": 0, "u16": 1, "u32": 2, "u64": 3, "s8": 4, "s16": 5}

MAX_ATTRIBUTES = 16
ROW_COUNT_BYTES = 4


@dataclass(frozen=True)
class Attribute:
    """One attribute of a managed entity. `size` is bytes on the wire, for a table the bytes of one row."""

    name: str
    number: int
    kind: str
    size: int
    letters: str
    default: int | bytes  # an int, or exactly `size` octets; 0 (no rows) for a table
    table_write_mode: int = 0
    has_definition: bool = True
    stored_count: bool = False

    @property
    def mask(self) -> int:
        return 0x8000 >> (self.number - 1)

    @property
    def flags(self) -> int:
        """Access flags of the attribute definition: C 1, R 2, W 4, U 8, A 16, N 32."""
        return sum(FLAG_BITS[letter] for letter in self.letters)

    @property
    def kind_code(self) -> int:
        """Data kind of the attribute definition, 0 to 5."""
        return KIND_CODES[self.kind]

    @property
    def is_table(self) -> bool:
        return self.kind == "table"

    @property
    def is_octets(self) -> bool:
        return self.kind == "octets"

    @property
    def is_numeric(self) -> bool:
        return self.kind in NUMERIC_KINDS

    @property
    def is_signed(self) -> bool:
        return self.kind in ("s8", "s16")

    @property
    def default_bytes(self) -> bytes:
        """The default as Get yields it, in network order; for a table the row count in 4 bytes."""
        if isinstance(self.default, bytes):
            return self.default
        size = ROW_COUNT_BYTES if self.is_table else self.size
        return self.default.to_bytes(size, "big", signed=self.is_signed)

    @property
    def has_zero_default(self) -> bool:
        return not any(self.default_bytes)

    @property
    def upper_name(self) -> str:
        """Name in dumps: an underscore at each step from lower case or digit to upper case."""
        return re.sub(r"(?<=[a-z0-9])(?=[A-Z])", "_", self.name).upper()

    @property
    def camel_name(self) -> str:
        """The name with a lower-case first letter, for parameters and JSON."""
        return self.name[0].lower() + self.name[1:]


@dataclass(frozen=True)
class ManagedEntity:
    """One class. Masks are those that the class announces: by the letters, or a stated deviation."""

    short_name: str  # "AniG", of OmciMeAniGIf
    class_id: int
    name: str  # "ANIG"
    entity: str  # the title in G.988
    clause: str | None  # G.988 clause; None for vendor-specific classes
    family: str  # file stem
    created_by: tuple[str, ...]
    in_mib_upload: bool
    in_alarm_upload: bool
    impl_extended: bool
    adapter_extended: bool
    attributes: tuple[Attribute, ...]
    get_mask: int
    set_mask: int
    create_mask: int
    get_next_mask: int
    # The getters of the counters ask the hardware layer first.
    refreshed_counters: bool = False

    @property
    def counters(self) -> tuple[Attribute, ...]:
        """Of a PM entity: all after the interval end time and the thresholds or control block."""
        return self.attributes[2:]

    @property
    def tables(self) -> tuple[Attribute, ...]:
        return tuple(attribute for attribute in self.attributes if attribute.is_table)

    @property
    def onu_creatable(self) -> bool:
        """The ONU itself may create instances, at start-up or later."""
        return "onu" in self.created_by

    @property
    def olt_creatable(self) -> bool:
        return "olt" in self.created_by

    @property
    def roles(self) -> tuple[str, ...]:
        """Names of the hand-written classes."""
        extended = (("Impl", self.impl_extended), ("Adapter", self.adapter_extended))
        return tuple(f"OmciMe{self.short_name}{role}Extended" for role, present in extended if present)

    def attribute(self, name: str) -> Attribute | None:
        return next((attribute for attribute in self.attributes if attribute.name == name), None)


def mask_of_letter(attributes, letter: str) -> int:
    """OR of the masks of the attributes with this letter. Attributes without a definition don't count."""
    return sum(a.mask for a in attributes if letter in a.letters and a.has_definition)


@dataclass(frozen=True)
class StartupRow:
    """One row of the start-up table; `kinds` and `texts` have 16 items, attribute 1 first."""

    entity: ManagedEntity
    count: int
    instance: str | None  # name of the instance function
    update: str | None  # name of the update function
    kinds: tuple[int, ...]
    texts: tuple[str, ...]
    stated: frozenset[int] = field(default_factory=frozenset)  # attribute numbers with a stated value


@dataclass(frozen=True)
class Family:
    """The classes of one catalogue file, in the file's order."""

    stem: str
    title: str  # first line of the file
    classes: tuple[ManagedEntity, ...]


@dataclass(frozen=True)
class Catalogue:
    families: tuple[Family, ...]  # by file name
    classes: tuple[ManagedEntity, ...]  # by class id
    startup_rows: tuple[StartupRow, ...]  # in table order
