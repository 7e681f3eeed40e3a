"""What breaks a rule is found: a small project that keeps all of them, and one breach at a time."""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
SHORT = "".join(f"    value += {number};\n" for number in range(57))
FUNCTION = "// Adds up.\nnamespace tamlo {{\nint Sum(int value) {{\n{}    return value;\n}}\n}}  // namespace tamlo\n"


class Rules(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="tamlo-rules-"))
        self.addCleanup(shutil.rmtree, self.root)
        for name in (".clang-format", ".clang-tidy"):
            shutil.copy(ROOT / name, self.root)
        self.targets = {"tamlo_text": ["src/text/sum.cpp"], "tamlo_system": ["src/linux/system/disk.cpp"]}
        self.write("src/services/clock.h", "#pragma once\n")
        self.write("src/text/sum.cpp", FUNCTION.format(SHORT))
        self.write("src/linux/system/disk.h", "#pragma once\n")
        self.write("src/linux/system/disk.cpp", '#include "linux/system/disk.h"\n')

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def breaches(self, *options):
        build = self.root / "build"
        build.mkdir(exist_ok=True)
        lines = [json.dumps({"name": name, "type": "STATIC_LIBRARY", "folder": str(self.root),
                             "SOURCES": sources, "LINK_LIBRARIES": [],
                             "INTERFACE_LINK_LIBRARIES": [], "TAMLO_OPENS": []})
                 for name, sources in self.targets.items()]
        (build / "targets.jsonl").write_text("\n".join(lines))
        commands = [{"file": str(self.root / source), "directory": str(build),
                     "command": f"c++ -Wall -I{self.root}/src -std=gnu++20 -o x -c {source}"}
                    for sources in self.targets.values() for source in sources]
        (build / "compile_commands.json").write_text(json.dumps(commands))
        done = subprocess.run([sys.executable, ROOT / "scripts/check-rules", self.root, *options],
                              capture_output=True, text=True)
        self.assertIn(done.returncode, (0, 1), done.stderr)
        self.assertEqual(done.returncode == 0, "files keep the rules" in done.stdout)
        return "" if done.returncode == 0 else done.stdout

    def test_what_the_text_shows(self):
        self.assertEqual(self.breaches("--quick"), "")
        pragma = "#pragma once\n"
        for name, text, rule in [
                ("src/text/up.h", pragma + '#include "game/form1.h"\n', "text stands below game"),
                ("src/text/up.h", pragma + '#include "linux/system/disk.h"\n', "stands below linux/system"),
                ("src/attic/box.h", pragma, "no row for the room attic"),
                ("src/city/up.h", pragma + '#include "game/form1.h"\n', "declare Form1 instead"),
                ("src/text/sum.cpp", '#include "services/clock.h"\n', "needs numbers and text only"),
                ("src/text/sum.cpp", "#include <unistd.h>\n", "for every system"),
                ("src/text/sum.cpp", "#ifdef __linux__\n#endif\n", "does not ask for the system"),
                ("src/text/sum.cpp", "#include <SDL2/SDL.h>\n", "does not have PkgConfig::SDL2"),
                ("src/text/long.h", pragma * 401, "longer than 400 lines"),
                ("src/text/sum.cpp", "int  two = 2;\n", "not as clang-format"),
                ("src/text/sum.cpp", "const int kTwo = 2;\n", "without a k"),
                ("src/text/sum.cpp", "const float half = 0.5f;\n", "0.5F"),
                ("src/linux/system/disk.cpp", "std::thread away([] {});\n", "StartThread"),
                ("docs/page.md", "It is done anew.\n", "better again"),
                ("tool.py", "def long():\n" + "    pass\n" * 60, "long is longer than 60")]:
            with self.subTest(rule):
                before = {name: (self.root / name).read_text() if (self.root / name).exists() else None
                          for name in (name, "src/game/form1.h")}
                self.write("src/game/form1.h", pragma)
                self.write(name, text)
                self.assertIn(rule, self.breaches("--quick"))
                for path, old in before.items():
                    (self.root / path).unlink()
                    if old is not None:
                        self.write(path, old)

    def test_a_library_that_is_not_linked(self):
        self.targets["tamlo_speech_libraries"] = ["src/linux/voice/voices.cpp"]
        self.write("src/linux/voice/voices.cpp", '#include "linux/system/disk.h"\n')
        self.assertIn("tamlo_speech_libraries does not link tamlo_system", self.breaches("--quick"))

    @unittest.skipUnless(shutil.which("clang-tidy"), "clang-tidy is not installed")
    def test_what_clang_tidy_finds_is_found_once_more_and_forgotten_when_mended(self):
        self.assertEqual(self.breaches(), "")
        self.write("src/text/sum.cpp", FUNCTION.format(SHORT + "    value += 60;\n" * 3))
        for _ in range(2):
            self.assertIn("function 'Sum' exceeds recommended size", self.breaches())
        self.write("src/text/sum.cpp", FUNCTION.format("    int unused = 0;\n"))
        self.assertIn("unused variable 'unused'", self.breaches())
        self.write("src/text/sum.cpp", FUNCTION.format(SHORT))
        self.assertEqual(self.breaches(), "")


if __name__ == "__main__":
    unittest.main()
