"""A player for hours: reads the lines of the game, and answers with the names of keys."""

import re

from reader_test import Player as Reader

MENUS = {
    "main": ["start game", "reed instructions", "reed special key instructions", "change voice",
             "adjust rate of speech", "adjust volume", "choose gender", "delete saved game",
             "create city streets file", "edit city streets file", "delete city streets file",
             "exit game"],
    "restaurant": ["deliver tamlo", "quit for the day", "check cash", "options menu"],
    "departure": ["turn left, west", "turn right, east", "options menu"],
    "corner": ["go forward", "turn left", "turn right", "options menu"],
    "options": ["return to the game", "reed instructions", "reed special key instructions",
                "change voice", "adjust rate of speech", "adjust volume", "choose gender"],
}
FIRST = {items[0]: name for name, items in MENUS.items()}
# What is chosen: (item, how often).
WISHES = {
    "main": [("start game", 60), ("reed instructions", 5), ("change voice", 5),
             ("adjust rate of speech", 5), ("adjust volume", 5), ("choose gender", 5),
             ("delete saved game", 4), ("create city streets file", 4),
             ("delete city streets file", 3), ("exit game", 2)],
    "restaurant": [("deliver tamlo", 60), ("check cash", 15), ("options menu", 10),
                   ("quit for the day", 15)],
    "options": [("return to the game", 40), ("change voice", 10), ("adjust rate of speech", 10),
                ("adjust volume", 15), ("choose gender", 15), ("reed instructions", 10)],
}
RESTAURANT = ("First Street", "Center")
WRONG = ("broken down", "could not be saved", "can not be", "could not be", "Nothing is spoken",
         "running already", "corrupt")
NOT_WRONG = ("Tolvane game menu program", "name can not be used")


class SoakPlayer(Reader):
    """`chance` decides what is chosen. Ends of the run that it has brought about stand in
    `leaving`: quit, exit, restart, road (at once) or lost (with the career)."""

    def __init__(self, chance):
        super().__init__()
        self.chance = chance
        self.orders = []
        self.menu = self.goal = None
        self.answer_wanted = None
        self.rounds = 0  # items to pass by, for the sake of hearing them
        self.leaving = None
        self.driving = False
        self.on_road = False  # the engine has been started, which has pauses of its own
        self.counts = {}

    def count(self, what):
        self.counts[what] = self.counts.get(what, 0) + 1

    def keys_for(self, line):
        """The keys to press now that the line has come; most lines need none."""
        if line.startswith("["):
            return ["space"] if line == "[title tune]" else []
        if any(words in line for words in WRONG) and not any(words in line for words in NOT_WRONG):
            raise AssertionError(f"the game says: {line}")
        self.note(line)
        if line in FIRST:
            self.menu = FIRST[line]
        if line in ("yes", "no"):
            return self.yes_or_no(line)
        if line == "How fast do you wish to go?":
            self.driving = True
            return ["4", "0"]
        if line == "Enter the name of your city":
            return [*self.chance.choices("abcdefgh", k=3), "Return"]
        if self.menu and line in MENUS[self.menu]:
            return self.choose(line)
        return []

    def note(self, line):
        """What the line tells of the trip, and of what is asked."""
        if place := re.match(r"There is an order for .* corner of (.*) and (.*?)\.", line):
            if place.groups() not in self.orders:
                self.orders.append(place.groups())
        elif place := re.match(r"You are at the corner of (.*) and (.*), heading (.*)", line):
            *self.corner, self.heading = place.groups()
            self.on_road = True
        elif line.startswith("plus a tip of"):
            here = tuple(self.corner)
            self.orders.remove(here if here in self.orders else self.orders[0])
            self.count("deliveries")
        elif line.startswith("you are back to"):
            self.driving = self.on_road = False
            self.count("trips")
        elif "delete the saved game?" in line:
            self.answer_wanted = "yes"
        elif "wish to use this voice" in line:
            self.answer_wanted = "yes" if self.chance.random() < 0.3 else "no"
        elif "wish to exit the game?" in line:
            self.answer_wanted = "yes" if self.leaving == "lost" else "no"
        elif line == "game saved":
            self.count("days")
        elif line == "restarting game":
            self.leaving = "restart"

    def yes_or_no(self, line):
        if self.answer_wanted not in (None, line):
            return ["Down"]
        self.answer_wanted = None
        return ["Return"]

    def choose(self, line):
        if self.rounds == 0 and line in FIRST and self.chance.random() < 0.25:
            self.rounds = len(MENUS[self.menu])
        if self.rounds:
            self.rounds -= 1
            return ["Down"]
        if self.menu == "departure":
            return self.depart(line)
        if self.menu == "corner":
            return self.drive(line)
        if self.goal not in MENUS[self.menu]:
            wishes = WISHES[self.menu]
            self.goal = self.chance.choices([item for item, _ in wishes],
                                            [often for _, often in wishes])[0]
        if line != self.goal:
            return ["Down"]
        self.goal = None
        self.count(line)
        self.leaving = {"quit for the day": "quit", "exit game": "exit"}.get(line, self.leaving)
        if line == "start game":
            self.orders = []
        return ["Return"]

    def extra_key(self, rarely):
        """Now and then one that tells something."""
        return [f"F{self.chance.randint(1, 6)}"] if self.chance.random() < rarely else []

    def depart(self, line):
        if line == "turn left, west":
            if keys := self.extra_key(0.1):
                return keys
            if self.chance.random() < 0.02:
                self.leaving = "road"
                return ["Escape"]
            self.target = self.orders[0] if self.orders else RESTAURANT
            if not self.target[0].endswith("Street"):
                return ["Down"]
        return ["Return"]

    def drive(self, line):
        if line != "go forward":
            return ["Return"]
        if keys := self.extra_key(0.05):
            return keys
        if self.chance.random() < 0.005:
            self.leaving = "lost"
            return ["Escape"]
        self.target = self.orders[0] if self.orders else RESTAURANT
        return [{0: "Return", 1: "Right", 3: "Left"}.get(self.turn(), "Right")]
