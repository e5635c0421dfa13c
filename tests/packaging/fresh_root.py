"""A Debian in a folder of its own, with nothing installed but what every Debian has, for tests that ask for one.
TESSAVIEW_FRESH_ROOT_RELEASE names the release, TESSAVIEW_FRESH_ROOT_MIRROR where it is loaded from."""

import os
import pathlib
import shutil
import socket
import subprocess
import typing
import urllib.request

import package

RELEASE = os.environ.get("TESSAVIEW_FRESH_ROOT_RELEASE", "bookworm")
MIRROR = os.environ.get("TESSAVIEW_FRESH_ROOT_MIRROR", "http://deb.debian.org/debian")
NEEDED_SPACE = 6 << 30  # bytes
SKIPPED = 77
# The machine's clock may be far from the lists' own dates.
APT = ["apt-get", "-qq", "-o", "Acquire::Check-Date=false", "-o", "Acquire::Check-Valid-Until=false", "-o",
       "APT::Keep-Downloaded-Packages=true"]
ENTER = pathlib.Path(__file__).with_name("enter-root.sh")


def why_not(build, wish, command):
    """Why no system can be made here; nothing when one can. `wish` is what TESSAVIEW_FRESH_ROOT must be."""
    if wish not in os.environ.get("TESSAVIEW_FRESH_ROOT", "").split(","):
        return f"it takes minutes and loads hundreds of megabytes. To run it: {command}"
    if os.geteuid() != 0:
        return "making a system needs root."
    if shutil.disk_usage(build).free < NEEDED_SPACE:
        return f"{build} has less than 6 GB of room."
    if subprocess.run(["unshare", "--mount", "mount", "--make-rprivate", "/"], capture_output=True, check=False).returncode:
        return "file systems cannot be mounted here."
    try:
        with urllib.request.urlopen(f"{MIRROR}/dists/{RELEASE}/Release", timeout=20):
            return None
    except OSError as error:
        return f"{MIRROR} does not answer: {error}."


class User(typing.NamedTuple):
    """Somebody who works in such a system; the home folder is relative to its root."""

    name: str
    number: int
    home: str


ROOT = User("root", 0, "root")
VISITOR = User("visitor", 1000, "home/visitor")


class FreshRoot:
    """A minimal system with lists of packages; its base is made once and kept for later runs."""

    def __init__(self, build, folder):
        self.path = pathlib.Path(folder) / "root"
        self.path.mkdir()
        self.archives = build / "fresh-root" / f"{RELEASE}-archives"
        self.archives.mkdir(parents=True, exist_ok=True)
        base = build / "fresh-root" / f"{RELEASE}.tar"
        if not base.exists():
            package.run("debootstrap", "--variant=minbase", RELEASE, self.path, MIRROR)
            package.run("tar", "-C", self.path, "-cf", f"{base}.new", ".")
            os.replace(f"{base}.new", base)
        else:
            package.run("tar", "-C", self.path, "-xf", base)
        shutil.copy("/etc/resolv.conf", self.path / "etc/resolv.conf")
        # Every installed Debian has it; else sudo asks the network for the machine's own name.
        (self.path / "etc/hosts").write_text(f"127.0.0.1 localhost {socket.gethostname()}\n::1 localhost\n")
        # How this machine reaches its packages, and its clock may be far from the lists' own dates.
        settings = self.path / "etc/apt/apt.conf.d"
        for each in pathlib.Path("/etc/apt/apt.conf.d").glob("*"):
            if any(word in each.name for word in ("proxy", "cert", "ssl")):
                shutil.copy(each, settings)
        (settings / "90dates").write_text('Acquire::Check-Date "false";\nAcquire::Check-Valid-Until "false";\n')
        self.run(*APT, "update")

    def run(self, *command):
        return package.run("chroot", self.path, *command, env=package.clean_environment(DEBIAN_FRONTEND="noninteractive"))

    def install(self, *packages):
        """Installs packages; what was downloaded once is kept."""
        cache = self.path / "var/cache/apt/archives"
        for each in self.archives.glob("*.deb"):
            os.link(each, cache / each.name) if not (cache / each.name).exists() else None
        self.run(*APT, "install", "-y", "--no-install-recommends", *packages)
        for each in cache.glob("*.deb"):
            if not (self.archives / each.name).exists():
                shutil.move(each, self.archives / each.name)

    def as_user(self, user, script):
        """The command that runs a shell script in it as that user, in the user's home folder."""
        return ["unshare", "--mount", "--pid", "--fork", "--kill-child", ENTER, self.path, str(user.number), f"/{user.home}",
                "sh", "-c", script]
