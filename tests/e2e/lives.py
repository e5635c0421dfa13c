"""What tests share that kill the program: pages that do what they are told, the tabs as they must be, the session as it
lies on disk, and a run of the program that does things at random until it is killed."""

import collections
import configparser
import contextlib
import os
import queue
import re
import select
import signal
import socket
import subprocess
import threading
import time
import unittest

import desk
import pointer
from records import records_of

HOME = "home"  # the tab of the home page, which no session keeps
FRESH = 1.0  # seconds
MOST_PAGES = 4
MOST_KEPT = 10

# A page does what it is told. Each time it asks, the server knows that it is there, under its present name.
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
        super().__init__(hosts=6, stored=False)

    def address_of(self, name):
        return self.address(name, host=int(name.split("-")[1]) % 6 + 1)

    def order(self, name, text):
        self._orders[name].put(text)

    def forget(self):
        self.arrived.clear()
        self.left.clear()

    def take(self, request):
        """Pages ask for orders all the time, which nobody looks at."""

    def answer(self, request):
        what, _, name = request.path.strip("/").rpartition("/")
        if what == "orders":
            self.wait_for_order(request, name)
        elif what == "closing":
            while not is_gone(request):
                time.sleep(0.01)
            self.left[name] += 1
        elif name.startswith("page-"):
            request.send(PAGE.format(title=name).encode())
        else:
            request.send_error(404)

    def wait_for_order(self, request, name):
        orders = self._orders[name] = queue.Queue()
        self.arrived[name] += 1
        while not is_gone(request):
            try:
                return request.send(orders.get(timeout=0.02).encode(), "text/plain; charset=utf-8")
            except queue.Empty:
                continue
        self.left[name] += 1


def is_gone(request):
    """Whether nobody waits for the answer any more."""
    if not select.select([request.connection], [], [], 0)[0]:
        return False
    try:
        return request.connection.recv(1, socket.MSG_PEEK) == b""
    except OSError:
        return True


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

    def moved(self, place):
        """As they are when the one in front stands at that place, counted from 0."""
        rest = [name for name in self.names if name != self.front]
        return Tabs(rest[:place] + [self.front] + rest[place:], self.front)

    def renamed(self, old, new):
        return Tabs([new if name == old else name for name in self.names], new if self.front == old else self.front)

    def written(self):
        """What a session says of them: the pages, and which of these is in front, counted from 1."""
        pages = self.pages()
        return tuple(pages), pages.index(self.front) + 1 if self.front in pages else 0


class Session:
    """A session as it lies on disk."""

    def __init__(self, file):
        self.pages, self.titles = [], []
        (name, own), *pages = records_of(file)
        assert name == "Session", f"{file} begins with {name}"
        self.time, self.front = int(own["Time"]), int(own["Selected"])
        self.ended, self.settled = own["Ended"] == "1", own["Settled"] == "1"
        for name, page in pages:
            assert name == "Page", f"{file} has {name}"
            self.pages.append(page["Address"].rpartition("/")[2])
            self.titles.append(page["Title"])

    def written(self):
        return tuple(self.pages), self.front


def offer_of(count):
    """What the bar says that offers a session of so many pages."""
    pages = "One page was" if count == 1 else f"{count} pages were"
    return f"TessaView did not end properly. {pages} open."


class Killed(Exception):
    """The program is no more."""


