"""A player who reads: from the lines of the terminal alone, a first delivery is driven to its tip.

    reader_test.py READ_GAME SOUNDS       in virtual time, ten deliveries
    reader_test.py --real TAMLO           the game itself, in a terminal, in real time: some minutes
"""

import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import time

DOWN, RIGHT, LEFT = "\x1b[B", "\x1b[C", "\x1b[D"
ENTER = "\r"
F5 = "\x1b[15~"
HEADINGS = ["North", "East", "South", "West"]
# The roads north of Center, as the manual tells; the player knows a tree from a car.
TREES = """Apple Birch Buckeye Cedar Cherry Coconut Elm Eucalyptus Evergreen Holly Mahogany Maple
Mesquite Oak Orange Palm Pine Redwood Spruce Sycamore Walnut Willow""".split()
ORDINALS = """First Second Third Fourth Fifth Sixth Seventh Eighth Ninth Tenth Eleventh Twelfth
Thirteenth Fourteenth Fifteenth Sixteenth Seventeenth Eighteenth Nineteenth""".split()
TENS = {"Twentieth": 20, "Twenty": 20, "Thirtieth": 30, "Thirty": 30, "Fortieth": 40, "Forty": 40,
        "Fiftieth": 50, "Fifty": 50}


def east_of_restaurant(street):
    """"Twenty First Avenue" is 21, "Third Street" is -3."""
    *words, kind = street.split()
    number = sum(TENS.get(word) or ORDINALS.index(word) + 1 for word in words)
    return number if kind == "Avenue" else -number


class Player:
    """Knows the rules, and answers what it reads."""

    def __init__(self):
        self.lines = []
        self.target = self.corner = self.heading = None
        self.revs = True
        self.asked_speed = False
        self.tip = None

    def answer(self, line):
        """The keys for a line, as a terminal sends them; none for most."""
        self.lines.append(line)
        if line.startswith("["):
            return " " if line == "[title tune]" else ""
        if place := re.match(r"There is an order for .* corner of (.*) and (.*?)\.", line):
            self.target = place.groups()
        elif place := re.match(r"You are at the corner of (.*) and (.*), heading (.*)", line):
            *self.corner, self.heading = place.groups()
        elif tip := re.match(r"plus a tip of (.*)", line):
            self.tip = tip[1]
        return self.choice(line)

    def choice(self, line):
        if line == "start game":
            return ENTER
        if line == "turn left, west":
            if self.revs:
                self.revs = False
                return F5
            return ENTER if self.target[0].endswith("Street") else DOWN
        if line == "turn right, east":
            return ENTER
        if line == "How fast do you wish to go?":
            first, self.asked_speed = not self.asked_speed, True
            return "35" if first else ENTER
        if line == "go forward":
            return {0: ENTER, 1: RIGHT, 3: LEFT}.get(self.turn(), RIGHT)
        if line in ("turn left", "turn right"):
            return ENTER
        return ""

    def turn(self):
        """Quarters to the right: along the road to the street of the order, then up or down."""
        here, there = (east_of_restaurant(corner[0]) for corner in (self.corner, self.target))
        if here != there:
            wanted = "East" if here < there else "West"
        else:
            wanted = "North" if self.lies_north(self.target[1], self.corner[1]) else "South"
        return (HEADINGS.index(wanted) - HEADINGS.index(self.heading)) % 4

    @staticmethod
    def lies_north(road, other):
        def northward(name):
            # Trees go up the alphabet to the north, cars to the south.
            if name == "Center":
                return (0, "")
            return (1, name) if name in TREES else (-1, [-ord(letter) for letter in name])
        return northward(road) > northward(other)


def read_in_virtual_time(program, sounds, seed):
    player = Player()
    with tempfile.TemporaryDirectory(prefix="tamlo-") as documents:
        game = subprocess.Popen([program, sounds, documents, str(seed)], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, text=True, bufsize=0)
        for line in game.stdout:
            game.stdin.write(player.answer(line.rstrip("\n")) + "\0")
            game.stdin.flush()
            if player.tip:
                break
        game.kill()
        game.wait()
    return player


def read_in_a_terminal(program, patience=600):
    player = Player()
    program = os.path.abspath(program)
    with tempfile.TemporaryDirectory(prefix="tamlo-") as home:
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(os.path.dirname(program))
            environment = {"HOME": home, "TERM": "xterm", "PATH": os.environ["PATH"],
                           "PULSE_SERVER": "unix:/nonexistent", "PIPEWIRE_REMOTE": "nonexistent",
                           "ALSA_CONFIG_PATH": "/dev/null", "XDG_RUNTIME_DIR": home}
            os.execve(program, [program], environment)
        unread, end = "", time.monotonic() + patience
        while not player.tip and time.monotonic() < end:
            if not select.select([terminal], [], [], 1)[0]:
                continue
            unread += re.sub(r"\x1b\[\d*A", "", os.read(terminal, 65536).decode())
            *lines, unread = re.split(r"[\r\n]+", unread)
            for line in filter(None, lines):
                if keys := player.answer(line):
                    time.sleep(0.1)
                    os.write(terminal, keys.encode())
        os.kill(child, 15)
        os.waitpid(child, 0)
        os.close(terminal)
    return player


def check(player, begin):
    captions = [line for line in player.lines if line.startswith("[")]
    told = f"{len(player.lines)} lines, {len(captions)} captions, {time.monotonic() - begin:.1f} s"
    if not player.tip:
        sys.exit("no tip came of it:\n" + "\n".join(player.lines[-40:]))
    for sign in ("[title tune]", "[a new order]", "[scooter: the engine starts]",
                 "[arrival at the corner]", "[coins]"):
        if sign not in captions:
            sys.exit(f"no caption {sign}; there were {captions}")
    print(f"{player.target[0]} and {player.target[1]}: a tip of {player.tip}; {told}")


def main():
    if sys.argv[1] == "--real":
        begin = time.monotonic()
        check(read_in_a_terminal(sys.argv[2]), begin)
        return
    for seed in range(10):
        begin = time.monotonic()
        check(read_in_virtual_time(sys.argv[1], sys.argv[2], seed), begin)


if __name__ == "__main__":
    main()
