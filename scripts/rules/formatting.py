"""Sources are as clang-format writes them."""

import shutil
import subprocess
import sys

from .cache import Clean, digest


def check(project):
    if shutil.which("clang-format") is None:
        print("clang-format is not installed: the format is not checked", file=sys.stderr)
        return
    style = project.root / ".clang-format"
    version = subprocess.run(["clang-format", "--version"], capture_output=True, text=True).stdout
    clean = Clean(project.build, "formatted")
    keys = {path: digest(version, project.text(style) if style.exists() else "", path.suffix,
                         project.text(path)) for path in project.cpp}
    changed = [path for path in project.cpp if not clean.has(keys[path])]
    bad = set()
    if changed:
        done = subprocess.run(["clang-format", "--dry-run", *map(project.name, changed)],
                              cwd=project.root, capture_output=True, text=True)
        for line in done.stderr.splitlines():
            if "-Wclang-format-violations" in line:
                place = line.split(": warning")[0]
                bad.add(project.root / place.split(":")[0])
                yield place + ": not as clang-format writes it"
    for path in changed:
        if path not in bad:
            clean.add(keys[path])
    clean.save()
