"""The Favorites menu, opened from outside: folders, sub-folders, links."""

import os
import unittest

import desk

PROGRAM = desk.program_file()


BOOKMARKS = """<!DOCTYPE NETSCAPE-Bookmark-file-1>
<!-- This is an automatically generated file. -->
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=UTF-8">
<TITLE>Bookmarks</TITLE>
<H1>Bookmarks</H1>
<DL><p>
    <DT><H3 ADD_DATE="1700000000" LAST_MODIFIED="0" PERSONAL_TOOLBAR_FOLDER="true">Flowers &amp; trees</H3>
    <DL><p>
        <DT><A HREF="{rose}" ADD_DATE="1700000000" ICON="data:image/png;base64,AAAA">Rose</A>
        <DD>Red, mostly
        <HR>
        <DT><A HREF="{oak}" ADD_DATE="1700000000" TAGS="a,b">Oak</A>
        <DT><A HREF="javascript:alert(1)">Not a page</A>
    </DL><p>
</DL><p>
"""

REPAIR = """You cannot add new Favorites because of a bug in the way Microsoft installs Internet Explorer 4.0.

TessaView can make some changes to the system registry to allow you to add Favorites.

Would you like TessaView to make these changes?"""


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
                for folder in ("Garden", "Roses"):
                    program.go_down_to(folder)
                    desk.xdotool("key", "Right")
                program.go_down_to("Red & white")
                desk.xdotool("key", "Return")
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

    def test_a_folder_opens_whole_from_its_entry(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            for title in ("Oak", "Pine"):
                add(os.path.join(home, "Favorites", "Trees"), title, pages.address(title))
            with desk.Program(PROGRAM, "about:blank", home=home) as program:
                program.wait_strip(["[about:blank]"])
                program.keys("alt+a")
                program.menu_of("Trees", "o")
                program.wait_strip(["about:blank", "Oak", "[Pine]"])
                program.keys("alt+a")
                desk.click(program.find("menu item", "Trees"), button=2)
                program.wait_strip(["about:blank", "Oak", "Pine", "Oak", "[Pine]"])

    def test_a_folder_opens_with_its_sub_folders(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            trees = os.path.join(home, "Favorites", "Trees")
            for folder, title in ((trees, "Pine"), (os.path.join(trees, "Fruit"), "Apple"),
                                  (os.path.join(trees, "Fruit", "Soft"), "Cherry"), (os.path.join(trees, "Leaf"), "Birch")):
                add(folder, title, pages.address(title))
            # Nobody has clicked on a script; and a link to a folder may lead back.
            add(os.path.join(trees, "Leaf"), "Script", "javascript:alert(1)")
            os.symlink(trees, os.path.join(trees, "Leaf", "Round"))
            with desk.Program(PROGRAM, "about:blank", home=home) as program:
                program.wait_strip(["[about:blank]"])
                program.keys("alt+a")
                program.menu_of("Trees", "s")
                program.wait_strip(["about:blank", "Pine", "Apple", "Cherry", "[Birch]"])

    def test_a_page_is_added_and_opens_in_a_tab_of_its_own_with_the_middle_button(self):
        home = desk.state_folder()
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("Garden"), home=home) as program:
                program.wait_strip(["[Garden]"])
                program.keys("ctrl+d")
                program.find("dialog", "Add to Favorites")
                desk.xdotool("key", "Return")
                file = os.path.join(home, "Favorites", "Garden.url")
                desk.wait_until(lambda: os.path.exists(file), what="no shortcut was written")
                program.keys("alt+a")
                desk.click(program.find("menu item", "Garden"), button=2)
                program.wait_strip(["Garden", "[Garden]"])

    def test_a_favorite_goes_to_the_trash_of_the_desktop_and_comes_back(self):
        home = desk.state_folder()
        favorites = os.path.join(home, "Favorites")
        for name in ("a", "a (2)", "b"):
            add(favorites, name, "http://127.0.0.1/")
        with desk.Program(PROGRAM, "about:blank", home=home) as program:
            program.wait_strip(["[about:blank]"])
            program.keys("alt+a")
            desk.xdotool("key", "o")
            program.find("dialog", "Organize Favorites")
            program.find("tree", "Favorites")
            # "a", then "a (2)", then "b".
            desk.xdotool("key", "Down", "Delete")
            desk.wait_until(lambda: sorted(os.listdir(favorites)) == ["a (2).url", "b.url"],
                            what=lambda: f"{os.listdir(favorites)}")
            program.find("label", '"a" is in the trash.')
            desk.wait_until(lambda: program.selected_line() == "a (2)", what=program.selected_line)
            desk.xdotool("key", "Delete")
            desk.wait_until(lambda: os.listdir(favorites) == ["b.url"], what=lambda: f"{os.listdir(favorites)}")
            program.press("push button", "Undo Delete")
            # Two presses at once are one.
            program.find("label", '"a (2)" is back.')
            program.press("push button", "Undo Delete")
            desk.wait_until(lambda: sorted(os.listdir(favorites)) == ["a (2).url", "a.url", "b.url"],
                            what=lambda: f"{os.listdir(favorites)}")
            program.find("label", '"a" is back.')

    def test_where_no_favorites_can_be_added_they_are_repaired_if_the_user_agrees(self):
        home = desk.state_folder()
        favorites = os.path.join(home, "Favorites")
        with open(favorites, "w", encoding="utf-8") as file:
            file.write("in the way")
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("Garden"), home=home) as program:
                program.wait_strip(["[Garden]"])
                for refusal in ("Cancel", "No"):
                    program.keys("ctrl+d")
                    program.answer(REPAIR, refusal)
                    self.assertTrue(os.path.isfile(favorites))
                program.keys("ctrl+d")
                program.answer(REPAIR, "Yes")
                words = 'The Favorites folder was made. What lay in its place is now called "Favorites set aside".'
                desk.wait_until(lambda: program.status() == words, what=program.status)
                program.keys("ctrl+d")
                program.find("dialog", "Add to Favorites")
                desk.xdotool("key", "Return")
                file = os.path.join(favorites, "Garden.url")
                desk.wait_until(lambda: os.path.exists(file), what="no shortcut was written")

    def test_bookmarks_of_another_browser_come_in_with_their_folders(self):
        home = desk.state_folder()
        file = os.path.join(home, "bookmarks.html")
        with desk.PageServer() as pages, open(file, "w", encoding="utf-8") as bookmarks:
            bookmarks.write(BOOKMARKS.format(rose=pages.address("Rose"), oak=pages.address("Oak")))
            bookmarks.close()
            with desk.Program(PROGRAM, "about:blank", home=home) as program:
                program.wait_strip(["[about:blank]"])
                more = program.find("push button", "More")
                program.wait_menu(lambda: desk.click(more))
                program.wait_menu(lambda: desk.xdotool("key", "i"))
                desk.xdotool("key", "f")
                program.accept_name("Import Favorites", file)
                desk.wait_until(lambda: program.status() == "2 Favorites were added.", what=program.status)
                program.keys("alt+a")
                program.go_down_to("Flowers & trees")
                desk.xdotool("key", "Right")
                program.go_down_to("Rose")
                desk.xdotool("key", "Return")
                program.wait_strip(["[Rose]"])


if __name__ == "__main__":
    desk.main()
