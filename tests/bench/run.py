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
import collections
import http.server
import os
import select
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time
import urllib.request

# What TessaView may need at most, as a part of what the bare program needs: (pages, value) -> ratio.
TARGETS = {(1, "front"): 1.10, (1, "all"): 1.10, (20, "front"): 0.35, (20, "all"): 0.80, (100, "front"): 0.15,
           (100, "all"): 0.80}
TITLES = {"TessaView": "^TessaView 3$", "bare": "^bench_reference$"}
MEMORY_TARGET = 1.10
WINDOW_TARGET = 1.25
VALUES = {"window": "window shown, s", "first": "first request, s", "front": "front page loaded, s", "all": "all loaded, s",
          "memory": "memory, MB (PSS)", "idle": "idle CPU, s in 5 s", "saved": "file saved, s", "peak": "peak memory, MB (PSS)",
          "grown": "grown meanwhile, MB"}
DOWNLOAD_TARGET = 1.10
GROWTH_TARGET = 50  # MB that a download may take at most, however large it is
EXIT_TARGET = 0.1  # seconds until everything is saved
ASLEEP_TARGET = 0.25  # of the memory awake
WAKE_TARGET = 1.0  # of the time to load the page anew
SLEEP_MINUTES = 1  # the least that can be set
SLEEP_PATIENCE_SECONDS = 200
WAKE_UPS = 5
QUIET_SECONDS = 3
IDLE_SECONDS = 5
END_PATIENCE_SECONDS = 10


