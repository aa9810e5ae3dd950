#!/usr/bin/env python3
"""What was built is looked for in no folder that another user may fill, and is hardened where it ships.

    elffiles.py BUILD-FOLDER [--hardened]     prints one line per violation; exit 1 when there is one

Every ELF file of the folder is read with readelf. --hardened: what ships, everything but what tests are made of, has to be hardened.
"""
import os
import re
import subprocess
import sys

# Of tests; compiled without optimisation, which some hardening needs.
TESTS = re.compile(r"(^|/)(test-|fuzz-|[a-z-]*-tests$|bench|contender$)|(^|/)(test-modules|testing|CMakeFiles)/")
# An option of the compiler, and a name that only objects compiled with it need. The shared libraries have occasion for each.
FUNCTIONS = {"-fstack-protector-strong": "__stack_chk_fail", "-D_FORTIFY_SOURCE": r"__\w+_chk\b",
             "-D_GLIBCXX_ASSERTIONS": "__glibcxx_assert_fail"}


def elf_files(top):
    """The executables and shared objects below a folder; objects not yet linked and links aside."""
    for folder, folders, names in os.walk(top):
        folders[:] = sorted(name for name in folders if name != "CMakeFiles")
        for name in sorted(names):
            path = os.path.join(folder, name)
            if not os.path.islink(path) and is_linked(path):
                yield path


def is_linked(path):
    try:
        with open(path, "rb") as file:
            start = file.read(18)
    except OSError:
        return False
    return start[:4] == b"\x7fELF" and start[16:18] in (b"\x02\x00", b"\x03\x00")


def read(path):
    return subprocess.run(["readelf", "--wide", "--dynamic", "--segments", "--dyn-syms", path], capture_output=True, text=True,
                          env=dict(os.environ, LC_ALL="C"), check=True).stdout


def bad_folders(text):
    """Elements of RUNPATH and RPATH that depend on the current folder."""
    found = []
    for _, folders in re.findall(r"\((RUNPATH|RPATH)\)[^[]*\[(.*)\]", text):
        found += [f"\"{folder}\" is not an absolute folder to search for libraries" for folder in folders.split(":")
                  if not re.match(r"/|\$ORIGIN(/|$)", folder)]
    return found


def not_hardened(text):
    found = []
    if not re.search(r"\(FLAGS(_1)?\).*\b(BIND_)?NOW\b", text):
        found.append("names are not bound at the start (-z now)")
    if "GNU_RELRO" not in text:
        found.append("relocated data stays writable (-z relro)")
    if re.search(r"GNU_STACK.* RWE ", text):
        found.append("the stack is executable (-z noexecstack)")
    if "Elf file type is EXEC" in text:
        found.append("a program at fixed addresses (-pie)")
    return found


def without_functions(text):
    return [f"no sign of {option}" for option, name in FUNCTIONS.items() if not re.search(name, text)]


def protects_branches(path):
    """Whether functions begin with the instruction that -fcf-protection puts there."""
    done = subprocess.run(["objdump", "--disassemble", "--section=.text", path], capture_output=True, text=True, check=True)
    return "endbr64" in done.stdout


def violations(top, hardened):
    found, count = [], 0
    for path in elf_files(top):
        count += 1
        name, text = os.path.relpath(path, top), read(path)
        found += [f"{name}: {what}" for what in bad_folders(text)]
        if hardened and not TESTS.search(name):
            found += [f"{name}: {what}" for what in not_hardened(text)]
            if name.startswith("lib/libwardlock-platform.so"):
                found += [f"{name}: {what}" for what in without_functions(text)]
                if os.uname().machine == "x86_64" and not protects_branches(path):
                    found.append(f"{name}: no sign of -fcf-protection")
    return found if count else ["nothing was built"]


def main():
    hardened = "--hardened" in sys.argv
    folders = [word for word in sys.argv[1:] if not word.startswith("--")]
    lines = violations(folders[0], hardened)
    print("\n".join(lines))
    return 1 if lines else 0


if __name__ == "__main__":
    sys.exit(main())
