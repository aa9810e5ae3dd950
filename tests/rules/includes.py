#!/usr/bin/env python3
"""Which room may include what: the table of the house's structure, checked on every source file.

    includes.py FOLDER     prints one line per violation; exit 1 when there is one
"""
import os
import re
import sys

# What a line of C++ may name between angle brackets.
STANDARD = set("""
algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts condition_variable coroutine
deque exception execution filesystem format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream
istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf
string string_view strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set
utility valarray variant vector version
cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib
cstring ctime cuchar cwchar cwctype
""".split())

KINDS = [
    ("the standard library", lambda name: name in STANDARD),
    ("Qt", lambda name: re.match(r"Qt?[A-Z]", name)),
    ("GLib", lambda name: re.match(r"(gio|glib|gobject|glib-object)\b", name)),
    ("systemd", lambda name: name.startswith("systemd/")),
    ("curl", lambda name: name.startswith("curl/")),
    ("HTML", lambda name: name == "gumbo.h"),
    ("JSON", lambda name: name.startswith("nlohmann/")),
    ("test tools", lambda name: name.startswith(("gtest/", "gmock/", "benchmark/", "plist/"))),
    ("the operating system", lambda name: True),
]

BELOW_ROOT = ["platform/", "settings/", "specifiers/", "root/SelectedIndex.h"]
EVERYTHING = [""]

# room: what it may include of the project (beginnings of paths), and what else
ROOMS = {
    "platform/foundation": (["platform/foundation/"], ["the standard library"]),
    "platform/ui": (["platform/foundation/", "platform/ui/"], ["the standard library"]),
    "platform/preferences": (["platform/foundation/", "platform/ui/", "platform/preferences/"], ["the standard library"]),
    "platform/services": (["platform/foundation/", "platform/ui/", "platform/services/"], ["the standard library"]),
    "settings": (["platform/foundation/", "platform/services/DeviceInformation.h", "settings/"], ["the standard library"]),
    "specifiers": (["platform/", "settings/", "specifiers/"], ["the standard library"]),
    "passcode": (["platform/", "passcode/"], ["the standard library"]),
    "root": (["platform/", "settings/", "specifiers/", "passcode/", "account/", "apps/", "info/", "root/"],
             ["the standard library"]),
    "account": (BELOW_ROOT + ["apps/", "account/"], ["the standard library"]),
    "apps": (BELOW_ROOT + ["apps/"], ["the standard library"]),
    "info": (BELOW_ROOT + ["info/"], ["the standard library"]),
    "linux": (["platform/", "linux/"], ["the standard library", "the operating system", "GLib", "systemd", "curl", "HTML"]),
    "shell": (["platform/", "settings/", "shell/"], ["the standard library"]),
    "app": (["platform/", "shell/", "app/"], ["the standard library", "Qt"]),
    "cli": (["platform/", "settings/", "shell/", "cli/"], ["the standard library", "the operating system", "JSON"]),
    "manual": (["app/Options.h", "settings/", "cli/", "manual/"], ["the standard library"]),
    "tests": (EVERYTHING, [kind for kind, _ in KINDS]),
    "bench": (EVERYTHING, [kind for kind, _ in KINDS]),
    "fuzz": (EVERYTHING, [kind for kind, _ in KINDS]),
}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SOURCES = (".h", ".cpp", ".c", ".hpp", ".cc")
# Below the top: what was built, and projects of their own, which see what is installed and nothing else.
NOT_OURS = ("build", "examples")


def source_files(top):
    """Paths below `top` of all source files, hidden folders and those that are not ours aside."""
    for folder, folders, files in os.walk(top):
        folders[:] = sorted(f for f in folders if not f.startswith(".") and not (folder == top and f in NOT_OURS))
        for name in sorted(files):
            if name.endswith(SOURCES):
                yield os.path.relpath(os.path.join(folder, name), top)


def room_of(path):
    """The innermost room of the table that the file stands in."""
    folder = os.path.dirname(path)
    while folder and folder not in ROOMS:
        folder = os.path.dirname(folder)
    return folder


def includes_of(top, path):
    with open(os.path.join(top, path), encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if match := INCLUDE.match(line):
                yield number, match.group(1), match.group(2)


def violations(top):
    found = []
    headers = {}
    for path in source_files(top):
        room = room_of(path)
        if not room:
            found.append(f"{path}: stands in no room; add its folder to {os.path.basename(__file__)}")
            continue
        own, others = ROOMS[room]
        for number, bracket, name in includes_of(top, path):
            if bracket == '"':
                headers.setdefault(path, []).append(name)
                if not name.startswith(tuple(own)):
                    found.append(f"{path}:{number}: {room} may not include \"{name}\"")
                elif not os.path.exists(os.path.join(top, name)):
                    found.append(f"{path}:{number}: \"{name}\" is no path from the top folder")
            else:
                kind = next(kind for kind, matches in KINDS if matches(name))
                if kind not in others:
                    found.append(f"{path}:{number}: {room} may not include <{name}> ({kind})")
    return found + circles(headers)


def circles(headers):
    """One line per circle of includes."""
    found, done = [], set()

    def visit(path, trail):
        if path in trail:
            found.append("circle of includes: " + " -> ".join(trail[trail.index(path):] + [path]))
        elif path not in done:
            for name in headers.get(path, []):
                visit(name, trail + [path])
            done.add(path)

    for path in sorted(headers):
        visit(path, [])
    return found


if __name__ == "__main__":
    lines = violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