class Processes:
    """All processes of one session, which is how a run keeps together whatever it starts."""

    def __init__(self, session):
        self.session = session

    def _stats(self):
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{name}/stat", encoding="latin-1") as file:
                    fields = file.read().rpartition(")")[2].split()
            except OSError:
                continue
            if int(fields[3]) == self.session and fields[0] != "Z":
                yield int(name), fields

    def cpu_seconds(self):
        """User and system time of all of them so far."""
        ticks = sum(int(fields[11]) + int(fields[12]) for _, fields in self._stats())
        return ticks / os.sysconf("SC_CLK_TCK")

    def count(self):
        return sum(1 for _ in self._stats())

    def memory_megabytes(self):
        """Proportional set size of all of them: shared pages are counted once."""
        total = 0
        for pid, _ in self._stats():
            try:
                with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
                    total += sum(int(line.split()[1]) for line in file if line.startswith("Pss:"))
            except OSError:
                continue
        return total / 1024

    def kill(self):
        deadline = time.monotonic() + END_PATIENCE_SECONDS
        while pids := [pid for pid, _ in self._stats()]:
            if time.monotonic() > deadline:
                raise RuntimeError(f"processes {pids} do not end")
            for pid in pids:
                try:
                    os.kill(pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            time.sleep(0.05)


class Display:
    """A virtual display with a window manager, for as long as the block lasts."""

    def __enter__(self):
        read, write = os.pipe()
        self._server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-nolisten",
                                         "tcp", "-noreset"], pass_fds=[write], start_new_session=True,
                                        stderr=subprocess.DEVNULL)
        os.close(write)
        # It writes its number when it is ready. The whole line is read: closing the pipe in the middle would end it.
        ready = select.select([read], [], [], END_PATIENCE_SECONDS)[0]
        with open(read, encoding="ascii") as pipe:
            number = pipe.readline().strip() if ready else ""
        if not number:
            self._server.kill()
            raise RuntimeError("the virtual display does not start")
        self.name = ":" + number
        self._manager = subprocess.Popen(["openbox"], env={**os.environ, "DISPLAY": self.name}, start_new_session=True,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for process in self._manager, self._server:
            process.terminate()
            process.wait()


class PageServer:
    """The server of the pages, for as long as the block lasts."""

    def __init__(self, path, hosts, delay):
        self._command = [path, "--hosts", str(hosts), "--delay", str(delay)]

    def __enter__(self):
        self._process = subprocess.Popen(self._command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        answer = self._process.stdout.readline().split()
        if not answer:
            raise RuntimeError("the page server does not start")
        self.port = int(answer[1])
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait()

    def address(self, number):
        return f"http://127.0.1.{number}:{self.port}/page/{number}"

    def small_address(self, number):
        """A page of two letters at an address of the usual length, which counts as loaded once it was asked for."""
        return f"http://127.0.1.1:{self.port}/done?n={number}&in=a-section&of=some-paper&from=the-front-page"

    def control(self, path, patience=10):
        with urllib.request.urlopen(f"http://127.0.1.1:{self.port}/control/{path}", timeout=patience) as answer:
            return answer.read().decode()

    def done(self, pages, seconds):
        """Waits until so many pages are loaded or the time is up; how many are."""
        return int(self.control(f"wait?n={pages}&ms={int(seconds * 1000)}", seconds + 10))

    def events(self):
        """(seconds of the monotonic clock, path) of every request since the last reset."""
        lines = [line.split(" ", 2) for line in self.control("log").splitlines()]
        return [(int(microseconds) / 1e6, path) for microseconds, _, path in lines]


class FileServer:
    """A file of so many MB, as fast as it can be sent, for as long as the block lasts."""

    def __init__(self, megabytes):
        self.size = megabytes * 1000 * 1000
        self.asked = None  # when it was asked for last, in seconds of the monotonic clock

    def __enter__(self):
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                server.asked = time.monotonic()
                self.send_response(200)
                self.send_header("Content-Type", "application/octet-stream")
                self.send_header("Content-Disposition", 'attachment; filename="big.bin"')
                self.send_header("Content-Length", str(server.size))
                self.end_headers()
                with tempfile.TemporaryFile() as file:
                    file.truncate(server.size)
                    try:
                        self.connection.sendfile(file)
                    except OSError:
                        pass  # the program was ended

            def log_message(self, *words):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self._server.server_address[1]}/big"
        return self

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()


def reference_command(options, addresses, _home):
    return [options.reference, *addresses]


def program_command(options, addresses, home):
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write("[General]\nAskDefaultBrowser=false\n")
    if len(addresses) == 1:
        return [options.program, addresses[0]]
    group = os.path.join(home, "bench.tvg")
    lines = ["[TessaGroup]"] + [f"url{i}={address}" for i, address in enumerate(addresses, 1)]
    with open(group, "w", encoding="ascii", newline="") as file:
        file.write("".join(line + "\r\n" for line in lines))
    return [options.program, group]


def restart_command(options, addresses, home):
    """A start that brings the sites of the session before back, the last of them in front."""
    sites = ", ".join(f'"{address}"' for address in addresses)
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write(f"[General]\nAskDefaultBrowser=false\nRememberLastSites=true\nLastSites={sites}\n")
    return [options.program]


def environment(display, home):
    result = {**os.environ, "DISPLAY": display.name, "QT_QPA_PLATFORM": "xcb", "TESSAVIEW_HOME": home}
    if os.geteuid() == 0:
        result["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    return result


def wait_until_loaded(process, server, pages, seconds):
    """What went wrong, in words; nothing when all is well."""
    deadline = time.monotonic() + seconds
    while (left := deadline - time.monotonic()) > 0:
        loaded = server.done(pages, min(left, 5))
        if loaded >= pages:
            return ""
        if process.poll() is not None:
            return f"ended with code {process.returncode}, {loaded} of {pages} pages loaded"
    return f"timed out after {seconds} s, {loaded} of {pages} pages loaded"


def times(server, start, pages):
    """Seconds from the start of the process to what the server saw."""
    events = [(moment - start, path) for moment, path in server.events()]
    done = {}
    for moment, path in events:
        if path.startswith("/done?"):
            done.setdefault(path, moment)
    result = {"first": events[0][0]} if events else {}
    if (front := f"/done?n={pages}") in done:
        result["front"] = done[front]
    if len(done) == pages:
        result["all"] = max(done.values())
    twice = collections.Counter(path for _, path in events if path.startswith("/page/"))
    result["again"] = sum(twice.values()) - len(twice)
    return result


def measure_window(name, command_for, options, server, display):
    """Seconds from the start to the main window on the screen."""
    server.control("reset")
    look = ["xdotool", "search", "--onlyvisible", "--name", TITLES[name]]
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = command_for(options, [server.address(1)], home)
        start = time.monotonic()
        process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            while process.poll() is None and time.monotonic() - start < options.timeout:
                if subprocess.run(look, env=environment(display, home), capture_output=True, check=False).stdout:
                    return {"window": time.monotonic() - start}, ""
            return {}, "shows no window"
        finally:
            Processes(process.pid).kill()
            process.wait()


def measure(command_for, options, pages, server, display, quiet=QUIET_SECONDS, idle=IDLE_SECONDS):
    """One run: what was measured, and what went wrong in words."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = command_for(options, [server.address(n) for n in range(1, pages + 1)], home)
        with open(os.path.join(home, "output"), "wb") as output:
            start = time.monotonic()
            process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        tree = Processes(process.pid)
        try:
            problem = wait_until_loaded(process, server, pages, options.timeout)
            result = times(server, start, pages)
            if not problem:
                time.sleep(quiet)
                result["memory"] = tree.memory_megabytes()
                before = tree.cpu_seconds()
                time.sleep(idle)
                result["idle"] = tree.cpu_seconds() - before
        finally:
            tree.kill()
            process.wait()
    return result, problem


def download_command(options, addresses, home):
    """A start that saves where the bare program does: in the current folder."""
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write(f"[General]\nAskDefaultBrowser=false\nInternetDownloadFolder={home}\n")
    return [options.program, *addresses]


def measure_download(command_for, options, display):
    """Seconds from the request until the file is whole, and the memory meanwhile."""
    with FileServer(options.download) as server, tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        process = subprocess.Popen(command_for(options, [server.address], home), env=environment(display, home), cwd=home,
                                   start_new_session=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        tree, file = Processes(process.pid), os.path.join(home, "big.bin")
        memory, deadline = [], time.monotonic() + options.timeout
        try:
            # The file has its name once it is whole.
            while not os.path.exists(file):
                if process.poll() is not None or time.monotonic() > deadline:
                    return {}, "the file was not saved"
                if server.asked:
                    memory.append(tree.memory_megabytes())
                time.sleep(0.02)
            saved = os.stat(file).st_mtime - time.time() + time.monotonic() - server.asked
            if os.path.getsize(file) != server.size or not memory:
                return {}, "the file is not whole"
            return {"saved": saved, "peak": max(memory), "grown": max(memory) - memory[0]}, ""
        finally:
            tree.kill()
            process.wait()


def exit_command(options, server, home):
    """A start with many small pages whose addresses are of the usual length."""
    return program_command(options, [server.small_address(n) for n in range(1, options.exit + 1)], home)


def last_written(home, since):
    """Seconds after `since`, a time of day, at which the last file of the state was written."""
    kept = [os.path.join(home, name) for name in ("settings.ini", "user.tb")]
    sessions = os.path.join(home, "sessions")
    kept += [os.path.join(sessions, name) for name in os.listdir(sessions)]
    return max(os.stat(path).st_mtime for path in kept) - since


def measure_exit(options, server, display):
    """Seconds from the wish to end until everything is saved, and until the process is gone."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        process = subprocess.Popen(exit_command(options, server, home), env=environment(display, home), cwd=home,
                                   start_new_session=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            problem = wait_until_loaded(process, server, options.exit, options.timeout)
            if problem:
                return {}, problem
            time.sleep(QUIET_SECONDS)
            asked, start = time.time(), time.monotonic()
            process.send_signal(signal.SIGTERM)
            process.wait(options.timeout)
            ended = time.monotonic() - start
            return {"saved": last_written(home, asked), "ended": ended}, ""
        finally:
            Processes(process.pid).kill()
            process.wait()


def report_exit(options, server, display):
    """Measures saving at the end; gives the verdict and what went wrong."""
    title = f"end with {options.exit} tabs"
    runs, problems = [], []
    for run in range(1, options.runs + 1):
        result, problem = measure_exit(options, server, display)
        shown = "  ".join(f"{key} {value:.3f}" for key, value in result.items())
        print(f"  {title}, run {run}: {shown}  {problem}".rstrip(), flush=True)
        runs += [result] if result else []
        problems += [f"{title}: {problem}"] if problem else []
    saved = statistics.median(run["saved"] for run in runs) if runs else None
    words = "not measured" if saved is None else "met" if saved <= EXIT_TARGET else "MISSED"
    print(f"\n{title}\n  everything saved, s    {'-' if saved is None else f'{saved:10.3f}'}"
          f"                     <= {EXIT_TARGET:.2f}  {words}")
    return [f"  {words}"], problems


def sleep_command(options, addresses, home):
    command = program_command(options, addresses, home)
    with open(os.path.join(home, "settings.ini"), "a", encoding="ascii") as file:
        file.write(f"InternetTabsSleep=true\nInternetSleepMinutes={SLEEP_MINUTES}\n")
    return command


def wait_until_asleep(tree, awake):
    """Waits until the processes of most pages have ended and no more do; whether they have."""
    deadline = time.monotonic() + SLEEP_PATIENCE_SECONDS
    counts = collections.deque([awake], maxlen=QUIET_SECONDS)
    while time.monotonic() < deadline:
        time.sleep(1)
        counts.append(tree.count())
        if len(counts) == QUIET_SECONDS and len(set(counts)) == 1 and counts[0] * 2 < awake:
            return True
    return False


def seconds_until_done(key, server, display, home):
    """From the press of a key until a page is loaded by it; nothing when none is."""
    server.control("reset")
    start = time.monotonic()
    subprocess.run(["xdotool", "key", key], env=environment(display, home), check=True)
    if server.done(1, END_PATIENCE_SECONDS) == 0:
        return None
    return next(moment - start for moment, path in server.events() if path.startswith("/done?"))


def measure_wake_ups(server, display, home):
    """What was measured, and what went wrong in words."""
    find = ["xdotool", "search", "--onlyvisible", "--name", TITLES["TessaView"], "windowactivate", "--sync"]
    subprocess.run(find, env=environment(display, home), check=True, capture_output=True)
    times_of = {"wake": [], "anew": []}
    for _ in range(WAKE_UPS):
        for name, key in ("wake", "ctrl+shift+Tab"), ("anew", "F5"):
            taken = seconds_until_done(key, server, display, home)
            if taken is None:
                return {}, f"no page was loaded by {key}"
            times_of[name].append(taken)
            time.sleep(1)
    return {name: statistics.median(taken) for name, taken in times_of.items()}, ""


def measure_sleep(options, server, display):
    """Memory of many tabs awake and asleep, and how soon one wakes; and what went wrong in words."""
    server.control("reset")
    with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
        command = sleep_command(options, [server.address(n) for n in range(1, options.asleep + 1)], home)
        process = subprocess.Popen(command, env=environment(display, home), start_new_session=True, cwd=home,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        tree = Processes(process.pid)
        try:
            problem = wait_until_loaded(process, server, options.asleep, options.timeout)
            if problem:
                return {}, problem
            time.sleep(QUIET_SECONDS)
            awake = tree.count()
            result = {"awake": tree.memory_megabytes()}
            if not wait_until_asleep(tree, awake):
                return result, f"{tree.count()} of {awake} processes are left, the tabs do not sleep"
            # What was freed is given back a moment later.
            time.sleep(2 * QUIET_SECONDS)
            result["asleep"] = tree.memory_megabytes()
            woken, problem = measure_wake_ups(server, display, home)
            return {**result, **woken}, problem
        finally:
            tree.kill()
            process.wait()


def report_ratio(label, runs, value, of, target):
    """Prints how one median compares with another; gives the verdict."""
    pairs = [(run[value], run[of]) for run in runs if value in run and of in run]
    if not pairs:
        print(f"  {label:34}         -            <= {target:.2f}  not measured")
        return "  not measured"
    ours, base = (statistics.median(pair[i] for pair in pairs) for i in (0, 1))
    word = "met" if ours / base <= target else "MISSED"
    print(f"  {label:34}{ours:10.2f}{base:10.2f}{ours / base:8.2f}   <= {target:.2f}  {word}")
    return f"  {word}"


def report_sleep(options, server, display):
    """Measures tabs that sleep; gives the verdicts and what went wrong."""
    title = f"{options.asleep} tabs asleep"
    runs, problems = [], []
    for run in range(1, options.runs + 1):
        result, problem = measure_sleep(options, server, display)
        shown = "  ".join(f"{key} {value:.2f}" for key, value in result.items())
        print(f"  {title}, run {run}: {shown}  {problem}".rstrip(), flush=True)
        runs.append(result)
        problems += [f"{title}: {problem}"] if problem else []
    print(f"\n{title}")
    return [report_ratio("memory asleep, awake, MB (PSS)", runs, "asleep", "awake", ASLEEP_TARGET),
            report_ratio("loaded by waking, anew, s", runs, "wake", "anew", WAKE_TARGET)], problems


def medians(runs):
    return {key: statistics.median(run[key] for run in runs) for key in VALUES if all(key in run for run in runs)}


def verdict(pages, key, ratio, ours):
    if key == "grown" and ours is not None:
        return f"<= {GROWTH_TARGET} MB  {'met' if ours <= GROWTH_TARGET else 'MISSED'}"
    target = {"memory": MEMORY_TARGET, "window": WINDOW_TARGET, "saved": DOWNLOAD_TARGET, "peak": MEMORY_TARGET}.get(key, TARGETS.get((pages, key)))
    if target is None:
        return ""
    if ratio is None:
        return f"<= {target:.2f}  not measured"
    return f"<= {target:.2f}  {'met' if ratio <= target else 'MISSED'}"


def print_table(title, pages, program, reference):
    """Gives the verdicts."""
    print(f"\n{title}")
    print(f"  {'':22}{'TessaView':>10}{'bare':>10}{'ratio':>8}   target")
    verdicts = []
    for key, label in VALUES.items():
        if key not in program and key not in reference:
            continue
        ours, bare = program.get(key), reference.get(key)
        ratio = ours / bare if ours is not None and bare else None
        cells = [f"{value:.2f}" if value is not None else "-" for value in (ours, bare, ratio)]
        verdicts.append(verdict(pages, key, ratio, ours))
        print(f"  {label:22}{cells[0]:>10}{cells[1]:>10}{cells[2]:>8}   {verdicts[-1]}".rstrip())
    return verdicts


def in_turn(runs, pair):
    """The kinds of program to run one after the other; the order changes each time, so that neither always comes after
    the other."""
    for run in range(1, runs + 1):
        for name, command_for in pair if run % 2 == 0 else reversed(pair):
            yield run, name, command_for


def compare(title, pages, options, measured, command_for_ours=program_command):
    """Measures both in turn and prints the result; gives the verdicts and what went wrong."""
    results = {"TessaView": [], "bare": []}
    problems = []
    for run, name, command_for in in_turn(options.runs, [("TessaView", command_for_ours), ("bare", reference_command)]):
        result, problem = measured(name, command_for)
        results[name].append(result)
        shown = "  ".join(f"{key} {result[key]:.2f}" for key in VALUES if key in result)
        again = f"  {result['again']} pages asked for more than once" if result.get("again") else ""
        print(f"  {title}, run {run}, {name:9}: {shown}{again}  {problem}".rstrip(), flush=True)
        if problem:
            problems.append(f"{title}, {name}: {problem}")
    return print_table(title, pages, medians(results["TessaView"]), medians(results["bare"])), problems


def comparisons(options, server, display):
    """All that is asked for, one comparison after the other."""
    yield compare("start", 0, options,
                  lambda name, command_for: measure_window(name, command_for, options, server, display))
    for pages in options.pages:
        title = f"{pages} page{'s' if pages > 1 else ''}"
        yield compare(title, pages, options,
                      lambda _, command_for, n=pages: measure(command_for, options, n, server, display))
    if options.restart:
        yield compare(f"restart with {options.restart} sites", options.restart, options,
                      lambda _, command_for: measure(command_for, options, options.restart, server, display),
                      restart_command)
    if options.download:
        yield compare(f"download of {options.download} MB", 0, options,
                      lambda _, command_for: measure_download(command_for, options, display), download_command)
    if options.exit:
        yield report_exit(options, server, display)
    if options.asleep:
        yield report_sleep(options, server, display)


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
