#!/usr/bin/env python3
"""The site in real browsers, played with real keys, read from its captions, heard in a recording.

    site_test.py [CLASS[.TEST]...]     Chromium and Firefox; all tests, both browsers side by side
"""

import io
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

from browser import PATIENCE, PROJECT, Browser, Display, Site, wait_until
from reader_test import DOWN, ENTER, F5, LEFT, RIGHT, Player  # the path is set by browser
from sound_servers import SoundServer

KEYS = {DOWN: "Down", RIGHT: "Right", LEFT: "Left", ENTER: "Return", F5: "F5", " ": "space"}
QUICK = " 0\n 10\n 100\n 0\n 1\n"  # settings: voice, rate, volumes, gender
AXE = PROJECT / "build/web/npm/node_modules/axe-core/axe.min.js"
CAREER = PROJECT / "fuzz/saved_game/corpus/career.sav"
REHEARSE = PROJECT / "build/tools/tamlo-rehearse"
DELIVERY = 900  # seconds that a first delivery may take on a busy machine


def x_keys(text):
    """The names that xdotool has for keys as a terminal sends them."""
    return [KEYS[text]] if text in KEYS else list(text)


def flipped(content, at):
    """Bytes of which one has become another."""
    return content[:at] + bytes([content[at] ^ 0xFF]) + content[at + 1:]


