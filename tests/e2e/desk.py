"""What end-to-end tests share: the real program on the display that on-display.sh provides, looked at from outside
through the accessibility bus and the X server, and a local server for pages. Every wait is for a condition."""

import http.server
import os
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import pyatspi

WINDOW_TITLE = "TessaView 3"
# How the program is started without what on-display.sh sets: the engine's sandbox does not work for root.
SANDBOX = {"QTWEBENGINE_DISABLE_SANDBOX": "1"} if os.geteuid() == 0 else {}
PATIENCE = 60  # seconds until a condition counts as never coming true; far beyond what any step takes


class NeverTrue(AssertionError):
    """A condition has not come true in time."""


def wait_until(condition, seconds=PATIENCE, what=None):
    """Asks `condition` again until its answer is true, and returns that answer. A part of the window that went away
    while it was looked at counts as not yet true. `what`, a text or a function that gives one, says what was missed."""
    end = time.monotonic() + seconds
    while True:
        try:
            answer = condition()
        except Exception as error:  # AT-SPI reports a vanished object as one of several kinds of error
            # A file may come while one waits; a program that is not installed, which has a name without a folder, will not.
            is_program = isinstance(error, FileNotFoundError) and os.sep not in str(error.filename)
            if is_program or isinstance(error, (AssertionError, NameError, TypeError)):
                raise
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise NeverTrue(what() if callable(what) else what or "the condition never came true")
        time.sleep(0.03)


def walk(node, into=lambda node: True):
    """The node and everything in it, from the outside in; what is inside a node only if `into` says so of it."""
    yield node
    for index in range(node.childCount if into(node) else 0):
        child = node.getChildAtIndex(index)
        if child is not None:
            yield from walk(child, into)


def listen_as_a_screen_reader(test):
    """Tells every program that is started until the test has ended that a screen reader is there, as the desktop does."""
    status = ["--dest=org.a11y.Bus", "/org/a11y/bus"]
    properties = "org.freedesktop.DBus.Properties."

    def call(method, *arguments):
        command = ["dbus-send", "--session", "--print-reply", *status, properties + method, "string:org.a11y.Status"]
        return subprocess.run([*command, *arguments], check=True, capture_output=True, timeout=30, text=True).stdout

    # Newer buses know only that somebody uses accessibility.
    name = "ScreenReaderEnabled" if "ScreenReaderEnabled" in call("GetAll") else "IsEnabled"
    call("Set", f"string:{name}", "variant:boolean:true")
    test.addCleanup(call, "Set", f"string:{name}", "variant:boolean:false")


# Newer accessibility buses call some things otherwise; the tests know one name for each.
ROLES = {"button": "push button", "push button menu": "push button", "button menu": "push button"}


def role_of(node):
    """What kind of thing a node is, by the name that all tests use."""
    name = node.getRoleName()
    return ROLES.get(name, name)


def is_showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def is_focused(node):
    return node.getState().contains(pyatspi.STATE_FOCUSED)


def is_enabled(node):
    return node.getState().contains(pyatspi.STATE_SENSITIVE)


def focused_box(program):
    """The box of the window that has the keyboard; nothing while none has. A page has a focus of its own, which it keeps
    while the keyboard is elsewhere."""
    for node in walk(program.application(), lambda node: node.getRoleName() != "document web"):
        is_box = node.getRoleName() in ("combo box", "text") and "Text" in node.get_interfaces()
        if is_box and is_focused(node):
            return node
    return None


def text_of(node):
    """The text in a box."""
    content = node.queryText()
    return content.getText(0, content.characterCount)


