# Tests: BarAssembly, Forms
"""The menus, as a person opens them: with the mouse and by their access keys."""

import os
import subprocess
import unittest

import desk
import pyatspi

PROGRAM = desk.program_file()

# Each menu's name and access key, and its entries.
MENUS = [
    (
        "File",
        "f",
        "New Blank, New Search, New Home, New Current, Open, Close, Close All, Save As, Print, Page Setup..., Exit",
    ),
    ("Edit", "e", "Cut, Copy, Paste, Select All, Find (on this page)..."),
    (
        "View",
        "v",
        "Status Bar, Toolbars..., Stop, Refresh, Source, Internet Options..., Clear Addresses, Clear Searches, "
        "Resize Address Bar, Resize Search Bar",
    ),
    ("Go", "g", "Back, Forward, Home, Search, Previous Tab, Next Tab"),
    ("Favorites", "a", "Add to Favorites..., Organize Favorites..., Roses"),
    ("TessaGroups", "t", "Add to TessaGroup..., Save as TessaGroup..., Organize TessaGroups..., Garden"),
    (
        "Find",
        "i",
        "Web Sites, Newsgroups, People, Businesses, Maps & Directions, Weather, Reference, Stock Quotes",
    ),
    (
        "Shop",
        "p",
        "Airline Tickets, Auctions, Audio Books, Books, Cars, Computers, Credit Cards, Event Tickets, Flowers, "
        "Homes & Loans, Hotel Reservations, Magazines, Music, Software, Sporting Goods, Stocks, Sunglasses, Toys, "
        "Travel, Videos, Web Site Hosting",
    ),
    ("Options", "o", "Load Images, Load Videos, Load Sounds, Load Animations, Settings..."),
    ("Help", "h", "Help Topics, Copy Report, About..."),
]


