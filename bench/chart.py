#!/usr/bin/env python3
"""Draws the times of one document, relative to libexpat, as an SVG of bars on standard output.

    chart.py RESULTS DOCUMENT

RESULTS is the file that table.py reads. Bars have a logarithmic scale, since the rows lie between a
fifth of the reference and ten times it.
"""
import math
import sys
from xml.sax.saxutils import escape

from table import read, relative

PEERS = ("pugixml", "libxml2", "gSOAP", "CodeSynthesis", "RapidJSON", "nlohmann")
LABELS, BARS, VALUES, LINE, TOP = 330, 420, 50, 18, 40
TICKS = (0.1, 0.2, 0.5, 1, 2, 5, 10)


def place(value):
    low, high = math.log(TICKS[0]), math.log(TICKS[-1] * 1.3)
    return LABELS + BARS * (math.log(max(value, TICKS[0])) - low) / (high - low)


def bars(path, document):
    rows, _ = read(path)
    for name, row in rows.items():
        try:
            yield name, float(relative(row, document))
        except ValueError:
            continue  # A row of words.


def main(path, document):
    found = list(bars(path, document))
    height = TOP + LINE * len(found) + 10
    print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{LABELS + BARS + VALUES}" height="{height}" '
          'font-family="sans-serif" font-size="12">')
    print('<rect width="100%" height="100%" fill="white"/>')
    for tick in TICKS:
        x = place(tick)
        print(f'<line x1="{x:.1f}" x2="{x:.1f}" y1="{TOP - 8}" y2="{height - 8}" '
              f'stroke="{"#333" if tick == 1 else "#ddd"}"/>')
        print(f'<text x="{x:.1f}" y="{TOP - 14}" text-anchor="middle" fill="#333">{tick:g}</text>')
    for number, (name, value) in enumerate(found):
        y = TOP + LINE * number
        colour = "#999999" if name.startswith(PEERS) else "#777799" if number == 0 else "#2266aa"
        print(f'<text x="{LABELS - 8}" y="{y + 11}" text-anchor="end" fill="#111">{escape(name)}</text>')
        print(f'<rect x="{LABELS}" y="{y}" width="{max(place(value) - LABELS, 1):.1f}" height="{LINE - 5}" '
              f'fill="{colour}"/>')
        print(f'<text x="{place(value) + 5:.1f}" y="{y + 11}" fill="#111">{value:.2f}</text>')
    print("</svg>")


if __name__ == "__main__":
    main(*sys.argv[1:])
