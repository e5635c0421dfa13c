"""What is offered after a crash: which pages there were, in the place of those that came back by themselves."""

import os
import unittest

import desk
import lives

PROGRAM = desk.program_file()


def labels(program):
    return [node.name for node in desk.walk(program.application()) if desk.role_of(node) == "label"]


class SessionOffer(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def hand_over(self, address):
        with desk.Program(PROGRAM, address, home=self.home) as later:
            self.assertEqual(later.wait_end(), 0)

    def wait_written(self, program, *titles):
        """Waits until these pages are written down."""
        folder = os.path.join(self.home, "sessions")

        def written():
            files = [os.path.join(folder, name) for name in os.listdir(folder)]
            mine = [file for file in files if file.endswith(f"-{program.process.pid}.session")]
            return mine and lives.Session(mine[0]).titles == list(titles)

        desk.wait_until(written, what=lambda: f"{titles} are not written down")

    def test_reopened_pages_take_the_place_of_those_that_came_back(self):
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("Garden"), home=self.home) as program:
                program.wait_strip(["[Garden]"])
                self.hand_over(pages.address("Pond"))
                program.wait_strip(["Garden", "[Pond]"])
                program.keys("ctrl+q")
                program.wait_end()
            with desk.Program(PROGRAM, home=self.home) as program:
                program.wait_strip(["Garden", "[Pond]"])
                self.hand_over(pages.address("Meadow"))
                program.wait_strip(["Garden", "Pond", "[Meadow]"])
                self.wait_written(program, "Garden", "Pond", "Meadow")
                program.kill()
            with desk.Program(PROGRAM, home=self.home) as program:
                program.find("label", lives.offer_of(3))
                program.wait_strip(["Garden", "[Pond]"])
                [which] = [each for each in labels(program) if "Meadow" in each]
                self.assertTrue(which.startswith("Today, "), which)
                self.assertTrue(which.endswith(": “Garden”, “Pond” and “Meadow”"), which)
                program.press("push button", "Reopen")
                program.wait_strip(["Garden", "Pond", "[Meadow]"])


if __name__ == "__main__":
    desk.main()
