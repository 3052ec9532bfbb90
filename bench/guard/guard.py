#!/usr/bin/env python3
"""Compares the instructions of small fixed workloads, counted by callgrind, with the recorded counts.

Instructions do not depend on what else the machine does, nor, with the C library kept from choosing
code by processor, much on which machine it is. They do depend on the compiler: with another one than
the counts were recorded with nothing is compared. Exit codes: 0, 1 for a workload that takes more than
MARGIN more, 77 when nothing was compared.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

WORKLOADS = ("load", "FromXml", "ToXml", "Json", "FastInfoset")
MARGIN = 0.05
SKIPPED = 77
# Otherwise memcpy and its like are those of the processor at hand.
TUNABLES = ("glibc.cpu.hwcaps=-AVX512F,-AVX512VL,-AVX2,-AVX,-SSE4_2,-SSE4_1,-SSSE3,-ERMS,-FSRM,"
            "-BMI2,-LZCNT,-MOVBE,-RTM")


def skip(reason):
    print(f"guard: skipped: {reason}")
    sys.exit(SKIPPED)


def count(program, document, workload):
    with tempfile.TemporaryDirectory() as folder:
        command = ["valgrind", "--tool=callgrind", "--collect-atstart=no",
                   "--toggle-collect=GuardedWork", f"--callgrind-out-file={folder}/out",
                   program, document, workload]
        done = subprocess.run(command, env={**os.environ, "GLIBC_TUNABLES": TUNABLES},
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        found = re.search(r"Collected : (\d+)", done.stdout)
        if done.returncode != 0 or not found or found.group(1) == "0":
            sys.exit(f"guard: {' '.join(command)} failed:\n{done.stdout}")
        return int(found.group(1))


def read_counts(path):
    """The recorded compiler and counts."""
    with open(path, encoding="utf-8") as lines:
        rows = [line.split("\t") for line in lines.read().splitlines() if not line.startswith("#")]
    values = dict(rows)
    return values.pop("compiler"), {name: int(value) for name, value in values.items()}


def write_counts(path, compiler, counts):
    with open(path, "w", encoding="utf-8") as file:
        file.write("# Instructions of bench/guard/workloads.cpp. Written by scripts/guard --update.\n")
        file.write(f"compiler\t{compiler}\n")
        for name, value in counts.items():
            file.write(f"{name}\t{value}\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--update", action="store_true")
    arguments = parser.parse_args()
    folder = os.path.dirname(os.path.abspath(__file__))
    path = os.path.join(folder, "counts.tsv")
    if shutil.which("valgrind") is None:
        skip("valgrind is not installed")
    recorded = {}
    if not arguments.update:
        if not os.path.exists(path):
            skip("no counts are recorded yet; scripts/guard --update records them")
        compiler, recorded = read_counts(path)
        if compiler != arguments.compiler:
            skip(f"the counts are those of {compiler}, this is {arguments.compiler}")
    counts = {}
    slower = []
    for name in WORKLOADS:
        counts[name] = count(arguments.program, os.path.join(folder, "orders.xml"), name)
        change = counts[name] / recorded[name] - 1 if name in recorded else 0
        print(f"{name:12} {counts[name]:>12} instructions  {change:+.1%}")
        if name not in recorded and not arguments.update or change > MARGIN:
            slower.append(name)
        elif change < -MARGIN:
            print(f"{'':12} faster: scripts/guard --update keeps it so")
    if arguments.update:
        write_counts(path, arguments.compiler, counts)
        print(f"recorded in {os.path.relpath(path)}")
    if slower:
        sys.exit(f"guard: more than {MARGIN:.0%} slower, or not recorded: {', '.join(slower)}\n"
                 "If that is on purpose: scripts/guard --update")


if __name__ == "__main__":
    main()
