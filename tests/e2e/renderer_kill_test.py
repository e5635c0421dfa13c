"""The process of a page is killed: its tab keeps its address and offers to load it again, the others notice nothing.
RENDERER_KILLS says how often processes are killed by chance."""

import os
import random
import signal
import time
import unittest

import desk

PROGRAM = desk.program_file()
KILLS = int(os.environ.get("RENDERER_KILLS", "3"))
HEAVY = b"""<!doctype html><title>Heavy</title><h1>Heavy</h1>
<script>const kept = new Uint8Array(1e8).fill(1); document.title = 'Heavy page';
fetch('/Ready');</script>"""


class Pages(desk.PageServer):
    """The page /Heavy holds so much memory that its process is the largest."""

    def answer(self, request):
        request.send(HEAVY) if request.path in ("/Heavy", "/Ready") else super().answer(request)


def renderers(program):
    """The processes of the program's pages and the memory that each holds, in pages of the system."""
    found = {}
    for process in desk.with_children(program.process.pid):
        try:
            with open(f"/proc/{process}/cmdline", encoding="utf-8") as words:
                command = words.read()
            with open(f"/proc/{process}/statm", encoding="utf-8") as memory:
                resident = int(memory.read().split()[1])
        except OSError:
            continue  # it has ended meanwhile
        if "--type=renderer" in command:
            found[process] = resident
    return found


class RendererKill(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = Pages(hosts=2)
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def start(self):
        """Two tabs, the page Heavy in front."""
        program = desk.Program(PROGRAM, self.pages.address("One"), home=self.home)
        program.wait_strip(["[One]"])
        with desk.Program(PROGRAM, self.pages.address("Heavy", 2), home=self.home) as second:
            self.assertEqual(second.wait_end(), 0)
        self.wait_ready(1)
        program.wait_strip(["One", "[Heavy page]"])
        return program

    def wait_ready(self, times):
        """Until the page Heavy has its title and its memory as often."""
        desk.wait_until(lambda: self.times("127.0.0.2/Ready") == times, what="the page is not ready")

    def times(self, page):
        return self.pages.requested().count(page)

    def address(self, program):
        box = program.find("text", "Address")
        return box.queryText().getText(0, -1)

    def test_one_that_dies_can_be_loaded_again_and_the_others_live_on(self):
        with self.start() as program:
            memory = renderers(program)
            os.kill(max(memory, key=memory.get), signal.SIGKILL)
            program.find("push button", "Reload")
            self.assertEqual(program.strip(), ["One", "[Heavy page]"])
            self.assertEqual(self.address(program), self.pages.address("Heavy", 2))
            program.keys("ctrl+shift+Tab")
            program.wait_strip(["[One]", "Heavy page"])
            self.assertIsNone(program.find_now("push button", "Reload"))
            self.assertEqual(self.times("127.0.0.1/One"), 1)
            program.keys("F5")
            desk.wait_until(lambda: self.times("127.0.0.1/One") == 2, what="the page that lives did not load again")
            program.keys("ctrl+Tab")
            program.press("push button", "Reload")
            desk.wait_until(lambda: self.times("127.0.0.2/Heavy") == 2, what="it was not loaded again")
            desk.wait_until(lambda: program.find_now("push button", "Reload") is None)
            program.wait_strip(["One", "[Heavy page]"])

    def test_when_all_have_died_nothing_of_the_session_is_lost(self):
        with self.start() as program:
            for process in renderers(program):
                os.kill(process, signal.SIGKILL)
            program.find("push button", "Reload")
            program.keys("ctrl+shift+Tab")
            program.wait_strip(["[One]", "Heavy page"])
            program.find("push button", "Reload")
            program.process.terminate()
            self.assertEqual(program.wait_end(), 0)
        with desk.Program(PROGRAM, home=self.home) as program:
            program.wait_strip(["One", "[Heavy page]"])
            self.assertEqual(self.address(program), self.pages.address("Heavy", 2))

    def kill_and_recover(self, program, dice):
        """Kills the process of the page in front, or all; how long the tab took to say so, and to come back."""
        memory = renderers(program)
        heavy = max(memory, key=memory.get)
        killed = dice.choice([[heavy], list(memory)])
        times = self.times("127.0.0.2/Heavy")
        started = time.monotonic()
        for process in killed:
            os.kill(process, signal.SIGKILL)
        button = program.find("push button", "Reload")
        told = time.monotonic()
        program.wait_strip(["One", "[Heavy page]"])
        self.assertEqual(self.address(program), self.pages.address("Heavy", 2))
        desk.press_node(button)
        desk.wait_until(lambda: self.times("127.0.0.2/Heavy") == times + 1, what="it was not loaded again")
        desk.wait_until(lambda: program.find_now("push button", "Reload") is None)
        program.wait_strip(["One", "[Heavy page]"])
        recovered = time.monotonic()
        self.wait_ready(times + 1)
        # It is what it was: of the processes that are there, one holds its memory again.
        desk.wait_until(lambda: self.holds_memory(program, dead=killed), what="its process does not hold its memory")
        return told - started, recovered - told

    def holds_memory(self, program, dead):
        memory = renderers(program)
        alive = [pages for process, pages in memory.items() if process not in dead]
        return alive and max(alive) * os.sysconf("SC_PAGE_SIZE") > 100_000_000

    def test_each_that_dies_comes_back(self):
        dice = random.Random("renderers")
        with self.start() as program:
            desk.wait_until(lambda: self.holds_memory(program, dead=[]), what="its process does not hold its memory")
            times = [self.kill_and_recover(program, dice) for _ in range(KILLS)]
            program.process.terminate()
            self.assertEqual(program.wait_end(), 0)
        told, back = (max(each) for each in zip(*times))
        print(f"{KILLS} kills, {len(times)} recovered, said so after {told:.2f} s at most, was back {back:.2f} s after "
              "the button at most", flush=True)


if __name__ == "__main__":
    desk.main()
