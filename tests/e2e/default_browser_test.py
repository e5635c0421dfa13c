"""The question at the start whether the program shall become the default browser."""

import os
import stat
import unittest

import desk

PROGRAM = desk.program_file()
QUESTION = "TessaView is not currently your default browser."
TOOL = """#!/bin/sh
echo "$@" >> "$TESSAVIEW_HOME/calls"
[ -n "$IS_DEFAULT" ] && echo yes && exit
[ "$1" = set ] && : > "$TESSAVIEW_HOME/chosen"
[ -e "$TESSAVIEW_HOME/chosen" ] && echo yes || echo no
"""


class DefaultBrowser(unittest.TestCase):
    """A desktop that knows the program by an entry, and a tool that remembers the choice of the user."""

    def setUp(self):
        self.home = desk.state_folder()
        self.before = dict(os.environ)
        for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
            os.environ[variable] = desk.state_folder()
        os.environ["PATH"] = f"{self.home}/bin:{os.environ['PATH']}"
        os.makedirs(f"{self.home}/bin")
        os.makedirs(f"{os.environ['XDG_DATA_HOME']}/applications")
        with open(f"{os.environ['XDG_DATA_HOME']}/applications/tessaview.desktop", "w", encoding="utf-8") as entry:
            entry.write("[Desktop Entry]\n")
        with open(f"{self.home}/bin/xdg-settings", "w", encoding="utf-8") as tool:
            tool.write(TOOL)
        os.chmod(tool.name, stat.S_IRWXU)

    def tearDown(self):
        os.environ.clear()
        os.environ.update(self.before)

    def calls(self):
        try:
            with open(f"{self.home}/calls", encoding="utf-8") as calls:
                return [line.split()[0] for line in calls]
        except FileNotFoundError:
            return []

    def start(self):
        return desk.Program(PROGRAM, "about:blank", home=self.home)

    def test_yes_makes_it_the_default_and_the_next_start_does_not_ask(self):
        with self.start() as program:
            program.answer(QUESTION, "Yes")
            program.window()
            desk.wait_until(lambda: "set" in self.calls(), what="the tool was not told")
        desk.wait_until(lambda: os.path.exists(f"{self.home}/chosen"))
        with self.start() as program:
            program.window()
            self.assertIsNone(program.message_now())
        self.assertEqual(self.calls(), ["check", "set", "check"])

    def test_no_with_the_box_unchecked_is_never_asked_again(self):
        with self.start() as program:
            program.press("check box", "Always perform this check when starting TessaView.")
            program.answer(QUESTION, "No")
            program.window()
        with self.start() as program:
            program.window()
        self.assertEqual(self.calls(), ["check"])

    def test_the_question_can_be_answered_with_the_keyboard_while_the_splash_is_there(self):
        with self.start() as program:
            desk.wait_until(lambda: program.message_now(), what="no question")
            dialog = desk.wait_until(lambda: desk.xdotool("search", "--onlyvisible", "--name", "^TessaView$").split())
            desk.wait_until(lambda: desk.xdotool("getactivewindow") in dialog, what="the question has no focus")
            desk.xdotool("key", "Escape")
            program.window()
        self.assertEqual(self.calls(), ["check"])

    def test_a_second_start_does_not_show_the_window_while_the_question_is_open(self):
        with self.start() as program:
            desk.wait_until(lambda: program.message_now(), what="no question")
            for arguments in ((), ("about:blank",)):
                os.environ["IS_DEFAULT"] = "1"
                with desk.Program(PROGRAM, *arguments, home=self.home) as second:
                    self.assertEqual(second.wait_end(), 0, second.errors())
            self.assertIsNone(program.find_now("frame", desk.WINDOW_TITLE))
            program.answer(QUESTION, "No")
            # What came before the window was there is ignored.
            program.wait_strip(["[about:blank]"])

    def test_it_can_be_ended_while_it_asks_and_what_was_stored_stays(self):
        stored = '[General]\nAddressHistory="http://one/","http://two/"\n'
        with open(f"{self.home}/settings.ini", "w", encoding="utf-8") as settings:
            settings.write(stored)
        with self.start() as program:
            desk.wait_until(lambda: program.message_now(), what="no question")
            program.process.terminate()
            program.wait_end()
        with open(f"{self.home}/settings.ini", encoding="utf-8") as settings:
            self.assertEqual(settings.read(), stored)


if __name__ == "__main__":
    desk.main()
