#!/usr/bin/env python3
"""No source is compiled twice in one build: what is tested are the objects that ship.

    compiledonce.py BUILD-FOLDER     prints one line per source that is; exit 1 when there is one
"""
import collections
import json
import os
import sys


def compiled_twice(commands):
    """The sources with more than one object, and how many they have."""
    counts = collections.Counter(os.path.normpath(os.path.join(command["directory"], command["file"])) for command in commands)
    return {source: count for source, count in counts.items() if count > 1}


def main():
    with open(os.path.join(sys.argv[1], "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    if not commands:
        sys.exit("The build compiles nothing.")
    twice = compiled_twice(commands)
    for source, count in sorted(twice.items()):
        print(f"{source}: compiled {count} times")
    return 1 if twice else 0


if __name__ == "__main__":
    sys.exit(main())
