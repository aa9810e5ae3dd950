#!/usr/bin/env python3
"""The rules report each planted violation, and nothing in a clean tree."""
import os
import shutil
import subprocess
import tempfile
import unittest
import unittest.mock

import commitsubject
import compiledonce
import elffiles
import includes
import sizes
import testnames
import translations


class Tree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = folder.name

    def plant(self, path, text):
        os.makedirs(os.path.join(self.top, os.path.dirname(path)), exist_ok=True)
        with open(os.path.join(self.top, path), "w", encoding="utf-8") as file:
            file.write(text)

    def refused(self, path, include, *others):
        for other in others:
            self.plant(other, "")
        self.plant(path, f"#pragma once\n#include {include}\n")
        found = includes.violations(self.top)
        self.assertEqual(len(found), 1, found)
        self.assertIn(path, found[0])


class Includes(Tree):
    def test_a_clean_tree_passes(self):
        self.plant("platform/values/Value.h", "#include <string>\n")
        self.plant("settings/Settings.cpp", '#include "platform/values/Value.h"\n#include <vector>\n')
        self.plant("account/Page.cpp", '#include "specifiers/SelectedIndex.h"\n')
        self.plant("specifiers/SelectedIndex.h", "#pragma once\n")
        self.plant("linux/bus/Bus.cpp", "#include <sys/stat.h>\n#include <systemd/sd-bus.h>\n")
        self.plant("window/Window.cpp", "#include <QQuickView>\n")
        self.assertEqual(includes.violations(self.top), [])

    def test_the_bundle_may_not_see_the_operating_system(self):
        for number, header in enumerate(["<sys/stat.h>", "<unistd.h>", "<fcntl.h>", "<dlfcn.h>", "<poll.h>"]):
            with self.subTest(header=header):
                self.plant("settings/File.cpp", f"#include {header}\n")
                self.assertEqual(len(includes.violations(self.top)), 1, number)

    def test_no_room_of_the_bundle_may_see_the_operating_system(self):
        for room in ["settings", "specifiers", "passcode", "root", "account", "apps", "info"]:
            for header in ["<QObject>", "<glib.h>", "<gio/gio.h>", "<systemd/sd-bus.h>", "<curl/curl.h>", "<unistd.h>"]:
                with self.subTest(room=room, header=header):
                    self.plant(f"{room}/File.cpp", f"#include {header}\n")
                    self.assertEqual(len(includes.violations(self.top)), 1)
                    self.plant(f"{room}/File.cpp", "")

    def test_values_may_not_see_the_user_interface(self):
        self.refused("platform/values/A.h", '"platform/ui/View.h"', "platform/ui/View.h")

    def test_the_settings_library_may_see_device_information_only_of_the_services(self):
        self.refused("settings/A.cpp", '"platform/services/Mail.h"', "platform/services/Mail.h")

    def test_pages_may_not_see_the_root(self):
        self.refused("account/A.cpp", '"root/SettingsListController.h"', "root/SettingsListController.h")

    def test_pages_may_not_see_a_front_end(self):
        self.refused("apps/A.cpp", '"shell/Navigation.h"', "shell/Navigation.h")

    def test_the_window_may_not_see_a_page(self):
        self.refused("window/A.cpp", '"account/AppsController.h"', "account/AppsController.h")

    def test_only_the_window_may_see_qt(self):
        self.refused("shell/A.cpp", "<QtCore/QString>")

    def test_only_the_linux_room_may_see_the_bus(self):
        self.refused("cli/command/A.cpp", "<systemd/sd-bus.h>")

    def test_a_folder_that_is_not_a_room_is_refused(self):
        self.plant("attic/A.cpp", "")
        self.assertEqual(len(includes.violations(self.top)), 1)

    def test_an_include_that_is_not_a_path_from_the_top_is_refused(self):
        self.refused("settings/A.cpp", '"settings/Gone.h"')

    def public(self, folder, *headers):
        self.plant(f"{folder}/CMakeLists.txt", f"wardlock_public_headers(a-library\n  {' '.join(headers)})\n")

    def test_public_headers_that_include_each_other_relative_to_themselves_pass(self):
        self.public("platform", "base/Export.h", "values/Value.h")
        self.public("settings", "Settings.h")
        self.plant("platform/base/Export.h", "#pragma once\n")
        self.plant("platform/values/Value.h", '#include "../base/Export.h"\n')
        self.plant("settings/Settings.h", '#include "../platform/values/Value.h"\n')
        self.plant("settings/Settings.cpp", '#include "settings/Settings.h"\n')
        self.assertEqual(includes.violations(self.top), [])

    def test_a_public_header_may_not_see_a_private_one(self):
        self.public("settings", "A.h")
        self.refused("settings/A.h", '"B.h"', "settings/B.h")

    def test_a_public_header_may_not_name_another_from_the_top(self):
        self.public("settings", "A.h", "B.h")
        self.refused("settings/A.h", '"settings/B.h"', "settings/B.h")

    def test_a_public_header_may_not_see_a_later_room(self):
        self.public("platform", "values/A.h", "ui/B.h")
        self.refused("platform/values/A.h", '"../ui/B.h"', "platform/ui/B.h")

    def test_a_missing_public_header_is_found(self):
        self.public("settings", "A.h")
        self.assertEqual(len(includes.violations(self.top)), 1)

    def test_a_circle_is_found(self):
        self.plant("settings/A.h", '#include "settings/B.h"\n')
        self.plant("settings/B.h", '#include "settings/A.h"\n')
        found = includes.violations(self.top)
        self.assertEqual(len(found), 1, found)
        self.assertIn("circle of files", found[0])

    def test_a_circle_of_rooms_is_found_though_no_files_make_one(self):
        rooms = {"a": ([], includes.STD), "b": (["a"], includes.STD), "c": (["b"], includes.STD)}
        rooms["a"] = (["c"], includes.STD)
        self.plant("a/A.h", '#include "c/Other.h"\n')
        self.plant("b/B.h", '#include "a/Other.h"\n')
        self.plant("c/C.h", '#include "b/Other.h"\n')
        for room in rooms:
            self.plant(f"{room}/Other.h", "")
        with unittest.mock.patch.object(includes, "ROOMS", rooms):
            found = includes.violations(self.top)
        self.assertEqual(len(found), 1, found)
        self.assertIn("circle of rooms", found[0])


