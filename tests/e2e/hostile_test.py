"""Pages that mean no good, each in a tab beside an honest one: the window answers all the while, the honest page comes,
and the tab of the other closes."""

import itertools
import os
import subprocess
import threading
import unittest

import desk

PROGRAM = desk.program_file()
SITE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "pages", "hostile")
HONEST = "Honest"

# Else the page that eats memory takes minutes, and all there is.
os.environ["QTWEBENGINE_CHROMIUM_FLAGS"] = "--js-flags=--max-old-space-size=100"


class Site(desk.PageServer):
    """The pages of the site under their file names without ending, and what takes a server of its own: /login is never
    content with a name and password, /endless never ends. Any other address is an honest page."""

    def _handler(self):
        pages = self

        class Handler(super()._handler()):
            def do_GET(self):
                name = self.path.strip("/").partition("?")[0]
                file = os.path.join(SITE, name + ".html")
                if name == "login":
                    pages.logins += 1
                    self.answer(401, b"<title>No</title>", ("WWW-Authenticate", 'Basic realm="Never"'))
                elif name == "storm.bin":
                    self.answer(200, b"storm", ("Content-Disposition", "attachment"))
                elif name == "endless":
                    self.never_end()
                elif name and os.path.exists(file):
                    with open(file, "rb") as page:
                        self.answer(200, page.read())
                else:
                    super().do_GET()

            def answer(self, code, body, *headers):
                self.send_response(code)
                for header in (("Content-Type", "text/html; charset=utf-8"), ("Content-Length", str(len(body))), *headers):
                    self.send_header(*header)
                self.end_headers()
                self.wfile.write(body)

            def never_end(self):
                self.send_response(200)
                self.send_header("Content-Type", "text/html; charset=utf-8")
                self.end_headers()
                self.wfile.write(b"<!doctype html><title>Endless</title>")
                while not pages.closed.wait(0.1):
                    self.wfile.write(b"<p>and on it goes" + b" and on" * 100)

            def handle(self):
                try:
                    super().handle()
                except OSError:
                    pass  # nobody reads it any more

        return Handler

    def __init__(self):
        self.closed = threading.Event()
        self.logins = 0
        super().__init__(hosts=2)

    def __exit__(self, *error):
        self.closed.set()
        super().__exit__(*error)


