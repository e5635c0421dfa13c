"""The disk is full, or may only be read, and is well again later, while the program runs: it says so and runs on, no file
is damaged, what was written before stays, and what was not is written as soon as that can be. DISK_ROUNDS says how often
chance fills and clears the disk until the program is killed."""

import errno
import os
import random
import subprocess
import time
import unittest

import desk
import lives

PROGRAM = desk.program_file()
ROUNDS = int(os.environ.get("DISK_ROUNDS", "3"))
MORE_ROUNDS = 10
SIZE = "48m"
NOT_SAVED = "The settings could not be saved."
NOT_WRITTEN = "The open pages could not be written down: a crash would lose them."
only_root = unittest.skipUnless(os.geteuid() == 0, "only root can mount a small disk of the test's own")


class Disk:
    """A small disk of the test's own where a folder is."""

    def __init__(self, test, folder):
        self.test, self.folder = test, folder
        self.mount(folder)
        self.filler = os.path.join(folder, "filler")

    def mount(self, folder):
        subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={SIZE},mode=700", "tmpfs", folder], check=True)
        self.test.addCleanup(subprocess.run, ["umount", "-l", folder], check=True)

    def spare_the_engine(self):
        """What the engine writes lies elsewhere: it gives room back whenever it likes."""
        for name in ("engine", "cache"):
            os.mkdir(os.path.join(self.folder, name), mode=0o700)
            self.mount(os.path.join(self.folder, name))

    def fill(self):
        """Takes what room there is, that too which the program has given back since it was called last."""
        with open(self.filler, "ab", buffering=0) as filler:
            for size in (1 << 16, 1 << 12):
                try:
                    while True:
                        filler.write(bytes(size))
                except OSError as error:
                    if error.errno != errno.ENOSPC:
                        raise

    def clear(self):
        os.remove(self.filler)

    def is_full(self):
        return os.path.exists(self.filler)

    def allow(self, writing):
        """Lets the disk be written or not. Nobody may have a file of it open for writing."""
        command = ["mount", "-o", f"remount,{'rw' if writing else 'ro'}", self.folder]
        # The engine's processes outlive a program that was killed by a moment.
        desk.wait_until(lambda: subprocess.run(command, capture_output=True).returncode == 0, what="it stays in use")


class DiskLife(lives.Life):
    """A life in which the disk fills up and is cleared."""

    def __init__(self, test, program, dice, disk):
        self.disk = disk
        # From when on, and since when no longer.
        self.full_from, self.cleared = (time.monotonic(), None) if disk.is_full() else (None, None)
        self.changes = 0
        super().__init__(test, program, dice)

    def turn(self):
        """Fills or clears the disk."""
        self.changes += 1
        if self.disk.is_full():
            self.disk.clear()
            self.cleared = time.monotonic()
            return
        # What was missed before it was cleared may be on its way still.
        if self.cleared is None or time.monotonic() - self.cleared > lives.FRESH + self.longest:
            self.full_from = time.monotonic()
        self.cleared = None
        self.disk.fill()

    def acts(self):
        if self.disk.is_full():
            self.disk.fill()
        return [*super().acts(), self.turn, self.turn]

    def kept_from_writing(self):
        since = self.full_from
        if since is None or (self.cleared and self.killed_at - self.cleared > lives.FRESH + self.longest):
            return self.killed_at
        return since


