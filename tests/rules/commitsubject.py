#!/usr/bin/env python3
"""The newest commit's message: a subject `room: verb and noun`, and a body where many files change.

    commitsubject.py FOLDER     prints one line per violation; exit 1 when there is one

Without git, outside the top of a repository, or before the first commit there is nothing to check. Whether the first
word after the room is an imperative, and whether the body says why, is for the reviewer.
"""
import os
import re
import subprocess
import sys

LONGEST = 72
# More files than this need a reason in the body.
FILES_WITHOUT_BODY = 5
# Rooms of a subject that are not folders: what concerns every room, and how everything is built.
EVERYWHERE = {"house", "build"}
SUBJECT = re.compile(r"(?P<rooms>[a-z][a-z0-9/-]*(, [a-z][a-z0-9/-]*)*): [a-z][^ ]* [^ ].*[^.]")


def violations(message, rooms, files):
    """`rooms` are the names that a subject may begin with, `files` is how many files the commit changes."""
    subject, _, rest = message.partition("\n")
    found = []
    match = SUBJECT.fullmatch(subject)
    if len(subject) > LONGEST:
        found.append(f"the subject has {len(subject)} characters, {LONGEST} allowed")
    if not match:
        found.append("the subject is not of the form \"room: verb and noun\", without a full stop")
    else:
        found += [f"\"{room}\" is not a room" for room in match["rooms"].split(", ") if room not in rooms]
    blank, _, body = rest.partition("\n")
    if blank.strip():
        found.append("the line below the subject is not empty")
    if files > FILES_WITHOUT_BODY and not body.strip():
        found.append(f"{files} files change, but no body says why")
    return [f"{line}: {subject}" for line in found]


def git(top, *arguments):
    """What git prints, or None where there is no git or it fails."""
    environment = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}
    try:
        run = subprocess.run(["git", "-C", top, *arguments], env=environment, capture_output=True, check=False)
    except FileNotFoundError:
        return None
    return run.stdout.decode(errors="replace") if run.returncode == 0 else None


def rooms_of(folders):
    """Each folder by its path and by its last name: "platform/plist" is "plist" too."""
    return EVERYWHERE | set(folders) | {folder.rsplit("/", 1)[-1] for folder in folders}


def newest_violations(top):
    toplevel = git(top, "rev-parse", "--show-toplevel")
    if toplevel is None or os.path.realpath(toplevel.rstrip("\n")) != os.path.realpath(top):
        return []
    message = git(top, "log", "-1", "--no-merges", "--format=%H%n%B")
    if not message:
        return []
    commit, _, text = message.partition("\n")
    folders = git(top, "ls-tree", "-r", "-d", "--name-only", commit).splitlines()
    # The first commit, or the only one of a shallow clone, has nothing to be compared with: no files are listed.
    files = git(top, "diff-tree", "-r", "-M", "--no-commit-id", "--name-only", commit).splitlines()
    return violations(text.strip("\n"), rooms_of(folders), len(files))


if __name__ == "__main__":
    lines = newest_violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
