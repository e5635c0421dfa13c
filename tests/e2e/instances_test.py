"""Several instances of the program at once: each keeps its cookies in a profile of its own, and finds them again."""

import os
import signal
import unittest

import desk

PROGRAM = desk.program_file()


class CookieServer(desk.PageServer):
    """Pages that set a cookie, /set/NAME, and that have the cookies that came as their title, /ask."""

    def answer(self, request):
        _, what, *name = request.path.split("/")
        title = "Set" if what == "set" else request.headers.get("Cookie", "none")
        cookie = [("Set-Cookie", f"who={name[0]}; Max-Age=9999; Path=/")] if what == "set" else []
        request.send(f"<!doctype html><title>{title}</title><h1>{title}</h1>".encode(), headers=cookie)


def end(program):
    program.process.send_signal(signal.SIGTERM)
    if program.wait_end() != 0:
        raise AssertionError(f"the program ended with {program.process.returncode}: {program.errors()}")


class Instances(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        with open(os.path.join(self.home, "settings.ini"), "w", encoding="ascii") as settings:
            settings.write("[General]\nAllowMultipleInstances=true\nRememberLastSites=false\n")
        self.pages = self.enterContext(CookieServer())

    def start(self, path):
        return desk.Program(PROGRAM, self.pages.address(path), home=self.home)

    def expect(self, path, title, sign=None):
        """Starts the program with a page, waits for its title and looks at the sign of its profile; ends it."""
        with self.start(path) as program:
            program.wait_strip([f"[{title}]"])
            self.assertEqual(self.sign(program), sign)
            end(program)

    def wait_notice(self, program, words):
        """Waits for what the window says once, while it is there to be read."""
        desk.wait_until(lambda: words in (program.status() or ""), what=lambda: f"the status bar says {program.status()}")

    def sign(self, program):
        """What the window says of its profile; nothing for the usual one."""
        signs = [node.name for node in desk.walk(program.find("status bar", "Status"))
                 if desk.role_of(node) == "label" and desk.is_showing(node)]
        return signs[0] if signs else None

    def test_each_finds_its_own_cookies_again(self):
        with self.start("set/first") as first:
            first.wait_strip(["[Set]"])
            self.assertIsNone(self.sign(first))
            with self.start("set/second") as second:
                self.wait_notice(second, "cookies and logins of its own: Profile 2.")
                second.wait_strip(["[Set]"])
                self.assertEqual(self.sign(second), "Profile 2")
                self.expect("ask", "none", "Profile 3")
                end(second)
            self.expect("ask", "who=second", "Profile 2")
            end(first)
        self.expect("ask", "who=first")
        self.assertTrue(os.path.isdir(os.path.join(self.home, "engine-3")))

    def test_a_killed_one_leaves_its_profile_to_the_next(self):
        with self.start("ask") as first:
            first.wait_strip(["[none]"])
            self.expect("set/second", "Set", "Profile 2")
            with self.start("ask") as second:
                desk.wait_until(lambda: self.sign(second) == "Profile 2", what=lambda: f"it has {self.sign(second)}")
                second.wait_strip(["[who=second]"])
                second.kill()
            self.expect("ask", "who=second", "Profile 2")

    def test_where_nothing_can_be_kept_the_window_says_so(self):
        with open(os.path.join(self.home, "engine"), "w", encoding="ascii"):
            pass
        with self.start("set/nobody") as program:
            self.wait_notice(program, "This window forgets cookies and logins when it closes.")
            program.wait_strip(["[Set]"])
            self.assertEqual(self.sign(program), "Nothing kept")
            end(program)
        self.expect("ask", "none", "Nothing kept")


if __name__ == "__main__":
    desk.main()
