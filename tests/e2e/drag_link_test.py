"""Links that are dragged out of a page onto the tab strip: they lead where they point, be the page a file or not."""

import os
import unittest

import desk
from strip_test import PROGRAM, drag, middle

# The upper half of the page is one link, the lower half another.
LINK = "<a href='{}' style='position:absolute;left:0;top:{}%;width:100%;height:50%'>{}</a>"


def windows(program):
    found = desk.xdotool("search", "--onlyvisible", "--pid", str(program.process.pid), "--name", ".*")
    return set(found.split())


def drag_out(program, height, tab):
    """Drags from the page at a part of the window's height to a tab."""
    told = desk.xdotool("getwindowgeometry", "--shell", program.window_id())
    place = {name: int(value) for name, value in (line.split("=") for line in told.splitlines())}
    start = (place["X"] + place["WIDTH"] // 2, place["Y"] + int(place["HEIGHT"] * height))
    before = windows(program)
    # What is dragged is shown at the pointer, in a window.
    drag(start, middle(program.tabs()[tab]), lambda: windows(program) - before)


class DragLink(unittest.TestCase):
    def test_links_of_a_page_on_the_local_disk(self):
        home = desk.state_folder()
        page, other = (os.path.join(home, name) for name in ("a page.html", "another page.html"))
        with desk.PageServer() as pages:
            with open(page, "w", encoding="utf-8") as file:
                file.write("<!doctype html><title>Local</title>" + LINK.format("another page.html", 0, "The other"))
                file.write(LINK.format(pages.address("Web"), 50, "The web"))
            with open(other, "w", encoding="utf-8") as file:
                file.write("<!doctype html><title>Other</title>")
            with desk.Program(PROGRAM, page, home=home) as program:
                program.wait_strip(["[Local]"])
                program.focus()
                drag_out(program, 0.35, 0)
                program.wait_strip(["Local", "[Other]"])
                desk.click(program.tabs()[0])
                program.wait_strip(["[Local]", "Other"])
                drag_out(program, 0.8, 1)
                program.wait_strip(["[Local]", "Web"])


if __name__ == "__main__":
    desk.main()
