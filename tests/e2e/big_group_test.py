"""A group of three hundred addresses opens whole, leaves the window usable meanwhile, and closes."""

import os
import unittest

import desk

PROGRAM = desk.program_file()
COUNT = 300
HOSTS = 4


class BigGroup(unittest.TestCase):
    def test_every_address_loads_and_the_menu_answers_meanwhile(self):
        home = desk.state_folder()
        group = os.path.join(home, "big.tvg")
        # The menu is to be there before the pages are, however quick these would be.
        with desk.PageServer(hosts=HOSTS, answers=COUNT // 10) as pages:
            titles = [f"P{number}" for number in range(COUNT)]
            desk.write_group(group, [pages.address(title, host=1 + i % HOSTS) for i, title in enumerate(titles)])
            with desk.Program(PROGRAM, group, home=home) as program:
                # The group does not lie in the user's own folder.
                program.answer(f"Open all {COUNT} pages?", "Open Them All")
                desk.wait_until(lambda: len(set(pages.requested())) > 20, what="the pages do not load")
                program.keys("alt+o")
                program.find("menu item", "Settings...")
                pages.answer_all()
                desk.xdotool("key", "Escape")
                desk.wait_until(
                    lambda: len(set(pages.requested())) >= COUNT, 120, lambda: f"{len(set(pages.requested()))} pages"
                )
                strip = ["about:blank", *titles[:-1], f"[{titles[-1]}]"]
                desk.wait_until(lambda: program.strip() == strip, 120, lambda: f"captions are {program.strip()}")
                program.keys("ctrl+q")
                self.assertEqual(program.wait_end(), 0)


if __name__ == "__main__":
    desk.main()
