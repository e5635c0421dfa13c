"""What a run starts, seen through the kernel."""
import contextlib
import ctypes
import os
import re
import signal
import time

END_PATIENCE_SECONDS = 10
# Fields of /proc/PID/stat behind the name of the program.
STATE, PARENT, SESSION, USER_TICKS, SYSTEM_TICKS = 0, 1, 3, 11, 12
PR_SET_CHILD_SUBREAPER = 36


class NotMeasured(Exception):
    """Why something could not be measured, in words."""


def adopt_orphans():
    """Has the kernel give us what a program leaves behind, so that it is found and ended."""
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def kind_of(command_line):
    """What a process is for, by its words: "own", "renderers" or "others"."""
    # A process that another one prepared has written its words anew, with spaces between them.
    words = command_line.replace("\0", " ").split()
    if any(word in ("-contentproc", "--contentproc") for word in words):  # Firefox: its kind is the last word
        return "renderers" if words[-1] == "tab" else "others"
    types = re.findall(r"(?<=--type=)[a-z-]+", " ".join(words))
    if not types:
        return "own"
    # The renderers of Qt WebEngine keep the words of the zygote that they come from. That one has nothing to do.
    return "renderers" if types[0] in ("renderer", "zygote") else "others"


def _stats():
    """Of each process its number and the fields of its state."""
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/stat", encoding="latin-1") as file:
                yield int(name), file.read().rpartition(")")[2].split()
        except OSError:
            continue  # it has ended


def processes_of(process):
    """A process, those that it has started, and they in turn."""
    children = {}
    for pid, fields in _stats():
        children.setdefault(int(fields[PARENT]), []).append(pid)
    found = [process]
    for each in found:
        found.extend(children.get(each, []))
    return found


def seconds_used(process):
    """Seconds of the processor that a process has used so far, with all its threads; finer than its ticks."""
    total = 0
    with contextlib.suppress(OSError):  # it has ended
        for thread in os.listdir(f"/proc/{process}/task"):
            with open(f"/proc/{process}/task/{thread}/schedstat", encoding="ascii") as schedule:
                total += int(schedule.read().split()[0])
    return total / 1e9


class Processes:
    """All processes of one run: its session, what comes from that, and what was left behind for us to adopt. Made
    before the program is started, whose process is the session's first."""

    def __init__(self):
        self.session = 0
        self._others = {pid for pid, fields in _stats() if int(fields[PARENT]) == os.getpid()}

    def _is_first(self, pid, fields):
        adopted = int(fields[PARENT]) == os.getpid() and pid not in self._others
        return int(fields[SESSION]) == self.session or adopted

    def _members(self, dead=False):
        known = dict(_stats())
        found = {pid for pid, fields in known.items() if self._is_first(pid, fields)}
        while more := {pid for pid, fields in known.items() if int(fields[PARENT]) in found} - found:
            found |= more
        return {pid: known[pid] for pid in found if (known[pid][STATE] == "Z") == dead}

    def cpu_of_each(self):
        """User and system seconds of each of them so far, by its number."""
        ticks = os.sysconf("SC_CLK_TCK")
        return {pid: (int(fields[USER_TICKS]) + int(fields[SYSTEM_TICKS])) / ticks
                for pid, fields in self._members().items()}

    def cpu_seconds(self):
        """User and system seconds of all of them so far."""
        return sum(self.cpu_of_each().values())

    def cpu_by_kind(self, seconds):
        """User and system seconds of each kind of process during so many seconds from now."""
        before = self.cpu_of_each()
        time.sleep(seconds)
        result = {"own": 0.0, "renderers": 0.0, "others": 0.0}
        for pid, spent in self.cpu_of_each().items():
            try:
                with open(f"/proc/{pid}/cmdline", encoding="utf-8", errors="replace") as file:
                    result[kind_of(file.read())] += spent - before.get(pid, 0)
            except OSError:
                continue
        return result

    def count(self):
        return len(self._members())

    def memory_megabytes(self):
        """Proportional set size of all of them: shared pages are counted once."""
        total = 0
        for pid in self._members():
            try:
                with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
                    total += sum(int(line.split()[1]) for line in file if line.startswith("Pss:"))
            except PermissionError as error:
                raise NotMeasured("the memory of a process inside its sandbox is for root alone to see") from error
            except OSError:
                continue  # it has ended
        return total / 1024

    def kill(self):
        """Ends all of them, whatever they do."""
        deadline = time.monotonic() + END_PATIENCE_SECONDS
        while pids := list(self._members()):
            if time.monotonic() > deadline:
                raise NotMeasured(f"processes {pids} do not end")
            for pid in pids:
                try:
                    os.kill(pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            time.sleep(0.05)
        for pid in self._members(dead=True):
            if pid != self.session:
                try:
                    os.waitpid(pid, os.WNOHANG)
                except ChildProcessError:
                    pass
