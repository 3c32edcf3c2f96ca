#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Counts the lines of C++ without blank ones and comments: those of the tests beside all others.

    scripts/count_lines.py [--files]

With --files, each file of the tests has a line, too, the longest first. Files that git does not know count as well.
"""

import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def code_lines(text):
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL)
    return sum(1 for line in text.splitlines() if line.strip() and not line.strip().startswith("//"))


def main():
    listed = subprocess.run(
        ["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp"],
        check=True, capture_output=True).stdout.decode()
    counts = {name: code_lines((ROOT / name).read_text(encoding="utf-8"))
              for name in listed.split("\0") if name and (ROOT / name).is_file()}
    folders = collections.Counter()
    for name, lines in counts.items():
        folders[name.split("/")[0]] += lines
    for folder, lines in sorted(folders.items()):
        print(f"{lines:6d}  {folder}")
    others = sum(folders.values()) - folders["tests"]
    print(f"{others:6d}  all but the tests, which are {100 * folders['tests'] / others:.1f} % of that")
    if "--files" in sys.argv[1:]:
        for name, lines in sorted(counts.items(), key=lambda item: -item[1]):
            if name.startswith("tests/"):
                print(f"{lines:6d}  {name}")


if __name__ == "__main__":
    main()
