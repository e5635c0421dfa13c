#!/usr/bin/python3
"""A thousand pages at once, from outside: a group of so many addresses is opened in little memory.

    tests/bench/thousand.py --program build/tessaview --server build/tests/bench/bench_server [--pages 1000]
                            [--memory 4096] [--still]

Prints how soon the front page and all pages are loaded, how long a menu takes from the key to the screen while they
load and at rest, whether the kernel has ended a process for want of memory, how soon the window and then the process
are gone when the program is asked to end, whether the pages are kept in their order, and how soon the next start shows
its window and the page in front. A control group limits the memory, of version 1 or 2, whichever can be made; where
none can, that is said and the memory is not limited. --still measures menus only once all are loaded.

The exit code is 0 when all targets are met, 1 when one is missed, 2 when something could not be measured.
"""
import argparse
import os
import select
import signal
import statistics
import subprocess
import sys
import time

from measure.display import Display
from measure.machine import usual_drawing
from measure.processes import NotMeasured, adopt_orphans
from measure.programs import TessaView
from measure.running import Running, times
from measure.servers import PageServer

MENU_SECONDS, EXIT_SECONDS, WINDOW_SECONDS = 0.1, 2, 1
MENU_KEYS, MENU_PATIENCE, BETWEEN_MENUS = "alt+o", 20, 0.3
MENUS_AT_REST, REST_SECONDS = 20, 5
MEGABYTE = 1 << 20


class MemoryLimit:
    """A control group for what a command starts, for as long as the block lasts. `found` says which could be made."""

    # version: the folder, the file that limits, the one that counts what was ended, and the name of the number there
    KINDS = {2: ("/sys/fs/cgroup", "memory.max", "memory.events", "oom_kill"),
             1: ("/sys/fs/cgroup/memory", "memory.limit_in_bytes", "memory.oom_control", "oom_kill")}

    def __init__(self, megabytes):
        self._megabytes, self._path, self.found = megabytes, None, None

    def __enter__(self):
        for version, (folder, limit, _, _) in self.KINDS.items():
            path = os.path.join(folder, f"tessabench-{os.getpid()}")
            if version == 2 and not os.path.exists(os.path.join(folder, "cgroup.controllers")):
                continue
            try:
                os.mkdir(path)
                with open(os.path.join(path, limit), "w", encoding="ascii") as file:
                    file.write(str(self._megabytes * MEGABYTE))
                self.found, self._path = version, path
                break
            except OSError:
                if os.path.isdir(path):
                    os.rmdir(path)
        return self

    def enter(self):
        """Called in the process that is to be limited."""
        if self._path:
            with open(os.path.join(self._path, "cgroup.procs"), "w", encoding="ascii") as file:
                file.write(str(os.getpid()))

    def ended(self):
        """How many processes the kernel has ended; nothing when that is not known."""
        if not self._path:
            return None
        _, _, events, name = self.KINDS[self.found]
        with open(os.path.join(self._path, events), encoding="ascii") as file:
            numbers = dict(line.split()[:2] for line in file)
        return int(numbers[name]) if name in numbers else None

    def __exit__(self, *_):
        deadline = time.monotonic() + 10
        while self._path and os.path.isdir(self._path):
            try:
                os.rmdir(self._path)
            except OSError:
                if time.monotonic() > deadline:
                    return
                time.sleep(0.1)


class LimitedTessaView(TessaView):
    """Whose processes belong to a control group."""

    def __init__(self, path, drawing, limit):
        super().__init__(path, drawing)
        self._limit = limit

    def run_in(self, running_class):
        limit = self._limit

        class Limited(running_class):
            def run(self, command):
                pipe = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
                return subprocess.Popen(command, env=self.environment, cwd=self.home, start_new_session=True,
                                        preexec_fn=limit.enter, **pipe)

        return Limited


class Menus:
    """Opens a menu by its key again and again, and looks when the screen has it."""

    def __init__(self, environment):
        self._environment, self.seconds = environment, []

    def __enter__(self):
        self._watch = subprocess.Popen(["stdbuf", "-oL", "xev", "-root", "-event", "substructure"],
                                       env=self._environment, stdout=subprocess.PIPE, text=True)
        os.set_blocking(self._watch.stdout.fileno(), False)
        return self

    def __exit__(self, *_):
        self._watch.terminate()
        self._watch.wait()

    def _key(self, key):
        subprocess.run(["xdotool", "key", key], env=self._environment, check=False)

    def _wait_for(self, event):
        deadline = time.monotonic() + MENU_PATIENCE
        while (left := deadline - time.monotonic()) > 0:
            if select.select([self._watch.stdout], [], [], left)[0]:
                for line in iter(self._watch.stdout.readline, ""):
                    if line.startswith(event):
                        return
        raise NotMeasured(f"no {event} within {MENU_PATIENCE} s of the key")

    def _drain(self):
        while select.select([self._watch.stdout], [], [], 0)[0] and self._watch.stdout.readline():
            pass

    def open_once(self):
        self._drain()
        start = time.monotonic()
        self._key(MENU_KEYS)
        self._wait_for("MapNotify")
        self.seconds.append(time.monotonic() - start)
        self._key("Escape")
        self._wait_for("UnmapNotify")
        time.sleep(BETWEEN_MENUS)


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--program", required=True)
    parser.add_argument("--server", required=True)
    parser.add_argument("--pages", type=int, default=1000)
    parser.add_argument("--memory", type=int, default=4096, help="megabytes")
    parser.add_argument("--still", action="store_true", help="menus only when all is loaded")
    parser.add_argument("--timeout", type=float, default=600, help="seconds until all pages are loaded")
    return parser.parse_args()


