"""clang-tidy's checks, each an error (.clang-tidy), over the sources that are compiled.

Most of its time goes into the headers that the sources share, so sources are checked in batches, as
one translation unit each. Sources that clash (a local name in both) are put apart; those of a batch
with findings are checked one by one. What is clean is not checked again until it, or a header that it
includes, changes.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import threading

from .cache import Clean, digest

BATCH = 16  # sources at most
# What players get. The rest (tests, bench, fuzz) is checked by check-rules --all only: the headers of
# the test library take clang-tidy minutes.
DELIVERED = ("src", "soundsmith")
FINDING = re.compile(r"^(/?[^:\s]+):(\d+):\d+: (?:error|warning): (.*)$")
KEPT = ("-D", "-I", "-std", "-W", "-m")  # the rest says how code is made, or is g++'s own


class Source:
    def __init__(self, project, entry):
        self.path = pathlib.Path(entry["file"])
        folder = self.path.relative_to(project.root).parts[0]
        self.delivered = folder in DELIVERED
        self.arguments = self._arguments(shlex.split(entry["command"]))
        files = sorted(project.closure(self.path))
        self.contents = [text for path in files for text in (project.name(path), project.text(path))]

    @staticmethod
    def _arguments(words):
        kept = []
        for word, following in zip(words, words[1:] + [""]):
            if word == "-isystem":
                kept.append(word + following)
            elif word.startswith(KEPT) and word != "-Winvalid-pch":
                kept.append(word)
        return kept + ["-Wno-sign-conversion"]  # with g++, -Wconversion does not stand for it


class Tidy:
    def __init__(self, project):
        self.project = project
        self.config = project.root / ".clang-tidy"
        self.folder = project.build / "rules"
        self.folder.mkdir(parents=True, exist_ok=True)
        self.clean, self.lock = Clean(project.build, "tidy"), threading.Lock()
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True).stdout
        self.version = re.search(r"version \S+", version)[0]

    def key(self, source):
        return digest(self.version, self.project.text(self.config), *source.arguments,
                      *source.contents)

    def findings(self, batch):
        """[(file, text)] of a batch, and whether it compiles."""
        name = digest(*(str(source.path) for source in batch))[:16]
        unit = self.folder / f"{name}.cpp"
        unit.write_text("".join(f'#include "{source.path}"\n' for source in batch))
        arguments = list(dict.fromkeys(word for source in batch for word in source.arguments))
        done = subprocess.run(
            ["clang-tidy", "--quiet", f"--config-file={self.config}",
             "--checks=-bugprone-suspicious-include", str(unit), "--", *arguments],
            cwd=self.project.root, capture_output=True, text=True)
        unit.unlink()
        found = [(self.project.root / match[1], f"{match[2]}: {match[3]}")
                 for line in done.stdout.splitlines() if (match := FINDING.match(line))]
        return found, "[clang-diagnostic-error" not in done.stdout and done.returncode in (0, 1)

    def check(self, batch):
        """The breaches of a batch; what has none is remembered as clean."""
        found, compiles = self.findings(batch)
        if not found and compiles:
            with self.lock:
                for source in batch:
                    self.clean.add(self.key(source))
                self.clean.save()
            return []
        if len(batch) == 1:
            return [f"{self.name(path)}:{text}" for path, text in found] or [
                f"{self.name(batch[0].path)}:1: clang-tidy fails on it"]
        blamed = [source for source in batch if any(path == source.path for path, _ in found)]
        rest = [source for source in batch if source not in blamed]
        if not rest or not blamed:
            blamed, rest = batch[:len(batch) // 2], batch[len(batch) // 2:]
        # Those that only clash with the rest may go together with each other.
        parts = [[source] for source in blamed] if compiles else [blamed]
        return [breach for part in (*parts, rest) if part for breach in self.check(part)]

    def name(self, path):
        path = pathlib.Path(os.path.normpath(path))
        return self.project.name(path) if path.is_relative_to(self.project.root) else str(path)


def batches(sources):
    """Neighbours with the same definitions, the game's own first."""
    groups = {}
    for source in sorted(sources, key=lambda source: (not source.delivered, source.path)):
        defined = tuple(word for word in source.arguments if word.startswith("-D"))
        groups.setdefault((source.delivered, defined), []).append(source)
    for group in groups.values():
        for begin in range(0, len(group), BATCH):
            yield group[begin:begin + BATCH]


def check(project, everything=False):
    database = project.build / "compile_commands.json" if project.build else None
    if database is None or not database.exists():
        return
    if shutil.which("clang-tidy") is None:
        print("clang-tidy is not installed: its checks are not run", file=sys.stderr)
        return
    tidy, tracked = Tidy(project), set(project.cpp)
    entries = {entry["file"]: entry for entry in json.loads(database.read_text())}
    sources = [Source(project, entry) for file, entry in entries.items()
               if pathlib.Path(file) in tracked]
    changed = [source for source in sources if not tidy.clean.has(tidy.key(source))
               and (everything or source.delivered)]
    try:
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as jobs:
            for breaches in jobs.map(tidy.check, batches(changed)):
                yield from breaches
    finally:
        tidy.clean.save()
