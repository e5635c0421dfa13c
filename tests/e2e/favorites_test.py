"""The Favorites menu, opened from outside: folders, sub-folders, links."""

import os
import unittest

import desk

PROGRAM = desk.program_file()


def add(folder, name, address):
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name + ".url"), "w", newline="\r\n", encoding="utf-8") as file:
        file.write(f"[InternetShortcut]\nURL={address}\n")


class FavoritesMenu(unittest.TestCase):
    def test_a_link_in_a_sub_folder_opens_from_the_menu(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            favorites = os.path.join(home, "Favorites")
            add(favorites, "Start", pages.address("Start"))
            add(os.path.join(favorites, "Garden", "Roses"), "Red & white", pages.address("Rose"))
            with desk.Program(PROGRAM, "about:blank", home=home) as program:
                program.window()
                # By keyboard: the menu, past its two commands to the folder, into it and into the one below.
                program.keys("alt+a")
                program.find("menu item", "Start")
                program.keys("Down", "Down", "Down", "Right")
                program.keys("Right")
                program.find("menu item", "Red & white")
                program.keys("Return")
                program.wait_strip(["[Rose]"])

    def test_a_link_that_is_copied_into_the_folder_shows_at_the_next_opening(self):
        home = desk.state_folder()
        favorites = os.path.join(home, "Favorites")
        add(favorites, "First", "http://127.0.0.1/")
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.window()
            program.keys("alt+a")
            program.find("menu item", "First")
            program.keys("Escape")
            add(favorites, "Second", "http://127.0.0.1/")

            def shown():
                program.keys("alt+a")
                found = program.find_now("menu item", "Second")
                program.keys("Escape")
                return found

            desk.wait_until(shown, what="the new link did not show")


if __name__ == "__main__":
    desk.main()
