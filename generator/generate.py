"""Makes the library's generated sources from the catalogue.

    generate.py --catalogue DIR --handwritten DIR --output DIR [--list]

Writes C++ under OUTPUT/src and OUTPUT/publicapi, the catalogue as JSON for tools, and reference pages. A file that would not
change is not touched. With --list it prints the C++ sources it would write, one per line with the class's family, and writes
nothing. A class gets the binding to its hand-written roles once their headers exist below --handwritten.
"""

import argparse
from dataclasses import replace
from pathlib import Path

import catalogue as catalogue_loader
import catalogue_json
import reference_pages
from model import Catalogue, ManagedEntity
from output import write_if_changed
from problems import CatalogueError, exit_with
from templating import environment

VALUE_TYPES = {
    "u8": "unsigned char",
    "u16": "unsigned short",
    "u32": "unsigned int",
    "u64": "unsigned long long",
    "s8": "signed char",
    "s16": "short",
    "octets": "const unsigned char*",
    "table": "const unsigned char*",
}
KIND_NAMES = ("UNSIGNED_8", "UNSIGNED_16", "UNSIGNED_32", "UNSIGNED_64", "SIGNED_8", "SIGNED_16")
ACCESS_WORDS = {"C": "set by create", "R": "get", "W": "set", "U": "MIB upload", "A": "AVC", "N": "get next"}
FLAG_NAMES = {"C": "SET_BY_CREATE", "R": "READ", "W": "WRITE", "U": "MIB_UPLOAD", "A": "AVC", "N": "GET_NEXT"}


KIND_CONSTANTS = (
    "STARTUP_VALUE_NONE",
    "STARTUP_VALUE_1_BYTE",
    "STARTUP_VALUE_2_BYTES",
    "STARTUP_VALUE_4_BYTES",
    "STARTUP_VALUE_8_BYTES",
    "STARTUP_VALUE_OCTETS",
)


def value_type(attribute) -> str:
    return VALUE_TYPES[attribute.kind]


def getter_type(attribute) -> str:
    return "unsigned int" if attribute.is_table else value_type(attribute)


def attribute_words(attribute) -> str:
    """Number, mask, size and access, as one sentence."""
    size = f"rows of {attribute.size} bytes" if attribute.is_table else f"{attribute.size} byte{'s' * (attribute.size > 1)}"
    access = ", ".join(ACCESS_WORDS[letter] for letter in attribute.letters if attribute.has_definition)
    return f"Attribute {attribute.number} (mask {mask(attribute.mask)}), {size}: {access or 'not over OMCI'}."


def member_type(attribute) -> str:
    if attribute.is_table:
        return f"std::vector<nrvk::TableRow<{attribute.size}>>"
    if attribute.is_octets:
        return f"std::array<unsigned char, {attribute.size}>"
    return value_type(attribute)


def definition(attribute) -> str:
    """The initializer of an attributeDefinition."""
    kind = f"ATTRIBUTE_KIND_{KIND_NAMES[attribute.kind_code]}"
    table = int(attribute.is_table)
    flags = " | ".join(f"ATTRIBUTE_FLAG_{FLAG_NAMES[letter]}" for letter in attribute.letters)
    return f"{{{mask(attribute.mask)}, {attribute.size}, {kind}, {table}, {attribute.table_write_mode}, {flags}}}"


def number(attribute) -> str:
    return str(attribute.default) if attribute.default < 0x10000 else hex(attribute.default)


def octet_list(attribute) -> str:
    return ", ".join(f"0x{byte:02x}" for byte in attribute.default.rstrip(b"\0"))


def mask(value: int) -> str:
    return f"0x{value:04x}"


def value_kinds(row) -> str:
    return ", ".join(KIND_CONSTANTS[kind] for kind in row.kinds)


def value_texts(row) -> str:
    return ", ".join(f'"{text}"' for text in row.texts)


def adapter_class(me: ManagedEntity) -> str:
    return f"OmciMe{me.short_name}Adapter" + ("Extended" if me.adapter_extended else "")


def adapter_header(me: ManagedEntity) -> str:
    folder = "adapterExtended" if me.adapter_extended else "adapter"
    return f"{folder}/{adapter_class(me)}.h"


FILTERS = (
    value_type, getter_type, attribute_words, reference_pages.default_words, member_type, definition, number, octet_list, mask,
    value_kinds, value_texts, adapter_class, adapter_header,
)

