"""How soon a download is whole, and how soon everything is saved at the end."""
import os
import signal
import statistics
import subprocess
import tempfile
import time

from measure.loading import QUIET_SECONDS, wait_until_loaded
from measure.processes import Processes
from measure.programs import environment, exit_command
from measure.servers import FileServer

EXIT_TARGET = 0.1  # seconds until everything is saved


def measure_download(command_for, options, display):
    """Seconds from the request until the file is whole, and the memory meanwhile."""
    with FileServer(options.download) as server, tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        process = subprocess.Popen(command_for(options, [server.address], home), env=environment(display, home), cwd=home,
                                   start_new_session=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        tree, file = Processes(process.pid), os.path.join(home, "big.bin")
        memory, deadline = [], time.monotonic() + options.timeout
        try:
            # The file has its name once it is whole.
            while not os.path.exists(file):
                if process.poll() is not None or time.monotonic() > deadline:
                    return {}, "the file was not saved"
                if server.asked:
                    memory.append(tree.memory_megabytes())
                time.sleep(0.02)
            saved = os.stat(file).st_mtime - time.time() + time.monotonic() - server.asked
            if os.path.getsize(file) != server.size or not memory:
                return {}, "the file is not whole"
            return {"saved": saved, "peak": max(memory), "grown": max(memory) - memory[0]}, ""
        finally:
            tree.kill()
            process.wait()


def last_written(home, since):
    """Seconds after `since`, a time of day, at which the last file of the state was written."""
    kept = [os.path.join(home, name) for name in ("settings.ini", "user.tb")]
    sessions = os.path.join(home, "sessions")
    kept += [os.path.join(sessions, name) for name in os.listdir(sessions)]
    return max(os.stat(path).st_mtime for path in kept) - since


def measure_exit(options, server, display):
    """Seconds from the wish to end until everything is saved, and until the process is gone."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        process = subprocess.Popen(exit_command(options, server, home), env=environment(display, home), cwd=home,
                                   start_new_session=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            problem = wait_until_loaded(process, server, options.exit, options.timeout)
            if problem:
                return {}, problem
            time.sleep(QUIET_SECONDS)
            asked, start = time.time(), time.monotonic()
            process.send_signal(signal.SIGTERM)
            process.wait(options.timeout)
            ended = time.monotonic() - start
            return {"saved": last_written(home, asked), "ended": ended}, ""
        finally:
            Processes(process.pid).kill()
            process.wait()


def report_exit(options, server, display):
    """Measures saving at the end; gives the verdict and what went wrong."""
    title = f"end with {options.exit} tabs"
    runs, problems = [], []
    for run in range(1, options.runs + 1):
        result, problem = measure_exit(options, server, display)
        shown = "  ".join(f"{key} {value:.3f}" for key, value in result.items())
        print(f"  {title}, run {run}: {shown}  {problem}".rstrip(), flush=True)
        runs += [result] if result else []
        problems += [f"{title}: {problem}"] if problem else []
    saved = statistics.median(run["saved"] for run in runs) if runs else None
    words = "not measured" if saved is None else "met" if saved <= EXIT_TARGET else "MISSED"
    print(f"\n{title}\n  everything saved, s    {'-' if saved is None else f'{saved:10.3f}'}"
          f"                     <= {EXIT_TARGET:.2f}  {words}")
    return [f"  {words}"], problems
