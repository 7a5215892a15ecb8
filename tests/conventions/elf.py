"""Symbols and needed libraries of a shared library, by the binutils."""

import re
from dataclasses import dataclass

from project import LIBRARY, NM, READELF, run

_LINE = re.compile(r"^\s*(?:[0-9a-f]+ )?\s*(?P<kind>\S) (?P<name>.*?)(?:@@?(?P<version>[A-Z]+[A-Z_]*[0-9.A-Z_]*))?$")


@dataclass(frozen=True)
class Symbol:
    kind: str
    name: str
    version: str = ""


def parse(text):
    """Symbols from what `nm --dynamic --demangle --with-symbol-versions` prints."""
    symbols = []
    for line in text.splitlines():
        match = _LINE.match(line)
        assert match, f"line of nm not understood: {line!r}"
        symbols.append(Symbol(match["kind"], match["name"], match["version"] or ""))
    return symbols


def _symbols(choice):
    return parse(run([NM, "--dynamic", "--demangle", "--with-symbol-versions", choice, LIBRARY]))


def exported():
    return _symbols("--defined-only")


def undefined():
    return _symbols("--undefined-only")


def _dynamic(tag):
    pattern = re.compile(rf"\({tag}\).*\[(.*)\]")
    return pattern.findall(run([READELF, "--dynamic", "--wide", LIBRARY]))


def needed_libraries():
    return _dynamic("NEEDED")


def soname():
    return _dynamic("SONAME")


def word_bits():
    return int(re.search(r"Class:\s+ELF(32|64)", run([READELF, "--file-header", LIBRARY])).group(1))
