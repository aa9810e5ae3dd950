#!/usr/bin/env python3
"""What judges a soak finds what it is there for."""
import os
import plistlib
import sys
import tempfile
import unittest

import judges
import user
import watcher

RECORD = {"kAccountName": "Tom", "kAppsRestricted": ["a"]} | {key: False for key in judges.SWITCHES}
WHOLE = {"kEnabled": True, "kPasscode": "", "kAccounts": [RECORD], "more": 1}


def written(value):
    return plistlib.dumps(value, sort_keys=False)


class Announcements(unittest.TestCase):
    def test_notifications_in_order_pass(self):
        self.assertIsNone(judges.order_problem([1, 2, 2], [1, 2, 2]))

    def test_lost_doubled_and_swapped_notifications_are_found(self):
        for received in ([1, 3], [1, 2, 2, 3], [1, 3, 2], []):
            self.assertIsNotNone(judges.order_problem([1, 2, 3], received), received)

    def test_two_senders_may_be_received_in_any_order(self):
        for merged in ([1, 2, 7, 8], [7, 8, 1, 2], [1, 7, 2, 8], [7, 1, 8, 2]):
            self.assertIsNone(judges.merge_problem([1, 2], [7, 8], merged), merged)

    def test_senders_with_equal_notifications_are_distinguished_where_it_matters(self):
        self.assertIsNone(judges.merge_problem([1, 2, 1], [1, 3], [1, 1, 3, 2, 1]))
        self.assertIsNotNone(judges.merge_problem([1, 2, 1], [1, 3], [3, 1, 1, 2, 1]))

    def test_lost_doubled_and_swapped_notifications_of_two_senders_are_found(self):
        for merged in ([1, 2, 7], [1, 2, 7, 8, 8], [2, 1, 7, 8], [1, 8, 2, 7], [1, 2, 7, 9]):
            self.assertIsNotNone(judges.merge_problem([1, 2], [7, 8], merged), merged)


class Documents(unittest.TestCase):
    def test_a_whole_document_passes(self):
        self.assertIsNone(judges.document_problem(written(WHOLE)))

    def test_a_document_cut_short_anywhere_is_found(self):
        data = written(WHOLE)
        for end in range(len(data)):
            self.assertIsNotNone(judges.document_problem(data[:end]), end)

    def test_the_rest_of_a_longer_document_behind_it_is_found(self):
        data = written(WHOLE)
        self.assertIsNotNone(judges.document_problem(data + data[-20:]))

    def test_missing_keys_and_values_of_another_kind_are_found(self):
        for wrong in ({}, [], WHOLE | {"kPasscode": 7}, WHOLE | {"kAccounts": []}, WHOLE | {"kAccounts": [1]},
                      WHOLE | {"kAccounts": [RECORD | {"kHideApps": 1}]}, WHOLE | {"kAccounts": [RECORD | {"other": 1}]},
                      WHOLE | {"kAccounts": [RECORD | {"kAppsRestricted": [7]}]}):
            self.assertIsNotNone(judges.document_problem(written(wrong)), wrong)


class Growth(unittest.TestCase):
    SIZE = 2 * 1024 * 1024

    def test_memory_and_descriptors_that_return_pass(self):
        rests = [(self.SIZE + n % 3 * 4096, 9 + n % 2) for n in range(20)]
        self.assertIsNone(judges.growth_problem(rests))

    def test_resources_of_a_starting_process_pass(self):
        rests = [(n * self.SIZE, n) for n in (1, 2, 3, 4)] + [(4 * self.SIZE, 4)] * 8
        self.assertIsNone(judges.growth_problem(rests))

    def test_memory_that_is_lost_with_every_action_is_found(self):
        rests = [(self.SIZE + n * 65536, 9) for n in range(80)]
        self.assertIsNotNone(judges.growth_problem(rests))
        self.assertIsNone(judges.growth_problem(rests, memory_counts=False))

    def test_a_descriptor_that_is_lost_now_and_then_is_found(self):
        rests = [(self.SIZE, 9 + n // 5) for n in range(20)]
        self.assertIsNotNone(judges.growth_problem(rests, memory_counts=False))


class Watching(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = os.path.join(folder.name, "document")
        self.replace(written(WHOLE))
        self.watcher = watcher.Watcher(self.path)
        self.addCleanup(self.watcher.close)

    def replace(self, data, mode=0o600):
        with open(self.path + ".new", "wb") as file:
            file.write(data)
        os.chmod(self.path + ".new", mode)
        os.rename(self.path + ".new", self.path)

    def problems(self):
        self.watcher.take_events()
        return self.watcher.report["problems"]

    def test_each_replacement_is_counted_and_judged_once(self):
        for _ in range(3):
            self.replace(written(WHOLE))
            self.watcher.take_events()
        self.watcher.take_events()
        self.assertEqual(self.watcher.report, {"writes": 3, "generations": 3, "problems": []})

    def test_unobserved_replacements_are_counted(self):
        for _ in range(50):
            self.replace(written(WHOLE))
        self.watcher.take_events()
        self.assertEqual(self.watcher.report, {"writes": 50, "generations": 1, "problems": []})

    def test_half_a_document_is_found(self):
        self.replace(written(WHOLE)[:100])
        self.assertEqual(len(self.problems()), 1)

    def test_a_document_written_in_place_is_found_though_it_is_whole_again(self):
        with open(self.path, "wb") as file:
            file.write(written(WHOLE))
        self.assertIn("the document was written in place", self.problems())

    def test_a_document_gone_for_a_moment_is_found_though_it_is_back(self):
        os.remove(self.path)
        self.replace(written(WHOLE))
        self.assertEqual(self.problems(), ["the document was removed"])
        os.rename(self.path, self.path + ".away")
        os.rename(self.path + ".away", self.path)
        self.assertIn("the document was moved away", self.problems())

    def test_another_mode_is_found(self):
        self.replace(written(WHOLE), 0o644)
        self.assertEqual(self.problems(), ["its mode is 644"])


class Standing(unittest.TestCase):
    def test_an_account_and_its_picker_have_a_position_and_the_first_page_has_none(self):
        account = {"page": {"sections": [{"rows": [{"key": "kRestrictSiri"}]}]}}
        root = {"page": {"sections": [{"rows": [{"key": "kEnabled"}, {"label": "Tom"}]}]}}
        self.assertTrue(user.shows_account(account))
        self.assertTrue(user.shows_account({"page": {"table": []}}))
        self.assertFalse(user.shows_account(root))


if __name__ == "__main__":
    sys.exit(unittest.main())
