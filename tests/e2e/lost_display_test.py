"""The display breaks off under the program, as when a desktop crashes: the program ends at once with a failure, and the
next start offers what was open."""

import os
import subprocess
import unittest

import desk
from lives import Session, offer_of

PROGRAM = desk.program_file()


class Display:
    """A display of its own, which can be ended under its programs."""

    def __enter__(self):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[writer], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        os.close(writer)
        with os.fdopen(reader, encoding="ascii") as told:
            self.name = f":{int(told.readline())}"
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        self.server.kill()
        self.server.wait()


class LostDisplay(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.pages = desk.PageServer()
        self.pages.__enter__()
        self.addCleanup(self.pages.__exit__)

    def wait_written(self, program, name):
        folder = os.path.join(self.home, "sessions")

        def written():
            files = os.listdir(folder) if os.path.isdir(folder) else []
            return [file for file in files if file.endswith(f"-{program.process.pid}.session")
                    and Session(os.path.join(folder, file)).titles == [name]]

        desk.wait_until(written, what=lambda: f"{name} is not written down")

    def test_the_program_ends_with_a_failure_and_its_pages_are_offered(self):
        with Display() as display, desk.Program("env", f"DISPLAY={display.name}", PROGRAM, self.pages.address("Garden"),
                                                home=self.home) as program:
            program.wait_strip(["[Garden]"])
            self.wait_written(program, "Garden")
            display.end()
            self.assertEqual(program.wait_end(), 1, program.errors())
            self.assertNotIn("internal error", program.errors())
        with desk.Program(PROGRAM, home=self.home) as program:
            program.find("label", offer_of(1))


if __name__ == "__main__":
    desk.main()
