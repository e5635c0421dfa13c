"""The package installed in a fresh system of its own, and the program started there as from the desktop's menu.
Runs when it is asked for, because it loads and installs a whole system; says so, or why it cannot, when it does not.

    TESSAVIEW_FRESH_ROOT=yes ctest --test-dir build -R fresh_root --output-on-failure"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import fresh_root
import package

sys.path.insert(0, str(package.SOURCES / "tests/e2e"))
import desk  # noqa: E402  pylint: disable=wrong-import-position

BUILD = package.build_folder()


def shown(what, text):
    """The visible windows whose name, or whose class, is that text."""
    return set(desk.xdotool("search", "--onlyvisible", f"--{what}", f"^{text}$").split())


class PackageInAFreshSystem(unittest.TestCase):
    """The steps build on one another, so they are one test."""

    def start_from_the_menu(self, root):
        entry = "/usr/share/applications/tessaview.desktop"
        command = root.as_user(fresh_root.VISITOR, f"gio launch {entry} && exec sleep infinity")
        with tempfile.TemporaryFile() as errors, subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=errors, stderr=errors) as run:
            try:
                # The class is that of the desktop entry, by which a task bar knows whose window it is.
                desk.wait_until(lambda: shown("name", desk.WINDOW_TITLE) & shown("class", "TessaView"),
                                what="no window of that name and class came up")
                state = root.path / "home/visitor/.config/tessaview"
                desk.wait_until(state.is_dir, what="there are no settings in the user's folder")
            except AssertionError:
                errors.seek(0)
                print(errors.read().decode(errors="replace"), file=sys.stderr)
                raise
            finally:
                run.kill()

    def test_it_installs_starts_from_the_menu_and_goes(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            made = package.make_package(BUILD, pathlib.Path(folder))
            root = fresh_root.FreshRoot(BUILD, folder)
            shutil.copy(made, root.path / "tmp")
            root.install(f"/tmp/{made.name}", "libglib2.0-bin")
            self.assertEqual(root.run("tessaview", "--version"), "TessaView 3.02 Build 159\n")
            self.assertEqual(root.run("readlink", "-f", "/usr/bin/x-www-browser").strip(), "/usr/bin/tessaview")
            self.start_from_the_menu(root)
            root.run("dpkg", "--purge", "tessaview")
            self.assertFalse((root.path / "usr/bin/x-www-browser").is_symlink())
            self.assertEqual([*root.path.glob("usr/share/**/*tessa*")], [])


if __name__ == "__main__":
    reason = fresh_root.why_not(BUILD, "yes", "TESSAVIEW_FRESH_ROOT=yes ctest --test-dir build -R fresh_root --output-on-failure")
    if reason:
        print(f"SKIPPED: the package was not installed in a fresh system: {reason}")
        sys.exit(fresh_root.SKIPPED)
    package.install_tools("fresh_root_packages")
    unittest.main()
