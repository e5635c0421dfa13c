"""The README's two commands in a fresh system with nothing installed, as an ordinary user who may use sudo and as root.
Runs when it is asked for, because it loads a whole system and builds in it; says so, or why it cannot, when it does not.

    TESSAVIEW_FRESH_ROOT=commands ctest --test-dir build -R fresh_commands --output-on-failure

The picture that run.sh takes of the window, and what the commands say, is left in the build folder, under fresh-root."""

import contextlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import fresh_root
import package

BUILD = package.build_folder()
WINDOW_SECONDS = 1800  # until run.sh gives up on itself or the machine is broken; nothing is measured by it
TEST_SECONDS = 5400
SCREENSHOT_TAKEN = "\nScreenshot: "


def copy_sources(target):
    """What git would clone, with what is not committed yet."""
    listed = package.run("git", "-C", package.SOURCES, "ls-files", "-z", "--cached", "--others", "--exclude-standard")
    for name in filter(None, listed.split("\0")):
        if (package.SOURCES / name).exists():
            (target / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(package.SOURCES / name, target / name)


class CommandsInAFreshSystem(unittest.TestCase):
    """The second command runs where the first one has been, as a reader of the README would do it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=BUILD)
        self.addCleanup(folder.cleanup)
        self.root = fresh_root.FreshRoot(BUILD, folder.name)

    @contextlib.contextmanager
    def started(self, user, name, command):
        """A command of the project and the file of what it says, which is left beside the picture; ends it."""
        said = BUILD / "fresh-root" / f"{fresh_root.RELEASE}-{user.name}-{name}.txt"
        with said.open("w", encoding="utf-8") as out:
            run = subprocess.Popen(self.root.as_user(user, f"cd project && exec {command}"), stdin=subprocess.DEVNULL, stdout=out,
                                   stderr=out, env=package.clean_environment())
            try:
                yield run, said
            finally:
                run.kill()
                run.wait()

    @staticmethod
    def words_of(said):
        return said.read_text(encoding="utf-8", errors="replace")

    def run_shows_the_window(self, user):
        screenshot = self.root.path / user.home / "project/build/screenshot.png"
        begin = time.monotonic()
        with self.started(user, "run", "./run.sh examples/notes.tvg") as (run, said):
            while run.poll() is None and SCREENSHOT_TAKEN not in self.words_of(said) and time.monotonic() - begin < WINDOW_SECONDS:
                time.sleep(1)
            print(f"{user.name}: {time.monotonic() - begin:.0f} s until run.sh had its picture", file=sys.stderr)
            words = self.words_of(said)
            self.assertIsNone(run.poll(), words)
        self.assertIn(SCREENSHOT_TAKEN, words)
        for step in ("== 1 of 3", "== 2 of 3", "== 3 of 3"):
            self.assertIn(step, words)
        shutil.copy(screenshot, BUILD / "fresh-root" / f"{fresh_root.RELEASE}-{user.name}.png")

    def every_test_passes(self, user):
        with self.started(user, "test", "./test.sh") as (run, said):
            code = run.wait(TEST_SECONDS)
        words = self.words_of(said)
        self.assertEqual(code, 0, words)
        print(words[words.rindex("== Summary"):], file=sys.stderr)

    def both_commands_work(self, user):
        copy_sources(self.root.path / user.home / "project")
        self.run_shows_the_window(user)
        self.every_test_passes(user)

    def test_as_an_ordinary_user_who_may_use_sudo(self):
        self.root.install("sudo")
        self.root.run("useradd", "--create-home", "--uid", str(fresh_root.VISITOR.number), fresh_root.VISITOR.name)
        (self.root.path / "etc/sudoers.d/visitor").write_text("visitor ALL=(ALL) NOPASSWD: ALL\n")
        self.both_commands_work(fresh_root.VISITOR)

    def test_as_root(self):
        self.both_commands_work(fresh_root.ROOT)


if __name__ == "__main__":
    reason = fresh_root.why_not(BUILD, "commands",
                                "TESSAVIEW_FRESH_ROOT=commands ctest --test-dir build -R fresh_commands --output-on-failure")
    if reason:
        print(f"SKIPPED: the README's commands were not tried in a fresh system: {reason}")
        sys.exit(fresh_root.SKIPPED)
    package.install_tools("fresh_root_packages")
    unittest.main()
