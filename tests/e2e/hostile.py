"""What tests of pages that mean no good share: each such page lives in a tab beside an honest one. The window answers all
the while, the honest page comes, and the tab of the other closes. How long the answers take is measured and told."""

import os
import subprocess
import threading
import time
import unittest

import desk
from answering import Asking

PROGRAM = desk.program_file()
ANSWERS = int(os.environ.get("HOSTILE_ANSWERS", "1"))
SITE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "pages", "hostile")
HONEST = "Honest"

# Else the page that eats memory takes minutes, and all there is.
os.environ["QTWEBENGINE_CHROMIUM_FLAGS"] = "--js-flags=--max-old-space-size=100"


class Site(desk.PageServer):
    """The pages of the site under their file names without ending, and what takes a server of its own: /login is never
    content with a name and password, /endless never ends, /stall never answers and /late.bin only when it is told to.
    Any other address is an honest page."""

    def take(self, request):
        """What comes from pages that mean no good is not noted."""

    def answer(self, request):
        name = request.path.strip("/").partition("?")[0]
        file = os.path.join(SITE, name + ".html")
        if name == "login":
            self.logins += 1
            request.send(b"<title>No</title>", status=401, headers=[("WWW-Authenticate", 'Basic realm="Never"')])
        elif name == "storm.bin":
            request.send(b"storm", headers=[("Content-Disposition", "attachment")])
        elif name == "endless":
            self.never_end(request)
        elif name == "granted":
            self.granted.append(request.path)
            request.send(b"")
        elif name == "stall":
            self.closed.wait()
        elif name == "late.bin":
            self.waiting += 1
            self.late.wait()
            request.send(b"late", headers=[("Content-Disposition", "attachment")])
        elif name and os.path.exists(file):
            with open(file, "rb") as page:
                request.send(page.read())
        else:
            super().answer(request)

    def never_end(self, request):
        request.send_response(200)
        request.send_header("Content-Type", desk.HTML)
        request.end_headers()
        request.wfile.write(b"<!doctype html><title>Endless</title>")
        while not self.closed.wait(0.1):
            request.wfile.write(b"<p>and on it goes" + b" and on" * 100)

    def __init__(self):
        self.closed = threading.Event()
        self.late = threading.Event()
        self.logins = self.waiting = 0
        self.granted = []
        super().__init__(hosts=2)

    def __exit__(self, *error):
        self.closed.set()
        self.late.set()
        super().__exit__(*error)


class HostileTest(unittest.TestCase):
    def setUp(self):
        self.site = Site()
        self.site.__enter__()
        self.addCleanup(self.site.__exit__)
        self.home = desk.state_folder()

    def start(self, address):
        return desk.Program(PROGRAM, address, home=self.home)

    def press(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    def windows(self, program):
        """How many windows of the program are on the screen. A screen reader would read through the pages first."""
        return len(desk.xdotool("search", "--onlyvisible", "--pid", str(program.process.pid)).split())

    def assert_answers(self, program):
        """A menu opens and closes. How long it takes to open, with what it takes to press a key and to look."""
        program.focus()
        before = self.windows(program)
        started = time.monotonic()
        self.press("alt+f")
        desk.wait_until(lambda: self.windows(program) > before, what="the menu does not open")
        self.menus.append(time.monotonic() - started)
        self.press("Escape")
        desk.wait_until(lambda: self.windows(program) == before, what="the menu stays open")

    def assert_honest_comes(self, program):
        """A page that is handed over comes in front, whatever the page beside it does."""
        with desk.Program(PROGRAM, self.site.address(HONEST, host=2), home=self.home) as second:
            self.assertEqual(second.wait_end(), 0)
        desk.wait_until(lambda: f"[{HONEST}]" in program.strip(), what=lambda: f"strip is {program.strip()}")

    def assert_closes(self, program):
        """All tabs but the honest one close. A page may ask to stay once, and is left."""

        def front(tabs):
            return next((index for index, caption in enumerate(tabs) if caption.startswith("[")), None)

        def left(count):
            leave = program.find_now("push button", "Leave")
            if leave:
                # Once: a button that is pressed again within 100 ms waits again, for ever when the machine is fast.
                desk.press_node(leave)
                desk.wait_until(lambda: not program.find_now("push button", "Leave"), what="the question stays")
            return len(program.strip()) != count

        # Captions may change at any time: only another tab in front, or another number of tabs, is what the keys did.
        while len(tabs := program.strip()) > 1:
            shown = front(tabs)
            if tabs[shown] == f"[{HONEST}]":
                program.keys("ctrl+shift+Tab")
                desk.wait_until(lambda: front(program.strip()) != shown, what=lambda: f"strip is {program.strip()}")
            else:
                program.keys("ctrl+w")
                desk.wait_until(lambda: left(len(tabs)), what=lambda: f"strip stays {program.strip()}")
        program.wait_strip([f"[{HONEST}]"])

    def assert_ends(self, program):
        program.process.send_signal(desk.signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0, program.errors())

    def live_beside(self, name, loaded, meanwhile=lambda program: None, gone=lambda: None, address=None):
        """Lets the page come, does something with it `meanwhile`, and something else once it has `gone`."""
        self.menus = []
        with self.start(address or self.site.address(name)) as program:
            desk.wait_until(lambda: loaded(program), what=lambda: f"{name} did not come: {program.what_is_seen()}")
            with Asking(program) as self.asking:
                meanwhile(program)
                self.assert_answers(program)
                desk.wait_until(lambda: len(self.asking.milliseconds) >= ANSWERS, what="the window does not answer",
                                seconds=desk.PATIENCE + ANSWERS)
                self.assert_honest_comes(program)
                self.assert_closes(program)
                gone()
                self.assert_answers(program)
            menus = ", ".join(f"{seconds * 1000:.0f}" for seconds in self.menus)
            print(f"{name}: {self.asking.told()}; a menu after {menus} ms", flush=True)
            self.assert_ends(program)

    def click_page(self, program):
        point = ("mousemove", "--window", program.window_id(), "400", "400")
        subprocess.run(["xdotool", *point, "click", "1"], check=True)

    def click_until(self, program, title):
        """Clicks the page until it says that it has been. One that has not been painted yet takes no click."""

        def clicked():
            self.click_page(program)
            return self.shows(title)(program)

        program.focus()
        desk.wait_until(clicked, what=lambda: f"a click does nothing: {program.strip()}")

    def shows(self, title):
        return lambda program: any(title in caption for caption in program.strip())
