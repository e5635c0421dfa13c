"""A TessaGroup named on the command line."""

import os
import unittest

import desk

PROGRAM = desk.program_file()


class GroupOnTheCommandLine(unittest.TestCase):
    def test_every_address_becomes_a_tab_named_after_its_page(self):
        home = desk.state_folder()
        group = os.path.join(home, "three.tvg")
        with desk.PageServer(hosts=3) as pages:
            desk.write_group(group, [pages.address(title, host) for host, title in enumerate(("One", "Two", "Three"), 1)])
            with desk.Program(PROGRAM, group, home=home) as program:
                # The window's own first tab stays blank; the address named last ends in front.
                program.wait_strip(["about:blank", "One", "Two", "[Three]"])
                asked = [each for each in pages.requested() if "favicon" not in each]
                self.assertEqual(sorted(asked), ["127.0.0.1/One", "127.0.0.2/Two", "127.0.0.3/Three"])

    def test_a_relative_path_is_meant_from_the_current_folder(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            desk.write_group(os.path.join(home, "one.tvg"), [pages.address("One")])
            with desk.Program(PROGRAM, "one.tvg", home=home, folder=home) as program:
                program.wait_strip(["about:blank", "[One]"])

    def test_a_group_that_is_not_there_leaves_a_blank_page(self):
        home = desk.state_folder()
        with desk.Program(PROGRAM, os.path.join(home, "none.tvg"), home=home) as program:
            program.wait_strip(["[about:blank]"])


if __name__ == "__main__":
    desk.main()
