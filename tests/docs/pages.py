"""The Markdown pages of the tree, for the tests beside it."""

import os
import re
import sys
from pathlib import Path

TREE = Path(os.environ.get("NRVK_SOURCE_DIR", Path(__file__).resolve().parents[2]))
BUILD = Path(os.environ.get("NRVK_BINARY_DIR", TREE / "build" / "release"))

sys.path[:0] = [str(TREE / "generator"), str(TREE / "docs" / "site")]
from reference_links import slug  # noqa: E402

FENCED = re.compile(r"^\s*```.*?^\s*```\s*?$", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`[^`\n]*`")
LINK = re.compile(r"\[(?:[^\]\[]|\[[^\]]*\])*\]\(([^)\s]+)\)")


def markdown_pages(tree=TREE):
    return [path for path in sorted(tree.rglob("*.md")) if "build" not in path.relative_to(tree).parts]


def prose(path):
    """The text of a page without its code."""
    return FENCED.sub("", path.read_text())


def links(path):
    return LINK.findall(CODE.sub("", prose(path)))


def anchors(path):
    """Those that headings make; a second one of the same name gets a number."""
    found = []
    for title in re.findall(r"^#+ (.+)$", prose(path), re.MULTILINE):
        name = slug(title)
        found.append(f"{name}-{found.count(name)}" if name in found else name)
    return set(found)
