"""failures-first.sh: what it prints, in which order, and how it ends."""
import os
import subprocess
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


def run(script, seconds=60):
    return subprocess.run([SCRIPT, str(seconds), "bash", "-c", script], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=60)


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
        whole = part(done.stdout, "The whole output")
        self.assertIn("chatter of the engine", whole)
        self.assertIn("chatter 20", whole)

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
