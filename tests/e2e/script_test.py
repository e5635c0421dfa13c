# Tests: BusCalls, CtlRun, GroupChecks, GroupOutput, GroupPrint, PageMethods, PageReads, ScriptBus, ScriptCall
# Tests: AddressWalk, StartProgram, TabMethods, TabWalk
"""The program as a script drives it: by nothing but tessaviewctl."""

import contextlib
import errno
import json
import os
import re
import resource
import subprocess
import threading
import unittest

import answering
import check_server
import desk
import print_server

PROGRAM = desk.program_file()
COMPLETION = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../packaging/completions/tessaviewctl.bash")
CTL = os.path.join(os.path.dirname(PROGRAM), "tessaviewctl")
# Room for what the engine shows, which counts as files too, and for one large picture, but not for two.
LONGEST_FILE = 6_500_000


class Scripted(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def tearDown(self):
        self.ctl("quit", code=None)

    def start(self, *command, code=0, home=None):
        """What tessaviewctl prints and says. `code` is the exit code that it is to have; None for any."""
        environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=home or self.home)
        done = subprocess.run([CTL, *command], env=environment, capture_output=True, stdin=subprocess.DEVNULL)
        if code is not None:
            self.assertEqual(done.returncode, code, (command, done.stderr))
        return done.stdout, done.stderr.decode()

    def ctl(self, *command, code=0, home=None):
        return self.start(*command, code=code, home=home)[0].decode()

    def complaint(self, *command, code=1):
        return self.start(*command, code=code)[1]

    def tabs(self):
        return json.loads(self.ctl("list", "--json"))

    def strip(self):
        return [f"[{tab['title']}]" if "front" in tab["state"] else tab["title"] for tab in self.tabs()]

    def group(self, name, addresses):
        folder = os.path.join(self.home, "TessaGroups")
        os.makedirs(folder, exist_ok=True)
        desk.write_group(os.path.join(folder, name), addresses)
        return os.path.join(folder, name)


class WholeLife(Scripted):
    def test_a_group_is_opened_waited_for_listed_saved_printed_and_ended(self):
        with desk.PageServer(hosts=3) as pages:
            addresses = [pages.address(title, host) for host, title in enumerate(("One", "Two", "Three"), 1)]
            file = self.group("Three.tvg", addresses)
            self.ctl("open-group", "Three", "--wait")
            self.assertEqual(self.strip(), ["One", "Two", "[Three]"])
            self.assertEqual([tab["address"] for tab in self.tabs()], addresses)
            self.assertEqual({tab["group"] for tab in self.tabs()}, {file})
            lines = self.ctl("list").splitlines()
            self.assertEqual(lines[0].split("\t")[1:], ["", "One", addresses[0], file])
            numbers = [str(tab["number"]) for tab in self.tabs()]
            saved = os.path.join(self.home, "saved.tvg")
            self.ctl("save-group", saved)
            with open(saved, newline="") as text:
                self.assertEqual(text.read().split("\r\n")[1:-1], [f"url{n}={a}" for n, a in enumerate(addresses, 1)])
            self.assertIn("There is such a file already", self.complaint("save-group", saved))
            self.assertEqual(self.ctl("text", numbers[0]), "One\n")
            self.assertIn("<h1>Two</h1>", self.ctl("html", numbers[1]))
            pdf, picture = os.path.join(self.home, "one.pdf"), os.path.join(self.home, "two.png")
            self.ctl("pdf", numbers[0], pdf)
            read = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True)
            self.assertIn("One", read.stdout)
            self.ctl("screenshot", numbers[1], picture)
            colours = subprocess.run(["identify", "-format", "%k", picture], capture_output=True, text=True, check=True)
            self.assertGreater(int(colours.stdout), 2, "the page is not painted")
            with open(picture, "rb") as image:
                self.assertEqual(image.read(8), b"\x89PNG\r\n\x1a\n")
            self.assertEqual(self.strip(), ["One", "[Two]", "Three"])
            book = os.path.join(self.home, "all.pdf")
            self.ctl("pdf", "all", book)
            outline = subprocess.run(["qpdf", "--json", "--json-key=outlines", book], capture_output=True, check=True)
            self.assertEqual([each["title"] for each in json.loads(outline.stdout)["outlines"]], ["One", "Two", "Three"])
            checked = json.loads(self.ctl("check-group", saved, "--json"))
            self.assertEqual([(line["address"], line["health"]) for line in checked], [(each, "fine") for each in addresses])
            self.ctl("activate", numbers[2])
            self.ctl("close", numbers[0], numbers[1])
            self.assertEqual(self.strip(), ["[Three]"])
            self.ctl("reload", "all", "--wait")
            self.assertEqual(self.ctl("search", "three").split("\t")[0], numbers[2])
            self.assertEqual(self.ctl("search", "nowhere"), "")
            self.ctl("run-command", "mnuNewBlank")
            self.ctl("wait-idle")
            self.ctl("quit")
            self.assertIn("does not run", self.complaint("list", code=3))


