"""Whatever it is started with and wherever it has to live, the program shows its window, runs on and says what is to
be said."""

import errno
import os
import signal
import stat
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()
OBEYS_PERMISSIONS = desk.obeying_permissions(PROGRAM)
NOT_SAVED = "The settings could not be saved."
NOT_READ = "The settings could not be read."


def address_now(program):
    """The text in the address box."""
    box = program.find_now("text", "Address")
    return box.queryText().getText(0, -1) if box else None


class BadInput(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def path(self, name):
        return os.path.join(self.home, name)

    def write(self, name, content, mode=stat.S_IRUSR | stat.S_IWUSR):
        with open(self.path(name), "wb") as file:
            file.write(content)
        os.chmod(self.path(name), mode)
        return self.path(name)

    def start(self, *arguments):
        return desk.Program(PROGRAM, *arguments, home=self.home)

    def wait_address(self, program, condition):
        desk.wait_until(
            lambda: condition(address_now(program) or ""), what=lambda: f"the address is {address_now(program)!r:.200}"
        )

    def assert_runs_on(self, program):
        """It takes what a later start hands over, and ends when it is asked to."""
        with desk.PageServer() as pages:
            with self.start(pages.address("Still")) as later:
                self.assertEqual(later.wait_end(), 0)
            desk.wait_until(lambda: program.strip()[-1:] == ["[Still]"], what=lambda: f"strip is {program.strip()}")
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0)

    # -- the command line

    def test_a_command_line_of_100_kb_is_an_address_or_words(self):
        long = "x" * 100_000
        with self.start("http://127.0.0.1:9/" + long) as program:
            # The box shows the beginning of what is longer than 32,767 letters.
            self.wait_address(program, lambda address: address.startswith("http://127.0.0.1:9/" + long[:32_000]))
            self.assert_runs_on(program)
        with desk.Program(PROGRAM, *["word"] * 20_000, home=desk.state_folder()) as program:
            self.wait_address(program, lambda address: address.count("word") > 4_000)

    def test_bytes_that_are_no_utf8_stand_for_latin_letters(self):
        with self.start(b"http://127.0.0.1:9/caf\xe9\xff") as program:
            self.wait_address(program, lambda address: address == "http://127.0.0.1:9/caf%C3%A9%C3%BF")
            self.assert_runs_on(program)

    def test_control_characters_stay_in_the_address_and_do_nothing(self):
        with self.start("http://127.0.0.1:9/\n\r\t\a\x1b[2J") as program:
            self.wait_address(program, lambda address: address == "http://127.0.0.1:9/%0A%0D%09%07%1B[2J")
            self.assert_runs_on(program)
        with desk.Program(PROGRAM, "\n", home=desk.state_folder()) as program:
            program.wait_strip(["[about:blank]"])

    def test_a_script_is_no_address(self):
        for script in ("javascript:document.title='Run'", " JavaScript:document.title='Run'"):
            with desk.Program(PROGRAM, script, home=desk.state_folder()) as program:
                program.wait_strip(["[about:blank]"])
                self.wait_address(program, lambda address: address == "about:blank")

    def test_an_option_that_nobody_knows_is_words(self):
        with self.start("--no-such-option") as program:
            self.wait_address(program, lambda address: address.endswith("--no-such-option"))
            self.assert_runs_on(program)

    # -- files

    def test_a_folder_is_listed(self):
        os.mkdir(self.path("folder"))
        with self.start(self.path("folder")) as program:
            self.wait_address(program, lambda address: address == f"file://{self.path('folder')}/")
            desk.wait_until(lambda: program.strip()[0].startswith("[Index of"), what=lambda: str(program.strip()))
            self.assert_runs_on(program)

    def test_a_file_that_is_not_there_keeps_its_address(self):
        with self.start(self.path("none.html")) as program:
            self.wait_address(program, lambda address: address == f"file://{self.path('none.html')}")
            self.assert_runs_on(program)

    def test_what_is_no_group_opens_nothing(self):
        os.mkdir(self.path("folder.tvg"))
        os.mkfifo(self.path("pipe.tvg"))
        self.write("empty.tvg", b"")
        self.write("garbage.tvg", os.urandom(1_000_000))
        self.write("nothing.tvg", b"[Other]\n" + b"key=value\n" * 1_000_000)
        self.write("secret.tvg", b"[TessaGroup]\nurl1=about:version\n", mode=0)
        for name in ("folder", "pipe", "empty", "garbage", "nothing", "secret"):
            command = [*OBEYS_PERMISSIONS, self.path(f"{name}.tvg")]
            with self.subTest(name), desk.Program(*command, home=desk.state_folder()) as program:
                program.wait_strip(["[about:blank]"])
                self.assertIsNone(program.message_now())

    def test_of_a_group_half_garbage_the_good_half_opens(self):
        with desk.PageServer() as pages:
            good = pages.address("Good").encode()
            bad = b"url2=\nurl3=\x01\xff" + b"\x80" * 9000 + b"\nurl4\n=url5\n[TessaGroup\nurl6=about:version"
            self.write("half.tvg", b"\x00\xff[\n[TessaGroup]\r\nurl1=" + good + b"\n" + bad)
            with self.start(self.path("half.tvg")) as program:
                desk.wait_until(lambda: "Good" in program.strip(), what=lambda: f"strip is {program.strip()}")
                self.assert_runs_on(program)

    # -- where it has to live

    def wait_status(self, program, text):
        desk.wait_until(lambda: text in (program.status() or ""), what=lambda: f"status is {program.status()!r}")

    def test_damaged_settings_are_put_aside_and_it_says_so(self):
        garbage = os.urandom(10_000) + b"\x00"
        self.write("settings.ini", garbage)
        with self.start("about:blank") as program:
            self.wait_status(program, f"The damaged file is kept as {self.path('settings.ini.damaged-1')}.")
            program.wait_strip(["[about:blank]"])
            self.assert_runs_on(program)
        with open(self.path("settings.ini.damaged-1"), "rb") as aside:
            self.assertEqual(aside.read(), garbage)
        with open(self.path("settings.ini"), encoding="utf-8") as settings:
            self.assertIn("TabsUp=", settings.read())

    def test_settings_that_are_a_folder_are_left_alone_and_it_says_so(self):
        os.mkdir(self.path("settings.ini"))
        with self.start("about:blank") as program:
            self.wait_status(program, NOT_READ)
            program.wait_strip(["[about:blank]"])
        self.assertTrue(os.path.isdir(self.path("settings.ini")))

    def test_in_a_folder_that_cannot_be_written_it_runs_and_says_so(self):
        settings = self.write("settings.ini", b"[General]\nTitleLengthLimit=3\n", mode=stat.S_IRUSR)
        os.chmod(self.home, stat.S_IRUSR | stat.S_IXUSR)
        # Else nobody but root can remove it.
        self.addCleanup(os.chmod, self.home, stat.S_IRWXU)
        with desk.PageServer() as pages:
            with desk.Program(*OBEYS_PERMISSIONS, pages.address("Garden"), home=self.home) as program:
                self.wait_status(program, NOT_SAVED)
                program.wait_strip(["[Gar...]"])
                program.process.send_signal(signal.SIGTERM)
                self.assertEqual(program.wait_end(), 0)
        self.assertEqual(os.listdir(self.home), ["settings.ini"])
        with open(settings, "rb") as kept:
            self.assertEqual(kept.read(), b"[General]\nTitleLengthLimit=3\n")

    @unittest.skipUnless(os.geteuid() == 0, "only root can mount a small disk of the test's own")
    def test_on_a_full_disk_it_runs_says_so_and_loses_nothing(self):
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8m", "tmpfs", self.home], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", self.home], check=True)
        before = b"[General]\nTitleLengthLimit=3\nRememberLastSites=false\n"
        settings = self.write("settings.ini", before)
        with open(self.path("filler"), "wb", buffering=0) as filler, self.assertRaises(OSError) as full:
            while True:
                filler.write(bytes(4096))
        self.assertEqual(full.exception.errno, errno.ENOSPC)
        with desk.PageServer() as pages, self.start(pages.address("Garden")) as program:
            self.wait_status(program, NOT_SAVED)
            program.wait_strip(["[Gar...]"])
            self.assert_runs_on_without_saving(program)
        with open(settings, "rb") as kept:
            self.assertEqual(kept.read(), before)
        os.remove(self.path("filler"))
        with desk.PageServer() as pages, self.start(pages.address("Garden")) as program:
            program.wait_strip(["[Gar...]"])
            program.process.send_signal(signal.SIGTERM)
            self.assertEqual(program.wait_end(), 0)
        with open(settings, encoding="utf-8") as kept:
            self.assertIn("LastSites=", kept.read())

    def assert_runs_on_without_saving(self, program):
        program.keys("ctrl+t")
        desk.wait_until(lambda: len(program.strip()) == 2, what=lambda: f"strip is {program.strip()}")
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0)

    def test_where_there_can_be_no_folder_it_runs_and_says_so(self):
        for home in ("/proc/none", self.write("file", b"")):
            with self.subTest(home), desk.PageServer() as pages:
                with desk.Program(PROGRAM, pages.address("Garden"), home=home) as program:
                    self.wait_status(program, NOT_SAVED)
                    program.wait_strip(["[Garden]"])
                    self.assertIn(f"the folder {home} cannot be made", program.errors())


if __name__ == "__main__":
    desk.main()
