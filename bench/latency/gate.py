"""Holds the game to its quickness on any machine, a busy one too: in turn with the program that does
next to nothing else, on the same sound server, it may lose no more of its lead than can be heard."""

import collections
import math
import statistics
import sys

from keyboard import Keyboard
from machine import Case, Display, main
from programs import Game, Reference
from recording import PipeWire, PulseAudio

GAME, BENCH = sys.argv[1:3]
TRIALS = 7       # until the medians are looked at
MOST = 3 * TRIALS
CERTAIN = 2.33   # standard deviations: once in a hundred times it is chance
REFERENCE = 256  # frames of a block of the reference program
STEP = 256       # frames of a step of the recording, as a player's server goes
LOSS = 0.0015    # seconds of the lead that may be lost

Gains = collections.namedtuple("Gains", "lead frames")
# Seconds by which the game is ahead, and the frames of its first blocks, by the server.
GAINS = {PulseAudio: Gains({"next item": 0.003, "silence": 0.003}, 256),
         PipeWire: Gains({"next item": 0.010, "silence": 0.010}, 128)}


def larger_beyond_chance(some, others):
    """By how many standard deviations more of the pairs have their larger one among `some` than
    would if there were no difference (the test of Mann and Whitney)."""
    pairs = len(some) * len(others)
    larger = sum(one > other for one in some for other in others)
    return (larger - pairs / 2) / math.sqrt(pairs * (len(some) + len(others) + 1) / 12)


class Quickness(Case):
    def test_pulseaudio(self):
        self.in_turn_with_the_reference_program(PulseAudio)

    def test_pipewire(self):
        self.in_turn_with_the_reference_program(PipeWire)

    def in_turn_with_the_reference_program(self, kind):
        server = self.own(kind(self.folder, STEP))
        display, other = self.own(Display()), self.own(Display())
        game = self.own(Game(self.folder, display, server, BENCH, Keyboard(display), game=GAME))
        keyboard = Keyboard(other)
        game.reach("menu")
        with self.subTest("it is no slower"):
            self.no_slower(game, GAINS[kind], self.own(
                Reference(self.folder, other, server, BENCH, keyboard, frames=REFERENCE)))
        with self.subTest("a held key leaves nothing behind"):
            repeats, grown, keys_taken, spoken = game.hold(6)
            self.assertGreater(repeats, 5)  # a second; 25 on a quiet machine
            self.assertLess(grown, 0.5)
            self.assertLess(keys_taken, 0.5)
            self.assertLess(spoken, 4)  # the last item, which takes a second or two

    def no_slower(self, game, gains, reference):
        """In turn, until no median has lost more of its lead than allowed; after MOST trials, only
        what is lost beyond chance counts. Where the machine is so busy that the game takes longer
        blocks, the trials are begun again: then it may lose the time of what they are longer."""
        reference.reach("menu")
        frames = 0
        while True:
            if game.stamps.frames()[-1] != frames:
                frames = game.stamps.frames()[-1]
                ours, theirs = (collections.defaultdict(list) for _ in range(2))
            game.trial(ours)
            reference.trial(theirs)
            count = len(ours["silence"])
            if count % TRIALS or game.stamps.frames()[-1] != frames:
                continue
            longer = max(0, frames - gains.frames) / 48000
            least = {figure: lead - LOSS - longer for figure, lead in gains.lead.items()}
            lead = {figure: statistics.median(theirs[figure]) - statistics.median(ours[figure])
                    for figure in least}
            print(count, game.stamps.frames(),
                  {figure: f"{1000 * ahead:.1f} ms ahead" for figure, ahead in lead.items()},
                  flush=True)
            lost = [figure for figure in least if lead[figure] < least[figure]]
            if not lost:
                break
            if count >= MOST:
                for figure in lost:
                    allowed = [delay + least[figure] for delay in ours[figure]]
                    self.assertLess(larger_beyond_chance(allowed, theirs[figure]), CERTAIN, figure)
                break
        # Longer blocks are an answer to a busy machine, never what the game begins with.
        self.assertLessEqual(game.stamps.frames()[0], gains.frames)
        # From the moment at which the program took the key: no matter how busy the machine is.
        self.assertLessEqual(statistics.median(ours["callbacks"]), 2)


if __name__ == "__main__":
    del sys.argv[2]
    main()
