#!/usr/bin/env python3
"""tools/lint reports every finding of clang-tidy, each separate from the others.

    lintfindings.py PROGRAM
"""
import runpy
import sys
import types
import unittest

FIRST = "settings/A.cpp:3:5: error: one thing [check-one,-warnings-as-errors]\n    code;\n    ^\nsettings/A.h:9:1: note: from here\n"
SECOND = "settings/A.h:4:1: warning: another [check-two]\n"


class Findings(unittest.TestCase):
    def test_are_separated_with_their_notes(self):
        self.assertEqual(lint.findings(FIRST + SECOND), [FIRST, SECOND])

    def test_name_their_files_from_the_top(self):
        self.assertEqual(lint.findings(f"{lint.TOP}/{SECOND}"), [SECOND])

    def test_are_absent_without_output(self):
        self.assertEqual(lint.findings("\n"), [])


if __name__ == "__main__":
    lint = types.SimpleNamespace(**runpy.run_path(sys.argv.pop(1)))
    unittest.main()
