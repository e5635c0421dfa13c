# Tests: EndSignals
"""However the program ends, and whatever stands open over its window then, it ends in good order: what was open is
saved, and it leaves no process behind that waits for somebody."""

import os
import signal
import subprocess
import unittest

import check_server
import desk
import session_manager
from records import records_of

PROGRAM = desk.program_file()
CTL = os.path.join(os.path.dirname(PROGRAM), "tessaviewctl")
BLANK = "about:blank"
LAST_TAB = "Do you want to close the last browser tab and exit this application?"


def active_window():
    return desk.xdotool("getactivewindow", "getwindowname")


def runs(process):
    """Whether there is that process, and it is not only waited for."""
    try:
        with open(f"/proc/{process}/stat", encoding="utf-8", errors="replace") as stat:
            return stat.read().rsplit(")", 1)[1].split()[0] != "Z"
    except OSError:
        return False


class Endings(unittest.TestCase):
    def setUp(self):
        self.pages = desk.PageServer(hosts=2)
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def start(self, *titles):
        """The program in a state folder of its own, with a blank tab and a tab for each title, the last in front."""
        home = desk.state_folder()
        arguments = [BLANK]
        if titles:
            arguments = [os.path.join(home, "some.tvg")]
            desk.write_group(arguments[0], [self.pages.address(title) for title in titles])
        return desk.Program(PROGRAM, *arguments, home=home)

    def wait_started(self, program, *titles):
        program.wait_strip([BLANK, *titles[:-1], f"[{titles[-1]}]"] if titles else [f"[{BLANK}]"])

    def assert_saved(self, program, *titles):
        """It has ended well, and its settings and its session say what was open."""
        self.assertEqual(program.wait_end(), 0, program.errors())
        with open(os.path.join(program.home, "settings.ini"), encoding="utf-8") as settings:
            [sites] = [line for line in settings if line.startswith("LastSites=")]
        folder = os.path.join(program.home, "sessions")
        [name] = os.listdir(folder)
        (_, session), *pages = records_of(os.path.join(folder, name))
        self.assertEqual(session["Ended"], "1")
        for title in titles:
            self.assertIn(self.pages.address(title), sites)
            self.assertIn(("Page", {"Address": self.pages.address(title), "Title": title}), pages)

    # -- the ways out

    def test_menu_keys_window_and_signals_end_it_alike(self):
        ways = {
            "the menu": lambda program: program.keys("alt+f", "x"),
            "the keys": lambda program: program.keys("ctrl+q"),
            "the window": lambda program: program.keys("alt+F4"),
            **{sign.name: lambda program, sign=sign: program.process.send_signal(sign)
               for sign in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT)},
        }
        for name, way in ways.items():
            with self.subTest(name), self.start("One", "Two") as program:
                self.wait_started(program, "One", "Two")
                way(program)
                self.assert_saved(program, "One", "Two")

    def test_closing_the_last_tab_ends_it_when_the_user_says_so(self):
        with desk.Program(PROGRAM, self.pages.address("One"), home=desk.state_folder()) as program:
            program.wait_strip(["[One]"])
            program.keys("ctrl+w")
            program.answer(LAST_TAB, "No")
            program.wait_strip(["[One]"])
            program.keys("ctrl+w")
            program.answer(LAST_TAB, "Yes")
            self.assert_saved(program, "One")

    def test_signals_that_keep_coming_do_not_cut_its_saving_short(self):
        with self.start("One", "Two") as program:
            self.wait_started(program, "One", "Two")

            def has_ended_under_signals():
                for sign in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT) * 20:
                    program.process.send_signal(sign)
                return program.process.poll() is not None

            desk.wait_until(has_ended_under_signals)
            self.assert_saved(program, "One", "Two")

    def test_the_end_of_the_desktops_session_ends_it_like_its_own(self):
        for dialog in (False, True):
            with self.subTest(dialog=dialog), session_manager.SessionManager() as manager, self.start("One") as program:
                self.wait_started(program, "One")
                desk.wait_until(lambda: manager.saved == 1, what="it did not join the session")
                if dialog:
                    self.choose(program, "alt+o", "Settings...", "Up")
                    desk.wait_until(lambda: active_window() not in ("", desk.WINDOW_TITLE), what=program.what_is_seen)
                manager.end_session()
                self.assert_saved(program, "One")

    # -- pages that hang

    def test_a_page_that_hangs_while_it_is_printed_is_left_behind(self):
        for closes in (True, False):
            with self.subTest(closes=closes), check_server.Server() as server, self.start("One", "Two") as program:
                self.wait_started(program, "One", "Two")
                environment = dict(os.environ, TESSAVIEW_HOME=program.home)

                def ctl(*words):
                    command = [CTL, *words]
                    return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True)

                self.assertEqual(ctl("open", server.address("/hangs"), "--wait").returncode, 0)
                [number] = [line.split("\t")[0] for line in ctl("list").stdout.splitlines() if "Hangs" in line]
                file = os.path.join(program.home, "hangs.pdf")
                self.assertEqual(ctl("--timeout", "1", "pdf", number, file).returncode, 4)
                desk.wait_until(server.printed.is_set, what="it was not printed")
                # The window goes on, and the tab may close.
                if closes:
                    self.assertEqual(ctl("close", number).returncode, 0)
                    program.wait_strip([BLANK, "One", "[Two]"])
                processes = desk.with_children(program.process.pid)
                program.process.send_signal(signal.SIGTERM)
                self.assert_saved(program, "One", "Two")
                desk.wait_until(lambda: not any(map(runs, processes)), what="a process is left behind")
                self.assertFalse(os.path.exists(file))

    # -- what may stand open

    def choose(self, program, key, entry, *keys):
        """Opens a menu and chooses an entry of it by keys; a screen reader's press would wait for the dialog's end."""
        program.keys(key)
        program.find("menu item", entry)
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys, "Return"], check=True)

    def end_over(self, key, is_open, *entry):
        """Ends it when what the key opens - or, if that is a menu, an entry of it - is there."""
        with self.start("One", "Two") as program:
            self.wait_started(program, "One", "Two")
            if entry:
                self.choose(program, key, *entry)
            else:
                program.keys(key)
            desk.wait_until(lambda: is_open(program), what=lambda: f"{key} opened nothing: {program.what_is_seen()}")
            program.process.send_signal(signal.SIGTERM)
            self.assert_saved(program, "One", "Two")

    def test_a_dialog_that_is_open_does_not_hold_it_back(self):
        for key, *entry in (
            ("ctrl+o",),
            ("ctrl+p",),
            ("ctrl+d",),
            ("alt+o", "Settings...", "Up"),
            ("alt+v", "Toolbars...", "Down"),
            ("alt+t", "Organize TessaGroups...", "Down"),
        ):
            with self.subTest(key, entry=entry):
                self.end_over(key, lambda program: active_window() not in ("", desk.WINDOW_TITLE), *entry)

    def test_a_menu_that_is_open_does_not_hold_it_back(self):
        self.end_over("alt+f", lambda program: program.find_now("popup menu"))

    def test_tools_beside_the_page_do_not_hold_it_back(self):
        self.end_over("ctrl+f", lambda program: program.find_now("text", "Find on this page"))
        self.end_over("F11", lambda program: program.find_now("label", "Press F11 to leave full screen"))

    def test_a_question_to_the_user_does_not_hold_it_back(self):
        with desk.Program(PROGRAM, self.pages.address("One"), home=desk.state_folder()) as program:
            program.wait_strip(["[One]"])
            program.keys("ctrl+w")
            desk.wait_until(lambda: (program.message_now() or ("", ""))[1] == LAST_TAB)
            program.process.send_signal(signal.SIGTERM)
            self.assert_saved(program, "One")

    def test_an_address_handed_over_below_a_dialog_is_saved_too(self):
        with self.start("One", "Two") as program:
            self.wait_started(program, "One", "Two")
            self.choose(program, "alt+o", "Settings...", "Up")
            desk.wait_until(lambda: active_window() not in ("", desk.WINDOW_TITLE), what=program.what_is_seen)
            with desk.Program(PROGRAM, self.pages.address("Three", 2), home=program.home) as second:
                self.assertEqual(second.wait_end(), 0)
            program.wait_strip([BLANK, "One", "Two", "[Three]"])
            program.process.send_signal(signal.SIGTERM)
            self.assert_saved(program, "One", "Two")


if __name__ == "__main__":
    desk.main()
