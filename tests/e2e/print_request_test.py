"""Pages that want to be printed: the dialog comes when a person has clicked, in the real window."""

import unittest

import desk
import pyatspi

PROGRAM = desk.program_file()

SCRIPTS = {
    "button": "<button style='position: fixed; inset: 0' onclick='window.print()'>print</button>",
    "link": "<a style='position: fixed; inset: 0; background: #def' href='javascript:window.print()'>print</a>",
    "later": "<button style='position: fixed; inset: 0' onclick='setTimeout(() => window.print())'>print</button>",
    "window": "<button style='position: fixed; inset: 0' onclick='const w = window.open(\"\"); w.document.write(\"paper\");"
    "w.document.close(); w.focus(); w.print()'>print</button>",
    "frame": "<iframe id=f srcdoc='<p>paper</p>'></iframe>"
    "<button style='position: fixed; inset: 0' onclick='f.contentWindow.print()'>print</button>",
}


class Pages(desk.PageServer):
    """Pages with the script of their name."""

    def answer(self, request):
        name = request.path.strip("/")
        request.send(f"<!doctype html><title>{name}</title>{SCRIPTS.get(name, '')}".encode())


def wait_window(title):
    active = lambda: desk.xdotool("getactivewindow", "getwindowname")
    desk.wait_until(lambda: active() == title, what=lambda: f"{active()!r} is in front, not {title!r}")


def click_page(program):
    program.focus()
    place = program.window().queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    desk.move_pointer(place.x + place.width // 2, place.y + place.height * 2 // 3)
    desk.xdotool("click", "1")


class PrintRequest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = cls.enterClassContext(Pages())

    def check(self, name):
        with desk.Program(PROGRAM, self.pages.address(name), home=desk.state_folder()) as program:
            program.wait_strip([f"[{name}]"])
            click_page(program)
            wait_window("Print")
            desk.xdotool("key", "Escape")
            wait_window(desk.WINDOW_TITLE)

    def test_a_button_brings_the_dialog_up(self):
        self.check("button")

    def test_a_link_brings_it_up(self):
        self.check("link")

    def test_a_button_that_prints_a_little_later_brings_it_up(self):
        self.check("later")

    def test_a_window_that_was_opened_to_be_printed_brings_it_up(self):
        self.check("window")

    def test_a_frame_that_is_printed_brings_it_up(self):
        self.check("frame")


if __name__ == "__main__":
    desk.main()
