#!/usr/bin/env python3
"""Copies pages of the documentation into a package's folder, with links that lead somewhere there.

    rewrite_links.py SOURCE TARGET --pages PAGE... [--folders FOLDER...]

SOURCE is the folder of the pages, TARGET where the copies go; the package has the PAGEs, and beside them the FOLDERs. A link to
one of these still leads to it. All others would lead nowhere: what they stand at becomes plain text, and a row of a table that
begins with one is left out. Links to other machines and within a page stay.
"""
import argparse
import os
import posixpath
import re

LINK = re.compile(r"!?\[([^\]]*)\]\(([A-Za-z0-9./_-]+)(#[A-Za-z0-9_-]+)?\)")
ROW = "| "


def place(target, pages, folders):
    """Where in the package's folder the target of a link is; none when it is not there. Pages link to what is beside their own
    folder by "../", and the package has that within."""
    path = posixpath.normpath(target)
    while path.startswith("../"):
        path = path[len("../"):]
    return path if path in pages or path.split("/")[0] in folders else None


def rewritten(text, pages, folders):
    def begins_with_lost_link(line):
        link = LINK.match(line, len(ROW)) if line.startswith(ROW) else None
        return link and not place(link[2], pages, folders)

    def replacement(link):
        found = place(link[2], pages, folders)
        return f"{link[0][:link.start(2) - link.start()]}{found}{link[3] or ''})" if found else link[1]

    kept = "".join(line for line in text.splitlines(keepends=True) if not begins_with_lost_link(line))
    return LINK.sub(replacement, kept)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("source")
    parser.add_argument("target")
    parser.add_argument("--pages", nargs="+", required=True)
    parser.add_argument("--folders", nargs="*", default=[])
    chosen = parser.parse_args()
    os.makedirs(chosen.target, exist_ok=True)
    for page in chosen.pages:
        with open(os.path.join(chosen.source, page), encoding="utf-8") as file:
            text = rewritten(file.read(), chosen.pages, chosen.folders)
        with open(os.path.join(chosen.target, page), "w", encoding="utf-8") as file:
            file.write(text)


if __name__ == "__main__":
    main()
