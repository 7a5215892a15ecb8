"""Code that a page quotes from a file of the tree stands in that file, to the letter."""

import re
import unittest

import pages

QUOTED = re.compile(r"^<!-- (?P<file>\S+\.\w+) -->\n```\w+\n(?P<code>.*?)^```$", re.MULTILINE | re.DOTALL)


class Excerpts(unittest.TestCase):
    def test_each_stands_in_its_file(self):
        found = [(page, quoted) for page in pages.markdown_pages() for quoted in QUOTED.finditer(page.read_text())]
        self.assertGreater(len(found), 5)
        for page, quoted in found:
            with self.subTest(page=page.name, file=quoted["file"]):
                self.assertIn(quoted["code"], (pages.TREE / quoted["file"]).read_text())

    def test_all_code_of_the_page_on_porting_is_quoted(self):
        text = (pages.TREE / "docs" / "porting.md").read_text()
        self.assertEqual(text.count("```cpp\n"), len(QUOTED.findall(text)))


if __name__ == "__main__":
    unittest.main()
