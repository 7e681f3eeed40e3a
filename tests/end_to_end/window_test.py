"""The window by itself, on a real display: keys, the message box, and every way it is closed."""

import os
import signal
import sys
import time

from machine import Case, Display, Program, main
from waiting import wait_until

PROBE = sys.argv[1]
AT_ONCE = 2  # seconds on a busy machine; a quiet one takes some milliseconds


class Window(Case):
    def setUp(self):
        super().setUp()
        self.display = self.own(Display())

    def probe(self, *arguments):
        program = self.own(Program([PROBE, *arguments], self.folder, self.display.environment))
        program.line("shown")
        return program

    def keys(self, program):
        return [int(line.split()[1]) for line in program.lines if line.startswith("key")]

    def test_keys_arrive_as_virtual_key_codes(self):
        program = self.probe("turns")
        self.display.press("a", "5", "Return", "KP_Enter", "Shift_R", "Left", "Up", "F1", "KP_1",
                           "period", "Escape")
        program.line("key 27 ")
        self.assertEqual(self.keys(program), [65, 53, 13, 13, 16, 37, 38, 112, 35, 190, 27])

    def test_a_held_key_repeats(self):
        program = self.probe("turns")
        self.display.xdotool("keydown", "Down")
        for _ in range(3):
            program.line("key 40 ")
        self.display.xdotool("keyup", "Down")

    def test_keys_wait_while_the_game_takes_no_turn(self):
        program = self.probe("blocked", "3")
        self.display.press("b", "c")
        program.line("unblocked")
        program.line("key 67 ")
        self.assertEqual(program.lines[-3:], ["unblocked", "key 66 0", "key 67 0"])

    def test_the_message_box_shows_a_text_until_it_is_answered(self):
        for answer in ("Return", "KP_Enter", "space", "Escape"):
            program = self.probe("message", "one\rtwo")
            program.line("one")
            program.line("two")
            self.display.press("x", answer, "b")
            program.line("closed")
            self.assertEqual(program.lines.count("said"), 2, "once for itself, once for the x")
            program.line("key 66 ")
            self.assertEqual(self.keys(program), [66])
            program.close()

    def test_lines_are_seen(self):
        white, yellow = 0xFFFFFF, 0xFFFF00
        self.assertEqual(self.display.pixels(white) + self.display.pixels(yellow), 0)
        program = self.probe("line", "turn left, west")
        wait_until(lambda: self.display.pixels(white) > 500, "the line")
        self.assertEqual(self.display.pixels(yellow), 0)
        program.close()
        self.probe("line", "[tram, left to right]")
        wait_until(lambda: self.display.pixels(yellow) > 500, "the caption")

    def test_it_ends_at_once_from_any_wait(self):
        ways = {
            "SIGTERM": lambda program: program.process.send_signal(signal.SIGTERM),
            "SIGINT": lambda program: program.process.send_signal(signal.SIGINT),
            "SIGHUP": lambda program: program.process.send_signal(signal.SIGHUP),
            "destroyed": lambda _: self.display.xdotool("search", "--name", "Tamlo", "windowclose"),
            "killed": lambda _: self.display.xdotool("search", "--name", "Tamlo", "windowkill"),
        }
        for wait in (["turns"], ["blocked", "600"], ["message", "text"]):
            for way, act in ways.items():
                with self.subTest(wait=wait[0], way=way):
                    program = self.probe(*wait)
                    time.sleep(0.1)
                    act(program)
                    begin = time.monotonic()
                    self.assertEqual(program.ended(), 0)
                    self.assertLess(time.monotonic() - begin, AT_ONCE)

    def test_it_ends_though_it_is_stuck(self):
        program = self.probe("stuck")
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.ended(), -signal.SIGTERM)

    def test_it_takes_most_of_the_screen(self):
        program = self.probe("turns")
        geometry = self.display.xdotool("search", "--name", "Tamlo", "getwindowgeometry").stdout
        self.assertIn(f"{1024 * 4 // 5}x{768 * 4 // 5}", geometry)
        program.close()

    def test_a_lost_display_ends_it(self):
        program = self.probe("turns")
        self.display.close()
        self.assertEqual(program.ended(), 0)
        program.line("The display has gone")

    def test_waiting_costs_nothing(self):
        program = self.probe("turns")
        time.sleep(0.5)
        before = program.cpu_seconds()
        time.sleep(3)
        self.assertLess(program.cpu_seconds() - before, 0.03)


class NoWindow(Case):
    def test_the_reason_is_told(self):
        for environment, reason in (({}, "there is no display"),
                                    ({"DISPLAY": ":60999"}, "cannot be opened")):
            program = self.own(Program([PROBE], self.folder, environment))
            program.line(reason)
            self.assertEqual(program.ended(), 1)

    def test_a_driver_named_in_the_environment_stands(self):
        program = self.own(Program([PROBE], self.folder, {"SDL_VIDEODRIVER": "dummy"}))
        program.line("shown")
        os.kill(program.process.pid, signal.SIGTERM)
        self.assertEqual(program.ended(), 0)


if __name__ == "__main__":
    main()
