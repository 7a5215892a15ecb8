"""Reference pages in Markdown: an index and one page per family, with every class and its attributes."""

import os.path
from pathlib import Path

import reference_links

from model import LETTER_WORDS, Attribute, Catalogue, ManagedEntity, StartupRow
from output import write_if_changed
from startup_table import KIND_BYTES
from templating import environment


def write(catalogue: Catalogue, directory, tree: Path) -> list[Path]:
    """Write index.md and <family>.md below `directory`, with links into `tree`. All the pages' paths, changed or not."""
    paths = []
    for name, text in render(catalogue, tree, Path(os.path.relpath(tree, directory)).as_posix()).items():
        path = Path(directory) / name
        write_if_changed(path, text)
        paths.append(path)
    return paths


def render(catalogue: Catalogue, tree: Path, to_tree: str) -> dict[str, str]:
    """File name -> text of every page. `to_tree` leads from a page to the top of the tree."""
    env = environment(
        mask=lambda value: f"0x{value:04X}",
        default_words=default_words,
        creator_words=creator_words,
        upload_words=upload_words,
        attribute_notes=attribute_notes,
        text_words=text_words,
        anchor=lambda entity: reference_links.slug(f"{entity.entity} ({entity.class_id})"),
        tree_link=lambda path, text=None: f"[{text or os.path.basename(path)}]({to_tree}/{path})",
        plural=lambda count, word: f"{count} {word}" if count == 1 else f"{count} {word}s",
    )
    rows = {row.entity.class_id: row for row in catalogue.startup_rows}
    family_page = env.get_template("reference_family.md.j2")
    links = reference_links.find(catalogue, tree)
    pages = {"index.md": env.get_template("reference_index.md.j2").render(catalogue=catalogue)}
    for family in catalogue.families:
        pages[f"{family.stem}.md"] = family_page.render(
            family=family, rows=rows, letters=LETTER_WORDS, startup_values=startup_values, links=links
        )
    return pages


def default_words(attribute: Attribute) -> str:
    """The class default as a reader expects it: numbers in decimal, octets only where they are not all zero."""
    if attribute.is_table:
        return "empty"
    if attribute.is_numeric:
        return str(attribute.default)
    return "all zero" if attribute.has_zero_default else f"0x{attribute.default.rstrip(bytes(1)).hex()}, then zero"


def creator_words(entity: ManagedEntity) -> str:
    return {
        (True, True): "the ONU or the OLT",
        (True, False): "the ONU",
        (False, True): "the OLT",
        (False, False): "neither ONU nor OLT",
    }[entity.onu_creatable, entity.olt_creatable]


def upload_words(entity: ManagedEntity) -> str:
    parts = [word for word, part in (("MIB", entity.in_mib_upload), ("alarms", entity.in_alarm_upload)) if part]
    return " and ".join(parts) or "none"


def attribute_notes(entity: ManagedEntity) -> list[str]:
    """Sentences on attributes that a row of the table can't show."""
    notes = []
    for attribute in entity.attributes:
        if not attribute.has_definition:
            notes.append(f"`{attribute.name}` has no attribute definition: it can't be read or written over OMCI.")
        if attribute.table_write_mode:
            notes.append(f"`{attribute.name}` has table write mode {attribute.table_write_mode}.")
    return notes


def startup_values(row: StartupRow) -> list[tuple[Attribute, int, str]]:
    """The stated values of a row, without those that only say that there is none."""
    return [
        (attribute, kind, text)
        for attribute, kind, text in zip(row.entity.attributes, row.kinds, row.texts)
        if kind and attribute.number in row.stated
    ]


def text_words(text: str, kind: int) -> str:
    """A start-up text and what it becomes: `8` in 2 bytes, "NRVK", or a number of blanks."""
    if kind in KIND_BYTES:
        return f"{text} ({KIND_BYTES[kind]} byte{'s' if KIND_BYTES[kind] > 1 else ''})"
    return f"{len(text)} blanks" if text.isspace() else f'"{text}"'