class Sizes(Tree):
    def test_files_within_their_size_pass(self):
        self.plant("settings/A.h", "\n" * sizes.HEADER)
        self.plant("settings/A.cpp", "\n" * sizes.SOURCE)
        self.plant("tests/unit/settings/ATest.cpp", "\n" * 1000)
        self.assertEqual([line for line in sizes.violations(self.top) if line.startswith("settings")], [])

    def test_a_long_header_is_found(self):
        self.plant("settings/A.h", "\n" * (sizes.HEADER + 1))
        self.assertTrue(any(line.startswith("settings/A.h") for line in sizes.violations(self.top)))

    def test_a_long_source_is_found(self):
        self.plant("settings/A.cpp", "\n" * (sizes.SOURCE + 1))
        self.assertTrue(any(line.startswith("settings/A.cpp") for line in sizes.violations(self.top)))


HARDENED = """Elf file type is DYN (Position-Independent Executable file)
  GNU_STACK      0x000000 0x0000000000000000 0x0000000000000000 0x000000 0x000000 RW  0x10
  GNU_RELRO      0x002db0 0x0000000000003db0 0x0000000000003db0 0x000250 0x000250 R   0x1
 0x000000000000001d (RUNPATH)            Library runpath: [$ORIGIN/../lib]
 0x000000006ffffffb (FLAGS_1)            Flags: NOW PIE
     3: 0000000000000000     0 FUNC    GLOBAL DEFAULT  UND __stack_chk_fail@GLIBC_2.4 (4)
     4: 0000000000000000     0 FUNC    GLOBAL DEFAULT  UND __memcpy_chk@GLIBC_2.3.4 (4)
     5: 0000000000000000     0 FUNC    GLOBAL DEFAULT  UND _ZSt21__glibcxx_assert_failPKciS0_S0_@GLIBCXX_3.4.30 (5)
"""


