"""Groups of tabs as a unit: the head in the strip, folding, what has changed and saving it back, pinned tabs; all of it
comes back after a crash and at the next start."""

import os
import unittest

import pyatspi

import desk
import lives
from pointer import drag, middle

PROGRAM = desk.program_file()
TITLES = ["Garden", "Pond", "Meadow"]


class TabGroups(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)
        self.file = os.path.join(self.home, "Walk.tvg")
        with open(self.file, "w", newline="") as lines:
            lines.write("; mine\r\n[TessaGroup]\r\n")
            for number, title in enumerate(TITLES, 1):
                lines.write(f"url{number}={self.pages.address(title)}\r\n")
            lines.write("[Other]\r\nx=1\r\n")

    def lines(self):
        with open(self.file, newline="") as lines:
            return lines.read()

    def wait_head(self, program, said):
        """Waits until the head of the group says this."""

        def heads():
            nodes = desk.walk(program.application(), lambda node: node.getRoleName() != "document web")
            return [node for node in nodes if desk.role_of(node) == "push button" and node.name.startswith("Group ")]

        desk.wait_until(
            lambda: [head.name for head in heads()] == [said], what=lambda: f"{[h.name for h in heads()]}, not {said}"
        )
        return heads()[0]

    def wait_seen(self, program, *titles):
        """Waits until these tabs of the strip are seen, and no others."""

        def seen():
            return [tab.name for tab in program.tabs() if tab.getState().contains(pyatspi.STATE_VISIBLE)]

        desk.wait_until(lambda: seen() == list(titles), what=lambda: f"seen are {seen()}, not {titles}")

    def choose(self, program, node, *keys):
        """Chooses from the menu of something in the strip, by access keys."""
        program.wait_menu(lambda: desk.click(node, button=3))
        for key in keys[:-1]:
            program.wait_menu(lambda key=key: desk.xdotool("key", key))
        shown = program.windows_shown()
        desk.xdotool("key", keys[-1])
        desk.wait_until(lambda: program.windows_shown() < shown, what="the menu stays")

    def wait_written(self, program, *lines):
        """Waits until these lines are in the journal."""
        folder = os.path.join(self.home, "sessions")

        def written():
            files = [os.path.join(folder, name) for name in os.listdir(folder)] if os.path.isdir(folder) else []
            mine = [file for file in files if file.endswith(f"-{program.process.pid}.session")]
            if not mine:
                return False
            with open(mine[0]) as text:
                there = text.read().splitlines()
            return all(line in there for line in lines)

        desk.wait_until(written, what=f"{lines} are not written down")

    def test_a_group_folds_changes_and_is_saved_back(self):
        with desk.Program(PROGRAM, self.file, home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "[Meadow]"])
            program.focus()
            head = self.wait_head(program, "Group Walk, 3 tabs")
            desk.click(head)
            self.wait_head(program, "Group Walk, 3 tabs, folded")
            self.wait_seen(program, "about:blank", "Meadow")
            program.keys("ctrl+shift+Tab")
            program.wait_strip(["about:blank", "Garden", "[Pond]", "Meadow"])
            self.wait_seen(program, "about:blank", "Pond")
            desk.press_node(self.wait_head(program, "Group Walk, 3 tabs, folded"))
            self.wait_seen(program, "about:blank", "Garden", "Pond", "Meadow")
            program.keys("ctrl+w")
            program.wait_strip(["about:blank", "Garden", "[Meadow]"])
            head = self.wait_head(program, "Group Walk, 2 tabs, changed: its tabs and its file differ")
            before = self.lines()
            self.choose(program, head, "s")
            self.wait_head(program, "Group Walk, 2 tabs")
            self.assertEqual(self.lines(), before.replace(f"url2={self.pages.address('Pond')}\r\n", ""))
            program.press("push button", "Undo")
            self.wait_head(program, "Group Walk, 2 tabs, changed: its tabs and its file differ")
            self.assertEqual(self.lines(), before)

    def test_pinned_tabs_stay_and_all_comes_back_after_a_crash(self):
        with desk.Program(PROGRAM, self.file, home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "[Meadow]"])
            program.focus()
            self.choose(program, program.find("page tab", "Meadow"), "m", "p")
            program.wait_strip(["[Meadow]", "about:blank", "Garden", "Pond"])
            changed = "Group Walk, 2 tabs, changed: its tabs and its file differ"
            self.wait_head(program, changed)
            self.choose(program, program.find("page tab", "about:blank"), "m", "i")
            program.wait_strip(["[Meadow]", "about:blank"])
            program.keys("ctrl+shift+t")
            program.wait_strip(["Meadow", "about:blank", "[Garden]", "Pond"])
            desk.click(self.wait_head(program, changed))
            self.wait_head(program, changed + ", folded")
            self.choose(program, program.find("page tab", "about:blank"), "m", "o")
            program.wait_strip(["Meadow", "[about:blank]"])
            program.keys("ctrl+shift+t")
            program.wait_strip(["Meadow", "about:blank", "[Garden]", "Pond"])
            self.wait_head(program, changed + ", folded")
            self.wait_written(program, "[Pins]", 'Tabs="1"', 'Tabs="2", "3"', "Folded=1", f"File={self.file}")
            program.kill()
        with desk.Program(PROGRAM, home=self.home) as program:
            program.find("label", lives.offer_of(3))
            program.press("push button", "Reopen")
            self.wait_head(program, changed + ", folded")
            program.wait_strip(["Meadow", "TessaView", "[Garden]", "Pond"])
            self.wait_seen(program, "Meadow", "TessaView", "Garden")
            program.keys("ctrl+q")
            self.assertEqual(program.wait_end(), 0)
        with desk.Program(PROGRAM, home=self.home) as program:
            program.wait_strip(["Meadow", "TessaView", "Garden", "[Pond]"])
            self.wait_head(program, changed + ", folded")
            self.wait_seen(program, "Meadow", "TessaView", "Pond")

    def test_a_head_is_dragged_with_its_tabs_and_a_tab_is_dropped_on_it(self):
        with desk.Program(PROGRAM, self.file, home=self.home) as program:
            program.wait_strip(["about:blank", "Garden", "Pond", "[Meadow]"])
            program.focus()
            head = self.wait_head(program, "Group Walk, 3 tabs")
            place = program.find("page tab", "about:blank").queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            before = (place.x + 4, place.y + place.height // 2)
            moved = ["Garden", "Pond", "[Meadow]", "about:blank"]
            drag(middle(head), before, lambda: program.strip() == moved)
            program.wait_strip(moved)
            self.wait_head(program, "Group Walk, 3 tabs")
            self.wait_seen(program, "Garden", "Pond", "Meadow", "about:blank")
            drag(middle(program.find("page tab", "about:blank")), middle(self.wait_head(program, "Group Walk, 3 tabs")))
            self.wait_head(program, "Group Walk, 4 tabs")
            program.wait_strip(["[about:blank]", "Garden", "Pond", "Meadow"])


if __name__ == "__main__":
    desk.main()
