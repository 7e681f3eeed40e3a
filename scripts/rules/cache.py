"""What has been found clean stays so until its content changes."""

import hashlib


def digest(*parts):
    """Of texts and bytes."""
    total = hashlib.sha256()
    for part in parts:
        data = part.encode() if isinstance(part, str) else part
        total.update(b"%d:" % len(data) + data)
    return total.hexdigest()


class Clean:
    """Digests of what is clean, in BUILD/rules/NAME; without a build folder nothing is kept."""

    def __init__(self, build, name):
        self.path = build / "rules" / name if build else None
        kept = self.path and self.path.exists()
        self.known = set(self.path.read_text().split()) if kept else set()
        self.used = set()

    def has(self, key):
        if key in self.known:
            self.used.add(key)
        return key in self.known

    def add(self, key):
        self.used.add(key)

    def save(self):
        """Keeps what was asked for or added; the rest is of older contents."""
        if self.path and self.used != self.known:
            self.path.parent.mkdir(parents=True, exist_ok=True)
            unfinished = self.path.with_suffix(".new")
            unfinished.write_text("\n".join(sorted(self.used)) + "\n")
            unfinished.replace(self.path)
