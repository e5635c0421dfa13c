"""A screen that nobody looks at."""
import os
import select
import subprocess

from measure.processes import END_PATIENCE_SECONDS


class Display:
    """A virtual display with a window manager, for as long as the block lasts."""

    def __enter__(self):
        read, write = os.pipe()
        self._server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-nolisten",
                                         "tcp", "-noreset"], pass_fds=[write], start_new_session=True,
                                        stderr=subprocess.DEVNULL)
        os.close(write)
        # It writes its number when it is ready. The whole line is read: closing the pipe in the middle would end it.
        ready = select.select([read], [], [], END_PATIENCE_SECONDS)[0]
        with open(read, encoding="ascii") as pipe:
            number = pipe.readline().strip() if ready else ""
        if not number:
            self._server.kill()
            raise RuntimeError("the virtual display does not start")
        self.name = ":" + number
        self._manager = subprocess.Popen(["openbox"], env={**os.environ, "DISPLAY": self.name}, start_new_session=True,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for process in self._manager, self._server:
            process.terminate()
            process.wait()
