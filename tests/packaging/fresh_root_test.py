"""The package installed in a fresh system of its own, and the program started there as from the desktop's menu.
Runs when it is asked for, because it loads and installs a whole system; says so, or why it cannot, when it does not.

    TESSAVIEW_FRESH_ROOT=yes ctest --test-dir build -R fresh_root --output-on-failure

TESSAVIEW_FRESH_ROOT_RELEASE names the release of Debian, TESSAVIEW_FRESH_ROOT_MIRROR where it is loaded from."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.request

import package

sys.path.insert(0, str(package.SOURCES / "tests/e2e"))
import desk  # noqa: E402  pylint: disable=wrong-import-position

BUILD = package.build_folder()
RELEASE = os.environ.get("TESSAVIEW_FRESH_ROOT_RELEASE", "bookworm")
MIRROR = os.environ.get("TESSAVIEW_FRESH_ROOT_MIRROR", "http://deb.debian.org/debian")
NEEDED_SPACE = 3 << 30  # bytes
SKIPPED = 77
# The machine's clock may be far from the lists' own dates.
APT = ["apt-get", "-qq", "-o", "Acquire::Check-Date=false", "-o", "Acquire::Check-Valid-Until=false", "-o",
       "APT::Keep-Downloaded-Packages=true"]


def why_not():
    """Why no system can be made here; nothing when one can."""
    if os.environ.get("TESSAVIEW_FRESH_ROOT") != "yes":
        return ("it takes minutes and loads hundreds of megabytes. To run it: "
                "TESSAVIEW_FRESH_ROOT=yes ctest --test-dir build -R fresh_root --output-on-failure")
    if os.geteuid() != 0:
        return "making a system needs root."
    if shutil.disk_usage(BUILD).free < NEEDED_SPACE:
        return f"{BUILD} has less than 3 GB of room."
    if subprocess.run(["unshare", "--mount", "mount", "--make-rprivate", "/"], capture_output=True, check=False).returncode:
        return "file systems cannot be mounted here."
    try:
        with urllib.request.urlopen(f"{MIRROR}/dists/{RELEASE}/Release", timeout=20):
            return None
    except OSError as error:
        return f"{MIRROR} does not answer: {error}."


class FreshRoot(unittest.TestCase):
    """The steps build on one another, so they are one test."""

    def in_root(self, *command):
        return package.run("chroot", self.root, *command, env=package.clean_environment(DEBIAN_FRONTEND="noninteractive"))

    def make_system(self):
        """A minimal system with empty lists; made once and kept for later runs."""
        base = BUILD / "fresh-root" / f"{RELEASE}.tar"
        if not base.exists():
            base.parent.mkdir(exist_ok=True)
            package.run("debootstrap", "--variant=minbase", RELEASE, self.root, MIRROR)
            package.run("tar", "-C", self.root, "-cf", f"{base}.new", ".")
            os.replace(f"{base}.new", base)
        else:
            package.run("tar", "-C", self.root, "-xf", base)
        archives = BUILD / "fresh-root" / f"{RELEASE}-archives"
        archives.mkdir(exist_ok=True)
        shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
        return archives

    def install(self, archives, *packages):
        """Installs packages; what was downloaded once is kept."""
        cache = self.root / "var/cache/apt/archives"
        for each in archives.glob("*.deb"):
            os.link(each, cache / each.name) if not (cache / each.name).exists() else None
        self.in_root(*APT, "install", "-y", "--no-install-recommends", *packages)
        for each in cache.glob("*.deb"):
            if not (archives / each.name).exists():
                shutil.move(each, archives / each.name)

    def start_from_the_menu(self):
        enter = pathlib.Path(__file__).with_name("enter-root.sh")
        entry = "/usr/share/applications/tessaview.desktop"
        command = ["unshare", "--mount", "--pid", "--fork", "--kill-child", enter, self.root, "sh", "-c",
                   f"gio launch {entry} && exec sleep infinity"]
        with tempfile.TemporaryFile() as errors, subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=errors, stderr=errors) as run:
            try:
                # The class is that of the desktop entry, by which a task bar knows whose window it is.
                search = ["search", "--onlyvisible", "--all", "--name", f"^{desk.WINDOW_TITLE}$", "--class", "^TessaView$"]
                desk.wait_until(lambda: desk.xdotool(*search), what="no window of that name and class came up")
                state = self.root / "home/visitor/.config/tessaview"
                desk.wait_until(state.is_dir, what="there are no settings in the user's folder")
            except AssertionError:
                errors.seek(0)
                print(errors.read().decode(errors="replace"), file=sys.stderr)
                raise
            finally:
                run.kill()

    def test_it_installs_starts_from_the_menu_and_goes(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            self.root = pathlib.Path(folder) / "root"
            self.root.mkdir()
            made = package.make_package(BUILD, pathlib.Path(folder))
            archives = self.make_system()
            shutil.copy(made, self.root / "tmp")
            self.in_root(*APT, "update")
            self.install(archives, f"/tmp/{made.name}", "libglib2.0-bin")
            self.assertEqual(self.in_root("tessaview", "--version"), "TessaView 3.02 Build 159\n")
            self.assertEqual(self.in_root("readlink", "-f", "/usr/bin/x-www-browser").strip(), "/usr/bin/tessaview")
            self.start_from_the_menu()
            self.in_root("dpkg", "--purge", "tessaview")
            self.assertFalse((self.root / "usr/bin/x-www-browser").is_symlink())
            self.assertEqual([*self.root.glob("usr/share/**/*tessa*")], [])


if __name__ == "__main__":
    reason = why_not()
    if reason:
        print(f"SKIPPED: the package was not installed in a fresh system: {reason}")
        sys.exit(SKIPPED)
    package.install_tools("fresh_root_packages")
    unittest.main()
