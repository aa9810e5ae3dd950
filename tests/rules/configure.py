#!/usr/bin/env python3
"""tools/configure configures a project wherever it stands, also after it was moved.

    configure.py PROGRAM
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

PRESETS = """{"version": 6, "configurePresets": [
  {"name": "release", "generator": "Ninja", "binaryDir": "${sourceDir}/build/${presetName}"}]}"""


class Configure(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        os.makedirs(self.path("first/tools"))
        shutil.copy(PROGRAM, self.path("first/tools"))
        for name, text in (("CMakeLists.txt", "cmake_minimum_required(VERSION 3.25)\nproject(tried NONE)\n"), ("CMakePresets.json", PRESETS)):
            with open(self.path("first", name), "w", encoding="utf-8") as file:
                file.write(text)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def configure(self, script, *options, **variables):
        done = subprocess.run([script, "release", *options], cwd=self.folder, env=dict(os.environ, **variables), capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def cached(self, project, name):
        with open(self.path(project, "build/release/CMakeCache.txt"), encoding="utf-8") as file:
            return [line.strip().partition("=")[2] for line in file if line.startswith(name + ":")]

    def test_keeps_what_was_configured(self):
        self.configure(self.path("first/tools/configure"), "-DCHOSEN=yes")
        self.configure(self.path("first/tools/configure"))
        self.assertEqual(self.cached("first", "CHOSEN"), ["yes"])

    def test_starts_afresh_where_the_project_was_moved(self):
        self.configure(self.path("first/tools/configure"), "-DCHOSEN=yes")
        os.rename(self.path("first"), self.path("a new place"))
        self.configure(self.path("a new place/tools/configure"))
        self.assertEqual(self.cached("a new place", "CHOSEN"), [])

    def test_configures_its_own_project_through_a_link(self):
        os.symlink(self.path("first/tools/configure"), self.path("link"))
        self.configure(self.path("link"))
        self.assertTrue(self.cached("first", "CMAKE_HOME_DIRECTORY"))

    def test_does_not_follow_the_search_path_of_folders(self):
        os.makedirs(self.path("elsewhere/first/tools"))
        self.configure("first/tools/configure", CDPATH=self.path("elsewhere"))
        self.assertTrue(self.cached("first", "CMAKE_HOME_DIRECTORY"))


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
