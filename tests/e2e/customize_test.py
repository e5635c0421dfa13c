"""Toolbars that the user arranges, and finds again at the next start."""

import os
import stat
import subprocess
import time
import unittest

import desk
import pyatspi

PROGRAM = desk.program_file()


def middle(node):
    """The middle of something on the screen, waited for until it has a place there."""

    def place():
        box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.width > 0 and box.x >= 0 and (box.x + box.width // 2, box.y + box.height // 2)

    return desk.wait_until(place)


def move(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)
    # The drag follows the pointer by its movements, of which the X server reports the last of a moment.
    time.sleep(0.05)


def drag(start, end):
    """Drags with the left mouse button, by steps as a hand does."""
    move(*start)
    subprocess.run(["xdotool", "mousedown", "1"], check=True)
    for step in range(1, 11):
        move(*(round(a + (b - a) * step / 10) for a, b in zip(start, end)))
    move(end[0] + 1, end[1])
    subprocess.run(["xdotool", "mouseup", "1"], check=True)


def open_dialog(program):
    """Opens the dialog from the View menu; its window."""
    program.keys("alt+v", "Down", "Return")
    dialog = program.find("dialog", "Customize")
    active = lambda: desk.xdotool("getactivewindow", "getwindowname") == "Customize"
    desk.wait_until(active, what="the dialog has not become the active window")
    return dialog


def close_dialog(program):
    """Closes the dialog, wherever the keyboard is, and waits until it is gone."""
    close = [node for node in desk.walk(program.find("dialog", "Customize")) if node.name == "Close"]
    desk.press_node(next(node for node in close if desk.role_of(node) == "push button"))
    desk.wait_until(lambda: program.find_now("dialog", "Customize") is None, what="the dialog stays open")


def press(*keys):
    """Presses keys in the window that has them."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def tools(program, band):
    """The names of the buttons on a toolbar, from left to right; nothing when it is not shown.

    The button for what does not fit is left out: Qt calls it shown for a while after it has gone."""
    for node in desk.walk(program.application()):
        if node.getRoleName() == "tool bar" and node.name == band and desk.is_showing(node):
            shown = [
                each
                for each in node
                if each.getRoleName() != "separator" and each.name not in ("", "More tools") and desk.is_showing(each)
            ]
            return [each.name for each in sorted(shown, key=lambda each: middle(each)[0])]
    return None


def wait_tools(program, band, expected):
    desk.wait_until(lambda: tools(program, band) == expected, what=lambda: f"{band} has {tools(program, band)}")


def button(program, band, name):
    for node in desk.walk(program.application()):
        if node.getRoleName() == "tool bar" and node.name == band:
            return next(each for each in node if each.name == name)
    raise AssertionError(f"no toolbar {band}")


FILE = ["New", "Open", "Close", "Close All"]


class Customize(unittest.TestCase):
    def test_what_is_dragged_onto_a_toolbar_is_there_at_the_next_start(self):
        home = desk.state_folder()
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            wait_tools(program, "File", FILE)
            open_dialog(program)
            press("alt+c")
            program.find("list item", "Edit")
            press("Down")
            copy = program.find("list item", "Copy")
            drag(middle(copy), middle(button(program, "File", "Open")))
            wait_tools(program, "File", ["New", "Open", "Copy", "Close", "Close All"])
            # Off the toolbar, onto the page.
            page_x, page_y = middle(program.window())
            drag(middle(button(program, "File", "New")), (page_x, page_y + 330))
            wait_tools(program, "File", ["Open", "Copy", "Close", "Close All"])
            close_dialog(program)
            self.assertTrue(os.path.exists(os.path.join(home, "user.tb")), "kept as soon as the dialog is closed")
            program.keys("ctrl+q")
            self.assertEqual(program.wait_end(), 0)
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            wait_tools(program, "File", ["Open", "Copy", "Close", "Close All"])

    def test_a_toolbar_is_hidden_by_keys_alone_and_stays_so(self):
        home = desk.state_folder()
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            open_dialog(program)
            press("Down", "space", "Escape")
            desk.wait_until(lambda: tools(program, "File") is None)
            program.keys("ctrl+q")
            program.wait_end()
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            program.find("tool bar", "Go")
            self.assertIsNone(tools(program, "File"))

    def test_a_damaged_file_costs_no_toolbar(self):
        home = desk.state_folder()
        with open(os.path.join(home, "user.tb"), "wb") as layout:
            layout.write(b"\xff\xfe[bndFile]\r\nKind=Toolbar\0\r\nTools=" + os.urandom(5000))
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            wait_tools(program, "File", FILE)

    def test_a_layout_that_cannot_be_saved_is_said_and_the_old_one_stays(self):
        home = desk.state_folder()
        path = os.path.join(home, "user.tb")
        with open(path, "wb") as layout:
            layout.write(b"[Options]\r\nToolTips=0\r\n")
        os.chmod(path, stat.S_IRUSR)
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            open_dialog(program)
            press("Down", "space", "Escape")
            status = program.find("status bar", "Status")
            desk.wait_until(
                lambda: status.description == "The layout of the toolbars could not be saved.",
                what=lambda: f"the status bar says {status.description!r}",
            )
            program.keys("ctrl+q")
            self.assertEqual(program.wait_end(), 0)
        with open(path, "rb") as layout:
            self.assertEqual(layout.read(), b"[Options]\r\nToolTips=0\r\n")


if __name__ == "__main__":
    desk.main()
