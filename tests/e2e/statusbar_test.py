"""What the status bar says, as a screen reader finds it: what failed, help that goes with its menu, what was cleared."""

import os
import socket
import unittest

import desk

PROGRAM = desk.program_file()
PAGE = "<!doctype html><title>Roses</title><h1>Roses</h1>"


def closed_port():
    """A port at which nobody listens."""
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]


class StatusBar(unittest.TestCase):
    def start(self, address=None):
        home = desk.state_folder()
        page = os.path.join(home, "roses.html")
        with open(page, "w", encoding="utf-8") as file:
            file.write(PAGE)
        program = desk.Program(PROGRAM, address or page, home=home)
        program.__enter__()
        self.addCleanup(program.__exit__, None, None, None)
        program.window()
        return program

    def wait_status(self, program, accepts):
        desk.wait_until(
            lambda: accepts(program.status() or ""), what=lambda: f"the status bar says {program.status()!r}"
        )

    def test_a_page_that_cannot_be_had_is_not_done(self):
        program = self.start(f"http://127.0.0.1:{closed_port()}/")
        self.wait_status(program, lambda text: text == "127.0.0.1 did not take the connection.")

    def test_help_goes_with_its_menu(self):
        program = self.start()
        program.wait_strip(["[Roses]"])
        shown = program.windows_shown()
        program.wait_menu(lambda: program.keys("alt+v"))
        desk.xdotool("key", "Down")
        self.wait_status(program, lambda text: text not in ("", "Done"))
        desk.xdotool("key", "Escape")
        desk.wait_until(lambda: program.windows_shown() == shown, what="the menu stays")
        desk.xdotool("key", "Escape")
        self.wait_status(program, lambda text: text == "")

    def test_what_was_cleared_comes_back(self):
        program = self.start()
        program.wait_strip(["[Roses]"])
        program.enter("about:blank")
        program.wait_strip(["[about:blank]"])
        program.wait_menu(lambda: program.keys("alt+v"))
        desk.xdotool("key", "c")
        self.wait_status(program, lambda text: text == "1 address was cleared.")
        program.press("push button", "Undo")
        self.wait_status(program, lambda text: text == "The addresses are back in their list.")
        desk.wait_until(lambda: program.find_now("push button", "Undo") is None, what="Undo stays")


if __name__ == "__main__":
    unittest.main()