def middle(node):
    """The middle of something on the screen, waited for until it has a place there."""

    def place():
        box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.width > 0 and box.x >= 0 and (box.x + box.width // 2, box.y + box.height // 2)

    return desk.wait_until(place)


def point(node):
    """Moves the pointer onto something."""
    subprocess.run(["xdotool", "mousemove", *map(str, middle(node))], check=True)


def click(node, button="1"):
    point(node)
    subprocess.run(["xdotool", "click", button], check=True)


def press(*keys):
    """Presses keys wherever the keyboard is, which an open menu has."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def menu(program):
    """The menu that is open; nothing when none is."""
    for each in program.menu_bar:
        for opened in each:
            if opened.getRoleName() == "popup menu" and desk.is_showing(opened):
                return opened
    return None


def entries(program):
    """The entries of the open menu, from top to bottom; nothing when none is open."""
    opened = menu(program)
    if opened is None:
        return None
    return [each for each in opened if each.getRoleName() != "separator" and each.name]


def wait_entries(program, expected):
    names = lambda: [each.name for each in entries(program) or []]
    desk.wait_until(lambda: names() == expected, what=lambda: f"the menu has {names()}, not {expected}")


def wait_closed(program):
    desk.wait_until(lambda: menu(program) is None, what="the menu stays open")


def entry(program, name):
    return desk.wait_until(lambda: next((each for each in entries(program) or [] if each.name == name), None))


def title(program, name):
    """A menu's title in the menu bar."""
    return next(each for each in program.menu_bar if each.name == name)


def status(program):
    return program.find("status bar", "Status")


class Menus(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        home = desk.state_folder()
        for folder in ("TessaGroups", "Favorites"):
            os.mkdir(os.path.join(home, folder))
        desk.write_group(os.path.join(home, "TessaGroups", "Garden.tvg"), ["about:blank"])
        with open(os.path.join(home, "Favorites", "Roses.url"), "w", encoding="utf-8") as link:
            link.write("[InternetShortcut]\nURL=http://127.0.0.1/roses\n")
        cls.program = desk.Program(PROGRAM, "about:blank", home=home)
        cls.program.wait_strip(["[about:blank]"])
        cls.program.menu_bar = cls.program.find("menu bar")
        cls.program.focus()

    @classmethod
    def tearDownClass(cls):
        cls.program.kill()

    def test_each_menu_opens_with_the_mouse(self):
        for name, _, expected in MENUS:
            with self.subTest(name):
                click(title(self.program, name))
                wait_entries(self.program, expected.split(", "))
                press("Escape")
                wait_closed(self.program)

    def test_each_menu_opens_by_its_access_key(self):
        for name, key, expected in MENUS:
            with self.subTest(name):
                self.program.keys(f"alt+{key}")
                wait_entries(self.program, expected.split(", "))
                press("Escape")
                wait_closed(self.program)

    def test_the_arrow_keys_lead_through_all_menus_and_round(self):
        self.program.keys("alt+f")
        for name, _, expected in MENUS:
            with self.subTest(name):
                wait_entries(self.program, expected.split(", "))
                press("Right")
        wait_entries(self.program, MENUS[0][2].split(", "))
        press("Escape")
        wait_closed(self.program)

    def test_the_list_of_tabs_opens_by_its_key(self):
        before = self.program.windows_shown()
        self.program.wait_menu(lambda: self.program.keys("ctrl+shift+a"))
        press("Escape")
        desk.wait_until(lambda: self.program.windows_shown() == before, what="the list stays open")

    def test_the_mouse_chooses_an_entry_and_the_status_bar_explains_it(self):
        click(title(self.program, "View"))
        point(entry(self.program, "Status Bar"))
        desk.wait_until(
            lambda: "status bar" in status(self.program).description, what=lambda: status(self.program).description
        )
        click(entry(self.program, "Status Bar"))
        desk.wait_until(lambda: self.program.find_now("status bar", "Status") is None)
        self.program.keys("alt+v")
        entry(self.program, "Status Bar")
        press("Return")
        status(self.program)

    def test_keys_choose_an_entry(self):
        self.program.keys("alt+f")
        entry(self.program, "New Blank")
        press("b")
        self.program.wait_strip(["about:blank", "[about:blank]"])
        self.program.keys("ctrl+w")
        self.program.wait_strip(["[about:blank]"])

    def test_a_check_mark_follows_its_option(self):
        def checked():
            click(title(self.program, "Options"))
            mark = entry(self.program, "Load Videos").getState().contains(pyatspi.STATE_CHECKED)
            return mark

        self.assertTrue(checked())
        click(entry(self.program, "Load Videos"))
        wait_closed(self.program)
        self.assertFalse(checked())
        click(entry(self.program, "Load Videos"))
        wait_closed(self.program)

    def test_the_status_bar_tells_of_the_tool_under_the_pointer_and_of_no_other(self):
        def wait_status(text):
            desk.wait_until(lambda: self.program.status() == text, 10, lambda: f"{self.program.status()!r}, not {text!r}")

        def point_beside(node):
            x, y = middle(node)
            subprocess.run(["xdotool", "mousemove", str(x + 450), str(y)], check=True)

        click(title(self.program, "View"))
        source = entry(self.program, "Source")
        for _ in range(2):
            point(source)
            wait_status("Shows the source of the current page")
            point_beside(source)
            wait_status("")
        press("Escape", "Escape")
        wait_closed(self.program)
        point(title(self.program, "Go"))
        wait_status("Go to other pages and tabs")
        point_beside(title(self.program, "Help"))
        wait_status("")

    def test_a_tab_has_a_menu_of_its_own(self):
        self.program.keys("ctrl+t")
        self.program.wait_strip(["about:blank", "[about:blank]"])
        # Assistive tools are not told what a pop-up lists; its keys answer all the same.
        self.program.wait_menu(lambda: click(self.program.tabs()[1], "3"))
        press("c")
        self.program.wait_strip(["[about:blank]"])


if __name__ == "__main__":
    desk.main()
