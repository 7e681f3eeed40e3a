"""Holds the game to its quickness on any machine, a busy one too: in turn with the program that does
next to nothing else, on the same sound server, it may not be slower than by what can be heard."""

import collections
import os
import statistics
import sys
import tempfile

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
    def attempt(self, number):
        """The figures of both programs at blocks of the same size, and the frames of the game's
        blocks at each opening of its device. It opens larger ones when the machine is too busy:
        then they are measured anew."""
        folder = os.path.join(self.folder, str(number))
        os.mkdir(folder)
        server = PulseAudio(folder)
        displays = [Display(), Display()]
        game = Game(folder, displays[0], server, BENCH, Keyboard(displays[0]), game=GAME)
        reference = None
        keyboard = Keyboard(displays[1])
        try:
            game.reach("menu")
            frames = 0
            while True:
                if game.stamps.frames()[-1] != frames:
                    if reference:
                        reference.close()
                    frames = game.stamps.frames()[-1]
                    reference = Reference(folder, displays[1], server, BENCH, keyboard,
                                          frames=frames)
                    reference.reach("menu")
                    ours, theirs = (collections.defaultdict(list) for _ in range(2))
                game.trial(ours)
                reference.trial(theirs)
                if len(ours["silence"]) >= TRIALS and game.stamps.frames()[-1] == frames:
                    return ours, theirs, game.stamps.frames()
        finally:
            if reference:
                reference.close()
            game.close()
            server.close()
            for display in displays:
                display.close()

    def test_no_slower_than_the_reference_program(self):
        slower = []
        for number in range(ATTEMPTS):
            ours, theirs, frames = self.attempt(number)
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

    def test_a_held_key_leaves_nothing_behind(self):
        server, display = self.own(PulseAudio(self.folder)), self.own(Display())
        game = self.own(Game(self.folder, display, server, BENCH, Keyboard(display), game=GAME))
        game.reach("menu")
        repeats, grown, keys_taken, spoken = game.hold(8)
        self.assertGreater(repeats, 5)  # a second; 25 on a quiet machine
        self.assertLess(grown, 0.5)
        self.assertLess(keys_taken, 0.5)
        self.assertLess(spoken, 4)  # the last item, which takes a second or two


if __name__ == "__main__":
    del sys.argv[2]
    main()
