"""How soon a download is whole, and how soon everything is saved at the end."""
import os
import signal
import time

from measure.processes import NotMeasured
from measure.running import Running, last_change
from measure.servers import FileServer
from measure.starting import QUIET_SECONDS


def measure_download(contestant, result, options, display):
    """Seconds from the request until the file is whole, and the memory meanwhile."""
    with (
        FileServer(options.download) as server,
        Running(contestant, display, lambda home: contestant.download([server.address], home)) as running,
    ):
        file, memory = os.path.join(running.home, "big.bin"), []
        # The file has its name once it is whole.
        while not os.path.exists(file):
            running.check_runs()
            if time.monotonic() - running.start > options.timeout:
                raise NotMeasured("the file was not saved")
            if server.asked:
                memory.append(running.tree.memory_megabytes())
            time.sleep(0.02)
        if os.path.getsize(file) != server.size or not memory:
            raise NotMeasured("the file is not whole")
        result.update(file=last_change(file, server.asked), peak=max(memory), grown=max(memory) - memory[0])


def state_files(home):
    """What the program keeps of a session."""
    kept = [os.path.join(home, name) for name in ("settings.ini", "user.tb")]
    sessions = os.path.join(home, "sessions")
    return kept + [os.path.join(sessions, name) for name in os.listdir(sessions)]


def measure_exit(contestant, result, options, server, display):
    """Seconds from the wish to end, with many small pages open, until everything is saved and until it is gone."""
    server.control("reset")
    addresses = [server.small_address(n) for n in range(1, options.exit + 1)]
    with Running(contestant, display, lambda home: contestant.open(addresses, home)) as running:
        running.wait_loaded(server, options.exit, options.timeout)
        time.sleep(QUIET_SECONDS)
        running.check_runs()
        start = time.monotonic()
        running.process.send_signal(signal.SIGTERM)
        running.wait_end(options.timeout)
        result["gone"] = time.monotonic() - start
        try:
            result["saved"] = max(last_change(path, start) for path in state_files(running.home))
        except OSError as error:
            raise NotMeasured(f"nothing was saved: {error}") from error
