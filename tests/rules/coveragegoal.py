#!/usr/bin/env python3
"""The goal for covered lines applies to the bundle, the settings library and the platform, each in total.

    coveragegoal.py PROGRAM
"""
import runpy
import sys
import types
import unittest


def file(path, run, missed, braces=0):
    counts = [(1, False)] * run + [(0, False)] * missed + [(0, True)] * braces
    return {"file": path, "lines": [{"line_number": number, "count": count, "gcovr/noncode": noncode}
                                    for number, (count, noncode) in enumerate(counts, 1)]}


WHOLE = [file("root/A.cpp", 96, 4), file("settings/A.cpp", 96, 4), file("platform/ui/A.cpp", 96, 4)]


class Goal(unittest.TestCase):
    def reached(self, *files):
        return coverage.report(files)[1]

    def test_is_reached_by_every_part_above_it(self):
        self.assertTrue(self.reached(*WHOLE))

    def test_is_missed_where_one_part_is_not_above_it(self):
        for number, whole in enumerate(WHOLE):
            with self.subTest(path=whole["file"]):
                self.assertFalse(self.reached(file(whole["file"], 95, 5), *WHOLE[:number], *WHOLE[number + 1:]))

    def test_is_missed_where_a_part_was_not_built(self):
        for number in range(len(WHOLE)):
            self.assertFalse(self.reached(*WHOLE[:number], *WHOLE[number + 1:]))

    def test_counts_a_part_as_the_total_of_its_rooms(self):
        self.assertTrue(self.reached(*WHOLE, file("account/A.cpp", 100, 0), file("apps/A.cpp", 94, 6)))
        self.assertFalse(self.reached(*WHOLE, file("account/A.cpp", 90, 10)))

    def test_counts_no_lone_braces(self):
        self.assertTrue(self.reached(*WHOLE, file("info/A.cpp", 96, 4, braces=50)))

    def test_ignores_the_other_rooms(self):
        self.assertTrue(self.reached(*WHOLE, file("cli/A.cpp", 0, 100)))


class Report(unittest.TestCase):
    def test_names_each_room_with_its_lines(self):
        text = "\n".join(coverage.report([file("apps/A.cpp", 3, 1), file("apps/B.h", 0, 4), file("cli/A.cpp", 1, 1)])[0])
        self.assertRegex(text, r"(?m)^  apps +3 of +8 lines +37\.5 %")
        self.assertRegex(text, r"(?m)^bundle +3 of +8 lines +37\.5 % +not above 95 %$")
        self.assertRegex(text, r"(?m)^cli +1 of +2 lines +50\.0 %$")

    def test_names_the_lines_that_have_not_run(self):
        self.assertEqual(coverage.missing([file("apps/A.cpp", 1, 2, braces=1), file("cli/A.cpp", 0, 1)]),
                         ["apps/A.cpp:2", "apps/A.cpp:3"])


if __name__ == "__main__":
    coverage = types.SimpleNamespace(**runpy.run_path(sys.argv.pop(1)))
    unittest.main()
