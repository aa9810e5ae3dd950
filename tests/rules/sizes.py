#!/usr/bin/env python3
"""How long a file may be: headers 150 lines, sources 300; tests aside.

    sizes.py FOLDER     prints one line per violation; exit 1 when there is one
"""
import os
import sys

from includes import source_files

HEADER = 150
SOURCE = 300


def violations(top):
    found = []
    for path in source_files(top):
        if path.startswith("tests/"):
            continue
        with open(os.path.join(top, path), encoding="utf-8") as file:
            lines = sum(1 for _ in file)
        limit = HEADER if path.endswith((".h", ".hpp")) else SOURCE
        if lines > limit:
            found.append(f"{path}: {lines} lines, {limit} allowed; split it by purpose")
    return found


if __name__ == "__main__":
    lines = violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
