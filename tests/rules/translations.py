#!/usr/bin/env python3
"""Each translation has every text of the sources, finished, with the places for what is inserted.

    translations.py TOP     prints one line per violation; exit 1 when there is one
"""
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

SECONDS = 60
# What a property of an item shows or reads out, with at least one word in it.
SHOWN = re.compile(r'\b(?:text|title|message|button|refusal|placeholder|emptyText|Accessible\.\w+):'
                   r' *("(?![^"]*\.qml")[^"]*[A-Za-z]{2}[^"]*")')


def messages(path):
    """The pairs of a text, with its context, and its translation; None for an unfinished one."""
    found = {}
    for context in xml.etree.ElementTree.parse(path).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            text = translation.text if translation.get("type") is None else None
            found[context.findtext("name"), message.findtext("source")] = text
    return found


def inserted(text):
    return sorted(re.findall("%[1-9n]", text))


def compared(name, before, now):
    """The violations of a translation, given its messages and those of its updated copy."""
    found = [f"{name}: the text is not in the sources: {text!r}" for text in before if text not in now]
    for text, translation in now.items():
        if text not in before:
            found.append(f"{name}: the text is missing; run tools/update-translations: {text!r}")
        elif not translation:
            found.append(f"{name}: the text is not translated: {text!r}")
        elif inserted(text[1]) != inserted(translation):
            found.append(f"{name}: the translation inserts something else: {text!r}")
    return found


def unmarked(top):
    """The texts in QML that are shown as they are."""
    found = []
    for file in sorted(glob.glob(os.path.join(top, "window/qml/*.qml"))):
        with open(file, encoding="utf-8") as lines:
            for number, line in enumerate(lines, 1):
                for text in SHOWN.findall(line):
                    found.append(f"{os.path.relpath(file, top)}:{number}: not in qsTr(): {text}")
    return found


def violations(top):
    found = []
    files = sorted(glob.glob(os.path.join(top, "window/translations/*.ts")))
    if not files:
        return ["there is no translation"]
    with tempfile.TemporaryDirectory() as folder:
        for file in files:
            shutil.copy(file, folder)
        subprocess.run([os.path.join(top, "tools/update-translations"), "--folder", folder], check=True, timeout=SECONDS,
                       stdin=subprocess.DEVNULL)
        for file in files:
            name = os.path.basename(file)
            found += compared(name, messages(file), messages(os.path.join(folder, name)))
    return found + unmarked(top)


if __name__ == "__main__":
    lines = violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
