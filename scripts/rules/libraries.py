"""What a target includes is limited to what it links; rules use the standard library only."""

import re

# The headers of a library, and how a target says that it has it: by linking it, or by naming it in
# OPENS when it opens the library at run time.
LIBRARY_HEADERS = {
    r"SDL2/SDL_ttf\.h": "PkgConfig::SDL2_ttf",
    r"SDL2/": "PkgConfig::SDL2",
    r"X11/": "PkgConfig::X11",
    r"pulse/": "PkgConfig::PULSE",
    r"pipewire/|spa/": "pipewire",
    r"espeak-ng/": "espeak-ng",
    r"flite/": "flite",
    r"(pipewire|spa)/": "pipewire",
    r"brlapi": "brlapi",
    r"liblouis/": "PkgConfig::LOUIS",
    r"png\.h": "PNG::PNG",
    r"gtest/|gmock/": "GTest::gmock",
    r"benchmark/": "benchmark::benchmark",
}
SAME_LIBRARY = {"PkgConfig::ESPEAK_NG": "espeak-ng", "flite_usenglish": "flite",
                "benchmark::benchmark_main": "benchmark::benchmark",
                "PkgConfig::PIPEWIRE": "pipewire"}

# Headers of one system: only an edition's own folder includes them.
SYSTEM_HEADER = re.compile(
    r"(sys|linux|netinet|arpa|emscripten)/|(windows|winsock2|unistd|fcntl|dlfcn|poll|pthread|signal|"
    r"semaphore|termios|spawn|pwd|sched|dirent|execinfo|link|time)\.h$")
EDITIONS = ("linux", "web", "windows")

RULES = ("tamlo_text", "tamlo_rules")
RULE_SERVICES = ("date.h",)  # plain data among the services


def linked(project, target):
    """The names of all that a target has: what it links and what that passes on, and the libraries
    that one of them opens."""
    found, waiting = {target.name, *target.opens}, list(target.links)
    while waiting:
        name = waiting.pop()
        if name in found:
            continue
        found |= {name, SAME_LIBRARY.get(name, name)}
        if name in project.targets:
            found.update(project.targets[name].opens)
            waiting += project.targets[name].passes_on
    return found


def libraries_by_source(project):
    """The libraries that compile each source, without its suffix."""
    owners = {}
    for target in project.targets.values():
        for source in target.sources:
            if source.suffix == ".cpp" and target.is_library:
                owners.setdefault(source.with_suffix(""), set()).add(target.name)
    return owners


def check_links(project):
    owners = libraries_by_source(project)
    for target in project.targets.values():
        has = linked(project, target)
        for source in target.sources:
            if source.suffix == ".cpp" and source.exists() and source.is_relative_to(project.root):
                yield from check_source(project, target, source, has, owners)


def check_source(project, target, source, has, owners):
    for number, name in project.includes(source):
        header = project.find(name, source)
        if header:
            needed = owners.get(header.with_suffix(""), set())
            if needed and not needed & has:
                yield (f"{project.name(source)}:{number}: {target.name} does not link "
                       f"{' or '.join(sorted(needed))}, but includes {name}")
    for path in project.closure(source):
        for number, name in project.includes(path):
            library = next((library for pattern, library in LIBRARY_HEADERS.items()
                            if re.match(pattern, name)), None)
            if library and library not in has and not project.find(name, path):
                yield (f"{project.name(path)}:{number}: {target.name} does not have {library}, "
                       f"but includes <{name}>")


def check_systems(project):
    source = project.root / "src"
    for path in project.cpp:
        if not path.is_relative_to(source) or path.relative_to(source).parts[0] in EDITIONS:
            continue
        for number, name in project.includes(path):
            if SYSTEM_HEADER.match(name) and not project.find(name, path):
                yield (f"{project.name(path)}:{number}: shared code is for every system, "
                       f"but includes <{name}>")
        for number, line in project.lines(path):
            if re.match(r"\s*#\s*(el)?if.*(__linux|_WIN32|__EMSCRIPTEN__|__APPLE__|__unix|_MSC_VER)", line):
                yield f"{project.name(path)}:{number}: shared code does not ask for the system"


def check_rules_of_the_game(project):
    """The sources of tamlo_rules and tamlo_text, and all that they include."""
    source = project.root / "src"
    for name in RULES:
        for rule in project.targets[name].sources if name in project.targets else ():
            for path in project.closure(rule) if rule.exists() else ():
                services = path.parent == source / "services" and path.name not in RULE_SERVICES
                if services or path == source / "game/form1.h":
                    yield (f"{project.name(rule)}:1: a rule needs numbers and text only, "
                           f"but includes {path.relative_to(source)}")


def check(project):
    yield from check_links(project)
    yield from check_systems(project)
    yield from check_rules_of_the_game(project)
