# Tests: Clocks
"""The program is killed at random moments while its tabs open, move, close and navigate. Nothing that was open is lost:
no file is damaged, the session that was killed is written down as it was within the last second, and it is offered
again. SESSION_KILLS says how often, SESSION_NUMBER chooses another run of chance, "any" a new one each time."""

import collections
import os
import random

import desk
from lives import MOST_KEPT, KillTest, Life

PROGRAM = desk.program_file()
KILLS = int(os.environ.get("SESSION_KILLS", "20"))
NUMBER = os.environ.get("SESSION_NUMBER", "1")
if NUMBER == "any":
    NUMBER = random.randrange(1_000_000)


class SessionKill(KillTest):
    def test_whenever_it_is_killed_nothing_is_lost(self):
        print(f"SESSION_NUMBER={NUMBER} SESSION_KILLS={KILLS}", flush=True)
        offers = collections.Counter()
        for number in range(1, KILLS + 1):
            # Of its own, because how far a life comes depends on the machine, too.
            dice = random.Random(f"{NUMBER} {number}")
            with self.subTest(kill=number, number=NUMBER):
                session = self.offered()
                life = Life(self, PROGRAM, dice)
                answer = dice.choice(["Reopen", "Reopen", "Not Now", "nothing", "dies at once"])
                offers[answer if session else "none"] += 1
                with self.until_killed(life):
                    if answer == "dies at once":
                        life.kill_in(dice.uniform(0.05, 1.0))
                        # Another start at this moment might become the program, and this one end.
                        life.wait(lambda: False)
                    else:
                        self.check_offer(life, session)
                        self.check_kept()
                        life.kill_in(dice.uniform(0.1, 3.0))
                        if session and answer == "Reopen":
                            life.reopen(session)
                        elif session and answer == "Not Now":
                            life.program.press("push button", "Not Now")
                    life.live()
        print(f"{KILLS} kills, offers {dict(offers)}, {self.names} pages, {self.moves} moves, the oldest state was no "
              f"longer true for {self.oldest_age:.2f} s", flush=True)
        self.assertGreater(len(self.dead), 0)
        self.check_listed()

    def check_listed(self):
        """All that is kept is listed, those too that were offered and not taken."""
        with desk.Program(PROGRAM, home=self.home) as program:
            program.window()
            kept = min(len(self.dead), MOST_KEPT)
            if program.find_now("push button", "Show All...") is None:
                return
            program.press("push button", "Show All...")
            items = lambda: [node for node in desk.walk(program.application()) if node.getRoleName() == "list item"]
            desk.wait_until(lambda: len(items()) == kept, what=lambda: f"{len(items())} listed, not {kept}")


if __name__ == "__main__":
    desk.main()
