"""Which room may include which. A room is a folder of src with files of its own."""

import collections
import pathlib

GAME = ("speech", "sound", "city", "orders", "driving", "store")
BELOW = ("services", "text")
ALL_SHARED = BELOW + ("game", *GAME, "day", "audio", "reading", "rehearsal", "recording", "app")

# Each room, from the ground up: the rooms that it may include, and its subject. A row for a folder
# holds for the rooms within it. A room always includes itself.
ROOMS = {
    "services": ((), "the interfaces of a machine"),
    "text": (("services",), "numbers, times and UTF-8"),
    "game": (BELOW, "the record, Form1, vehicles"),
    "speech": (BELOW + ("game",), "speaking, keys, menus"),
    "sound": (BELOW + ("game",), "playing effects, their table"),
    "orders": (BELOW + ("game",), "making and telling orders"),
    "driving": (BELOW + ("game",), "speed, hazards, scenes"),
    "city": (BELOW + ("game", "speech", "driving"), "streets and where you are"),
    "store": (BELOW + ("game", "speech", "orders"), "settings, careers, records"),
    "day": (BELOW + ("game", *GAME), "start-up to the end of a day"),
    "audio/mixing": (BELOW, "mixer, limiter, wave files"),
    "audio/voice": (BELOW + ("audio/mixing",), "texts become samples"),
    "audio/output": (BELOW + ("audio/mixing",), "from the mixer to a device"),
    "reading": (BELOW, "captions and braille"),
    "rehearsal": (BELOW + ("audio/mixing",), "virtual time, a trace"),
    "recording": (BELOW + ("audio", "reading", "rehearsal"), "virtual time, a wave file"),
    "app": (BELOW + ("game", *GAME, "day", "audio", "reading", "rehearsal", "recording", "app"),
            "what the programs share"),
    "linux/system": (ALL_SHARED, "files, clocks, programs"),
    "linux/pipe": (ALL_SHARED + ("linux/system", "linux/terminal"), "keys and lines of a pipe"),
    "linux/programs": (ALL_SHARED + ("linux",), "main() of each program"),
    "linux": (ALL_SHARED + ("linux/system",), "back ends and programs"),
    "web": (ALL_SHARED + ("web",), "the same in a browser"),
    "windows": (ALL_SHARED + ("windows",), "the same on Windows"),
}

# The arrows that run up all the same, each with its reason. Two at most.
UPWARD = {
}
MOST_UPWARD = 2

# Beside src: the makers of the sounds know the table of effects only.
SOUNDSMITH_KNOWS = ("sound/effects.h",)

LARGEST_SHARE = 1 / 5  # of the lines of src


def within(room, folder):
    return room == folder or room.startswith(folder + "/")


def row(room):
    """The row that holds for a room, the nearest folder's; None if there is none."""
    folder = pathlib.PurePath(room)
    while str(folder) != ".":
        if str(folder) in ROOMS:
            return str(folder)
        folder = folder.parent
    return None


def room_of(project, path):
    return str(path.parent.relative_to(project.root / "src"))


def arrows(project):
    """(from room, to room) -> [(file, line, included)], for all of src."""
    found = collections.defaultdict(list)
    source = project.root / "src"
    for path in project.cpp:
        if not path.is_relative_to(source):
            continue
        for number, name in project.includes(path):
            target = project.find(name, path)
            if target and target.is_relative_to(source) and target.parent != path.parent:
                found[room_of(project, path), room_of(project, target)].append((path, number, name))
    return found


def check_arrows(project):
    for (start, end), places in arrows(project).items():
        holds = row(start)
        allowed = holds and any(within(end, folder) for folder in (start, *ROOMS[holds][0]))
        if allowed or (start, end) in UPWARD:
            continue
        for path, number, name in places:
            yield f"{project.name(path)}:{number}: {start} stands below {end}, but includes {name}"


def check_sizes(project):
    lines = collections.Counter()
    for path in project.cpp:
        if path.is_relative_to(project.root / "src"):
            room = room_of(project, path)
            lines[room] += project.text(path).count("\n")
            if row(room) is None:
                yield f"{project.name(path)}:1: scripts/rules/rooms.py has no row for the room {room}"
    for room, count in lines.items():
        if len(lines) > 1 / LARGEST_SHARE and count > LARGEST_SHARE * sum(lines.values()):
            yield f"src/{room}:{count}: holds more than a fifth of src"


def check_soundsmith(project):
    for path in project.cpp:
        if not path.is_relative_to(project.root / "soundsmith"):
            continue
        for number, name in project.includes(path):
            target = project.find(name, path)
            if target and target.is_relative_to(project.root / "src") and name not in SOUNDSMITH_KNOWS:
                yield (f"{project.name(path)}:{number}: soundsmith knows the table of effects only, "
                       f"but includes {name}")


def check(project):
    yield from check_arrows(project)
    yield from check_sizes(project)
    yield from check_soundsmith(project)
    if len(UPWARD) > MOST_UPWARD:
        yield f"scripts/rules/rooms.py:1: more than {MOST_UPWARD} arrows run up"
