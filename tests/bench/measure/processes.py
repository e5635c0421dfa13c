"""What a run starts, seen through the kernel."""
import os
import signal
import time

END_PATIENCE_SECONDS = 10


class Processes:
    """All processes of one session, which is how a run keeps together whatever it starts."""

    def __init__(self, session):
        self.session = session

    def _stats(self):
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{name}/stat", encoding="latin-1") as file:
                    fields = file.read().rpartition(")")[2].split()
            except OSError:
                continue
            if int(fields[3]) == self.session and fields[0] != "Z":
                yield int(name), fields

    def cpu_seconds(self):
        """User and system time of all of them so far."""
        ticks = sum(int(fields[11]) + int(fields[12]) for _, fields in self._stats())
        return ticks / os.sysconf("SC_CLK_TCK")

    def count(self):
        return sum(1 for _ in self._stats())

    def memory_megabytes(self):
        """Proportional set size of all of them: shared pages are counted once."""
        total = 0
        for pid, _ in self._stats():
            try:
                with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
                    total += sum(int(line.split()[1]) for line in file if line.startswith("Pss:"))
            except OSError:
                continue
        return total / 1024

    def kill(self):
        deadline = time.monotonic() + END_PATIENCE_SECONDS
        while pids := [pid for pid, _ in self._stats()]:
            if time.monotonic() > deadline:
                raise RuntimeError(f"processes {pids} do not end")
            for pid in pids:
                try:
                    os.kill(pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            time.sleep(0.05)
