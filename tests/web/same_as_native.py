#!/usr/bin/env python3
"""The rules in a browser are those of the native edition: scripts give the same traces and files.

    same_as_native.py NATIVE WEB [CAREERS]     two tamlo-rehearse; all examples, and so many careers
                                               (200) made at random
"""

import concurrent.futures
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = PROJECT / "examples"
CORPORA = {"tamlo.sav": "saved_game", "tamlo.cfg": "settings", "tamlo.rec": "record",
           "tamlostreets Oz.txt": "streets"}
# What a player presses who wants to get on, and what one presses who does not.
DRIVING = "enter 4 5,enter 4 5,right enter 4 5,left enter 4 5,enter,down enter,right,left".split(",")
WILD = ("up down left right space backspace shift escape f1 f2 f3 f4 f5 f6 a f h m n p q s t y z 0 1 2 3 9 "
        "13 190 96 255").split()


def a_day(chance, day):
    """A script for one day; keys at rest and hasty ones, now and then chance itself."""
    lines = [f"clock 2015-03-{day:02} {chance.randrange(24):02}:{chance.randrange(60):02}:00",
             f"voices {chance.choice([1, 3, 3, 13])}", "press enter"]
    for _ in range(chance.randrange(20, 60)):
        kind = chance.random()
        if kind < 0.6:
            lines.append("press " + chance.choice(DRIVING))
        elif kind < 0.8:
            lines.append("press " + " ".join(chance.choices(WILD, k=chance.randrange(1, 4))))
        elif kind < 0.9:
            lines.append(f"after {chance.choice([0, 0.05, 0.3, 2.5, 40])} {chance.choice(WILD)}")
        elif kind < 0.97:
            lines.append("draw " + " ".join(f"{chance.random():.6f}" for _ in range(chance.randrange(1, 9))))
        else:
            lines.append("show cash ncust atod ordx(1)")
    return "\n".join(lines) + "\n"


def play(program, documents, script):
    """What comes of a script: its trace, message and exit status."""
    done = subprocess.run([program, "--documents", str(documents), "--sounds", str(PROJECT / "build/game"), "-"],
                          input=script.encode(), capture_output=True, timeout=600)
    message = done.stderr.replace(program.encode(), b"").replace(str(documents).encode(), b"DOCUMENTS")
    return done.stdout.replace(str(documents).encode(), b"DOCUMENTS"), message, done.returncode


def files_in(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def differs(programs, days, begin):
    """What differs between the programs in a career; none if nothing does. `begin` fills its folder."""
    with tempfile.TemporaryDirectory(prefix="tamlo-") as folder:
        documents = []
        for number in range(len(programs)):
            documents.append(pathlib.Path(folder, str(number)))
            (documents[-1] / "tolvane").mkdir(parents=True)
            begin(documents[-1] / "tolvane")
        for number, day in enumerate(days, 1):
            native, web = (play(*both, day) for both in zip(programs, documents))
            if native != web:
                return f"day {number}, {first_difference(native, web)}; the script:\n{day}"
            if files_in(documents[0]) != files_in(documents[1]):
                return f"day {number}: files; the script:\n{day}"
    return None


def first_difference(native, web):
    for one, other in zip(native[0].split(b"\n"), web[0].split(b"\n")):
        if one != other:
            return f"{one!r} became {other!r}"
    return f"{native[1:]} became {web[1:]}"


def with_old_files(chance):
    """Some careers begin with files that are damaged, or another program's."""
    chosen = {}
    for name, corpus in CORPORA.items():
        if chance.random() < 0.3:
            chosen[name] = chance.choice(sorted((PROJECT / "fuzz" / corpus / "corpus").iterdir()))

    def begin(folder):
        for name, source in chosen.items():
            shutil.copy(source, folder / name)
    return begin


def fuzzed(programs, seed):
    chance = random.Random(seed)
    days = [a_day(chance, day) for day in range(1, chance.choice([2, 2, 3]))]
    return differs(programs, days, with_old_files(chance))


def example(programs, path):
    if path.suffix == ".sh":
        text = path.read_text().split("\nday <<'DAY'\n")[1:]
        days = [part.split("\nDAY\n")[0] + "\n" for part in text]
    else:
        days = [path.read_text()]
    return differs(programs, days, lambda folder: None)


def main():
    programs = [os.path.abspath(program) for program in sys.argv[1:3]]
    careers = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    examples = sorted(path for path in EXAMPLES.iterdir() if path.suffix in (".txt", ".sh"))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {pool.submit(example, programs, path): path.name for path in examples}
        jobs.update({pool.submit(fuzzed, programs, seed): f"career {seed}" for seed in range(careers)})
        wrong = 0
        for job in concurrent.futures.as_completed(jobs):
            if difference := job.result():
                wrong += 1
                print(f"{jobs[job]}: {difference}")
    print(f"{len(examples)} examples and {careers} careers: {wrong} differ")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
