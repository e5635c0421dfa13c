#!/usr/bin/python3
"""How long the search in all open pages takes, seen from outside: many pages are open, words are typed, and a screen
reader waits until the panel says how many pages hold them.

- known: a word that the pages held when they were read;
- live: the panel is opened for a word that has come into all pages after they were read.

Prints milliseconds, which hold the time that keys take on their way, too.

    tests/e2e/on-display.sh /usr/bin/python3 tests/bench/open_pages.py build/tessaview [ROUNDS [PAGES]]
"""

import http.server
import os
import random
import statistics
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "e2e"))

import desk  # noqa: E402

KNOWN, WORDS = "lantern", [f"word{number}" for number in range(3000)]
PATIENCE = 120


class Pages:
    """Pages of 1,000 words that ask again and again which word they are to add."""

    def __init__(self):
        self.word, self.told = "", set()
        pages = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                body = pages.answer(self.path)
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *words):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def answer(self, path):
        if path.startswith("/has"):
            self.told.add(path)
            return b""
        if path.startswith("/word"):
            return self.word.encode()
        chance = random.Random(path)
        blocks = "".join(f"<p>{' '.join(chance.choices(WORDS, k=50))}</p>" for _ in range(20))
        return (
            f"<!doctype html><title>{path[1:]}</title><p>{KNOWN}</p>{blocks}<p id=live></p><script>"
            "setInterval(async () => { const word = await (await fetch('/word')).text();"
            "if (word !== live.textContent) { live.textContent = word; fetch('/has' + location.pathname + word) } }, 1500)"
            "</script>"
        ).encode()

    def add(self, word, count):
        """All pages say that word from now on."""
        self.told.clear()
        self.word = word
        desk.wait_until(lambda: len(self.told) >= count, PATIENCE, lambda: f"{len(self.told)} pages say {word}")

    def address(self, number):
        return f"http://127.0.0.1:{self.server.server_port}/page{number}"


class Panel:
    """The panel, and what it says of the number of pages."""

    def __init__(self, program, count):
        self.program, self.words = program, f"{count} pages"
        self.path = None  # from the application to the label: to walk through all tabs and bars takes longer than the search

    def label(self):
        """The label that says how many pages were found; nothing while the panel is closed."""
        if self.path is None:
            self.path = path_to(self.program.application(), lambda node: node.name == self.words)
        node = self.program.application() if self.path else None
        for place in self.path or ():
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
        """Milliseconds from the first key until all pages are found."""
        if not opens:
            self.open()
            desk.wait_until(lambda: desk.focused_box(self.program))
            desk.xdotool("key", "ctrl+a", "Delete")
            desk.wait_until(lambda: not self.says_all())
        keys = ["key", "ctrl+shift+f"] if opens else []
        start = time.monotonic()
        # One call for all keys; what it takes to start counts too.
        desk.xdotool(*keys, "type", "--delay", "0", word)
        while not self.says_all():
            if time.monotonic() - start > PATIENCE:
                raise SystemExit(f"{word} is not found in all pages")
        taken = (time.monotonic() - start) * 1000
        desk.xdotool("key", "ctrl+a", "Delete")
        self.close()
        return taken


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
    desk.write_group(group, [pages.address(number) for number in range(count)])
    with desk.Program(PROGRAM, group, home=home) as program:
        desk.wait_until(
            lambda: sum("page" in each for each in program.strip()) == count, PATIENCE, lambda: str(program.strip()))
        panel, times = Panel(program, count), {"known": [], "live": []}
        panel.time_of(KNOWN, False)
        for number in range(rounds):
            times["known"].append(panel.time_of(KNOWN, False))
            word = f"quokka{number}x"
            pages.add(word, count)
            times["live"].append(panel.time_of(word, True))
        print(f"{count} open pages, keys and look alone {look_alone(panel):.0f} ms, load {os.getloadavg()[0]:.1f}")
        for name, all_times in times.items():
            print(f"{name}: median {statistics.median(all_times):.0f} ms, {min(all_times):.0f} to {max(all_times):.0f}")


if __name__ == "__main__":
    ARGUMENTS = sys.argv[2:]
    del sys.argv[2:]
    PROGRAM = desk.program_file()
    main()
