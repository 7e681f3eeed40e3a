"""One way of writing what can be written in several: CONTRIBUTING.md, "Dialect"."""

import re

# (what it concerns, pattern, rule); a pattern is sought in code without its comments and texts.
CODE = (
    (r"(?<!benchmark::)\bk[A-Z]\w*\b", "constants are in snake_case, without a k"),
    (r"\b(\d+\.\d*|\.\d+)f\b", "float literals end in F: 0.5F"),
    (r"#\s*include\s*<SDL[^/>]*>", "SDL's headers are <SDL2/...>"),
    (r"#\s*ifndef \w+_H_?$", "headers begin with #pragma once"),
    (r"\bNULL\b", "nullptr, not NULL"),
    (r"^\s*using namespace std;", "names of the standard library keep their std::"),
)

# Where a thread without signals is made; nobody else makes one.
THREAD = r"\bstd::j?thread\s*[({]|\bstd::j?thread \w+\s*[({]|\bpthread_create\b"
THREAD_RULE = "threads are started by StartThread (services/thread.h), which keeps signals away"
MAY_MAKE_THREADS = re.compile(r"src/.*/thread\.(h|cpp)$|tests/|bench/|soundsmith/")

# Words of comments and documents: what to write instead.
WORDS = (
    (r"\banew\b", "again"),
    (r"\bwho(so)?ever\b", "a plain noun, or anyone who"),
    (r"\bbehind (its|the) (start|end|begin)\b", "after"),
    (r"\bat the begin\b(?!ning)", "at the start"),
    (r"\bneed be\b", "necessary"),
    (r"\b(nought|whilst|hence|thereof|wherein|therein)\b", "plain words"),
)
PROSE = {".md", ".1", ".6"}

TEXT = re.compile(r'"(\\.|[^"\\])*"')


def without_texts(line):
    return TEXT.sub('""', line)


def check_code(project, path):
    name = project.name(path)
    own = MAY_MAKE_THREADS.match(name)
    for number, line in project.lines(path):
        code = line if line.lstrip().startswith("#") else without_texts(line).split("//")[0]
        for pattern, rule in CODE:
            if re.search(pattern, code):
                yield f"{name}:{number}: {rule}"
        if not own and re.search(THREAD, code):
            yield f"{name}:{number}: {THREAD_RULE}"


def check_includes(project, path):
    for number, name in project.includes(path):
        source = path.is_relative_to(project.root / "src")
        if source and path.suffix == ".h" and name == "game/form1.h":
            yield (f"{project.name(path)}:{number}: no header includes game/form1.h: declare Form1 "
                   "instead")


def prose(project, path):
    """(line, text) of the comments of a source, or of all of a document."""
    for number, line in project.lines(path):
        if path.suffix in PROSE:
            yield number, line
        elif path.suffix in {".h", ".cpp"} and "//" in without_texts(line):
            yield number, without_texts(line).split("//", 1)[1]


def check_words(project, path):
    for number, text in prose(project, path):
        for pattern, instead in WORDS:
            if found := re.search(pattern, text, re.IGNORECASE):
                yield f'{project.name(path)}:{number}: "{found[0]}": better {instead}'


def check(project):
    for path in project.cpp:
        yield from check_code(project, path)
        yield from check_includes(project, path)
    for path in project.files:
        if path.suffix in PROSE | {".h", ".cpp"}:
            yield from check_words(project, path)
