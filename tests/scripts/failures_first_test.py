"""failures-first.sh: what it prints, in which order, and how it ends."""
import os
import subprocess
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "failures-first.sh")

# What GoogleTest prints, with what the engine says in between.
FAILING = r"""
echo "[ RUN      ] Good.One"; echo "[       OK ] Good.One (1 ms)"; echo chatter of the engine
echo "[ RUN      ] Bad.One"; echo "b.cpp:3: Failure"; echo "Value of: shown"; echo "[  FAILED  ] Bad.One (3 ms)"
echo "[ RUN      ] Good.Two"; echo "[       OK ] Good.Two (1 ms)"
for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do echo "chatter $i" >&2; done
exit 1
"""
CRASHING = r"""
echo "[ RUN      ] Crash.One"
for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do echo "chatter $i"; done
kill -SEGV $$
"""


FAILING_TWO = FAILING.replace("exit 1", r"""
echo "x.cpp:9: Failure"; echo "[  FAILED  ] Kinds/Bad.Two/pdf, where GetParam() = \\"pdf\\" (9 ms)"
echo "[  FAILED  ] 2 tests, listed below:"; echo "[  FAILED  ] Bad.One"
exit 1
""")


def run(script, seconds=60, environment=None):
    return subprocess.run([SCRIPT, str(seconds), "bash", "-c", script], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=60, env={**os.environ, **(environment or {})})


def part(output, name, next_name=None):
    after = output.split("== " + name, 1)[1]
    return after.split("== " + next_name, 1)[0] if next_name else after


class FailuresFirst(unittest.TestCase):
    def test_what_went_well_is_printed_as_it_came(self):
        done = run("echo one; echo two >&2; echo 'SKIPPED: three'")
        self.assertEqual((done.returncode, done.stdout), (0, "one\ntwo\nSKIPPED: three\n"))

    def test_a_failed_test_comes_first_and_the_whole_output_last(self):
        done = run(FAILING)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(part(done.stdout, "What failed", "Where it ended").splitlines()[1:],
                         ["b.cpp:3: Failure", "Value of: shown", "[  FAILED  ] Bad.One (3 ms)"])
        whole = part(done.stdout, "The whole output", "What failed, once more")
        self.assertIn("chatter of the engine", whole)
        self.assertIn("chatter 20", whole)

    def test_what_fails_again_has_failed(self):
        done = run(FAILING)
        self.assertEqual(done.returncode, 1)
        self.assertIn("Bad.One", part(done.stdout, "What failed, once more and alone"))
        self.assertNotIn("UNSTEADY", done.stdout)

    def test_what_passes_alone_is_named_as_not_steady(self):
        with tempfile.TemporaryDirectory() as folder:
            seen = os.path.join(folder, "seen")
            done = run(f'echo "$0 $GTEST_TOTAL_SHARDS" >>{seen}; [ $(wc -l <{seen}) -eq 1 ] || exit 0\n' + FAILING_TWO,
                       environment={"GTEST_TOTAL_SHARDS": "2", "GTEST_SHARD_INDEX": "1"})
            with open(seen, encoding="utf-8") as file:
                self.assertEqual(file.read(), "bash 2\n--gtest_filter=Bad.One:Kinds/Bad.Two/pdf \n")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual([each for each in done.stdout.splitlines() if each.startswith("UNSTEADY: ")],
                         ["UNSTEADY: Bad.One", "UNSTEADY: Kinds/Bad.Two/pdf"])

    def test_a_crash_names_the_test_that_ran(self):
        done = run(CRASHING)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("[ RUN      ] Crash.One", part(done.stdout, "Where it ended", "The whole output"))

    def test_what_does_not_end_is_ended_and_its_output_kept(self):
        done = run("echo '[ RUN      ] Endless.One'; sleep 600", seconds=1)
        self.assertEqual(done.returncode, 124)
        self.assertIn("Endless.One", part(done.stdout, "Where it ended", "The whole output"))

    def test_a_call_without_a_command_says_how(self):
        done = subprocess.run([SCRIPT], stderr=subprocess.PIPE, text=True, timeout=60)
        self.assertEqual(done.returncode, 2)
        self.assertIn("usage", done.stderr)


if __name__ == "__main__":
    unittest.main()
