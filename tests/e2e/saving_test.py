"""Pages saved and printed to files, through the dialogs that a person sees."""

import os
import unittest

import desk

PROGRAM = desk.program_file()


def wait_window(title):
    active = lambda: desk.xdotool("getactivewindow", "getwindowname")
    desk.wait_until(lambda: active() == title, what=lambda: f"{active()!r} is in front, not {title!r}")


def read(path):
    if not os.path.exists(path):
        return b""
    with open(path, "rb") as file:
        return file.read()


def wait_file(path, *parts):
    """Waits until a file holds all these parts; its bytes."""
    desk.wait_until(
        lambda: all(part in read(path) for part in parts), what=lambda: f"{path} holds {read(path)[:200]!r}"
    )
    return read(path)


class Saving(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = desk.state_folder()
        cls.pages = desk.PageServer()
        cls.program = desk.Program(PROGRAM, cls.pages.address("Garden"), home=cls.home)
        cls.program.wait_strip(["[Garden]"])

    @classmethod
    def tearDownClass(cls):
        cls.program.kill()
        cls.pages.__exit__()

    def path(self, name):
        return os.path.join(self.home, name)

    def save_as(self, name):
        self.program.keys("ctrl+s")
        self.program.accept_name("Save As", self.path(name))
        wait_window(desk.WINDOW_TITLE)

    def test_a_page_is_saved_complete_as_one_file_and_as_a_document(self):
        self.save_as("whole.html")
        wait_file(self.path("whole.html"), b"<h1>Garden</h1>")
        self.save_as("one.mhtml")
        wait_file(self.path("one.mhtml"), b"multipart/related", b"Garden</h1>")
        self.save_as("paper.pdf")
        self.assertTrue(wait_file(self.path("paper.pdf"), b"%%EOF").startswith(b"%PDF-"))

    def test_a_name_without_an_ending_gets_one(self):
        self.save_as("short")
        wait_file(self.path("short.html"), b"<h1>Garden</h1>")

    def test_escape_saves_nothing(self):
        before = os.listdir(self.home)
        self.program.keys("ctrl+s")
        wait_window("Save As")
        desk.xdotool("key", "Escape")
        wait_window(desk.WINDOW_TITLE)
        self.assertEqual(os.listdir(self.home), before)

    def test_without_a_printer_a_page_is_printed_to_a_file(self):
        self.program.keys("ctrl+p")
        wait_window("Print")
        desk.xdotool("key", "alt+f")
        self.program.accept_name("Print", self.path("printed.pdf"))
        wait_window(desk.WINDOW_TITLE)
        self.assertTrue(wait_file(self.path("printed.pdf"), b"%%EOF").startswith(b"%PDF-"))

    def test_the_paper_is_set_up_from_the_menu(self):
        self.program.keys("alt+f")
        desk.wait_until(lambda: self.program.find_now("menu item", "Page Setup..."))
        desk.xdotool("key", "u")
        wait_window("Page Setup")
        desk.xdotool("key", "Escape")
        wait_window(desk.WINDOW_TITLE)


if __name__ == "__main__":
    desk.main()
