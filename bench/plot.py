#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Puts what vl_bench wrote with --json into docs/performance.md: the tables, and a plot of the first as an SVG.
What the results say nothing of stays as it is.

Usage: plot.py results.json [more.json ...]
"""

import json
import math
import pathlib
import sys

DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"
PICTURE = DOCS / "pictures" / "performance.svg"
PAGE = DOCS / "performance.md"
END = "<!-- end of table -->"
MEMORY = ("memory", "memory_peak")
LIBRARY, WINDOW, PAUSE = "library_", "window_", "pause_"

PANEL_WIDTH, PANEL_HEIGHT = 240, 160
PANELS_PER_ROW = 4
MARGIN = {"left": 62, "top": 28, "right": 26, "bottom": 24}
COLORS = {"median_ms": "#2458b8", "baseline_ms": "#9a4a00"}


def read(paths):
    results = [entry for path in paths for entry in json.loads(pathlib.Path(path).read_text())]
    return sorted(results, key=lambda entry: entry["n"])


def number(value):
    """Three significant digits, without an exponent."""
    if value <= 0:
        return "–"
    return f"{value:.{max(0, 2 - math.floor(math.log10(value)))}f}"


def comparison(entry):
    return f"{number(entry['median_ms'])} / {number(entry['baseline_ms'])} = **{number(entry['ratio'])}**"


def table(results):
    sizes = sorted({entry["n"] for entry in results})
    cells = {(entry["operation"], entry["n"]): entry for entry in results}
    lines = ["| operation | " + " | ".join(f"{size:,}" for size in sizes) + " |", "|---" * (len(sizes) + 1) + "|"]
    for operation in dict.fromkeys(entry["operation"] for entry in results):
        row = []
        for size in sizes:
            entry = cells.get((operation, size))
            row.append(comparison(entry) if entry else "")
        lines.append(f"| {operation} | " + " | ".join(row) + " |")
    return "\n".join(lines)


def library_cell(entry):
    if entry is None:
        return ""
    if entry["operation"].startswith(WINDOW + "memory"):
        return f"{entry['median_ms'] / 2 ** 20:.0f} MiB"
    return comparison(entry) if entry["baseline_ms"] > 0 else number(entry["median_ms"])


def library_table(results):
    """Of one size: the host alone, and with its window."""
    cells = {entry["operation"]: entry for entry in results}
    operations = dict.fromkeys(name.split("_", 1)[1] for name in cells)
    lines = ["| operation | library | with the window |", "|---|---|---|"]
    for operation in operations:
        row = [library_cell(cells.get(part + operation)) for part in (LIBRARY, WINDOW)]
        lines.append(f"| {operation} | " + " | ".join(row) + " |")
    return "\n".join(lines)


def pause_table(results):
    lines = ["| during | longest pause |", "|---|---|"]
    lines += [f"| {entry['operation'][len(PAUSE):]} | {number(entry['median_ms'])} |" for entry in results]
    return "\n".join(lines)


class Panel:
    """One operation over the number of tags, both axes logarithmic."""

    def __init__(self, operation, entries, left, top):
        self.operation, self.entries, self.left, self.top = operation, entries, left, top
        values = [entry[key] for entry in entries for key in COLORS if entry[key] > 0]
        self.low = math.floor(math.log10(min(values)))
        self.high = max(math.ceil(math.log10(max(values))), self.low + 1)
        self.sizes = [math.log10(entry["n"]) for entry in entries]

    def x(self, size):
        span = max(self.sizes[-1] - self.sizes[0], 1e-9)
        inner = PANEL_WIDTH - MARGIN["left"] - MARGIN["right"]
        return self.left + MARGIN["left"] + inner * (math.log10(size) - self.sizes[0]) / span

    def y(self, value):
        inner = PANEL_HEIGHT - MARGIN["top"] - MARGIN["bottom"]
        share = (math.log10(value) - self.low) / (self.high - self.low)
        return self.top + PANEL_HEIGHT - MARGIN["bottom"] - inner * share

    def axes(self):
        right = self.left + PANEL_WIDTH - MARGIN["right"]
        parts = [f'<text x="{self.left + MARGIN["left"]}" y="{self.top + 16}" class="title">{self.operation}</text>']
        for exponent in range(self.low, self.high + 1):
            y = self.y(10 ** exponent)
            parts.append(f'<path d="M{self.left + MARGIN["left"]} {y:.1f}H{right}" class="grid"/>')
            parts.append(f'<text x="{self.left + MARGIN["left"] - 5}" y="{y + 3:.1f}" class="tick" '
                         f'text-anchor="end">{10 ** exponent:g} ms</text>')
        for entry in self.entries:
            parts.append(f'<text x="{self.x(entry["n"]):.1f}" y="{self.top + PANEL_HEIGHT - 8}" class="tick" '
                         f'text-anchor="middle">{entry["n"]:,}</text>')
        return parts

    def lines(self):
        parts = []
        for key, color in COLORS.items():
            points = [(self.x(entry["n"]), self.y(entry[key])) for entry in self.entries if entry[key] > 0]
            path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
            parts.append(f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2"/>')
            parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{color}"/>' for x, y in points]
        return parts


def plot(results):
    timed = [entry for entry in results
             if entry["operation"] not in MEMORY and not entry["operation"].startswith("sections_")]
    operations = list(dict.fromkeys(entry["operation"] for entry in timed))
    rows = math.ceil(len(operations) / PANELS_PER_ROW)
    width, height = PANELS_PER_ROW * PANEL_WIDTH, rows * PANEL_HEIGHT + 26
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" font-family="sans-serif">',
             "<style>.title{font-size:13px;font-weight:bold}.tick{font-size:9px;fill:#555}"
             ".grid{stroke:#ddd;stroke-width:1}</style>",
             f'<rect width="{width}" height="{height}" fill="#fff"/>']
    for index, operation in enumerate(operations):
        entries = [entry for entry in timed if entry["operation"] == operation]
        panel = Panel(operation, entries, index % PANELS_PER_ROW * PANEL_WIDTH, index // PANELS_PER_ROW * PANEL_HEIGHT)
        parts += panel.axes() + panel.lines()
    for left, key, text in ((46, "median_ms", "tag manager window"), (236, "baseline_ms", "one QListView")):
        parts.append(f'<circle cx="{left}" cy="{height - 14}" r="4" fill="{COLORS[key]}"/>')
        parts.append(f'<text x="{left + 10}" y="{height - 10}" font-size="12">{text}</text>')
    return "\n".join(parts + ["</svg>"]) + "\n"


def put(name, text):
    """Replaces the table of that name in the page."""
    before, rest = PAGE.read_text().split(f"<!-- {name} -->", 1)
    PAGE.write_text(before + f"<!-- {name} -->\n\n" + text + "\n\n" + END + rest.split(END, 1)[1])


def main(paths):
    if not paths:
        sys.exit(__doc__)
    results = read(paths)
    pauses = [entry for entry in results if entry["operation"].startswith(PAUSE)]
    library = [entry for entry in results if entry["operation"].startswith((LIBRARY, WINDOW))]
    lists = [entry for entry in results if entry not in pauses and entry not in library]
    if lists:
        PICTURE.parent.mkdir(parents=True, exist_ok=True)
        PICTURE.write_text(plot(lists))
        put("table", table(lists))
    if library:
        put("library table", library_table(library))
    if pauses:
        put("pause table", pause_table(pauses))


if __name__ == "__main__":
    main(sys.argv[1:])
