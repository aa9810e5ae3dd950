#!/usr/bin/env python3
"""Watches the preferences document: counts its replacements, judges its contents, and notices everything else that is done
to it, such as being written in place, or gone for a moment.

Prints "ready", replies to each line of its input with an object: how many "writes" there were so far, how many "generations" it
got to see and the "problems" it found; and ends with its input.
"""
import argparse
import ctypes
import json
import os
import select
import stat
import struct
import sys

import judges

# <sys/inotify.h>
MODIFY, MOVED_FROM, MOVED_TO, CREATE, DELETE, OVERFLOW = 0x2, 0x40, 0x80, 0x100, 0x200, 0x4000
WRONG = {MODIFY: "written in place", MOVED_FROM: "moved away", CREATE: "created in place", DELETE: "removed"}
HEADER = struct.Struct("iIII")

MOST_PROBLEMS = 10


class Watcher:
    def __init__(self, path):
        self.path = path
        folder, self.name = os.path.split(path)
        self.last = None
        self.report = {"writes": 0, "generations": 0, "problems": []}
        libc = ctypes.CDLL(None, use_errno=True)
        self.descriptor = libc.inotify_init1(os.O_NONBLOCK | os.O_CLOEXEC)
        mask = MODIFY | MOVED_FROM | MOVED_TO | CREATE | DELETE
        if self.descriptor < 0 or libc.inotify_add_watch(self.descriptor, os.fsencode(folder), mask) < 0:
            raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")

    def take_events(self):
        """Whatever has happened so far."""
        while select.select([self.descriptor], [], [], 0)[0]:
            data = os.read(self.descriptor, 1 << 16)
            while data:
                _, mask, _, length = HEADER.unpack_from(data)
                name = data[HEADER.size:HEADER.size + length].rstrip(b"\0")
                data = data[HEADER.size + length:]
                self.take_event(mask, os.fsdecode(name))

    def take_event(self, mask, name):
        if mask & OVERFLOW:
            self.problem("more has happened than can be reported")
        if name != self.name:
            return
        if mask & MOVED_TO:
            self.report["writes"] += 1
        else:
            self.problem("the document was " + WRONG[mask & sum(WRONG)])
        self.look()

    def look(self):
        try:
            with open(self.path, "rb") as file:
                status = os.fstat(file.fileno())
                generation = (status.st_ino, status.st_mtime_ns, status.st_size)
                if generation == self.last:
                    return
                data = file.read()
        except OSError as error:
            return self.problem(f"the document cannot be read: {error}")
        self.last = generation
        self.report["generations"] += 1
        if stat.S_IMODE(status.st_mode) != 0o600:
            self.problem(f"its mode is {stat.S_IMODE(status.st_mode):o}")
        if why := judges.document_problem(data):
            self.problem(f"{why}: {data!r}")

    def problem(self, text):
        if len(self.report["problems"]) < MOST_PROBLEMS:
            self.report["problems"].append(text)

    def close(self):
        os.close(self.descriptor)


def main(path):
    watcher = Watcher(path)
    print("ready", flush=True)
    while True:
        ready = select.select([sys.stdin, watcher.descriptor], [], [])[0]
        watcher.take_events()
        if sys.stdin not in ready:
            continue
        lines = os.read(sys.stdin.fileno(), 4096)
        if not lines:
            return
        for _ in range(lines.count(b"\n")):
            print(json.dumps(watcher.report), flush=True)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("document", metavar="DOCUMENT")
    main(parser.parse_args().document)
