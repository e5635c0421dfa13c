"""Mails reach the desktop's mail program whole, whatever they contain: as one word, seen by no shell, no option of it."""

import json
import os
import stat
import unittest
import urllib.parse

import desk
import pyatspi

PROGRAM = desk.program_file()

HOSTILE = [
    "mailto:a@b.example?subject=%22%20--attach%20/etc/passwd%20%22",
    "mailto:a@b.example?subject=one%0D%0ABcc:%20c@d.example",
    "mailto:$(id)`id`;id|id>x@b.example?subject='quoted'",
    "mailto:?attach=/etc/passwd&body=--help",
    "mailto:--help",
    "mailto:-a@b.example",
    'mailto:a"b c"@d.example',
    "MAILTO:a@b.example?subject=%F0%9F%90%88%20%C3%A9&body=100%25",
]


class Links(desk.PageServer):
    """One page, which is all one link. After every click that leads to the next address."""

    def __init__(self, links):
        super().__init__()
        self._page = (
            "<!doctype html><meta charset=utf-8><title>Links</title>"
            "<a id=a style='position: fixed; inset: 0; background: #def'>link</a>"
            f"<script>const links = {json.dumps(links)}; const next = () => a.href = links.shift() || '#';"
            "next(); a.onclick = () => setTimeout(next)</script>"
        ).encode()

    def answer(self, request):
        request.send(self._page)


def middle(program):
    """Puts the pointer on the page."""
    place = program.window().queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    desk.move_pointer(place.x + place.width // 2, place.y + place.height * 2 // 3)


class Mail(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.record = os.path.join(self.home, "record")
        programs = os.path.join(self.home, "programs")
        os.makedirs(programs)
        self.path = os.environ["PATH"]
        self.entries = os.path.join(os.environ["XDG_DATA_HOME"], "applications")
        os.makedirs(self.entries, exist_ok=True)
        self.make_mail_program(programs)

    def tearDown(self):
        os.environ["PATH"] = self.path
        self.name_mail_program("")

    def make_mail_program(self, folder):
        """What is started from now on begins mails with a program that writes them down."""
        # What Qt starts for a mail on a desktop that it does not know.
        fake = os.path.join(folder, "xdg-open")
        with open(fake, "w") as file:
            file.write(f"#!/bin/sh\nfor word; do printf '<%s>' \"$word\"; done >>'{self.record}'\necho >>'{self.record}'\n")
        os.chmod(fake, stat.S_IRWXU)
        # The desktop has a program for mails, which is not this browser.
        with open(os.path.join(self.entries, "letters.desktop"), "w") as file:
            file.write("[Desktop Entry]\nType=Application\nName=Letters\nExec=letters %u\n")
        self.name_mail_program("letters.desktop")
        os.environ["PATH"] = folder + os.pathsep + self.path

    def name_mail_program(self, entry):
        """The desktop opens mails with the program of that entry; with none when it is empty."""
        with open(os.path.join(self.entries, "mimeapps.list"), "w") as file:
            file.write(f"[Default Applications]\nx-scheme-handler/mailto={entry}\n")

    def recorded(self):
        if not os.path.exists(self.record):
            return []
        with open(self.record) as file:
            return file.read().splitlines()

    def wait_recorded(self, count):
        desk.wait_until(lambda: len(self.recorded()) >= count, what=lambda: f"recorded: {self.recorded()}")
        lines = self.recorded()
        self.assertEqual(len(lines), count)
        self.assertTrue(lines[-1].startswith("<") and lines[-1].endswith(">"), lines[-1])
        self.assertNotIn("><", lines[-1])
        return lines[-1][1:-1]

    def test_hostile_links_arrive_as_one_address_that_is_a_mail(self):
        with Links(HOSTILE) as pages:
            with desk.Program(PROGRAM, pages.address("Links"), home=self.home) as program:
                program.wait_strip(["[Links]"])
                middle(program)
                for at, link in enumerate(HOSTILE):
                    program.focus()
                    desk.xdotool("click", "1")
                    arrived = self.wait_recorded(at + 1)
                    # What a page names as a file to attach is left out.
                    link = link.replace("attach=/etc/passwd&", "")
                    self.assertTrue(arrived.lower().startswith("mailto:"), arrived)
                    self.assertFalse(any(each in arrived for each in " \t\r\n\""), arrived)
                    self.assertEqual(urllib.parse.unquote(arrived[7:]), urllib.parse.unquote(link[7:]))
                program.wait_strip(["[Links]"])

    def test_without_a_mail_program_a_click_says_so_and_goes_round_in_no_circle(self):
        for entry in ("", "tessaview.desktop"):
            self.name_mail_program(entry)
            with open(os.path.join(self.entries, "tessaview.desktop"), "w") as file:
                file.write(f"[Desktop Entry]\nType=Application\nName=TessaView\nExec={PROGRAM} %u\n")
            with Links(["mailto:a@b.example"] * 20) as pages:
                with desk.Program(PROGRAM, pages.address("Links"), home=self.home) as program:
                    program.wait_strip(["[Links]"])
                    middle(program)
                    program.focus()
                    for answer in ("Return", "Escape"):
                        desk.xdotool("click", "1")
                        words = 'This desktop has no program for addresses that begin with "mailto:".'
                        program.find("label", words)
                        # What was pressed too early is no answer.
                        desk.wait_until(lambda: not program.find_now("label", words) or desk.xdotool("key", answer))
                    program.wait_strip(["[Links]"])
        self.assertEqual(self.recorded(), [])

    def test_a_mail_on_the_command_line_of_a_first_start_is_begun_once(self):
        with desk.Program(PROGRAM, "mailto:a@b.example", home=self.home) as program:
            self.assertEqual(self.wait_recorded(1), "mailto:a@b.example")
            program.window()
            self.assertEqual(len(self.recorded()), 1)

    def test_a_mail_on_the_command_line_of_a_second_start_is_begun_by_the_first_alone(self):
        other = os.path.join(self.home, "other")
        os.makedirs(other)
        with desk.Program(PROGRAM, "about:blank", home=self.home) as program:
            program.wait_strip(["[about:blank]"])
            # What the second start itself began would be written down elsewhere.
            mine, self.record = self.record, os.path.join(other, "record")
            self.make_mail_program(other)
            for number in (1, 2):
                with desk.Program(PROGRAM, f"mailto:a@b.example?subject={number}", home=self.home) as second:
                    self.assertEqual(second.wait_end(), 0)
            theirs, self.record = self.record, mine
            desk.wait_until(lambda: len(self.recorded()) >= 2, what=lambda: f"recorded: {self.recorded()}")
            self.assertEqual(
                sorted(self.recorded()), [f"<mailto:a@b.example?subject={number}>" for number in (1, 2)]
            )
            self.assertFalse(os.path.exists(theirs))


if __name__ == "__main__":
    desk.main()
