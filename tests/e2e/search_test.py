"""Searches, Shop and Find links reach the services that the settings name, and the words arrive as they were typed."""

import os
import subprocess
import unittest
import urllib.parse

import desk

PROGRAM = desk.program_file()


def type_letters(box, words):
    """Types letter by letter; waits after each until what has been typed so far is shown. What was searched for before
    completes what is being typed."""
    for count, letter in enumerate(words, 1):
        # A key of another script is there only while it is pressed, which is as long as the delay.
        subprocess.run(["xdotool", "type", "--delay", "1" if letter.isascii() else "100", letter], check=True)
        typed = words[:count]
        desk.wait_until(lambda: desk.is_focused(box) and desk.text_of(box).startswith(typed), seconds=5)


def write_services(home, pages):
    """Settings whose services are paths of the local server."""
    lines = [f"{name}Service={pages.address(name.lower())}?words=%s" for name in ("Search", "Shop", "Find")]
    with open(os.path.join(home, "settings.ini"), "w", encoding="utf-8") as settings:
        settings.write("\n".join(["[General]", *lines]) + "\n")


def arrived(pages, service):
    """The words of all requests to a service so far, decoded as a server does it."""
    start = f"127.0.0.1/{service}?words="
    return [urllib.parse.unquote(each[len(start) :]) for each in pages.requested() if each.startswith(start)]


class Search(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def test_words_arrive_as_they_were_typed(self):
        searches = ["cats and dogs", "a&b=c", "c# and f#", "100% of %41", "1+1", 'say "yes"', "Привет мир", "日本語"]
        with desk.PageServer() as pages:
            write_services(self.home, pages)
            with desk.Program(PROGRAM, pages.address("Start"), home=self.home) as program:
                program.wait_strip(["[Start]"])
                for count, words in enumerate(searches, 1):
                    program.enter(words, "alt+r", type_letters)
                    desk.wait_until(
                        lambda: len(arrived(pages, "search")) == count, what=lambda: f"{words}: {pages.requested()}"
                    )
                    self.assertEqual(arrived(pages, "search")[-1], words)
                    desk.wait_until(lambda: len(program.strip()) == count + 1, what=lambda: str(program.strip()))
                    # In front, right of the tab that was in front.
                    self.assertTrue(program.strip()[count].startswith("["), program.strip())

    def test_shop_and_find_links_ask_for_their_names(self):
        with desk.PageServer() as pages:
            write_services(self.home, pages)
            with desk.Program(PROGRAM, pages.address("Start"), home=self.home) as program:
                program.wait_strip(["[Start]"])
                for service, menu, entry, name in (
                    ("shop", "alt+p", "i", "Music"),
                    ("shop", "alt+p", "h", "Homes & Loans"),
                    ("find", "alt+i", "p", "People"),
                    ("find", "alt+i", "m", "Maps & Directions"),
                ):
                    before = len(arrived(pages, service))
                    program.keys(menu)
                    desk.wait_until(lambda: program.find_now("popup menu"), what=f"the menu {menu} did not open")
                    desk.xdotool("key", entry)
                    desk.wait_until(lambda: len(arrived(pages, service)) > before, what=lambda: str(pages.requested()))
                    self.assertEqual(arrived(pages, service)[-1], name)
                self.assertEqual(len(program.strip()), 1)


if __name__ == "__main__":
    desk.main()
