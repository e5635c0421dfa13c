"""A program that runs, and how soon it shows its window and its pages."""
import collections
import os
import select
import subprocess
import tempfile
import time

from measure.processes import NotMeasured, Processes

LEAST_MEMORY_KB = 300 * 1024  # with less left the kernel begins to end processes
LOOK_SECONDS = 5
SETTLED_SECONDS = 0.2  # in which next to nothing was done
NEXT_TO_NOTHING_SECONDS = 0.02  # of a processor; the kernel counts hundredths


def available_memory_kb():
    """What programs can still be given."""
    with open("/proc/meminfo", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("MemAvailable:"))


def patience(seconds, pages):
    """How long to wait for so many pages: at least a second for each."""
    return max(seconds, pages)


def wait_end(process, seconds, what):
    """Until a process has ended, noticed at once."""
    handle = os.pidfd_open(process.pid)
    try:
        ended = select.select([handle], [], [], seconds)[0]
    finally:
        os.close(handle)
    if not ended:
        raise NotMeasured(f"{what} does not end")
    if code := process.wait():
        raise NotMeasured(f"{what} ended with code {code}")


class Running:
    """One start of a contestant with a new state folder, for as long as the block lasts. Nothing of it is left."""

    def __init__(self, contestant, display, command_for):
        self._contestant, self._display, self._command_for = contestant, display, command_for

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tessabench-", ignore_cleanup_errors=True)
        self.home = self._folder.name
        self.environment = self._contestant.environment(self._display, self.home)
        self.tree = Processes()
        try:
            command = self._command_for(self.home)
            self.start = time.monotonic()
            self.process = self.run(command)
        except BaseException:
            self._folder.cleanup()
            raise
        self.tree.session = self.process.pid
        return self

    def run(self, command):
        """Starts a process of this run, or says why it cannot."""
        try:
            return subprocess.Popen(command, env=self.environment, cwd=self.home, start_new_session=True,
                                    stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        except OSError as error:
            raise NotMeasured(f"cannot be started: {error.strerror}") from error

    def __exit__(self, *_):
        try:
            self.tree.kill()
            self.process.wait()
        finally:
            self._folder.cleanup()

    def wait_end(self, seconds):
        """Until it has ended by itself."""
        wait_end(self.process, seconds, "it")

    def check_runs(self):
        if self.process.poll() is not None:
            raise NotMeasured(f"ended with code {self.process.returncode}")
        if available_memory_kb() < LEAST_MEMORY_KB:
            raise NotMeasured("the memory of this machine ran short")

    def wait_loaded(self, server, pages, seconds):
        """Until so many pages are loaded."""
        longest, loaded = patience(seconds, pages), 0
        deadline = time.monotonic() + longest
        while (left := deadline - time.monotonic()) > 0:
            loaded = server.done(pages, min(left, LOOK_SECONDS))
            if loaded >= pages:
                return
            try:
                self.check_runs()
            except NotMeasured as problem:
                raise NotMeasured(f"{problem}, {loaded} of {pages} pages loaded") from problem
        raise NotMeasured(f"timed out after {longest:.0f} s, {loaded} of {pages} pages loaded")

    def wait_settled(self, seconds):
        """Seconds from the start until nothing was left to do; nothing when there always is. Pages that have loaded are
        still laid out, which one program does at once and another when all of them have loaded."""
        used, since = self.tree.cpu_seconds(), time.monotonic()
        deadline = since + seconds
        while time.monotonic() < deadline:
            time.sleep(SETTLED_SECONDS / 10)
            now = self.tree.cpu_seconds()
            if now - used > NEXT_TO_NOTHING_SECONDS:
                used, since = now, time.monotonic()
            elif time.monotonic() - since >= SETTLED_SECONDS:
                return since - self.start
        return None

    def find_window(self):
        """Whether its window is on the screen."""
        look = ["xdotool", "search", "--onlyvisible", *self._contestant.window]
        return bool(subprocess.run(look, env=self.environment, capture_output=True, check=False).stdout)

    def wait_window(self, seconds):
        """Seconds from the start until its window is on the screen."""
        while self.process.poll() is None and time.monotonic() - self.start < seconds:
            if self.find_window():
                return time.monotonic() - self.start
        raise NotMeasured("shows no window")


def times(server, start, pages):
    """Seconds from the start of the process to what the server saw."""
    events = [(moment - start, path) for moment, path in server.events()]
    done = {}
    for moment, path in events:
        if path.startswith("/done?"):
            done.setdefault(path, moment)
    result = {"first": events[0][0]} if events else {}
    if (front := f"/done?n={pages}") in done:
        result["front"] = done[front]
    if len(done) == pages:
        result["all"] = max(done.values())
    asked = collections.Counter(path for _, path in events if path.startswith(("/page/", "/animated/")))
    result["again"] = sum(asked.values()) - len(asked)
    return result


def last_change(path, since):
    """Seconds after `since`, a moment of the monotonic clock, at which a file was written last."""
    return os.stat(path).st_mtime - time.time() + time.monotonic() - since