class InBrowser:
    """The tests of one browser; a display and a sound server serve them all."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="tamlo-")
        cls.display = Display()
        cls.sound = SoundServer(cls.folder.name)

    @classmethod
    def tearDownClass(cls):
        cls.sound.kill()
        cls.display.close()
        cls.folder.cleanup()

    def setUp(self):
        self.site = Site(isolating=self._testMethodName != "test_host_without_headers")
        self.addCleanup(self.site.close)
        self.browser = None

    def open(self, path="", page=0, **options):
        """Opens the browser at a page; the page, ready to begin."""
        self.browser = Browser(self.kind, self.site.address + path, self.display, self.sound, **options)
        self.addCleanup(self.browser.close)
        return self.ready(self.site.page(page))

    def ready(self, page):
        self.browser.focus(page)
        wait_until(lambda: page.run("!document.getElementById('begin').disabled"), "the button")
        page.run("document.getElementById('begin').focus()")
        return page

    def quickly(self, page):
        """Has the voice speak as quickly as it can."""
        page.run(f"import('./store.js').then((s) => s.keep([{{name: 'tamlo.cfg', "
                 f"bytes: new TextEncoder().encode({QUICK!r})}}]))")

    def begin(self, page):
        """Presses the button. Without a window manager a key is lost now and then, which is said."""
        for _ in range(3):
            pressed = self.display.press("Return")
            try:
                wait_until(lambda: page.run("!!tamlo.front.run"), "the press", 5)
                return pressed
            except AssertionError:
                print(f"{self.id()}: a press was lost", flush=True)
                self.browser.focus(page)
                page.run("document.getElementById('begin').focus()")
        self.fail("the button can't be pressed")

    def to_menu(self, page, since=0):
        """Presses the button, cuts the title short, waits for the menu."""
        self.begin(page)
        page.await_line("[title tune]", since)
        time.sleep(0.3)
        self.display.press("space")
        return page.await_line("start game", since)

    def leave(self, page):
        """By the menu's last item."""
        since = len(page.lines)
        self.display.press("Up")
        page.await_line("exit game", since)
        self.display.press("Return")
        page.await_line("exiting program", since)
        page.await_status("The game has ended.")

    def files(self, page):
        return page.run("import('./store.js').then((s) => s.readAll()).then((all) => "
                        "Object.fromEntries(all.map(({name, bytes}) => [name, [...bytes]])))")

    def assert_sound(self, since, what, patience=PATIENCE):
        wait_until(lambda: self.sound.heard(since), what, patience)

    # The game itself.

    def test_first_delivery_to_its_tip(self):
        page = self.open()
        self.quickly(page)
        pressed = self.begin(page)
        self.assert_sound(pressed, "the title")
        player, read, end = Player(), 0, time.monotonic() + DELIVERY
        while not player.tip and time.monotonic() < end:
            lines = page.lines[read:]
            read += len(lines)
            for line in lines:
                if keys := player.answer(line):
                    time.sleep(0.1)
                    self.display.press(*x_keys(keys))
            time.sleep(0.05)
        self.assertTrue(player.tip, page.lines[-30:])
        figures = page.run("tamlo.sound.figures()")
        self.assertEqual(figures["tries"], 0)
        print(f"{self.kind}: a tip of {player.tip}; {figures}", flush=True)
        # A page that goes in mid-game leaves nothing behind that stands in the way of the next.
        self.display.press("F5")
        time.sleep(1)
        self.display.press("ctrl+r")
        self.to_menu(self.ready(self.site.page(1)))

    def test_keys_as_they_are_on_every_layout(self):
        page = self.open()
        self.to_menu(page)
        page.run("(() => { globalThis.codes = []; const run = tamlo.front.run; "
                 "run.press = (code) => codes.push(code); })()")

        def codes_of(*keys):
            page.run("codes.length = 0")
            self.display.press(*keys)
            wait_until(lambda: len(page.run("codes")) >= len(keys), f"{keys}: {page.run('codes')}")
            return page.run("codes")
        self.assertEqual(codes_of("F1", "F2", "F3", "F4", "F5", "F6", "Escape", "BackSpace", "Tab"),
                         [112, 113, 114, 115, 116, 117, 27, 8, 9])
        self.assertEqual(codes_of("Up", "Down", "Left", "Right", "Return", "space", "a", "z", "q", "m", "semicolon"),
                         [38, 40, 37, 39, 13, 32, 65, 90, 81, 77, 186])
        self.assertEqual(codes_of("1", "2", "0", "Shift_L"), [49, 50, 48, 16])
        self.xkb("fr")
        # The key where an American keyboard has Q gives A, and the top row without Shift gives digits.
        self.assertEqual(codes_of("a", "z", "q", "m", "ampersand", "eacute", "agrave", "comma"),
                         [65, 90, 81, 77, 49, 50, 48, 188])
        page.run("codes.length = 0")
        self.display.press("ctrl+a", "alt+a", "f")
        wait_until(lambda: 70 in page.run("codes"), "f")
        self.assertEqual([code for code in page.run("codes") if code not in (16, 17, 18)], [70])

    def xkb(self, layout):
        environment = dict(os.environ, **self.display.environment)
        subprocess.run(["setxkbmap", layout], env=environment, check=True, timeout=PATIENCE)
        if layout != "us":
            self.addCleanup(self.xkb, "us")
        time.sleep(0.5)

    def test_second_tab_is_told(self):
        page = self.open()
        self.to_menu(page)
        self.display.press("Down")  # browsers let a page open another just after a key
        page.run("void window.open('./')")
        second = self.ready(self.site.page(1))
        self.begin(second)
        second.await_status("running already")
        second.await_line("Tamlo Delivery is running already")
        self.display.press("ctrl+w")
        since = len(page.lines)
        self.browser.focus(page)
        self.display.press("Down")
        page.await_line("reed special key instructions", since)

    def test_private_window(self):
        page = self.open(private=True)
        since = self.to_menu(page)
        self.display.press("Up", "Up")
        page.await_line("delete city streets file", since)
        self.assertEqual(page.troubles, [])
        page.run("import('./store.js').then((s) => s.keep([{name: 'tamlo.cfg', bytes: new Uint8Array(3)}]))")
        self.assertIn("tamlo.cfg", self.files(page))

    def test_career_comes_and_goes_as_a_zip(self):
        before = {"tamlo.sav": CAREER.read_bytes(), "tamlolog.txt": b"a day\r\n", "tamlo.cfg": QUICK.encode()}
        packed = io.BytesIO()
        with zipfile.ZipFile(packed, "w", zipfile.ZIP_DEFLATED) as whole:
            for name, content in before.items():
                whole.writestr("tolvane/" + name, content)
        page = self.open()
        self.bring(page, "career.zip", packed.getvalue())
        page.await_status("3 files have taken the place")
        resumed = self.resume(page)
        # It goes on after a reload as well.
        self.display.press("ctrl+r")
        page = self.ready(self.site.page(1))
        self.assertEqual(self.resume(page), resumed)
        page.run("document.getElementById('export').click()")
        out = pathlib.Path(self.browser.downloads, "tamlo-files.zip")
        wait_until(lambda: out.exists() and out.stat().st_size > 100, "the exported zip")
        with zipfile.ZipFile(out) as whole, tempfile.TemporaryDirectory(prefix="tamlo-") as documents:
            self.assertIsNone(whole.testzip())
            whole.extractall(documents)
            after = {path.name: path.read_bytes() for path in pathlib.Path(documents, "tolvane").iterdir()}
            native = subprocess.run([REHEARSE, "--documents", documents, "-"], input=b"press down\n",
                                    capture_output=True, check=True).stdout.decode()
        # Whoever resumes adds a line to the log.
        self.assertTrue(after["tamlolog.txt"].startswith(before["tamlolog.txt"]))
        self.assertEqual([after[name] for name in ("tamlo.sav", "tamlo.cfg")],
                         [before[name] for name in ("tamlo.sav", "tamlo.cfg")])
        self.assertIn(resumed, native)
        # What is no career, or a damaged one, changes nothing.
        for content, why in ((b"no zip", "not a zip file"), (packed.getvalue()[:-40], "not a zip file"),
                             (flipped(packed.getvalue(), 60), "damaged")):
            self.bring(page, "bad.zip", content)
            page.await_status(why)
        self.assertEqual(set(self.files(page)), set(after))

    def resume(self, page):
        """Begins, and leaves; the sentence that tells of the career."""
        self.to_menu(page)
        page.await_line("getting saved game.")
        line = page.await_line("You have been working at the tamlo vorrel")
        self.leave(page)
        return page.lines[line - 1]

    def bring(self, page, name, content):
        """Chooses a file in the page's field for it."""
        page.run(f"""(() => {{
            const files = new DataTransfer();
            files.items.add(new File([Uint8Array.from({list(content)})], '{name}'));
            const field = document.getElementById('import');
            field.files = files.files;
            field.dispatchEvent(new Event('change'));
        }})()""")

    def test_plays_without_a_network(self):
        page = self.open()
        wait_until(lambda: page.run("navigator.serviceWorker.ready.then((r) => r.active?.state === 'activated' "
                                    "&& caches.keys().then((all) => all.length > 0))"), "the kept files")
        self.site.halt()
        self.display.press("ctrl+r")
        time.sleep(5)
        pressed = time.monotonic()
        self.display.press("Return")
        self.assert_sound(pressed, "the title, without a network", 30)
        self.site.go_on()
        again = self.site.page(1)
        again.await_line("[title tune]")

    def test_host_without_headers(self):
        # The page loads itself again, once its service worker can add them.
        self.browser = Browser(self.kind, self.site.address, self.display, self.sound)
        self.addCleanup(self.browser.close)
        page = self.ready(self.site.page(1))
        self.assertTrue(page.run("crossOriginIsolated"))
        self.to_menu(page)

    def test_sound_that_the_browser_stops(self):
        page = self.open()
        since = self.to_menu(page)
        page.run("(() => { tamlo.sound.wake = () => {}; return tamlo.sound.context.suspend(); })()")
        time.sleep(1.5)
        silent = time.monotonic()
        self.display.press("Down", "Down")
        page.await_line("reed special key instructions", since)
        time.sleep(0.5)
        self.assertFalse(self.sound.heard(silent))
        page.run("delete tamlo.sound.wake")
        back = time.monotonic()
        self.display.press("Down")
        self.assert_sound(back, "sound again")
        self.assertEqual(page.run("tamlo.sound.context.state"), "running")

    def test_full_storage_is_told(self):
        page = self.open()
        since = self.to_menu(page)
        page.run("IDBObjectStore.prototype.put = () => { throw new DOMException('full', 'QuotaExceededError'); }")
        self.display.press(*["Down"] * 6)
        page.await_line("choose gender", since)
        self.display.press("Return")
        page.await_line("female", since)
        self.display.press("Return")
        page.await_line("I 'm sorry, but your settings could not be saved.", since)

    def test_page_closed_in_mid_sentence(self):
        page = self.open()
        self.to_menu(page)
        self.display.press("Down", "Return")
        wait_until(lambda: not self.sound.silent_for(0.3), "the instructions")
        page.go("manual.html")
        wait_until(lambda: self.sound.silent_for(1.5), "silence")

    def test_breakdown_is_told(self):
        page = self.open()
        self.to_menu(page)
        files = self.files(page)
        heard = len(page.lines)
        page.run("tamlo.front.run.breakDown('as in a test')")
        page.await_status("has broken down")
        page.await_line("I’m sorry, but Tamlo Delivery has broken down", heard)
        self.assertEqual(self.files(page), files)
        wait_until(lambda: page.run("!document.getElementById('begin').hidden"), "the button")
        self.display.press("Return")
        page.await_line("[title tune]", len(page.lines) and heard)

    def test_lines_for_a_screen_reader(self):
        page = self.open()
        self.assertTrue(page.run("document.getElementById('captions').getAttribute('aria-hidden') === 'true' "
                                 "&& document.getElementById('spoken').hidden"))
        page.run("document.getElementById('to-reader').click()")
        page.run("document.getElementById('begin').focus()")
        self.to_menu(page)
        self.assertIn("start game", page.run("document.getElementById('spoken').textContent"))
        self.assertEqual(page.run("localStorage.length"), 1)

    def test_city_file_in_the_editor(self):
        page = self.open()
        since = self.to_menu(page)
        self.display.press("Up", "Up", "Up")
        page.await_line("edit city streets file", since)
        self.display.press("Return")
        page.await_line("original", since)
        before = bytes(self.files(page)["tamlostreets.txt"])
        self.display.press("Return")
        wait_until(lambda: page.run("document.activeElement.id") == "editor-text", "the editor")
        self.display.press("E", "m", "e", "r", "a", "l", "d")
        page.run("document.querySelector('[data-do=save]').click()")
        wait_until(lambda: page.run("document.activeElement.id") == "game", "the game")
        self.assertEqual(bytes(self.files(page)["tamlostreets.txt"]), b"Emerald" + before)
        since = len(page.lines)
        time.sleep(2)  # the game takes no key for a second
        self.display.press("space")
        page.await_line("start game", since)

    def test_learn_the_sounds(self):
        page = self.open("sounds.html")
        pressed = self.begin(page)
        page.await_line("Learn the sounds of Tamlo Delivery")
        self.assert_sound(pressed, "the welcome")
        self.display.press("Down")
        wait_until(lambda: len(page.lines) > 2, "the first sounds")
        self.display.press("Escape")
        page.await_line("Good bye.")
        page.await_status("The game has ended.")

    def test_speech_and_sound_check(self):
        page = self.open("check.html")
        self.begin(page)
        for name, key in (("F 1", "F1"), ("F 6", "F6"), ("Up Arrow", "Up"), ("Escape", "Escape")):
            page.await_status(f"Press {name}.")
            time.sleep(0.3)
            self.display.press(key)
        page.await_status("All is well")

    def test_accessibility(self):
        page = self.open()
        for number, name in enumerate(("", "sounds.html", "check.html", "manual.html", "licences.html")):
            if number:
                page.go(name)
                page = self.site.page(number)
            time.sleep(1)
            page.run(AXE.read_text() + "; 0")
            found = page.run("axe.run(document).then(({violations}) => violations.map(({id, help, nodes}) => "
                             "`${id}: ${help}: ${nodes[0].html}`))")
            self.assertEqual(found, [], name)


class Chromium(InBrowser, unittest.TestCase):
    kind = "chromium"


class Firefox(InBrowser, unittest.TestCase):
    kind = "firefox"


def main():
    if len(sys.argv) > 1:
        unittest.main(verbosity=2)
    both = [subprocess.Popen([sys.executable, "-B", __file__, name]) for name in ("Chromium", "Firefox")]
    sys.exit(max(one.wait() for one in both))


if __name__ == "__main__":
    main()
