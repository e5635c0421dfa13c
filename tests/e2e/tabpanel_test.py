# Tests: TabPanelAssembly
"""The list of tabs at the side, under a real pointer and keyboard: it opens, filters, brings a tab to the front, chooses
several and closes them, puts them in order, and is there again at the next start. Several tabs of the strip are chosen
with Ctrl and Shift."""

import os
import unittest

import desk
import pyatspi
from pointer import drag, middle, move

PROGRAM = desk.program_file()
TITLES = ["Garden", "Pond", "Meadow", "Wood"]
ALL = ["about:blank", *TITLES]


class TabPanel(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def start(self):
        group = os.path.join(self.home, "four.tvg")
        desk.write_group(group, [self.pages.address(title) for title in TITLES])
        program = desk.Program(PROGRAM, group, home=self.home)
        return program

    def ready(self, program):
        program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])

    def list_now(self, program):
        """The list at the side; nothing while it is closed."""
        inside = lambda node: node.getRoleName() not in ("document web", "page tab list")
        for node in desk.walk(program.application(), inside):
            if node.name == "Tabs" and node.getRoleName() in ("tree", "list", "table", "tree table"):
                if desk.is_showing(node):
                    return node
        return None

    def rows(self, program):
        """The lines by their titles, each with what a screen reader says of it."""
        found = self.list_now(program)
        if not found:
            return None
        lines = [found.getChildAtIndex(index) for index in range(found.childCount)]
        return {line.name: line for line in lines if line and line.name}

    def names(self, program):
        rows = self.rows(program)
        return list(rows) if rows is not None else None

    def wait_rows(self, program, expected):
        desk.wait_until(
            lambda: self.names(program) == expected, what=lambda: f"lines {self.names(program)}, not {expected}"
        )

    def open(self, program, expected=("four", *TITLES)):
        program.keys("ctrl+shift+e")
        self.wait_rows(program, ["about:blank", *expected])

    def chosen(self, program):
        """The lines that are said to be selected."""
        return [name for name, line in self.rows(program).items() if "selected" in line.description.split(", ")]

    def click(self, program, title, *held):
        """Clicks a line, with keys held."""
        for key in held:
            desk.xdotool("keydown", key)
        move(middle(self.rows(program)[title]))
        desk.xdotool("click", "1")
        for key in held:
            desk.xdotool("keyup", key)

    def wait_chosen(self, program, expected):
        desk.wait_until(
            lambda: self.chosen(program) == expected, what=lambda: f"{self.chosen(program)}, not {expected}"
        )

    def test_it_filters_and_brings_a_tab_to_the_front(self):
        with self.start() as program:
            self.ready(program)
            self.open(program)
            program.find("text", "Filter tabs")
            desk.wait_until(lambda: desk.is_focused(program.find("text", "Filter tabs")), what="no keyboard")
            desk.xdotool("type", "mead")
            self.wait_rows(program, ["four", "Meadow"])
            desk.xdotool("key", "Return")
            program.wait_strip(["about:blank", "Garden", "Pond", "[Meadow]", "Wood"])
            self.click_filter(program)
            desk.xdotool("key", "Escape")
            self.wait_rows(program, ["about:blank", "four", *TITLES])
            self.click(program, "Pond")
            program.wait_strip(["about:blank", "Garden", "[Pond]", "Meadow", "Wood"])

    def click_filter(self, program):
        desk.click(program.find("text", "Filter tabs"))
        desk.wait_until(lambda: desk.is_focused(program.find("text", "Filter tabs")), what="no keyboard")

    def test_several_are_chosen_and_closed(self):
        with self.start() as program:
            self.ready(program)
            self.open(program)
            self.click(program, "Garden", "ctrl")
            self.wait_chosen(program, ["Garden", "Wood"])
            self.click(program, "Meadow", "shift")
            self.wait_chosen(program, ["Garden", "Pond", "Meadow"])
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            program.wait_menu(lambda: self.menu_at(program, "Pond"))
            desk.xdotool("key", "c")
            program.wait_strip(["about:blank", "[Wood]"])
            program.keys("ctrl+shift+t")
            desk.wait_until(lambda: len(program.strip()) == 5, what=lambda: str(program.strip()))

    def menu_at(self, program, title):
        move(middle(self.rows(program)[title]))
        desk.xdotool("click", "3")

    def test_lines_are_put_in_order(self):
        with self.start() as program:
            self.ready(program)
            self.open(program)
            place = self.rows(program)["Garden"].queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            drag(middle(self.rows(program)["Wood"]), (place.x + place.width // 2, place.y + 3))
            self.wait_rows(program, ["about:blank", "four", "Wood", "Garden", "Pond", "Meadow"])
            program.wait_strip(["about:blank", "[Wood]", "Garden", "Pond", "Meadow"])

    def test_it_is_there_at_the_next_start_and_the_strip_may_be_hidden(self):
        with self.start() as program:
            self.ready(program)
            self.open(program)
            program.wait_menu(lambda: program.press("push button", "Menu of the tabs at the side"))
            desk.xdotool("key", "h")
            desk.wait_until(lambda: not self.strip_shows(program), what="the strip is still there")
            program.keys("ctrl+q")
            self.assertEqual(program.wait_end(), 0)
        with desk.Program(PROGRAM, home=self.home) as program:
            desk.wait_until(lambda: set(TITLES) <= set(self.names(program) or []), what=lambda: self.names(program))
            self.assertFalse(self.strip_shows(program))
            program.keys("ctrl+shift+e")
            desk.wait_until(lambda: self.strip_shows(program), what="the strip has not come back")
            self.assertIsNone(self.list_now(program))

    def strip_shows(self, program):
        tabs = program.tabs()
        return bool(tabs) and desk.is_showing(tabs[0].parent)

    def test_tabs_of_the_strip_are_chosen_with_ctrl_and_shift(self):
        with self.start() as program:
            self.ready(program)
            program.focus()
            said = lambda: [tab.name for tab in program.tabs() if tab.description == "Selected with others"]
            desk.xdotool("keydown", "ctrl")
            move(middle(program.tabs()[1]))
            desk.xdotool("click", "1", "keyup", "ctrl")
            desk.wait_until(lambda: said() == ["Garden", "Wood"], what=lambda: str(said()))
            desk.xdotool("keydown", "shift")
            move(middle(program.tabs()[2]))
            desk.xdotool("click", "1", "keyup", "shift")
            desk.wait_until(lambda: said() == ["Garden", "Pond"], what=lambda: str(said()))
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            program.keys("Escape")
            desk.wait_until(lambda: said() == [], what=lambda: str(said()))
            move(middle(program.tabs()[3]))
            desk.xdotool("click", "1")
            program.wait_strip(["about:blank", "Garden", "Pond", "[Meadow]", "Wood"])


if __name__ == "__main__":
    desk.main()
