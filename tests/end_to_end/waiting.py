"""What the tests of programs wait for, and how they end what they started."""

import shutil
import socket
import subprocess
import time
import unittest

PATIENCE = 60  # seconds until a busy machine counts as broken


def need(*tools):
    """Skips the test when one of the tools is not installed."""
    for tool in tools:
        if shutil.which(tool) is None:
            raise unittest.SkipTest(f"{tool} is not installed")


def wait_until(condition, what, patience=PATIENCE):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"waited {patience} s in vain for {what}")
        time.sleep(0.02)


def child_of(process):
    """The number of the first child of a process; none if it has none."""
    done = subprocess.run(["pgrep", "-P", str(process)], capture_output=True, text=True)
    return next((int(number) for number in done.stdout.split()), None)


def listens(path):
    """Whether somebody serves a socket."""
    with socket.socket(socket.AF_UNIX) as door:
        return door.connect_ex(path) == 0


def stop(process):
    if process.poll() is None:
        process.kill()
    process.wait()
    for stream in (process.stdin, process.stdout, process.stderr):
        if stream:
            stream.close()
