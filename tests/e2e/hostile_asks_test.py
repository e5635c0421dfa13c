"""Pages that want their user to take something for what it is not: an address, a question, a file, another program. The
window answers all the while, as beside any page that means no good."""

import os
import subprocess

import desk
from hostile import SITE, HostileTest


class HostileAsks(HostileTest):
    def test_an_address_that_never_answers_asked_for_again_and_again(self):
        self.live_beside("pending-address", self.shows("Pending address"))

    def test_a_page_of_this_computer_that_reads_its_files(self):
        def has_tried(program):
            self.assertFalse([caption for caption in program.strip() if "LEAKED" in caption])

        address = "file://" + os.path.realpath(os.path.join(SITE, "local-files.html"))
        self.live_beside("local-files", self.shows("Tried "), has_tried, address=address)

    def test_questions_under_a_held_key(self):
        def hold(program):
            self.click_until(program, "Asked ")
            asks = lambda: program.find_now("push button", "OK") or program.find_now("push button", "Block")
            desk.wait_until(asks, what="nothing is asked")
            subprocess.run(["xdotool", "keydown", "Return"], check=True)
            try:
                before = len(self.asking.milliseconds)
                desk.wait_until(lambda: len(self.asking.milliseconds) > before + 50, what="the window does not answer")
            finally:
                subprocess.run(["xdotool", "keyup", "Return"], check=True)
            self.assertEqual(self.site.granted, [])

        self.live_beside("held-key", self.shows("Held key"), hold)

    def test_other_programs_without_end(self):
        self.live_beside("program-storm", self.shows("Program storm"))

    def test_a_page_that_takes_the_keyboard_without_end(self):
        self.live_beside("focus-thief", self.shows("Focus thief "))

    def test_downloads_that_come_when_their_page_has_gone(self):
        def are_asked_for(program):
            desk.wait_until(lambda: self.site.waiting > 0, what="nothing is asked for")

        self.live_beside("gone-downloads", self.shows("Gone downloads"), are_asked_for, gone=self.site.late.set)

    def test_downloads_at_each_click(self):
        def click(program):
            for clicks in range(1, 6):
                self.click_until(program, f"Click downloads {clicks}")

        self.live_beside("click-downloads", self.shows("Click downloads"), click)

    def test_a_program_whose_name_is_a_million_letters(self):
        self.live_beside(
            "huge-scheme", self.shows("Huge scheme"), lambda program: self.click_until(program, "Huge scheme 1")
        )


if __name__ == "__main__":
    desk.main()
