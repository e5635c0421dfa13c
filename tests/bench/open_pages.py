#!/usr/bin/python3
"""How long the search in all open pages takes, seen from outside: many pages are open, words are typed, and a screen
reader waits until the panel says how many pages hold them.

- fresh: the panel is opened as soon as all pages have their titles, most of which nobody has read yet; once a start;
- known: a word that the pages held when they were read;
- live: the panel is opened for a word that has come into all pages after they were read.

Prints milliseconds, which hold the time that keys take on their way, too; and those of the processor that the program with
all its processes has used meanwhile, and the program's own process alone, which count on a machine with other work, too.

    tests/e2e/on-display.sh /usr/bin/python3 tests/bench/open_pages.py build/tessaview [ROUNDS [PAGES]]
"""

import os
import statistics
import subprocess
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "e2e"))

import desk  # noqa: E402

from measure.processes import processes_of, seconds_used  # noqa: E402
from measure.serving import MadePages, paragraphs, write_group  # noqa: E402

KNOWN = "lantern"
PATIENCE = 120
LOOK_EVERY = 0.01
HOSTS = 50


class Pages(MadePages):
    """Pages of 1,000 words on many hosts. Each waits for the next word that it is to add; the server answers when there is
    one, so that nothing goes on while a search is measured."""

    def __init__(self):
        self.number, self.word, self.told = 0, "", set()
        self.changed = threading.Condition()
        super().__init__()

    def answer(self, path):
        if path.startswith("/word"):
            _, page, known = path.split("?")
            with self.changed:
                # Who asks for the next word has shown this one.
                if int(known) == self.number:
                    self.told.add(page)
                    self.changed.notify_all()
                self.changed.wait_for(lambda: self.number > int(known))
                return "text/html", f"{self.number} {self.word}".encode()
        return "text/html", (
            f"<!doctype html><title>{path[1:]}</title><p>{KNOWN}</p>{paragraphs(path, 20)}<p id=live></p><script>"
            "(async () => { for (let known = 0; ; ) {"
            f"const answer = (await (await fetch('/word?{path[1:]}?' + known)).text()).split(' ');"
            "known = answer[0]; live.textContent = answer[1]; } })()</script>"
        ).encode()

    def add(self, word, count):
        """All pages say that word from now on."""
        with self.changed:
            self.told.clear()
            self.word = word
            self.number += 1
            self.changed.notify_all()
            if not self.changed.wait_for(lambda: len(self.told) >= count, PATIENCE):
                raise SystemExit(f"only {len(self.told)} pages say {word}")

    def page(self, number):
        return self.address(f"/page{number}", number % HOSTS + 1)


class Panel:
    """The panel, and what it says of the number of pages."""

    def __init__(self, program, count):
        self.program, self.words = program, f"{count} pages"
        # The way from the application to the label: to walk through all tabs and bars takes longer than the search.
        self.path = None

    def learn(self, word):
        """Finds the label where one page alone holds that word."""
        self.open()
        desk.wait_until(lambda: desk.focused_box(self.program))
        desk.xdotool("type", "--delay", "0", word)

        def found():
            self.path = path_to(self.program.application(), lambda node: node.name == "One page")
            return self.path is not None

        desk.wait_until(found)
        desk.xdotool("key", "ctrl+a", "Delete")
        self.close()

    def label(self):
        """The label that says how many pages were found; nothing while the panel is closed."""
        node = self.program.application()
        for place in self.path:
            node = node.getChildAtIndex(place) if node is not None and place < node.childCount else None
        return node

    def says_all(self):
        """Whether all pages are found."""
        try:
            label = self.label()
            return label is not None and label.name == self.words
        except Exception:  # what has just been closed is told as one of several kinds of error
            return False

    def open(self):
        desk.xdotool("key", "ctrl+shift+f")

    def close(self):
        desk.xdotool("key", "Escape")
        desk.wait_until(lambda: desk.focused_box(self.program) is None)

    def time_of(self, word, opens):
        """Milliseconds from the first key until all pages are found; of the processor, with all processes and without."""
        if not opens:
            self.open()
            desk.wait_until(lambda: desk.focused_box(self.program))
            desk.xdotool("key", "ctrl+a", "Delete")
            desk.wait_until(lambda: not self.says_all())
        keys = ["key", "ctrl+shift+f"] if opens else []
        used = self.used()
        start = time.monotonic()
        # One call for all keys; what it takes to start counts too.
        desk.xdotool(*keys, "type", "--delay", "0", word)
        # Who asks without a pause takes the processor from the program.
        while not self.says_all():
            if time.monotonic() - start > PATIENCE:
                raise SystemExit(f"{word} is not found in all pages")
            time.sleep(LOOK_EVERY)
        taken = (time.monotonic() - start) * 1000
        used = [after - before for before, after in zip(used, self.used())]
        desk.xdotool("key", "ctrl+a", "Delete")
        self.close()
        return taken, *used

    def used(self):
        """Milliseconds of the processor so far: of all processes, and of the program's own."""
        times = [seconds_used(process) * 1000 for process in processes_of(self.program.process.pid)]
        return sum(times), times[0]


def path_to(node, wanted, path=()):
    """The places of the children that lead to the first node that is wanted, without a look at the tabs, the bars and the
    pages, of which there are many."""
    if wanted(node):
        return path
    if node.getRoleName() in ("page tab list", "tool bar", "menu bar", "document web", "list", "status bar"):
        return None
    for place in range(node.childCount):
        child = node.getChildAtIndex(place)
        found = path_to(child, wanted, (*path, place)) if child is not None else None
        if found is not None:
            return found
    return None


def look_alone(panel):
    """Milliseconds that a key on its way and one look at the label take where nothing is searched for."""
    start = time.monotonic()
    desk.xdotool("key", "--delay", "0", "shift")
    panel.says_all()
    return (time.monotonic() - start) * 1000


def main():
    rounds = int(ARGUMENTS[0]) if ARGUMENTS else 5
    count = int(ARGUMENTS[1]) if len(ARGUMENTS) > 1 else 100
    pages, home = Pages(), desk.state_folder()
    group = os.path.join(home, "pages.tvg")
    write_group(group, [pages.page(number) for number in range(count)])
    with desk.Program(PROGRAM, "about:blank", home=home) as program:
        program.wait_strip(["[about:blank]"])
        panel = Panel(program, count)
        panel.learn("blank")
        opens = [os.path.join(os.path.dirname(PROGRAM), "tessaviewctl"), "--instance", home, "open-group", group]
        subprocess.run(opens, check=True, stdin=subprocess.DEVNULL)
        desk.wait_until(
            lambda: sum("page" in each for each in program.strip()) == count, PATIENCE, lambda: str(program.strip()))
        times = {"fresh": [panel.time_of(KNOWN, True)], "known": [], "live": []}
        for number in range(rounds):
            times["known"].append(panel.time_of(KNOWN, False))
            word = f"quokka{number}x"
            pages.add(word, count)
            times["live"].append(panel.time_of(word, True))
        print(f"{count} open pages, keys and look alone {look_alone(panel):.0f} ms, load {os.getloadavg()[0]:.1f}")
        for name, all_times in times.items():
            taken, all_used, own = zip(*all_times)
            print(
                f"{name}: median {statistics.median(taken):.0f} ms, {min(taken):.0f} to {max(taken):.0f}; "
                f"of the processor {statistics.median(all_used):.0f} ms, the program's own {statistics.median(own):.0f} ms")


if __name__ == "__main__":
    ARGUMENTS = sys.argv[2:]
    del sys.argv[2:]
    PROGRAM = desk.program_file()
    main()
