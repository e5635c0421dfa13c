"""What run.py starts, counts and says, without a display or an engine: programs are stand-ins.

    python3 tests/bench/measure_test.py"""
import contextlib
import io
import os
import re
import signal
import subprocess
import sys
import time
import types
import unittest
import urllib.request
from unittest import mock

import run
from measure import comparing, processes, running
from measure.processes import NotMeasured, Processes, kind_of
from measure.programs import Bare, TessaView
from measure.servers import MOST_HOSTS, PageServer
from measure.serving import MadePages, paragraphs, started, wait_for, write_group
from measure.table import Section, as_markdown, as_text, medians
from measure.targets import TARGETS, Case, targets_of
from standins import Folder

DISPLAY = types.SimpleNamespace(name=":7")
ADDRESSES = ["http://127.0.1.1:80/page/1", "http://127.0.1.2:80/page/2", "http://127.0.1.3:80/page/3"]


class Programs(Folder):
    def drawn(self, program):
        inherited = {"QT_QUICK_BACKEND": "rhi", "TESSAVIEW_DRAWING": "hardware", "WAYLAND_DISPLAY": "wayland-0"}
        with mock.patch.dict(os.environ, inherited):
            environment = program.environment(DISPLAY, str(self.folder))
        self.assertNotIn("WAYLAND_DISPLAY", environment)
        return {name: environment[name] for name in ("QT_QUICK_BACKEND", "TESSAVIEW_DRAWING") if name in environment}

    def test_both_are_told_how_to_draw_whatever_the_caller_has(self):
        self.assertEqual(self.drawn(TessaView("t", "software")), {"TESSAVIEW_DRAWING": "software"})
        self.assertEqual(self.drawn(TessaView("t", "hardware")), {"TESSAVIEW_DRAWING": "hardware"})
        self.assertEqual(self.drawn(Bare("b", "software")), {"QT_QUICK_BACKEND": "software"})
        self.assertEqual(self.drawn(Bare("b", "hardware")), {})

    def test_many_pages_are_a_group_of_the_users_own(self):
        command = TessaView("t", "software").open(ADDRESSES, str(self.folder))
        group = self.folder / "TessaGroups" / "bench.tvg"
        self.assertEqual(command, ["t", str(group)])
        self.assertEqual(group.read_bytes().decode().split("\r\n"),
                         ["[TessaGroup]", *(f"url{i}={each}" for i, each in enumerate(ADDRESSES, 1)), ""])
        self.assertIn("AskDefaultBrowser=false", (self.folder / "settings.ini").read_text())

    def test_one_page_is_an_address(self):
        self.assertEqual(TessaView("t", "software").open(ADDRESSES[:1], str(self.folder)), ["t", ADDRESSES[0]])
        self.assertEqual(Bare("b", "software").open(ADDRESSES, str(self.folder)), ["b", *ADDRESSES])
        self.assertEqual(Bare("b", "software", keeps=True).open(ADDRESSES, "home"), ["b", "--profile", "home", *ADDRESSES])

    def test_a_thousand_pages_share_the_hosts(self):
        server = PageServer("s", 1000, 20)
        server.port = 80
        addresses = server.addresses(1000)
        self.assertEqual(len(set(addresses)), 1000)
        self.assertEqual(len({each.split("/")[2] for each in addresses}), MOST_HOSTS)
        self.assertEqual(addresses[249:251], ["http://127.0.1.250:80/page/250", "http://127.0.1.1:80/page/251"])
        self.assertEqual(server.address(3, animated=True), "http://127.0.1.3:80/animated/3")


