#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The paths that the documentation names are there.

    test_paths.py ROOT
"""

import pathlib
import re
import sys

PAGES = ("README.md", "docs/developer-guide.md")
# What is made by a build or kept by a person.
ELSEWHERE = ("build/", "share/", "~/")


def main():
    root = pathlib.Path(sys.argv[1])
    folders = {path.name for path in root.iterdir() if path.is_dir()}
    missing = []
    for page in PAGES:
        for name in re.findall(r"`([^`\s]+)`|\]\(([^)\s]+)\)", (root / page).read_text(encoding="utf-8")):
            path = (name[0] or name[1]).partition("#")[0].rstrip("/")
            if path.split("/")[0] not in folders or path.startswith(ELSEWHERE) or "/" not in path:
                continue
            if not (root / path).exists():
                missing.append(f"{page}: {path}")
    print("\n".join(missing) or "every path is there")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
