"""Links that are selected in a page, by mouse and keys, become a TessaGroup."""

import os
import unittest

import desk
import pyatspi

PROGRAM = desk.program_file()


class LinkServer(desk.PageServer):
    """A page /List with links; any other address is a page of that title."""

    def answer(self, request):
        title = request.path.strip("/")
        links = ("/One", "/Two?a=1&amp;b=2", "javascript:void(0)", "/One", "mailto:a@b.example", "/Three#part")
        body = "".join(f'<p><a href="{each}">{each}</a>' for each in links) if title == "List" else "words"
        request.send(f"<!doctype html><title>{title}</title><h1>{title}</h1>{body}".encode())


class SelectedLinks(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.file = os.path.join(self.home, "TessaGroups", "Kept.tvg")

    def choose_save(self, program):
        """Selects the whole page, and chooses from the menu of what is selected."""
        program.focus()
        place = program.window().queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        desk.move_pointer(place.x + place.width * 3 // 4, place.y + place.height // 2)

        # A page that was not painted yet takes no clicks. Its menu has the entry only where links are selected.
        def asked():
            before = program.windows_shown()
            desk.xdotool("click", "1")
            desk.xdotool("key", "ctrl+a")
            desk.xdotool("click", "3")
            try:
                desk.wait_until(lambda: program.windows_shown() > before, 5)
                desk.xdotool("key", "l")
                return program.find("dialog", "Save Selected Links as TessaGroup", seconds=5)
            except desk.NeverTrue:
                desk.xdotool("key", "Escape")
                return None

        desk.wait_until(asked, what=program.what_is_seen)

    def test_what_is_selected_becomes_a_group_that_opens(self):
        with LinkServer() as pages, desk.Program(PROGRAM, pages.address("List"), home=self.home) as program:
            program.wait_strip(["[List]"])
            self.choose_save(program)
            program.accept_name("Save Selected Links as TessaGroup", self.file)
            desk.wait_until(lambda: program.status() == "Saved as the TessaGroup Kept.", what=program.status)
            with open(self.file, encoding="utf-8") as group:
                lines = group.read().split("\n")
            addresses = [pages.address(each) for each in ("One", "Two?a=1&b=2", "Three#part")]
            self.assertEqual([line.split("=", 1)[1] for line in lines if line.startswith("url")], addresses)
            program.wait_menu(lambda: program.keys("alt+t"))
            program.go_down_to("Kept")
            desk.xdotool("key", "Return")
            program.wait_strip(["List", "One", "Two?a=1&b=2", "[Three]"])


if __name__ == "__main__":
    desk.main()
