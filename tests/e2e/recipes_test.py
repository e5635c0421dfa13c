"""The recipes of the README, as they stand in examples/recipes."""

import datetime
import os
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()
RECIPES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../examples/recipes")

# Takes the place of the desktop's timers, and is due at once.
TIMER = """#!/bin/sh
echo "$@" > "$TIMER_SAYS"
while [ "$1" != tessaviewctl ]; do shift; done
exec "$@"
"""


class Recipes(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        commands = os.path.join(self.home, "commands")
        os.mkdir(commands)
        with open(os.path.join(commands, "systemd-run"), "w", encoding="utf-8") as timer:
            timer.write(TIMER)
        os.chmod(os.path.join(commands, "systemd-run"), 0o755)
        path = os.pathsep.join([commands, os.path.dirname(PROGRAM), os.environ["PATH"]])
        self.said = os.path.join(self.home, "timer")
        self.environment = dict(os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home, PATH=path, TIMER_SAYS=self.said)

    def tearDown(self):
        subprocess.run(["tessaviewctl", "quit"], env=self.environment, capture_output=True)

    def command(self, recipe, *arguments):
        return [os.path.join(RECIPES, recipe), *arguments]

    def run_now(self, *command):
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, stdin=subprocess.DEVNULL)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def titles(self):
        return [line.split("\t")[2] for line in self.run_now("tessaviewctl", "list").splitlines()]

    def group(self, pages):
        os.makedirs(os.path.join(self.home, "TessaGroups"))
        addresses = [pages.address("One"), pages.address("Two", 2)]
        desk.write_group(os.path.join(self.home, "TessaGroups", "News.tvg"), addresses)
        return addresses

    def test_a_group_every_morning(self):
        with desk.PageServer(hosts=2) as pages:
            self.group(pages)
            self.run_now(*self.command("every-morning.sh", "News", "07:30"))
            with open(self.said, encoding="utf-8") as said:
                self.assertIn("--on-calendar=Mon..Fri 07:30", said.read())
            self.run_now("tessaviewctl", "wait-idle")
            self.assertEqual(self.titles(), ["One", "Two"])

    def test_a_dashboard_that_loads_again(self):
        with desk.PageServer(hosts=2, stored=False) as pages:
            self.group(pages)
            board = subprocess.Popen(self.command("dashboard.sh", "News", "1"), env=self.environment,
                                     stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            wanted = lambda: pages.requested().count("127.0.0.1/One") >= 3
            desk.wait_until(wanted, what=lambda: f"asked for: {pages.requested()}")
            self.run_now("tessaviewctl", "quit")
            self.assertEqual(board.wait(), 0, "it ends with the program")

    def test_a_pdf_every_night(self):
        with desk.PageServer(hosts=2) as pages:
            addresses = self.group(pages)
            self.run_now(*self.command("nightly-pdf.sh", "News", self.home))
            file = os.path.join(self.home, f"News {datetime.date.today()}.pdf")
            text = self.run_now("pdftotext", "-layout", file, "-")
            for each in (*addresses, "1/2", "2/2"):
                self.assertIn(each, text)

    def test_the_open_tabs_as_a_note(self):
        with desk.PageServer(hosts=2) as pages:
            addresses = self.group(pages)
            self.run_now("tessaviewctl", "open-group", "News", "--wait")
            note = os.path.join(self.home, "note.txt")
            with open(note, "w", encoding="utf-8") as file:
                file.write("mine\n")
            self.run_now(*self.command("tabs-as-note.sh", note))
            with open(note, encoding="utf-8") as file:
                self.assertEqual(file.read(), f"mine\nOne\t{addresses[0]}\nTwo\t{addresses[1]}\n")


if __name__ == "__main__":
    desk.main()
