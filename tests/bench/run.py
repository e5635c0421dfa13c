#!/usr/bin/python3
"""Holds TessaView against the bare program and a stand-alone browser: opens the same pages with each in turn and prints
one table of what each needed.

    run.py --program build/tessaview --reference build/tests/bench/bench_reference \\
           --server build/tests/bench/bench_server [--pages 1,20,100] [--animated [only]] [--delays 20]
           [--drawing software,hardware] [--keeps] [--seconds 2] [--browser PATH|none] [--hand-over 1]
           [--restart 100] [--exit 500] [--asleep 100] [--download 1000] [--runs 3] [--timeout 120] [--markdown FILE]

Of pages, any number of them up to a thousand and more, it is measured how soon the one in front and all are loaded, and
what memory they need; of animated ones also the processor time of each kind of process while they are watched for so
many seconds. Both are done for each delay of the answers and for each way of drawing: TessaView and the bare program
are told it, a browser draws in its own way. From 500 pages on mind that the others keep all of them awake.

Also measured: how soon a start shows its window, how soon a second start with an address is gone and its page asked
for, a restart with so many remembered sites, how soon everything is saved when the program is asked to end with so many
tabs open, a download of so many MB (how long it takes and how much memory meanwhile), and of so many tabs the memory
asleep and awake, and how soon one wakes, held against loading its page anew. These have the first delay, and from the
restart on the first way of drawing.

The bare program keeps nothing. With --keeps its profile lies on the disk, as those of TessaView and of browsers do: what
that costs is then no part of the difference.

The browser is the first of the Chromium family or Firefox that is on PATH, or the one that is named;
measure/browsers.py says which and how they are started. Without one its column says "-", and its targets are not
measured.

Everything runs on a virtual display of its own, with a fresh profile each time, and is measured from outside: what the
page server was asked for when, and what the kernel says of all processes of the run. The exit code is 0 when all
targets are met, 1 when one is missed, 2 when something went wrong, which is said in words.
"""
import argparse
import os
import shlex
import signal
import sys

from measure import browsers
from measure.comparing import Bench, check_contestants
from measure.display import Display
from measure.machine import described, usual_drawing
from measure.processes import NotMeasured, adopt_orphans
from measure.programs import DRAWINGS, Bare, TessaView
from measure.servers import PageServer
from measure.table import as_markdown, as_text

PATHS = {"program": "build/tessaview", "reference": "build/tests/bench/bench_reference",
         "server": "build/tests/bench/bench_server"}


def numbers(least):
    """What reads a list of numbers."""
    def read(text):
        found = [int(number) for number in text.split(",") if number]
        if any(number < least for number in found):
            raise ValueError
        return found
    read.__name__ = f"list of numbers from {least}"
    return read


def drawings(text):
    found = text.split(",")
    if not set(found) <= set(DRAWINGS):
        raise ValueError
    return list(dict.fromkeys(found))


def arguments(words=None):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name, path in PATHS.items():
        parser.add_argument(f"--{name}", required=True, help=path)
    parser.add_argument("--pages", type=numbers(1), default="1,20,100", help="numbers of pages")
    parser.add_argument("--animated", nargs="?", const="too", choices=("too", "only"),
                        help="pages that move, besides still ones or instead of them")
    parser.add_argument("--delays", "--delay", type=numbers(0), default="20", help="of each answer, milliseconds")
    parser.add_argument("--drawing", type=drawings, help="software, hardware or both; else as usual here")
    parser.add_argument("--keeps", action="store_true", help="the bare program keeps its profile on the disk")
    parser.add_argument("--seconds", type=float, default=2, help="that animated pages are watched")
    parser.add_argument("--browser", help="a stand-alone browser; none for none")
    parser.add_argument("--hand-over", type=int, default=1, help="0 for no second start")
    parser.add_argument("--restart", type=int, default=100, help="remembered sites of a restart; 0 for none")
    parser.add_argument("--exit", type=int, default=500, help="tabs that are open at the end; 0 for none")
    parser.add_argument("--asleep", type=int, default=100, help="tabs that sleep; 0 for none")
    parser.add_argument("--download", type=int, default=1000, help="MB of a file that is saved; 0 for none")
    parser.add_argument("--runs", type=int, default=3, help="repetitions of each; the median counts")
    parser.add_argument("--timeout", type=float, default=120, help="of each run, seconds; at least one a page")
    parser.add_argument("--markdown", help="a file that the table is also written to, in Markdown")
    options = parser.parse_args(words)
    for name in PATHS:
        setattr(options, name, os.path.abspath(getattr(options, name)))
    options.usual_drawing = usual_drawing()
    options.drawing = options.drawing or [options.usual_drawing]
    options.animated = {None: [False], "too": [False, True], "only": [True]}[options.animated]
    if not options.delays:
        parser.error("--delays: there is none")
    return options


def find_browser(options):
    return None if options.browser == "none" else browsers.find(options.browser)


def measure(options, browser, sections, problems):
    """Adds the sections of the table one after the other, and what went wrong."""
    contestants = [each for drawing in options.drawing
                   for each in (TessaView(options.program, drawing), Bare(options.reference, drawing, options.keeps))]
    contestants += [browser] if browser else []
    most = max([2, options.restart, options.asleep, *options.pages])
    with Display() as display:
        for place, delay in enumerate(options.delays):
            with PageServer(options.server, most, delay) as server:
                if place == 0:
                    contestants = check_contestants(contestants, options, server, display, problems)
                bench = Bench(options, contestants, display, problems)
                if place == 0:
                    sections.extend(bench.with_everything_else(server, delay))
                sections.extend(bench.with_pages(server, delay))


def anew(words):
    """The command that measures the same on another machine."""
    given, kept = iter(words), []
    for word in given:
        name, _, value = word.partition("=")
        if name in ("--markdown", "--browser", *(f"--{path}" for path in PATHS)):
            if not value:
                next(given, None)
        else:
            kept.append(word)
    paths = " ".join(f"--{name} {path}" for name, path in PATHS.items())
    return f"tests/bench/run.py {paths} {shlex.join(kept)}".rstrip()


def report(options, browser, sections, problems):
    """Prints the table; gives the exit code."""
    print("\n" + as_text(sections, options.seconds))
    verdicts = [each.met for section in sections for each in section.verdicts()]
    print(f"\n{verdicts.count(True)} targets met, {verdicts.count(False)} missed, {verdicts.count(None)} not measured")
    for problem in problems:
        print("not measured: " + problem)
    if options.markdown:
        with open(options.markdown, "w", encoding="utf-8") as file:
            file.write(as_markdown(sections, options.seconds, described(options, browser), anew(sys.argv[1:])))
    return 2 if problems else 1 if False in verdicts else 0


def main():
    options = arguments()
    # What was started is ended however this one ends.
    for each in signal.SIGTERM, signal.SIGHUP:
        signal.signal(each, lambda number, _: sys.exit(128 + number))
    adopt_orphans()
    browser, sections, problems = None, [], []
    try:
        browser = find_browser(options)
        print(f"Measured on {described(options, browser)}.\n"
              f"Load average {os.getloadavg()[0]:.2f} before the first run.", flush=True)
        measure(options, browser, sections, problems)
    except NotMeasured as problem:
        problems.append(str(problem))
    except KeyboardInterrupt:
        problems.append("what was left when it was interrupted")
    return report(options, browser, sections, problems)


if __name__ == "__main__":
    sys.exit(main())
