#!/usr/bin/python3
"""Holds TessaView against the bare program: opens the same pages with both in turn and prints what each needed.

    run.py --program build/tessaview --reference build/tests/bench/bench_reference \\
           --server build/tests/bench/bench_server [--pages 1,20,100] [--restart 100] [--exit 500] [--asleep 100]
           [--download 1000] [--runs 3]

Also measured: how soon a start shows its window, a restart with so many remembered sites, how soon everything is saved
when the program is asked to end with so many tabs open, a download of so many MB (how long it takes and how much memory
meanwhile), and of so many tabs the memory asleep and awake, and how soon one wakes, held against loading its page anew.

Both run on a virtual display of their own, with a fresh profile each time, and are measured from outside: what the
page server was asked for when, and what the kernel says of all processes of the run. The exit code is 0 when all
targets are met, 1 when one is missed, 2 when something could not be measured.
"""
import argparse
import os
import sys

from measure.comparing import comparisons
from measure.display import Display
from measure.loading import measure
from measure.programs import program_command, reference_command
from measure.servers import PageServer


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--program", required=True, help="tessaview")
    parser.add_argument("--reference", required=True, help="bench_reference")
    parser.add_argument("--server", required=True, help="bench_server")
    parser.add_argument("--pages", default="1,20,100", help="numbers of pages, at most 250 each")
    parser.add_argument("--restart", type=int, default=100, help="remembered sites of a restart; 0 for none")
    parser.add_argument("--exit", type=int, default=500, help="tabs that are open at the end; 0 for none")
    parser.add_argument("--asleep", type=int, default=100, help="tabs that sleep; 0 for none")
    parser.add_argument("--download", type=int, default=1000, help="MB of a file that is saved; 0 for none")
    parser.add_argument("--runs", type=int, default=3, help="repetitions of each; the median counts")
    parser.add_argument("--delay", type=int, default=20, help="of each answer, milliseconds")
    parser.add_argument("--timeout", type=float, default=120, help="of each run, seconds")
    options = parser.parse_args()
    for name in "program", "reference", "server":
        setattr(options, name, os.path.abspath(getattr(options, name)))
    options.pages = [int(number) for number in options.pages.split(",") if number]
    return options


def main():
    options = arguments()
    print(f"{os.cpu_count()} processors, load average {os.getloadavg()[0]:.2f} before the first run, "
          f"{options.delay} ms for each answer, median of {options.runs}")
    verdicts, problems = [], []
    with Display() as display, PageServer(options.server, max([1, options.restart, options.asleep, *options.pages]), options.delay) as server:
        # Not counted: it brings both programs and the engine from the disk into memory.
        for command_for in program_command, reference_command:
            measure(command_for, options, 1, server, display, quiet=0, idle=0)
        for found, wrong in comparisons(options, server, display):
            verdicts += found
            problems += wrong
    missed = sum("MISSED" in each for each in verdicts)
    print(f"\n{sum('  met' in each for each in verdicts)} targets met, {missed} missed")
    for problem in problems:
        print("not measured: " + problem)
    return 2 if problems else 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
