#!/usr/bin/env python3
"""What blocking costs and saves while pages load, with it and without in turns:

- a page as people read them: text, two thousand elements, links, pictures, ten scripts that work on it;
- the worst that a page can do: one that does nothing but make and change elements, again and again;
- a hundred pages of which three requests in ten are stopped.

The first two ask for nothing that is stopped. Their figure is the processor's time of all renderers for one load, which
what else the machine does hardly changes; for the hundred pages it is the time until all have loaded, and the
processor's time of all processes. Prints medians, the ratio of the medians, and the median of the ratios of each turn.
Run it on a display of its own, best with the lists that people use:

    tests/e2e/on-display.sh tests/bench/blocking.py build/tessaview [ROUNDS [LIST...]]
"""

import os
import statistics
import sys
import tempfile
import time

from measure.processes import processes_of, seconds_used
from measure.serving import MadePages, started, wait_for, write_group

PAGES, LOADS, UNITS = 100, 6, 25
SCRIPTS, PICTURES, STORIES = 10, 20, 40
STOPPED, FREE = 3, 7
# What is asked for: as large as scripts and pictures are.
PART = b"/* " + b"words " * 5000 + b"*/"
RULE = "/banner/ad-\n"
# Of one point.
PICTURE = bytes.fromhex("47494638396101000100800000 00ff00 000000 2c00000000010001000002024401003b".replace(" ", ""))
# Rules of the same kinds as lists have, for when there is none.
MADE_UP = "".join(f"||ads{n}.example^$third-party\n##.ad-{n}\n/adverts/{n}/*\n" for n in range(25000))

# Goes on to the next load of the same page when this one is done; its work runs before, and what watches the page, too.
NEXT = """
function done() {
  const next = Number(new URLSearchParams(location.search).get('n')) + 1;
  fetch('/done?' + performance.now()).then(() => { if (next < LOADS) location = location.pathname + '?n=' + next; });
}
""".replace("LOADS", str(LOADS))

WORK = """<!doctype html><title>work</title><body><script>NEXT
const box = document.createElement('div');
let units = 0;
document.body.append(box);
function unit() {
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
  setTimeout(++units < UNITS ? unit : done, 0);
}
unit();
</script>""".replace("NEXT", NEXT).replace("UNITS", str(UNITS))

# What the scripts of a page do: they read data, sort and join it, make parts of the page, look where these are.
SCRIPT = """(() => {
  const data = Array.from({ length: 2500 }, (_, n) => ({ id: n, name: 'Entry ' + (n * 7919 % 2500), tags: ['a' + n % 9, 'b' + n % 5] }));
  const byTag = new Map();
  for (const each of JSON.parse(JSON.stringify(data)))
    for (const tag of each.tags) byTag.set(tag, (byTag.get(tag) || []).concat(each.name.replace(/[aeiou]/g, '').toLowerCase()).slice(-50));
  data.sort((one, other) => one.name.localeCompare(other.name));
  const box = document.createElement('aside');
  box.className = 'side side-NUMBER';
  for (const each of data.slice(0, 15)) {
    const row = document.createElement('div');
    row.className = 'row r' + each.id % 7;
    row.innerHTML = '<span class="name">' + each.name + '</span><span class="tag">' + byTag.get(each.tags[0]).length + '</span>';
    row.addEventListener('click', () => row.classList.toggle('open'));
    box.append(row);
  }
  document.body.append(box);
  for (const each of document.querySelectorAll('.story'))
    if (each.getBoundingClientRect().top < 600) each.classList.add('near-NUMBER');
})();
"""
NAMES = "garden river light morning water paper road window winter letter bread music evening story glass harbour".split()


def words(count, start):
    return " ".join(NAMES[(start * 7 + n * 5) % len(NAMES)] for n in range(count))


