"""What comes back at the next start: tabs, the window's place, and what a session that ended badly had open."""

import configparser
import os
import pathlib
import re
import shutil
import signal
import stat
import subprocess
import unittest

import desk
import pyatspi

PROGRAM = desk.program_file()
TWIPS = 15  # in a pixel
HOME_PAGE = ["[TessaView]"]


def settings_of(home):
    """The stored settings by name; without any, an empty answer."""
    stored = configparser.ConfigParser(interpolation=None)
    stored.optionxform = str
    stored.read(os.path.join(home, "settings.ini"), encoding="utf-8")
    return dict(stored["General"]) if stored.has_section("General") else {}


def store(home, **values):
    with open(os.path.join(home, "settings.ini"), "w", encoding="utf-8") as settings:
        settings.write("[General]\n" + "".join(f"{name}={value}\n" for name, value in values.items()))


def hidden(layout, band):
    """The text of a layout in which that band is not shown."""
    start = layout.index(f"[{band}]")
    return layout[:start] + layout[start:].replace("Visible=1", "Visible=0", 1)


def end(program, how=signal.SIGTERM):
    program.process.send_signal(how)
    if program.wait_end() != 0:
        raise AssertionError(f"the program ended with {program.process.returncode}: {program.errors()}")


def geometry(program):
    """The main window's width and height in pixels."""
    told = desk.xdotool("getwindowgeometry", "--shell", program.window_id())
    values = dict(line.split("=") for line in told.splitlines())
    return int(values["WIDTH"]), int(values["HEIGHT"])


def known_size(program):
    """The main window's width and height as the program itself knows them."""
    extents = program.window().queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.width, extents.height


def sockets(folder, names):
    """Those of the names that are sockets: they end with the program, and cannot be copied."""
    return [name for name in names if stat.S_ISSOCK(os.lstat(os.path.join(folder, name)).st_mode)]


