#!/usr/bin/env python3
"""tools/progress shows how far a build or a run of tests is, and loses neither output nor exit code.

    progress.py PROGRAM
"""
import io
import os
import runpy
import subprocess
import sys
import tempfile
import types
import unittest

COMPILED = "[%d/%d] Building CXX object platform/CMakeFiles/wardlock-platform-objects.dir/runtime/Class.cpp.o"
PASSED = " %d/%d Test #7: settings.Log.IsBounded ...........   Passed    0.03 sec"
FAILED = " %d/%d Test #8: settings.Log.IsKept ..............***Failed    0.03 sec"
SKIPPED = " %d/%d Test #9: settings.Log.IsSkipped ...........***Skipped   0.03 sec"


class Shown(unittest.TestCase):
    def shown(self, *lines, columns=0, seconds=0.0):
        """What is printed for the lines; each comes that long after the one before."""
        out, now = io.StringIO(), [0.0]
        shows = progress.Progress("Building", out, columns, lambda: now[0])
        for line in lines:
            now[0] += seconds
            shows.line(line)
        shows.end()
        return out.getvalue()

    def test_each_tenth_prints_a_line_without_a_terminal(self):
        text = self.shown(*(COMPILED % (number, 40) for number in range(1, 41)))
        self.assertEqual(text.splitlines()[0], "Building: 4 of 40")
        self.assertEqual(len(text.splitlines()), 10)
        self.assertEqual(text.splitlines()[-1], "Building: 40 of 40")

    def test_few_steps_skip_tenths(self):
        self.assertEqual(self.shown(*(COMPILED % (number, 3) for number in range(1, 4))),
                         "Building: 1 of 3\nBuilding: 2 of 3\nBuilding: 3 of 3\n")

    def test_a_terminal_shows_one_moving_line_with_the_source(self):
        text = self.shown(COMPILED % (1, 40), COMPILED % (2, 40), columns=80)
        self.assertEqual(text, "\rBuilding: 1 of 40, Class.cpp\033[K\rBuilding: 2 of 40, Class.cpp\033[K\r\033[K")

    def test_the_moving_line_fits_into_the_terminal(self):
        longest = max(self.shown(COMPILED % (1, 40), columns=20).replace("\033[K", "").split("\r"), key=len)
        self.assertEqual(len(longest), 19)

    def test_the_remaining_time_is_estimated_from_finished_steps(self):
        text = self.shown(*(COMPILED % (number, 120) for number in range(1, 61)), seconds=2)
        self.assertEqual(text.splitlines()[-1], "Building: 60 of 120, about 2 minutes left")

    def test_a_failed_test_is_shown_at_once_and_alone_in_its_line(self):
        text = self.shown(PASSED % (1, 40), FAILED % (2, 40), columns=80)
        self.assertIn("\r\033[KFAILED: settings.Log.IsKept (Failed)\n", text)
        self.assertIn("\rBuilding: 2 of 40, settings.Log.IsKept", text)

    def test_a_test_with_parameters_is_shown_with_them(self):
        text = self.shown(' 1/9 Test #3: manual.All/Page.IsValid/Window  # GetParam() = "a b" ....***Exception: SegFault  0.14 sec')
        self.assertEqual(text.splitlines()[0], 'FAILED: manual.All/Page.IsValid/Window  # GetParam() = "a b" (Exception: SegFault)')

    def test_a_skipped_test_is_not_a_failure(self):
        self.assertNotIn("FAILED", self.shown(SKIPPED % (1, 40), columns=80))

    def test_other_lines_are_not_shown(self):
        self.assertEqual(self.shown("ninja: no work to do.", "warning: [1/2]", columns=80), "")


class Commands(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.log = os.path.join(folder.name, "log")

    def run_command(self, script):
        done = subprocess.run([sys.executable, "-B", PROGRAM, "--log", self.log, "Building", "sh", "-c", script],
                              capture_output=True, text=True)
        with open(self.log, encoding="utf-8") as file:
            return done.returncode, done.stdout, file.read()

    def test_output_of_both_kinds_goes_into_the_log(self):
        self.assertEqual(self.run_command("echo one; echo two >&2"), (0, "", "one\ntwo\n"))

    def test_an_existing_log_is_appended_to(self):
        self.run_command("echo one")
        self.assertEqual(self.run_command("echo two")[2], "one\ntwo\n")

    def test_the_exit_code_is_the_commands(self):
        self.assertEqual(self.run_command("exit 7")[0], 7)

    def test_bytes_of_another_encoding_do_not_end_it(self):
        self.assertEqual(self.run_command(r"printf '\377\n'; echo '[1/1] Linking CXX executable bin/a'")[:2],
                         (0, "Building: 1 of 1\n"))


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    progress = types.SimpleNamespace(**runpy.run_path(PROGRAM))
    unittest.main()