class Opening(Scripted):
    def test_addresses_open_where_nothing_runs_and_where_something_does(self):
        with desk.PageServer(hosts=2) as pages:
            self.ctl("open", pages.address("One"), "--wait")
            self.assertEqual(self.strip(), ["[One]"])
            self.ctl("open", pages.address("Two"), pages.address("Three"), "--behind", "--wait")
            self.assertEqual(self.strip(), ["[One]", "Two", "Three"])
            # One that nothing answers has failed, which is loaded enough.
            self.ctl("open", "http://127.0.0.9:1/", "--wait")
            self.assertEqual(len(self.tabs()), 4)

    def test_two_groups_that_are_clicked_at_once_open_as_groups(self):
        with desk.PageServer(hosts=2) as pages:
            first = self.group("A.tvg", [pages.address("One")])
            second = self.group("B.tvg", [pages.address("Two", 2)])
            environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
            starts = [
                subprocess.Popen([CTL, "open-group", file], env=environment, stdin=subprocess.DEVNULL)
                for file in (first, second)
            ]
            self.assertEqual([each.wait() for each in starts], [0, 0])
            self.ctl("wait-idle")
            titles = {tab["title"] for tab in self.tabs()}
            self.assertEqual(titles - {"about:blank"}, {"One", "Two"})

    def test_a_group_that_takes_over_a_tab_that_still_loads_is_waited_for(self):
        environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
        with desk.PageServer(hosts=2, answers=0) as pages:
            self.group("G.tvg", [pages.address("One"), pages.address("Two", 2)])
            self.ctl("open", pages.address("Before", 2))
            desk.wait_until(lambda: "127.0.0.2/Before" in pages.requested(), what=pages.requested)
            opening = subprocess.Popen(
                [CTL, "open-group", "G", "--close-others", "--wait"], env=environment, stdin=subprocess.DEVNULL)
            try:
                desk.wait_until(lambda: {"127.0.0.1/One", "127.0.0.2/Two"} <= set(pages.requested()), what=pages.requested)
                for _ in range(5):
                    self.ctl("list")
                self.assertIsNone(opening.poll(), "nothing has loaded yet")
                pages.answer_all()
                self.assertEqual(opening.wait(), 0)
                self.assertEqual(self.strip(), ["One", "[Two]"])
            finally:
                opening.kill()
                opening.wait()

    def test_waiting_ends_with_the_time_that_is_given(self):
        with desk.PageServer(answers=0) as pages:
            self.ctl("open", pages.address("Slow"))
            self.assertIn("in time", self.complaint("wait-idle", "--timeout", "1", code=4))
            pages.answer_all()
            self.ctl("wait-idle")
            self.assertEqual(self.strip(), ["[Slow]"])

    def test_what_cannot_be_is_refused_with_words(self):
        self.assertIn("does not run", self.complaint("list", code=3))
        self.assertIn("does not run", self.complaint("quit", code=3))
        self.assertIn("no such command", self.complaint("fly", code=2))
        self.assertIn("no such file", self.complaint("open-group", "/none.tvg"))
        self.ctl("open", "about:blank")
        self.assertIn("no TessaGroup of that name", self.complaint("open-group", "None"))
        self.assertIn("no page", self.complaint("open", "javascript:alert(1)"))
        self.assertIn("There is no tab 99", self.complaint("text", "99"))
        self.assertIn("no such command", self.complaint("run-command", "mnuNothing"))
        (number,) = [str(tab["number"]) for tab in self.tabs()]
        self.assertIn("could not be written", self.complaint("pdf", number, "/nowhere/at/all.pdf"))

    def test_a_private_tab_says_nothing(self):
        with desk.PageServer() as pages:
            self.ctl("open", pages.address("One"), "--wait")
            self.ctl("run-command", "xtrPrivateTab")
            desk.wait_until(lambda: len(self.tabs()) == 2)
            private = next(tab for tab in self.tabs() if "private" in tab["state"])
            self.assertEqual((private["title"], private["address"]), ("", ""))
            for command in (["text"], ["html"], ["pdf", "x.pdf"], ["screenshot", "x.png"]):
                words = [command[0], str(private["number"]), *command[1:]]
                self.assertIn("private", self.complaint(*words))

    def test_another_home_is_another_program(self):
        self.ctl("open", "about:blank")
        other = desk.state_folder()
        self.assertNotEqual(self.ctl("bus-name"), self.ctl("bus-name", home=other))
        self.assertIn("does not run", self.complaint("--instance", other, "list", code=3))
        self.assertEqual(len(json.loads(self.ctl("--instance", self.home, "list", "--json", home=other))), 1)


