"""Holds the game to its quickness on any machine, a busy one too: in turn with the program that does
next to nothing else, on the same sound server, it may not be slower than by what can be heard."""

import collections
import statistics
import sys

from keyboard import Keyboard
from machine import Case, Display, main
from programs import Game, Reference
from recording import PulseAudio

GAME, BENCH = sys.argv[1:3]
TRIALS = 7
ATTEMPTS = 3
SMALLEST = 256   # frames of a block
ALLOWANCE = 0.003  # seconds


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
        for _ in range(ATTEMPTS):
            ours, theirs, frames = self.attempt(game, start_reference)
            # Larger blocks are an answer to a busy machine, never what the game begins with.
            self.assertEqual(frames[0], SMALLEST)
            # Of the moment at which the program took the key: no matter how busy the machine is.
            self.assertLessEqual(statistics.median(ours["callbacks"]), 2)
            excess = {figure: statistics.median(ours[figure]) - statistics.median(theirs[figure])
                      for figure in ("next item", "silence")}
            print(frames, {figure: f"{1000 * more:.1f} ms" for figure, more in excess.items()})
            # Delays are spread over the length of a block.
            slower = [more for more in excess.values() if more > ALLOWANCE * frames[-1] / SMALLEST]
            if not slower:
                return
        self.fail(f"slower than the reference program by {slower} s")

    def attempt(self, game, start_reference):
        """The figures of both programs at blocks of the same size, and the frames of the game's
        blocks at each opening of its device. It opens larger ones when the machine is too busy:
        then they are measured anew."""
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
            if len(ours["silence"]) >= TRIALS and game.stamps.frames()[-1] == frames:
                reference.close()
                return ours, theirs, game.stamps.frames()


if __name__ == "__main__":
    del sys.argv[2]
    main()
