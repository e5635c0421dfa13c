# Tests: DesktopAssembly, RunningProgram, WindowAssembly
"""The main window goes into the task bar and comes back, and so does what it shows."""

import os
import unittest
import urllib.parse

import desk

PROGRAM = desk.program_file()
# A page whose title is its name and how much room it has.
SIZED = """<!doctype html><script>
const say = () => {{ document.title = `{name} ${{innerWidth}}x${{innerHeight}}`; }};
say();
window.onresize = say;
</script>"""


def sized(name):
    return "data:text/html," + urllib.parse.quote(SIZED.format(name=name))


class Window(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def test_a_tab_activated_while_minimized_fills_the_window_that_comes_back(self):
        group = os.path.join(self.home, "sized.tvg")
        desk.write_group(group, [sized("A"), sized("B")])
        with desk.Program(PROGRAM, group, home=self.home) as program:

            def sizes():
                return {name: size for name, _, size in (tab.strip("[]").partition(" ") for tab in program.strip())}

            desk.wait_until(lambda: set(sizes()) == {"about:blank", "A", "B"}, what=program.strip)
            desk.press_node(program.tabs()[1])
            desk.wait_until(lambda: program.strip()[1].startswith("[A "), what=program.strip)
            before = desk.wait_until(lambda: "x" in sizes()["A"] and sizes()["A"], what=program.strip)
            desk.press_node(program.tabs()[2])
            desk.xdotool("windowsize", "--sync", program.window_id(), "900", "600")
            # The page behind has kept the place that it had.
            desk.wait_until(lambda: sizes()["B"].startswith("900x"), what=program.strip)
            self.assertEqual(sizes()["A"], before)
            program.minimize()
            desk.press_node(program.tabs()[1])
            desk.wait_until(lambda: program.strip()[1].startswith("[A "), what=program.strip)
            program.focus()
            desk.wait_until(lambda: sizes()["A"] == sizes()["B"], what=program.strip)


if __name__ == "__main__":
    desk.main()
