#!/usr/bin/env python3
"""What remembering costs: a group of pages with text, with the history and with "Remember nothing", in turns. Prints the
medians and their ratios: of the time and of the processor time until all pages have loaded, which is what somebody waits
for, and of the processor time until they have been read and written down as well, also that of the pages' own processes alone. Processor time is that of the
program with all its processes, and counts on a machine that has other work too. Run it on a display of its own:

    tests/e2e/on-display.sh tests/bench/reading.py build/tessaview [ROUNDS [PAGES]]
"""

import contextlib
import http.server
import os
import random
import statistics
import subprocess
import sys
import tempfile
import threading
import time

WORDS = [f"word{number}" for number in range(3000)]
# Pages are read a second after they have loaded, and written a second later at most.
READ_BY = 4


class Pages:
    """Pages of 1,500 words, each of which tells when it has loaded."""

    def __init__(self):
        self.loaded = []
        pages = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                if self.path.startswith("/done"):
                    pages.loaded.append(time.monotonic())
                    body = b""
                else:
                    body = pages.page(self.path)
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.send_header("Content-Length", str(len(body)))
                self.send_header("Cache-Control", "no-store")
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *words):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def page(self, path):
        chance = random.Random(path)
        blocks = "".join(f"<p>{' '.join(chance.choices(WORDS, k=50))}</p>" for _ in range(30))
        return (
            f"<!doctype html><title>{path}</title>{blocks}<script>addEventListener('load', "
            "() => setTimeout(() => fetch('/done' + Math.random()), 0))</script>"
        ).encode()

    def address(self, number):
        return f"http://127.0.0.1:{self.server.server_port}/page{number}"


def processes_of(process):
    """A process, those that it has started, and they in turn."""
    parents = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        with contextlib.suppress(OSError):  # it has ended
            with open(f"/proc/{name}/stat", encoding="utf-8", errors="replace") as stat:
                parents.setdefault(int(stat.read().rsplit(")", 1)[1].split()[1]), []).append(int(name))
    found = [process]
    for each in found:
        found.extend(parents.get(each, []))
    return found


def used_by(process):
    """Seconds of the processor that a process has used so far, with all its threads."""
    total = 0
    with contextlib.suppress(OSError):  # it has ended
        for thread in os.listdir(f"/proc/{process}/task"):
            with open(f"/proc/{process}/task/{thread}/schedstat", encoding="ascii") as schedule:
                total += int(schedule.read().split()[0])
    return total / 1e9


def shows_pages(process):
    with contextlib.suppress(OSError), open(f"/proc/{process}/cmdline", "rb") as command:
        return b"--type=renderer" in command.read()
    return False


def processor_time(process):
    """Seconds that all its processes have used, and those of them that show pages."""
    times = {each: used_by(each) for each in processes_of(process)}
    return sum(times.values()), sum(time for each, time in times.items() if shows_pages(each))


def run(program, pages, count, remembers):
    """Seconds from the start of the program until so many pages have loaded; its processor time until then, and until
    they have been read; of that the pages' own."""
    with tempfile.TemporaryDirectory() as home:
        if not remembers:
            with open(os.path.join(home, "settings.ini"), "w", encoding="utf-8") as settings:
                settings.write("[General]\nHistoryNothing=true\n")
        group = os.path.join(home, "pages.tvg")
        with open(group, "w", encoding="utf-8") as file:
            file.write("[TessaGroup]\n" + "".join(f"url{n}={pages.address(n)}\n" for n in range(count)))
        pages.loaded.clear()
        environment = {**os.environ, "TESSAVIEW_HOME": home}
        start = time.monotonic()
        process = subprocess.Popen([program, group], env=environment, stderr=subprocess.DEVNULL)
        try:
            while len(pages.loaded) < count:
                if time.monotonic() - start > 120:
                    raise SystemExit(f"only {len(pages.loaded)} pages have loaded")
                time.sleep(0.01)
            loading, _ = processor_time(process.pid)
            time.sleep(READ_BY)
            return max(pages.loaded) - start, loading, *processor_time(process.pid)
        finally:
            process.terminate()
            process.wait()


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