class Program:
    """One start of the program. Use it in a `with`: it is ended at the end of the block if it still runs."""

    def __init__(self, file, *arguments, home, folder=None):
        """`home` is the state folder; two starts with the same one meet each other. `folder` is the current folder."""
        self.home = home
        self._pointed = False
        environment = dict(os.environ, TESSAVIEW_HOME=home)
        self._errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [file, *arguments], env=environment, cwd=folder, stdin=subprocess.DEVNULL, stderr=self._errors
        )

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        if error is not None:
            print(f"-- {self.process.args}: {self.what_is_seen()}\n-- standard error: {self.errors()}", file=sys.stderr)
        self.kill()
        self._errors.close()

    def errors(self):
        """What the program has written to standard error so far."""
        self._errors.seek(0)
        return self._errors.read().decode(errors="replace")

    def kill(self):
        """Ends the program at once, as a crash would."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def wait_end(self, seconds=PATIENCE):
        """Waits until the program has ended by itself; its exit code."""
        wait_until(lambda: self.process.poll() is not None, seconds, "the program did not end")
        return self.process.returncode

    # -- what is there

    def application(self):
        """The program on the accessibility bus; nothing while it is not there."""
        desktop = pyatspi.Registry.getDesktop(0)
        for index in range(desktop.childCount):
            each = desktop.getChildAtIndex(index)
            if each is not None and each.get_process_id() == self.process.pid:
                return each
        return None

    def _alive(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program has ended with {self.process.returncode}: {self.errors()}")

    def find_now(self, role, name=None):
        """The first visible thing of that role, and that name if one is given; nothing when there is none."""

        def found():
            self._alive()
            application = self.application()
            for node in walk(application) if application else ():
                if role_of(node) == role and (name is None or node.name == name) and is_showing(node):
                    return [node]
            return [None]

        # What went away while it was looked at says nothing of what is there.
        return wait_until(found, seconds=5)[0]

    def find(self, role, name=None, seconds=PATIENCE):
        """Like `find_now`, but waits for it."""
        return wait_until(
            lambda: self.find_now(role, name), seconds, lambda: f"no {role} {name!r}; seen: {self.what_is_seen()}"
        )

    def window(self):
        """Waits for the main window."""
        return self.find("frame", WINDOW_TITLE)

    def window_id(self):
        """The main window's number on the X server, waited for."""
        # Without "--all" any window of the process would do, a tool tip too.
        command = ["xdotool", "search", "--all", "--pid", str(self.process.pid), "--name", f"^{WINDOW_TITLE}$"]
        return wait_until(
            lambda: subprocess.run(command, capture_output=True, text=True).stdout.split(), what="no main window"
        )[0]

    def tabs(self):
        """The tabs of the strip from left to right, those scrolled out of sight included."""
        self._alive()
        application = self.application()
        for node in walk(application) if application else ():
            if role_of(node) == "page tab list":
                children = [node.getChildAtIndex(index) for index in range(node.childCount)]
                # Behind the tabs there are buttons: the heads of groups, and the one for a new tab.
                return [child for child in children if role_of(child) == "page tab"]
        return []

    def strip(self):
        """The strip as a person reads it: the captions, the selected one in brackets."""
        selected = pyatspi.STATE_SELECTED
        return [f"[{tab.name}]" if tab.getState().contains(selected) else tab.name for tab in self.tabs()]

    def wait_strip(self, expected):
        """Waits until the strip shows exactly these captions, the selected one in brackets."""
        wait_until(lambda: self.strip() == expected, what=lambda: f"strip is {self.strip()}, not {expected}")

    def message_now(self):
        """The question of the message box that is open: the window that has it, and its text; else nothing."""
        self._alive()
        application = self.application()
        for index in range(application.childCount if application else 0):
            window = application.getChildAtIndex(index)
            if role_of(window) not in ("alert", "dialog") or not is_showing(window):
                continue
            labels = [node.name for node in walk(window) if role_of(node) == "label" and node.name]
            return window, labels[0] if labels else window.name
        return None

    def what_is_seen(self):
        try:
            application = self.application()
            nodes = [f"{role_of(node)} {node.name!r}" for node in walk(application)] if application else []
            return "; ".join(nodes)
        except Exception as error:
            return f"nothing ({error})"

    def status(self):
        """The text in the status bar, as a screen reader finds it."""
        bar = self.find_now("status bar", "Status")
        return bar.description if bar else None

    # -- what a person does

    def press(self, role, name):
        """Presses a button or chooses a menu's entry, without waiting for what comes of it."""
        press_node(self.find(role, name))

    def answer(self, question, button):
        """Waits for a message box with that question, presses a button of it and waits until it has closed."""

        def box():
            found = self.message_now()
            return found and found[1] == question and found[0]

        window = wait_until(box, what=lambda: f"no question {question!r}; seen: {self.what_is_seen()}")
        buttons = {node.name.replace("&", ""): node for node in walk(window) if role_of(node) == "push button"}
        press_node(buttons[button])
        wait_until(
            lambda: self.process.poll() is not None or self.message_now() is None, what="the message box did not close"
        )

    def windows_shown(self):
        """How many windows of the program the X server shows, its menus among them."""
        command = ["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)]
        return len(subprocess.run(command, capture_output=True, text=True).stdout.split())

    def selected_entry(self):
        """The entry of the innermost open menu that is selected; nothing while none is."""
        entries = [node for node in walk(self.application()) if role_of(node) == "menu item" and is_focused(node)]
        return entries[-1].name if entries else None

    def selected_line(self):
        """The line of a list or tree that has the keyboard; nothing while none has."""
        lines = [node for node in walk(self.application()) if role_of(node) == "table cell" and is_focused(node)]
        return lines[-1].name if lines else None

    def go_down_to(self, entry):
        """Goes down in the open menu, key by key, until an entry is selected."""
        self.find("menu item", entry)
        while (before := self.selected_entry()) != entry:
            xdotool("key", "Down")
            wait_until(lambda: self.selected_entry() != before, what=lambda: f"Down stays on {before}")

    def wait_menu(self, opens):
        """Waits until what `opens` does has brought up one more menu."""
        before = self.windows_shown()
        opens()
        wait_until(lambda: self.windows_shown() > before, what="no menu came up")

    def menu_of(self, entry, key):
        """Clicks a menu's entry with the right button and presses a key of the menu that comes up."""
        node = self.find("menu item", entry)
        self.wait_menu(lambda: click(node, button=3))
        xdotool("key", key)

    def focus(self):
        """Makes the main window the one that gets the keys, and waits until it is."""
        window = self.window_id()
        subprocess.run(["xdotool", "windowactivate", "--sync", window], check=True)
        wait_until(lambda: xdotool("getactivewindow") == window, what="the main window did not become the active one")
        self._point(window)

    def _point(self, window):
        """Moves the pointer over the window once and back, as a hand does before it clicks: a menu that has never seen
        the pointer takes the first click for one that leaves the menu."""
        if self._pointed:
            return
        self._pointed = True
        before = [part.split(":")[1] for part in xdotool("getmouselocation").split()[:2]]
        for x in ("20", "30"):
            xdotool("mousemove", "--window", window, x, "4")
        xdotool("mousemove", *before)

    def wait_active(self):
        """Waits until the main window is the one that gets the keys."""
        active = lambda: xdotool("getactivewindow")
        wait_until(lambda: active() == self.window_id(), what=lambda: f"the window {active()} is the active one")

    def window_state(self):
        """What the window manager says of the main window: "Iconic" or "Normal" and words like "MAXIMIZED_HORZ"."""
        command = ["xprop", "-id", self.window_id(), "WM_STATE", "_NET_WM_STATE"]
        return subprocess.run(command, capture_output=True, text=True).stdout

    def wait_state(self, word):
        wait_until(lambda: word in self.window_state(), what=lambda: f"not {word}: {self.window_state()}")

    def minimize(self):
        xdotool("windowminimize", self.window_id())
        self.wait_state("Iconic")

    def keys(self, *keys):
        """Presses key combinations, named as xdotool names them: "ctrl+w", "Return"."""
        self.focus()
        subprocess.run(["xdotool", "key", "--clearmodifiers", *map(with_places, keys)], check=True)

    def wait_loaded(self):
        """Waits until the page in front is loaded: then it takes the keyboard, whoever has it, and not again."""

        def can_stop():
            shown = walk(self.application(), lambda node: node.getRoleName() != "document web")
            return [is_enabled(node) for node in shown if role_of(node) == "push button" and node.name == "Stop" and is_showing(node)]

        wait_until(lambda: can_stop() == [False], what=lambda: f"not loaded: {can_stop()}")

    def enter(self, words, key="ctrl+l", write=None):
        """Types words into the box that a key leads to, and presses Return there. `write` types them another way; it is
        given the box and the words."""
        self.wait_loaded()

        def typed():
            self.keys(key, "ctrl+a", "Delete")
            try:
                # Looked up once: whoever looks through the whole window for each letter takes his time.
                box = wait_until(lambda: focused_box(self), seconds=5)
                wait_until(lambda: text_of(box) == "", seconds=5)
                write(box, words) if write else xdotool("type", "--delay", "1", words)
                return wait_until(lambda: text_of(box) == words, seconds=5)
            except NeverTrue:
                return False

        wait_until(typed, what=lambda: f"not typed: {words!r}; seen: {self.what_is_seen()}")
        xdotool("key", "Return")

    def accept_name(self, title, file):
        """Names a file in the dialog of that title, in the field that has the focus, and accepts it. The name is not
        typed: for a typed one Qt offers names once it has read the folder, and a list that comes late takes the Return."""
        dialog = self.find("dialog", title)
        wait_until(lambda: xdotool("getactivewindow", "getwindowname") == title, what=f"{title} is not active")
        field = wait_until(
            lambda: next((node for node in walk(dialog) if role_of(node) == "text" and is_focused(node)), None),
            what=f"nothing to name a file in {title}",
        )
        field.queryEditableText().setTextContents(file)
        wait_until(lambda: text_of(field) == file, what=lambda: f"the name is {text_of(field)!r}")
        xdotool("key", "Return")

    def screenshot(self, file):
        """Writes the whole display as a picture."""
        subprocess.run(["import", "-window", "root", file], check=True)


# Where a keyboard has its function keys, as the X server counts. Of the layouts of newer systems xdotool takes one of
# their other levels, and presses Alt as well.
PLACES = {f"F{number}": str(66 + number if number <= 10 else 84 + number) for number in range(1, 13)}


def with_places(combination):
    """The combination with its function key by its place."""
    return "+".join(PLACES.get(key, key) for key in combination.split("+"))


def xdotool(*arguments):
    return subprocess.run(["xdotool", *arguments], capture_output=True, text=True).stdout.strip()


def move_pointer(x, y):
    """Moves the pointer to a place on the screen. With "--sync" xdotool waits 15 s for one that is there already."""
    xdotool("mousemove", str(x), str(y))
    expected = [f"x:{x}", f"y:{y}"]
    wait_until(lambda: xdotool("getmouselocation").split()[:2] == expected, what=lambda: xdotool("getmouselocation"))


def click(node, button=1):
    """Clicks into the middle of something on the screen, once it has a place there."""

    def place():
        box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.width > 0 and box.x >= 0 and (box.x + box.width // 2, box.y + box.height // 2)

    x, y = wait_until(place, what="it has no place on the screen")
    xdotool("mousemove", str(x), str(y), "click", str(button))
    # Left where it is, the pointer would choose in the next menu that opens under it.
    xdotool("mousemove", "0", "0")


def press_node(node):
    action = node.queryAction()
    names = [action.getName(index) for index in range(action.nActions)]
    for name in ("Press", "press", "click", "Toggle", "jump"):
        if name in names:
            action.doAction(names.index(name))
            return
    raise AssertionError(f"{role_of(node)} {node.name!r} cannot be pressed, only {names}")


HTML = "text/html; charset=utf-8"


class PageHandler(http.server.BaseHTTPRequestHandler):
    """Answers with what the `pages` of its server say. Has no words for the terminal."""

    def do_GET(self):
        self.server.pages.take(self)
        self.server.pages.answer(self)

    def send(self, body, kind=HTML, status=200, headers=()):
        self.send_response(status)
        for header in (("Content-Type", kind), ("Content-Length", str(len(body))), *headers):
            self.send_header(*header)
        if not self.server.pages.stored:
            self.send_header("Cache-Control", "no-store")
        self.end_headers()
        self.wfile.write(body)

    def handle(self):
        try:
            super().handle()
        except OSError:
            pass  # nobody reads it any more

    def log_message(self, *words):
        pass


class PageServer:
    """Pages on 127.0.0.1, 127.0.0.2 and so on, all at one port, so that each is a host of its own to the engine. The
    address says the title: /Garden is a page with the title "Garden". Nobody may store them when they are to be asked for
    each time. With `answers`, only so many requests are answered until `answer_all`. Use it in a `with`."""

    def __init__(self, hosts=1, stored=True, answers=None):
        self.stored = stored
        self.answers = answers
        self._answers_all = threading.Event()
        self.requests = []  # paths in the order in which they were asked for, the host before them: "127.0.0.1/Garden"
        self._lock = threading.Lock()
        self._servers = []
        self.port = 0
        for host in range(1, hosts + 1):
            self.port = self.listen(f"127.0.0.{host}", self.port).server_address[1]

    def listen(self, host, port=0, prepare=lambda server: None):
        """Serves the pages there as well, once the server is prepared."""
        server = http.server.ThreadingHTTPServer((host, port), PageHandler)
        server.pages = self
        prepare(server)
        self._servers.append(server)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        return server

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.answer_all()
        for server in self._servers:
            server.shutdown()
            server.server_close()

    def address(self, title, host=1):
        return f"http://127.0.0.{host}:{self.port}/{title}"

    def answer_all(self):
        self._answers_all.set()

    def requested(self):
        with self._lock:
            return list(self.requests)

    def take(self, request):
        """Notes the request, and waits when nothing more is answered."""
        with self._lock:
            self.requests.append(request.server.server_address[0] + request.path)
            waits = self.answers is not None and len(self.requests) > self.answers
        if waits:
            self._answers_all.wait()

    def answer(self, request):
        """Sends the page that was asked for."""
        title = request.path.strip("/")
        if title == "favicon.ico":
            return request.send(b"", status=404)
        request.send(f"<!doctype html><title>{title}</title><h1>{title}</h1>".encode())


def write_group(file, addresses):
    """Writes a TessaGroup file."""
    lines = ["[TessaGroup]", *(f"url{number}={address}" for number, address in enumerate(addresses, 1))]
    with open(file, "w", newline="\r\n", encoding="utf-8") as group:
        group.write("\n".join(lines) + "\n")


def state_folder():
    """A fresh state folder inside the one that on-display.sh removes at the end."""
    return tempfile.mkdtemp(dir=os.environ["TESSAVIEW_HOME"])


def program_file():
    """The program under test: the first argument of the test."""
    if len(sys.argv) < 2:
        sys.exit(f"usage: on-display.sh /usr/bin/python3 {sys.argv[0]} PROGRAM")
    return os.path.abspath(sys.argv.pop(1))


def with_children(process):
    """The numbers of a process and of all that it has started, and they in turn."""
    parents = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/stat", encoding="utf-8", errors="replace") as stat:
                parents.setdefault(int(stat.read().rsplit(")", 1)[1].split()[1]), []).append(int(name))
        except OSError:  # it has ended
            pass
    found = [process]
    for each in found:
        found.extend(parents.get(each, []))
    return found


def obeying_permissions(file):
    """The command that starts a program which may write only where its owner may: for root every folder is writable,
    unless it does without that right."""
    if os.geteuid() != 0:
        return [file]
    taken = "-dac_override,-dac_read_search"
    return ["setpriv", f"--inh-caps={taken}", f"--bounding-set={taken}", file]


def main():
    """Runs the tests of the file that calls it."""
    # pyatspi itself calls what its library has declared out of date.
    unittest.main(module="__main__", warnings="ignore")
