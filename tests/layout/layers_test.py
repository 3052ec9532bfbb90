#!/usr/bin/env python3
"""Reads every include line of the library and fails on an edge that goes up or round in a circle,
on a file outside every layer, and on an include of a file that is not there."""

import pathlib
import re
import sys

# Each layer and those it may include beside itself. A folder's layer is the longest name that fits.
LAYERS = {
    "support": set(),
    "core": {"support"},
    "types": {"core", "support"},
    "core/value": {"types", "core", "support"},
    "xml": {"types", "core", "support"},
    "json": {"xml", "core/value", "types", "core", "support"},
    "fastinfoset": {"xml", "core/value", "types", "core", "support"},
    "licence": {"core", "support"},
    "binding": {"licence", "fastinfoset", "json", "xml", "core/value", "types", "core", "support"},
    "xml/untyped": {"binding", "licence", "fastinfoset", "json", "xml", "core/value", "types",
                    "core", "support"},
    "binding/metadata": {"xml/untyped", "binding", "licence", "fastinfoset", "json", "xml",
                         "core/value", "types", "core", "support"},
}
# Edges outside the table, each between two files and for a reason that its own comment tells.
EXCEPTIONS = set()
INCLUDE = re.compile(r'^\s*#\s*include\s*["<](qvxml/[^">]+)[">]')


def layer_of(path):
    folder = str(pathlib.PurePosixPath(path).parent)
    while folder not in LAYERS:
        if folder in (".", ""):
            return None
        folder = str(pathlib.PurePosixPath(folder).parent)
    return folder


def main(root):
    root = pathlib.Path(root)
    faults, edges = [], 0
    for layer, below in LAYERS.items():
        for other in below:
            if layer in LAYERS[other]:
                faults.append(f"the table lets {layer} and {other} include each other")
    files = sorted(p for p in root.rglob("*") if p.suffix in (".h", ".cpp", ".def"))
    for file in files:
        name = file.relative_to(root).as_posix()
        layer = layer_of(name)
        for number, line in enumerate(file.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            edges += 1
            target = match.group(1).removeprefix("qvxml/")
            if not (root / target).exists():
                faults.append(f"{name}:{number}: there is no {target}")
            elif layer is None:
                if name != "qvxml.h":
                    faults.append(f"{name}: lies outside every layer")
            elif layer_of(target) != layer and layer_of(target) not in LAYERS[layer]:
                if (name, target) not in EXCEPTIONS:
                    faults.append(f"{name}:{number}: layer {layer} must not include {target}")
    for fault in faults:
        print(fault)
    print(f"{len(files)} files, {edges} includes, {len(faults)} faults")
    return 1 if faults or edges == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
