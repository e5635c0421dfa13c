"""A screen that nobody looks at."""
import os
import select
import shutil
import subprocess

from measure.processes import END_PATIENCE_SECONDS, NotMeasured

TOOLS = ("Xvfb", "openbox", "xdotool")


class Display:
    """A virtual display with a window manager, for as long as the block lasts."""

    def __enter__(self):
        self._started = []
        if missing := [tool for tool in TOOLS if not shutil.which(tool)]:
            raise NotMeasured(f"not installed: {', '.join(missing)}")
        try:
            self.name = ":" + self._start_server()
            self._start(["openbox"], env={**os.environ, "DISPLAY": self.name}, stdout=subprocess.DEVNULL)
        except OSError as error:
            self.__exit__()
            raise NotMeasured(f"the virtual display does not start: {error}") from error
        except NotMeasured:
            self.__exit__()
            raise
        return self

    def _start(self, command, **how):
        self._started.append(subprocess.Popen(command, start_new_session=True, stderr=subprocess.DEVNULL, **how))

    def _start_server(self):
        read, write = os.pipe()
        with open(read, encoding="ascii") as pipe:
            try:
                self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-nolisten", "tcp",
                             "-noreset"], pass_fds=[write])
            finally:
                os.close(write)
            # It writes its number when it is ready. The whole line is read: a pipe closed too early ends it.
            ready = select.select([read], [], [], END_PATIENCE_SECONDS)[0]
            number = pipe.readline().strip() if ready else ""
        if not number:
            raise NotMeasured("the virtual display does not start")
        return number

    def __exit__(self, *_):
        for process in reversed(self._started):
            process.terminate()
            process.wait()
