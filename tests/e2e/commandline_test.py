# Tests: StartFailure, main
"""What the program says on a terminal: about itself, and where it cannot start."""

import os
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()


def run(*arguments, **changes):
    """Runs the program to its end; a variable that is given as None is not set."""
    environment = {**os.environ, "TESSAVIEW_HOME": desk.state_folder(), **changes}
    environment = {name: value for name, value in environment.items() if value is not None}
    return subprocess.run(
        [PROGRAM, *arguments], env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
        timeout=desk.PATIENCE, check=False
    )


NOTHING = {"DISPLAY": None, "WAYLAND_DISPLAY": None, "QT_QPA_PLATFORM": None, "QTWEBENGINE_DISABLE_SANDBOX": None}


class CommandLine(unittest.TestCase):
    def test_version_and_help_need_no_display_and_no_ordinary_user(self):
        version = run("--version", **NOTHING)
        self.assertEqual((version.returncode, version.stdout, version.stderr), (0, "TessaView 3.02 Build 159\n", ""))
        usage = run("--help", **NOTHING)
        self.assertEqual((usage.returncode, usage.stderr), (0, ""))
        self.assertTrue(usage.stdout.startswith("Usage: tessaview [ADDRESS | GROUP.tvg]\n"), usage.stdout)

    def test_an_answer_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            self.assertNotEqual(subprocess.run([PROGRAM, "--version"], stdout=full, check=False).returncode, 0)

    def test_without_a_display_it_says_so(self):
        ended = run("about:blank", **{**NOTHING, **desk.SANDBOX})
        self.assertEqual(ended.returncode, 1)
        self.assertEqual(ended.stdout, "")
        self.assertIn("TessaView needs a display, and there is none", ended.stderr)

    def test_a_display_that_does_not_answer_is_no_crash(self):
        ended = run("about:blank", **{**NOTHING, "DISPLAY": ":4711", **desk.SANDBOX})
        self.assertEqual(ended.returncode, 1)
        self.assertIn("TessaView cannot open a window", ended.stderr)
        self.assertIn('DISPLAY is ":4711"', ended.stderr)

    def test_options_of_the_windowing_system_are_no_addresses(self):
        home = desk.state_folder()
        display = os.environ["DISPLAY"]
        with desk.PageServer() as pages:
            address = pages.address
            with desk.Program(
                PROGRAM, "-platform", "xcb", address("First"), "--style", "fusion", home=home
            ) as first:
                first.wait_strip(["[First]"])
                # Without an address of their own these only ask for the window.
                for options in (("-name", "browser"), ("-session", "some_1")):
                    with desk.Program(PROGRAM, *options, home=home) as second:
                        self.assertEqual(second.wait_end(), 0)
                with desk.Program(PROGRAM, "-display", display, address("Second"), "-reverse", home=home) as third:
                    self.assertEqual(third.wait_end(), 0)
                first.wait_strip(["First", "[Second]"])
            self.assertEqual(
                sorted(each for each in pages.requested() if "favicon" not in each),
                ["127.0.0.1/First", "127.0.0.1/Second"],
            )

    def test_the_display_may_be_named_by_an_option(self):
        display = os.environ["DISPLAY"]
        del os.environ["DISPLAY"]
        try:
            with desk.Program(PROGRAM, "-display", display, "about:blank", home=desk.state_folder()) as program:
                program.wait_strip(["[about:blank]"])
        finally:
            os.environ["DISPLAY"] = display

    def test_the_version_is_told_beside_options_of_the_windowing_system(self):
        version = run("-platform", "offscreen", "--version")
        self.assertEqual((version.returncode, version.stdout), (0, "TessaView 3.02 Build 159\n"))

    @unittest.skipUnless(os.geteuid() == 0, "only root is refused")
    def test_root_is_refused_unless_the_sandbox_is_off(self):
        ended = run("about:blank", QTWEBENGINE_DISABLE_SANDBOX=None)
        self.assertEqual(ended.returncode, 1)
        self.assertIn("TessaView does not show pages as root", ended.stderr)


if __name__ == "__main__":
    desk.main()