class BuiltFiles(unittest.TestCase):
    def test_a_hardened_file_passes(self):
        self.assertEqual(elffiles.bad_folders(HARDENED) + elffiles.not_hardened(HARDENED) + elffiles.without_functions(HARDENED), [])

    def test_each_missing_protection_is_found(self):
        for there, instead in ("NOW PIE", "PIE"), ("GNU_RELRO", "NOTE"), ("RW  0x10", "RWE 0x10"), ("type is DYN", "type is EXEC"):
            with self.subTest(there=there):
                self.assertEqual(len(elffiles.not_hardened(HARDENED.replace(there, instead))), 1)

    def test_each_missing_option_is_found(self):
        for name in "__stack_chk_fail", "__memcpy_chk", "__glibcxx_assert_fail":
            with self.subTest(name=name):
                self.assertEqual(len(elffiles.without_functions(HARDENED.replace(name, "other"))), 1)

    def test_folders_that_depend_on_the_current_one_are_found(self):
        for folders in "/lib:", ":/lib", "/lib::/usr/lib", "lib", "./lib", "$ORIGINAL":
            with self.subTest(folders=folders):
                self.assertEqual(len(elffiles.bad_folders(HARDENED.replace("$ORIGIN/../lib", folders))), 1)


class CompiledOnce(unittest.TestCase):
    def test_sources_with_one_object_pass(self):
        self.assertEqual(compiledonce.compiled_twice([{"directory": "/b", "file": "/s/A.cpp"}, {"directory": "/b", "file": "/s/B.cpp"}]), {})

    def test_a_source_with_two_objects_is_found_however_it_is_named(self):
        commands = [{"directory": "/s/b", "file": "/s/A.cpp"}, {"directory": "/s/b", "file": "../A.cpp"}]
        self.assertEqual(compiledonce.compiled_twice(commands), {"/s/A.cpp": 2})


