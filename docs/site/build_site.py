#!/usr/bin/env python3
"""Builds the documentation as one HTML site: all Markdown pages of the tree, the reference of the classes, and the files
that they link to. The navigation is what docs/README.md lists. Doxygen's pages come beside it, in headers/.
"""

import argparse
import html
import os
import posixpath
import re
import shutil
import string
import sys
from pathlib import Path

import markdown

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "generator"))
from reference_links import slug  # noqa: E402

EXTENSIONS = ["tables", "fenced_code", "sane_lists", "toc"]
LINK = re.compile(r'\b(href|src)="([^"]+)"')
ELSEWHERE = re.compile(r"[a-z]+:|#")
PICTURES = (".svg", ".png")
REFERENCE = "reference"
HEADERS = "headers"
LEFT_OUT = {"build", ".git", ".ci"}


class Problem(Exception):
    """Told in one line."""


class Page:
    """One Markdown file and its place in the site."""

    def __init__(self, path: Path, target: str):
        self.path = path
        self.target = target
        self.text = path.read_text()
        heading = re.search(r"^# (.+)$", self.text, re.MULTILINE)
        if not heading:
            raise Problem(f"{path} has no heading")
        self.title = heading[1].replace("`", "")


class Site:
    def __init__(self, tree: Path, generated: Path, output: Path, version: str):
        self.tree, self.generated, self.output, self.version = tree.resolve(), generated.resolve(), output, version
        self.template = string.Template((HERE / "page.html").read_text())
        self.pages = {page.path: page for page in self.find_pages()}
        self.navigation = self.read_navigation()

    def find_pages(self):
        for path in sorted(self.tree.rglob("*.md")):
            name = path.relative_to(self.tree)
            if not LEFT_OUT & set(name.parts):
                yield Page(path, "index.html" if name.as_posix() == "README.md" else html_name(name.as_posix()))
        for path in sorted((self.generated / "docs" / "reference").glob("*.md")):
            yield Page(path, html_name(f"{REFERENCE}/{path.name}"))

    def read_navigation(self):
        """Groups of (title, target) in the order of docs/README.md: a group for each heading, its table's links."""
        index = self.tree / "docs" / "README.md"
        groups = []
        for line in index.read_text().splitlines():
            if line.startswith("## "):
                groups.append((line[3:], []))
            elif line.startswith("| [") and groups:
                link = re.match(r"\| \[[^\]]*\]\(([^)]+)\)", line)[1]
                page = self.pages.get(self.page_path(index, link))
                if page is None:
                    raise Problem(f"{index}: {link} is no page")
                groups[-1][1].append((page.title, page.target))
        groups.append(("Reference", [("Managed entities", f"{REFERENCE}/index.html"),
                                     ("Public headers", f"{HEADERS}/annotated.html"),
                                     ("Header files", f"{HEADERS}/files.html")]))
        return groups

    def page_path(self, page: Path, link: str) -> Path:
        path = Path(os.path.normpath(page.parent / link))
        return path / "README.md" if path.is_dir() else path

    def build(self):
        if self.output.exists():
            shutil.rmtree(self.output)
        self.output.mkdir(parents=True)
        for name in ("site.css", "doxygen.css"):
            shutil.copy(HERE / name, self.output / name)
        for page in self.pages.values():
            self.write(page.target, page.title, self.body(page))
        header = self.output.parent / "doxygen-header.html"
        header.write_text(self.doxygen_header())

    def body(self, page: Page) -> str:
        converter = markdown.Markdown(extensions=EXTENSIONS, extension_configs={
            "toc": {"slugify": lambda title, _: slug(title), "toc_depth": "2-3"}})
        text = converter.convert(page.text)
        text = LINK.sub(lambda link: f'{link[1]}="{self.target_of(page, html.unescape(link[2]))}"', text)
        # Wide tables scroll by themselves, not the page with them.
        text = text.replace("<table>", '<div class="wide"><table>').replace("</table>", "</table></div>")
        if len(converter.toc_tokens) > 3:
            contents = f'<details class="contents"><summary>On this page</summary>{converter.toc}</details>'
            text = text.replace("</h1>", "</h1>" + contents, 1)
        return text

    def target_of(self, page: Page, link: str) -> str:
        """What a link of the page is in the site."""
        if ELSEWHERE.match(link):
            return link
        name, _, anchor = link.partition("#")
        path = Path(os.path.normpath(page.path.parent / name))
        readme = path / "README.md"
        linked = self.pages.get(path) or self.pages.get(readme)
        if linked:
            target = linked.target
        elif not path.exists():
            raise Problem(f"{page.path}: {link} leads nowhere")
        elif path.parent == self.generated / "publicapi" / "ont_omci_managed_entity":
            target = f"{HEADERS}/{doxygen_class(path.stem)}"
        elif path.suffix in PICTURES:
            target = self.copied(path)
        else:
            target = self.listing(path) if path.is_dir() else self.source(path)
        return relative(page.target, target) + (f"#{anchor}" if anchor else "")

    def name_in_tree(self, path: Path) -> str:
        return path.relative_to(self.tree).as_posix()

    def copied(self, path: Path) -> str:
        target = self.name_in_tree(path)
        (self.output / target).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(path, self.output / target)
        return target

    def source(self, path: Path) -> str:
        name = self.name_in_tree(path)
        target = f"source/{name}.html"
        if not (self.output / target).exists():
            text = html.escape(path.read_text())
            self.write(target, name, f"<h1>{html.escape(name)}</h1><pre><code>{text}</code></pre>")
        return target

    def listing(self, path: Path) -> str:
        name = self.name_in_tree(path)
        target = f"source/{name}/index.html"
        if not (self.output / target).exists():
            files = [file for file in sorted(path.rglob("*")) if file.is_file() and "__pycache__" not in file.parts]
            items = "".join(f'<li><a href="{relative(target, self.source(file))}">{file.relative_to(path)}</a></li>'
                            for file in files)
            self.write(target, name, f"<h1>{html.escape(name)}/</h1><ul>{items}</ul>")
        return target

    def write(self, target: str, title: str, body: str):
        path = self.output / target
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(self.template.substitute(
            title=html.escape(title), root=relative(target, "."), body=body, version=html.escape(self.version),
            navigation=self.navigation_html(target, lambda page: relative(target, page))))

    def navigation_html(self, current: str, link) -> str:
        parts = []
        for title, entries in self.navigation:
            items = "".join(f'<li><a href="{link(target)}"{" aria-current=page" if target == current else ""}>'
                            f"{html.escape(name)}</a></li>" for name, target in entries)
            parts.append(f"<h2>{html.escape(title)}</h2><ul>{items}</ul>")
        return "".join(parts)

    def doxygen_header(self) -> str:
        template = string.Template((HERE / "doxygen-header.html").read_text().replace("$", "$$").replace("@@", "$"))
        return template.substitute(version=html.escape(self.version),
                                   navigation=self.navigation_html("", lambda page: f"$relpath^../{page}"))


def html_name(name: str) -> str:
    folder, base = posixpath.split(name)
    stem = "index" if base in ("README.md", "index.md") else base.removesuffix(".md")
    return posixpath.join(folder, f"{stem}.html")


def doxygen_class(name: str) -> str:
    return f"class{name.replace('_', '__')}.html"


def relative(source: str, target: str) -> str:
    return posixpath.relpath(target, posixpath.dirname(source) or ".")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tree", type=Path, required=True, help="top of the source tree")
    parser.add_argument("--generated", type=Path, required=True, help="what the generator has made")
    parser.add_argument("--output", type=Path, required=True, help="folder of the site; what is in it goes")
    parser.add_argument("--version", default="", help="shown on each page")
    arguments = parser.parse_args()
    Site(arguments.tree, arguments.generated, arguments.output, arguments.version).build()


if __name__ == "__main__":
    try:
        main()
    except (Problem, OSError, UnicodeDecodeError) as problem:
        sys.exit(f"build_site.py: {problem}")
