"""A second start of the program hands its command line to the one that runs."""

import unittest

import desk

PROGRAM = desk.program_file()


class HandOff(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def test_a_second_start_gives_its_address_to_the_first_and_ends(self):
        with desk.PageServer(hosts=2) as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, pages.address("Second", host=2), home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            first.wait_strip(["First", "[Second]"])

    def test_a_second_start_without_address_adds_no_tab(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            # Had it asked for a tab, that would stand beside this one, for hand-overs keep their order.
            with desk.Program(PROGRAM, pages.address("Third"), home=self.home) as third:
                self.assertEqual(third.wait_end(), 0)
            first.wait_strip(["First", "[Third]"])

    def test_a_start_after_a_crash_runs_by_itself(self):
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
                first.wait_strip(["[First]"])
                first.kill()
            with desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second:
                second.wait_strip(["[Second]"])

    def test_two_state_folders_never_meet(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, pages.address("Second"), home=desk.state_folder()) as second:
                second.wait_strip(["[Second]"])
                first.wait_strip(["[First]"])


if __name__ == "__main__":
    desk.main()
