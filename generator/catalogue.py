#!/usr/bin/env python3
"""Loads and checks the catalogue: the TOML files that say what the managed-entity classes are.

    catalogue.py DIRECTORY    checks it, prints a summary; prints every problem and exits with 1 otherwise

Needs Python 3.11 and nothing else.
"""

import argparse
import tomllib
from dataclasses import dataclass
from pathlib import Path

import startup_table
from class_rules import read_class
from model import Attribute, Catalogue, Family, ManagedEntity, StartupRow
from problems import CatalogueError, Place, exit_with

__all__ = ["Attribute", "Catalogue", "CatalogueError", "Family", "ManagedEntity", "StartupRow", "Totals", "load"]


@dataclass(frozen=True)
class Totals:
    """How many of each a complete catalogue has."""

    classes: int = 115
    onu_creatable: int = 63
    olt_creatable: int = 71
    impl_extended: int = 73
    adapter_extended: int = 27
    startup_rows: int = 88


def load(directory, totals: Totals | None = Totals()) -> Catalogue:
    """The checked catalogue of a directory. Raises CatalogueError with every problem found.

    `totals` None leaves the completeness checks out, for a part of a catalogue."""
    directory = Path(directory)
    messages: list[str] = []
    families, broken = _load_families(directory, messages)
    classes = sorted((entity for family in families for entity in family.classes), key=lambda e: e.class_id)
    by_name = {entity.short_name: entity for entity in classes} | dict.fromkeys(broken)
    rows = _load_startup(directory / startup_table.FILE_NAME, by_name, messages)
    catalogue = Catalogue(families, tuple(classes), rows)
    if totals and not messages:
        _check_totals(catalogue, totals, Place(messages, directory / "*.toml"))
    if messages:
        raise CatalogueError(messages)
    return catalogue


def _load_families(directory: Path, messages: list[str]) -> tuple[tuple[Family, ...], list[str]]:
    """The families, and the names of the classes that were objected to."""
    families, broken = [], []
    first_use: dict[object, str] = {}  # class id or name -> where it was used first
    paths = [path for path in sorted(directory.glob("*.toml")) if path.name != startup_table.FILE_NAME]
    if not paths:
        messages.append(f"{directory}: no catalogue files (*.toml)")
    for path in paths:
        place = Place(messages, path)
        table = _parse(path, place)
        if table is None:
            continue
        classes = []
        for short_name, keys in table.items():
            here = place.of_class(short_name)
            entity = read_class(short_name, keys, path.stem, here)
            if entity and _is_first_use(entity, first_use, here):
                classes.append(entity)
            else:
                broken.append(short_name)
        families.append(Family(path.stem, _title_of(path, place), tuple(classes)))
    return tuple(families), broken


def _is_first_use(entity: ManagedEntity, first_use: dict[object, str], here: Place) -> bool:
    good = True
    for key, text in ((entity.class_id, f"class {entity.class_id}"), (entity.name, f"name {entity.name}")):
        other = first_use.setdefault(key, str(here))
        if other != str(here):
            here.object_to(f"{text} is already used by {other}")
            good = False
    return good


def _title_of(path: Path, place: Place) -> str:
    first_line = path.read_text(encoding="utf-8").partition("\n")[0]
    if not first_line.startswith("# "):
        place.object_to("the first line must be a comment that says what family this is")
    return first_line.removeprefix("# ")


def _load_startup(path: Path, classes: dict, messages: list[str]) -> tuple[StartupRow, ...]:
    place = Place(messages, path)
    table = _parse(path, place)
    if table is None:
        return ()
    return startup_table.read_startup(table, classes, place)


def _parse(path: Path, place: Place) -> dict | None:
    try:
        return tomllib.loads(path.read_text(encoding="utf-8"))
    except OSError as error:
        place.object_to(f"can't be read: {error.strerror}")
    except (tomllib.TOMLDecodeError, UnicodeDecodeError) as error:
        place.object_to(f"is not valid TOML: {error}")
    return None


def _check_totals(catalogue: Catalogue, totals: Totals, place: Place) -> None:
    found = Totals(
        classes=len(catalogue.classes),
        onu_creatable=sum(entity.onu_creatable for entity in catalogue.classes),
        olt_creatable=sum(entity.olt_creatable for entity in catalogue.classes),
        impl_extended=sum(entity.impl_extended for entity in catalogue.classes),
        adapter_extended=sum(entity.adapter_extended for entity in catalogue.classes),
        startup_rows=len(catalogue.startup_rows),
    )
    for name in Totals.__dataclass_fields__:
        if getattr(found, name) != getattr(totals, name):
            place.object_to(f"{name}: found {getattr(found, name)}, expected {getattr(totals, name)}")


def main() -> None:
    parser = argparse.ArgumentParser(description="Checks a catalogue of managed-entity classes.")
    parser.add_argument("directory", type=Path)
    try:
        catalogue = load(parser.parse_args().directory)
    except CatalogueError as error:
        exit_with(error)
    attributes = sum(len(entity.attributes) for entity in catalogue.classes)
    print(f"{len(catalogue.classes)} classes, {attributes} attributes, {len(catalogue.startup_rows)} start-up rows")


if __name__ == "__main__":
    main()
