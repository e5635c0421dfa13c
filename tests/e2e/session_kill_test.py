"""The program is killed at random moments while its tabs open, close and navigate. Nothing that was open is lost: the
settings can be read, the session that was killed is written down as it was within the last second, and it is offered
again. SESSION_KILLS says how often, SESSION_NUMBER chooses another run of chance, "any" a new one each time."""

import collections
import configparser
import os
import queue
import random
import select
import signal
import socket
import subprocess
import threading
import time
import unittest

import desk

PROGRAM = desk.program_file()
KILLS = int(os.environ.get("SESSION_KILLS", "20"))
NUMBER = os.environ.get("SESSION_NUMBER", "1")
if NUMBER == "any":
    NUMBER = random.randrange(1_000_000)
HOME = "home"  # the tab of the home page, which no session keeps
FRESH = 1.0  # seconds
MOST_KEPT = 10
MOST_PAGES = 4
OFFERED = {1: "TessaView did not end properly. One page was open."}

# A page does what it is told, and each time it asks the server knows that it is there, under its present name.
PAGE = """<!doctype html><title>{title}</title><h1>{title}</h1><script>
(async () => {{
  for (;;) {{
    const answer = await fetch('/orders' + location.pathname);
    const order = await answer.text();
    if (order.startsWith('push ')) {{
      const name = order.slice(5);
      history.pushState(0, '', '/' + name);
      document.title = name;
    }} else if (order.startsWith('go ')) {{
      location.href = order.slice(3);
      return;
    }} else if (order == 'close') {{
      fetch('/closing' + location.pathname);
      window.close();
      return;
    }}
  }}
}})();
</script>"""


