"""How long a program's window takes to answer. A process of its own asks it again and again over the accessibility bus
where it is: that is answered in the thread that takes the keys and draws the window, in its turn."""

import os
import statistics
import subprocess
import sys
import threading

PAUSE = 0.02  # seconds between an answer and the next question
PATIENCE = 60_000  # milliseconds for one answer, which are as good as for ever
LIMIT = 200  # milliseconds, after which a window feels slow


class Asking:
    """Asks the window of a program while the block lasts. Use it in a `with`."""

    def __init__(self, program):
        command = ["/usr/bin/python3", os.path.abspath(__file__), str(program.process.pid)]
        self.milliseconds = []
        self._process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self._process.stdout:
            self.milliseconds.append(float(line))

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self._process.stdin.close()
        self._process.wait()
        self._reader.join()
        self._process.stdout.close()

    def told(self):
        """What was measured, in one line."""
        times = sorted(self.milliseconds)
        slow = len([each for each in times if each > LIMIT])
        return (f"{len(times)} answers, median {statistics.median(times):.1f} ms, worst {times[-1]:.0f} ms, "
                f"{slow} above {LIMIT} ms")


def ask(process):
    """Writes how many milliseconds each answer took until nobody listens any more."""
    import select
    import time

    import desk
    import pyatspi

    pyatspi.setTimeout(PATIENCE, PATIENCE)
    desktop = pyatspi.Registry.getDesktop(0)
    applications = (desktop.getChildAtIndex(index) for index in range(desktop.childCount))
    [application] = [each for each in applications if each is not None and each.get_process_id() == process]
    frames = (application.getChildAtIndex(index) for index in range(application.childCount))
    [window] = [each for each in frames if each is not None and each.name == desk.WINDOW_TITLE]
    place = window.queryComponent()
    while not select.select([sys.stdin], [], [], PAUSE)[0]:
        started = time.monotonic()
        place.getExtents(pyatspi.DESKTOP_COORDS)
        print(f"{(time.monotonic() - started) * 1000:.2f}", flush=True)


if __name__ == "__main__":
    ask(int(sys.argv[1]))
