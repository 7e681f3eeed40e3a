"""Which files are the game, and which tests are quick enough to try it again and again."""

import re

FOLDERS = ("text", "game", "speech", "sound", "city", "orders", "driving", "store", "day")
TEST_FOLDERS = ("text", "game", "sound", "city", "day", "store", "scenarios")
NOT_OF_THE_GAME = {"soundsmith_test", "vocabulary_test", "sound_set_test", "captions_test",
                   "doctor_test"}


def sources(root):
    """Relative to `root`."""
    return sorted(str(path.relative_to(root)) for folder in FOLDERS
                  for path in (root / "src" / folder).iterdir() if path.suffix in (".h", ".cpp"))


def quick_tests(root):
    """The names of the test programs: rules, scenarios, files that fail."""
    names = ["disk_faults_test"]
    for folder in TEST_FOLDERS:
        text = (root / "tests" / folder / "CMakeLists.txt").read_text(encoding="utf-8")
        names += re.findall(r"^\s*tamlo_(?:test|scenario)\((\w+)", text, re.MULTILINE)
    return [name for name in names if name not in NOT_OF_THE_GAME]
