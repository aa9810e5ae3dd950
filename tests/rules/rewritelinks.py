#!/usr/bin/env python3
"""Pages of the documentation have links that lead somewhere, once a package has some of the pages only.

    rewritelinks.py FOLDER     the folder with rewrite_links.py
"""
import os
import subprocess
import sys
import tempfile
import unittest

PAGES = ["index.md", "embedding.md"]
FOLDERS = ["examples"]


class Links(unittest.TestCase):
    def expect(self, text, becomes):
        self.assertEqual(rewrite_links.rewritten(text, PAGES, FOLDERS), becomes)

    def test_links_to_pages_of_the_package_stay(self):
        self.expect("see [embedding](embedding.md).\n", "see [embedding](embedding.md).\n")
        self.expect("see [rules](embedding.md#rules).\n", "see [rules](embedding.md#rules).\n")

    def test_links_to_folders_of_the_package_lead_into_it(self):
        self.expect("an [example](../examples/enforcer/README.md)\n", "an [example](examples/enforcer/README.md)\n")

    def test_pictures_of_the_package_stay_pictures(self):
        self.expect("![one](examples/one.png)\n", "![one](examples/one.png)\n")

    def test_other_links_become_their_text(self):
        self.expect("the [user\nguide](user-guide.md#keys), in [C++](../cli/main.cpp)\n", "the user\nguide, in C++\n")
        self.expect("![a picture](images/one.png)\n", "a picture\n")

    def test_links_to_other_machines_and_within_a_page_stay(self):
        text = "[there](https://example.org/user-guide.md) and [below](#rules)\n"
        self.expect(text, text)

    def test_a_row_that_begins_with_a_lost_link_is_left_out(self):
        self.expect("| [guide](user-guide.md) | for parents |\n| [embedding](embedding.md) | for [all](all.md) |\n",
                    "| [embedding](embedding.md) | for all |\n")

    def test_text_between_brackets_without_a_link_stays(self):
        text = "a [choice] (of one)\n"
        self.expect(text, text)


class Command(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.source, self.target = os.path.join(folder.name, "docs"), os.path.join(folder.name, "a", "b")
        os.mkdir(self.source)
        for page in PAGES:
            with open(os.path.join(self.source, page), "w", encoding="utf-8") as file:
                file.write(f"{page}: [\u201cguide\u201d](guide.md)\n")

    def run_with(self, *arguments):
        script = os.path.join(FOLDER, "rewrite_links.py")
        return subprocess.run([sys.executable, "-B", script, self.source, self.target, *arguments], capture_output=True, text=True)

    def test_every_page_is_copied(self):
        self.assertEqual(self.run_with("--pages", *PAGES, "--folders").returncode, 0)
        for page in PAGES:
            with open(os.path.join(self.target, page), encoding="utf-8") as file:
                self.assertEqual(file.read(), f"{page}: \u201cguide\u201d\n")

    def test_a_page_that_is_missing_is_an_error(self):
        self.assertNotEqual(self.run_with("--pages", "gone.md").returncode, 0)


if __name__ == "__main__":
    FOLDER = os.path.abspath(sys.argv.pop(1))
    sys.path.insert(0, FOLDER)
    import rewrite_links
    unittest.main()
