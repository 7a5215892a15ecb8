"""The start-up table: catalogue/startup.toml in, one StartupRow per class that the ONU supports out."""

from model import MAX_ATTRIBUTES, Attribute, ManagedEntity, StartupRow
from problems import Place

FILE_NAME = "startup.toml"

# Value kind -> bytes that it makes; kind 0 makes no entry, kind 5 the text as it stands.
KIND_BYTES = {1: 1, 2: 2, 3: 4, 4: 8}
KIND_NONE = 0
KIND_TEXT = 5
MAX_TEXT = 25  # the field has 26 bytes, the last one zero

# Members of OmciManagedEntitiesCore with the signature of an instance or update function.
INSTANCE_FUNCTIONS = frozenset(
    "instance" + name
    for name in """OltG OntSystem OntFeature OnuG Onu2G OnuData OnuRemoteDebug EnhancedSecurityControl PowerShedding
    OnuDynamicPowerManagement IpHostConfigData VoipConfigData SoftwareImage TCont CardHolder CircuitPack PptpEthernet
    UniG VEIP PptpPotsUni VoipLineStatus AniG PptpVideo PptpVideoAni TWDMChannel TWDMSystemProfile TrafficScheduler
    PriorityQueue FlexibleConfigurationStatusPortal""".split()
)
UPDATE_FUNCTIONS = frozenset(
    "update" + name
    for name in """AniG CardHolder CircuitPack OnuG Onu2G PptpEthernet PptpVideo PptpVideoAni PriorityQueue
    TrafficScheduler SoftwareImage FlexibleConfigurationStatusPortal VerizonOpenOmci""".split()
)


def unstated_value(attribute: Attribute) -> tuple[int, str]:
    """Value kind and text of an attribute that the table says nothing about.

    It has an entry, because only attributes with an entry can be updated at run time, and the entry writes
    zero over a default that is zero already. No entry where a value can't be written (no definition), would
    append a row (tables), or would overwrite a class default that is meant to stand (not zero)."""
    if attribute.is_table or not attribute.has_definition or not attribute.has_zero_default:
        return KIND_NONE, ""
    if attribute.is_octets:
        return KIND_TEXT, ""
    # By the member's width: a 32-bit counter of 5 bytes on the wire is updated as 32 bits.
    return {"u8": 1, "s8": 1, "u16": 2, "s16": 2, "u32": 3, "u64": 4}[attribute.kind], "0"


def read_startup(table: dict, classes: dict[str, ManagedEntity | None], place: Place) -> tuple[StartupRow, ...]:
    """All rows in table order. What is wrong is objected to and left out.

    `classes` by short name; None is a class that has been objected to already, its row is passed over."""
    rows, values = table.get("rows", []), table.get("values", {})
    for key in table:
        if key not in ("rows", "values"):
            place.object_to(f"unknown key '{key}'")
    sound = isinstance(rows, list) and isinstance(values, dict)
    if not sound or not all(isinstance(of_class, dict) for of_class in values.values()):
        place.object_to("expected an array 'rows' and one table of values per class")
        return ()
    built, seen = [], set()
    for index, row in enumerate(rows):
        if not _is_sound_row(row, index, classes, place):
            continue
        name, entity = row[0], classes[row[0]]
        if name in seen:
            place.of_class(name).object_to("the class has two rows")
        seen.add(name)
        if entity:
            built.append(_build_row(row, entity, values.get(name, {}), place.of_class(name)))
    for name in values:
        if name not in seen:
            place.of_class(name).object_to("values of a class without a row")
    return tuple(built)


def _is_sound_row(row, index: int, classes: dict[str, ManagedEntity | None], place: Place) -> bool:
    expected = (str, int, str, str)
    good = isinstance(row, list) and len(row) in (1, 3, 4)
    if not good or not all(type(item) is kind for item, kind in zip(row, expected)):
        place.object_to(f"row {index}: expected [entity], or [entity, count, instance(, update)], got {row}")
        return False
    if row[0] not in classes:
        place.object_to(f"row {index}: unknown class '{row[0]}'")
        return False
    here, entity = place.of_class(row[0]), classes[row[0]]
    problems = []
    if len(row) > 1 and not 0 <= row[1] <= 0xFF:
        problems.append(f"count {row[1]} is outside 0 to 255")
    if len(row) > 1 and row[1] and entity and not entity.onu_creatable:
        problems.append("has instances at start-up, but created_by lacks \"onu\"")
    if len(row) > 2 and row[2] not in INSTANCE_FUNCTIONS:
        problems.append(f"unknown instance function '{row[2]}'")
    if len(row) > 3 and row[3] not in UPDATE_FUNCTIONS:
        problems.append(f"unknown update function '{row[3]}'")
    for problem in problems:
        here.object_to(problem)
    return not problems


def _build_row(row: list, entity: ManagedEntity, values: dict, place: Place) -> StartupRow:
    kinds, texts = [KIND_NONE] * MAX_ATTRIBUTES, [""] * MAX_ATTRIBUTES
    stated = set()
    for name in values:
        if entity.attribute(name) is None:
            place.of_attribute(name).object_to("unknown attribute")
    for attribute in entity.attributes:
        value = unstated_value(attribute)
        if attribute.name in values:
            value = _stated_value(values[attribute.name], attribute, place.of_attribute(attribute.name)) or value
            stated.add(attribute.number)
        kinds[attribute.number - 1], texts[attribute.number - 1] = value
    count, instance, update = (row[1:] + [None] * 3)[:3]
    return StartupRow(entity, count or 0, instance, update, tuple(kinds), tuple(texts), frozenset(stated))


def _stated_value(value, attribute: Attribute, here: Place) -> tuple[int, str] | None:
    kind, text = value if isinstance(value, list) and len(value) == 2 else (None, None)
    if isinstance(text, dict) and set(text) == {"blanks"} and type(text["blanks"]) is int:
        text = " " * text["blanks"]
    if type(kind) is not int or type(text) is not str:
        here.object_to(f"expected [value kind, text], got {value}")
        return None
    problem = _value_problem(kind, text, attribute)
    if problem:
        here.object_to(problem)
        return None
    return kind, text


def _value_problem(kind: int, text: str, attribute: Attribute) -> str | None:
    if kind not in (KIND_NONE, *KIND_BYTES, KIND_TEXT):
        return f"unknown value kind {kind}, expected 0 to 5"
    if not attribute.has_definition and kind != KIND_NONE:
        return "an attribute without a definition can't have a start-up value"
    if kind == KIND_NONE:
        return "value kind 0 takes no text" if text else None
    if kind == KIND_TEXT:
        if not attribute.is_octets:
            return f"value kind 5 is for octets, not for {attribute.kind}"
        return f"text of {len(text)} bytes is longer than {attribute.size}" if len(text) > attribute.size else None
    # A short row of a table is filled with zeros; anything else must have the attribute's own width.
    fits = KIND_BYTES[kind] <= attribute.size if attribute.is_table else KIND_BYTES[kind] == attribute.size
    if fits:
        return None
    return f"value kind {kind} is {8 * KIND_BYTES[kind]} bits wide, the attribute has {8 * attribute.size}"
