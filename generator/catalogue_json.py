"""The catalogue as one JSON file, for tools that know no TOML.

    {"classes": [...], "startup_rows": [...]}

Classes are in order of class id, start-up rows in table order. Masks are numbers; `default` is the hexadecimal text of
the bytes that Get yields on a fresh instance. Keys that the simulator's description of the live adapters has too
bear the same names here.
"""

import json

from model import Attribute, Catalogue, ManagedEntity, StartupRow
from output import write_if_changed


def write(catalogue: Catalogue, path) -> bool:
    """Write the file. False when it already holds this catalogue."""
    return write_if_changed(path, render(catalogue))


def render(catalogue: Catalogue) -> str:
    content = {
        "classes": [_class_object(entity) for entity in catalogue.classes],
        "startup_rows": [_row_object(row) for row in catalogue.startup_rows],
    }
    return json.dumps(content, indent=1) + "\n"


def _class_object(entity: ManagedEntity) -> dict:
    return {
        "class": entity.class_id,
        "short_name": entity.short_name,
        "name": entity.name,
        "entity": entity.entity,
        "clause": entity.clause,
        "family": entity.family,
        "set_mask": entity.set_mask,
        "get_mask": entity.get_mask,
        "get_next_mask": entity.get_next_mask,
        "create_mask": entity.create_mask,
        "mib_upload": entity.in_mib_upload,
        "alarm_upload": entity.in_alarm_upload,
        "olt_creatable": entity.olt_creatable,
        "onu_creatable": entity.onu_creatable,
        "attributes": [_attribute_object(attribute) for attribute in entity.attributes],
    }


def _attribute_object(attribute: Attribute) -> dict:
    return {
        "name": attribute.name,
        "mask": attribute.mask,
        "size": attribute.size,
        "kind": attribute.kind_code,
        "type": attribute.kind,
        "table": attribute.is_table,
        "table_write_mode": attribute.table_write_mode,
        "flags": attribute.flags,
        "letters": attribute.letters,
        "has_definition": attribute.has_definition,
        "default": attribute.default_bytes.hex(),
    }


def _row_object(row: StartupRow) -> dict:
    return {
        "class": row.entity.class_id,
        "short_name": row.entity.short_name,
        "count": row.count,
        "instance": row.instance,
        "update": row.update,
        "values": [
            {"name": attribute.name, "mask": attribute.mask, "kind": kind, "text": text}
            for attribute, kind, text in zip(row.entity.attributes, row.kinds, row.texts)
            if kind
        ],
    }
