"""Combinations of keys on keyboards whose layout has no Latin letters, or has them in other places. Keys are pressed by
their places, as fingers do it."""

import ctypes
import os
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()

# Where a keyboard of the United States has its keys, as the X server counts them.
PLACES = {
    letter: first + number
    for first, row in ((24, "QWERTYUIOP"), (38, "ASDFGHJKL"), (52, "ZXCVBNM,"))
    for number, letter in enumerate(row)
}
PLACES |= {"ctrl": 37, "shift": 50, "alt": 64, "Menu": 135}

# What is typed into the page is its title.
PAGE = """<!doctype html><meta charset="utf-8"><title>Keys</title>
<textarea style="position: fixed; inset: 0" oninput="document.title = value || 'Keys'"></textarea>"""


def choose_layout(*words):
    subprocess.run(["setxkbmap", *words], check=True)


class Keyboard:
    """Presses keys as the X server gets them from a real keyboard: xdotool would choose among two layouts itself."""

    def __init__(self):
        self._x11, self._test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._x11.XOpenDisplay(None))

    def press(self, combination):
        codes = [PLACES[key] for key in combination.split("+")]
        for code, down in [(code, 1) for code in codes] + [(code, 0) for code in reversed(codes)]:
            self._test.XTestFakeKeyEvent(self._display, code, down, 0)
        self._x11.XSync(self._display, 0)


KEYBOARD = Keyboard()


def press(program, *combinations):
    """Presses keys, named by what they are called in the United States: "ctrl+T", "Q"."""
    program.focus()
    for each in combinations:
        KEYBOARD.press(each)


class Layouts(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.page = os.path.join(self.home, "keys.html")
        with open(self.page, "w", encoding="utf-8") as page:
            page.write(PAGE)
        self.addCleanup(choose_layout, "-layout", "us", "-option", "")

    def wait_box(self, program, text=None):
        """Waits until the address box has the keyboard, and shows that text if one is given."""

        def is_so():
            box = desk.focused_box(program)
            return box and box.name == "Address" and (text is None or desk.text_of(box) == text)

        desk.wait_until(is_so, 10, lambda: f"the address box does not show {text!r}; seen: {program.what_is_seen()}")

    def click_into_page(self, program):
        program.focus()
        desk.xdotool("mousemove", "--window", program.window_id(), "300", "400", "click", "1")

    def type_into_box(self, program, letter, select_all="ctrl+A"):
        """Replaces the text of the address box by what the key in the place of T gives."""

        def attempt():
            press(program, "alt+D")
            try:
                self.wait_box(program)
                press(program, select_all, "T")
                self.wait_box(program, letter)
            except desk.NeverTrue:
                return False  # a page that is loaded takes the keyboard once
            return True

        desk.wait_until(attempt, what=lambda: f"not typed: {letter}; seen: {program.what_is_seen()}")

    def check_box(self, program, letter):
        address = f"file://{self.page}"
        self.type_into_box(program, letter)
        press(program, "ctrl+Z")
        self.wait_box(program, address)
        press(program, "ctrl+A", "ctrl+C", "ctrl+T")
        program.wait_strip(["Keys", "[about:blank]"])
        self.type_into_box(program, letter)
        press(program, "ctrl+A", "ctrl+V")
        self.wait_box(program, address)
        program.keys("Return")
        program.wait_strip(["Keys", "[Keys]"])

    def check_tabs(self, program):
        press(program, "ctrl+W")
        program.wait_strip(["[Keys]"])
        press(program, "ctrl+shift+T")
        program.wait_strip(["Keys", "[Keys]"])
        press(program, "ctrl+W")
        program.wait_strip(["[Keys]"])

    def check_menu(self, program):
        program.wait_menu(lambda: press(program, "alt+F"))
        press(program, "B")
        program.wait_strip(["Keys", "[about:blank]"])
        press(program, "ctrl+W")
        program.wait_strip(["[Keys]"])

    def check_page(self, program, letter):
        self.click_into_page(program)
        press(program, "T")
        program.wait_strip([f"[{letter}]"])
        press(program, "ctrl+A", "ctrl+X")
        program.wait_strip(["[Keys]"])
        press(program, "ctrl+V", "ctrl+V")
        program.wait_strip([f"[{letter}{letter}]"])
        press(program, "ctrl+Z")
        program.wait_strip([f"[{letter}]"])
        press(program, "alt+shift+D")
        self.wait_box(program)
        press(program, "ctrl+R")
        program.wait_strip(["[Keys]"])

    def test_where_the_layout_has_no_latin_letters_their_places_count(self):
        with desk.Program(PROGRAM, self.page, home=self.home) as program:
            program.wait_strip(["[Keys]"])
            for layout, letter in (("ru", "е"), ("gr", "τ"), ("il", "א"), ("ara", "ف")):
                with self.subTest(layout=layout):
                    choose_layout("-layout", layout)
                    self.check_box(program, letter)
                    self.check_tabs(program)
                    self.check_menu(program)
                    self.check_page(program, letter)

    def test_a_layout_that_is_one_of_two_works_like_one_alone(self):
        choose_layout("-layout", "us,ru", "-option", "grp:menu_toggle")
        with desk.Program(PROGRAM, self.page, home=self.home) as program:
            program.wait_strip(["[Keys]"])
            KEYBOARD.press("Menu")
            self.type_into_box(program, "е")
            press(program, "ctrl+T")
            program.wait_strip(["Keys", "[about:blank]"])
            press(program, "ctrl+W")
            program.wait_strip(["[Keys]"])
            self.check_menu(program)

    def test_where_the_layout_has_latin_letters_these_count(self):
        with desk.Program(PROGRAM, self.page, home=self.home) as program:
            program.wait_strip(["[Keys]"])
            choose_layout("-layout", "fr")
            self.type_into_box(program, "t", select_all="ctrl+Q")
            press(program, "ctrl+T")
            program.wait_strip(["Keys", "[about:blank]"])
            press(program, "ctrl+Z")
            program.wait_strip(["[Keys]"])

            choose_layout("-layout", "us", "-variant", "dvorak")
            press(program, "ctrl+K")
            program.wait_strip(["Keys", "[about:blank]"])
            press(program, "ctrl+Q", "ctrl+W")  # an apostrophe and a comma there
            press(program, "ctrl+,")
            program.wait_strip(["[Keys]"])


if __name__ == "__main__":
    desk.main()
