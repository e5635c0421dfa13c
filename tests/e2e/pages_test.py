# Tests: EngineAssembly, PageBarsAssembly
"""What pages ask of their user, from outside: a login, a refused certificate, the whole screen."""

import base64
import os
import ssl
import subprocess
import tempfile
import unittest

import desk

PROGRAM = desk.program_file()
RIGHT = "Basic " + base64.b64encode(b"anna:rosebud").decode()


class Guarded(desk.PageServer):
    """/Vault wants a name and a password; any other address is a page with a button that fills the screen."""

    def answer(self, request):
        title = request.path.strip("/")
        if title == "Vault" and request.headers.get("Authorization") != RIGHT:
            return self.say(request, "Keep out", status=401, headers=[("WWW-Authenticate", 'Basic realm="the vault"')])
        self.say(request, title)

    def say(self, request, title, **more):
        page = f"<!doctype html><title>{title}</title><h1>{title}</h1>"
        page += "<button style='position: fixed; inset: 0' onclick='document.body.requestFullscreen()'>Fill</button>"
        request.send(page.encode(), **more)


def self_signed(server):
    """Has the server speak TLS, with a certificate that nobody else vouches for."""
    with tempfile.TemporaryDirectory() as folder:
        key, certificate = os.path.join(folder, "key"), os.path.join(folder, "certificate")
        options = "req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 30 -subj /CN=self.example"
        subprocess.run(["openssl", *options.split(), "-keyout", key, "-out", certificate], check=True, capture_output=True)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, key)
    # Not at the accept, which would wait for each handshake.
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)


class Pages(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = Guarded()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def start(self, address):
        return desk.Program(PROGRAM, address, home=self.home)

    def fill_in(self, program, name, password):
        program.focus()
        desk.wait_until(lambda: desk.is_focused(program.find("text", "Name")), what="the keyboard is not with the name")
        subprocess.run(["xdotool", "type", name], check=True)
        subprocess.run(["xdotool", "key", "Tab"], check=True)
        subprocess.run(["xdotool", "type", password], check=True)

        def answered():
            """A dialog takes no answer in its first moments."""
            subprocess.run(["xdotool", "key", "Return"], check=True)
            box = program.find_now("text", "Name")
            return box is None or desk.text_of(box) != name

        desk.wait_until(answered, what="the answer was not taken")

    def test_a_login_asks_again_and_then_opens(self):
        with self.start(self.pages.address("Vault")) as program:
            program.find("label", f"127.0.0.1:{self.pages.port} asks for a name and a password")
            self.assertEqual(len(program.strip()), 1)
            self.fill_in(program, "anna", "wrong")
            program.find("label", "The name or the password was not accepted.")
            self.fill_in(program, "anna", "rosebud")
            program.wait_strip(["[Vault]"])

    def test_a_cancelled_login_shows_what_the_server_says(self):
        with self.start(self.pages.address("Vault")) as program:
            program.press("push button", "Cancel")
            program.wait_strip(["[Keep out]"])

    def test_a_refused_certificate_is_explained_and_can_be_gone_on_with(self):
        server = self.pages.listen("127.0.0.1", prepare=self_signed)
        with self.start(f"https://127.0.0.1:{server.server_address[1]}/Secret") as program:
            desk.wait_until(
                lambda: desk.is_focused(program.find("push button", "Back")), what="the safe answer does not have the keyboard"
            )
            self.assertNotIn("[Secret]", program.strip())
            program.press("check box", "Details")
            program.find("label", "self.example")
            program.press("push button", "Go on to 127.0.0.1")
            program.wait_strip(["[Secret]"])

    def test_a_page_fills_the_screen_until_escape(self):
        def size(window):
            return desk.xdotool("getwindowgeometry", "--shell", window).split()[3:5]

        with self.start(self.pages.address("Film")) as program:
            program.wait_strip(["[Film]"])
            window, screen = program.window_id(), desk.xdotool("getdisplaygeometry").split()
            whole = [f"WIDTH={screen[0]}", f"HEIGHT={screen[1]}"]
            hint = f"127.0.0.1:{self.pages.port} fills the screen. Press Esc to leave."

            def fills():
                """A click that comes before the page has been painted is nobody's."""
                if not program.find_now("label", hint):
                    point = ("mousemove", "--window", window, "400", "400")
                    subprocess.run(["xdotool", *point, "click", "1"], check=True)
                return program.find_now("label", hint)

            program.focus()
            desk.wait_until(fills, what="a click does not fill the screen")
            desk.wait_until(lambda: size(window) == whole, what=lambda: f"{size(window)}")
            program.keys("Escape")
            desk.wait_until(lambda: size(window) != whole, what="Escape does not leave")
            # The command for it fills the screen with the window.
            program.keys("F11")
            program.find("label", "Press F11 to leave full screen")
            desk.wait_until(lambda: size(window) == whole, what=lambda: f"{size(window)}")
            program.keys("F11")
            desk.wait_until(lambda: size(window) != whole, what="F11 does not leave")


if __name__ == "__main__":
    desk.main()
