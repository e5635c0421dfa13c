# Tests: Rename
"""A TessaGroup's life: saved from the open tabs, opened after a restart, reordered in the editor, opened again."""

import configparser
import os
import subprocess
import signal
import unittest

import desk

PROGRAM = desk.program_file()
TITLES = ("One", "Two", "Three", "Four")


def addresses_in(file):
    """The addresses of a group as any program that knows INI files reads them; nothing while there is no such file."""
    group = configparser.ConfigParser(interpolation=None)
    group.read(file, encoding="utf-8")
    return list(group["TessaGroup"].values()) if group.has_section("TessaGroup") else None


class GroupsFlow(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)
        self.file = os.path.join(self.home, "TessaGroups", "Four.tvg")

    def start(self, *arguments):
        return desk.Program(PROGRAM, *arguments, home=self.home)

    def wait_addresses(self, *titles):
        expected = [self.pages.address(title) for title in titles]
        desk.wait_until(lambda: addresses_in(self.file) == expected, what=lambda: f"group has {addresses_in(self.file)}")

    def choose(self, program, entry):
        """Opens the TessaGroups menu by its access key and chooses an entry."""
        program.wait_menu(lambda: program.keys("alt+t"))
        # Not by its action, which would wait for the dialog that it opens.
        program.go_down_to(entry)
        desk.xdotool("key", "Return")

    def entries(self, program):
        """The addresses that the editor shows, by the titles of their pages."""
        cells = [node.name for node in desk.walk(program.find("tree", "Addresses")) if node.getRoleName() == "table cell"]
        return [cell.rsplit("/", 1)[-1] for cell in cells if cell.startswith("http")]

    def save_four_tabs(self):
        with self.start(self.pages.address("One")) as program:
            program.wait_strip(["[One]"])
            for position in range(1, len(TITLES)):
                with self.start(self.pages.address(TITLES[position])) as second:
                    self.assertEqual(second.wait_end(), 0)
                program.wait_strip([*TITLES[:position], f"[{TITLES[position]}]"])
            self.choose(program, "Save as TessaGroup...")
            program.accept_name("Save as TessaGroup", "Four.tvg")
            self.wait_addresses(*TITLES)
            desk.wait_until(lambda: program.status() == "Saved as the TessaGroup Four.", what=program.status)
            program.process.send_signal(signal.SIGTERM)
            self.assertEqual(program.wait_end(), 0)

    def test_four_tabs_are_saved_opened_reordered_and_opened_again(self):
        self.save_four_tabs()
        with self.start("about:blank") as program:
            program.wait_strip(["[about:blank]"])
            self.choose(program, "Four")
            program.wait_strip(["about:blank", "One", "Two", "Three", "[Four]"])

            self.choose(program, "Organize TessaGroups...")
            program.accept_name("Organize TessaGroup", "Four.tvg")
            desk.wait_until(lambda: self.entries(program) == list(TITLES), what=lambda: f"{self.entries(program)}")
            # By keyboard: the first address two places down, the last one to be moved up.
            desk.xdotool("key", "ctrl+Down", "ctrl+Down", "End", "ctrl+Up")
            reordered = ["Two", "Three", "Four", "One"]
            desk.wait_until(lambda: self.entries(program) == reordered, what=lambda: f"{self.entries(program)}")
            desk.xdotool("key", "Return")
            self.wait_addresses(*reordered)
            with open(self.file, encoding="utf-8") as group:
                self.assertIn("url0=" + self.pages.address("Two"), group.read().split("\n"))

            self.choose(program, "Four")
            program.wait_strip(["about:blank", "One", "Two", "Three", "Four", "Two", "Three", "Four", "[One]"])

    def test_an_entry_of_the_menu_pops_up_its_own_commands(self):
        desk.write_group(self.group_of("News"), [self.pages.address("One"), self.pages.address("Two")])
        with self.start("about:blank") as program:
            program.wait_strip(["[about:blank]"])
            program.keys("alt+t")
            program.menu_of("News", "r")
            program.find("tree", "Addresses")
            self.assertEqual(self.entries(program), ["One", "Two"])
            desk.xdotool("key", "Escape")
            desk.wait_until(lambda: program.find_now("tree", "Addresses") is None, what="the editor did not close")
            program.keys("alt+t")
            program.menu_of("News", "o")
            program.wait_strip(["about:blank", "One", "[Two]"])

    def test_a_group_is_renamed_from_its_entry_and_the_home_page_follows_at_once(self):
        desk.write_group(self.group_of("News"), [self.pages.address("One"), self.pages.address("Two")])
        with self.start("tessaview:start") as program:
            program.wait_strip(["[TessaView]"])
            shown = self.picture_of_page(program)
            program.keys("alt+t")
            program.menu_of("News", "n")
            program.find("dialog", "Rename TessaGroup")
            desk.xdotool("type", "World")
            desk.xdotool("key", "Return")
            words = "The TessaGroup News is now called World."
            desk.wait_until(lambda: program.status() == words, what=program.status)
            self.assertTrue(os.path.exists(self.group_of("World")))
            self.assertFalse(os.path.exists(self.group_of("News")))
            shown = self.wait_other_picture(program, shown)
            # By another program.
            desk.write_group(self.group_of("Other"), [self.pages.address("One")])
            self.wait_other_picture(program, shown)

    def picture_of_page(self, program):
        """What the page looks like below its search box, where a cursor blinks, once it keeps looking so. A screen reader
        is not let into the page here."""
        before = []

        def still():
            picture = subprocess.run(["import", "-window", program.window_id(), "-crop", "900x280+20+340", "ppm:-"],
                                     check=True, capture_output=True).stdout
            before.append(picture)
            return len(set(before[-3:])) == 1 and len(before) >= 3 and len(set(picture[100:])) > 2 and picture

        return desk.wait_until(still, what="the page does not come to rest")

    def wait_other_picture(self, program, shown):
        return desk.wait_until(
            lambda: (now := self.picture_of_page(program)) != shown and now, what="the home page is as before"
        )

    def test_a_group_whose_name_is_no_text_is_found_by_its_bytes(self):
        group = os.fsencode(self.group_of("caf")).replace(b"caf.", b"caf\xe9.")
        desk.write_group(group, [self.pages.address("One"), self.pages.address("Two")])
        with self.start(group) as program:
            program.wait_strip(["about:blank", "One", "[Two]"])
            self.choose(program, "caf\ufffd")
            program.wait_strip(["about:blank", "One", "Two", "One", "[Two]"])
            program.keys("alt+t")
            program.menu_of("caf\ufffd", "r")
            program.find("tree", "Addresses")
            self.assertEqual(self.entries(program), ["One", "Two"])

    def group_of(self, name):
        folder = os.path.join(self.home, "TessaGroups")
        os.makedirs(folder, exist_ok=True)
        return os.path.join(folder, name + ".tvg")


if __name__ == "__main__":
    desk.main()
