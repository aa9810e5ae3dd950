#!/usr/bin/env python3
"""Every script of the repository documents its use, and refuses unknown arguments before it does anything.

    scripts.py FOLDER
"""
import os
import signal
import subprocess
import sys
import unittest

# Folders that do not belong to the repository.
NOT_OURS = {".git", "build"}
# What a script may take that misunderstands its arguments and begins its work.
LONGEST = 120

# Of every script.
UNKNOWN = [["--no-such-option"]]
# What some refuse beyond that.
WRONG = {
    "fuzz/make-plans": [["value"]],
    "packaging/build": [["wardlock"]],
    "packaging/try": [["--keep"], ["folder"]],
    "run": [["--device-root"], ["--screenshots", "--dark"], ["--terminal", "--dark"], ["--plain", "--light"], ["folder"]],
    "test": [["--preset"], ["--preset", "nonsense"], ["--preset", "package"], ["--preset", "--help"],
             ["--sanitize", "--coverage"], ["--coverage", "--preset", "dev"], ["--sanitize", "--sanitize"],
             ["one", "another"], ["-x"]],
    ".ci/run": [["--preset", "nonsense"]],
    "tests/system/installation/check": [[], ["build", "source"]],
    "tests/system/installation/components": [[], ["build"]],
    "tests/system/installation/fetch": [[], ["--run"], ["/no/such/folder", "g++"]],
    "tests/robustness/mutants/run": [["--only"], ["--only", "nonsense"], ["--list", "--check"]],
    "tests/robustness/soak/soak.py": [[]],
    "tests/robustness/soak/watcher.py": [[], ["one", "another"]],
    "tools/benchmark": [["--only", "nonsense"], ["--rounds", "0"], ["--seconds", "soon"], ["--seconds", "nan"],
                        ["--events", "-1"]],
    "tools/check-memory": [["--jobs", "0"], ["nonsense"]],
    "tools/configure": [[], ["--fresh"]],
    "tools/coverage": [["settings"]],
    "tools/draw-icons": [["folder"]],
    "tools/draw-pictures": [["one", "another"]],
    "tools/fuzz": [["--seconds", "0"], ["nonsense"]],
    "tools/generate-accent-folding": [["file"]],
    "tools/generate-case-folding": [["file"]],
    "tools/install-packages": [[], ["nonsense"]],
    "tools/lint": [["--jobs", "0"]],
    "tools/progress": [[], ["Building"], ["--log", "log", "Building"], ["--log", "/no/such/folder/log", "Building", "true"]],
    "tools/soak": [["--actions", "0"], ["--seed", "-1"]],
    "tools/test-summary": [[], ["results"], ["results", "log", "results"]],
    "examples/listen.py": [["one", "another"]],
}
# What its help has to document, where that is more than how it is called.
OPTIONS = {
    "run": ["--device-root", "--plain", "--screenshots", "--terminal"],
    "test": ["--preset", "--sanitize", "--coverage"],
}


def scripts():
    """All that can be started of the repository's own files, by path below its folder."""
    found = []
    for folder, below, names in os.walk(TOP):
        below[:] = [name for name in below if name not in NOT_OURS]
        for name in names:
            path = os.path.join(folder, name)
            if not os.path.islink(path) and os.access(path, os.X_OK):
                found.append(os.path.relpath(path, TOP))
    return sorted(found)


class Scripts(unittest.TestCase):
    def run_with(self, script, *arguments):
        environment = dict(os.environ, PYTHONDONTWRITEBYTECODE="1")
        process = subprocess.Popen([os.path.join(TOP, script), *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, env=environment, start_new_session=True)
        try:
            output, errors = process.communicate(timeout=LONGEST)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            self.fail("it did not end")
        return process.returncode, output, errors

    def test_help_is_not_an_error(self):
        for script in scripts():
            with self.subTest(script=script):
                code, text, errors = self.run_with(script, "--help")
                self.assertEqual((code, errors), (0, ""))
                self.assertIn("usage: ", text.lower())
                for option in OPTIONS.get(script, ()):
                    self.assertIn(option, text)

    def test_wrong_arguments_are_refused_on_standard_error(self):
        for script in scripts():
            for words in UNKNOWN + WRONG.get(script, []):
                with self.subTest(script=script, words=words):
                    code, text, errors = self.run_with(script, *words)
                    self.assertEqual((code, text), (2, ""))
                    self.assertNotEqual(errors, "")
                    self.assertNotIn("Traceback", errors)

    def test_unknown_rooms_are_refused_with_the_names_of_the_known_ones(self):
        errors = self.run_with("tools/check-memory", "nonsense")[2]
        rooms = errors.strip().rpartition(" the rooms are ")[2].split(", ")
        self.assertLessEqual({"settings", "values", "plist"}, set(rooms))
        self.assertNotIn("rules", rooms)

    def test_scripts_with_their_own_arguments_exist(self):
        self.assertEqual((WRONG.keys() | OPTIONS.keys()) - set(scripts()), set())


if __name__ == "__main__":
    TOP = os.path.abspath(sys.argv.pop(1))
    unittest.main()