class Counting(unittest.TestCase):
    def test_each_process_is_of_a_kind(self):
        for words, kind in (
            ("/usr/bin/tessaview\0a.tvg\0", "own"),
            ("/usr/lib/qt6/libexec/QtWebEngineProcess\0--type=zygote\0--lang=en\0", "renderers"),
            ("/usr/lib/chromium/chromium --type=renderer --lang=en", "renderers"),
            ("/usr/lib/chromium/chromium --type=gpu-process --lang=en", "others"),
            ("/usr/lib/chromium/chromium\0--type=utility\0--utility-sub-type=network.mojom.NetworkService\0", "others"),
            ("/usr/lib/firefox/firefox\0--profile\0p\0", "own"),
            ("/usr/lib/firefox/firefox\0-contentproc\0-isForBrowser\x002\0true\0tab\0", "renderers"),
            ("/usr/lib/firefox/firefox\0-contentproc\0-parentPid\0001\0socket\0", "others"),
            ("", "own"),
        ):
            self.assertEqual(kind_of(words), kind, words)

    def test_memory_that_may_not_be_seen_is_not_left_out(self):
        with mock.patch.object(Processes, "_members", return_value={1: []}), \
                mock.patch("builtins.open", side_effect=PermissionError):
            with self.assertRaisesRegex(NotMeasured, "for root alone"):
                Processes().memory_megabytes()


class ToldPages(MadePages):
    def __init__(self):
        self.told = []
        super().__init__()

    def answer(self, path):
        return "text/plain", f"at {path}".encode()

    def posted(self, path, body):
        self.told.append((path, body))


class Serving(Folder):
    def test_made_pages_come_from_each_host_and_hear_what_is_told(self):
        pages = ToldPages()
        for host in (1, 2):
            with urllib.request.urlopen(pages.address("/a", host), timeout=10) as answer:
                self.assertEqual((answer.read(), answer.headers["Content-Type"]), (b"at /a", "text/plain"))
        urllib.request.urlopen(pages.address("/b"), data=b"drawn", timeout=10).close()
        self.assertEqual(pages.told, [("/b", b"drawn")])

    def test_paragraphs_are_the_same_for_the_same_page(self):
        self.assertEqual(paragraphs("/a", 3), paragraphs("/a", 3))
        self.assertNotEqual(paragraphs("/a", 3), paragraphs("/b", 3))
        self.assertEqual(paragraphs("/a", 3).count("<p>"), 3)

    def test_a_group_says_how_it_opens_only_when_told(self):
        path = os.path.join(self.folder, "a.tvg")
        write_group(path, ["http://a/", "http://b/"])
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\n")
        write_group(path, ["http://a/"], "panes=none")
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), "[TessaGroup]\nurl1=http://a/\n[TessaView]\npanes=none\n")

    def test_what_never_comes_ends_the_benchmark_in_words(self):
        with self.assertRaisesRegex(SystemExit, "nothing came"):
            wait_for(lambda: False, 0, lambda: "nothing came")

    def test_a_program_is_not_looked_at_as_tests_do(self):
        script = self.program("tells", f"env >{self.folder}/told\nmv {self.folder}/told {self.folder}/all\n"
                                       "exec sleep 600\n")
        with mock.patch.dict(os.environ, {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "KEPT": "1"}):
            with started(script, "argument", self.folder):
                wait_for((self.folder / "all").exists, 30, lambda: "it told nothing")
        told = (self.folder / "all").read_text().splitlines()
        self.assertIn("KEPT=1", told)
        self.assertIn(f"TESSAVIEW_HOME={self.folder}", told)
        self.assertFalse([line for line in told if "ACCESSIBILITY" in line])

    def test_a_program_is_ended_with_its_block_and_its_children_are_found(self):
        script = self.program("parent", "sleep 600 &\nwait\n")
        with started(script, "argument", self.folder) as process:
            wait_for(lambda: len(processes.processes_of(process.pid)) == 2, 30, lambda: "no child came")
            child = processes.processes_of(process.pid)[1]
            self.assertGreater(processes.seconds_used(process.pid), 0)
        self.assertIsNotNone(process.returncode)
        os.kill(child, signal.SIGKILL)
        self.assertEqual(processes.seconds_used(process.pid), 0, "it has gone")


