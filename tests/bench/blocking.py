#!/usr/bin/env python3
"""What blocking costs and saves while pages load, with it and without in turns:

- a page as people read them: text, two thousand elements, links, pictures, ten scripts that work on it;
- the worst that a page can do: one that does nothing but make and change elements, again and again;
- a hundred pages of which three requests in ten are stopped, with what web_pages.py says of kinds, sizes and delays.

The first two ask for nothing that is stopped. Their figure is the processor's time of all renderers for one load, which
what else the machine does hardly changes; for the hundred pages it is the time until all have loaded, and the
processor's time of all processes. Prints medians, the ratio of the medians, and the median of the ratios of each turn.
Run it on a display of its own, best with the lists that people use:

    tests/e2e/on-display.sh tests/bench/blocking.py build/tessaview [ROUNDS [LIST...]]
"""

import collections
import contextlib
import os
import shutil
import statistics
import sys
import tempfile
import time

from measure.processes import processes_of, seconds_used
from measure.serving import MadePages, started, wait_for, write_group
from web_pages import ANSWER_AFTER, FREE, LOADS, PAGES, POINT, RULE, SCRIPT, STOPPED, WORK, HundredPages, reading

PATIENCE = 180
# Rules of the same kinds as lists have, for when there is none.
MADE_UP = "".join(f"||ads{n}.example^$third-party\n##.ad-{n}\n/adverts/{n}/*\n" for n in range(25000))


def processor_time(processes):
    """Milliseconds of the processor that these have had."""
    return sum(map(seconds_used, processes)) * 1000


class Server(MadePages):
    """The pages, and what they tell: when they have loaded, and how long their work took."""

    def __init__(self):
        self.loaded, self.worked = [], []
        self.program, self.asked = None, collections.Counter()
        self.reading = reading()
        super().__init__("HTTP/1.1")
        # The hundred pages, and what is stopped on them, have hosts of their own: other addresses of this machine.
        self.hundred = HundredPages(self.port)

    def answer(self, path):
        body, kind = b"", "text/html"
        if path.startswith("/done"):
            # Without the program itself, which comes first.
            self.worked.append(processor_time(processes_of(self.program)[1:]))
        elif path.startswith("/work"):
            body = WORK.encode()
        elif path.startswith("/reading"):
            body = self.reading.encode()
        elif path.startswith("/script-"):
            body, kind = SCRIPT.replace("NUMBER", path[len("/script-") :]).replace(".js", "").encode(), "text/javascript"
        elif path.startswith("/picture-"):
            body, kind = POINT, "image/gif"
        elif path.startswith("/loaded"):
            self.loaded.append(time.monotonic())
        elif path == "/favicon.ico":
            pass
        else:
            self.asked[path] += 1
            time.sleep(ANSWER_AFTER)
            kind, body = ("text/html", self.hundred.text(int(path[5:])).encode()) if path.startswith("/page") else self.hundred.part(path)
        return kind, body

    def forget_requests(self):
        self.loaded.clear()
        self.asked.clear()

    def check_requests(self, on):
        """Each page and each thing on it was asked for once, and what rules stop only where it should be."""
        free = PAGES * (1 + FREE)

        def counts():
            asked = dict(self.asked)
            stopped = sum(path.startswith("/banner/") for path in asked)
            return len(asked) - stopped, stopped, sum(times > 1 for times in asked.values())

        # A page may have loaded while what its scripts ask for is on the way.
        wait_for(lambda: counts()[0] >= free, PATIENCE, lambda: f"only {counts()[0]} requests of {free}")
        made, stopped, again = counts()
        # On a busy machine the first requests do not wait until the rules are there.
        right = stopped * 20 <= PAGES * STOPPED if on else stopped == PAGES * STOPPED
        if not right or again or made > free:
            raise SystemExit(f"{made} requests of {free}, {stopped} of those that rules stop, {again} made again")


