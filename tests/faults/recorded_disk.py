#!/usr/bin/env python3
"""A disk that remembers in which order it was written: recorded_disk.py IMAGE FOLDER LOG serves the
image as the file FOLDER/disk, and appends to LOG every write and flush that reaches it.
"""

import errno
import os
import pathlib
import stat
import struct
import subprocess
import sys
import time

HEAD = struct.Struct("<BQI")  # write or flush, where, how many bytes
WRITE, FLUSH = 0, 1
NAME = "/disk"
PYTHON = "/usr/bin/python3"  # which sees the system's packages, whatever else is installed


def records(log):
    """The writes (where, bytes) and flushes (nothing) of a log, in their order."""
    at = 0
    while at + HEAD.size <= len(log):
        kind, offset, size = HEAD.unpack_from(log, at)
        at += HEAD.size
        yield (offset, log[at:at + size]) if kind == WRITE else None
        at += size


class RecordedDisk:
    """The served image, from `with` on."""

    def __init__(self, image, work):
        self.image = image
        self.folder = work / "served"
        self.log = work / "writes"
        self.device = None

    def __enter__(self):
        self.folder.mkdir(exist_ok=True)
        self.log.write_bytes(b"")
        self.server = subprocess.Popen([PYTHON, __file__, self.image, self.folder, self.log])
        while not (self.folder / NAME[1:]).exists():
            if self.server.poll() is not None:
                raise RuntimeError("the disk can't be served")
            time.sleep(0.02)
        self.device = subprocess.run(["losetup", "-f", "--show", self.folder / NAME[1:]],
                                     check=True, capture_output=True, text=True).stdout.strip()
        return self

    def __exit__(self, *_):
        if self.device:
            subprocess.run(["losetup", "-d", self.device], check=False)
        # The system may take a moment to let go of the device.
        for _ in range(100):
            if subprocess.run(["umount", self.folder], capture_output=True).returncode == 0:
                break
            time.sleep(0.1)
        else:
            subprocess.run(["umount", "--lazy", self.folder], check=False)
            self.server.kill()
        self.server.wait()


def serve(image, folder, log_path):
    import fusepy as fuse

    class Disk(fuse.Operations):
        def __init__(self):
            self.bytes = bytearray(pathlib.Path(image).read_bytes())
            self.log = open(log_path, "ab", buffering=0)

        def getattr(self, path, fh=None):
            if path == "/":
                return {"st_mode": stat.S_IFDIR | 0o700, "st_nlink": 2}
            if path == NAME:
                return {"st_mode": stat.S_IFREG | 0o600, "st_nlink": 1,
                        "st_size": len(self.bytes)}
            raise fuse.FuseOSError(errno.ENOENT)

        def readdir(self, path, fh):
            return [".", "..", NAME[1:]]

        def read(self, path, size, offset, fh):
            return bytes(self.bytes[offset:offset + size])

        def write(self, path, data, offset, fh):
            self.bytes[offset:offset + len(data)] = data
            self.log.write(HEAD.pack(WRITE, offset, len(data)) + data)
            return len(data)

        def fsync(self, path, datasync, fh):
            self.log.write(HEAD.pack(FLUSH, 0, 0))
            return 0

    fuse.FUSE(Disk(), folder, foreground=True, nothreads=True)


if __name__ == "__main__":
    serve(*(os.path.abspath(argument) for argument in sys.argv[1:4]))
