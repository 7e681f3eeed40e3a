"""tamlo-city as players use it: check, new and map. (Its speaking is a scenario.)"""

import pathlib
import re
import resource
import subprocess
import sys
import tempfile
import unittest

from brf import back_translated, pages_of

ROOT, BUILD = (pathlib.Path(folder) for folder in sys.argv[1:3])
EXAMPLES = sorted((ROOT / "examples/cities").glob("tamlostreets*.txt"))


class City(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tamlo-city-")
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.files = self.home / "Documents/tolvane"

    def run_city(self, *arguments, status=0, given=b""):
        done = subprocess.run([BUILD / "tools/tamlo-city", *arguments], input=given,
                              capture_output=True, env={"HOME": str(self.home)}, timeout=30)
        self.assertEqual(done.returncode, status, done)
        return done.stdout.decode() if status < 2 else done.stderr.decode()

    def test_examples_and_the_default_city_can_be_played(self):
        self.assertEqual(len(EXAMPLES), 2)
        for city in [*EXAMPLES, "original"]:
            told = self.run_city("check", city)
            self.assertRegex(told, r"can be played\. Hints: 0\.\n$")

    def test_a_city_is_made_checked_and_not_written_over(self):
        self.run_city("check", "Bay", status=2)
        self.run_city("new", "Bay", given=EXAMPLES[0].read_bytes())
        made = self.files / "tamlostreetsBay.txt"
        self.assertEqual(made.read_bytes(), EXAMPLES[0].read_bytes())
        self.assertIn("can be played", self.run_city("check", "Bay"))
        self.assertIn("already", self.run_city("new", "bay", status=2,
                                               given=EXAMPLES[1].read_bytes()))
        self.assertEqual(made.read_bytes(), EXAMPLES[0].read_bytes())
        lines = made.read_bytes().split(b"\r\n")
        lines[4] = lines[8]
        made.write_bytes(b"\n".join(lines))
        self.assertIn("Error. Line 9: road 9 has the name of road 5",
                      self.run_city("check", "Bay", status=1))

    def test_wrong_use_is_told_and_changes_nothing(self):
        for arguments, given in ((("new", "Short"), b"Oak\nElm\n"), (("new", "a/b"), b""),
                                 (("new", "original"), EXAMPLES[0].read_bytes()),
                                 (("new", "Long"), EXAMPLES[0].read_bytes() + b"More\n"),
                                 (("map", "nowhere"), b""), (("say", "./nowhere"), b""),
                                 (("check",), b""), (("draw", "original"), b""), ((), b"")):
            told = self.run_city(*arguments, status=2, given=given)
            self.assertIn("tamlo-city", told)
        self.assertFalse(self.files.exists() and any(self.files.iterdir()))

    def test_letters_that_the_voices_do_not_have_are_a_hint(self):
        def name(number):
            return "".join(chr(0x430 + int(digit)) for digit in str(number))
        self.run_city("new", "Bay", given="\n".join(map(name, range(147))).encode())
        told = self.run_city("check", "Bay")
        self.assertRegex(told, "Line 1, .* and 146 more names, have letters that the voices")
        self.assertIn("can be played", told)

    def test_a_list_without_end_is_refused(self):
        with open("/dev/zero", "rb") as endless:
            done = subprocess.run([BUILD / "tools/tamlo-city", "new", "Bay"], stdin=endless,
                                  capture_output=True, text=True, timeout=30, check=False,
                                  env={"HOME": str(self.home)}, preexec_fn=lambda:
                                  resource.setrlimit(resource.RLIMIT_AS, (1 << 30, 1 << 30)))
        self.assertEqual(done.returncode, 2, done)
        self.assertIn("too long", done.stderr)

    def test_a_city_can_not_command_the_terminal(self):
        lines = EXAMPLES[0].read_bytes().splitlines()
        lines[3] = lines[8] = b"\x1b[2JOak"
        evil = self.home / "\x1b[2Jtamlostreets.txt"
        evil.write_bytes(b"\n".join(lines))
        for command in ("check", "new"):
            done = subprocess.run([BUILD / "tools/tamlo-city", command, evil], input=b"",
                                  capture_output=True, env={"HOME": str(self.home)}, timeout=30,
                                  check=False)
            self.assertNotIn(b"\x1b", done.stdout + done.stderr)

    def test_the_map_names_every_street(self):
        for city in [*EXAMPLES, "original"]:
            brf = self.run_city("map", city)
            pages = pages_of(brf)
            told = re.sub(r"\s+", " ", back_translated(pages, "uncontracted"))
            lines = [line for page in pages for line in page]
            self.assertEqual(sum(line.startswith("    ,SHEET") for line in lines), 4)
            rows = [line for line in lines if re.fullmatch(r"[A-J]{2} (  [-=XTPH]){10}", line)]
            self.assertEqual(len(rows), 40)
            index = told[told.index("Index of names"):]
            names = (pathlib.Path(city).read_text().split("\n")[:147] if city != "original"
                     else ["Willow", "Center", "Volkswagon", "Fifty First Avenue"])
            for name in names:
                self.assertRegex(index, rf"{name.strip()}: (road|street) \d+")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
