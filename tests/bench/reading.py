#!/usr/bin/env python3
"""What remembering costs: a group of pages with text, with the history and with "Remember nothing", in turns. Prints the
medians and their ratios: of the time and of the processor time until all pages have loaded, which is what somebody waits
for, and of the processor time until they have been read and written down as well, also that of the pages' own processes
alone. Processor time is that of the program with all its processes, and counts on a machine that has other work too. Run
it on a display of its own:

    tests/e2e/on-display.sh tests/bench/reading.py build/tessaview [ROUNDS [PAGES]]
"""

import contextlib
import os
import statistics
import sys
import tempfile
import time

from measure.processes import processes_of, seconds_used
from measure.serving import MadePages, paragraphs, started, wait_for, write_group

# Pages are read a second after they have loaded, and written a second later at most.
READ_BY = 4
PATIENCE = 120


class Pages(MadePages):
    """Pages of 1,500 words, each of which tells when it has loaded."""

    def __init__(self):
        self.loaded = []
        super().__init__()

    def answer(self, path):
        if path.startswith("/done"):
            self.loaded.append(time.monotonic())
            return "text/html", b""
        return "text/html", (
            f"<!doctype html><title>{path}</title>{paragraphs(path, 30)}<script>addEventListener('load', "
            "() => setTimeout(() => fetch('/done' + Math.random()), 0))</script>"
        ).encode()


def shows_pages(process):
    with contextlib.suppress(OSError), open(f"/proc/{process}/cmdline", "rb") as command:
        return b"--type=renderer" in command.read()
    return False


def processor_time(process):
    """Seconds that all its processes have used, and those of them that show pages."""
    times = {each: seconds_used(each) for each in processes_of(process)}
    return sum(times.values()), sum(time for each, time in times.items() if shows_pages(each))


def run(program, pages, count, remembers):
    """Seconds from the start of the program until so many pages have loaded; its processor time until then, and until
    they have been read; of that the pages' own."""
    with tempfile.TemporaryDirectory() as home:
        if not remembers:
            with open(os.path.join(home, "settings.ini"), "w", encoding="utf-8") as settings:
                settings.write("[General]\nHistoryNothing=true\n")
        group = os.path.join(home, "pages.tvg")
        write_group(group, [pages.address(f"/page{number}") for number in range(count)])
        pages.loaded.clear()
        start = time.monotonic()
        with started(program, group, home) as process:
            wait_for(lambda: len(pages.loaded) >= count, PATIENCE, lambda: f"only {len(pages.loaded)} pages have loaded")
            loading, _ = processor_time(process.pid)
            time.sleep(READ_BY)
            return max(pages.loaded) - start, loading, *processor_time(process.pid)


def main():
    program = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 40
    pages = Pages()
    run(program, pages, count, True)
    with_it, without = [], []
    for number in range(rounds):
        for remembers in (True, False) if number % 2 else (False, True):
            (with_it if remembers else without).append(run(program, pages, count, remembers))
    measured = ("loaded", "processor time, loaded", "processor time, read", "of that in the pages")
    for what, on, off in zip(measured, zip(*with_it), zip(*without)):
        ratio = statistics.median(one / other for one, other in zip(on, off))
        middle, other = statistics.median(on), statistics.median(off)
        print(f"{count} pages, {what}: with the history {middle:.2f} s, without {other:.2f} s, ratio {ratio:.3f}")


if __name__ == "__main__":
    main()
