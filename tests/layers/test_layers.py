# SPDX-License-Identifier: MIT
"""Compares the includes of the code with the layers that the developer guide lists.

A file includes its own folder and folders before it in its column. A folder that the guide does not list, or that it
lists and that is not there, is an error.

    test_layers.py ROOT
"""

import pathlib
import re
import sys

GUIDE = pathlib.PurePath("docs", "developer-guide.md")
TOP_FOLDERS = ("plugin", "widgets", "dialogs", "taglist", "pages", "window", "host")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def read_columns(guide):
    """The columns of the guide: name of the column to its folders, lowest first."""
    block = re.search(r"^## Layers$.*?^```$(.*?)^```$", guide, re.MULTILINE | re.DOTALL)
    if not block:
        sys.exit(f"{GUIDE} has no section \"Layers\" with a list")
    columns = {}
    for line in block.group(1).splitlines():
        if not line.strip():
            continue
        column, folder = line.split()[:2]
        columns.setdefault(column, []).append(folder)
    return columns


def sources(root):
    for top in TOP_FOLDERS:
        for pattern in ("*.h", "*.cpp"):
            yield from sorted((root / top).rglob(pattern))


def folder_of(path, folders):
    """The longest listed folder that holds the path; None without one."""
    holding = [folder for folder in folders if path.startswith(folder + "/")]
    return max(holding, key=len, default=None)


def complaints(root):
    columns = read_columns((root / GUIDE).read_text(encoding="utf-8"))
    columns_of = {}
    for column, folders in columns.items():
        for folder in folders:
            columns_of.setdefault(folder, []).append(column)
    for folder in columns_of:
        if not (root / folder).is_dir():
            yield f"{GUIDE} lists {folder}, which is not there"
    for source in sources(root):
        name = source.relative_to(root).as_posix()
        own = source.parent.relative_to(root).as_posix()
        if own not in columns_of:
            yield f"{name}: {GUIDE} does not list the folder {own}"
            continue
        for included in INCLUDE.findall(source.read_text(encoding="utf-8")):
            target = folder_of(included, columns_of)
            if target is None:
                if "/" in included:
                    yield f"{name} includes {included}, which is in no listed folder"
                continue
            allowed = any(
                target in columns[column][: columns[column].index(own) + 1] for column in columns_of[own]
            )
            if not allowed:
                yield f"{name} includes {included}: {target} is not below {own}"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every include leads to the same folder or to one below it")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
