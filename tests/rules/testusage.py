#!/usr/bin/env python3
"""./test tells how it is used, and refuses what it does not know before it installs or builds anything.

    testusage.py PROGRAM
"""
import subprocess
import sys
import unittest


class Usage(unittest.TestCase):
    def run_with(self, *arguments):
        done = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout, done.stderr

    def test_help_is_no_error(self):
        code, text, errors = self.run_with("--help")
        self.assertEqual((code, errors), (0, ""))
        for option in ("--preset", "--sanitize", "--coverage"):
            self.assertIn(option, text)

    def test_wrong_arguments_are_refused_on_standard_error(self):
        for words in (["--bogus"], ["--preset"], ["--preset", "nonsense"], ["--preset", "release"], ["--preset", "--help"],
                      ["--sanitize", "--coverage"], ["--coverage", "--preset", "dev"], ["--sanitize", "--sanitize"],
                      ["one", "another"], ["-x"]):
            with self.subTest(words=words):
                code, text, errors = self.run_with(*words)
                self.assertEqual((code, text), (2, ""))
                self.assertIn("Usage:", errors)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