class Completing(Scripted):
    def completed(self, *words):
        """What bash makes of these words, of which the last is being typed."""
        script = 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tessaviewctl; printf "%s\\n" "${COMPREPLY[@]}"'
        command = ["bash", "--norc", "-c", script, "bash", COMPLETION, "tessaviewctl", *words]
        path = os.path.dirname(CTL) + os.pathsep + os.environ["PATH"]
        environment = dict(os.environ, PATH=path, TESSAVIEW_HOME=desk.state_folder())
        return subprocess.run(command, env=environment, capture_output=True, text=True, check=True).stdout.split()

    def test_the_tabs_are_those_of_the_instance_that_is_meant(self):
        with desk.Program(PROGRAM, home=self.home):
            numbers = [line.split("\t")[0] for line in desk.wait_until(lambda: self.ctl("list", code=None)).splitlines()]
            self.assertEqual(self.completed("--instance", self.home, "text", ""), numbers)
            self.assertEqual(self.completed("--instance", self.home, "pdf", ""), ["all", *numbers])
            self.assertEqual(self.completed("text", ""), [])
        self.assertEqual(self.completed("--instance", "list", "save-g"), ["save-group"])


class Instances(Scripted):
    def test_of_several_instances_the_first_is_driven_and_then_the_next(self):
        with open(os.path.join(self.home, "settings.ini"), "w", encoding="ascii") as settings:
            settings.write("[General]\nAllowMultipleInstances=true\nRememberLastSites=false\n")
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home):
            desk.wait_until(lambda: self.ctl("list", code=None))
            with desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second:
                second.wait_strip(["[Second]"])
                desk.wait_until(lambda: self.strip() == ["[First]"], what=self.strip)
                self.ctl("quit")
                desk.wait_until(lambda: self.strip() == ["[Second]"], what=self.strip)


class Pictures(Scripted):
    def test_a_page_of_one_colour_is_taken_as_it_is(self):
        picture = os.path.join(self.home, "picture.png")
        with check_server.Server() as server:
            for path, colour in (("/teal", "#008080"), ("/plain", "#FFFFFF")):
                self.ctl("open", server.address(path), "--wait")
                number = next(str(tab["number"]) for tab in self.tabs() if tab["address"] == server.address(path))
                self.ctl("screenshot", number, picture)
                point = "%k %[hex:p{9,9}]"
                told = subprocess.run(["identify", "-format", point, picture], capture_output=True, text=True, check=True)
                self.assertEqual(told.stdout[:8], f"1 {colour[1:]}")


class Searching(Scripted):
    def hits(self):
        found = json.loads(self.ctl("search", "brown fox", "--json"))
        return [(hit["number"], hit["title"], hit["state"]) for hit in found]

    def test_what_pages_said_is_found_while_they_are_open_and_afterwards(self):
        with check_server.Server() as server:
            self.ctl("open", server.address("/story"), "--wait")
            (story,) = self.tabs()
            # It is read at once for who searches, though else only when it rests.
            self.assertEqual(self.hits(), [(story["number"], "Story", ["front"])])
            self.ctl("open", "about:blank", "--wait")
            self.assertEqual(self.hits(), [(story["number"], "Story", [])])
            self.ctl("close", str(story["number"]))
            desk.wait_until(lambda: self.hits() == [(0, "Story", ["history"])], what=self.hits)