class Restart(unittest.TestCase):
    left = None  # a state folder as a session of three tabs has left it, once one has

    @classmethod
    def setUpClass(cls):
        cls.pages = desk.PageServer(hosts=3)
        cls.pages.__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.pages.__exit__()

    def setUp(self):
        self.home = desk.state_folder()

    def group(self, *titles):
        file = os.path.join(self.home, "some.tvg")
        desk.write_group(file, [self.pages.address(title, host) for host, title in enumerate(titles, 1)])
        return file

    def start(self, *arguments):
        return desk.Program(PROGRAM, *arguments, home=self.home)

    def leave_three_tabs(self, how=signal.SIGTERM):
        """A session of the pages One, Two and Three, which ends with Two in front."""
        with self.start(self.pages.address("One")) as program:
            program.wait_strip(["[One]"])
            for host, title in ((2, "Two"), (3, "Three")):
                with self.start(self.pages.address(title, host)) as second:
                    self.assertEqual(second.wait_end(), 0)
                desk.wait_until(lambda: program.strip()[-1] == f"[{title}]", what=program.strip)
            program.keys("ctrl+shift+Tab")
            program.wait_strip(["One", "[Two]", "Three"])
            if how == "keys":
                program.keys("ctrl+q")
                self.assertEqual(program.wait_end(), 0)
            else:
                end(program, how)

    def take_three_tabs(self):
        """What `leave_three_tabs` leaves; made once, and copied for each test that begins with it."""
        if Restart.left is None:
            self.leave_three_tabs()
            Restart.left = self.home
            self.home = desk.state_folder()
        shutil.copytree(Restart.left, self.home, symlinks=True, ignore=sockets, dirs_exist_ok=True)

    def test_three_tabs_come_back_in_order_with_the_last_in_front(self):
        for how in (signal.SIGTERM, signal.SIGHUP, "keys"):
            with self.subTest(how=how):
                self.leave_three_tabs(how)
                with self.start() as program:
                    # Deliberate: each is opened in front of the one before, so the last of them stays there.
                    program.wait_strip(["One", "Two", "[Three]"])
                    end(program)

    def test_one_tab_does_not_come_back(self):
        with self.start(self.pages.address("One")) as program:
            program.wait_strip(["[One]"])
            end(program)
        with self.start() as program:
            program.wait_strip(HOME_PAGE)

    def test_what_is_not_to_be_remembered_does_not_come_back(self):
        self.take_three_tabs()
        store(self.home, **{**settings_of(self.home), "RememberLastSites": "false"})
        with self.start() as program:
            program.wait_strip(HOME_PAGE)

    def test_an_address_on_the_command_line_comes_alone(self):
        self.take_three_tabs()
        with self.start(self.pages.address("Other")) as program:
            program.wait_strip(["[Other]"])

    def test_a_group_on_the_command_line_comes_beside_the_session(self):
        self.take_three_tabs()
        with self.start(self.group("Garden")) as program:
            program.wait_strip(["One", "Garden", "Two", "[Three]"])

    def test_what_was_typed_is_remembered_from_start_to_start(self):
        typed = []
        # Deliberate: a history of one entry does not come back, so the first session has two.
        for titles in (("One", "Two"), ("Three",)):
            with self.start("about:blank") as program:
                program.wait_strip(["[about:blank]"])
                for title in titles:
                    program.enter(self.pages.address(title))
                    program.wait_strip([f"[{title}]"])
                    typed.insert(0, self.pages.address(title))
                end(program)
            self.assertEqual(re.findall(r'[^", ]+', settings_of(self.home)["AddressHistory"]), typed)

    def test_a_maximized_window_comes_back_maximized_and_keeps_its_own_size(self):
        place = {"WindowLeft": "1500", "WindowTop": "1200", "WindowWidth": "12000", "WindowHeight": "9000"}
        store(self.home, WindowMaximized="true", **place)
        for _ in range(2):
            with self.start(self.pages.address("One")) as program:
                window = program.window_id()
                program.wait_strip(["[One]"])
                desk.wait_until(lambda: geometry(program)[0] >= 1270, what=lambda: f"{geometry(program)}")
                self.assertEqual(program.window_id(), window, "the first page has not put up the window anew")
                end(program)
            self.assertEqual(settings_of(self.home)["WindowMaximized"], "true")

    def test_the_layout_of_the_bars_is_kept(self):
        layout = os.path.join(self.home, "user.tb")
        with self.start("about:blank") as program:
            program.wait_strip(["[about:blank]"])
            end(program)
        with open(layout, encoding="utf-8") as file:
            designed = file.read()
        # As a user leaves it who hides the toolbar "Go".
        with open(layout, "w", encoding="utf-8", newline="") as file:
            file.write(hidden(designed, "bndGo"))
        for _ in range(2):
            with self.start("about:blank") as program:
                program.find("tool bar", "File")
                self.assertIsNone(program.find_now("tool bar", "Go"))
                end(program)

    def test_a_damaged_placement_comes_back_usable(self):
        store(self.home, WindowMaximized="false", WindowLeft=-50, WindowTop=32767, WindowWidth=100, WindowHeight=100)
        with self.start("about:blank") as program:
            program.window()
            end(program)
        stored = settings_of(self.home)
        # What is stored is counted in whole pixels.
        self.assertGreaterEqual(int(stored["WindowWidth"]), 6000 // TWIPS * TWIPS)
        self.assertGreaterEqual(int(stored["WindowHeight"]), 4000 // TWIPS * TWIPS)
        # The window manager may move it down by its title bar.
        self.assertIn(int(stored["WindowTop"]), range(0, 60 * TWIPS))
        self.assertIn(int(stored["WindowLeft"]), range(0, 60 * TWIPS))

    def test_the_window_comes_back_where_and_as_large_as_it_was(self):
        with self.start("about:blank") as program:
            window = program.window_id()

            def resized():
                # A window that has just come puts itself in its place, and takes the size that it knows along.
                subprocess.run(["xdotool", "windowsize", window, "900", "600"], check=True)
                # Not what the server says: the program hears of it later.
                return known_size(program) == (900, 600)

            desk.wait_until(resized, what=lambda: f"{known_size(program)}")
            end(program)
        self.assertEqual(settings_of(self.home)["WindowWidth"], str(900 * TWIPS))
        with self.start("about:blank") as program:
            program.window()
            desk.wait_until(lambda: geometry(program) == (900, 600), what=lambda: f"{geometry(program)}")

    def test_closing_while_minimized_keeps_the_place_of_the_session_before(self):
        place = {"WindowMaximized": "false", "WindowLeft": "1500", "WindowTop": "1200", "WindowWidth": "12000",
                 "WindowHeight": "9000"}
        store(self.home, **place)
        with self.start("about:blank") as program:
            window = program.window_id()
            program.wait_strip(["[about:blank]"])
            subprocess.run(["xdotool", "windowminimize", "--sync", window], check=True)
            desk.wait_until(lambda: "Iconic" in subprocess.run(
                ["xprop", "-id", window, "WM_STATE"], capture_output=True, text=True, check=True).stdout)
            end(program)
        stored = settings_of(self.home)
        self.assertEqual({name: stored[name] for name in place}, place)

    def test_all_sessions_are_listed_and_their_pages_can_be_opened(self):
        with self.start(self.group("One", "Two")) as program:
            program.wait_strip(["about:blank", "One", "[Two]"])
            self.wait_for_journal("Two")
            program.kill()
        with self.start("about:blank") as program:
            program.press("push button", "Show All...")
            program.find("list item")
            active = lambda: desk.xdotool("getactivewindow", "getwindowname")
            desk.wait_until(lambda: active() == "Earlier Sessions", what=active)
            subprocess.run(["xdotool", "key", "Return"], check=True)
            program.wait_strip(["about:blank", "One", "[Two]"])
            # What was reopened is offered no longer.
            desk.wait_until(lambda: program.find_now("push button", "Show All...") is None)

    def wait_for_journal(self, title):
        def written():
            # The folder is made with the first session that is written down.
            sessions = pathlib.Path(self.home, "sessions").glob("*.session")
            return any(f"\nTitle={title}\n" in each.read_text(encoding="utf-8") for each in sessions)

        desk.wait_until(written, what="the session was not written down")


if __name__ == "__main__":
    desk.main()
