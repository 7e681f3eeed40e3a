"""The menu entry, its description and the manual pages: valid, spelled, and true to the programs."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT, BUILD = (pathlib.Path(folder) for folder in sys.argv[1:3])
PACKAGING = ROOT / "packaging"
ENTRY = PACKAGING / "desktop/example.tamlo.delivery.desktop"
DESCRIPTION = PACKAGING / "desktop/example.tamlo.delivery.metainfo.xml"
# As the pages of section 6 promise.
HEADINGS = ("NAME", "SYNOPSIS", "DESCRIPTION", "FILES", "SOUND AND SPEECH", "ACCESSIBILITY",
            "DIAGNOSTICS", "SEE ALSO")


def run(*command, status=0, **options):
    """What the command prints; a missing one is a failure that names its package."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          **options)
    if status is not None and done.returncode != status:
        raise AssertionError(f"{command[0]} ends with {done.returncode}:\n"
                             f"{done.stdout}{done.stderr}")
    return done.stdout + done.stderr


def page_text(page):
    """A page as a reader of plain text has it, without line breaks or hyphenation."""
    text = run("groff", "-man", "-Tutf8", "-P-cbou", "-ww", "-rHY=0", page)
    return re.sub(r"\s+", " ", text.replace("\u2010", "-").replace("\u2212", "-"))


class Arguments(unittest.TestCase):
    def test_tools_tell_their_synopsis_and_refuse_what_they_do_not_know(self):
        for tool in ("tamlo-doctor", "tamlo-sounds", "tamlo-city", "tamlo-rehearse"):
            with self.subTest(tool):
                program = BUILD / "tools" / tool
                told = run(program, "--help", stdin=subprocess.DEVNULL, timeout=30)
                self.assertIn("usage: " + tool, told)
                told = run(program, "--nonsense", status=2, stdin=subprocess.DEVNULL, timeout=30)
                self.assertIn("usage: " + tool, told)


class Programs(unittest.TestCase):
    def test_are_hardened(self):
        for program in [BUILD / "game/tamlo", *(BUILD / "tools" / name for name in (
                "tamlo-city", "tamlo-doctor", "tamlo-rehearse", "tamlo-sounds"))]:
            with self.subTest(program=program.name):
                told = run("readelf", "--wide", "--file-header", "--dynamic", "--segments",
                           "--dyn-syms", program)
                for sign in (r"DYN \(Pos", "BIND_NOW", "GNU_RELRO", "__stack_chk_fail"):
                    self.assertRegex(told, sign)
                if program.name == "tamlo":
                    self.assertRegex(told, r"__\w+_chk@")  # fortified calls


