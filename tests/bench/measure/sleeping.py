"""What tabs need that sleep, and how soon they wake."""
import collections
import statistics
import subprocess
import time

from measure.processes import END_PATIENCE_SECONDS, NotMeasured
from measure.running import Running
from measure.starting import QUIET_SECONDS

SLEEP_PATIENCE_SECONDS = 200
WAKE_UPS = 5


def wait_until_asleep(tree, awake):
    """Waits until the processes of most pages have ended and no more do."""
    deadline = time.monotonic() + SLEEP_PATIENCE_SECONDS
    counts = collections.deque([awake], maxlen=QUIET_SECONDS)
    while time.monotonic() < deadline:
        time.sleep(1)
        counts.append(tree.count())
        if len(counts) == QUIET_SECONDS and len(set(counts)) == 1 and counts[0] * 2 < awake:
            return
    raise NotMeasured(f"{counts[-1]} of {awake} processes are left, the tabs do not sleep")


def seconds_until_done(key, server, running):
    """From the press of a key until a page is loaded by it."""
    server.control("reset")
    start = time.monotonic()
    subprocess.run(["xdotool", "key", key], env=running.environment, check=False)
    if server.done(1, END_PATIENCE_SECONDS) == 0:
        raise NotMeasured(f"no page was loaded by {key}")
    return next(moment - start for moment, path in server.events() if path.startswith("/done?"))


def measure_wake_ups(contestant, result, server, running):
    """How soon a page that slept is there again, and how soon the same page is when it is loaded anew."""
    find = ["xdotool", "search", "--onlyvisible", *contestant.window, "windowactivate", "--sync"]
    subprocess.run(find, env=running.environment, check=False, capture_output=True)
    times_of = {"wake": [], "anew": []}
    for _ in range(WAKE_UPS):
        for name, key in ("wake", "ctrl+shift+Tab"), ("anew", "F5"):
            times_of[name].append(seconds_until_done(key, server, running))
            time.sleep(1)
    result.update({name: statistics.median(taken) for name, taken in times_of.items()})


def measure_sleep(contestant, result, options, server, display):
    """Memory of many tabs awake and asleep, and how soon one wakes."""
    server.control("reset")
    addresses = server.addresses(options.asleep)
    with Running(contestant, display, lambda home: contestant.sleep(addresses, home)) as running:
        running.wait_loaded(server, options.asleep, options.timeout)
        time.sleep(QUIET_SECONDS)
        awake = running.tree.count()
        result["awake"] = running.tree.memory_megabytes()
        wait_until_asleep(running.tree, awake)
        # What was freed is given back a moment later.
        time.sleep(2 * QUIET_SECONDS)
        result["asleep"] = running.tree.memory_megabytes()
        measure_wake_ups(contestant, result, server, running)