class FakeServer:
    """Which page was loaded."""

    def __init__(self, loaded):
        self.loaded = loaded

    def done(self, _pages, _seconds):
        return self.loaded

    def control(self, _path):
        return ""

    def events(self):
        return []


class Starts(Folder):
    def setUp(self):
        super().setUp()
        processes.adopt_orphans()

    def running(self, script):
        """A run of a stand-in."""
        contestant = types.SimpleNamespace(name="bare", drawing="", window=[], environment=lambda *_: dict(os.environ))
        return running.Running(contestant, DISPLAY, lambda home: [self.program("p", script)])

    def test_what_cannot_be_started_is_said(self):
        contestant = Bare(str(self.folder / "missing"), "software")
        with self.assertRaisesRegex(NotMeasured, "cannot be started: No such file"):
            with running.Running(contestant, DISPLAY, lambda home: contestant.open(ADDRESSES, home)):
                self.fail("it was started")

    def test_what_ends_by_itself_is_said(self):
        with self.running("exit 3") as run_of_it:
            run_of_it.process.wait()
            with self.assertRaisesRegex(NotMeasured, "ended with code 3, 1 of 2 pages loaded"):
                run_of_it.wait_loaded(FakeServer(1), 2, 60)

    def test_pages_that_never_load_are_said_and_nothing_is_left(self):
        # One of its processes leaves the session and its parent, another its parent alone.
        script = f"""(setsid sh -c 'echo $$ >{self.folder}/far; exec sleep 1000' &)
(sh -c 'echo $$ >{self.folder}/near; exec sleep 1000' &)
sleep 1000"""
        with self.running(script) as run_of_it:
            left = [self.folder / "far", self.folder / "near"]
            while not all(each.exists() and each.read_text().endswith("\n") for each in left):
                time.sleep(0.01)
            self.assertGreaterEqual(run_of_it.tree.count(), 3)
            with mock.patch("measure.running.patience", return_value=0.01):
                with self.assertRaisesRegex(NotMeasured, "timed out after 0 s, 0 of 2 pages loaded"):
                    run_of_it.wait_loaded(FakeServer(0), 2, 60)
            home = run_of_it.home
        self.assertFalse(os.path.exists(home))
        for each in left:
            self.assertFalse(os.path.exists(f"/proc/{int(each.read_text())}"), each.name)

    def test_it_is_done_when_nothing_is_left_to_do(self):
        # It works until it is told not to, and sleeps from then on.
        with self.running(f"while [ ! -e {self.folder}/enough ]; do :; done; exec sleep 1000") as run_of_it:
            self.assertIsNone(run_of_it.wait_settled(0.5))
            (self.folder / "enough").touch()
            told = time.monotonic() - run_of_it.start
            self.assertGreaterEqual(run_of_it.wait_settled(60), told)

    def test_memory_that_runs_short_is_said(self):
        with self.running("sleep 1000") as run_of_it, \
                mock.patch("measure.running.available_memory_kb", return_value=1000):
            with self.assertRaisesRegex(NotMeasured, "memory of this machine ran short, 5 of 9 pages loaded"):
                run_of_it.wait_loaded(FakeServer(5), 9, 60)

    def test_a_server_that_is_none_is_said(self):
        for script in ("exit 0", "echo hello"):
            with self.subTest(script=script), self.assertRaisesRegex(NotMeasured, "server does not start"):
                with PageServer(self.program("server", script), 1, 0):
                    self.fail("it was started")

    def check(self, *names):
        """Who works of contestants by these names, each of which fails when its name is in capitals."""
        contestants = [types.SimpleNamespace(name=name.lower(), drawing="", fails=name.isupper()) for name in names]

        def check_starts(contestant, *_):
            if contestant.fails:
                raise NotMeasured("loads nothing")

        problems = []
        with mock.patch("measure.starting.check_starts", check_starts):
            working = comparing.check_contestants(contestants, None, None, None, problems)
        return [each.name for each in working], problems

    def test_a_browser_that_does_not_work_is_left_out_the_others_are_needed(self):
        self.assertEqual(self.check("bare", "browser"), (["bare", "browser"], []))
        self.assertEqual(self.check("bare", "BROWSER"), (["bare"], ["browser: loads nothing"]))
        with self.assertRaisesRegex(NotMeasured, "bare: loads nothing"):
            self.check("BARE", "browser")