class MenuEntry(unittest.TestCase):
    def test_is_valid(self):
        self.assertEqual(run("desktop-file-validate", ENTRY), "")
        run("appstreamcli", "validate", "--no-net", DESCRIPTION)

    def test_names_what_is_installed(self):
        entry = ENTRY.read_text()
        installed = "".join(path.read_text() for path in PACKAGING.rglob("CMakeLists.txt"))
        for program in re.findall(r"^(?:Try)?Exec=(.*)$", entry, re.M):
            self.assertRegex(installed, rf"[/(]{pathlib.Path(program).name}\b", program)
        self.assertEqual(set(re.search("^Actions=(.*);$", entry, re.M)[1].split(";")),
                         {"sounds", "doctor", "manual"})
        self.assertRegex(entry, "(?m)^Comment=.*arrow keys and Enter")
        # What opens the manual, and the editor.
        self.assertRegex((ROOT / "debian/control").read_text(),
                         r"(?m)^(Recommends|Depends):[^:]*xdg-utils")
        icon = re.search(r"^Icon=(.*)$", entry, re.M)[1]
        self.assertTrue((PACKAGING / f"desktop/{icon}.svg").exists())
        described = xml.etree.ElementTree.parse(DESCRIPTION).getroot()
        self.assertEqual(described.findtext("launchable"), ENTRY.name)
        version = re.search(r"VERSION (\S+) ", (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(described.find("releases/release").get("version"), version)
        self.assertIn(f"({version})", (ROOT / "debian/changelog").read_text().splitlines()[0])
        for page in ManualPages.pages:
            self.assertIn(f'"Tamlo Delivery {version}"', page.read_text())

    def test_the_icon_is_a_picture(self):
        picture = xml.etree.ElementTree.parse(PACKAGING / "desktop/tamlo-delivery.svg").getroot()
        self.assertEqual(picture.get("viewBox"), "0 0 128 128")


class ManualPages(unittest.TestCase):
    pages = sorted((PACKAGING / "man").glob("*.[1-8]"))

    def test_are_valid_and_found_by_name(self):
        for page in self.pages:
            with self.subTest(page=page.name):
                self.assertEqual(run("man", "--warnings=w", "-E", "UTF-8", "-l", page,
                                     stdin=subprocess.DEVNULL).count("warning"), 0)
                self.assertIn(f'"{page.stem} - ', run("lexgrog", page))

    def test_every_program_has_one_that_names_all_it_does(self):
        installed = set(re.findall(r"install\(TARGETS ([^)]*) DESTINATION",
                                   (PACKAGING / "CMakeLists.txt").read_text())[0].split())
        self.assertLessEqual(installed, {page.stem for page in self.pages})
        for page in self.pages:
            headings = re.findall(r'^\.SH "?([^"\n]*)', page.read_text(), re.M)
            with self.subTest(page=page.name):
                if page.suffix != ".5":
                    self.assertLessEqual(set(HEADINGS), set(headings))
                if page.suffix == ".6":
                    self.assertIn("KEYS", headings)

    def test_say_what_the_programs_do(self):
        game = page_text(PACKAGING / "man/tamlo.6")
        for key in ["Up", "Down", "Left", "Right", "Enter", "Escape", "Shift", "Backspace"] + [
                f"F{number}" for number in range(1, 7)]:
            self.assertIn(key, game)
        sources = "".join(path.read_text() for path in (ROOT / "src").rglob("*.cpp"))
        for name in set(re.findall(r'"(tamlo(?:log|streets)?\.\w{3})"', sources)):
            if not name.endswith(".wav"):
                self.assertIn(name, game)
        options = run(BUILD / "tools/tamlo-rehearse", "--what", status=2)
        for option in re.findall(r"\[(--\w+)", options):
            self.assertIn(option, page_text(PACKAGING / "man/tamlo-rehearse.1"))

        check = page_text(PACKAGING / "man/tamlo-doctor.6")
        items = re.findall(r'" ([a-z ]+) "', (ROOT / "src/app/doctor/doctor.cpp").read_text())
        self.assertEqual(len(items), 5)
        for part in items:
            self.assertIn(part, check)

        commands = re.findall(r"tamlo-city (\S+) ", run(BUILD / "tools/tamlo-city", "--help"))
        self.assertEqual(len(commands), 5)
        for command in commands:
            self.assertIn(f"tamlo-city {command} ", page_text(PACKAGING / "man/tamlo-city.6"))

    def test_refer_to_each_other(self):
        known = {f"{page.stem}({page.suffix[1:]})" for page in self.pages}
        for page in self.pages:
            for other in re.findall(r"tamlo[a-z-]* ?\(\d\)", page_text(page)):
                self.assertIn(other.replace(" ", ""), known, page.name)


class Spelling(unittest.TestCase):
    def test_of_all_that_players_read(self):
        texts = [*ManualPages.pages, ENTRY, DESCRIPTION, *ROOT.glob("*.md"),
                 *(ROOT / "docs").glob("*.md")]
        # What the restaurant and the game call theirs.
        self.assertEqual(run("codespell", "--ignore-words-list", "garbonzo,lambergini,sav", *texts,
                             status=None), "")


class StartScript(unittest.TestCase):
    """Installed in a folder with a blank, started by a link, from another folder."""

    def test_starts_the_program_in_the_folder_of_its_sounds(self):
        with tempfile.TemporaryDirectory(prefix="tamlo start ") as folder:
            root = pathlib.Path(folder).resolve()
            sounds, programs = root / "share/games/tamlo-delivery", root / "lib/games/tamlo-delivery"
            for made in (sounds, programs, root / "games", root / "elsewhere"):
                made.mkdir(parents=True)
            (programs / "tamlo").write_text("#!/bin/sh\npwd -P\nexit 7\n")
            (root / "games/tamlo").write_text((PACKAGING / "start/tamlo").read_text())
            for program in (programs / "tamlo", root / "games/tamlo"):
                program.chmod(0o755)
            link = root / "elsewhere/play"
            link.symlink_to(root / "games/tamlo")
            for start in (root / "games/tamlo", link):
                told = run(start, status=7, cwd=root / "elsewhere", env={"PATH": os.defpath})
                self.assertEqual(told, f"{sounds}\n")
            sounds.rmdir()  # the game must be reached all the same, to say what is wrong
            self.assertNotEqual(run(link, status=7, cwd=root / "elsewhere"), "")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