class TakenAlong(Scripted):
    def test_all_pages_become_one_pdf_with_an_outline(self):
        with desk.PageServer(hosts=2) as pages:
            self.ctl("open", pages.address("One"), pages.address("Two", 2), "--wait")
            self.ctl("run-command", "xtrPrivateTab")
            file = os.path.join(self.home, "all.pdf")
            self.ctl("pdf", "all", file)
            read = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True)
            first, second = read.stdout.split("\f")[:2]
            self.assertIn("One", first)
            self.assertIn(pages.address("One"), first)
            self.assertIn("1/2", first)
            self.assertIn(pages.address("Two", 2), second)
            self.assertIn("2/2", second)
            outline = subprocess.run(["qpdf", "--json", "--json-key=outlines", file], capture_output=True, check=True)
            self.assertEqual(
                [(each["title"], each["destpageposfrom1"]) for each in json.loads(outline.stdout)["outlines"]],
                [("One", 1), ("Two", 2)],
            )
            subprocess.run(["qpdf", "--check", file], capture_output=True, check=True)
            self.assertIn("could not be written", self.complaint("pdf", "all", "/nowhere/at/all.pdf"))
            self.assertEqual([each for each in os.listdir(self.home) if ".part" in each], [])

    def test_all_pages_are_printed(self):
        with desk.PageServer(hosts=2) as pages, desk.Program(PROGRAM, home=self.home) as program:
            desk.wait_until(lambda: self.ctl("list", code=None))
            self.ctl("open", pages.address("One"), pages.address("Two", 2), "--wait")
            self.ctl("run-command", "xtrGroupPrint")
            read = self.printed(program)
            for words in ("One", pages.address("One"), "Two", pages.address("Two", 2)):
                self.assertIn(words, read)

    def test_a_group_that_is_not_open_is_printed_from_its_entry(self):
        with desk.PageServer(hosts=2) as pages:
            addresses = [pages.address("One"), pages.address("Two", 2)]
            self.group("News.tvg", addresses)
            with desk.Program(PROGRAM, "about:blank", home=self.home) as program:
                program.wait_strip(["[about:blank]"])
                program.wait_menu(lambda: program.keys("alt+t"))
                program.menu_of("News", "p")
                first, second = self.printed(program).split("\f")[:2]
                for page, words in ((first, ("One", addresses[0], "1/2")), (second, ("Two", addresses[1], "2/2"))):
                    for each in words:
                        self.assertIn(each, page)
                self.assertEqual(program.strip(), ["[about:blank]"])

    def test_all_pages_go_to_the_printer_as_one_document(self):
        with print_server.PrintServer(self.home) as printer, desk.PageServer(hosts=2) as pages:
            with desk.Program(PROGRAM, home=self.home) as program:
                desk.wait_until(lambda: self.ctl("list", code=None))
                self.ctl("open", pages.address("One"), pages.address("Two", 2), "--wait")
                self.ctl("run-command", "xtrGroupPrint")
                program.find("dialog", "Print")
                program.find("combo box", print_server.NAME)
                desk.xdotool("search", "--sync", "--onlyvisible", "--name", "^Print$", "windowactivate", "--sync")
                desk.xdotool("key", "Return")
                desk.wait_until(lambda: os.path.exists(printer.paper()), what="nothing came to the printer")
                desk.wait_until(lambda: "All pages have been printed." in (program.status() or ""), what=program.status)
                arguments = printer.arguments()
                desk.wait_until(lambda: not os.path.exists(arguments[-1]), what="what was printed is left behind")
            self.assertEqual(arguments[:2], ["-d", print_server.NAME])
            self.assertIn("TessaView", arguments)
            read = subprocess.run(["pdftotext", "-layout", printer.paper(), "-"], capture_output=True, text=True, check=True)
            for words in ("One", pages.address("One"), "Two", pages.address("Two", 2), "3/3"):
                self.assertIn(words, read.stdout)

    def printed(self, program):
        """Has the dialog that comes up print into a file; what that says."""
        program.find("dialog", "Print")
        desk.xdotool("search", "--sync", "--onlyvisible", "--name", "^Print$", "windowactivate", "--sync")
        desk.xdotool("key", "alt+f")
        file = os.path.join(self.home, "printed.pdf")
        program.accept_name("Print", file)
        # The dialog has tried whether it may write there.
        desk.wait_until(lambda: os.path.exists(file) and os.path.getsize(file) > 0, what="nothing was printed")
        return subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True).stdout

    def test_pages_that_sleep_are_woken_and_sleep_again(self):
        with desk.PageServer(hosts=3) as pages:
            titles = ("One", "Two", "Three")
            addresses = [pages.address(title, host) for host, title in enumerate(titles, 1)]
            file = self.group("Asleep.tvg", addresses)
            with open(file, "a", newline="") as group:
                group.write("".join(["[TessaView]\r\n", *(f"page{n}=asleep {a}\r\n" for n, a in enumerate(addresses[1:], 1))]))
            self.ctl("open-group", "Asleep", "--wait")
            self.assertEqual([tab["state"] for tab in self.tabs() if tab["address"] in addresses[1:]], [["waiting"]] * 2)
            target = os.path.join(self.home, "all.pdf")
            self.ctl("pdf", "all", target)
            read = subprocess.run(["pdftotext", "-layout", target, "-"], capture_output=True, text=True, check=True)
            for title in titles:
                self.assertIn(title, read.stdout)
            self.assertEqual([tab["state"] for tab in self.tabs() if tab["address"] in addresses[1:]], [["asleep"]] * 2)
            # Those that sleep now are woken again.
            self.ctl("keep-offline", os.path.join(self.home, "kept.tvg"))
            self.assertEqual(len(os.listdir(os.path.join(self.home, "kept"))), len(self.tabs()))
            number = next(str(tab["number"]) for tab in self.tabs() if tab["title"] == "Two")
            self.assertEqual(self.ctl("text", number), "Two\n")

    def test_pictures_and_styles_are_kept_too(self):
        kept = os.path.join(self.home, "kept.tvg")
        with check_server.Server() as server:
            self.ctl("open", server.address("/pictured"), "--wait")
            self.ctl("keep-offline", kept)
        with open(os.path.join(self.home, "kept", "001 Pictured.mhtml"), encoding="utf-8") as page:
            said = page.read()
        for part in ("/pictured", "/picture.png", "/style.css"):
            self.assertIn(f"Content-Location: {server.address(part)}\n", said.replace("\r\n", "\n"))

    def test_tabs_that_close_meanwhile_hold_nothing_up(self):
        with desk.PageServer(hosts=3) as pages:
            titles = [f"Page {number}" for number in range(1, 9)]
            for command in ("pdf", "keep-offline"):
                self.ctl("open", *(pages.address(title, 1 + at % 3) for at, title in enumerate(titles)), "--wait")
                numbers = [str(tab["number"]) for tab in self.tabs()]
                file = os.path.join(self.home, "all.pdf" if command == "pdf" else "all.tvg")
                words = ["pdf", "all", file] if command == "pdf" else ["keep-offline", file]
                environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
                taking = subprocess.Popen([CTL, *words], env=environment, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
                try:
                    for number in numbers[1:]:
                        self.ctl("close", number)
                    self.assertIn(taking.wait(desk.PATIENCE), (0, 1), command)
                finally:
                    taking.kill()
                    taking.wait()
                    taking.stderr.close()
                self.assertTrue(os.path.exists(file), command)

    @unittest.skipUnless(os.geteuid() == 0, "only root can mount a small disk of the test's own")
    def test_a_disk_that_fills_up_in_the_middle(self):
        small = os.path.join(self.home, "small")
        os.mkdir(small)
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", small], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", small], check=True)
        with check_server.Server() as server:
            self.ctl("open", *(server.address(f"/big?{number}") for number in range(5)), "--wait")
            words = self.complaint("keep-offline", os.path.join(small, "kept.tvg"))
            kept = os.listdir(os.path.join(small, "kept")) if "kept" in os.listdir(small) else []
            if kept:
                # Those that found room are whole, and the group opens no others.
                self.assertEqual(words.count("left out: "), 5 - len(kept), words)
                for each in kept:
                    self.assertGreater(os.path.getsize(os.path.join(small, "kept", each)), 300_000)
                with open(os.path.join(small, "kept.tvg"), newline="") as group:
                    self.assertEqual(group.read().count(".mhtml"), len(kept))
            else:
                self.assertEqual(os.listdir(small), [])
            old = os.path.join(small, "all.pdf")
            # Of these it would be a long one.
            self.ctl("open-group", self.group("Story.tvg", [server.address("/story")]), "--close-others", "--wait")
            with open(old, "wb") as file:
                file.write(b"old")
            self.fill(small)
            self.assertIn("could not be written", self.complaint("pdf", "all", old))
            with open(old, "rb") as file:
                self.assertEqual(file.read(), b"old")
            self.assertEqual([each for each in os.listdir(small) if ".part" in each], [])

    def test_files_that_find_no_room_are_left_out_and_old_ones_stay(self):
        # Who writes more than he may is told so, and not ended: Python has it so, and what it starts gets it.
        environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
        command = [CTL, "open", "about:blank", "--wait"]
        subprocess.run(command, env=environment, check=True, stdin=subprocess.DEVNULL, restore_signals=False)
        kept, paper = os.path.join(self.home, "kept.tvg"), os.path.join(self.home, "all.pdf")
        with check_server.Server() as server:
            story, teal, big = [server.address(path) for path in ("/story", "/teal", "/noises")]
            self.group("Big.tvg", [server.address("/noise?1"), server.address("/noise?2")])
            self.group("Mixed.tvg", [story, big, teal])
            with open(paper, "wb") as file:
                file.write(b"old")
            program = self.number_of_program()
            # Each page has room as a PDF, and both together have not.
            self.limit_files([program])
            self.assertIn("could not be written", self.complaint("pdf-group", "Big", paper))
            with open(paper, "rb") as file:
                self.assertEqual(file.read(), b"old")
            self.assertEqual([each for each in os.listdir(self.home) if ".part" in each], [])
            # The engine itself writes the files that are kept.
            self.limit_files(desk.with_children(program))
            words = self.complaint("keep-group", "Mixed", kept)
            self.assertEqual(words, f"tessaviewctl: left out: {big}\n")
            names = ["001 Story.mhtml", "002 Teal.mhtml"]
            self.assertEqual(sorted(os.listdir(kept.removesuffix(".tvg"))), names)
            with open(kept, newline="") as group:
                self.assertEqual(re.findall(r"=(.*)\r\n", group.read()), [f"kept/{name}" for name in names])
            self.assertEqual(self.strip(), ["[about:blank]"])

    def number_of_program(self):
        """The number of the process that the bus knows."""
        said = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
             "org.freedesktop.DBus.GetConnectionUnixProcessID", "string:" + self.ctl("bus-name").strip()],
            capture_output=True, text=True, check=True)
        return int(said.stdout.split()[1])

    def limit_files(self, processes):
        """From now on no file of these gets longer than that."""
        for process in processes:
            with contextlib.suppress(ProcessLookupError):
                resource.prlimit(process, resource.RLIMIT_FSIZE, (LONGEST_FILE, resource.RLIM_INFINITY))

    def fill(self, folder):
        """Takes what room a disk has."""
        with open(os.path.join(folder, "filler"), "wb", buffering=0) as filler:
            try:
                while True:
                    filler.write(bytes(4096))
            except OSError as error:
                self.assertEqual(error.errno, errno.ENOSPC)

    def test_pages_that_were_kept_open_without_a_network(self):
        file = os.path.join(self.home, "Kept 100% #1.tvg")
        with desk.PageServer(hosts=2) as pages:
            self.ctl("open", pages.address("One"), pages.address("Two", 2), "--wait")
            self.ctl("keep-offline", file)
            self.assertIn("already", self.complaint("keep-offline", file))
        folder = file.removesuffix(".tvg")
        self.assertEqual(sorted(os.listdir(folder)), ["001 One.mhtml", "002 Two.mhtml"])
        self.ctl("quit")
        # It opens wherever it is taken.
        other = desk.state_folder()
        for each in (file, folder):
            os.rename(each, os.path.join(other, os.path.basename(each)))
        self.ctl("open-group", os.path.join(other, os.path.basename(file)), "--wait")
        self.assertEqual(self.strip(), ["One", "[Two]"])
        self.assertEqual([self.ctl("text", str(tab["number"])) for tab in self.tabs()], ["One\n", "Two\n"])