class Tables(unittest.TestCase):
    CASE = Case("pages", 20)
    TITLE = "20 still pages"

    def rows(self, case, **values):
        """Of each row its name, numbers and verdicts."""
        section = Section(self.TITLE, case, values)
        lines = as_text([section], 2).splitlines()[3:]
        return [re.sub(" {2,}", " | ", line.strip()) for line in lines]

    def test_ratios_are_to_both_and_each_target_has_its_verdict(self):
        values = {"TessaView": {"front": 0.5, "all": 3.0, "memory": 300},
                  "bare": {"front": 2.5, "all": 2.0, "memory": 310},
                  "browser": {"front": 5.0, "all": 5.0, "memory": 500}}
        self.assertEqual(self.rows(self.CASE, **values), [
            "front page loaded, s | 0.500 | 2.50 | 5.00 | 0.200 | 0.100 | <= 0.35 of bare met, <= 0.20 of browser met",
            "all loaded, s | 3.00 | 2.00 | 5.00 | 1.500 | 0.600 | <= 1.00 of bare MISSED, <= 0.80 of browser met",
            "memory, MB (PSS) | 300 | 310 | 500 | 0.968 | 0.600 | <= 0.65 of browser met, <= 1.10 of bare met"])

    def test_without_a_browser_its_column_is_empty_and_not_judged(self):
        rows = self.rows(Case("pages", 1), TessaView={"all": 0.5, "memory": 200}, bare={"all": 0.4, "memory": 200})
        self.assertEqual(rows, [
            "all loaded, s | 0.500 | 0.400 | - | 1.250 | - | <= 1.00 of bare MISSED, <= 0.55 of browser not measured",
            "memory, MB (PSS) | 200 | 200 | - | 1.000 | - | <= 1.10 of bare met"])

    def test_a_ratio_just_above_its_target_is_seen_to_be(self):
        rows = self.rows(Case("download"), TessaView={"file": 1.103}, bare={"file": 1.0})
        self.assertEqual(rows[0], "file saved, s | 1.10 | 1.00 | - | 1.103 | - | <= 1.10 of bare MISSED")

    def test_what_failed_is_not_met(self):
        rows = self.rows(Case("hand-over"), TessaView={"ended": 0.09}, browser={"ended": 0.3, "asked": 0.3})
        self.assertEqual(rows, ["second start ended, s | 0.090 | - | 0.300 | - | 0.300 | <= 0.10 met",
                                "its page asked for, s | - | - | 0.300 | - | - | <= 0.15 not measured"])

    def test_sleep_is_held_against_being_awake(self):
        rows = self.rows(Case("sleep"), TessaView={"awake": 400, "asleep": 101, "wake": 0.1, "anew": 0.2})
        verdicts = [row.rpartition(" | ")[2] for row in rows]
        self.assertEqual(verdicts, ["-", "<= 0.25 of awake MISSED", "<= 1.00 of anew met", "-"])

    def of(self, key, **case):
        return [(each.of, each.most) for each in targets_of(Case(**case), key)]

    def test_targets_hold_where_they_are_meant(self):
        self.assertEqual(self.of("all", kind="pages", count=20), [("bare", 1.0), ("browser", 0.8)])
        self.assertEqual(self.of("all", kind="pages", count=20, usual=False), [("bare", 1.0)])
        self.assertEqual(self.of("all", kind="pages", count=20, delay=300), [])
        self.assertEqual(self.of("all", kind="pages", count=100, delay=300), [("browser", 0.6)])
        self.assertEqual(self.of("memory", kind="pages", count=100, delay=300), [("browser", 0.8), ("bare", 1.1)])
        self.assertEqual(self.of("all", kind="pages", count=500), [])
        self.assertEqual(self.of("cpu", kind="pages", count=1), [])
        self.assertEqual(self.of("cpu", kind="pages", count=1, animated=True), [("bare", 0.9), ("browser", 0.4)])
        self.assertEqual(self.of("window", kind="start"), [("itself", 0.25), ("bare", 1.25)])

    def test_each_target_is_of_something_that_is_measured(self):
        for target in TARGETS:
            case = Case(target.kind, target.count, animated=target.key == "cpu")
            self.assertIn(target, targets_of(case, target.key))

    def test_a_run_that_failed_does_not_hide_the_others(self):
        runs = [{"first": 1, "all": 2}, {"first": 3}, {"first": 9, "all": 4}]
        self.assertEqual(medians(runs), {"first": 3, "all": 3})

    def test_markdown_has_machine_table_and_command(self):
        section = Section(self.TITLE, self.CASE, {"TessaView": {"front": 0.5, "first": 0.2}, "bare": {"front": 2.5}})
        text = as_markdown([section], 2, "a machine", "a command")
        self.assertEqual(text.splitlines(), [
            "Measured on a machine.", "", "| | TessaView | bare program | browser | of bare | of browser |",
            "|---|--:|--:|--:|--:|--:|", "| **20 still pages** | | | | | |",
            "| front page loaded, s | 0.500 | 2.50 | - | 0.200 | - |", "| all loaded, s | - | - | - | - | - |",
            "| memory, MB (PSS) | - | - | - | - | - |", "", "To measure anew:", "", "    a command"])


