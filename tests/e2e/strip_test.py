# Tests: StripAssembly
"""The tab strip under a real pointer: the popup on a background tab, tabs that are dragged, what another program drops."""

import os
import subprocess
import unittest

import desk
import pyatspi
from pointer import drag, middle, move

PROGRAM = desk.program_file()
DRAG_SOURCE = os.path.join(os.path.dirname(PROGRAM), "tests", "text_drag_source")


class Source:
    """Another program's window. It is put right above where it drags to: on the way there is nothing else that would
    take what is dragged, be it the page, a box or another tab."""

    SIZE = (100, 30)

    def __init__(self, kind, text):
        self.process = subprocess.Popen([DRAG_SOURCE, kind, text], stdin=subprocess.DEVNULL)

    def __enter__(self):
        self.window = desk.wait_until(lambda: self.find("Drag Source"), what="no drag source")
        return self

    def __exit__(self, *error):
        self.process.kill()
        self.process.wait()

    def find(self, title):
        return desk.xdotool("search", "--all", "--pid", str(self.process.pid), "--name", f"^{title}$").split("\n")[0]

    def put_above(self, point):
        """Where it can be pressed now."""
        width, height = self.SIZE
        middle = (point[0], point[1] - height)
        desk.xdotool("windowmove", self.window, str(middle[0] - width // 2), str(middle[1] - height // 2))

        def place():
            shell = desk.xdotool("getwindowgeometry", "--shell", self.window).split()
            found = dict(line.split("=") for line in shell)
            return int(found["X"]) + width // 2, int(found["Y"]) + height // 2

        desk.wait_until(lambda: place() == middle, what=lambda: f"the window is at {place()}, not at {middle}")
        return middle

    def wait_end(self):
        """How the drag ended: refused, taken, or lost on its way."""
        return desk.wait_until(
            lambda: next((how for how in ("refused", "taken", "lost") if self.find(f"Drag Source {how}")), None),
            what="the drag did not end",
        )


class Strip(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def start(self, pages, *titles):
        """The program with one tab for each title."""
        group = os.path.join(self.home, "start.tvg")
        desk.write_group(group, [pages.address(title) for title in titles])
        return desk.Program(PROGRAM, group, home=self.home)

    def windows(self, program):
        """The numbers of the program's windows that can be seen. Popups of no menu are not on the accessibility bus."""
        found = desk.xdotool("search", "--onlyvisible", "--pid", str(program.process.pid), "--name", ".*")
        return set(found.split())

    def popup(self, program, position, *keys):
        """Opens the popup of a tab by the right button, presses keys in it and waits until it has gone."""
        program.focus()
        before = self.windows(program)
        move(middle(program.tabs()[position]))
        desk.xdotool("click", "3")
        desk.wait_until(lambda: self.windows(program) - before, what="no popup")
        for key in keys:
            desk.xdotool("key", key)
        desk.wait_until(lambda: not self.windows(program) - before, what=f"the popup is still there after {keys}")

    def test_popup_works_on_the_tab_under_the_pointer_and_selects_nothing(self):
        with desk.PageServer() as pages, desk.PageServer(answers=0) as slow:
            asked = lambda: slow.requested().count("127.0.0.1/Slow")
            with desk.Program(PROGRAM, pages.address("One"), home=self.home) as program:
                program.wait_strip(["[One]"])
                self.drop(program, "link", slow.address("Slow"), 0)
                desk.wait_until(lambda: len(program.strip()) == 2 and asked() == 1)
                program.keys("ctrl+t")
                desk.wait_until(lambda: len(program.strip()) == 3)
                strip = program.strip()
                self.assertTrue(strip[2].startswith("["), strip)
                count = len(pages.requested())
                # Stop is disabled for a page that is there, so its key does nothing; Refresh works.
                self.popup(program, 0, "s", "r")
                desk.wait_until(lambda: len(pages.requested()) > count, what=lambda: str(pages.requested()))
                # For a busy page it is the other way round; once stopped, it can be refreshed.
                self.popup(program, 1, "r", "s")
                self.assertEqual(asked(), 1)
                self.popup(program, 1, "r")
                desk.wait_until(lambda: asked() == 2, what="the stopped page was not asked for again")
                self.assertEqual([each.startswith("[") for each in program.strip()], [False, False, True])
                self.popup(program, 0, "c")
                desk.wait_until(lambda: len(program.strip()) == 2, what=lambda: str(program.strip()))
                self.assertNotIn("One", program.strip())
                self.assertTrue(program.strip()[1].startswith("["), program.strip())

    def test_a_tab_is_dragged_and_comes_back_in_its_new_place(self):
        with desk.PageServer() as pages:
            with self.start(pages, "One", "Two", "Three") as program:
                names = lambda: [each.strip("[]") for each in program.strip()]
                # The first tab stays blank; it has that caption late.
                before = ["about:blank", "One", "Two", "Three"]
                desk.wait_until(lambda: names() == before, what=lambda: str(program.strip()))
                program.focus()
                drag(middle(program.tabs()[-1]), middle(program.tabs()[0]))
                desk.wait_until(lambda: names() == before[-1:] + before[:-1], what=lambda: str(program.strip()))
                self.assertTrue(program.strip()[0].startswith("["), program.strip())
                after = names()
                program.keys("ctrl+q")
                program.wait_end()
            with desk.Program(PROGRAM, home=self.home) as program:
                desk.wait_until(
                    lambda: [each for each in names() if each in after and each != "about:blank"]
                    == [each for each in after if each != "about:blank"],
                    what=lambda: f"{program.strip()} after {after}",
                )

    def drop(self, program, kind, text, position, how="taken"):
        """Drags from another program to a tab, or with no position to the empty part of the strip."""
        tabs = program.tabs()
        target = middle(tabs[position]) if position is not None else None
        if target is None:
            last = tabs[-1].queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            target = (last.x + last.width + 60, last.y + last.height // 2)
        def ended():
            with Source(kind, text) as source:
                # What is refused shows it only at the end.
                drag(source.put_above(target), target, lambda: how == "refused" or source.find("Drag Source accepted"))
                return source.wait_end()

        end = desk.wait_until(lambda: (found := ended()) != "lost" and found, what="all that was dropped was lost")
        self.assertEqual(end, how)

    def test_links_and_text_from_another_program_are_loaded_where_they_are_dropped(self):
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("Start"), home=self.home) as program:
                program.wait_strip(["[Start]"])
                self.drop_and_wait(program, "link", pages.address("Dropped"), 0, ["Start", "[Dropped]"].__eq__)
                self.drop_and_wait(program, "text", pages.address("Plain"), 0, ["Plain", "[Dropped]"].__eq__)
                self.drop(program, "file", "/etc/hosts", 0, how="refused")
                self.assertEqual(program.strip(), ["Plain", "[Dropped]"])

    def drop_and_wait(self, program, kind, text, position, arrived):
        self.drop(program, kind, text, position)
        desk.wait_until(
            lambda: arrived(program.strip()), what=lambda: f"nothing arrived of {text[:80]}: {program.strip()}"
        )

    def test_ten_megabytes_of_text_do_no_harm(self):
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("Start"), home=self.home) as program:
                program.wait_strip(["[Start]"])
                self.drop_and_wait(program, "text", "5000000*x ", None, lambda strip: len(strip) > 1)
                self.drop_and_wait(program, "link", pages.address("After"), 0, lambda strip: "After" in "".join(strip))


if __name__ == "__main__":
    desk.main()
