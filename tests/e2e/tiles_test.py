"""Several tabs side by side: four in panes come back in their panes after a crash and after a proper end; a tab is
dragged to a page's edge; a page without panes has all the room."""

import os
import unittest

import pyatspi

import desk
import lives

PROGRAM = desk.program_file()
TITLES = ["Garden", "Pond", "Meadow", "Wood"]


def extents(node):
    box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return box.x, box.y, box.width, box.height


class Tiles(unittest.TestCase):
    def setUp(self):
        # Where a page lies is read from what the engine tells of it.
        desk.listen_as_a_screen_reader(self)
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def group(self, more=""):
        file = os.path.join(self.home, "four.tvg")
        with open(file, "w") as lines:
            lines.write("[TessaGroup]\n")
            for number, title in enumerate(TITLES, 1):
                lines.write(f"url{number}={self.pages.address(title)}\n")
            lines.write(more)
        return file

    def panes(self, program):
        """The headers of the panes that are seen, each with its place."""
        found = {}
        for node in desk.walk(program.application(), lambda node: node.getRoleName() != "document web"):
            if desk.role_of(node) == "push button" and node.name in TITLES and desk.is_showing(node):
                found[node.name] = extents(node)
        return found

    def wait_panes(self, program, *rows):
        """Waits until the panes lie in these rows, each a list of titles from left to right."""

        def in_rows():
            found = self.panes(program)
            tops = sorted({box[1] for box in found.values()})
            return [[title for _, title in sorted((box[0], title) for title, box in found.items() if box[1] == top)]
                    for top in tops]

        desk.wait_until(lambda: in_rows() == list(rows), what=lambda: f"the panes are {in_rows()}, not {list(rows)}")

    def wait_drawn(self, program, *titles):
        """Waits until a page is seen right under each of these headers, and no other page."""

        def seen():
            nodes = desk.walk(program.application(), lambda node: node.getRoleName() != "document web")
            views = [node.parent for node in nodes if node.getRoleName() == "document web"]
            return sorted(extents(view) for view in views if desk.is_showing(view))

        def wanted():
            panes = self.panes(program)
            return sorted((panes[t][0], panes[t][1] + panes[t][3], panes[t][2]) for t in titles)

        desk.wait_until(
            lambda: [place[:3] for place in seen()] == wanted(), what=lambda: f"pages at {seen()}, not {wanted()}"
        )

    def wait_alone(self, program):
        """Waits until one page is seen, without a header."""
        desk.wait_until(lambda: not self.panes(program), what="there are panes still")

    def wait_written(self, program, layout):
        """Waits until the layout is in the journal."""
        folder = os.path.join(self.home, "sessions")

        def written():
            files = [os.path.join(folder, name) for name in os.listdir(folder)] if os.path.isdir(folder) else []
            mine = [file for file in files if file.endswith(f"-{program.process.pid}.session")]
            with open(mine[0]) as lines:
                return f'Tiles="{layout}"\n' in lines.read()

        desk.wait_until(written, what=f"{layout} is not written down")

    def tile(self, program, key):
        """Chooses from the menu of panes."""
        program.wait_menu(lambda: program.keys("alt+m"))
        program.wait_menu(lambda: desk.xdotool("key", "b"))
        desk.xdotool("key", key)

    def test_four_panes_come_back_after_a_crash(self):
        with desk.Program(PROGRAM, self.group(), home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            self.tile(program, "g")
            self.wait_panes(program, TITLES[:2], TITLES[2:])
            self.wait_drawn(program, *TITLES)
            self.wait_written(program, "v(h(1 2) h(3 4))")
            program.kill()
        with desk.Program(PROGRAM, home=self.home) as program:
            program.find("label", lives.offer_of(4))
            program.press("push button", "Reopen")
            self.wait_panes(program, TITLES[:2], TITLES[2:])
            self.wait_drawn(program, *TITLES)

    def test_a_group_brings_its_panes_and_a_reopened_tab_lies_in_its_own(self):
        with desk.Program(PROGRAM, self.group("[TessaView]\npanes=h(1 v(2 4))\n"), home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            self.wait_panes(program, ["Garden", "Pond"], ["Wood"])
            self.wait_drawn(program, "Garden", "Pond", "Wood")
            program.keys("ctrl+w")
            self.wait_panes(program, ["Garden", "Pond"])
            program.keys("ctrl+shift+t")
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            self.wait_panes(program, ["Garden", "Pond"], ["Wood"])
            width = self.panes(program)["Garden"][2]
            self.tile(program, "v")
            desk.wait_until(lambda: desk.is_focused(program.find("filler", "Dividers")), what="no divider has the keyboard")
            desk.xdotool("key", "Left", "Left")
            desk.wait_until(lambda: self.panes(program)["Garden"][2] == width - 40, what="the divider stays")
            desk.xdotool("key", "Home")
            desk.wait_until(lambda: self.panes(program)["Garden"][2] == width, what="the divider does not go back")

    def test_panes_come_back_at_the_next_start(self):
        with desk.Program(PROGRAM, self.group(), home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            self.tile(program, "r")
            self.wait_panes(program, *[[title] for title in TITLES])
            program.keys("ctrl+q")
            self.assertEqual(program.wait_end(), 0)
        with desk.Program(PROGRAM, home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            self.wait_panes(program, *[[title] for title in TITLES])
            self.wait_drawn(program, *TITLES)

    def test_escape_leaves_the_dividers_and_the_tabs_that_are_chosen(self):
        with desk.Program(PROGRAM, self.group(), home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            program.focus()
            said = lambda: [tab.name for tab in program.tabs() if tab.description == "Selected with others"]
            desk.xdotool("keydown", "shift")
            desk.click(program.tabs()[1])
            desk.xdotool("keyup", "shift")
            desk.wait_until(lambda: said() == TITLES, what=lambda: str(said()))
            self.tile(program, "g")
            self.wait_panes(program, TITLES[:2], TITLES[2:])
            width = lambda: self.panes(program)["Meadow"][2]
            equal = width()
            self.tile(program, "v")
            desk.xdotool("key", "Right")
            desk.wait_until(lambda: width() > equal, what="the divider stays")
            desk.xdotool("key", "Escape")
            moved = width()
            self.tile(program, "v")
            desk.xdotool("key", "Right")
            desk.wait_until(lambda: width() > moved, what="the divider stays")
            self.assertEqual(said(), TITLES)

    def test_a_tab_is_dragged_to_an_edge_and_a_click_gives_a_pane_the_focus(self):
        with desk.Program(PROGRAM, self.group(), home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            program.focus()
            tab = program.find("page tab", "Pond")
            x, y, width, height = extents(tab)
            left, top, wide, high = extents(program.find("frame", desk.WINDOW_TITLE))
            desk.xdotool("mousemove", str(x + width // 2), str(y + height // 2), "mousedown", "1")
            program.wait_strip(["about:blank", "Garden", "[Pond]", "Meadow", "Wood"])
            for step in (60, 120, 200):
                desk.xdotool("mousemove", str(left + 40), str(y + height + step))
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            desk.xdotool("mousemove", str(left + 30), str(top + high // 2), "mouseup", "1")
            program.wait_strip(["about:blank", "Garden", "[Pond]", "Meadow", "Wood"])
            self.wait_panes(program, ["Pond", "Wood"])
            self.wait_drawn(program, "Pond", "Wood")
            box = self.panes(program)["Wood"]
            middle = (str(box[0] + box[2] // 2), str(box[1] + 200))
            desk.xdotool("mousemove", *middle, "click", "1")
            program.wait_strip(["about:blank", "Garden", "Pond", "Meadow", "[Wood]"])
            desk.wait_until(lambda: desk.text_of(program.find("text", "Address")) == self.pages.address("Wood"))
            self.tile(program, "a")
            self.wait_alone(program)


if __name__ == "__main__":
    desk.main()