class Unopened(Scripted):
    """Groups whose pages no tab shows."""

    def setUp(self):
        super().setUp()
        self.ctl("open", "about:blank", "--wait")

    def test_a_group_becomes_one_pdf(self):
        with desk.PageServer(hosts=2) as pages:
            addresses = [pages.address("One"), pages.address("Two", 2)]
            self.group("Two.tvg", [addresses[0], "http://127.0.0.9:1/", "javascript:alert(1)", addresses[1]])
            file = os.path.join(self.home, "two.pdf")
            words = self.complaint("pdf-group", "Two", file)
            for each in ("left out: http://127.0.0.9:1/\n", "left out: javascript:alert(1)\n"):
                self.assertIn(each, words)
            read = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True)
            first, second = read.stdout.split("\f")[:2]
            for words, page in ((("One", addresses[0], "1/2"), first), (("Two", addresses[1], "2/2"), second)):
                for each in words:
                    self.assertIn(each, page)
            outline = subprocess.run(["qpdf", "--json", "--json-key=outlines", file], capture_output=True, check=True)
            self.assertEqual([each["title"] for each in json.loads(outline.stdout)["outlines"]], ["One", "Two"])
            self.assertEqual(self.strip(), ["[about:blank]"])
            self.assertIn("could not be read", self.complaint("pdf-group", "None", file))

    def test_a_group_is_kept_and_kept_again_without_a_network(self):
        kept, again = (os.path.join(self.home, name) for name in ("kept.tvg", "again.tvg"))
        with desk.PageServer(hosts=2) as pages:
            # Titles are names with slashes, and two of them are alike.
            self.group("G.tvg", [pages.address("a/b"), pages.address("a/b", 2)])
            self.ctl("keep-group", "G", kept)
        self.assertEqual(sorted(os.listdir(kept.removesuffix(".tvg"))), ["001 a b.mhtml", "002 a b.mhtml"])
        self.ctl("keep-group", kept, again)
        self.assertEqual(sorted(os.listdir(again.removesuffix(".tvg"))), ["001 a b.mhtml", "002 a b.mhtml"])
        self.ctl("open-group", again, "--wait")
        self.assertEqual(self.strip(), ["about:blank", "a/b", "[a/b]"])

    def test_pages_that_want_somebody_are_left_out(self):
        with check_server.Server() as server:
            wanting = [server.address(path) for path in ("/asks", "/file", "/login")]
            self.group("G.tvg", [*wanting, server.address("/story")])
            words = self.complaint("keep-group", "G", os.path.join(self.home, "kept.tvg"))
            self.assertEqual(words.count("left out: "), len(wanting), words)
            for each in wanting:
                self.assertIn(f"left out: {each}\n", words)
            self.assertEqual(os.listdir(os.path.join(self.home, "kept")), ["001 Story.mhtml"])
            self.assertEqual(os.listdir(os.path.join(os.path.dirname(self.home), os.pardir, "downloads")), [])
            self.assertEqual(self.strip(), ["[about:blank]"])

    def test_two_groups_at_once(self):
        with desk.PageServer(hosts=4) as pages:
            environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
            files = []
            writing = []
            for name in ("A", "B"):
                self.group(f"{name}.tvg", [pages.address(f"{name}{number}", number) for number in range(1, 5)])
                files.append(os.path.join(self.home, f"{name}.pdf"))
                writing.append(subprocess.Popen([CTL, "pdf-group", name, files[-1]], env=environment, stdin=subprocess.DEVNULL))
            self.assertEqual([each.wait() for each in writing], [0, 0])
            for name, file in zip("AB", files):
                read = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True)
                for number in range(1, 5):
                    self.assertIn(f"{name}{number}", read.stdout)

    def test_the_program_ends_while_a_group_is_written(self):
        with desk.PageServer(answers=1) as pages:
            self.group("G.tvg", [pages.address("One"), pages.address("Held")])
            environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
            file = os.path.join(self.home, "kept.tvg")
            keeping = subprocess.Popen([CTL, "keep-group", "G", file], env=environment, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
            try:
                desk.wait_until(lambda: "127.0.0.1/Held" in pages.requested(), what=pages.requested)
                self.ctl("quit")
                self.assertIn(b"ended without an answer", keeping.communicate()[1])
                self.assertEqual(keeping.returncode, 1)
            finally:
                keeping.kill()
                keeping.wait()
            self.assertFalse(os.path.exists(file))


class Checking(Scripted):
    def test_how_it_stands_with_each_address(self):
        with check_server.Server() as server:
            addresses = [
                server.address("/fine"), server.address("/moved"), server.address("/for-now"), server.address("/gone"),
                server.address("/missing"), server.address("/forbidden"), server.address("/broken"),
                server.address("/loop"), server.address("/moved-to-gone"), "http://127.0.0.9:1/", "mailto:a@b.example",
                "http://no.such.host.invalid/", os.path.join(self.home, "none.html"),
            ]
            self.group("Old.tvg", addresses)
            self.ctl("open", "about:blank", "--wait")
            lines = json.loads(self.ctl("check-group", "Old", "--json"))
            self.assertEqual([line["address"] for line in lines], addresses)
            self.assertEqual(
                [line["health"] for line in lines],
                ["fine", "moved", "fine", "gone", "gone", "refused", "failed", "failed", "gone", "refused",
                 "unchecked", "gone", "no-file"],
            )
            self.assertEqual(lines[1]["moved"], server.address("/fine"))
            self.assertEqual(server.cookies, set(), "none is sent")
            self.assertIn(f"moved\t{addresses[1]}\t{addresses[0]}\n", self.ctl("check-group", "Old"))
            self.assertEqual(self.strip(), ["[about:blank]"])
            self.assertIn("could not be read", self.complaint("check-group", "None"))


    def test_a_group_that_vanishes_while_it_is_checked_is_told_as_it_was(self):
        with check_server.Server() as server:
            file = self.group("Old.tvg", [server.address("/held"), server.address("/gone")])
            self.ctl("open", "about:blank")
            environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home)
            check = subprocess.Popen([CTL, "check-group", file, "--json"], env=environment, stdout=subprocess.PIPE)
            try:
                self.assertTrue(server.held.wait(60), "the server was never asked")
                os.unlink(file)
                server.release.set()
                lines = json.loads(check.communicate()[0])
            finally:
                check.kill()
            self.assertEqual([line["health"] for line in lines], ["fine", "gone"])
            self.assertFalse(os.path.exists(file))


