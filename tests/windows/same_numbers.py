#!/usr/bin/env python3
"""Holds the camera files of two demos against each other: the same words, and numbers within 1e-9.

    same_numbers.py FOLDER FOLDER
"""
import pathlib
import re
import sys

WITHIN = 1e-9
NUMBER = re.compile(r"[-+]?\d+(?:\.\d+)?(?:[eE][-+]?\d+)?")


def difference(a, b):
    """The largest difference of two texts' numbers; an end of the program where anything else differs."""
    if NUMBER.sub("#", a) != NUMBER.sub("#", b):
        sys.exit("same_numbers: the texts differ in more than their numbers")
    pairs = zip(NUMBER.findall(a), NUMBER.findall(b))
    return max((abs(float(x) - float(y)) for x, y in pairs), default=0.0)


def main(left, right):
    files = sorted(f.name for f in left.iterdir() if f.suffix in (".csv", ".chan"))
    if not files:
        sys.exit(f"same_numbers: found no camera files in {left}")
    for name in files:
        a, b = (left / name).read_bytes(), (right / name).read_bytes()
        most = difference(a.decode(), b.decode())
        print(f"{name}: {'the same bytes' if a == b else f'differs by {most:.3g} at most'}")
        if most > WITHIN:
            sys.exit(f"same_numbers: {name}: found a difference of {most:g}, expected at most {WITHIN:g}")


main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
