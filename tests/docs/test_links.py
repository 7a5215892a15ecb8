"""Each relative link of a Markdown page leads to a file of the tree, and its anchor to a heading."""

import os
import tempfile
import unittest
from pathlib import Path

import pages


def broken_links(tree):
    for page in pages.markdown_pages(tree):
        for link in pages.links(page):
            if link.startswith(("http://", "https://")):
                continue
            name, _, anchor = link.partition("#")
            target = Path(os.path.normpath(page.parent / name)) if name else page
            if not target.exists():
                yield f"{page.relative_to(tree)}: {link} leads nowhere"
            elif anchor and (target.suffix != ".md" or anchor not in pages.anchors(target)):
                yield f"{page.relative_to(tree)}: {link} has no such heading"


class Links(unittest.TestCase):
    def test_each_link_of_the_tree_leads_somewhere(self):
        found = [link for page in pages.markdown_pages() for link in pages.links(page)]
        self.assertGreater(len(found), 40)
        self.assertEqual([], list(broken_links(pages.TREE)))

    def test_each_page_of_docs_is_listed_in_the_index(self):
        index = pages.TREE / "docs" / "README.md"
        listed = {Path(os.path.normpath(index.parent / link)) for link in pages.links(index)}
        for page in pages.markdown_pages(pages.TREE / "docs"):
            if page != index:
                self.assertIn(page, listed)

    def test_what_is_broken_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = Path(folder)
            (tree / "a.md").write_text("# A\n\n[b](b.md#two-words) [c](c.md) [b](b.md#no)\n\n```\n[d](d.md)\n```\n`[e](e.md)`\n")
            (tree / "b.md").write_text("# B\n\n## Two words\n\n[a](#no)\n")
            self.assertEqual(["a.md: c.md leads nowhere", "a.md: b.md#no has no such heading", "b.md: #no has no such heading"],
                             list(broken_links(tree)))


if __name__ == "__main__":
    unittest.main()
