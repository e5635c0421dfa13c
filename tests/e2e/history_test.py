# Tests: HistoryAssembly, OpenPagesPanel, PassageLines, ScreenReader
"""What was read, from outside: three pages are read, one changes and is marked, all are found again and forgotten."""

import itertools
import os
import sqlite3
import stat
import unittest

import desk

PROGRAM = desk.program_file()
STORIES = {
    "Lantern": ["The harbour bridge reopens.", "Ferries had carried commuters for five weeks."],
    "Bakery": ["Sourdough needs a warm place.", "Rye helps within a week."],
    "Weather": ["東京の天気予報です。", "Rain ends a dry summer."],
}


class ChangingPages(desk.PageServer):
    """Pages whose text is that of STORIES, as it is then."""

    def answer(self, request):
        title = request.path.strip("/")
        words = "".join(f"<p>{each}</p>" for each in STORIES.get(title, []))
        page = f"<!doctype html><meta charset=utf-8><title>{title}</title><h1>{title}</h1>{words}".encode()
        request.send(page, status=200 if words else 404)


def history_file(home):
    """The database, wherever the program keeps its data."""
    for root in (home, os.environ.get("XDG_DATA_HOME", "")):
        for folder, _, names in os.walk(root):
            if "history.db" in names:
                return os.path.join(folder, "history.db")
    return None


def remembered(home):
    """The titles of what is remembered, the latest first."""
    file = history_file(home)
    if not file:
        return []
    try:
        with sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=5) as database:
            return [title for (title,) in database.execute("SELECT title FROM page ORDER BY id DESC")]
    except sqlite3.Error:
        return []


def page_nodes(program, title):
    """What a screen reader is told of the page with that title, each as "role: name"."""
    for document in desk.walk(program.application(), lambda node: node.getRoleName() != "document web"):
        if document.getRoleName() == "document web" and document.name == title:
            return [f"{desk.role_of(node)}: {node.name}" for node in desk.walk(document)]
    return []


