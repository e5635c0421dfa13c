"""The engine's sandbox: a page's own process may do next to nothing. Started as an ordinary user, also when root tests."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import desk

PROGRAM = desk.program_file()
ORDINARY_USER = "nobody"
SKIPPED = 77
FILTERED = "2"  # Seccomp in /proc/PID/status: system calls go through a filter


def as_ordinary_user(*command):
    """The command, run by somebody who is not root."""
    return ["runuser", "-u", ORDINARY_USER, "--", *command] if os.geteuid() == 0 else list(command)


def status(process):
    """What /proc/PID/status says of a process, by name; empty when it has ended."""
    try:
        lines = pathlib.Path(f"/proc/{process}/status").read_text(encoding="utf-8").splitlines()
    except (FileNotFoundError, ProcessLookupError):
        return {}
    return {name: value.strip() for name, _, value in (line.partition(":") for line in lines)}


def arguments(process):
    """The command line of a process; empty when it has ended."""
    try:
        return pathlib.Path(f"/proc/{process}/cmdline").read_bytes().decode(errors="replace").split("\0")
    except (FileNotFoundError, ProcessLookupError):
        return []


def descendants(process):
    """The numbers of all processes that a process has started, and those that they have."""
    children = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        children.setdefault(status(name).get("PPid"), []).append(name)
    found, new = [], [str(process)]
    while new:
        new = [child for each in new for child in children.get(each, [])]
        found += new
    return found


class Sandbox(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        # The build folder may lie where only its owner can look.
        self.program = shutil.copy(PROGRAM, self.folder)
        self.folder.chmod(0o755)
        for name in ("home", "runtime"):
            (self.folder / name).mkdir(mode=0o700)
            if os.geteuid() == 0:
                shutil.chown(self.folder / name, ORDINARY_USER)

    def start(self, address):
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("XDG_", "DBUS_", "AT_SPI_", "QTWEBENGINE_"))}
        environment.update(HOME=str(self.folder / "home"), TESSAVIEW_HOME=str(self.folder / "home"),
                           XDG_RUNTIME_DIR=str(self.folder / "runtime"))
        process = subprocess.Popen(as_ordinary_user(self.program, address), env=environment, cwd=self.folder,
                                   stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        for each in [*descendants(process.pid), str(process.pid)]:
            subprocess.run(["kill", "-KILL", each], stderr=subprocess.DEVNULL, check=False)
        process.communicate()

    def engine_processes(self, process):
        if process.poll() is not None:
            raise AssertionError(f"the program has ended with {process.returncode}: {process.stderr.read().decode()}")
        return [each for each in descendants(process.pid) if any("--type=" in word for word in arguments(each))]

    def test_a_pages_process_is_locked_in(self):
        def locked_in():
            return [each for each in self.engine_processes(process) if status(each).get("Seccomp") == FILTERED]

        with desk.PageServer() as pages:
            process = self.start(pages.address("Garden"))
            desk.wait_until(lambda: "127.0.0.1/Garden" in pages.requested(), what="the page was not asked for")
            # A page's process is forked from one that is locked in less. It locks itself in before it has the page.
            for each in desk.wait_until(locked_in, what="no process is locked in"):
                said = status(each)
                self.assertNotEqual(said["Uid"].split()[0], "0")
                self.assertEqual(said["NoNewPrivs"], "1")
                self.assertEqual(int(said["CapEff"], 16), 0, "it may do nothing that needs a right")
                # One number for each namespace of processes around it: it sees none but its own.
                self.assertGreater(len(said["NSpid"].split()), len(status(process.pid)["NSpid"].split()))
            for each in self.engine_processes(process):
                self.assertNotIn("--no-sandbox", arguments(each))

    def test_nobody_but_root_tests_without_it(self):
        self.assertEqual("QTWEBENGINE_DISABLE_SANDBOX" in os.environ, os.geteuid() == 0)



def why_not():
    """Why no sandbox can be had on this machine; nothing when one can."""
    probe = subprocess.run(as_ordinary_user("unshare", "--user", "--pid", "--fork", "true"), capture_output=True,
                           text=True, check=False)
    return probe.stderr.strip() if probe.returncode else None


if __name__ == "__main__":
    reason = why_not()
    if reason:
        print(f"SKIPPED: whether the engine's sandbox is on: an ordinary user cannot make namespaces here: {reason}")
        sys.exit(SKIPPED)
    desk.main()
