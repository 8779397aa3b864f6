#!/usr/bin/env python3
"""Holds what every_preset printed on two systems against each other.

    same_everywhere.py A B [TOLERANCE]

Two numbers differ by |a - b| / max(1, |a|, |b|): up to 1 that is a plain difference, in centimetres, radians and millimetres;
above, where a double has fewer places left, a share of the larger. No difference may be above TOLERANCE, 1e-12 unless said.
"""
import math
import pathlib
import sys

NAMES = ("x", "y", "z", "heading", "pitch", "bank", "focal length", "focus distance")


class Refusal(Exception):
    """Of a file, or of the difference between two."""


def read(file):
    """Title of a preset -> its frames, each a list of numbers."""
    presets = {}
    for place, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        where = f"{file}:{place}"
        if line.startswith("# "):
            frames = presets.setdefault(line[2:], [])
            if frames:
                raise Refusal(f"{where}: found {line[2:]} twice, expected each preset once")
            continue
        try:
            frame = [float(number) for number in line.split()]
        except ValueError:
            frame = []
        if not presets or len(frame) != len(NAMES) or not all(map(math.isfinite, frame)):
            raise Refusal(f'{where}: found "{line}", expected a preset\'s title, then {len(NAMES)} finite numbers a line')
        frames.append(frame)
    if not presets or not all(presets.values()):
        raise Refusal(f"{file}: found a preset without frames or none at all, expected frames of every preset")
    return presets


def difference(a, b):
    return abs(a - b) / max(1, abs(a), abs(b))


def largest_differences(left, right):
    """Of each of NAMES: the difference, and where it is."""
    shape = [(title, len(frames)) for title, frames in left.items()]
    other = [(title, len(frames)) for title, frames in right.items()]
    if shape != other:
        found = next((pair for pair in zip(shape, other) if pair[0] != pair[1]), (len(shape), len(other)))
        raise Refusal(f"found {found[0]} and {found[1]}, expected the same presets with as many frames")
    largest = {name: (0.0, "everywhere") for name in NAMES}
    for title in left:
        for frame, numbers in enumerate(zip(left[title], right[title])):
            for name, a, b in zip(NAMES, *numbers):
                if difference(a, b) > largest[name][0]:
                    largest[name] = (difference(a, b), f"{title}, frame {frame}: {a!r} and {b!r}")
    return largest


def main(left, right, tolerance="1e-12"):
    largest = largest_differences(read(pathlib.Path(left)), read(pathlib.Path(right)))
    for name, (most, where) in largest.items():
        print(f"{name}: {most:.3g} ({where})")
    most = max(most for most, _ in largest.values())
    print(f"largest difference: {most:.3g}")
    if not most <= float(tolerance):
        raise Refusal(f"found a difference of {most:.3g}, expected at most {float(tolerance):g}")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit("same_everywhere: expected A B [TOLERANCE]")
    try:
        main(*sys.argv[1:])
    except (Refusal, OSError, ValueError) as error:
        sys.exit(f"same_everywhere: {error}")