# Template, and the file it makes of a class below the output directory.
CLASS_FILES = (
    ("If.h.j2", "publicapi/ont_omci_managed_entity/OmciMe{}If.h"),
    ("Impl.h.j2", "src/impl/OmciMe{}Impl.h"),
    ("Impl.cpp.j2", "src/impl/OmciMe{}Impl.cpp"),
    ("Adapter.h.j2", "src/adapter/OmciMe{}Adapter.h"),
    ("Adapter.cpp.j2", "src/adapter/OmciMe{}Adapter.cpp"),
)
# For classes with refreshed counters only.
REFRESHED_COUNTERS_FILE = "src/impl/OmciMe{}RefreshedCounters.h"


def with_present_roles(catalogue: Catalogue, handwritten: Path) -> tuple[Catalogue, list[str]]:
    """The catalogue with only those hand-written roles whose header exists, and the names of the roles to come."""
    to_come = []

    def present(me: ManagedEntity, role: str) -> bool:
        name = f"OmciMe{me.short_name}{role}Extended"
        folder = f"{role.lower()}Extended"
        exists = (handwritten / folder / f"{name}.h").is_file()
        if not exists:
            to_come.append(name)
        return exists

    classes = tuple(
        replace(
            me,
            impl_extended=me.impl_extended and present(me, "Impl"),
            adapter_extended=me.adapter_extended and present(me, "Adapter"),
        )
        for me in catalogue.classes
    )
    return replace(catalogue, classes=classes), to_come


def render(catalogue: Catalogue) -> dict[str, str]:
    """The C++ files by their path below the output directory."""
    env = environment(**{function.__name__: function for function in FILTERS})
    files = {}
    for me in catalogue.classes:
        if me.refreshed_counters:
            files[REFRESHED_COUNTERS_FILE.format(me.short_name)] = env.get_template("RefreshedCounters.h.j2").render(me=me)
    for template, path in CLASS_FILES:
        for me in catalogue.classes:
            files[path.format(me.short_name)] = env.get_template(template).render(me=me, bound=me.impl_extended)
    files["src/ManagedEntityClasses.cpp"] = env.get_template("ManagedEntityClasses.cpp.j2").render(
        classes=catalogue.classes
    )
    files["src/DefaultConfigTable.cpp"] = env.get_template("DefaultConfigTable.cpp.j2").render(
        rows=catalogue.startup_rows
    )
    files["src/TableRows.cpp"] = env.get_template("TableRows.cpp.j2").render(
        classes=[me for me in catalogue.classes if me.tables]
    )
    return files


def list_sources(catalogue: Catalogue) -> None:
    """One line per C++ source: the family that it is compiled with, and its path."""
    for me in catalogue.classes:
        for _, path in CLASS_FILES:
            if path.endswith(".cpp"):
                print(f"{me.family};{path.format(me.short_name)}")
    print("table;src/ManagedEntityClasses.cpp")
    print("table;src/DefaultConfigTable.cpp")
    print("rows;src/TableRows.cpp")


def main() -> None:
    parser = argparse.ArgumentParser(description="Makes the library's generated sources from the catalogue.")
    parser.add_argument("--catalogue", type=Path, required=True, help="folder of the TOML files")
    parser.add_argument("--handwritten", type=Path, required=True, help="folder with implExtended/ and adapterExtended/")
    parser.add_argument("--output", type=Path, help="folder to write below")
    parser.add_argument("--reference", type=Path, help="write the reference pages into this folder and nothing else")
    parser.add_argument("--list", action="store_true", help="print the C++ sources with their families, write nothing")
    arguments = parser.parse_args()
    try:
        catalogue = catalogue_loader.load(arguments.catalogue)
    except CatalogueError as error:
        exit_with(error)
    if arguments.list:
        list_sources(catalogue)
        return
    if arguments.reference is not None:
        reference_pages.write(catalogue, arguments.reference, arguments.handwritten.parent)
        return
    if arguments.output is None:
        parser.error("--output is needed")
    catalogue_json.write(catalogue, arguments.output / "catalogue.json")
    reference_pages.write(catalogue, arguments.output / "docs" / "reference", arguments.handwritten.parent)
    present, to_come = with_present_roles(catalogue, arguments.handwritten)
    for path, text in render(present).items():
        write_if_changed(arguments.output / path, text)
    print(f"hand-written roles to come: {len(to_come)}")


if __name__ == "__main__":
    main()
