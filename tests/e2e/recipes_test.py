"""The recipes of the README, as they stand in examples/recipes, and what README, help and manual page show of
tessaviewctl."""

import datetime
import html
import os
import re
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()
HOUSE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
RECIPES = os.path.join(HOUSE, "examples/recipes")

# Takes the place of the desktop's timers, and is due at once.
TIMER = """#!/bin/sh
echo "$@" > "$TIMER_SAYS"
while [ "$1" != tessaviewctl ]; do shift; done
exec "$@"
"""
# Takes the place of all waiting: twice it is over when all has loaded, and then it ends.
SLEEP = """#!/bin/sh
echo "$@" >> "$SLEEP_SAYS"
tessaviewctl wait-idle
[ "$(wc -l < "$SLEEP_SAYS")" -le 2 ]
"""


def read(path):
    with open(os.path.join(HOUSE, path), encoding="utf-8") as file:
        return file.read()


def of_readme():
    """The commands that the README shows, each a line."""
    section = read("README.md").split("## From a script\n")[1].split("\n## ")[0]
    return [line.split("  #")[0].strip() for line in section.splitlines() if line.startswith("    ")]


def of_help():
    section = read("qt/pages/help.html").split('<h2 id="scripts">')[1].split("<h2")[0].split("<ul>")[1]
    return [html.unescape(each) for each in re.findall(r"<code>(.*?)</code>", section, re.DOTALL)]


def of_manual():
    section = read("packaging/tessaviewctl.1").split(".SH EXAMPLES\n")[1].split(".SH ")[0]
    return [each.replace("\\-", "-").strip() for each in re.findall(r"\.nf\n(.*?)\.fi", section, re.DOTALL)]


class Recipes(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.commands = os.path.join(self.home, "commands")
        os.mkdir(self.commands)
        self.install("systemd-run", TIMER)
        path = os.pathsep.join([self.commands, os.path.dirname(PROGRAM), os.environ["PATH"]])
        self.said, self.slept = os.path.join(self.home, "timer"), os.path.join(self.home, "slept")
        self.environment = dict(
            os.environ, **desk.SANDBOX, TESSAVIEW_HOME=self.home, PATH=path, TIMER_SAYS=self.said, SLEEP_SAYS=self.slept)

    def install(self, name, script):
        with open(os.path.join(self.commands, name), "w", encoding="utf-8") as file:
            file.write(script)
        os.chmod(file.name, 0o755)

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

    def test_what_is_shown_of_tessaviewctl_does_what_it_says(self):
        self.install("sleep", SLEEP)
        with desk.PageServer(hosts=2, stored=False) as pages:
            addresses = self.group(pages)
            desk.write_group(os.path.join(self.home, "TessaGroups", "Dashboard.tvg"), [pages.address("Board")])
            self.run_now("tessaviewctl", "open-group", "News", "--wait")
            for source in (of_readme, of_help, of_manual):
                commands = source()
                self.assertGreater(len(commands), 3, source.__name__)
                folder = os.path.join(self.home, source.__name__)
                os.mkdir(folder)
                for command in commands:
                    if os.path.exists(self.slept):
                        os.remove(self.slept)
                    self.assertIn("tessaviewctl", command)
                    done = subprocess.run(
                        ["sh", "-ec", command], env=dict(self.environment, HOME=folder), cwd=folder, text=True,
                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                    self.assertEqual((done.returncode, done.stderr), (0, ""), f"{source.__name__}: {command}")
                    self.look_at(command, folder, pages)
                self.run_now("tessaviewctl", "open-group", "News", "--close-others", "--wait")
            self.assertEqual(self.run_now("tessaviewctl", "list").count(addresses[0]), 1)

    def look_at(self, command, folder, pages):
        """Whether a command has done what is told of it."""
        if "pdf" in command:
            (file,) = [each for each in os.listdir(folder) if each.endswith(".pdf")]
            self.assertIn(pages.address("One"), self.run_now("pdftotext", "-layout", os.path.join(folder, file), "-"))
            os.remove(os.path.join(folder, file))
        if "note.txt" in command:
            with open(os.path.join(folder, "note.txt"), encoding="utf-8") as note:
                self.assertIn(f"One\t{pages.address('One')}\n", note.read())
        if "keep-offline" in command:
            self.assertTrue(os.path.exists(os.path.join(folder, "News today.tvg")))
        if "sleep" in command:
            with open(self.slept, encoding="utf-8") as slept:
                self.assertEqual(slept.read(), "600\n" * 3)
            desk.wait_until(lambda: pages.requested().count("127.0.0.1/Board") >= 3, what=pages.requested)
            self.run_now("tessaviewctl", "open-group", "News", "--close-others", "--wait")
        if "systemd-run" in command:
            with open(self.said, encoding="utf-8") as said:
                self.assertIn("--on-calendar=", said.read())
            self.run_now("tessaviewctl", "wait-idle")


if __name__ == "__main__":
    desk.main()
