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
    ("vector instructions", lambda name: name == "emmintrin.h"),
    ("Qt", lambda name: re.match(r"Qt?[A-Z]", name)),
    ("GLib", lambda name: re.match(r"(gio|glib|gobject|glib-object)\b", name)),
    ("systemd", lambda name: name.startswith("systemd/")),
    ("curl", lambda name: name.startswith("curl/")),
    ("HTML", lambda name: name == "gumbo.h"),
    ("the screen's library", lambda name: name in ("curses.h", "term.h")),
    ("JSON", lambda name: name.startswith("nlohmann/")),
    ("test tools", lambda name: name.startswith(("gtest/", "gmock/", "benchmark/", "plist/")) or name == "vterm.h"),
    ("the operating system", lambda name: True),
]

STD = ["the standard library"]
POSIX = STD + ["the operating system"]

BASE = ["platform/base"]
VALUES = BASE + ["platform/values"]
FILES = BASE + ["platform/files"]
VERSIONS = FILES + ["platform/versions"]
PLIST = VALUES + ["platform/files", "platform/versions", "platform/plist"]
RUNTIME = PLIST + ["platform/runtime"]
UI = RUNTIME + ["platform/text", "platform/ui"]
PLATFORM = UI + ["platform/preferences", "platform/services"]
BELOW_PAGES = PLATFORM + ["settings", "specifiers"]
SHELL = PLATFORM + ["settings", "settings/history", "shell/screen", "shell/input", "shell/search", "shell/undo", "shell/guard", "shell/device", "shell"]
EVERYTHING = None

# room: the rooms and single headers it may include beside its own, and what else
ROOMS = {
    "platform/base": ([], STD + ["vector instructions"]),
    "platform/values": (BASE, STD),
    "platform/files": (BASE, STD),
    "platform/text": (VALUES, STD),
    "platform/versions": (FILES, STD),
    "platform/plist": (VALUES + VERSIONS, STD),
    "platform/runtime": (PLIST, STD),
    "platform/ui": (RUNTIME + ["platform/text"], STD),
    "platform/preferences": (UI, STD),
    "platform/services": (UI, STD),
    "settings": (RUNTIME + ["platform/text", "platform/services/DeviceInformation.h"], STD),
    "settings/history": (PLIST + ["platform/runtime", "settings"], STD),
    "specifiers": (PLATFORM + ["settings"], STD),
    "passcode": (PLATFORM, STD),
    "apps": (BELOW_PAGES, STD),
    "account": (BELOW_PAGES + ["apps"], STD),
    "info": (BELOW_PAGES, STD),
    "root": (BELOW_PAGES + ["passcode", "account", "apps", "info"], STD),
    "linux/posix": (PLATFORM, POSIX),
    "linux/bus": (PLATFORM + ["linux/posix"], POSIX + ["systemd"]),
    "linux/notifications": (PLATFORM + ["linux/posix", "linux/bus"], POSIX + ["systemd"]),
    "linux/web": (PLATFORM + ["linux/posix"], POSIX + ["curl", "HTML"]),
    "linux/mail": (PLATFORM + ["linux/posix", "linux/bus", "linux/web"], POSIX + ["systemd"]),
    "linux/system": (PLATFORM + ["linux/posix", "linux/bus", "linux/notifications", "linux/web", "linux/mail"], POSIX + ["systemd"]),
    "linux/applist": (PLATFORM, POSIX + ["GLib"]),
    "shell/screen": (PLATFORM + ["settings"], STD),
    "shell/input": (PLATFORM + ["settings", "shell/screen"], STD),
    "shell/search": (PLATFORM + ["settings", "shell/screen", "shell/input"], STD),
    "shell/undo": (PLATFORM + ["settings", "settings/history", "shell/screen", "shell/input"], STD),
    "shell/guard": (PLATFORM + ["settings", "shell/screen"], STD),
    "shell/device": (PLATFORM + ["settings"], STD),
    "shell": (PLATFORM + ["settings", "settings/history", "shell/screen", "shell/input", "shell/search", "shell/undo", "shell/guard", "shell/device"], STD),
    "window/pictures": (PLATFORM, STD + ["Qt"]),
    "window/items": (PLATFORM + ["window/pictures"], STD + ["Qt"]),
    "window/accessibility": (PLATFORM + ["window/items"], STD + ["Qt"]),
    "window/models": (SHELL + ["window/pictures", "window/items"], STD + ["Qt"]),
    "window": (SHELL + ["window/pictures", "window/items", "window/accessibility", "window/models"], STD + ["Qt"]),
    "cli/io": (SHELL, POSIX + ["JSON"]),
    "cli/fullscreen": (SHELL + ["cli/io"], POSIX + ["the screen's library"]),
    "cli/terminal": (SHELL + ["cli/io", "cli/fullscreen"], POSIX),
    "cli/script": (SHELL + ["cli/io"], POSIX + ["JSON"]),
    "cli/command": (SHELL + ["cli/io", "cli/terminal", "cli/script"], POSIX + ["JSON"]),
    "cli/doctor": (SHELL + ["cli/io", "cli/command"], POSIX + ["JSON"]),
    "cli": (["platform/services", "cli/command"], STD),
    "manual": (["window/Options.h", "settings", "cli/io", "cli/command"], STD),
    "tests": (EVERYTHING, [kind for kind, _ in KINDS]),
    "bench": (EVERYTHING, [kind for kind, _ in KINDS]),
    "fuzz": (EVERYTHING, [kind for kind, _ in KINDS]),
}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SOURCES = (".h", ".cpp", ".c", ".hpp", ".cc")
# Below the top: what was built, and projects of their own, which see what is installed and nothing else.
NOT_OURS = ("build", "examples")


