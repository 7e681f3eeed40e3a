"""The manual in all its forms: the same words, lines that fit, and true to the game."""

import html.parser
import pathlib
import re
import subprocess
import sys
import unittest

from brf import CELLS, back_translated, pages_of

ROOT, BUILD = (pathlib.Path(folder) for folder in sys.argv[1:3])
MANUAL = (ROOT / "docs/manual.md").read_text(encoding="utf-8")


def words(text):
    return re.findall(r"[a-z0-9]+", re.sub("['\u2019]", "", text.lower()))


def made(form):
    done = subprocess.run([BUILD / "tools/manual", form, ROOT / "docs/manual.md"],
                          capture_output=True, check=True)
    return done.stdout.decode("utf-8")


class Reader(html.parser.HTMLParser):
    """What a browser says, and the order of elements."""

    def __init__(self, page):
        super().__init__()
        self.open, self.levels, self.text = [], [], []
        self.feed(page)
        self.close()

    def handle_starttag(self, tag, attributes):
        if tag != "meta":
            self.open.append(tag)
        if re.fullmatch(r"h\d", tag):
            self.levels.append(int(tag[1]))

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, f"</{tag}> closes nothing"

    def handle_data(self, data):
        if "main" in self.open:
            self.text.append(data)


class Manual(unittest.TestCase):
    def test_is_written_to_be_heard(self):
        self.assertNotRegex(MANUAL, r"(?m)^\|")
        for sentence in re.split(r"(?<=[.:?!])\s", MANUAL):
            self.assertLessEqual(len(words(sentence)), 32, sentence)

    def test_as_html(self):
        page = Reader(made("html"))
        self.assertEqual(page.open, [])
        self.assertEqual(words(" ".join(page.text)), words(MANUAL))
        self.assertEqual(page.levels[0], 1)
        for before, level in zip(page.levels, page.levels[1:]):
            self.assertTrue(2 <= level <= before + 1, page.levels)

    def test_as_text(self):
        text = made("text")
        self.assertEqual(words(text), words(MANUAL))
        self.assertLessEqual(max(map(len, text.splitlines())), 72)

    def test_as_braille(self):
        lengths = []
        for form in ("uncontracted", "contracted"):
            with self.subTest(form=form):
                pages = pages_of(made(form))
                self.assertEqual(max(len(line) for page in pages for line in page), CELLS)
                self.assertEqual(words(back_translated(pages, form)), words(MANUAL))
                lengths.append(len(pages))
        self.assertLess(lengths[1], 0.9 * lengths[0])

    def test_wrong_use_is_told(self):
        for arguments in ([], ["html"], ["print", "x"], ["html", "/nowhere"]):
            done = subprocess.run([BUILD / "tools/manual", *arguments], capture_output=True)
            self.assertEqual((done.returncode, done.stdout), (2, b""))
            self.assertIn(b"manual", done.stderr)


class Facts(unittest.TestCase):
    """What the manual says of the game is what the game does."""

    def source(self, name):
        return (ROOT / "src" / name).read_text()

    def test_hazards(self):
        rows = re.findall(r"HazardKind::\w+\},\s+///?<? (.*)", self.source("driving/hazards.h"))
        self.assertEqual(len(rows), 9)
        for place in rows:
            self.assertIn(place, MANUAL)

    def test_vehicles(self):
        rows = re.findall(r'\b(\d+),\s+" you can', self.source("game/vehicles.h"), re.I)
        self.assertEqual(len(rows), 3)
        for top_speed in rows:
            self.assertIn(top_speed, MANUAL)

    def test_menus(self):
        heard = MANUAL.lower()
        for item in ("start game", "change voice", "adjust rate of speech", "adjust volume",
                     "choose gender", "quit for the day", "create city streets file",
                     "edit city streets file", "go forward", "turn left, west"):
            self.assertIn(item, heard)
            self.assertTrue(any(f'" {item} "' in path.read_text()
                                for path in (ROOT / "src").rglob("*.cpp")), item)

    def test_keys(self):
        for key in ("Enter", "Escape", "Backspace", "Shift", "Left Arrow", "Right Arrow",
                    *(f"F{number}" for number in range(1, 7))):
            self.assertIn(key, MANUAL)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
