"""The README's two commands in a fresh system, as an ordinary user who may use sudo and has nothing installed.
Runs when it is asked for, because it loads a whole system and builds in it; says so, or why it cannot, when it does not.

    TESSAVIEW_FRESH_ROOT=commands ctest --test-dir build -R fresh_commands --output-on-failure

The picture that run.sh takes of the window is left in the build folder, under fresh-root."""

import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import fresh_root
import package

BUILD = package.build_folder()
PROJECT = "home/visitor/project"
WINDOW_SECONDS = 1800  # until run.sh gives up on itself or the machine is broken; nothing is measured by it
TEST_SECONDS = 5400


def copy_sources(target):
    """What git would clone, with what is not committed yet."""
    listed = package.run("git", "-C", package.SOURCES, "ls-files", "-z", "--cached", "--others", "--exclude-standard")
    for name in filter(None, listed.split("\0")):
        if (package.SOURCES / name).exists():
            (target / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(package.SOURCES / name, target / name)


class CommandsInAFreshSystem(unittest.TestCase):
    """The second command runs where the first one has been, as a reader of the README would do it."""

    def run_shows_the_window(self, root):
        screenshot = root.path / PROJECT / "build/screenshot.png"
        command = root.as_visitor("cd project && unset DISPLAY && exec ./run.sh examples/notes.tvg")
        with tempfile.TemporaryFile() as said, subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=said, stderr=said) as run:
            end = time.monotonic() + WINDOW_SECONDS
            while not screenshot.exists() and run.poll() is None and time.monotonic() < end:
                time.sleep(1)
            ended = run.poll()
            run.kill()
            run.wait()
            said.seek(0)
            words = said.read().decode(errors="replace")
        self.assertIsNone(ended, words)
        self.assertTrue(screenshot.exists(), words)
        for step in ("== 1 of 3", "== 2 of 3", "== 3 of 3"):
            self.assertIn(step, words)
        shutil.copy(screenshot, BUILD / "fresh-root" / f"{fresh_root.RELEASE}.png")

    def test_run_and_test(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            root = fresh_root.FreshRoot(BUILD, folder)
            root.install("sudo")
            root.run("useradd", "--create-home", "--uid", "1000", "visitor")
            (root.path / "etc/sudoers.d/visitor").write_text("visitor ALL=(ALL) NOPASSWD: ALL\n")
            copy_sources(root.path / PROJECT)
            self.run_shows_the_window(root)
            ended = subprocess.run(root.as_visitor("cd project && unset DISPLAY && exec ./test.sh"), stdin=subprocess.DEVNULL,
                                   capture_output=True, text=True, timeout=TEST_SECONDS, check=False)
            self.assertEqual(ended.returncode, 0, ended.stdout + ended.stderr)


if __name__ == "__main__":
    reason = fresh_root.why_not(BUILD, "commands",
                                "TESSAVIEW_FRESH_ROOT=commands ctest --test-dir build -R fresh_commands --output-on-failure")
    if reason:
        print(f"SKIPPED: the README's commands were not tried in a fresh system: {reason}")
        sys.exit(fresh_root.SKIPPED)
    package.install_tools("fresh_root_packages")
    unittest.main()
