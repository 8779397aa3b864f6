#!/usr/bin/env python3
"""Holds the numbers that every_preset printed on two targets against each other.

same_everywhere.py FILE OTHER_FILE
"""

import math
import sys

# Sine, cosine and power are each C library's own; everything else is the same.
LARGEST_DIFFERENCE = 1e-12
PRESETS = 64
NUMBERS = 270 * 8


def read(file):
    presets = {}
    with open(file, encoding="utf-8") as lines:
        for line in lines:
            name, *numbers = line.rstrip("\n").split("\t")
            if len(numbers) != NUMBERS or name in presets:
                sys.exit(f"{file}: {name}: found {len(numbers)} numbers, expected {NUMBERS}, of each preset once")
            presets[name] = [float(number) for number in numbers]
    if len(presets) != PRESETS:
        sys.exit(f"{file}: found {len(presets)} presets, expected {PRESETS}")
    return presets


def main(file, other_file):
    presets, others = read(file), read(other_file)
    if presets.keys() != others.keys():
        sys.exit(f"{other_file}: found other presets than in {file}: {sorted(presets.keys() ^ others.keys())}")
    largest, where = 0.0, "nowhere"
    for name, numbers in presets.items():
        for index, (number, other) in enumerate(zip(numbers, others[name])):
            # One that is no number differs from everything.
            difference = abs(number - other) if math.isfinite(number) and math.isfinite(other) else math.inf
            if difference > largest:
                largest, where = difference, f"{name}, frame {index // 8}, number {index % 8}"
    if largest > LARGEST_DIFFERENCE:
        sys.exit(f"{other_file}: {where}: differs by {largest:.3g}, expected at most {LARGEST_DIFFERENCE:g}")
    print(f"{len(presets)} presets, {len(presets) * NUMBERS} numbers: the largest difference is {largest:.3g} ({where})")


if __name__ == "__main__":
    main(*sys.argv[1:])
