"""From one table of a catalogue file to a ManagedEntity, with every check that concerns the class alone."""

import re

from attribute_rules import read_attribute
from model import MAX_ATTRIBUTES, Attribute, ManagedEntity, mask_of_letter
from problems import Place

REQUIRED_KEYS = {
    "class": int,
    "name": str,
    "entity": str,
    "created_by": list,
    "uploads": list,
    "extended": list,
    "attributes": list,
}
WORDS = {"created_by": ("onu", "olt"), "uploads": ("mib", "alarms"), "extended": ("impl", "adapter")}
MASK_LETTERS = {"get_mask": "R", "set_mask": "W", "create_mask": "C", "get_next_mask": "N"}
ATTRIBUTE_MARKS = ("without_definition", "odd_size", "table_write_mode_1", "stored_count")
KNOWN_KEYS = {*REQUIRED_KEYS, "clause", "refreshed_counters", *MASK_LETTERS, *ATTRIBUTE_MARKS}

SHORT_NAME_PATTERN = re.compile(r"[A-Z][A-Za-z0-9_]*")
CLAUSE_PATTERN = re.compile(r"9(\.[0-9]+)+")


def read_class(short_name: str, table, family: str, place: Place) -> ManagedEntity | None:
    """The class of a TOML table, or None after objecting to everything that is wrong with it."""
    if not _has_sound_keys(short_name, table, place):
        return None
    marks = {key: table.get(key, []) for key in ATTRIBUTE_MARKS}
    attributes = _read_attributes(table["attributes"], marks, place)
    if attributes is None:
        return None
    masks = _masks_of(table, attributes, place)
    entity = ManagedEntity(
        short_name=short_name,
        class_id=table["class"],
        name=table["name"],
        entity=table["entity"],
        clause=table.get("clause"),
        family=family,
        created_by=tuple(table["created_by"]),
        in_mib_upload="mib" in table["uploads"],
        in_alarm_upload="alarms" in table["uploads"],
        impl_extended="impl" in table["extended"],
        adapter_extended="adapter" in table["extended"],
        attributes=attributes,
        refreshed_counters=table.get("refreshed_counters", False),
        **masks,
    )
    _check_whole_class(entity, place)
    return entity


def _has_sound_keys(short_name: str, table, place: Place) -> bool:
    if not isinstance(table, dict):
        place.object_to("expected a table of keys for one class")
        return False
    problems = [f"unknown key '{key}'" for key in table if key not in KNOWN_KEYS]
    problems += [f"key '{key}' is missing" for key in REQUIRED_KEYS if key not in table]
    problems += [
        f"key '{key}' must be of type {kind.__name__}"
        for key, kind in REQUIRED_KEYS.items()
        if key in table and type(table[key]) is not kind
    ]
    problems = problems or _value_problems(short_name, table)
    for problem in problems:
        place.object_to(problem)
    return not problems


def _value_problems(short_name: str, table: dict) -> list[str]:
    problems = []
    if not SHORT_NAME_PATTERN.fullmatch(short_name):
        problems.append(f"class name does not match {SHORT_NAME_PATTERN.pattern}")
    if not 0 < table["class"] <= 0xFFFF:
        problems.append(f"class {table['class']} is outside 1 to 65535")
    if table["name"] != short_name.upper():
        problems.append(f"name '{table['name']}' is not the class name in upper case")
    if "clause" in table and not CLAUSE_PATTERN.fullmatch(str(table["clause"])):
        problems.append(f"clause '{table['clause']}' is not a G.988 clause like 9.2.1")
    for key, words in WORDS.items():
        if table[key] != [word for word in words if word in table[key]]:
            problems.append(f"{key} {table[key]} must be of {', '.join(words)}, in this order, each once")
    if table.get("refreshed_counters", True) is not True:
        problems.append("key 'refreshed_counters' must be true or left out")
    attribute_names = [row[0] for row in table["attributes"] if isinstance(row, list) and row]
    for key in ATTRIBUTE_MARKS:
        names = table.get(key, [])
        if not isinstance(names, list):
            problems.append(f"key '{key}' must be of type list")
            continue
        problems += [f"{key} names '{name}', which is no attribute" for name in names if name not in attribute_names]
    return problems


def _read_attributes(rows: list, marks: dict, place: Place) -> tuple[Attribute, ...] | None:
    if not 0 < len(rows) <= MAX_ATTRIBUTES:
        place.object_to(f"{len(rows)} attributes, expected 1 to {MAX_ATTRIBUTES}")
        return None
    attributes = [read_attribute(row, number, marks, place) for number, row in enumerate(rows, 1)]
    if None in attributes:
        return None
    names = [attribute.name for attribute in attributes]
    doubled = sorted({name for name in names if names.count(name) > 1})
    for name in doubled:
        place.of_attribute(name).object_to("the class has two attributes of this name")
    return None if doubled else tuple(attributes)


def _masks_of(table: dict, attributes: tuple[Attribute, ...], place: Place) -> dict[str, int]:
    """The four masks by the letters; a key of the class overrides one and must differ from the letters."""
    whole = sum(attribute.mask for attribute in attributes)
    masks = {}
    for key, letter in MASK_LETTERS.items():
        by_letters = mask_of_letter(attributes, letter)
        stated = masks[key] = table.get(key, by_letters)
        if type(stated) is not int or stated & ~whole:
            place.object_to(f"{key} {stated} is not a mask of the class's attributes")
            masks[key] = by_letters
        elif key in table and stated == by_letters:
            place.object_to(f"{key} 0x{stated:04X} is needless: the access letters give the same")
    return masks


def _check_whole_class(entity: ManagedEntity, place: Place) -> None:
    if entity.refreshed_counters:
        _check_refreshed_counters(entity, place)
    if entity.create_mask and not entity.olt_creatable:
        place.object_to(f"create mask 0x{entity.create_mask:04X}, but created_by lacks \"olt\"")
    uploaded = [attribute for attribute in entity.attributes if "U" in attribute.letters]
    if entity.in_mib_upload and not uploaded:
        place.object_to("uploads has \"mib\", but no attribute has the letter U")
    if not entity.in_mib_upload:
        for attribute in uploaded:
            place.of_attribute(attribute.name).object_to("access U, but the class's uploads lacks \"mib\"")


def _check_refreshed_counters(entity: ManagedEntity, place: Place) -> None:
    if not entity.impl_extended:
        place.object_to("refreshed_counters, but extended lacks \"impl\", which has the refresh")
    if entity.attributes[0].name != "IntervalEndTime" or not entity.counters:
        place.object_to("refreshed_counters is for PM entities: interval end time, thresholds, counters")
    for attribute in entity.counters:
        if attribute.letters != "R" or not attribute.is_numeric:
            place.of_attribute(attribute.name).object_to("refreshed_counters, but this is no counter (a number, access R)")