class Home:
    """The state folder that programs start with, with blocking on, or off. Each start has a copy of its own, for a
    program that was told to end brings its pages back the next time. Rules are compiled once."""

    def __init__(self, folder, rules):
        self.folder, self.on = folder, bool(rules)
        if rules:
            os.makedirs(os.path.join(folder, "blocking"))
            with open(os.path.join(folder, "blocking", "own-rules.txt"), "w", encoding="utf-8") as file:
                file.write(rules)
        with open(os.path.join(folder, "settings.ini"), "w", encoding="utf-8") as settings:
            # No list is fetched meanwhile.
            settings.write("[General]\nHistoryNothing=true\nBlockingAsked=true\nBlockingLists=\n"
                           f"BlockingOn={'true' if rules else 'false'}\n")

    def compile(self, program, server):
        """Has the program read the rules, and keeps what it has made of them."""
        cache = os.path.join("blocking", "rules.cache")
        with self.copy() as home:
            with started(program, server.address("/picture-0.gif"), home):
                made = os.path.join(home, cache)
                wait_for(lambda: os.path.exists(made), PATIENCE, lambda: "the rules are not compiled")
            shutil.copy2(made, os.path.join(self.folder, cache))

    @contextlib.contextmanager
    def copy(self):
        with tempfile.TemporaryDirectory() as folder:
            home = os.path.join(folder, "home")
            shutil.copytree(self.folder, home)
            yield home

    def run(self, program, argument, server, done, check=lambda: None):
        """Seconds until it is done, and the seconds of the processor of all processes. What is checked then no longer
        counts."""
        with self.copy() as home:
            start = time.monotonic()
            with started(program, argument, home) as process:
                server.program = process.pid
                wait_for(done, PATIENCE, lambda: "the pages do not load")
                times = time.monotonic() - start, processor_time(processes_of(process.pid)) / 1000
                check()
                return times


def load(path):
    """Milliseconds of the renderers' processor time that a load of the page takes. The first one starts the renderer."""

    def measure(program, home, server):
        server.worked.clear()
        home.run(program, server.address(path + "?n=0"), server, lambda: len(server.worked) >= LOADS)
        times = [later - earlier for earlier, later in zip(server.worked, server.worked[1:])]
        return (statistics.median(times),)

    return measure


def open_all(program, home, server):
    """Seconds from the start until all pages have loaded, and those of the processor. Ends the benchmark when other
    requests were made than there should be."""
    group = os.path.join(home.folder, "pages.tvg")
    write_group(group, [server.hundred.address(n) for n in range(PAGES)])
    server.forget_requests()
    return home.run(
        program, group, server, lambda: len(server.loaded) >= PAGES, lambda: server.check_requests(home.on))


def compare(name, units, rounds, measure, homes):
    times = {on: [] for on in homes}
    for number in range(rounds):
        for on in (True, False) if number % 2 else (False, True):
            times[on].append(measure(homes[on]))
    for index, unit in enumerate(units):
        on, off = ([each[index] for each in times[which]] for which in (True, False))
        turns = statistics.median(one / other for one, other in zip(on, off))
        on, off = statistics.median(on), statistics.median(off)
        print(f"{name}: on {on:.2f}, off {off:.2f} {unit}, ratio {on / off:.3f}, of turns {turns:.3f}", flush=True)


def main():
    program = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    rules = "".join(open(each, encoding="utf-8", errors="replace").read() + "\n" for each in sys.argv[3:]) or MADE_UP
    server = Server()
    with tempfile.TemporaryDirectory() as one, tempfile.TemporaryDirectory() as other:
        homes = {True: Home(one, rules + RULE), False: Home(other, "")}
        homes[True].compile(program, server)
        busy = os.getloadavg()[0]
        for name, path in (("a page that is read", "/reading"), ("nothing but elements", "/work")):
            compare(name, ("ms of renderers",), rounds, lambda home, path=path: load(path)(program, home, server), homes)
        units = ("s until all have loaded", "s of the processor")
        compare(f"{PAGES} pages", units, rounds, lambda home: open_all(program, home, server), homes)
        print(f"load of the machine: {busy:.1f} before, {os.getloadavg()[0]:.1f} after")


if __name__ == "__main__":
    main()
