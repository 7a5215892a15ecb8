"""What the tree has about a class beside the catalogue: hand-written files, tests, sections of the documentation.

Nothing of this is typed in: files are found by their names, tests and sections by the class that they name. Paths are
relative to the top of the tree.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

from model import Catalogue, ManagedEntity

ROLES = ("Impl", "Adapter")
SOURCE_SUFFIXES = (".h", ".cpp")
TEST_SUFFIXES = (".cpp", ".py")
# Lists of all classes say nothing about one of them.
LISTS_OF_ALL = ("tests/generator", "tests/catalogue")
MENTION_OF_CODE = re.compile(r"\bOmciMe(\w+?)(?:If|Impl|Adapter|ImplExtended|AdapterExtended)\b")
# kVlanTaggingClass = 171, "class": 171
NUMBER_OF_CODE = re.compile(r"""\w*Class(?:Id)?(?: =|\{) ?(\d+)\b|["']class["']: (\d+)\b""")
# create(309, 1) and {65407, ...} in the tests of what is written by hand
FIRST_ARGUMENT = re.compile(r"[({](\d{3,5}), ")
HANDWRITTEN_TESTS = ("implExtended", "adapterExtended", "core")
CLASS_NUMBERS = re.compile(r"\bclass(?:es)? ((?:\d+(?:, | and | to )?)+)|\((\d+)\)")
HEADING = re.compile(r"^(#+) (.+)$")
FENCE = re.compile(r"^\s*```")


@dataclass(frozen=True)
class Section:
    """A heading of a page and its anchor, as GitHub and the HTML site make it."""

    page: str
    title: str
    anchor: str


@dataclass
class ClassLinks:
    behaviour: list[tuple[str, str]] = field(default_factory=list)  # role, its class comment
    sources: list[str] = field(default_factory=list)
    tests: list[str] = field(default_factory=list)
    sections: list[Section] = field(default_factory=list)


def find(catalogue: Catalogue, tree: Path) -> dict[int, ClassLinks]:
    """Class id -> links, for every class."""
    links = {entity.class_id: ClassLinks() for entity in catalogue.classes}
    for entity in catalogue.classes:
        add_roles(links[entity.class_id], entity, tree)
    add_tests(links, catalogue, tree)
    add_sections(links, catalogue, tree)
    return links


def slug(title: str) -> str:
    """The anchor of a heading."""
    kept = re.sub(r"[^\w\- ]", "", re.sub(r"[`*]|\]\(.*?\)", "", title).lower())
    return kept.replace(" ", "-")


def add_roles(links: ClassLinks, entity: ManagedEntity, tree: Path) -> None:
    for role in ROLES:
        name = f"OmciMe{entity.short_name}{role}Extended"
        files = [tree / "src" / f"{role.lower()}Extended" / (name + suffix) for suffix in SOURCE_SUFFIXES]
        present = [path for path in files if path.is_file()]
        links.sources += [path.relative_to(tree).as_posix() for path in present]
        if present and (comment := class_comment(present[0].read_text(), name)):
            links.behaviour.append((role, comment))


def class_comment(header: str, name: str) -> str:
    """The comment in front of a class, as paragraphs of one line each."""
    match = re.search(rf"((?:^///[^\n]*\n)+)(?:template[^\n]*\n)?class {name}\b", header, re.MULTILINE)
    if not match:
        return ""
    lines = [line.removeprefix("///").strip() for line in match[1].splitlines()]
    return "\n\n".join(" ".join(part.splitlines()) for part in "\n".join(lines).split("\n\n"))


def add_tests(links: dict[int, ClassLinks], catalogue: Catalogue, tree: Path) -> None:
    by_name = {entity.short_name: entity.class_id for entity in catalogue.classes}
    files = sorted(path for path in (tree / "tests").rglob("*") if path.suffix in (".h", *TEST_SUFFIXES))
    of_header = {path.name: classes_in_code(path, by_name) for path in files if path.suffix == ".h"}
    for path in files:
        name = path.relative_to(tree).as_posix()
        if path.suffix == ".h" or name.startswith(LISTS_OF_ALL):
            continue
        named = classes_in_code(path, by_name)
        # A fixture names the class for all tests that include it.
        for header in re.findall(r'#include "(?:\w+/)*(\w+\.h)"', path.read_text()):
            named |= of_header.get(header, set())
        for class_id in named & links.keys():
            links[class_id].tests.append(name)


def classes_in_code(path: Path, by_name: dict[str, int]) -> set[int]:
    text = path.read_text()
    words = set(MENTION_OF_CODE.findall(text))
    if path.suffix == ".py":
        words |= set(re.findall(r"\b[A-Z]\w+\b", text))
    numbers = {int("".join(groups)) for groups in NUMBER_OF_CODE.findall(text)}
    if path.parent.name in HANDWRITTEN_TESTS:
        numbers |= set(map(int, FIRST_ARGUMENT.findall(text)))
    return {by_name[word] for word in words & by_name.keys()} | numbers


def add_sections(links: dict[int, ClassLinks], catalogue: Catalogue, tree: Path) -> None:
    by_name = {entity.short_name: entity.class_id for entity in catalogue.classes}
    by_title = {entity.entity.lower(): entity.class_id for entity in catalogue.classes}
    titles = re.compile("|".join(rf"\b{re.escape(title)}\b" for title in sorted(by_title, key=len, reverse=True)))
    for path in sorted((tree / "docs").rglob("*.md")):
        for section, text in sections(path.read_text(), path.relative_to(tree).as_posix()):
            named = numbers_in(text) & links.keys()
            named |= {by_name[word] for word in re.findall(r"\w+", text) if word in by_name}
            named |= {by_title[title] for title in titles.findall(text.lower())}
            for class_id in named:
                links[class_id].sections.append(section)


def numbers_in(text: str) -> set[int]:
    """The class numbers of a text: "class 171", "classes 321, 322 and 334", "VLAN tagging (171)"."""
    found = set()
    for listed, single in CLASS_NUMBERS.findall(text):
        found |= {int(number) for number in re.findall(r"\d+", listed or single)}
    return found


def sections(text: str, page: str):
    """Each heading of a page with the text below it, up to the next heading of any level."""
    current, lines, fenced = None, [], False
    for line in text.splitlines():
        fenced ^= bool(FENCE.match(line))
        heading = None if fenced else HEADING.match(line)
        if heading:
            if current:
                yield current, "\n".join(lines)
            current, lines = Section(page, heading[2], slug(heading[2])), [heading[2]]
        else:
            lines.append(line)
    if current:
        yield current, "\n".join(lines)
