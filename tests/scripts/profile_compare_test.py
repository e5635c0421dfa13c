#!/usr/bin/python3
"""profile_compare.py on calls and answers that are made up."""

import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests/tools"))

import profile_compare  # noqa: E402

VECTORS = ["case a/one", "file 5b735d", "get 73 6b . 512 1 31", "write 73 6b - 1", "final -", "case a/two", "file -"]
TABLE = """
| Form | Cases | Wine | Ours |
|---|---|---|---|
| A, W | `a/one`, `a/two` | x | `y` |
| W | `a/three` | x | y |
"""


class ProfileCompare(unittest.TestCase):
    def test_calls_are_read_without_the_recorded_answers(self):
        cases = profile_compare.read_cases(VECTORS)
        self.assertEqual([case.name for case in cases], ["a/one", "a/two"])
        self.assertEqual(cases[0].calls, [["get", "73", "6b", ".", "512"], ["write", "73", "6b", "-"]])
        self.assertEqual([case.before for case in cases], [b"[s]", None])

    def test_another_answer_or_another_file_is_a_difference(self):
        cases = profile_compare.read_cases(VECTORS)
        same = [(["1 31", "1"], "aa"), ([], "-")]
        self.assertEqual(list(profile_compare.differences(cases, same, same)), [])
        answer = [(["0 .", "1"], "aa"), ([], "-")]
        self.assertEqual([name for name, _ in profile_compare.differences(cases, same, answer)], ["a/one"])
        file = [(["1 31", "1"], "aa"), ([], "00")]
        self.assertEqual([name for name, _ in profile_compare.differences(cases, same, file)], ["a/two"])

    def test_the_table_names_forms_and_cases(self):
        self.assertEqual(profile_compare.explanations(TABLE),
                         [("A", "a/one"), ("A", "a/two"), ("W", "a/one"), ("W", "a/two"), ("W", "a/three")])

    def test_the_document_explains_only_cases_that_there_are(self):
        names = {case.name for case in profile_compare.read_cases(profile_compare.VECTORS.read_text().splitlines())}
        explained = profile_compare.explanations(profile_compare.EXPLAINED.read_text())
        self.assertGreater(len(explained), 0)
        self.assertEqual([name for _, name in explained if name not in names], [])


if __name__ == "__main__":
    unittest.main()