class Report:
    """What was found, and whether it is what is wanted."""

    def __init__(self):
        self.missed = False

    def say(self, what, value, most=None):
        verdict = "" if most is None else f"   <= {most:g} {'met' if value <= most else 'MISSED'}"
        self.missed |= most is not None and value > most
        print(f"{what:44}{value:>10.3f}{verdict}", flush=True)


def loaded(server, pages):
    return server.done(pages, 0)


def open_pages(options, running, server, report):
    """Until all pages are loaded, opening menus meanwhile."""
    running.wait_window(options.timeout)
    with Menus(running.environment) as menus:
        time.sleep(1)  # its bars are there then
        while loaded(server, options.pages) < options.pages:
            running.check_runs()
            if time.monotonic() - running.start > options.timeout:
                raise NotMeasured(f"{loaded(server, options.pages)} of {options.pages} pages loaded")
            if options.still:
                time.sleep(BETWEEN_MENUS)
            else:
                menus.open_once()
        seen = times(server, running.start, options.pages)
        report.say("front page loaded, s", seen["front"])
        report.say("all pages loaded, s", seen["all"])
        say_menus(report, "while pages load", menus)
        menus.seconds.clear()
        time.sleep(REST_SECONDS)
        for _ in range(MENUS_AT_REST):
            menus.open_once()
        say_menus(report, "at rest", menus)
    report.say("memory, MB (PSS)", running.tree.memory_megabytes())


def say_menus(report, when, menus):
    if menus.seconds:
        report.say(f"menu {when}, median of {len(menus.seconds)}, s", statistics.median(menus.seconds), MENU_SECONDS)
        report.say(f"menu {when}, longest, s", max(menus.seconds), MENU_SECONDS)


def end(running, report):
    start = time.monotonic()
    running.process.send_signal(signal.SIGTERM)
    while running.find_window():
        if time.monotonic() - start > MENU_PATIENCE:
            raise NotMeasured("its window stays")
    report.say("window gone, s", time.monotonic() - start, EXIT_SECONDS)
    running.wait_end(60)
    report.say("process ended, s", time.monotonic() - start, EXIT_SECONDS)


def say_kept(running, addresses, report):
    """How many of the pages are kept, one behind the other, for the next start."""
    with open(os.path.join(running.home, "settings.ini"), encoding="utf-8", errors="replace") as file:
        kept = file.read()
    place = count = 0
    for address in addresses:
        found = kept.find(f'"{address}"', place)
        place, count = (found, count + 1) if found >= 0 else (place, count)
    report.say("pages that are not kept in their order", len(addresses) - count, 0)


def start_again(running, report):
    """The next start with the same state."""
    running.start = time.monotonic()
    running.process = running.run([running.program])
    report.say("next start: window shown, s", running.wait_window(60), WINDOW_SECONDS)


def measure(options, display, server, limit, report):
    contestant = LimitedTessaView(os.path.abspath(options.program), usual_drawing(), limit)
    addresses = server.addresses(options.pages)
    command = lambda home: contestant.open(addresses, home, "RememberLastSites=true")  # noqa: E731
    with contestant.run_in(Running)(contestant, display, command) as running:
        running.program = contestant.path
        open_pages(options, running, server, report)
        end(running, report)
        say_kept(running, addresses, report)
        if (ended := limit.ended()) is not None:
            report.say("processes ended by the kernel", ended, 0)
        server.control("reset")
        start_again(running, report)
        running.wait_loaded(server, 1, 60)
        report.say("next start: front page loaded, s", times(server, running.start, options.pages).get("front", 1e9))


def main():
    options, report = arguments(), Report()
    adopt_orphans()
    try:
        with Display() as display, PageServer(os.path.abspath(options.server), options.pages, 20) as server:
            with MemoryLimit(options.memory) as limit:
                print(f"{options.pages} pages, " + (f"{options.memory} MB, control groups of version {limit.found}"
                                                    if limit.found else "memory not limited: no control group can be made"))
                measure(options, display, server, limit, report)
    except NotMeasured as problem:
        print(f"not measured: {problem}")
        return 2
    return 1 if report.missed else 0


if __name__ == "__main__":
    sys.exit(main())
