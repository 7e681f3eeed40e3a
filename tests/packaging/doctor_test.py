"""tamlo-doctor as a player without sound, display and answers has it."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "end_to_end"))
import damaged_voices  # noqa: E402

BUILD = pathlib.Path(sys.argv[2])
NO_SOUND = {"PULSE_SERVER": "unix:/nonexistent", "PIPEWIRE_REMOTE": "nonexistent",
            "ALSA_CONFIG_PATH": "/dev/null"}


class Doctor(unittest.TestCase):
    def test_tells_and_writes_what_is_wrong(self):
        with tempfile.TemporaryDirectory(prefix="tamlo-doctor-") as folder:
            home = pathlib.Path(folder)
            files = home / "Documents/tolvane"
            files.mkdir(parents=True)
            (files / "tamlo.cfg").write_bytes(b" 1\r\n 10\r\n 100\r\n 0\r\n 1\r\n")  # quickly
            done = subprocess.run([BUILD / "tools/tamlo-doctor"], stdin=subprocess.DEVNULL,
                                  cwd="/", capture_output=True, text=True, timeout=100,
                                  env={"HOME": folder, "LANG": "de_DE.UTF-8", **NO_SOUND})
            self.assertEqual(done.returncode, 1, done)
            report = home / ".local/state/tamlo/doctor.txt"
            for words in ("No sound card answers", "All 93 sound files are in order.",
                          "You hear number 2, British man.",
                          "something has to be mended: the sound card.",
                          f"is the file {report}. Good bye."):
                self.assertIn(words, done.stdout)
            for words in ("Fault. No sound card answers", "LANG: de_DE.UTF-8", "Plays in: a pipe",
                          "Voice: 2, British man", "folder ~/Documents/tolvane, and can be"):
                self.assertIn(words, report.read_text())
            self.assertNotIn(folder, report.read_text())
            self.assertEqual([file.name for file in files.iterdir()], ["tamlo.cfg"])

    def test_names_damaged_voices(self):
        source = damaged_voices.data_folder()
        if source is None:
            self.skipTest("the voice data are not installed")
        with tempfile.TemporaryDirectory(prefix="tamlo-doctor-") as folder:
            damaged_voices.copy_with(source, folder, "phontab", b"")
            damaged_voices.settings(folder)
            done = subprocess.run([BUILD / "tools/tamlo-doctor"], stdin=subprocess.DEVNULL,
                                  cwd="/", capture_output=True, text=True, timeout=200,
                                  env={"HOME": folder, "ESPEAK_DATA_PATH": folder, **NO_SOUND})
            self.assertEqual(done.returncode, 1, done)
            self.assertIn("Install the package espeak-ng-data again.", done.stdout)
            done = subprocess.run([BUILD / "tools/tamlo-city", "check", "original"], timeout=100,
                                  env={"HOME": folder, "ESPEAK_DATA_PATH": folder},
                                  capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, done)
            self.assertIn("does not work, so the sound of names was not compared", done.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
