"""The HTML site: every page is in it, every link of it leads somewhere, and it needs no network."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import pages

import check_links

SITE = pages.TREE / "docs" / "site"
TIMEOUT = 300


class Site(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.site = cls.folder / "html"
        # Of this tree as it is now, whatever has been generated before.
        generated = cls.folder / "generated"
        generated.mkdir()
        (generated / "publicapi").symlink_to(pages.BUILD / "generated" / "publicapi")
        subprocess.run([sys.executable, "-B", pages.TREE / "generator" / "generate.py", "--catalogue",
                        pages.TREE / "catalogue", "--handwritten", pages.TREE / "src", "--reference",
                        generated / "docs" / "reference"], check=True, timeout=TIMEOUT)
        cls.build(generated, cls.site)
        doxyfile = (pages.BUILD / "docs" / "Doxyfile").read_text()
        doxyfile += f'\nOUTPUT_DIRECTORY = "{cls.folder}"\nHTML_HEADER = "{cls.folder}/doxygen-header.html"\n'
        cls.doxygen = subprocess.run([os.environ["NRVK_DOXYGEN"], "-"], input=doxyfile, capture_output=True, text=True,
                                     timeout=TIMEOUT)

    @staticmethod
    def build(generated, site, tree=pages.TREE):
        return subprocess.run([sys.executable, "-B", SITE / "build_site.py", "--tree", tree, "--generated", generated,
                               "--output", site, "--version", "1.2.3"], capture_output=True, text=True,
                              check=tree == pages.TREE, timeout=TIMEOUT)

    def page(self, name):
        return (self.site / name).read_text()

    def test_each_member_of_a_public_header_has_a_comment(self):
        self.assertEqual((0, ""), (self.doxygen.returncode, self.doxygen.stderr))

    def test_each_link_and_anchor_leads_somewhere(self):
        self.assertEqual([], list(check_links.problems(self.site)))

    def test_each_markdown_page_is_in_it(self):
        for path in pages.markdown_pages():
            name = path.relative_to(pages.TREE).with_suffix(".html").as_posix()
            name = "index.html" if name == "README.html" else name.replace("README.html", "index.html")
            self.assertTrue((self.site / name).is_file(), name)

    def test_the_navigation_is_on_all_pages(self):
        for name in ("index.html", "docs/omci-olt.html", "reference/vlan.html", "headers/classOmciHardwareIfc.html",
                     "source/src/implExtended/OmciMeAniGImplExtended.h.html"):
            links = re.findall(r'<a href="([^"]+)"', self.page(name).split("</nav>")[0])
            targets = {os.path.normpath((self.site / name).parent / link) for link in links}
            for target in ("index.html", "docs/porting.html", "reference/index.html", "headers/annotated.html"):
                self.assertIn(str(self.site / target), targets, name)

    def test_a_class_leads_to_its_header_sources_and_tests(self):
        section = self.page("reference/onu.html").split('id="ani-g-263"')[1].split("<h2")[0]
        for link in ("../headers/classOmciMeAniGIf.html", "../source/src/implExtended/OmciMeAniGImplExtended.cpp.html",
                     "../docs/onu-sim.html#the-onus-equipment"):
            self.assertIn(f'href="{link}"', section)

    def test_nothing_comes_from_elsewhere(self):
        for path in self.site.rglob("*.css"):
            if path.parent == self.site:
                self.assertNotRegex(path.read_text(), r"@import|https?:")
        self.assertNotIn("<script", self.page("index.html"))

    def test_a_broken_link_stops_the_build_with_its_page(self):
        tree = self.folder / "tree"
        (tree / "docs").mkdir(parents=True)
        (tree / "README.md").write_text("# Tree\n\n[a](docs/missing.md)\n")
        (tree / "docs" / "README.md").write_text("# Documentation\n")
        done = self.build(self.folder / "nothing", self.folder / "other", tree)
        self.assertEqual(1, done.returncode)
        self.assertIn("README.md: docs/missing.md leads nowhere", done.stderr)

    def test_the_checker_names_what_is_broken(self):
        site = self.folder / "broken"
        site.mkdir()
        (site / "a.html").write_text('<a href="b.html">b</a><a href="#no">no</a><h2 id="yes"></h2><a href="#yes">yes</a>'
                                     '<script src="https://example.com/x.js"></script>')
        self.assertEqual(["a.html: loads https://example.com/x.js", "a.html: b.html leads nowhere",
                          "a.html: #no has no such anchor"], list(check_links.problems(site)))


if __name__ == "__main__":
    unittest.main()
