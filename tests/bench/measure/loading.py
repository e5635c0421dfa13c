"""How soon a start shows its window and its pages, and what it needs."""
import collections
import os
import subprocess
import tempfile
import time

from measure.processes import Processes
from measure.programs import TITLES, environment

QUIET_SECONDS = 3
IDLE_SECONDS = 5


def wait_until_loaded(process, server, pages, seconds):
    """What went wrong, in words; nothing when all is well."""
    deadline = time.monotonic() + seconds
    while (left := deadline - time.monotonic()) > 0:
        loaded = server.done(pages, min(left, 5))
        if loaded >= pages:
            return ""
        if process.poll() is not None:
            return f"ended with code {process.returncode}, {loaded} of {pages} pages loaded"
    return f"timed out after {seconds} s, {loaded} of {pages} pages loaded"


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
    twice = collections.Counter(path for _, path in events if path.startswith("/page/"))
    result["again"] = sum(twice.values()) - len(twice)
    return result


def measure_window(name, command_for, options, server, display):
    """Seconds from the start to the main window on the screen."""
    server.control("reset")
    look = ["xdotool", "search", "--onlyvisible", "--name", TITLES[name]]
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = command_for(options, [server.address(1)], home)
        start = time.monotonic()
        process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            while process.poll() is None and time.monotonic() - start < options.timeout:
                if subprocess.run(look, env=environment(display, home), capture_output=True, check=False).stdout:
                    return {"window": time.monotonic() - start}, ""
            return {}, "shows no window"
        finally:
            Processes(process.pid).kill()
            process.wait()


def measure(command_for, options, pages, server, display, quiet=QUIET_SECONDS, idle=IDLE_SECONDS):
    """One run: what was measured, and what went wrong in words."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = command_for(options, [server.address(n) for n in range(1, pages + 1)], home)
        with open(os.path.join(home, "output"), "wb") as output:
            start = time.monotonic()
            process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        tree = Processes(process.pid)
        try:
            problem = wait_until_loaded(process, server, pages, options.timeout)
            result = times(server, start, pages)
            if not problem:
                time.sleep(quiet)
                result["memory"] = tree.memory_megabytes()
                before = tree.cpu_seconds()
                time.sleep(idle)
                result["idle"] = tree.cpu_seconds() - before
        finally:
            tree.kill()
            process.wait()
    return result, problem
