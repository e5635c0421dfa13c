"""How stand-alone browsers are found and started, without one: programs are stand-ins.

    python3 tests/bench/browsers_test.py"""
import os
import re
import sys
import types
import unittest
from unittest import mock

from measure import browsers
from measure.processes import NotMeasured
from standins import Folder

DISPLAY = types.SimpleNamespace(name=":7")
ADDRESSES = ["http://127.0.1.1:80/page/1", "http://127.0.1.2:80/page/2", "http://127.0.1.3:80/page/3"]
OWN_FAMILY = {**dict.fromkeys(browsers.Chromium.NAMES, browsers.Chromium),
              **dict.fromkeys(browsers.Firefox.NAMES, browsers.Firefox)}


class Browsers(Folder):
    def as_user(self, user):
        patch = mock.patch("os.geteuid", return_value=user)
        patch.start()
        self.addCleanup(patch.stop)

    def find(self, wish=None):
        with mock.patch.dict(os.environ, {"PATH": f"{self.folder}:/usr/bin:/bin" if wish else str(self.folder)}):
            return browsers.find(wish)

    def test_each_name_on_the_path_is_found_as_what_it_is(self):
        for name, family in OWN_FAMILY.items():
            with self.subTest(name=name):
                path = self.program(name, "")
                found = self.find()
                self.assertEqual((type(found), found.path), (family, path))
                os.remove(path)

    def test_chromium_comes_before_firefox(self):
        self.program("firefox", "")
        self.program("google-chrome", "")
        self.assertEqual(os.path.basename(self.find().path), "google-chrome")

    def test_without_one_there_is_none(self):
        self.program("chromedriver", "")
        self.assertIsNone(self.find())

    def test_one_of_another_name_is_known_by_what_it_says(self):
        for says, family in (("Mozilla Firefox 128.0", browsers.Firefox), ("Brave Browser 1.6", browsers.Chromium)):
            with self.subTest(says=says):
                self.assertIs(type(self.find(self.program("nightly", f"echo '{says}'"))), family)

    def test_one_of_another_name_is_known_by_what_it_leads_to(self):
        link = self.folder / "web"
        link.symlink_to(self.program("firefox-esr", ""))
        self.assertIs(type(self.find(str(link))), browsers.Firefox)

    def test_what_is_no_browser_is_refused_in_words(self):
        with self.assertRaisesRegex(NotMeasured, "no browser that is known here"):
            self.find(self.program("lynx", "echo Lynx 2"))
        with self.assertRaisesRegex(NotMeasured, "cannot be started"):
            self.find(str(self.folder / "missing"))

    def test_the_version_is_its_first_line(self):
        for path, version in ((self.program("a", "echo; echo ' Some 1.2 '; echo more"), "Some 1.2"),
                              (self.program("b", "exit 1"), "b of an unknown version"),
                              (str(self.folder / "c"), "c of an unknown version")):
            self.assertEqual(browsers.Browser(path).version(), version)

    def test_chromium_is_started_with_a_new_profile_and_no_questions(self):
        self.as_user(1000)
        command = browsers.Chromium("/usr/bin/chromium").open(ADDRESSES, str(self.folder))
        self.assertEqual(command[:2], ["/usr/bin/chromium", f"--user-data-dir={self.folder}/profile"])
        self.assertEqual(list((self.folder / "profile").iterdir()), [])
        # The first address is the one in front.
        self.assertEqual(command[-3:], [ADDRESSES[2], ADDRESSES[0], ADDRESSES[1]])
        switches = command[2:-3]
        self.assertEqual(switches, list(browsers.Chromium.SWITCHES))
        self.assertTrue(all(each.startswith("--") for each in switches), switches)
        for needed in ("--no-first-run", "--no-default-browser-check", "--disable-component-update",
                       "--disable-background-networking", "--disable-sync",
                       "--host-resolver-rules=MAP * ~NOTFOUND , EXCLUDE 127.*"):
            self.assertIn(needed, switches)

    def test_only_root_goes_without_chromiums_sandbox(self):
        for user, without in (1000, []), (0, ["--no-sandbox"]):
            with self.subTest(user=user):
                self.as_user(user)
                command = browsers.Chromium("c").open(ADDRESSES[:1], str(self.folder))
                self.assertEqual([word for word in command if "sandbox" in word], without)

    def test_a_second_chromium_meets_the_first(self):
        browser = browsers.Chromium("c")
        first, second = browser.open(ADDRESSES[:1], str(self.folder)), browser.again(ADDRESSES[1], str(self.folder))
        self.assertEqual(second, first[:-1] + [ADDRESSES[1]])

    def firefox_settings(self):
        lines = (self.folder / "profile" / "user.js").read_text().splitlines()
        found = [re.fullmatch(r'user_pref\("([a-zA-Z._-]+)", (true|false|-?[0-9]+|"[^"]*")\);', line) for line in lines]
        self.assertNotIn(None, found, lines)
        return {each.group(1): each.group(2) for each in found}

    def test_firefox_is_started_with_a_new_profile_and_no_questions(self):
        command = browsers.Firefox("/usr/bin/firefox").open(ADDRESSES, str(self.folder))
        self.assertEqual(command[:4], ["/usr/bin/firefox", "--profile", f"{self.folder}/profile", "--new-instance"])
        self.assertEqual(command[-3:], [ADDRESSES[2], ADDRESSES[0], ADDRESSES[1]])
        self.assertEqual(command[4:-3], ["--width", "1024", "--height", "768"])
        settings = self.firefox_settings()
        for name, value in (("browser.shell.checkDefaultBrowser", "false"), ("app.update.auto", "false"),
                            ("browser.startup.homepage_override.mstone", '"ignore"'), ("browser.startup.page", "0"),
                            ("browser.aboutwelcome.enabled", "false"), ("browser.tabs.warnOnOpen", "false"),
                            ("datareporting.policy.dataSubmissionEnabled", "false")):
            self.assertEqual(settings.get(name), value, name)
        self.assertEqual(len(settings), len(browsers.Firefox.SETTINGS))

    def test_a_second_firefox_meets_the_first(self):
        command = browsers.Firefox("f").again(ADDRESSES[0], str(self.folder))
        self.assertEqual(command, ["f", "--profile", f"{self.folder}/profile", ADDRESSES[0]])

    def test_a_browser_finds_nothing_of_the_user_and_only_this_display(self):
        for family in browsers.FAMILIES:
            with self.subTest(family=family.__name__), mock.patch.dict(os.environ, {"WAYLAND_DISPLAY": "wayland-0"}):
                environment = family("b").environment(DISPLAY, "/home/of/run")
                self.assertEqual((environment["DISPLAY"], environment["HOME"]), (":7", "/home/of/run"))
                self.assertNotIn("WAYLAND_DISPLAY", environment)
                for kind in "CONFIG", "DATA", "CACHE", "STATE":
                    self.assertTrue(environment[f"XDG_{kind}_HOME"].startswith("/home/of/run/"))


if __name__ == "__main__":
    sys.exit(unittest.main())
