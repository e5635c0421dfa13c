"""scripts/tests.sh with a made-up ctest: what is run, how it ends, and what the summary says of it."""
import os
import pathlib
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "tests.sh"

# Writes down its call, says what its programs say, and fails with the tests that the file of its call names.
CTEST = r"""#!/bin/bash
echo "$*" >>"$HOME/calls"
folder=$2/Testing/Temporary
mkdir -p "$folder"
number=$(wc -l <"$HOME/calls")
cat "$HOME/says.$number" >"$folder/LastTest.log" 2>/dev/null || : >"$folder/LastTest.log"
rm -f "$folder/LastTestsFailed.log"
[ -e "$HOME/fails.$number" ] || exit 0
cp "$HOME/fails.$number" "$folder/LastTestsFailed.log"
exit 8
"""


class RunTests(unittest.TestCase):
    def run_tests(self, fails=(), says=()):
        """Exit code, calls of ctest and note, when the calls fail and say as given."""
        with tempfile.TemporaryDirectory() as home:
            path = pathlib.Path(home)
            (path / "ctest").write_text(CTEST, encoding="utf-8")
            (path / "ctest").chmod(0o755)
            for kind, all_of_it in (("fails", fails), ("says", says)):
                for number, text in enumerate(all_of_it, 1):
                    if text:
                        (path / f"{kind}.{number}").write_text(text, encoding="utf-8")
            done = subprocess.run(
                ["bash", "-c", f'set -uo pipefail; . "{SCRIPT}"; run_tests "$HOME/build" 3 >&2; echo "$? $tests_note"'],
                env={"HOME": home, "PATH": home + os.pathsep + os.environ["PATH"]}, stdout=subprocess.PIPE, text=True,
                timeout=60, check=True)
            calls = (path / "calls").read_text(encoding="utf-8").replace(home, "~").splitlines()
            code, _, note = done.stdout.rstrip("\n").partition(" ")
            return int(code), calls, note

    def test_what_passes_runs_once(self):
        self.assertEqual(self.run_tests(), (0, [
            "--test-dir ~/build --output-on-failure --no-tests=error -j 3"], ""))

    def test_what_is_left_out_is_noted(self):
        self.assertEqual(self.run_tests(says=["words\nSKIPPED: the sandbox: no rights\n"])[2],
                         "left out: the sandbox: no rights")

    def test_what_fails_runs_once_more_alone_and_what_fails_again_has_failed(self):
        code, calls, note = self.run_tests(fails=["7:e2e/a\n", "7:e2e/a\n"])
        self.assertEqual(code, 8)
        self.assertEqual(calls[1:], ["--test-dir ~/build --rerun-failed --output-on-failure --no-tests=error"])
        self.assertEqual(note, "")

    def test_what_passes_the_second_time_is_noted(self):
        code, calls, note = self.run_tests(fails=["7:e2e/a\n9:qt/B\n"], says=["SKIPPED: c\n"])
        self.assertEqual((code, len(calls)), (0, 2))
        self.assertEqual(note, "left out: c; NOT STEADY, failed at first: e2e/a qt/B")

    def test_what_a_program_ran_again_itself_is_noted(self):
        code, calls, note = self.run_tests(says=["UNSTEADY: Suite.One\nUNSTEADY: Suite.Two\n"])
        self.assertEqual((code, len(calls)), (0, 1))
        self.assertEqual(note, "NOT STEADY, failed at first: Suite.One Suite.Two")

    def test_a_ctest_that_fails_without_a_test_has_failed(self):
        code, calls, _ = self.run_tests(fails=["\n"])
        self.assertEqual((code, len(calls)), (8, 1))


if __name__ == "__main__":
    unittest.main()