class TestNames(Tree):
    def plant_tests(self, *tests):
        self.plant("tests/unit/plist/ReaderTest.cpp", "".join(f"TEST({test}) {{\n}}\n" for test in tests))

    def reported(self, expected, *tests):
        self.plant_tests(*tests)
        found = testnames.violations(self.top)
        self.assertEqual(len(found), 1, found)
        self.assertIn(expected, found[0])

    def test_good_names_pass(self):
        self.plant_tests("Reader, SkipsCharactersOutsideBase64", "Reader, FadesOut", "Reader, RunsTheHandlerOnce",
                         "Reader,\n     RefusesUtf16WithHalfAPair", "Officer, AsksForThePasscode", "TestedPlatform, IsLoadedOnce")
        self.assertEqual(testnames.violations(self.top), [])

    def test_every_kind_of_test_is_checked(self):
        for macro in "TEST_F", "TEST_P", "TYPED_TEST":
            with self.subTest(macro=macro):
                self.plant("tests/unit/plist/ReaderTest.cpp", f"{macro}(Reader, WithoutABus) {{\n}}\n")
                self.assertEqual(len(testnames.violations(self.top)), 1)

    def test_a_name_that_does_not_begin_a_clause_is_found(self):
        for name in "OfARecordWithoutAList", "AnAlertIsShown", "AReaderReads", "TheEndIsRead", "WhoseBytesAreLost", "AndReadsUtf8":
            with self.subTest(name=name):
                self.reported("begins with", f"Reader, {name}")

    def test_a_name_that_does_not_end_a_clause_is_found(self):
        for name in "ReadsAFileOf", "LooksInto", "ShowsTheRowItAsksFor", "ReadsThe", "ReadsAndWritesAnd", "IsSwitchedOn":
            with self.subTest(name=name):
                self.reported("ends with", f"Reader, {name}")

    def test_a_name_of_one_word_is_found(self):
        self.reported("one word", "Reader, Reads")

    def test_a_name_in_another_case_is_found(self):
        for name in "readsData", "Reads_Data", "reads_data":
            with self.subTest(name=name):
                self.reported("not CamelCase", f"Reader, {name}")

    def test_a_name_twice_in_a_suite_is_found(self):
        self.reported("the name of another", "Reader, ReadsData", "Reader, ReadsData")

    def test_a_name_in_another_suite_or_room_passes(self):
        self.plant_tests("Reader, ReadsData", "Writer, ReadsData")
        self.plant("tests/unit/cli/ReaderTest.cpp", "TEST(Reader, ReadsData) {\n}\n")
        self.assertEqual(testnames.violations(self.top), [])

    def test_a_suite_of_another_form_is_found(self):
        self.reported("ends in Test", "ReaderTest, ReadsData")
        self.reported("ends in Test", "ReaderTests, ReadsData")
        self.reported("begins with Of", "OfAReader, ReadsData")
        self.reported("begins with A", "AReader, ReadsData")
        self.reported("begins with The", "TheReader, ReadsData")
        self.reported("not CamelCase", "reader, ReadsData")

    def test_a_suite_with_and_without_a_fixture_is_found(self):
        self.plant("tests/unit/plist/WriterTest.cpp", "TEST_F(Reader, WritesData) {\n}\n")
        self.reported("by TEST_F and by TEST", "Reader, ReadsData")

    def plant_parameters(self, arguments):
        self.plant("tests/unit/plist/ReaderTest.cpp", f"INSTANTIATE_TEST_SUITE_P({arguments});\n")

    def test_parameters_that_are_named_pass(self):
        for values in "Range(1U, 9U)", 'Values("a)", "b,", "\\"")', "Values(')', ',')", "Values(Look{true, false}, Look{false, true})":
            with self.subTest(values=values):
                self.plant_parameters(f"All, Reader, ::testing::{values},\n    [](const auto& it) {{ return name(it, 1); }}")
                self.assertEqual(testnames.violations(self.top), [])

    def test_parameters_without_a_name_are_found(self):
        for values in "Range(1U, 9U)", 'Values("a", "b")', 'Values("\\"", ",")', "Values(Look{true, false}, Look{false, true})":
            with self.subTest(values=values):
                self.plant_parameters(f", Reader,\n    ::testing::{values}")
                found = testnames.violations(self.top)
                self.assertEqual(len(found), 1, found)
                self.assertIn("tests/unit/plist/ReaderTest.cpp:1: no function names", found[0])

    def plant_mutants(self, *proofs):
        mutants = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "robustness/mutants")
        with open(os.path.join(mutants, "run"), encoding="utf-8") as file:
            self.plant("tests/robustness/mutants/run", file.read())
        self.plant("tests/support/programs/post.cpp", "")
        self.plant("tests/robustness/mutants/mutants.py",
                   f"class Mutant:\n    name = 'lost'\n    proofs = {proofs!r}\nALL = [Mutant]\n")

    def test_proofs_that_match_tests_pass(self):
        self.plant_mutants("tests.plist/Reader", "tests.plist/.*ead.*", "memory.killed", "memory.killed/Switch", "soak", "fuzz.value")
        self.plant("tests/unit/faults/DiskFaultsTest.cpp", "TEST_P(DiskFaults, KilledProcessLosesNothing) {\n}\n")
        self.plant("tests/robustness/soak/CMakeLists.txt", "add_test(NAME soak.two-settings-share-one-document\n")
        self.plant("fuzz/CMakeLists.txt", "wardlock_fuzz_target(value INPUTS 5)\n")
        self.plant_tests("Reader, ReadsData")
        self.assertEqual(testnames.violations(self.top), [])

    def test_a_proof_that_matches_no_test_is_found(self):
        self.plant("tests/unit/cli/WriterTest.cpp", "TEST(Writer, WritesData) {\n}\n")
        for proof in "tests.plist/Writer", "tests.plist/Read", "memory.killed", "processes.nothing", "soak", "fuzz.value", "nonsense":
            with self.subTest(proof=proof):
                self.plant_mutants(proof)
                self.reported(f"no test matches the proof {proof}", "Reader, ReadsData")