class DiskTest(lives.KillTest):
    def start(self, *arguments):
        return desk.Program(*desk.obeying_permissions(PROGRAM), *arguments, home=self.home)

    def hand_over(self, name):
        with self.start(self.pages.address_of(name)) as later:
            self.assertEqual(later.wait_end(), 0)

    def wait_shown(self, program, *names):
        """Waits for the tabs of these pages, in that order and the last in front."""

        def shown():
            tabs = [caption for caption in program.strip() if "page-" in caption]
            return tabs == [*names[:-1], f"[{names[-1]}]"]

        desk.wait_until(shown, what=lambda: f"strip is {program.strip()}, not {names}")

    def wait_written(self, program, *names):
        """Waits until the session that runs is written down with these pages; how long that took."""
        started = time.monotonic()

        def written():
            found = [session for name, session in self.sessions().items() if name.endswith(f"-{program.process.pid}.session")]
            return found and found[0].pages == list(names)

        desk.wait_until(written, what=lambda: f"{names} is not written down")
        return time.monotonic() - started

    def wait_said(self, program, *texts):
        desk.wait_until(
            lambda: any(text in (program.status() or "") for text in texts),
            what=lambda: f"the status is {program.status()!r}, not one of {texts}",
        )

    def written(self):
        """What is on disk of sessions and settings, byte for byte."""
        found = {}
        for folder in (self.home, os.path.join(self.home, "sessions")):
            for name in os.listdir(folder):
                if name.endswith((".session", ".ini", ".tb")):
                    with open(os.path.join(folder, name), "rb") as file:
                        found[name] = file.read()
        return found

    def settings(self):
        with open(os.path.join(self.home, "settings.ini"), "rb") as file:
            return file.read()

    def assert_ends_well(self, program):
        program.process.terminate()
        self.assertEqual(program.wait_end(), 0, program.errors())

    def assert_nothing_half_written(self):
        for folder in (self.home, os.path.join(self.home, "sessions")):
            self.assertEqual([name for name in os.listdir(folder) if ".tessaview-" in name], [])

    # -- a full disk

    @only_root
    def test_a_disk_that_is_full_for_a_while(self):
        disk = Disk(self, self.home)
        disk.spare_the_engine()
        with self.start(self.pages.address_of("page-1")) as program:
            self.wait_written(program, "page-1")
            disk.fill()
            before = self.written()
            self.hand_over("page-2")
            self.wait_said(program, NOT_WRITTEN)
            self.wait_shown(program, "page-1", "page-2")
            self.assertEqual(self.written(), before)
            disk.clear()
            print(f"written down {self.wait_written(program, 'page-1', 'page-2'):.2f} s after there was room", flush=True)
            self.hand_over("page-3")
            self.wait_written(program, "page-1", "page-2", "page-3")
            disk.fill()
        # Killed while the disk was full. What was written down is offered, and reopened, on a disk that still is.
        with self.start() as program:
            program.find("label", lives.offer_of(3))
            program.press("push button", "Reopen")
            self.wait_said(program, NOT_WRITTEN)
            self.wait_shown(program, "page-1", "page-2", "page-3")
        disk.clear()
        with self.start() as program:
            program.find("label", lives.offer_of(3))
            program.press("push button", "Reopen")
            self.wait_written(program, "page-1", "page-2", "page-3")
            self.assert_ends_well(program)
        self.check_settings()
        self.assert_nothing_half_written()
        with self.start() as program:
            self.wait_shown(program, "page-1", "page-2", "page-3")

    @only_root
    def test_whenever_it_is_full_and_killed_nothing_is_lost(self):
        disk = Disk(self, self.home)
        changes = number = 0
        # The disk may have been full whenever something was to be written: then chance has another go.
        while number < ROUNDS or (not self.dead and number < ROUNDS + MORE_ROUNDS):
            number += 1
            dice = random.Random(f"disk {number}")
            with self.subTest(round=number):
                session = self.offered()
                life = DiskLife(self, PROGRAM, dice, disk)
                with self.until_killed(life):
                    self.check_offer(life, session)
                    self.check_kept()
                    life.kill_in(dice.uniform(0.5, 6.0))
                    if session and dice.random() < 0.5:
                        life.reopen(session)
                    life.live()
                changes += life.changes
        print(f"{number} kills, the disk was filled or cleared {changes} times, {self.names} pages, {self.moves} moves, "
              f"the oldest state was no longer true for {self.oldest_age:.2f} s", flush=True)
        self.assertGreater(len(self.dead), 0)

    # -- folders and disks that may only be read

    def open_two_and_kill(self):
        with self.start(self.pages.address_of("page-1")) as program:
            self.wait_shown(program, "page-1")
            self.hand_over("page-2")
            self.wait_written(program, "page-1", "page-2")

    def test_a_settings_folder_that_may_only_be_read(self):
        self.open_two_and_kill()
        os.chmod(self.home, 0o500)
        before = self.settings()
        self.assertIn(b"General", before)
        with self.start() as program:
            self.wait_said(program, NOT_SAVED)
            program.find("label", lives.offer_of(2))
            program.press("push button", "Reopen")
            self.wait_shown(program, "page-1", "page-2")
            self.hand_over("page-3")
            self.wait_written(program, "page-1", "page-2", "page-3")
        with self.start() as program:
            program.find("label", lives.offer_of(3))
            program.press("push button", "Reopen")
            self.wait_shown(program, "page-1", "page-2", "page-3")
            self.assert_ends_well(program)
        newest = next(iter(self.sessions().values()))
        self.assertEqual((newest.pages, newest.ended), (["page-1", "page-2", "page-3"], True))
        self.assertEqual(self.settings(), before)
        os.chmod(self.home, 0o700)
        with self.start() as program:
            program.window()
            self.assert_ends_well(program)
        self.assertNotEqual(self.settings(), before)
        self.check_settings()

    @only_root
    def test_a_disk_that_may_only_be_read(self):
        disk = Disk(self, self.home)
        self.open_two_and_kill()
        disk.allow(False)
        for ends_well in (False, True):
            with self.start() as program:
                self.wait_said(program, NOT_SAVED)
                program.find("label", lives.offer_of(2))
                program.press("push button", "Reopen")
                self.wait_said(program, NOT_WRITTEN)
                self.wait_shown(program, "page-1", "page-2")
                self.hand_over("page-3")
                self.wait_shown(program, "page-1", "page-2", "page-3")
                if ends_well:
                    self.assert_ends_well(program)
        with self.start() as program:
            program.find("label", lives.offer_of(2))
            program.press("push button", "Reopen")
            self.wait_said(program, NOT_WRITTEN)
            disk.allow(True)
            seconds = self.wait_written(program, "page-1", "page-2")
            print(f"written down {seconds:.2f} s after the disk could be written", flush=True)
            self.assert_ends_well(program)
        self.check_settings()
        with self.start() as program:
            self.wait_shown(program, "page-1", "page-2")


if __name__ == "__main__":
    desk.main()
