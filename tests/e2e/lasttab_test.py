"""Closing the last tab asks first, for it closes the program."""

import unittest

import desk

PROGRAM = desk.program_file()
QUESTION = "Do you want to close the last browser tab and exit this application?"


class LastTab(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def test_no_and_cancel_keep_the_tab_and_yes_ends_the_program(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("Only"), home=self.home) as program:
            program.wait_strip(["[Only]"])
            for refusal in ("No", "Cancel"):
                program.keys("ctrl+w")
                program.answer(QUESTION, refusal)
                program.wait_strip(["[Only]"])
            program.keys("ctrl+w")
            program.answer(QUESTION, "Yes")
            self.assertEqual(program.wait_end(), 0)

    def test_a_tab_beside_another_closes_without_a_question(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("Left"), home=self.home) as program:
            program.wait_strip(["[Left]"])
            with desk.Program(PROGRAM, pages.address("Right"), home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            program.wait_strip(["Left", "[Right]"])
            program.keys("ctrl+w")
            program.wait_strip(["[Left]"])


if __name__ == "__main__":
    desk.main()
