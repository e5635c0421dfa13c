"""A TessaGroup's file that is dragged from another program onto the window opens as a group, wherever it falls."""

import contextlib
import os
import subprocess
import time
import unittest

import desk

PROGRAM = desk.program_file()
SOURCE = os.path.join(os.path.dirname(PROGRAM), "tests", "drag_source")


def place_of(window):
    """Left, top, width and height of a window of the X server."""
    told = desk.xdotool("getwindowgeometry", "--shell", window)
    values = dict(line.split("=") for line in told.splitlines())
    return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


class Drop(unittest.TestCase):
    @contextlib.contextmanager
    def dropped(self, program, part, *files):
        """Files that were dragged from another program to a part of the window's height, by steps as a hand does."""
        left, top, width, height = place_of(program.window_id())
        x, y = left + width // 2, top + int(height * part)
        with subprocess.Popen([SOURCE, *files], stderr=subprocess.DEVNULL) as source:
            try:
                desk.wait_until(lambda: desk.xdotool("search", "--onlyvisible", "--name", "^Drag me$"))
                desk.xdotool("mousemove", "20", "20", "mousedown", "1")
                for step in range(1, 13):
                    # The drag follows the pointer by its movements, of which the X server reports the last of a moment.
                    time.sleep(0.05)
                    desk.xdotool("mousemove", str(20 + (x - 20) * step // 12), str(20 + (y - 20) * step // 12))
                desk.xdotool("mouseup", "1")
                yield
            finally:
                desk.xdotool("mouseup", "1")
                source.kill()

    def test_a_group_opens_over_the_page_and_over_the_toolbars(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            one, two = os.path.join(home, "one.tvg"), os.path.join(home, "two.tvg")
            desk.write_group(one, [pages.address("One")])
            desk.write_group(two, [pages.address("Two"), pages.address("Three")])
            with desk.Program(PROGRAM, pages.address("Start"), home=home) as program:
                program.wait_strip(["[Start]"])
                with self.dropped(program, 0.6, one):
                    program.wait_strip(["Start", "[One]"])
                # Addresses that never come do no harm to the page that they fall on.
                with self.dropped(program, 0.6):
                    program.wait_strip(["Start", "[One]"])
                with self.dropped(program, 0.04, one, two):
                    program.wait_strip(["Start", "One", "One", "Two", "[Three]"])


if __name__ == "__main__":
    desk.main()