class Pages(desk.PageServer):
    """A server whose pages wait for orders."""

    def __init__(self):
        self.arrived = collections.Counter()
        self.left = collections.Counter()
        self._orders = {}
        super().__init__(hosts=6)

    def address_of(self, name):
        return self.address(name, host=int(name.split("-")[1]) % 6 + 1)

    def order(self, name, text):
        self._orders[name].put(text)

    def forget(self):
        self.arrived.clear()
        self.left.clear()

    def _handler(self):
        pages = self

        class Handler(desk.http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                what, _, name = self.path.strip("/").rpartition("/")
                if what == "orders":
                    self.wait_for_order(name)
                elif what == "closing":
                    while not self.is_gone():
                        time.sleep(0.01)
                    pages.left[name] += 1
                elif name.startswith("page-"):
                    self.answer(PAGE.format(title=name), "text/html")
                else:
                    self.send_error(404)

            def wait_for_order(self, name):
                orders = pages._orders[name] = queue.Queue()
                pages.arrived[name] += 1
                while not self.is_gone():
                    try:
                        return self.answer(orders.get(timeout=0.02), "text/plain")
                    except queue.Empty:
                        continue
                pages.left[name] += 1

            def is_gone(self):
                if not select.select([self.connection], [], [], 0)[0]:
                    return False
                try:
                    return self.connection.recv(1, socket.MSG_PEEK) == b""
                except OSError:
                    return True

            def answer(self, text, kind):
                self.send_response(200)
                self.send_header("Content-Type", kind + "; charset=utf-8")
                self.send_header("Cache-Control", "no-store")
                self.send_header("Content-Length", str(len(text)))
                self.end_headers()
                self.wfile.write(text.encode())

            def handle(self):
                try:
                    super().handle()
                except OSError:
                    pass  # the program was killed

            def log_message(self, *words):
                pass

        return Handler


class Tabs:
    """The tabs as they must be by the rules of the strip: names from left to right, and the one in front."""

    def __init__(self, names=(HOME,), front=HOME):
        self.names, self.front = list(names), front

    def pages(self):
        return [name for name in self.names if name != HOME]

    def opened(self, name):
        at = self.names.index(self.front) + 1
        return Tabs(self.names[:at] + [name] + self.names[at:], name)

    def closed(self, name):
        at = self.names.index(name)
        rest = self.names[:at] + self.names[at + 1 :]
        return Tabs(rest, rest[min(at, len(rest) - 1)] if name == self.front else self.front)

    def renamed(self, old, new):
        return Tabs([new if name == old else name for name in self.names], new if self.front == old else self.front)

    def written(self):
        """What a session says of them: the pages, and which of these is in front, counted from 1."""
        pages = self.pages()
        return tuple(pages), pages.index(self.front) + 1 if self.front in pages else 0


class Session:
    """A session as it lies on disk."""

    def __init__(self, file):
        self.pages, self.titles, self.front, self.ended, self.settled = [], [], 0, False, False
        with open(file, encoding="utf-8") as session:
            lines = session.read().split("\n")
        assert lines[0] == "TessaView session 1" and lines[-1] == "", f"{file} is not whole: {lines}"
        for line in lines[1:-1]:
            name, _, value = line.partition("=")
            if name == "page":
                address, _, title = value.partition("\t")
                self.pages.append(address.rpartition("/")[2])
                self.titles.append(title)
            elif name == "selected":
                self.front = int(value)
            elif name in ("ended", "settled"):
                setattr(self, name, value == "1")

    def written(self):
        return tuple(self.pages), self.front


class Killed(Exception):
    """The program is no more."""


class Life:
    """One run of the program, from its start to its death."""

    def __init__(self, test, dice):
        self.test, self.dice, self.pages = test, dice, test.pages
        self.pages.forget()
        self.tabs = Tabs()
        self.true_until = []  # what was true before, and when the next was known to be
        self.longest = 0.0  # that anything took to take place
        self.killed_at = None
        self.pushed_from = {}  # the pages that have taken another's place without being loaded, and whose
        self.heirs = {}  # starts that may have found the program dead and taken its place, and what they were to open
        self.program = desk.Program(PROGRAM, home=test.home)

    def kill_in(self, seconds):
        def kill():
            self.killed_at = time.monotonic()
            self.program.process.send_signal(signal.SIGKILL)

        self.killer = threading.Timer(seconds, kill)
        self.killer.start()

    def wait(self, condition):
        started = time.monotonic()
        while not condition():
            if self.killed_at is not None:
                raise Killed
            assert self.program.process.poll() is None, f"it ended by itself: {self.program.errors()}"
            assert time.monotonic() - started < desk.PATIENCE, f"this never came: {self.tabs.names}"
            time.sleep(0.005)

    def change(self, after, act, done):
        """Lets something happen that leads from the present tabs to `after`."""
        started = time.monotonic()
        before, self.tabs = self.tabs, after
        # Until it is known to have happened, either may be true.
        self.true_until.append([before, None])
        act()
        self.wait(done)
        now = time.monotonic()
        self.true_until[-1][1] = now
        self.longest = max(self.longest, now - started)

    def arrives(self, name):
        count = self.pages.arrived[name]
        return lambda: self.pages.arrived[name] > count

    def open(self):
        name = self.test.new_name()
        address = self.pages.address_of(name)
        arrives = self.arrives(name)

        def hand_over():
            # Nobody reads what a start says that finds nobody any more.
            start = subprocess.Popen(
                [PROGRAM, address], env=dict(os.environ, TESSAVIEW_HOME=self.test.home), stderr=subprocess.DEVNULL
            )
            self.heirs[start] = name
            self.wait(lambda: start.poll() is not None)

        self.change(self.tabs.opened(name), hand_over, arrives)

    def close(self):
        name = self.dice.choice(self.tabs.pages())
        count = self.pages.left[name]
        self.change(
            self.tabs.closed(name),
            lambda: self.pages.order(name, "close"),
            lambda: self.pages.left[name] > count,
        )

    def rename(self, how):
        old, new = self.dice.choice(self.tabs.pages()), self.test.new_name()
        if how == "push":
            # Of the same host.
            while self.pages.address_of(new).split(":")[1] != self.pages.address_of(old).split(":")[1]:
                new = self.test.new_name()
            self.pushed_from[new] = old
        order = f"push {new}" if how == "push" else f"go {self.pages.address_of(new)}"
        self.change(self.tabs.renamed(old, new), lambda: self.pages.order(old, order), self.arrives(new))

    def reopen(self, session):
        after = Tabs([HOME, *session.pages], session.pages[session.front - 1])
        arrivals = [self.arrives(name) for name in session.pages]
        self.change(
            after,
            lambda: self.program.press("push button", "Reopen"),
            lambda: all(arrives() for arrives in arrivals),
        )

    def live(self):
        """Opens, closes and navigates until it is killed."""
        while True:
            count = len(self.tabs.pages())
            acts = [self.open] * (count < MOST_PAGES) + [self.close] * (count > 0)
            acts += [lambda: self.rename("push"), lambda: self.rename("go")] * 2 * (count > 0)
            self.dice.choice(acts)()

    def end(self):
        """Waits for the death."""
        self.killer.join()
        self.clear_away()

    def clear_away(self):
        self.program.kill()
        for start in self.heirs:
            start.kill()
            start.wait()

    def possible(self):
        """The states that were true within the last second before the death."""
        oldest = self.killed_at - FRESH - self.longest
        before = [tabs for tabs, until in self.true_until if until is None or until > oldest]
        return [tabs.written() for tabs in [*before, self.tabs]]

    def age_of(self, written):
        """For how long that had no longer been true; 0 when it was true at the end."""
        ends = [until or self.killed_at for tabs, until in self.true_until if tabs.written() == written]
        return 0.0 if written == self.tabs.written() or not ends else self.killed_at - max(ends)

    def close_streams(self):
        self.program.__exit__(None, None, None)


class SessionKill(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = Pages()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)
        self.names = 0
        self.dead = []  # the sessions that were killed, newest first: file name and what was written
        self.oldest_age = 0.0

    def new_name(self):
        self.names += 1
        return f"page-{self.names}"

    def sessions(self):
        """The sessions on disk, newest first."""
        folder = os.path.join(self.home, "sessions")
        names = sorted(os.listdir(folder), reverse=True) if os.path.isdir(folder) else []
        return {name: Session(os.path.join(folder, name)) for name in names if name.endswith(".session")}

    def check_settings(self):
        settings = configparser.ConfigParser(interpolation=None, strict=True)
        settings.read(os.path.join(self.home, "settings.ini"), encoding="utf-8")
        damaged = [name for name in os.listdir(self.home) if "damaged" in name]
        self.assertEqual(damaged, [])

    def check_kept(self):
        """No session that was killed has gone or become another."""
        sessions = self.sessions()
        for name, written in self.dead[:MOST_KEPT]:
            self.assertIn(name, sessions)
            self.assertEqual(sessions[name].written(), written)

    def bury(self, life):
        """Looks at what the killed run has left."""
        life.end()
        self.check_settings()
        known = {name for name, _ in self.dead}
        for name, session in sorted(self.sessions().items()):
            if name in known:
                continue
            self.assertFalse(session.ended)
            self.dead.insert(0, (name, session.written()))
            process = int(name.partition(".")[0].partition("-")[2])
            if process == life.program.process.pid:
                self.check_written(life, session)
            else:
                self.assertIn(process, [start.pid for start in life.heirs])
        if not any(name.endswith(f"-{life.program.process.pid}.session") for name, _ in self.dead):
            self.assertIn(((), 0), life.possible(), "the session was not written down")
        self.check_kept()
        life.close_streams()

    def check_written(self, life, session):
        self.assertIn(session.written(), life.possible(), f"killed at {life.killed_at}, told {life.true_until}")
        self.oldest_age = max(self.oldest_age, life.age_of(session.written()))
        for name, title in zip(session.pages, session.titles):
            # Until its title is known, the address stands for it, or the title is still that of the page before. The
            # engine may tell of a title before it tells of the address.
            address = self.pages.address_of(name)
            next_ones = [new for new, old in life.pushed_from.items() if old == name]
            self.assertIn(title, ("", name, address, address[7:], life.pushed_from.get(name), *next_ones))

    def offered(self):
        """The session that must be offered at the next start."""
        sessions = self.sessions()
        for name, _ in self.dead[:MOST_KEPT]:
            if sessions[name].pages and not sessions[name].settled:
                return sessions[name]
        return None

    def check_offer(self, life, session):
        if session is None:
            life.program.window()
            return
        count = len(session.pages)
        told = OFFERED.get(count, f"TessaView did not end properly. {count} pages were open.")
        life.program.find("label", told)

    def test_whenever_it_is_killed_nothing_is_lost(self):
        print(f"SESSION_NUMBER={NUMBER} SESSION_KILLS={KILLS}", flush=True)
        offers = collections.Counter()
        for number in range(1, KILLS + 1):
            # Of its own, because how far a life comes depends on the machine, too.
            dice = random.Random(f"{NUMBER} {number}")
            with self.subTest(kill=number, number=NUMBER):
                session = self.offered()
                life = Life(self, dice)
                answer = dice.choice(["Reopen", "Reopen", "Not Now", "nothing", "dies at once"])
                offers[answer if session else "none"] += 1
                try:
                    if answer == "dies at once":
                        life.kill_in(dice.uniform(0.05, 1.0))
                        # Another start at this moment might become the program, and this one end.
                        life.wait(lambda: False)
                    else:
                        self.check_offer(life, session)
                        self.check_kept()
                        life.kill_in(dice.uniform(0.1, 3.0))
                        if session and answer == "Reopen":
                            life.reopen(session)
                        elif session and answer == "Not Now":
                            life.program.press("push button", "Not Now")
                    life.live()
                except Exception:
                    # Whatever was being done to it then, it is dead as it should be.
                    if life.killed_at is None:
                        life.clear_away()
                        raise
                self.bury(life)
        print(f"{KILLS} kills, offers {dict(offers)}, {self.names} pages, the oldest state was no longer true for "
              f"{self.oldest_age:.2f} s", flush=True)
        self.assertGreater(len(self.dead), 0)
        self.check_listed()

    def check_listed(self):
        """All that is kept is listed, those too that were offered and not taken."""
        with desk.Program(PROGRAM, home=self.home) as program:
            program.window()
            kept = min(len(self.dead), MOST_KEPT)
            if program.find_now("push button", "Show All...") is None:
                return
            program.press("push button", "Show All...")
            items = lambda: [node for node in desk.walk(program.application()) if node.getRoleName() == "list item"]
            desk.wait_until(lambda: len(items()) == kept, what=lambda: f"{len(items())} listed, not {kept}")


if __name__ == "__main__":
    desk.main()
