#!/usr/bin/env python3
"""What pages side by side cost: as many animated pages in panes as in windows of the bare program, each of the same size
and drawn in the same way, in turns. Prints the processor time of both in each round, the pictures that the pages have
drawn, and the ratios of the medians. Run it on a display of its own, from a built folder:

    tests/e2e/on-display.sh tests/bench/panes.py build [ROUNDS [PAGES [SECONDS]]]

A machine that does other things as well lets pages draw fewer pictures: then the time for a picture is what counts.
"""

import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

from measure.processes import Processes, adopt_orphans
from measure.serving import MadePages, usual_environment, write_group

LAYOUTS = {1: "", 2: "h(1 2)", 4: "v(h(1 2) h(3 4))", 6: "v(h(1 2 3) h(4 5 6))"}
PATIENCE_SECONDS = 120
WARM_SECONDS = 4

PAGE = """<!doctype html><title>page</title>
<style>body{margin:0;height:100vh;background:linear-gradient(#fed,#def);overflow:hidden}
div{position:absolute;width:120px;height:80px;background:#36c}</style><div></div>
<script>
let drawn = 0;
const box = document.querySelector('div');
function step(time) {
  ++drawn;
  box.style.transform = `translate(${Math.round(Math.abs(time / 7 % 200 - 100))}px, ${Math.round(time / 20 % 60)}px)`;
  requestAnimationFrame(step);
}
requestAnimationFrame(step);
setInterval(() => fetch('/said', {method: 'POST', body: JSON.stringify(
  {page: location.pathname, drawn, width: innerWidth, height: innerHeight})}), 500);
</script>"""


class Pages(MadePages):
    """Animated pages, each of which says how many pictures it has drawn, and how large it is."""

    def __init__(self):
        self.said = {}
        super().__init__()

    def answer(self, path):
        return "text/html", PAGE.encode()

    def posted(self, path, body):
        said = json.loads(body)
        self.said[said["page"]] = said

    def addresses(self, count):
        return [self.address(f"/{number}") for number in range(count)]

    def drawn(self):
        return sum(said["drawn"] for said in self.said.values())


def run(command, pages, count, seconds, environment):
    """Processor seconds, pictures and the sizes of the pages."""
    pages.said.clear()
    processes = Processes()
    process = subprocess.Popen(
        command, env={**usual_environment(), **environment}, stderr=subprocess.DEVNULL, start_new_session=True
    )
    processes.session = process.pid
    try:
        deadline = time.monotonic() + PATIENCE_SECONDS
        while len(pages.said) < count or min(said["drawn"] for said in pages.said.values()) < 10:
            if time.monotonic() > deadline or process.poll() is not None:
                raise SystemExit(f"of {count} pages only {len(pages.said)} are drawn: {pages.said}")
            time.sleep(0.1)
        time.sleep(WARM_SECONDS)
        drawn = pages.drawn()
        spent = sum(processes.cpu_by_kind(seconds).values())
        return spent, pages.drawn() - drawn, [(said["width"], said["height"]) for said in pages.said.values()]
    finally:
        processes.kill()
        process.wait()


def tessaview(build, pages, count, seconds):
    with tempfile.TemporaryDirectory() as home:
        group = os.path.join(home, "pages.tvg")
        write_group(group, pages.addresses(count), f"panes={LAYOUTS[count] or 'none'}")
        environment = {"TESSAVIEW_HOME": home, "TESSAVIEW_DRAWING": "software"}
        return run([os.path.join(build, "tessaview"), group], pages, count, seconds, environment)


def windows(build, pages, count, seconds, size):
    program = os.path.join(build, "tests", "bench", "bench_reference")
    command = [program, "--windows", f"{size[0]}x{size[1]}", *pages.addresses(count)]
    return run(command, pages, count, seconds, {"QT_QUICK_BACKEND": "software"})


def main():
    build = sys.argv[1]
    rounds, count, seconds = (int(given) for given in (sys.argv[2:] + ["3", "6", "10"][len(sys.argv) - 2 :]))
    adopt_orphans()
    pages = Pages()
    ours, theirs = [], []
    print(f"{count} animated pages, {seconds} s a round, load {os.getloadavg()[0]:.1f} on {os.cpu_count()} cores")
    for number in range(rounds):
        spent, drawn, sizes = tessaview(build, pages, count, seconds)
        ours.append((spent, drawn))
        size = (round(statistics.mean(each[0] for each in sizes)), round(statistics.mean(each[1] for each in sizes)))
        spent, drawn, _ = windows(build, pages, count, seconds, size)
        theirs.append((spent, drawn))
        print(
            f"round {number + 1}: panes {ours[-1][0]:.2f} s, {ours[-1][1]} pictures;"
            f" windows of {size[0]} x {size[1]} {spent:.2f} s, {drawn} pictures; load {os.getloadavg()[0]:.1f}",
            flush=True,
        )
    median = lambda values: statistics.median(values)
    time_ratio = median(each[0] for each in ours) / median(each[0] for each in theirs)
    drawn_ratio = median(each[0] / each[1] for each in ours) / median(each[0] / each[1] for each in theirs)
    print(f"processor time, panes to windows: {time_ratio:.2f}; for each picture: {drawn_ratio:.2f}")


if __name__ == "__main__":
    main()