def source_files(top):
    """Paths below `top` of all source files, hidden folders and those of other projects aside."""
    for folder, folders, files in os.walk(top):
        folders[:] = sorted(f for f in folders if not f.startswith(".") and not (folder == top and f in NOT_OURS))
        for name in sorted(files):
            if name.endswith(SOURCES):
                yield os.path.relpath(os.path.join(folder, name), top)


def room_of(path):
    """The innermost room of the table that contains the file."""
    folder = os.path.dirname(path)
    while folder and folder not in ROOMS:
        folder = os.path.dirname(folder)
    return folder


def includes_of(top, path):
    with open(os.path.join(top, path), encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if match := INCLUDE.match(line):
                yield number, match.group(1), match.group(2)


def public_headers(top):
    """Paths of the headers that other programs may include: those that a CMakeLists.txt lists as such."""
    found = set()
    for folder in sorted({room.split("/")[0] for room in ROOMS}):
        listed = os.path.join(top, folder, "CMakeLists.txt")
        if os.path.exists(listed):
            with open(listed, encoding="utf-8") as file:
                for call in re.findall(r"wardlock_public_headers\(\s*\S+([^)]*)\)", file.read()):
                    found.update(f"{folder}/{name}" for name in call.split())
    return found


def violations(top):
    found = []
    headers = {}
    public = public_headers(top)
    found += [f"{path}: is a public header, but no file" for path in sorted(public) if not os.path.exists(os.path.join(top, path))]
    for path in source_files(top):
        room = room_of(path)
        if not room:
            found.append(f"{path}: is in no room; add its folder to {os.path.basename(__file__)}")
            continue
        own, others = ROOMS[room]
        for number, bracket, name in includes_of(top, path):
            if bracket == '"':
                if path in public:
                    # Other programs have folders of their own, but none between two of these headers.
                    below = os.path.join(os.path.dirname(path), name)
                    if not os.path.exists(os.path.join(top, below)):
                        found.append(f"{path}:{number}: \"{name}\" is not a path from the public header's own folder")
                        continue
                    name = os.path.normpath(below)
                    if name not in public:
                        found.append(f"{path}:{number}: a public header may not include \"{name}\", which is private")
                headers.setdefault(path, []).append(name)
                if own is not EVERYTHING and os.path.dirname(name) not in own + [room] and name not in own:
                    found.append(f"{path}:{number}: {room} may not include \"{name}\"")
                elif not os.path.exists(os.path.join(top, name)):
                    found.append(f"{path}:{number}: \"{name}\" is not a path from the top folder")
            else:
                kind = next(kind for kind, matches in KINDS if matches(name))
                if kind not in others:
                    found.append(f"{path}:{number}: {room} may not include <{name}> ({kind})")
    return found + circles(headers, "files") + circles(rooms_of(headers), "rooms")


def rooms_of(headers):
    """{room: the others it includes}, without the rooms that may include everything."""
    rooms = {}
    for path, names in headers.items():
        room = room_of(path)
        if ROOMS[room][0] is not EVERYTHING:
            rooms.setdefault(room, set()).update(other for other in map(room_of, names) if other and other != room)
    return rooms


def circles(headers, kind):
    """One line per circle of includes, of files or of rooms."""
    found, done = [], set()

    def visit(path, trail):
        if path in trail:
            found.append(f"circle of {kind}: " + " -> ".join(trail[trail.index(path):] + [path]))
        elif path not in done:
            for name in sorted(headers.get(path, [])):
                visit(name, trail + [path])
            done.add(path)

    for path in sorted(headers):
        visit(path, [])
    return found


if __name__ == "__main__":
    lines = violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
