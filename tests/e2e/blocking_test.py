# Tests: BlockingAssembly, BlockingMenu, BlockedDialog, BlockingPages, PickedDialog
"""Content blocking as its user meets it: off at first and asked about once; a list by file takes a picture and a box
away; the status bar counts; off on a site it is all there again; what is pointed at stays hidden."""

import os
import unittest

import desk

PROGRAM = desk.program_file()
# Of one green point, large on the page.
PICTURE = bytes.fromhex("47494638396101000100800000 00ff00 000000 2c00000000010001000002024401003b".replace(" ", ""))
PAGE = """<!doctype html><title>Garden</title><style>body, p {{ margin: 0 }} #plain {{ height: 75vh; background: #dde }} #sponsor {{ height: 60px }}</style>
<p id="plain" class="plain">Roses</p><div id="sponsor" class="sponsor-box">Buy a rake</div>
<script>
function tell() {{
  const seen = id => getComputedStyle(document.getElementById(id)).display !== 'none';
  document.title = (image.naturalWidth > 0 ? 'picture' : '') + (seen('sponsor') ? ' box' : '') + (seen('plain') ? ' words' : '');
}}
const image = new Image(100, 100);
image.onload = image.onerror = () => {{ document.body.append(image); tell(); setInterval(tell, 100); }};
image.src = 'http://127.0.0.2:{port}/banner/ad.gif';
</script>"""
LIST = "! Title: Garden\n||127.0.0.2^$image,third-party\n##.sponsor-box\n"


def text_in(path):
    """What stands in a file; nothing when there is none yet."""
    if not os.path.exists(path):
        return ""
    with open(path, encoding="utf-8") as file:
        return file.read()


class Server(desk.PageServer):
    """The page on 127.0.0.1 and its picture on 127.0.0.2."""

    def __init__(self):
        super().__init__(hosts=2, stored=False)

    def answer(self, request):
        if request.path.endswith(".gif"):
            return request.send(PICTURE, "image/gif")
        request.send(PAGE.format(port=self.port).encode())

    def pictures(self):
        return sum(path.endswith(".gif") for path in self.requested())


class Blocking(unittest.TestCase):
    def setUp(self):
        self.server = self.enterContext(Server())
        self.home = desk.state_folder()
        self.list = os.path.join(self.home, "garden.txt")
        with open(self.list, "w", encoding="utf-8") as file:
            file.write(LIST)

    def start(self, address):
        program = desk.Program(PROGRAM, address, home=self.home)
        program.__enter__()
        self.addCleanup(program.__exit__, None, None, None)
        program.window()
        return program

    def shot(self, program, name):
        if os.environ.get("BLOCKING_SHOTS"):
            program.screenshot(os.path.join(os.environ["BLOCKING_SHOTS"], name + ".png"))

    def page(self):
        return f"http://127.0.0.1:{self.server.port}/"

    def options(self, program):
        """Opens the Internet Options and waits for the page about blocking."""
        program.wait_menu(lambda: program.keys("alt+v"))
        program.go_down_to("Internet Options...")
        desk.xdotool("key", "Return")
        return program.find("check box", "Block advertisements and trackers")

    def switch_on(self, program):
        on = self.options(program)
        box = program.find("text", "Another list (an address that begins with https, or a file)")
        box.queryEditableText().setTextContents(self.list)
        desk.wait_until(lambda: desk.text_of(box) == self.list, what="the box does not take the path")
        program.press("push button", "Add")
        program.find("check box", self.list)
        for name in ("EasyList", "EasyPrivacy"):
            known = program.find("check box", name)
            if known.getState().contains(desk.pyatspi.STATE_CHECKED):
                desk.press_node(known)
        desk.wait_until(lambda: on.getState().contains(desk.pyatspi.STATE_CHECKED), what="a new list does not switch it on")
        self.shot(program, "options")
        program.press("push button", "OK")
        desk.wait_until(lambda: program.find_now("check box", "EasyList") is None, what="the options stay open")
        program.find("push button", "0 blocked")

    def reload(self, program, title):
        program.keys("F5")
        program.wait_strip([f"[{title}]"])

    def test_a_list_takes_a_picture_away_and_a_site_can_have_it_back(self):
        program = self.start(self.page())
        program.wait_strip(["[picture box words]"])
        self.assertIsNone(program.find_now("push button", "0 blocked"))
        before = self.server.pictures()
        self.switch_on(program)
        self.reload(program, "words")
        self.assertEqual(self.server.pictures(), before, "the picture was asked for")
        sign = program.find("push button", "1 blocked")
        self.shot(program, "blocked")
        program.wait_menu(lambda: desk.press_node(sign))
        self.shot(program, "menu")
        desk.xdotool("key", "b")
        program.wait_strip(["[picture box words]"])
        program.find("push button", "Blocking off")
        self.shot(program, "off")

    def test_what_was_blocked_is_listed_with_its_rule(self):
        program = self.start(self.page())
        program.wait_strip(["[picture box words]"])
        self.switch_on(program)
        self.reload(program, "words")
        program.wait_menu(lambda: desk.press_node(program.find("push button", "1 blocked")))
        desk.xdotool("key", "w")
        program.find("table cell", f"http://127.0.0.2:{self.server.port}/banner/ad.gif")
        program.find("table cell", "||127.0.0.2^$image,third-party")
        self.shot(program, "listed")

    def test_an_element_that_is_pointed_at_stays_hidden(self):
        program = self.start(self.page())
        program.wait_strip(["[picture box words]"])
        self.switch_on(program)
        self.reload(program, "words")
        program.wait_menu(lambda: desk.press_node(program.find("push button", "1 blocked")))
        desk.xdotool("key", "h")
        desk.wait_until(lambda: "Click on what" in (program.status() or ""), what="nobody asks for a click")
        # The words fill most of the page, whatever the scale.
        told = desk.xdotool("getwindowgeometry", "--shell", program.window_id())
        place = {name: int(value) for name, value in (line.split("=") for line in told.splitlines())}
        for step in (0, 10):
            desk.move_pointer(place["X"] + place["WIDTH"] // 2 + step, place["Y"] + place["HEIGHT"] // 2)
        # The page is not told of the pointer before its script runs.
        for _ in range(20):
            desk.xdotool("click", "1")
            try:
                program.find("dialog", "Hide an Element", seconds=3)
                break
            except desk.NeverTrue:
                continue
        program.wait_strip([f"[127.0.0.1:{self.server.port}]"])
        self.shot(program, "picked")
        program.press("push button", "Keep Hidden")
        desk.wait_until(lambda: program.find_now("dialog", "Hide an Element") is None, what="the dialog stays")
        with open(os.path.join(self.home, "blocking", "own-rules.txt"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "127.0.0.1###plain\n")
        self.reload(program, f"127.0.0.1:{self.server.port}")

    def test_the_home_page_asks_once(self):
        program = self.start("tessaview:start")
        program.wait_strip(["[TessaView]"])
        self.shot(program, "question")
        program.wait_loaded()
        # Behind the search field, which has the keyboard then, and its button.
        program.keys("Tab", "Tab", "Tab", "Return")
        settings = os.path.join(self.home, "settings.ini")
        desk.wait_until(lambda: "BlockingAsked" in text_in(settings), what="the answer is not kept")
        self.shot(program, "answered")
        self.assertIsNone(program.find_now("push button", "0 blocked"))


if __name__ == "__main__":
    desk.main()
