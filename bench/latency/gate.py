"""Holds the game to its quickness on any machine, a busy one too: in turn with the program that does
next to nothing else, on the same sound server, it may not be slower than by what can be heard."""

import collections
import math
import statistics
import sys

from keyboard import Keyboard
from machine import Case, Display, main
from programs import Game, Reference
from recording import PulseAudio

GAME, BENCH = sys.argv[1:3]
TRIALS = 7       # until the medians are looked at
MOST = 3 * TRIALS
CERTAIN = 2.33   # standard deviations: once in a hundred times it is chance
SMALLEST = 256   # frames of a block
ALLOWANCE = 0.003  # seconds


def larger_beyond_chance(some, others):
    """By how many standard deviations more of the pairs have their larger one among `some` than
    would if there were no difference (the test of Mann and Whitney)."""
    pairs = len(some) * len(others)
    larger = sum(one > other for one in some for other in others)
    return (larger - pairs / 2) / math.sqrt(pairs * (len(some) + len(others) + 1) / 12)


class Quickness(Case):
    def test_in_turn_with_the_reference_program(self):
        server = self.own(PulseAudio(self.folder))
        display, other = self.own(Display()), self.own(Display())
        game = self.own(Game(self.folder, display, server, BENCH, Keyboard(display), game=GAME))
        keyboard = Keyboard(other)
        game.reach("menu")
        with self.subTest("it is no slower"):
            self.no_slower(game, lambda frames: self.own(
                Reference(self.folder, other, server, BENCH, keyboard, frames=frames)))
        with self.subTest("a held key leaves nothing behind"):
            repeats, grown, keys_taken, spoken = game.hold(6)
            self.assertGreater(repeats, 5)  # a second; 25 on a quiet machine
            self.assertLess(grown, 0.5)
            self.assertLess(keys_taken, 0.5)
            self.assertLess(spoken, 4)  # the last item, which takes a second or two

    def no_slower(self, game, start_reference):
        """In turn, until the medians are no further apart than allowed; behind MOST trials, only what
        is so beyond chance counts. The game opens larger blocks when the machine is too busy: then
        both are measured anew."""
        frames, reference = 0, None
        while True:
            if game.stamps.frames()[-1] != frames:
                if reference:
                    reference.close()
                frames = game.stamps.frames()[-1]
                reference = start_reference(frames)
                reference.reach("menu")
                ours, theirs = (collections.defaultdict(list) for _ in range(2))
            game.trial(ours)
            reference.trial(theirs)
            count = len(ours["silence"])
            if count % TRIALS or game.stamps.frames()[-1] != frames:
                continue
            excess = {figure: statistics.median(ours[figure]) - statistics.median(theirs[figure])
                      for figure in ("next item", "silence")}
            print(count, game.stamps.frames(),
                  {figure: f"{1000 * more:.1f} ms" for figure, more in excess.items()}, flush=True)
            # Delays are spread over the length of a block.
            allowance = ALLOWANCE * frames / SMALLEST
            slower = [figure for figure, more in excess.items() if more > allowance]
            if not slower:
                break
            if count >= MOST:
                for figure in slower:
                    least = [delay - allowance for delay in ours[figure]]
                    self.assertLess(larger_beyond_chance(least, theirs[figure]), CERTAIN, figure)
                break
        # Larger blocks are an answer to a busy machine, never what the game begins with.
        self.assertEqual(game.stamps.frames()[0], SMALLEST)
        # Of the moment at which the program took the key: no matter how busy the machine is.
        self.assertLessEqual(statistics.median(ours["callbacks"]), 2)


if __name__ == "__main__":
    del sys.argv[2]
    main()
