"""Real key events, sent by this process itself: no other has to start or to be waited for."""

import ctypes
import time

KEYSYMS = {"Return": 0xff0d, "Escape": 0xff1b, "space": 0x20, "Up": 0xff52, "Down": 0xff54}


class Keyboard:
    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtst = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XKeysymToKeycode.argtypes = (ctypes.c_void_p, ctypes.c_ulong)
        self.x11.XFlush.argtypes = (ctypes.c_void_p,)
        self.xtst.XTestFakeKeyEvent.argtypes = (ctypes.c_void_p, ctypes.c_uint, ctypes.c_int,
                                                ctypes.c_ulong)
        self.display = self.x11.XOpenDisplay(display.name.encode())
        self.codes = {name: self.x11.XKeysymToKeycode(self.display, symbol)
                      for name, symbol in KEYSYMS.items()}

    def press(self, key):
        """Presses and releases a key; returns the time of the press."""
        self.down(key)
        pressed = time.monotonic()
        self.flush()
        self.up(key)
        return pressed

    def down(self, key):
        self.xtst.XTestFakeKeyEvent(self.display, self.codes[key], 1, 0)

    def up(self, key):
        self.xtst.XTestFakeKeyEvent(self.display, self.codes[key], 0, 0)
        self.flush()

    def flush(self):
        self.x11.XFlush(self.display)