class Hostile(unittest.TestCase):
    def setUp(self):
        self.site = Site()
        self.site.__enter__()
        self.addCleanup(self.site.__exit__)
        self.home = desk.state_folder()

    def start(self, name):
        return desk.Program(PROGRAM, self.site.address(name), home=self.home)

    def press(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    def windows(self, program):
        """How many windows of the program are on the screen. A screen reader would read through the pages first."""
        return len(desk.xdotool("search", "--onlyvisible", "--pid", str(program.process.pid)).split())

    def assert_answers(self, program):
        """A menu opens and closes."""
        program.focus()
        before = self.windows(program)
        program.keys("alt+f")
        desk.wait_until(lambda: self.windows(program) > before, what="the menu does not open")
        self.press("Escape")
        desk.wait_until(lambda: self.windows(program) == before, what="the menu stays open")

    def assert_honest_comes(self, program):
        """A page that is handed over comes in front, whatever the page beside it does."""
        with desk.Program(PROGRAM, self.site.address(HONEST, host=2), home=self.home) as second:
            self.assertEqual(second.wait_end(), 0)
        desk.wait_until(lambda: f"[{HONEST}]" in program.strip(), what=lambda: f"strip is {program.strip()}")

    def assert_closes(self, program):
        """All tabs but the honest one close, and the program ends well."""
        while len(tabs := program.strip()) > 1:
            program.keys("ctrl+w" if tabs[-1][0] != "[" or tabs[-1] != f"[{HONEST}]" else "ctrl+shift+Tab")
            desk.wait_until(lambda: program.strip() != tabs, what=lambda: f"strip stays {program.strip()}")
        program.wait_strip([f"[{HONEST}]"])
        self.assert_answers(program)
        program.process.send_signal(desk.signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0, program.errors())

    def live_beside(self, name, loaded, meanwhile=lambda program: None):
        with self.start(name) as program:
            desk.wait_until(lambda: loaded(program), what=lambda: f"{name} did not come: {program.what_is_seen()}")
            meanwhile(program)
            self.assert_answers(program)
            self.assert_honest_comes(program)
            self.assert_closes(program)

    def shows(self, title):
        return lambda program: any(title in caption for caption in program.strip())

    def test_messages_without_end(self):
        self.live_beside("alert-storm", lambda program: program.find_now("push button", "OK"))

    def test_frames_that_speak_for_their_page(self):
        def unheard(program):
            self.assertIsNone(program.find_now("push button", "OK"))

        self.live_beside("frame-dialogs", self.shows("Frames unheard"), unheard)

    def test_windows_without_end(self):
        def one_question(program):
            """However many windows the page wants, its user is asked once, and none opens."""
            program.find("push button", "Block")
            self.assertEqual(len(program.strip()), 1, program.strip())

        def opened(program):
            """Whether a click opens a window. One that comes before the page has been painted is nobody's."""
            point = ("mousemove", "--window", program.window_id(), "400", "400")
            subprocess.run(["xdotool", *point, "click", "1"], check=True)
            try:
                return desk.wait_until(lambda: len(program.strip()) > 1, seconds=5)
            except desk.NeverTrue:
                return False

        def click(program):
            one_question(program)
            program.focus()
            desk.wait_until(lambda: opened(program), what="a click opened nothing")
            # One click is one window.
            self.assertLess(len(program.strip()), 5, program.strip())

        self.live_beside("popup-storm", self.shows("Popup storm"), click)

    def test_downloads_without_end(self):
        def asks(program):
            """However many files the page saves by itself, its user is asked after a few, and once."""
            words = f"127.0.0.1:{self.site.port} wants to save several files."
            program.find("label", words)
            program.press("push button", "Block")
            desk.wait_until(lambda: not program.find_now("label", words), what="it asks again")

        self.live_beside("download-storm", self.shows("Download storm"), asks)

    def test_a_title_of_a_million_letters(self):
        def is_one_line(program):
            [caption] = program.strip()
            self.assertLess(len(caption), 40)
            for sign in "\u202e\u2066\n\x07":
                self.assertNotIn(sign, caption)

        self.live_beside("huge-title", self.shows("evil"), is_one_line)

    def test_addresses_of_two_million_letters(self):
        def hover(program):
            program.focus()
            bar = lambda: (program.find_now("status bar", "Status") or program.window()).description
            places = itertools.cycle(["400", "401"])

            def told():
                # A page that is not on the screen yet takes no notice of the pointer.
                desk.xdotool("mousemove", "--window", program.window_id(), next(places), "400")
                return "xxxx" in bar()

            desk.wait_until(told, what=lambda: f"the status is {bar():.100}")
            self.assertLess(len(bar()), 10_000)

        self.live_beside("huge-address", self.shows("Huge address"), hover)

    def test_more_history_than_anybody_can_count(self):
        self.live_beside("history-flood", self.shows("History flood "))

    def test_never_the_same_address(self):
        self.live_beside("location-flood", self.shows("Location flood"))

    def test_a_page_that_never_ends(self):
        self.live_beside("endless", self.shows("Endless"))

    def test_a_script_that_never_ends(self):
        self.live_beside("endless-script", self.shows("Endless script"))

    def test_a_page_that_is_never_content_with_a_login(self):
        def log_in(program):
            for _ in range(3):
                program.focus()
                self.press("a", "Tab", "b")
                before = self.site.logins

                def answered():
                    """A dialog that has only just come up takes no answer."""
                    self.press("Return")
                    return self.site.logins > before

                desk.wait_until(answered, what="the dialog takes no answer")
                program.find("label", "The name or the password was not accepted.")

        self.live_beside("login", lambda program: program.find_now("push button", "Log In"), log_in)

    def test_a_page_that_dies(self):
        self.live_beside("dies", lambda program: program.find_now("push button", "Reload"))

    def test_a_page_that_does_not_want_to_be_left(self):
        def touch(program):
            program.focus()
            subprocess.run(["xdotool", "mousemove", "--window", program.window_id(), "400", "400", "click", "1"], check=True)

        self.live_beside("endless-dialogs-at-leaving", self.shows("Endless leaving"), touch)

    def test_files_and_the_programs_own_pages_are_out_of_reach(self):
        def has_tried(program):
            self.assertFalse([caption for caption in program.strip() if "LEAKED" in caption])

        self.live_beside("forbidden-links", self.shows("Tried "), has_tried)


if __name__ == "__main__":
    desk.main()
