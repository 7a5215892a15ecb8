#!/usr/bin/env python3
"""Checks that each relative link and anchor of an HTML site leads somewhere in it, and that nothing is loaded from
elsewhere. Prints what is broken; exit code 1 when anything is.
"""

import sys
import urllib.parse
from html.parser import HTMLParser
from pathlib import Path

LOADED = {("script", "src"), ("img", "src"), ("link", "href"), ("iframe", "src"), ("object", "data")}


class Document(HTMLParser):
    """The anchors and links of one file."""

    def __init__(self, path: Path):
        super().__init__()
        self.anchors, self.links, self.loaded = set(), [], []
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name == "id" or (name == "name" and tag == "a"):
                self.anchors.add(value)
            elif (tag, name) in LOADED:
                self.loaded.append(value)
            elif name == "href" and tag in ("a", "area"):
                self.links.append(value)


def problems(site: Path):
    """A line for each broken link, each file once."""
    documents = {path: Document(path) for path in sorted(site.rglob("*.html"))}
    if not documents:
        yield f"{site}: no pages"
    for path, document in documents.items():
        name = path.relative_to(site)
        for link in dict.fromkeys(document.loaded):
            if urllib.parse.urlsplit(link).scheme or link.startswith("//"):
                yield f"{name}: loads {link}"
        for link in dict.fromkeys(document.links + document.loaded):
            if problem := problem_of(link, path, documents):
                yield f"{name}: {link} {problem}"


def problem_of(link: str, path: Path, documents) -> str:
    parts = urllib.parse.urlsplit(link)
    if parts.scheme or parts.netloc or link.startswith("javascript:"):
        return ""
    target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
    if not target.is_file():
        return "leads nowhere"
    anchor = urllib.parse.unquote(parts.fragment)
    if anchor and target in documents and anchor not in documents[target].anchors:
        return "has no such anchor"
    return ""


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: check_links.py FOLDER")
    found = list(problems(Path(sys.argv[1]).resolve()))
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
