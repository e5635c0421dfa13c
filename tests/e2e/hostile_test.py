"""Pages that mean no good, each in a tab beside an honest one: the window answers all the while, the honest page comes,
and the tab of the other closes. HOSTILE_ANSWERS says how many answers there must at least be beside each page; with a
thousand the times that are told say something."""

import itertools

import desk
from hostile import HostileTest


class Hostile(HostileTest):
    def test_a_page_that_means_well_for_comparison(self):
        self.live_beside("Decent", self.shows("Decent"))

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
            self.click_page(program)
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
            places = itertools.cycle(["4", "400"])

            def told():
                # A page that is not on the screen yet takes no notice of the pointer. It tells of a link once, and what
                # is told of the load may come after that.
                desk.xdotool("mousemove", "--window", program.window_id(), "400", next(places))
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
            self.click_page(program)

        self.live_beside("endless-dialogs-at-leaving", self.shows("Endless leaving"), touch)

    def test_files_and_the_programs_own_pages_are_out_of_reach(self):
        def has_tried(program):
            self.assertFalse([caption for caption in program.strip() if "LEAKED" in caption])

        self.live_beside("forbidden-links", self.shows("Tried "), has_tried)


if __name__ == "__main__":
    desk.main()