def story(n):
    links = " ".join(
        f'<a class="link l{i}" href="https://www.site{(n * 7 + i) % 40}.example/{NAMES[i]}/{n}-{i}">{words(2, n + i)}</a>' for i in range(6)
    )
    texts = "".join(
        f'<p class="text t{i}">{words(40, n + i)} <em>{words(2, i)}</em> <span class="note n{i}">{words(3, n)}</span> {words(30, i)}</p>'
        for i in range(4)
    )
    entries = "".join(f'<li class="entry e{i % 3}"><span class="key">{i}</span> <b>{words(2, n * i)}</b></li>' for i in range(6))
    picture = f'<img class="picture" src="/picture-{n}.gif" width="40" height="30">' if n < PICTURES else ""
    return (
        f'<article id="story-{n}" class="story card card-{n}"><header class="head part-{n % 30}"><h3 class="title">{words(6, n)}</h3>'
        f'<div class="meta"><span class="by">{words(2, n)}</span><time>12:{n:02d}</time></div></header>'
        f'<div class="body">{picture}{texts}<ul class="list list-{n}">{entries}</ul></div><footer class="links">{links}</footer></article>'
    )


def reading():
    style = "".join(f".part-{n % 30} > span:hover, .card-{n} h3, .list-{n} li:first-child {{ margin: {n % 7}px }}\n" for n in range(300))
    scripts = "".join(f'<script src="/script-{n}.js"></script>' for n in range(SCRIPTS))
    return (
        f"<!doctype html><title>reading</title><style>{style}</style><body><main>{''.join(story(n) for n in range(STORIES))}</main>"
        f"{scripts}<script>{NEXT}addEventListener('load', () => requestAnimationFrame(() => requestAnimationFrame(() => "
        "setTimeout(done, 100))))</script>"
    )


def processor_time(processes):
    """Milliseconds of the processor that these have had."""
    return sum(map(seconds_used, processes)) * 1000


class Server(MadePages):
    """The pages, and what they tell: when they have loaded, and how long their work took."""

    def __init__(self):
        self.loaded, self.worked, self.stopped = [], [], 0
        self.program = None
        self.reading = reading()
        super().__init__(protocol="HTTP/1.1")

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
            body, kind = PICTURE, "image/gif"
        elif path.startswith("/loaded"):
            self.loaded.append(time.monotonic())
        elif path.startswith("/page"):
            body = self.page(path[len("/page"):]).encode()
        else:
            self.stopped += path.startswith("/banner/")
            body, kind = PART, "text/javascript"
        return kind, body

    def page(self, number):
        parts = [f"/banner/ad-{number}-{n}.js" for n in range(STOPPED)] + [f"/part-{number}-{n}.js" for n in range(FREE)]
        scripts = "".join(f"<script src='{each}'></script>" for each in parts)
        words = "<p>Some words of the page.</p>" * 40
        return (
            f"<!doctype html><title>{number}</title>{words}{scripts}"
            "<script>addEventListener('load', () => setTimeout(() => fetch('/loaded'), 0))</script>"
        )


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

    def run(self, program, argument, server, done):
        """Seconds until it is done, and the seconds of the processor of all processes."""
        start = time.monotonic()
        with started(program, argument, self.folder) as process:
            server.program = process.pid
            wait_for(done, 180, lambda: "the pages do not load")
            return time.monotonic() - start, processor_time(processes_of(process.pid)) / 1000


def load(path):
    """Milliseconds of the renderers' processor time that a load of the page takes. The first one starts the renderer."""

    def measure(program, home, server):
        server.worked.clear()
        home.run(program, server.address(path + "?n=0"), server, lambda: len(server.worked) >= LOADS)
        times = [later - earlier for earlier, later in zip(server.worked, server.worked[1:])]
        return (statistics.median(times),)

    return measure


def open_all(program, home, server):
    """Seconds from the start until all pages have loaded, and those of the processor."""
    group = os.path.join(home.folder, "pages.tvg")
    write_group(group, [server.address(f"/page{n}") for n in range(PAGES)])
    server.loaded.clear()
    return home.run(program, group, server, lambda: len(server.loaded) >= PAGES)


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
        for on, home in homes.items():
            load("/work")(program, home, server)
        before = server.stopped
        open_all(program, homes[True], server)
        if server.stopped != before:
            raise SystemExit(f"{server.stopped - before} requests were made that rules stop")
        busy = os.getloadavg()[0]
        for name, path in (("a page that is read", "/reading"), ("nothing but elements", "/work")):
            compare(name, ("ms of renderers",), rounds, lambda home, path=path: load(path)(program, home, server), homes)
        units = ("s until all have loaded", "s of the processor")
        compare(f"{PAGES} pages", units, rounds, lambda home: open_all(program, home, server), homes)
        print(f"load of the machine: {busy:.1f} before, {os.getloadavg()[0]:.1f} after")


if __name__ == "__main__":
    main()
