# Tests: DrawingChoice
"""Pages are drawn with the graphics processor or without: on either way they show, the window stays the one that came up,
and the task view says which way it is."""

import os
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()
RED = (255, 0, 0)
PAGE = """<!doctype html><title>Red</title><body style="margin:0;background:#f00">
<p style="animation: turn 1s infinite linear">Red</p><style>@keyframes turn { to { transform: rotate(360deg) } }</style>"""
WAYS = {"software": "Pages are drawn without the graphics processor.",
        "hardware": "Pages are drawn with the graphics processor."}


class Drawing(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.page = os.path.join(self.home, "red.html")
        with open(self.page, "w", encoding="utf-8") as file:
            file.write(PAGE)
        self.addCleanup(os.environ.pop, "TESSAVIEW_DRAWING", None)

    def colour_of_page(self, program):
        """The colour of the page, below its words, as it is on the screen."""
        picture = os.path.join(self.home, "page.ppm")
        subprocess.run(["import", "-window", program.window_id(), "-crop", "1x1+500+500", "-depth", "8", picture],
                            check=True)
        with open(picture, "rb") as file:
            return tuple(file.read()[-3:])

    def wait_red(self, program):
        desk.wait_until(lambda: self.colour_of_page(program) == RED, what=lambda: f"it is {self.colour_of_page(program)}")

    def wait_told(self, program, way):
        program.keys("ctrl+shift+Escape")
        program.find("label", WAYS[way])

    def test_on_either_way_pages_show_in_the_window_that_came_up(self):
        for way in WAYS:
            with self.subTest(way=way):
                os.environ["TESSAVIEW_DRAWING"] = way
                with desk.Program(PROGRAM, self.page, home=self.home) as program:
                    program.window()
                    first = program.window_id()
                    program.wait_strip(["[Red]"])
                    self.wait_red(program)
                    self.assertEqual(program.window_id(), first)
                    self.wait_told(program, way)

    def test_without_the_graphics_processor_opengl_is_left_alone_and_other_programs_never_hear_it(self):
        os.environ["TESSAVIEW_DRAWING"] = "software"
        with desk.Program(PROGRAM, self.page, home=self.home) as program:
            program.wait_strip(["[Red]"])
            self.wait_red(program)
            with open(f"/proc/{program.process.pid}/maps", encoding="utf-8") as maps:
                loaded = maps.read()
            # Newer engines look for drivers themselves; what sets OpenGL up for windows is a part of Qt's own.
            self.assertFalse("xcbglintegrations" in loaded)
            with open(f"/proc/{program.process.pid}/task/{program.process.pid}/children", encoding="ascii") as children:
                started = children.read().split()
            self.assertTrue(started)
            for child in started:
                with open(f"/proc/{child}/environ", "rb") as environment:
                    self.assertFalse(b"QT_XCB_GL_INTEGRATION" in environment.read())
            self.assertNotIn("OpenGL context", program.errors())

    @unittest.skipIf(os.path.isdir("/dev/dri"), "this computer may have a graphics processor")
    def test_without_a_graphics_processor_it_is_not_used(self):
        with desk.Program(PROGRAM, self.page, home=self.home) as program:
            program.wait_strip(["[Red]"])
            self.wait_red(program)
            self.wait_told(program, "software")


if __name__ == "__main__":
    desk.main()
