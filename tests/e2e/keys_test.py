"""Keys that the user gives commands in the customisation dialog: they work at once, and at the next start."""

import os
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()
PRESENT = "Present keys of the command"


def press(*keys):
    """Presses keys in the window that has them."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *map(desk.with_places, keys)], check=True)


def texts_of(page, role):
    return [node.name for node in desk.walk(page) if desk.role_of(node) == role and desk.is_showing(node)]


class Keys(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def start(self):
        program = desk.Program(PROGRAM, "about:blank", home=self.home)
        program.__enter__()
        self.addCleanup(program.__exit__, None, None, None)
        program.wait_strip(["[about:blank]"])
        return program

    def open_page(self, program):
        """Opens the dialog at its page of keys by the keyboard alone."""
        program.keys("alt+v")
        desk.wait_until(lambda: program.selected_entry() is not None, what="the menu View has not opened")
        program.go_down_to("Toolbars...")
        press("Return")
        dialog = program.find("dialog", "Customize")
        active = lambda: desk.xdotool("getactivewindow", "getwindowname") == "Customize"
        desk.wait_until(active, what="the dialog has not become the active window")
        press("alt+k")
        self.wait_focus(program, "Search commands and keys")
        return dialog

    def wait_focus(self, program, name):
        def focused():
            box = program.find_now("text", name)
            return box and desk.is_focused(box)

        desk.wait_until(focused, what=lambda: f"{name} has not got the keyboard; seen: {program.what_is_seen()}")

    def wait_text(self, program, name, text):
        box = program.find("text", name)
        desk.wait_until(lambda: desk.text_of(box) == text, what=lambda: f"{name} says {desk.text_of(box)!r}")

    def wait_present(self, program, keys):
        """Waits until the command that is selected has these keys."""
        shown = lambda: [node.name for node in program.find_now("list", PRESENT)]
        desk.wait_until(lambda: shown() == keys, what=lambda: f"the keys are {shown()}, not {keys}")

    def wait_verdict(self, dialog, words):
        labels = lambda: texts_of(dialog, "label")
        desk.wait_until(lambda: words in labels(), what=lambda: f"nobody says {words!r} but {labels()}")

    def record(self, program, combination, shown):
        program.find("text", "New keys")
        press("alt+n")
        self.wait_focus(program, "New keys")
        press(combination)
        self.wait_text(program, "New keys", shown)

    def close_dialog(self, program):
        press("Escape")
        desk.wait_until(lambda: program.find_now("dialog", "Customize") is None, what="the dialog stays open")

    def saved(self):
        with open(os.path.join(self.home, "user.tb"), "rb") as layout:
            return layout.read()

    def end(self, program):
        program.keys("ctrl+q")
        self.assertEqual(program.wait_end(), 0)

    def test_a_key_that_is_changed_works_at_once_and_at_the_next_start(self):
        program = self.start()
        dialog = self.open_page(program)
        desk.xdotool("type", "new blank")
        self.wait_text(program, "Search commands and keys", "new blank")
        self.wait_present(program, ["Ctrl+T"])
        self.record(program, "ctrl+e", "Ctrl+E")
        self.wait_verdict(dialog, "Ctrl+E is free.")
        press("Return")
        self.wait_present(program, ["Ctrl+E", "Ctrl+T"])
        # Away with the old one, which is the second of the list.
        press("shift+Tab")
        self.go_to_present(program, "Ctrl+T")
        press("alt+r")
        self.wait_present(program, ["Ctrl+E"])
        self.close_dialog(program)
        self.assertIn(b"[Keys]\r\nmnuNewBlank=Ctrl+E .\r\n", self.saved())
        # The old key opens no tab: with the new one there is one more, not two.
        program.keys("ctrl+t", "ctrl+e")
        program.wait_strip(["about:blank", "[about:blank]"])
        self.end(program)

        program = self.start()
        program.keys("ctrl+t", "ctrl+e")
        program.wait_strip(["about:blank", "[about:blank]"])
        self.open_page(program)
        desk.xdotool("type", "new blank")
        self.wait_present(program, ["Ctrl+E"])
        press("alt+e")
        self.wait_present(program, ["Ctrl+T"])
        self.close_dialog(program)
        self.assertNotIn(b"[Keys]", self.saved())
        program.keys("ctrl+e", "ctrl+t")
        desk.wait_until(lambda: len(program.strip()) == 3, what=lambda: f"the strip is {program.strip()}")
        self.end(program)

    def go_to_present(self, program, keys):
        """Selects one of the command's keys by the arrow keys."""

        def selected():
            lines = [node.name for node in program.find_now("list", PRESENT) if desk.is_focused(node)]
            return lines[-1] if lines else None

        press("alt+p")
        desk.wait_until(lambda: selected() is not None, what="the list of keys has not got the keyboard")
        while (before := selected()) != keys:
            press("Down")
            desk.wait_until(lambda: selected() != before, what=lambda: f"Down stays on {before}")

    def test_a_conflict_is_named_and_the_key_taken_over_from_the_menu_bar(self):
        program = self.start()
        dialog = self.open_page(program)
        desk.xdotool("type", "new blank")
        self.wait_present(program, ["Ctrl+T"])
        self.record(program, "ctrl+w", "Ctrl+W")
        self.wait_verdict(dialog, "Ctrl+W belongs to \u201cClose\u201d. Assign takes it over.")
        press("ctrl+c")
        self.wait_verdict(dialog, "Ctrl+C is needed for editing text in boxes and pages.")
        press("Return", "alt+d")
        self.wait_verdict(dialog, "Alt+D leads to the box \u201cAddress\u201d. Assign takes it over.")
        press("Return")
        self.wait_present(program, ["Alt+D", "Ctrl+T"])
        self.close_dialog(program)
        # A label on the toolbar has that access key.
        program.keys("alt+d")
        program.wait_strip(["about:blank", "[about:blank]"])
        self.end(program)


if __name__ == "__main__":
    desk.main()
