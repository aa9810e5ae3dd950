#!/usr/bin/env python3
"""The closing line of ./test is right whatever became of the tests.

    testsummary.py PROGRAM
"""
import os
import subprocess
import sys
import tempfile
import unittest

PASSED = '<testcase name="a" status="run"><system-out></system-out></testcase>'
FAILED = '<testcase name="b" status="fail"><failure message=""/><system-out>why &lt;it&gt; failed</system-out></testcase>'
MISSING = '<testcase name="c" status="notrun"><skipped message="Unable to find executable"/></testcase>'
SKIPPED = '<testcase name="d" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>'
DISABLED = '<testcase name="e" status="disabled"><system-out>Disabled</system-out></testcase>'


class Summary(unittest.TestCase):
    def summary(self, *cases, log=""):
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, name) for name in ("results.xml", "log")]
            for path, text in zip(paths, (f"<testsuite>{''.join(cases)}</testsuite>", log)):
                with open(path, "w", encoding="utf-8") as file:
                    file.write(text)
            done = subprocess.run([sys.executable, "-B", PROGRAM] + paths, capture_output=True, text=True)
        return done.returncode, done.stdout

    def test_all_passed(self):
        self.assertEqual(self.summary(PASSED, PASSED), (0, "2 passed, 0 failed\n"))

    def test_a_failure_is_told_with_its_reason_and_output(self):
        code, text = self.summary(PASSED, FAILED, log="2/2 Test #2: b .....***Timeout   1.00 sec\n")
        self.assertEqual(code, 1)
        self.assertEqual(text, "FAILED: b (Timeout)\nwhy <it> failed\n\n1 passed, 1 failed\n")

    def test_a_program_that_is_missing_is_a_failure(self):
        code, text = self.summary(PASSED, MISSING)
        self.assertEqual((code, text.splitlines()[-1]), (1, "1 passed, 1 failed"))

    def test_skipped_tests_are_neither(self):
        self.assertEqual(self.summary(PASSED, SKIPPED, DISABLED), (0, "2 skipped\n1 passed, 0 failed\n"))

    def test_nothing_run_is_no_success(self):
        self.assertEqual(self.summary(), (1, "0 passed, 0 failed\n"))
        self.assertEqual(self.summary(SKIPPED)[0], 1)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
