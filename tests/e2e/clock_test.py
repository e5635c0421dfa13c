"""The computer's clock is set back by a year, between two runs of the program and during one: nothing that was open is
lost, and what was open last is offered. The program is told the wrong time by a library that is preloaded; files have
the times that the system gives them, which then lie a year ahead, as those of before the change do in earnest."""

import mmap
import os
import shutil
import struct
import unittest

import desk
from lives import MOST_KEPT, Session, offer_of

PROGRAM = desk.program_file()
LIBRARY = os.path.join(os.path.dirname(PROGRAM), "tests", "libwrong_clock.so")
YEAR = 365 * 86400


class Clock(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)
        file = os.path.join(desk.state_folder(), "clock")
        with open(file, "wb") as new:
            new.write(bytes(8))
        with open(file, "r+b") as clock:
            self.seconds = mmap.mmap(clock.fileno(), 8)
        self.addCleanup(self.seconds.close)
        self.command = ["env", f"LD_PRELOAD={LIBRARY}", f"WRONG_CLOCK={file}", PROGRAM]

    def set_clock(self, seconds):
        self.seconds[:] = struct.pack("=q", seconds)

    def start(self, *arguments):
        return desk.Program(*self.command, *arguments, home=self.home)

    def sessions(self):
        """Files of the sessions, newest first."""
        folder = os.path.join(self.home, "sessions")
        names = sorted(os.listdir(folder), reverse=True) if os.path.isdir(folder) else []
        return [os.path.join(folder, name) for name in names if name.endswith(".session")]

    def wait_written(self, program, *names):
        """Waits until the session that runs is written down with these pages, and says where."""

        def written():
            for file in self.sessions():
                if file.endswith(f"-{program.process.pid}.session") and Session(file).pages == list(names):
                    return file
            return None

        return desk.wait_until(written, what=lambda: f"{names} is not written down: {self.sessions()}")

    def hand_over(self, name):
        with self.start(self.pages.address(name)) as later:
            self.assertEqual(later.wait_end(), 0)

    def time_in(self, file):
        return Session(file).time

    def test_between_two_runs_the_newest_session_stays_the_newest(self):
        with self.start(self.pages.address("Before")) as program:
            last = self.wait_written(program, "Before")
        # As many as are kept.
        folder, name = os.path.split(last)
        for number in range(1, MOST_KEPT):
            shutil.copy(last, os.path.join(folder, f"{int(name[:14]) - number:014}-1.session"))
        self.set_clock(-YEAR)
        with self.start() as program:
            program.find("label", offer_of(1))
            program.press("push button", "Reopen")
            desk.wait_until(lambda: "[Before]" in program.strip(), what=lambda: str(program.strip()))
            self.hand_over("After")
            newest = self.wait_written(program, "Before", "After")
            self.assertLess(self.time_in(newest), self.time_in(last) - YEAR // 2, "the clock was not set")
        with self.start() as program:
            program.find("label", offer_of(2))
            self.assertIn(newest, self.sessions())
            self.assertIn(last, self.sessions())
            program.press("push button", "Reopen")
            desk.wait_until(lambda: "[After]" in program.strip(), what=lambda: str(program.strip()))
            desk.wait_until(lambda: "Before" in program.strip(), what=lambda: str(program.strip()))
            program.process.terminate()
            self.assertEqual(program.wait_end(), 0)
        # Back in its own time it knows what was open last.
        self.set_clock(0)
        with self.start() as program:
            desk.wait_until(lambda: "After" in "".join(program.strip()), what=lambda: str(program.strip()))

    def test_during_a_run_what_is_opened_later_is_written_down_too(self):
        with self.start(self.pages.address("Before")) as program:
            first = self.wait_written(program, "Before")
            before = self.time_in(first)
            self.set_clock(-YEAR)
            self.hand_over("After")
            self.assertEqual(self.wait_written(program, "Before", "After"), first)
            self.assertLess(self.time_in(first), before - YEAR // 2, "the clock was not set")
        with self.start() as program:
            program.find("label", offer_of(2))
            program.press("push button", "Reopen")
            desk.wait_until(lambda: "[After]" in program.strip(), what=lambda: str(program.strip()))
            desk.wait_until(lambda: "Before" in program.strip(), what=lambda: str(program.strip()))


if __name__ == "__main__":
    desk.main()