class CommitMessages(unittest.TestCase):
    ROOMS = {"plist", "cli", "docs", "house"}

    def reported(self, message, expected, files=1):
        found = commitsubject.violations(message, self.ROOMS, files)
        self.assertEqual(len(found), 1, found)
        self.assertIn(expected, found[0])

    def test_good_messages_pass(self):
        for message in "plist: skip characters outside base64 in data", "cli, docs: print rows in order", "docs: name 3.5 mm", \
                "house: rename classes\n\nTheir names had to be learned.":
            with self.subTest(message=message):
                self.assertEqual(commitsubject.violations(message, self.ROOMS, 1), [])

    def test_a_long_subject_is_found(self):
        self.reported("plist: read " + "x" * 61, "73 characters")
        self.assertEqual(commitsubject.violations("plist: read " + "x" * 60, self.ROOMS, 1), [])

    def test_another_form_is_found(self):
        for subject in "Skip characters", "plist: Skip characters", "plist: skip", "plist:skip characters", "plist skip characters", \
                "plist: skip characters.", "", ": skip characters", "plist,cli: skip characters":
            with self.subTest(subject=subject):
                self.reported(subject, "not of the form")

    def test_an_unknown_room_is_found(self):
        self.reported("attic: sweep floors", "not a room")
        self.reported("cli, attic: sweep floors", "\"attic\" is not a room")

    def test_many_files_without_a_body_are_found(self):
        self.assertEqual(commitsubject.violations("plist: read data", self.ROOMS, 5), [])
        self.reported("plist: read data", "6 files", 6)
        self.reported("plist: read data\n\n \n", "6 files", 6)
        self.assertEqual(commitsubject.violations("plist: read data\n\nA reason.", self.ROOMS, 6), [])

    def test_a_body_without_an_empty_line_above_is_found(self):
        self.reported("plist: read data\nA reason.", "not empty")


@unittest.skipUnless(shutil.which("git"), "git is not installed")
class NewestCommit(Tree):
    def git(self, *arguments):
        identity = {"GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_SYSTEM": os.devnull}
        for role in "AUTHOR", "COMMITTER":
            identity.update({f"GIT_{role}_NAME": "Test", f"GIT_{role}_EMAIL": "test@example.org"})
        environment = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")} | identity
        subprocess.run(["git", "-C", self.top, *arguments], env=environment, check=True, capture_output=True)

    def commit(self, message, *paths):
        for path in paths:
            self.plant(path, message)
        self.git("add", ".")
        self.git("commit", "--message", message)

    def test_a_folder_without_a_repository_or_a_commit_passes(self):
        self.assertEqual(commitsubject.newest_violations(self.top), [])
        self.git("init")
        self.assertEqual(commitsubject.newest_violations(self.top), [])

    def test_a_folder_within_another_repository_passes(self):
        self.git("init")
        self.commit("Nonsense", "sources/A.cpp")
        self.assertEqual(commitsubject.newest_violations(os.path.join(self.top, "sources")), [])
        self.assertEqual(len(commitsubject.newest_violations(self.top)), 1)

    def test_only_the_newest_commit_counts(self):
        self.git("init")
        self.commit("Nonsense", "platform/plist/A.cpp")
        self.commit("plist: read data", "platform/plist/A.cpp")
        self.assertEqual(commitsubject.newest_violations(self.top), [])
        self.commit("settings: read data", "platform/plist/A.cpp")
        self.assertIn("not a room", commitsubject.newest_violations(self.top)[0])

    def test_the_changed_files_are_counted(self):
        self.git("init")
        self.commit("plist: read data", "plist/A.cpp")
        self.commit("plist: write data", *[f"plist/{number}.cpp" for number in range(6)])
        self.assertIn("6 files", commitsubject.newest_violations(self.top)[0])

    def test_a_machine_without_git_passes(self):
        self.git("init")
        self.commit("Nonsense", "plist/A.cpp")
        with unittest.mock.patch.object(commitsubject.subprocess, "run", side_effect=FileNotFoundError):
            self.assertEqual(commitsubject.newest_violations(self.top), [])


if __name__ == "__main__":
    unittest.main()
