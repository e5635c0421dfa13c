"""What tabs need that sleep, and how soon they wake."""
import collections
import statistics
import subprocess
import tempfile
import time

from measure.loading import QUIET_SECONDS, wait_until_loaded
from measure.processes import END_PATIENCE_SECONDS, Processes
from measure.programs import TITLES, environment, sleep_command
from measure.verdicts import report_ratio

ASLEEP_TARGET = 0.25  # of the memory awake
WAKE_TARGET = 1.0  # of the time to load the page anew
SLEEP_PATIENCE_SECONDS = 200
WAKE_UPS = 5


def wait_until_asleep(tree, awake):
    """Waits until the processes of most pages have ended and no more do; whether they have."""
    deadline = time.monotonic() + SLEEP_PATIENCE_SECONDS
    counts = collections.deque([awake], maxlen=QUIET_SECONDS)
    while time.monotonic() < deadline:
        time.sleep(1)
        counts.append(tree.count())
        if len(counts) == QUIET_SECONDS and len(set(counts)) == 1 and counts[0] * 2 < awake:
            return True
    return False


def seconds_until_done(key, server, display, home):
    """From the press of a key until a page is loaded by it; nothing when none is."""
    server.control("reset")
    start = time.monotonic()
    subprocess.run(["xdotool", "key", key], env=environment(display, home), check=True)
    if server.done(1, END_PATIENCE_SECONDS) == 0:
        return None
    return next(moment - start for moment, path in server.events() if path.startswith("/done?"))


def measure_wake_ups(server, display, home):
    """What was measured, and what went wrong in words."""
    find = ["xdotool", "search", "--onlyvisible", "--name", TITLES["TessaView"], "windowactivate", "--sync"]
    subprocess.run(find, env=environment(display, home), check=True, capture_output=True)
    times_of = {"wake": [], "anew": []}
    for _ in range(WAKE_UPS):
        for name, key in ("wake", "ctrl+shift+Tab"), ("anew", "F5"):
            taken = seconds_until_done(key, server, display, home)
            if taken is None:
                return {}, f"no page was loaded by {key}"
            times_of[name].append(taken)
            time.sleep(1)
    return {name: statistics.median(taken) for name, taken in times_of.items()}, ""


def measure_sleep(options, server, display):
    """Memory of many tabs awake and asleep, and how soon one wakes; and what went wrong in words."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = sleep_command(options, [server.address(n) for n in range(1, options.asleep + 1)], home)
        process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        tree = Processes(process.pid)
        try:
            problem = wait_until_loaded(process, server, options.asleep, options.timeout)
            if problem:
                return {}, problem
            time.sleep(QUIET_SECONDS)
            awake = tree.count()
            result = {"awake": tree.memory_megabytes()}
            if not wait_until_asleep(tree, awake):
                return result, f"{tree.count()} of {awake} processes are left, the tabs do not sleep"
            # What was freed is given back a moment later.
            time.sleep(2 * QUIET_SECONDS)
            result["asleep"] = tree.memory_megabytes()
            woken, problem = measure_wake_ups(server, display, home)
            return {**result, **woken}, problem
        finally:
            tree.kill()
            process.wait()


def report_sleep(options, server, display):
    """Measures tabs that sleep; gives the verdicts and what went wrong."""
    title = f"{options.asleep} tabs asleep"
    runs, problems = [], []
    for run in range(1, options.runs + 1):
        result, problem = measure_sleep(options, server, display)
        shown = "  ".join(f"{key} {value:.2f}" for key, value in result.items())
        print(f"  {title}, run {run}: {shown}  {problem}".rstrip(), flush=True)
        runs.append(result)
        problems += [f"{title}: {problem}"] if problem else []
    print(f"\n{title}")
    return [report_ratio("memory asleep, awake, MB (PSS)", runs, "asleep", "awake", ASLEEP_TARGET),
            report_ratio("loaded by waking, anew, s", runs, "wake", "anew", WAKE_TARGET)], problems
