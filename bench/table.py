#!/usr/bin/env python3
"""Prints one table of the results that the benchmark programs collected.

    table.py RESULTS DOCUMENT

RESULTS is the file that QVXML_BENCH_RESULTS named (see bench/support/comparison.h). Every row tells
all about DOCUMENT, and of the other documents the time relative to their reference. Markdown.
"""
import sys

COLUMNS = ["ms", "relative", "MB/s", "ns/element", "allocations/element", "bytes/element", "peak/text"]


def read(path):
    """{row: {document: cells}} in the order of the file, and the documents' names."""
    rows, documents = {}, []
    with open(path, encoding="utf-8") as file:
        for line in file:
            document, size, elements, row, *values = line.rstrip("\n").split("\t")
            if document not in documents:
                documents.append(document)
            # A reference that several programs measured keeps its first time.
            rows.setdefault(row, {}).setdefault(document, cells(float(size), float(elements), values))
    return rows, documents


def cells(size, elements, values):
    if len(values) == 1:
        return values  # The word why it was skipped.
    ms, relative, allocations, kept, peak = map(float, values)
    an_element = (lambda value: value / elements) if elements else (lambda value: float("nan"))
    return [f"{ms:.2f}", f"{relative:.2f}", f"{size / 1000 / ms:.0f}", f"{an_element(ms * 1e6):.0f}",
            f"{an_element(allocations):.3f}", f"{an_element(kept):.1f}", f"{peak / size:.2f}"]


def full(row, document):
    found = row.get(document, [])
    return found + [""] * (len(COLUMNS) - len(found))


def relative(row, document):
    found = row.get(document, [""])
    return found[1] if len(found) > 1 else found[0]


def main(path, document):
    rows, documents = read(path)
    others = [name for name in documents if name != document]
    table = [[document] + COLUMNS + others]
    table += [[name] + full(row, document) + [relative(row, other) for other in others] for name, row in rows.items()]
    widths = [max(len(line[column]) for line in table) for column in range(len(table[0]))]
    for number, line in enumerate(table):
        first, *rest = zip(line, widths)
        print("| " + " | ".join([first[0].ljust(first[1])] + [text.rjust(width) for text, width in rest]) + " |")
        if number == 0:
            print("|" + "|".join(["-" * (widths[0] + 2)] + ["-" * (width + 1) + ":" for width in widths[1:]]) + "|")


if __name__ == "__main__":
    main(*sys.argv[1:])
