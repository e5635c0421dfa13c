# Tests: KeyboardAssembly
"""The window without a pointer: Alt and F10 lead to the menu bar, F6 round the window, Alt+M to the More menu, Shift+F10
to the menu of the link that has the focus."""

import os
import unittest

import desk

PROGRAM = desk.program_file()
PAGE = "<!doctype html><title>Roses</title><h1>Roses</h1><p><a href='https://roses.example/'>A link</a></p>"
MOST_PARTS = 12


class Keyboard(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        page = os.path.join(self.home, "roses.html")
        with open(page, "w", encoding="utf-8") as file:
            file.write(PAGE)
        self.program = desk.Program(PROGRAM, page, home=self.home)
        self.program.__enter__()
        self.addCleanup(self.program.__exit__, None, None, None)
        self.program.window()
        self.program.wait_strip(["[Roses]"])

    def wait_selected(self, entry):
        desk.wait_until(
            lambda: self.program.selected_entry() == entry,
            what=lambda: f"{entry} is not selected but {self.program.selected_entry()}",
        )

    def wait_no_menu(self, shown):
        desk.wait_until(lambda: self.program.windows_shown() == shown, what="a menu stays")

    def focused(self):
        """What has the keyboard, as a screen reader tells it; a page goes on saying so of itself."""
        nodes = [node for node in desk.walk(self.program.application()) if desk.is_focused(node) and desk.is_showing(node)]
        found = [(desk.role_of(node), node.name) for node in nodes]
        window = [each for each in found if not each[0].startswith("document")]
        return (window or found or [None])[-1]

    def test_alt_and_f10_lead_to_the_menu_bar_and_escape_back_to_the_page(self):
        for key in ("Alt_L", "F10"):
            with self.subTest(key=key):
                shown = self.program.windows_shown()
                self.program.keys(key)
                self.wait_selected("File")
                desk.xdotool("key", "Right")
                self.wait_selected("Edit")
                self.program.wait_menu(lambda: desk.xdotool("key", "Down"))
                self.wait_selected("Cut")
                desk.xdotool("key", "Escape")
                self.wait_no_menu(shown)
                desk.xdotool("key", "Escape")
                desk.wait_until(lambda: self.program.selected_entry() is None, what="the menu bar keeps the keyboard")

    def test_f6_leads_round_the_window(self):
        seen = []
        while len(seen) < 2 or seen[-1] != seen[0]:
            before = self.focused()
            self.program.keys("F6")
            desk.wait_until(lambda: self.focused() not in (before, None), what=lambda: f"F6 stays on {before}")
            seen.append(self.focused())
            self.assertLessEqual(len(seen), MOST_PARTS, seen)
        self.assertIn(("menu item", "File"), seen)
        self.assertIn(("text", "Address"), seen)
        self.assertIn(("page tab", "Roses"), seen)
        back = []
        for _ in seen[1:]:
            before = self.focused()
            self.program.keys("shift+F6")
            desk.wait_until(lambda: self.focused() not in (before, None), what=lambda: f"Shift+F6 stays on {before}")
            back.append(self.focused())
        self.assertEqual(back, seen[-2::-1])

    def wait_status(self, text, seconds=desk.PATIENCE):
        desk.wait_until(
            lambda: self.program.status() == text, seconds, lambda: f"the status bar says {self.program.status()!r}"
        )

    def test_the_more_menu_has_a_key(self):
        self.program.wait_menu(lambda: self.program.keys("alt+m"))
        # Its first entry is selected: the bar tells what that is for.
        self.wait_status("Opens a tab whose page, cookies and history are forgotten with the last private tab")

    def test_the_menu_of_the_link_that_has_the_focus(self):
        shown = self.program.windows_shown()

        def comes():
            self.program.keys("Tab", "shift+F10")
            try:
                self.wait_status("Opens the link in a new tab", seconds=5)
            except desk.NeverTrue:
                # The page was not ready for keys, or is not yet there.
                desk.xdotool("key", "Escape")
                self.wait_no_menu(shown)
                return False
            return True

        desk.wait_until(comes, what=lambda: f"no menu of a link; seen: {self.program.what_is_seen()}")
        desk.xdotool("key", "Return")
        desk.wait_until(lambda: len(self.program.strip()) == 2, what=lambda: f"no tab: {self.program.strip()}")


if __name__ == "__main__":
    desk.main()
