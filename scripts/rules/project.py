"""The files of the project, its targets, and who includes whom."""

import functools
import json
import os
import pathlib
import re
import subprocess

CPP = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')


class Target:
    """A library or program of the build."""

    def __init__(self, record):
        self.name = record["name"]
        folder = pathlib.Path(record["folder"])
        self.sources = [folder / source for source in record["SOURCES"]]
        self.is_library = record["type"].endswith("LIBRARY")
        self.links = record["LINK_LIBRARIES"]
        # What those who link it see of what it links.
        self.passes_on = [link for link in record["INTERFACE_LINK_LIBRARIES"] if "$<" not in link]
        self.opens = record["TAMLO_OPENS"]


class Project:
    """root: the project's folder; build: a folder that CMake has configured, or None."""

    def __init__(self, root, build=None):
        self.root, self.build = root, build
        self.files = [path for path in self._listed() if path.is_file()]
        self.cpp = [path for path in self.files if path.suffix in CPP]
        self.python = [path for path in self.files if self._is_python(path)]
        self.targets = {}
        listed = build / "targets.jsonl" if build else None
        if listed and listed.exists():
            for line in listed.read_text(encoding="utf-8").splitlines():
                target = Target(json.loads(line))
                self.targets[target.name] = target

    def _listed(self):
        git = ["git", "-C", self.root, "ls-files", "-z", "-co", "--exclude-standard"]
        listed = subprocess.run(git, capture_output=True, text=True)
        if listed.returncode == 0 and listed.stdout:
            return sorted(self.root / name for name in listed.stdout.split("\0") if name)
        return sorted(path for path in self.root.rglob("*")
                      if not re.match(r"build|\.", path.relative_to(self.root).parts[0]))

    def _is_python(self, path):
        if path.suffix:
            return path.suffix == ".py"
        return self.text(path).startswith("#!/usr/bin/env python3")

    @functools.cache
    def text(self, path):
        return path.read_text(encoding="utf-8", errors="replace")

    def lines(self, path):
        return enumerate(self.text(path).splitlines(), 1)

    def name(self, path):
        return str(path.relative_to(self.root))

    @functools.cache
    def includes(self, path):
        """(line, name) of each #include."""
        return [(number, match[1]) for number, line in self.lines(path)
                if (match := INCLUDE.match(line))]

    @functools.cache
    def find(self, name, includer):
        """The project's file that `includer` means by a name, or None for a header of the system."""
        roots = [includer.parent, *(self.root / folder for folder in ("src", "soundsmith", "tests"))]
        for folder in roots:
            path = pathlib.Path(os.path.normpath(folder / name))
            if path.exists():
                return path
        return None

    @functools.cache
    def closure(self, path):
        """The project's files that a file includes, directly or not, itself among them."""
        found, waiting = {path}, [path]
        while waiting:
            current = waiting.pop()
            for _, name in self.includes(current):
                included = self.find(name, current)
                if included and included not in found:
                    found.add(included)
                    waiting.append(included)
        return found