class Rush:
    """A caller who never stops: thousands of calls a second. Use it in a `with`."""

    def __init__(self, name):
        file = os.path.join(os.path.dirname(os.path.abspath(__file__)), "rush.py")
        self.process = subprocess.Popen(["/usr/bin/python3", file, name], stdout=subprocess.PIPE, text=True)
        self.taken = self.a_second = 0  # calls
        self.process.stdout.readline()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.taken, self.a_second = map(int, line.split())

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.process.kill()
        self.process.wait()


class Rushing(Scripted):
    def test_a_caller_who_never_stops_leaves_the_window_usable(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("One"), home=self.home) as program:
            program.wait_strip(["[One]"])
            desk.wait_until(lambda: self.ctl("list", code=None))
            with Rush(self.ctl("bus-name").strip()) as rush, answering.Asking(program) as asking:
                # Its user goes on working until that many calls have come meanwhile.
                begun, number = rush.taken, 0
                while rush.taken < begun + 50_000 or number == 0:
                    self.work(program, pages, number)
                    number += 1
                self.assertIn("One", self.ctl("list"))
                self.assertIsNone(rush.process.poll(), "it never stops")
                print(f"{rush.a_second} calls a second, {number} rounds of work, {rush.taken - begun} calls")
            print(asking.told())

    def work(self, program, pages, number):
        """Opens a tab, goes to a page, looks into a menu and closes the tab again."""
        title = f"Page{number}"
        program.keys("ctrl+t")
        program.wait_strip(["One", "[about:blank]"])
        program.keys("ctrl+l")
        desk.wait_until(lambda: desk.focused_box(program))
        desk.xdotool("type", "--delay", "0", pages.address(title))
        desk.xdotool("key", "Return")
        program.wait_strip(["One", f"[{title}]"])
        program.keys("alt+t")
        program.find("menu item", "Organize TessaGroups...")
        desk.xdotool("key", "Escape")
        program.keys("ctrl+w")
        program.wait_strip(["[One]"])


if __name__ == "__main__":
    desk.main()
