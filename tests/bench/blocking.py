#!/usr/bin/env python3
"""What blocking costs and saves while pages load, with it and without in turns:

- page work: one page that makes and changes thousands of elements, again and again, and asks for nothing that is stopped;
- a hundred pages of which three requests in ten are stopped.

Prints the medians and their ratios, and what else the machine has to do. Run it on a display of its own, best with the
lists that people use:

    tests/e2e/on-display.sh tests/bench/blocking.py build/tessaview [ROUNDS [LIST...]]
"""

import http.server
import os
import statistics
import subprocess
import sys
import tempfile
import threading
import time

PAGES, LOADS, UNITS = 100, 4, 25
STOPPED, FREE = 3, 7
# What is asked for: as large as scripts and pictures are.
PART = b"/* " + b"words " * 5000 + b"*/"
RULE = "/banner/ad-\n"
# Rules of the same kinds as lists have, for when there is none.
MADE_UP = "".join(f"||ads{n}.example^$third-party\n##.ad-{n}\n/adverts/{n}/*\n" for n in range(25000))

# A unit of work is short, so that what else the machine does hits few of them; what watches the page runs at its end.
WORK = """<!doctype html><title>work</title><body><script>
const box = document.createElement('div'), times = [];
document.body.append(box);
function unit() {
  const started = performance.now();
  box.innerHTML = '';
  for (let n = 0; n < 400; ++n) {
    const item = document.createElement('p');
    item.className = 'item c' + (n % 100) + ' row-' + (n % 40);
    item.id = 'i' + n;
    item.textContent = 'Words of item ' + n;
    box.append(item);
    if (n % 50 === 0) item.getBoundingClientRect();
  }
  for (const each of box.children) each.classList.toggle('odd');
  box.getBoundingClientRect();
  setTimeout(() => {
    times.push(performance.now() - started);
    if (times.length < UNITS) return unit();
    const next = Number(new URLSearchParams(location.search).get('n')) + 1;
    fetch('/worked?' + times.join(',')).then(() => { if (next < LOADS) location = '/work?n=' + next; });
  }, 0);
}
unit();
</script>""".replace("LOADS", str(LOADS)).replace("UNITS", str(UNITS))


class Server:
    """The pages, and what they tell: when they have loaded, and how long their work took."""

    def __init__(self):
        self.loaded, self.worked, self.stopped = [], [], 0
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                self.wfile.write(server.answer(self.path))

            def log_message(self, *words):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def answer(self, path):
        body, kind = b"", "text/html"
        if path.startswith("/worked"):
            self.worked.append([float(each) for each in path.partition("?")[2].split(",")])
        elif path.startswith("/work"):
            body = WORK.encode()
        elif path.startswith("/loaded"):
            self.loaded.append(time.monotonic())
        elif path.startswith("/page"):
            body = self.page(path[len("/page"):]).encode()
        else:
            self.stopped += path.startswith("/banner/")
            body, kind = PART, "text/javascript"
        head = f"HTTP/1.1 200 OK\r\nContent-Type: {kind}\r\nContent-Length: {len(body)}\r\nCache-Control: no-store\r\n\r\n"
        return head.encode() + body

    def page(self, number):
        parts = [f"/banner/ad-{number}-{n}.js" for n in range(STOPPED)] + [f"/part-{number}-{n}.js" for n in range(FREE)]
        scripts = "".join(f"<script src='{each}'></script>" for each in parts)
        words = "<p>Some words of the page.</p>" * 40
        return (
            f"<!doctype html><title>{number}</title>{words}{scripts}"
            "<script>addEventListener('load', () => setTimeout(() => fetch('/loaded'), 0))</script>"
        )

    def address(self, path):
        return f"http://127.0.0.1:{self.server.server_port}{path}"


class Home:
    """A state folder with blocking on, or off. Its rules are compiled once."""

    def __init__(self, folder, rules):
        self.folder = folder
        if rules:
            os.makedirs(os.path.join(folder, "blocking"))
            with open(os.path.join(folder, "blocking", "own-rules.txt"), "w", encoding="utf-8") as file:
                file.write(rules)
        with open(os.path.join(folder, "settings.ini"), "w", encoding="utf-8") as settings:
            settings.write(f"[General]\nHistoryNothing=true\nBlockingAsked=true\nBlockingOn={'true' if rules else 'false'}\n")

    def run(self, program, argument, done):
        """Seconds until it is done."""
        environment = {**os.environ, "TESSAVIEW_HOME": self.folder}
        start = time.monotonic()
        process = subprocess.Popen([program, argument], env=environment, stderr=subprocess.DEVNULL)
        try:
            while not done():
                if time.monotonic() - start > 180:
                    raise SystemExit("the pages do not load")
                time.sleep(0.01)
            return time.monotonic() - start
        finally:
            process.terminate()
            process.wait()


def work(program, home, server):
    """Milliseconds that a unit of a page's work takes where little else disturbs it: the first quartile."""
    server.worked.clear()
    home.run(program, server.address("/work?n=0"), lambda: len(server.worked) >= LOADS)
    units = sorted(each for page in server.worked[1:] for each in page)
    return units[len(units) // 4]


def open_all(program, home, server):
    """Seconds from the start until all pages have loaded."""
    group = os.path.join(home.folder, "pages.tvg")
    with open(group, "w", encoding="utf-8") as file:
        file.write("[TessaGroup]\n" + "".join(f"url{n}={server.address(f'/page{n}')}\n" for n in range(PAGES)))
    server.loaded.clear()
    return home.run(program, group, lambda: len(server.loaded) >= PAGES)


def compare(name, unit, rounds, measure, homes):
    times = {on: [] for on in homes}
    for number in range(rounds):
        for on in (True, False) if number % 2 else (False, True):
            times[on].append(measure(homes[on]))
    on, off = (statistics.median(times[each]) for each in (True, False))
    print(f"{name}: blocking on {on:.2f} {unit}, off {off:.2f} {unit}, ratio {on / off:.3f}", flush=True)


def main():
    program = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    rules = "".join(open(each, encoding="utf-8", errors="replace").read() + "\n" for each in sys.argv[3:]) or MADE_UP
    server = Server()
    with tempfile.TemporaryDirectory() as one, tempfile.TemporaryDirectory() as other:
        homes = {True: Home(one, rules + RULE), False: Home(other, "")}
        for on, home in homes.items():
            work(program, home, server)
        before = server.stopped
        open_all(program, homes[True], server)
        if server.stopped != before:
            raise SystemExit(f"{server.stopped - before} requests were made that rules stop")
        load = os.getloadavg()[0]
        compare("page work", "ms", rounds, lambda home: work(program, home, server), homes)
        compare(f"{PAGES} pages", "s", rounds, lambda home: open_all(program, home, server), homes)
        print(f"load of the machine: {load:.1f} before, {os.getloadavg()[0]:.1f} after")


if __name__ == "__main__":
    main()
