#!/usr/bin/env python3
"""The closing line of ./test is right whatever the results of the tests.

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
        return self.summary_of_runs((cases, log))

    def summary_of_runs(self, *runs):
        with tempfile.TemporaryDirectory() as folder:
            paths = []
            for number, (cases, log) in enumerate(runs):
                for name, text in ("results", f"<testsuite>{''.join(cases)}</testsuite>"), ("log", log):
                    paths.append(os.path.join(folder, f"{number}.{name}"))
                    with open(paths[-1], "w", encoding="utf-8") as file:
                        file.write(text)
            done = subprocess.run([sys.executable, "-B", PROGRAM] + paths, capture_output=True, text=True)
        return done.returncode, done.stdout

    def test_all_passed(self):
        self.assertEqual(self.summary(PASSED, PASSED), (0, "2 passed, 0 failed\n"))

    def test_a_failure_is_shown_with_its_reason_and_output(self):
        code, text = self.summary(PASSED, FAILED, log="2/2 Test #2: b .....***Timeout   1.00 sec\n")
        self.assertEqual(code, 1)
        self.assertEqual(text, "FAILED: b (Timeout)\nwhy <it> failed\n\n1 passed, 1 failed\n")

    def test_a_program_that_is_missing_is_a_failure(self):
        code, text = self.summary(PASSED, MISSING)
        self.assertEqual((code, text.splitlines()[-1]), (1, "1 passed, 1 failed"))

    def test_skipped_tests_count_neither_as_passed_nor_as_failed(self):
        self.assertEqual(self.summary(PASSED, SKIPPED, DISABLED), (0, "2 skipped\n1 passed, 0 failed\n"))

    def test_an_empty_run_is_not_a_success(self):
        self.assertEqual(self.summary(), (1, "0 passed, 0 failed\n"))
        self.assertEqual(self.summary(SKIPPED)[0], 1)

    def test_several_runs_are_added_up(self):
        self.assertEqual(self.summary_of_runs(([PASSED, SKIPPED], ""), ([PASSED, PASSED], "")),
                         (0, "1 skipped\n3 passed, 0 failed\n"))

    def test_a_failure_in_either_run_is_shown_with_the_reason_of_its_own_log(self):
        reason = "2/2 Test #2: b .....***%s   1.00 sec\n"
        for first in (0, 1):
            runs = [([PASSED], reason % "Another"), ([FAILED], reason % "Timeout")]
            with self.subTest(first=first):
                code, text = self.summary_of_runs(runs[first], runs[1 - first])
                self.assertEqual((code, text.splitlines()[-1]), (1, "1 passed, 1 failed"))
                self.assertIn("FAILED: b (Timeout)\n", text)

    def test_an_empty_run_is_not_a_success_beside_another(self):
        self.assertEqual(self.summary_of_runs(([PASSED], ""), ([], "")), (1, "1 passed, 0 failed\n"))
        self.assertEqual(self.summary_of_runs(([SKIPPED], ""), ([PASSED], ""))[0], 1)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