class Command(Folder):
    NEEDED = ["--program", "p", "--reference", "r", "--server", "s"]

    def options(self, *words):
        return run.arguments([*self.NEEDED, *words])

    def test_lists_are_read(self):
        options = self.options("--pages", "1,1000", "--delays", "0,100,500", "--drawing", "software,hardware")
        self.assertEqual((options.pages, options.delays, options.drawing),
                         ([1, 1000], [0, 100, 500], ["software", "hardware"]))

    def test_one_way_of_drawing_is_usual(self):
        self.assertEqual(self.options().drawing, [self.options().usual_drawing])

    def test_pages_move_when_asked_to(self):
        self.assertEqual([self.options(*words).animated for words in ([], ["--animated"], ["--animated", "only"])],
                         [[False], [False, True], [True]])

    def test_what_makes_no_sense_is_refused(self):
        for words in (["--pages", "0"], ["--pages", "x"], ["--delays", "-1"], ["--delays", ""], ["--drawing", "paper"]):
            with self.subTest(words=words), contextlib.redirect_stderr(io.StringIO()):
                with self.assertRaises(SystemExit):
                    self.options(*words)

    def test_the_command_to_measure_anew_names_no_folder_of_this_machine(self):
        words = ["--program", "/home/me/tessaview", "--reference=/home/me/r", "--server", "/home/me/s", "--runs", "5",
                 "--browser", "/home/me/b", "--markdown=/home/me/m", "--drawing", "software,hardware"]
        self.assertEqual(run.anew(words), "tests/bench/run.py --program build/tessaview --reference "
                         "build/tests/bench/bench_reference --server build/tests/bench/bench_server --runs 5 "
                         "--drawing software,hardware")

    def test_a_program_that_is_not_there_ends_it_in_words(self):
        missing = str(self.folder / "missing")
        done = subprocess.run([run.__file__, "--program", missing, "--reference", missing, "--server", missing,
                               "--browser", str(self.folder / "none")], capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stderr), (2, ""))
        self.assertIn("0 targets met", done.stdout)
        self.assertIn("none cannot be started", done.stdout)


if __name__ == "__main__":
    sys.exit(unittest.main())