class Life:
    """One run of the program, from its start to its death. Its test has the state folder `home`, the server `pages`
    and gives new pages their names, `new_name`."""

    def __init__(self, test, program, dice):
        self.test, self.file, self.dice, self.pages = test, program, dice, test.pages
        self.pages.forget()
        self.tabs = Tabs()
        self.true_until = []  # what was true before, and when the next was known to be
        self.longest = 0.0  # that anything took to take place
        self.killed_at = None
        self.pushed_from = {}  # the pages that have taken another's place without being loaded, and whose
        self.moves = 0  # begun
        self.heirs = {}  # starts that may have found the program dead and taken its place, and what they were to open
        self.program = desk.Program(program, home=test.home)

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

    def change(self, after, act, done, between=None):
        """Lets something happen that leads from the present tabs to `after`. What a hand does passes through those
        `between`, and how long it takes is its own business."""
        started = time.monotonic()
        before, self.tabs = self.tabs, after
        # Until it is known to have happened, any may be true.
        passed = [[tabs, None] for tabs in (before, *(between or ()))]
        self.true_until += passed
        act()
        if between is not None:
            started = time.monotonic()
        self.wait(done)
        now = time.monotonic()
        for each in passed:
            each[1] = now
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
                [self.file, address], env=dict(os.environ, TESSAVIEW_HOME=self.test.home), stderr=subprocess.DEVNULL
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

    def order(self):
        """The tabs as they stand in the strip."""
        found = [re.search(r"page-\d+", caption) for caption in self.program.strip()]
        return [match[0] if match else HOME for match in found]

    def move(self):
        """Drags the tab in front to the place of another. On the way it takes each place in between."""
        before, at = self.tabs, self.tabs.names.index(self.tabs.front)
        place = self.dice.choice([place for place in range(len(before.names)) if place != at])
        step = 1 if place > at else -1

        def drag():
            # One that is new has its name, and its place on the screen, a little later.
            self.wait(lambda: self.order() == before.names)
            tabs = self.program.tabs()
            pointer.drag(pointer.middle(tabs[at]), pointer.middle(tabs[place]))

        after = before.moved(place)
        between = [before.moved(each) for each in range(at + step, place, step)]
        self.moves += 1
        self.change(after, drag, lambda: self.order() == after.names, between)

    def reopen(self, session):
        after = Tabs([HOME, *session.pages], session.pages[session.front - 1])
        arrivals = [self.arrives(name) for name in session.pages]
        self.change(
            after,
            lambda: self.program.press("push button", "Reopen"),
            lambda: all(arrives() for arrives in arrivals),
        )

    def acts(self):
        """What may happen now, what is likely more than once."""
        count = len(self.tabs.pages())
        acts = [self.open] * (count < MOST_PAGES) + [self.close] * (count > 0)
        acts += [lambda: self.rename("push"), lambda: self.rename("go")] * 2 * (count > 0)
        return acts + [self.move] * 2 * (count > 0)

    def live(self):
        """Opens, closes, moves and navigates until it is killed."""
        while True:
            self.dice.choice(self.acts())()

    def end(self):
        """Waits for the death."""
        self.killer.join()
        self.clear_away()

    def clear_away(self):
        self.program.kill()
        for start in self.heirs:
            start.kill()
            start.wait()

    def kept_from_writing(self):
        """Since when nothing could be written, if that held until a second before the death or longer."""
        return self.killed_at

    def possible(self):
        """The states that were true within the last second in which they could be written down."""
        oldest = self.kept_from_writing() - FRESH - self.longest
        before = [tabs for tabs, until in self.true_until if until is None or until > oldest]
        return [tabs.written() for tabs in [*before, self.tabs]]

    def age_of(self, written):
        """For how long that had no longer been true; 0 when it was true at the end."""
        ends = [until or self.killed_at for tabs, until in self.true_until if tabs.written() == written]
        return 0.0 if written == self.tabs.written() or not ends else self.killed_at - max(ends)

    def close_streams(self):
        self.program.__exit__(None, None, None)


class KillTest(unittest.TestCase):
    """A test whose runs of the program are killed one after the other, all with one state folder."""

    def setUp(self):
        self.home = desk.state_folder()
        self.pages = Pages()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)
        self.names = 0
        self.dead = []  # the sessions that were killed, newest first: file name and what was written
        self.oldest_age = 0.0
        self.moves = 0

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

    @contextlib.contextmanager
    def until_killed(self, life):
        """What is done in it ends as it likes, once the life has been killed."""
        try:
            yield
        except Exception:
            if life.killed_at is None:
                life.clear_away()
                raise
        self.bury(life)

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
        self.moves += life.moves
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
        life.program.find("label", offer_of(len(session.pages)))
