# Tests: HandOver
"""A second start of the program hands its command line to the one that runs."""

import os
import signal
import subprocess
import unittest

import desk

PROGRAM = desk.program_file()


class HandOff(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def test_a_second_start_gives_its_address_to_the_first_and_ends(self):
        with desk.PageServer(hosts=2) as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, pages.address("Second", host=2), home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            first.wait_strip(["First", "[Second]"])

    def test_a_second_start_without_address_adds_no_tab(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            # Had it asked for a tab, that would stand beside this one, for hand-overs keep their order.
            with desk.Program(PROGRAM, pages.address("Third"), home=self.home) as third:
                self.assertEqual(third.wait_end(), 0)
            first.wait_strip(["First", "[Third]"])

    def test_a_start_after_a_crash_runs_by_itself(self):
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
                first.wait_strip(["[First]"])
                first.kill()
            with desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second:
                second.wait_strip(["[Second]"])

    def test_two_state_folders_never_meet(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, pages.address("Second"), home=desk.state_folder()) as second:
                second.wait_strip(["[Second]"])
                first.wait_strip(["[First]"])

    def test_two_second_starts_at_the_same_moment_both_arrive(self):
        with desk.PageServer(hosts=2) as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with (
                desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second,
                desk.Program(PROGRAM, pages.address("Third"), home=self.home) as third,
            ):
                self.assertEqual((second.wait_end(), third.wait_end()), (0, 0))
            names = lambda: sorted(name.strip("[]") for name in first.strip())
            desk.wait_until(lambda: names() == ["First", "Second", "Third"], what=lambda: f"strip is {first.strip()}")

    def test_of_two_first_starts_at_the_same_moment_one_runs(self):
        with desk.Program(PROGRAM, home=self.home) as one, desk.Program(PROGRAM, home=self.home) as other:
            desk.wait_until(
                lambda: (one.process.poll(), other.process.poll()) in ((None, 0), (0, None)), what="not exactly one ended"
            )
            running = one if one.process.poll() is None else other
            running.window()

    def test_with_multiple_instances_allowed_every_start_runs(self):
        with open(os.path.join(self.home, "settings.ini"), "w", encoding="ascii") as settings:
            settings.write("[General]\nAllowMultipleInstances=true\n")
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second:
                second.wait_strip(["[Second]"])
                self.assertEqual(first.strip(), ["[First]"])

    def hand_over(self, *arguments):
        """A second start, which ends."""
        with desk.Program(PROGRAM, *arguments, home=self.home) as second:
            self.assertEqual(second.wait_end(), 0, second.errors())

    def start(self, maximized, address="about:blank"):
        """The program in a state folder of its own, in a maximised window or a normal one."""
        self.home = desk.state_folder()
        with open(os.path.join(self.home, "settings.ini"), "w", encoding="ascii") as settings:
            settings.write(f"[General]\nWindowMaximized={str(maximized).lower()}\n")
        return desk.Program(PROGRAM, address, home=self.home)

    def wait_started(self, program, maximized, title="about:blank"):
        program.wait_strip([f"[{title}]"])
        desk.wait_until(lambda: ("MAXIMIZED" in program.window_state()) == maximized, what=program.window_state)

    def test_a_minimized_window_comes_back_for_an_address_as_a_normal_one(self):
        for maximized in (False, True):
            with (
                self.subTest(maximized=maximized),
                desk.PageServer() as pages,
                desk.Program(PROGRAM, "about:blank", home=desk.state_folder()) as other,
                self.start(maximized, pages.address("First")) as first,
            ):
                self.wait_started(first, maximized, "First")
                first.minimize()
                other.focus()
                self.hand_over(pages.address("Second"))
                first.wait_state("Normal")
                desk.wait_until(lambda: "MAXIMIZED" not in first.window_state(), what=first.window_state)
                first.wait_active()
                first.wait_strip(["First", "[Second]"])

    def test_a_minimized_window_asks_for_attention_when_there_is_no_address(self):
        for maximized in (False, True):
            with self.subTest(maximized=maximized), self.start(maximized) as first:
                self.wait_started(first, maximized)
                first.minimize()
                self.hand_over()
                first.wait_state("DEMANDS_ATTENTION")
                self.assertIn("Iconic", first.window_state())
                # The user answers it, and finds the window as it was.
                first.focus()
                desk.wait_until(lambda: "DEMANDS_ATTENTION" not in first.window_state(), what=first.window_state)
                self.assertIn("Normal", first.window_state())
                self.assertEqual("MAXIMIZED" in first.window_state(), maximized)
                self.assertEqual(first.strip(), ["[about:blank]"])

    def test_a_window_behind_others_comes_to_the_front_as_large_as_it_is(self):
        for maximized in (False, True):
            with (
                self.subTest(maximized=maximized),
                desk.Program(PROGRAM, "about:blank", home=desk.state_folder()) as other,
                self.start(maximized) as first,
            ):
                self.wait_started(first, maximized)
                other.focus()
                self.hand_over()
                first.wait_active()
                self.assertEqual("MAXIMIZED" in first.window_state(), maximized)

    def test_a_group_is_navigated_to_not_opened(self):
        group = os.path.join(self.home, "group.tvg")
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            desk.write_group(group, [pages.address("A"), pages.address("B")])
            first.wait_strip(["[First]"])
            with desk.Program(PROGRAM, group, home=self.home) as second:
                self.assertEqual(second.wait_end(), 0)
            with desk.Program(PROGRAM, pages.address("Last"), home=self.home) as third:
                self.assertEqual(third.wait_end(), 0)
            desk.wait_until(lambda: first.strip()[-1:] == ["[Last]"], what=lambda: f"strip is {first.strip()}")
            self.assertEqual(len(first.strip()), 3)

    def test_an_address_is_handed_over_without_opening_the_display(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            environment = {**os.environ, "DISPLAY": ":98765", "TESSAVIEW_HOME": self.home}
            second = subprocess.run([PROGRAM, pages.address("Second")], env=environment, timeout=60, check=False)
            self.assertEqual(second.returncode, 0)
            first.wait_strip(["First", "[Second]"])

    def test_what_is_for_the_windowing_system_is_no_part_of_the_address(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            self.hand_over("-style", "fusion", pages.address("Second"))
            first.wait_strip(["First", "[Second]"])

    def test_a_sender_gives_up_on_an_instance_that_hangs(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("First"), home=self.home) as first:
            first.wait_strip(["[First]"])
            first.process.send_signal(signal.SIGSTOP)
            try:
                with desk.Program(PROGRAM, pages.address("Second"), home=self.home) as second:
                    self.assertEqual(second.wait_end(), 0)
                    self.assertIn("does not answer", second.errors())
            finally:
                first.process.send_signal(signal.SIGCONT)


if __name__ == "__main__":
    desk.main()