class History(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.stories = {title: list(said) for title, said in STORIES.items()}

    def tearDown(self):
        STORIES.update(self.stories)

    def wait_remembered(self, expected):
        desk.wait_until(lambda: remembered(self.home) == expected, what=lambda: str(remembered(self.home)))

    def go(self, program, pages, title):
        program.enter(pages.address(title), "alt+d")
        desk.wait_until(lambda: program.strip() == [f"[{title}]"], what=lambda: str(program.strip()))

    def tip_of(self, program, position):
        return program.tabs()[position].get_description()

    def test_read_change_come_back_find_and_clear(self):
        with ChangingPages() as pages, desk.Program(PROGRAM, pages.address("Lantern"), home=self.home) as program:
            program.wait_strip(["[Lantern]"])
            self.wait_remembered(["Lantern"])
            self.go(program, pages, "Bakery")
            self.wait_remembered(["Bakery", "Lantern"])
            self.go(program, pages, "Weather")
            self.wait_remembered(["Weather", "Bakery", "Lantern"])
            file = history_file(self.home)
            self.assertEqual(stat.S_IMODE(os.stat(file).st_mode), 0o600)

            # One changes, and says so when it is read again.
            STORIES["Bakery"].insert(0, "A new oven arrived today from the coast.")
            self.go(program, pages, "Bakery")
            desk.wait_until(
                lambda: "new: A new oven arrived today" in self.tip_of(program, 0),
                what=lambda: self.tip_of(program, 0),
            )
            program.keys("F7")
            desk.wait_until(lambda: program.status() == "There is one new passage.", what=program.status)

            # It is found in what was read, by words of its text, in any script, with the keyboard alone.
            self.find_by(program, "oven", "Bakery")
            self.find_by(program, "天気", "Weather")
            self.find_by(program, "ferries commuters", "Lantern", fast=True)

            # All open pages are searched at once, and the choice leads there.
            program.keys("ctrl+shift+f")
            desk.wait_until(lambda: desk.focused_box(program))
            desk.xdotool("type", "--delay", "5", "oven")
            desk.wait_until(lambda: program.find_now("list item", "A new oven arrived today from the coast."))
            # How many pages there are is a label to a screen reader.
            desk.wait_until(lambda: program.find_now("label", "2 pages"), what=program.what_is_seen)
            desk.xdotool("key", "Down", "Down", "Return")
            program.wait_strip(["[Bakery]", "Bakery", "Weather", "Lantern"])

            self.clear(program)
            self.wait_remembered([])

    def find_by(self, program, words, title, fast=False):
        """Searches the history and opens the first page that it finds; `fast`: by keys that come before the answer."""
        program.keys("ctrl+h")
        desk.wait_until(lambda: "[History]" in program.strip(), what=lambda: str(program.strip()))

        # The tab is named after the words when their answer is there. A key may be lost while the page gets the keyboard,
        # and one of another script is there only while it is pressed, which a machine at work may take too long to see.
        delays = (min(30 * 2**attempt, 500) for attempt in itertools.count(0 if words.isascii() else 2))

        def searched():
            desk.xdotool("key", "Escape", "ctrl+a")
            desk.xdotool("type", "--delay", str(next(delays)), words)
            try:
                return desk.wait_until(lambda: program.strip()[-1].startswith(f"[{words} - "), 5)
            except desk.NeverTrue:
                return False

        desk.wait_until(searched, what=lambda: f"{words}: {program.strip()}; {page_nodes(program, 'History')}")
        if fast:
            desk.xdotool("key", "Escape")
            desk.wait_until(lambda: program.strip()[-1] == "[History]", what=lambda: str(program.strip()))
            desk.xdotool("type", "--delay", "1", words)
        desk.xdotool("key", "--delay", "1", "Down", "Return")
        desk.wait_until(lambda: f"[{title}]" in program.strip(), what=lambda: f"{words}: {program.strip()}")

    def clear(self, program):
        """Forgets what was read, by the dialog."""
        program.keys("alt+v")
        program.find("menu item", "Internet Options...")
        # Not by its node: that would answer only when the dialog has closed.
        desk.xdotool("key", "i")
        dialog = program.find("dialog", "Internet Options")
        desk.wait_until(lambda: desk.is_showing(dialog))
        desk.wait_until(lambda: desk.xdotool("getactivewindow", "getwindowname") == "Internet Options")
        desk.xdotool("key", "alt+l")
        box = desk.wait_until(lambda: self.shown(program, "check box", "The history: "))
        desk.press_node(box)
        desk.wait_until(lambda: box.getState().contains(desk.pyatspi.STATE_CHECKED))
        button = program.find("push button", "Clear Now")
        desk.wait_until(lambda: button.getState().contains(desk.pyatspi.STATE_SENSITIVE))
        desk.press_node(button)
        desk.wait_until(lambda: self.shown(program, "label", "Clear"), what=program.what_is_seen)
        desk.xdotool("key", "Escape")

    def shown(self, program, role, start):
        for node in desk.walk(program.application()):
            if desk.role_of(node) == role and node.name.startswith(start) and desk.is_showing(node):
                return node
        return None

    def test_pages_are_chosen_and_forgotten_by_keys_alone(self):
        desk.listen_as_a_screen_reader(self)
        with ChangingPages() as pages, desk.Program(PROGRAM, pages.address("Lantern"), home=self.home) as program:
            program.wait_strip(["[Lantern]"])
            self.wait_remembered(["Lantern"])
            for title, read in (("Bakery", ["Bakery", "Lantern"]), ("Weather", ["Weather", "Bakery", "Lantern"])):
                self.go(program, pages, title)
                self.wait_remembered(read)
            program.keys("ctrl+h")
            self.wait_focused(program, "Words to search for in what you have read")
            desk.wait_until(lambda: self.page_has_keyboard(program))
            for key, focused, ticked in (
                ("Down", "Weather", []),
                ("space", "Weather", ["Weather"]),
                ("Down", "Bakery", ["Weather"]),
                ("Down", "Lantern", ["Weather"]),
                ("shift+space", "Lantern", ["Weather", "Bakery", "Lantern"]),
                ("Up", "Bakery", ["Weather", "Bakery", "Lantern"]),
                ("space", "Bakery", ["Weather", "Lantern"]),
            ):
                desk.xdotool("key", key)
                self.wait_focused(program, focused)
                desk.wait_until(lambda: self.ticked(program) == ticked, what=lambda: f"{key}: {self.ticked(program)}")
            desk.xdotool("key", "Delete")
            self.wait_remembered(["Bakery"])
            desk.wait_until(
                lambda: [each for each in page_nodes(program, "History") if each.startswith("link: ")] == ["link: Bakery"],
                what=lambda: str(page_nodes(program, "History")),
            )

    def nodes_of_history(self, program):
        for document in desk.walk(program.application(), lambda node: node.getRoleName() != "document web"):
            if document.getRoleName() == "document web" and document.name == "History":
                return list(desk.walk(document))
        return []

    def wait_focused(self, program, name):
        focused = lambda: [node.name for node in self.nodes_of_history(program) if desk.is_focused(node)]
        desk.wait_until(lambda: name in focused(), what=lambda: f"{name}: {focused()}")

    def ticked(self, program):
        """The pages that are selected, by their titles."""
        checked = desk.pyatspi.STATE_CHECKED
        boxes = [node for node in self.nodes_of_history(program) if desk.role_of(node) == "check box"]
        return [box.name.removeprefix("Select ") for box in boxes if box.getState().contains(checked)]

    def test_the_space_bar_leads_through_what_was_not_read(self):
        with ChangingPages() as pages:
            group = os.path.join(self.home, "Morning.tvg")
            desk.write_group(group, [pages.address(title) for title in STORIES])
            with desk.Program(PROGRAM, group, home=self.home) as program:
                program.wait_strip(["about:blank", "Lantern", "Bakery", "[Weather]"])
                self.wait_all_remembered()
                for strip, words in (
                    (["about:blank", "[Lantern]", "Bakery", "Weather"], "One more page is left to read."),
                    (["about:blank", "Lantern", "[Bakery]", "Weather"], "This is the last page that was left to read."),
                ):
                    program.keys("space")
                    program.wait_strip(strip)
                    desk.wait_until(lambda: program.status() == words, what=program.status)
                    desk.wait_until(lambda: self.page_has_keyboard(program))

    def test_the_home_page_tells_how_much_of_a_group_is_new(self):
        folder = os.path.join(self.home, "TessaGroups")
        os.makedirs(folder, exist_ok=True)
        group = os.path.join(folder, "Morning.tvg")
        desk.listen_as_a_screen_reader(self)
        with ChangingPages() as pages:
            desk.write_group(group, [pages.address(title) for title in STORIES])
            with desk.Program(PROGRAM, group, home=self.home) as program:
                program.wait_strip(["about:blank", "Lantern", "Bakery", "[Weather]"])
                self.wait_all_remembered()
                # News are what has changed since somebody looked.
                for strip in (["about:blank", "Lantern", "[Bakery]", "Weather"], ["about:blank", "[Lantern]", "Bakery", "Weather"]):
                    program.keys("ctrl+shift+Tab")
                    program.wait_strip(strip)
                self.wait_looked_at(3)
                STORIES["Lantern"].insert(0, "The tower clock strikes again after a year.")
                STORIES["Bakery"].insert(0, "A new oven arrived today from the coast.")
                for position, strip in ((1, None), (2, ["about:blank", "Lantern", "[Bakery]", "Weather"])):
                    if strip:
                        program.keys("ctrl+Tab")
                        program.wait_strip(strip)
                    program.keys("F5")
                    desk.wait_until(lambda at=position: "new: " in self.tip_of(program, at), what=lambda at=position: self.tip_of(program, at))
                self.wait_home(program, "2 of 3 new since yesterday")

    def choose_for_tab(self, program, position, key):
        """Chooses from the More menu of a tab, by its access key."""
        program.wait_menu(lambda: desk.click(program.tabs()[position], button=3))
        program.wait_menu(lambda: desk.xdotool("key", "m"))
        shown = program.windows_shown()
        desk.xdotool("key", key)
        desk.wait_until(lambda: program.windows_shown() < shown, what="the menu stays")

    def test_tabs_without_news_are_closed_and_come_back(self):
        group = os.path.join(self.home, "Morning.tvg")
        with ChangingPages() as pages:
            desk.write_group(group, [pages.address(title) for title in STORIES])
            with desk.Program(PROGRAM, group, home=self.home) as program:
                program.wait_strip(["about:blank", "Lantern", "Bakery", "[Weather]"])
                self.wait_all_remembered()
                for strip in (["about:blank", "Lantern", "[Bakery]", "Weather"], ["about:blank", "[Lantern]", "Bakery", "Weather"]):
                    program.keys("ctrl+shift+Tab")
                    program.wait_strip(strip)
                self.wait_looked_at(3)
                STORIES["Bakery"].insert(0, "A new oven arrived today from the coast.")
                for position, strip, words in (
                    (1, ["about:blank", "[Lantern]", "Bakery", "Weather"], "Nothing new since you read it"),
                    (2, ["about:blank", "Lantern", "[Bakery]", "Weather"], "new: A new oven"),
                    (3, ["about:blank", "Lantern", "Bakery", "[Weather]"], "Nothing new since you read it"),
                ):
                    if position > 1:
                        program.keys("ctrl+Tab")
                        program.wait_strip(strip)
                    program.keys("F5")
                    desk.wait_until(lambda: words in self.tip_of(program, position), what=lambda: self.tip_of(program, position))
                self.choose_for_tab(program, 1, "w")
                program.wait_strip(["about:blank", "[Bakery]"])
                desk.wait_until(lambda: program.status().startswith("2 tabs were closed."), what=program.status)
                program.press("push button", "Undo")
                everything = ["about:blank", "Lantern", "Bakery", "Weather"]
                desk.wait_until(
                    lambda: [each.strip("[]") for each in program.strip()] == everything, what=lambda: str(program.strip())
                )

    def test_what_was_read_is_closed_and_the_rest_stays(self):
        with ChangingPages() as pages:
            group = os.path.join(self.home, "Morning.tvg")
            desk.write_group(group, [pages.address(title) for title in STORIES])
            with desk.Program(PROGRAM, group, home=self.home) as program:
                program.wait_strip(["about:blank", "Lantern", "Bakery", "[Weather]"])
                self.wait_all_remembered()
                program.keys("space")
                program.wait_strip(["about:blank", "[Lantern]", "Bakery", "Weather"])
                self.choose_for_tab(program, 0, "s")
                program.wait_strip(["about:blank", "[Bakery]"])
                desk.wait_until(lambda: program.status().startswith("2 tabs were closed."), what=program.status)

    def wait_home(self, program, words):
        """Opens the home page and waits until it says that."""
        program.enter("tessaview:start", "alt+d")
        desk.wait_until(
            lambda: any(words in each for each in page_nodes(program, "TessaView")),
            what=lambda: str(page_nodes(program, "TessaView")),
        )

    def wait_looked_at(self, count):
        """Until so many pages are kept as somebody has read them."""

        def looked_at():
            with sqlite3.connect(f"file:{history_file(self.home)}?mode=ro", uri=True, timeout=5) as database:
                return database.execute("SELECT count(*) FROM passages WHERE length(asread) > 0").fetchone()[0]

        desk.wait_until(lambda: looked_at() == count, what=lambda: str(looked_at()))

    def test_a_screen_reader_reads_the_history(self):
        desk.listen_as_a_screen_reader(self)
        with ChangingPages() as pages, desk.Program(PROGRAM, pages.address("Lantern"), home=self.home) as program:
            program.wait_strip(["[Lantern]"])
            self.wait_remembered(["Lantern"])
            self.go(program, pages, "Bakery")
            self.wait_remembered(["Bakery", "Lantern"])
            program.keys("ctrl+h")
            told = {
                "text: Words to search for in what you have read",
                "label: 2 pages",
                "tool bar: Selected pages",
                "push button: Open",
                "push button: Keep as TessaGroup...",
                "push button: Delete",
                "list: Today",
                "push button: Delete this day",
                "check box: Select Bakery",
                "link: Bakery",
                "check box: Select Lantern",
                "link: Lantern",
            }
            desk.wait_until(
                lambda: told <= set(page_nodes(program, "History")),
                what=lambda: str(sorted(told - set(page_nodes(program, "History")))),
            )

    def wait_all_remembered(self):
        desk.wait_until(lambda: sorted(remembered(self.home)) == sorted(STORIES), what=lambda: str(remembered(self.home)))

    def page_has_keyboard(self, program):
        return desk.focused_box(program) is None


if __name__ == "__main__":
    desk.main()
