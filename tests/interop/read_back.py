#!/usr/bin/python3
"""Holds tables that were read from Blender's own glTF against the matrices that Blender had: read_back.py MATRICES.csv TABLE.json...

To 1e-5 in metres and in the axes, and 1e-4 mm of the lens of 50 mm. The matrices are built from position and angles here, apart from
the program's own code: R = Ry(h) Rx(p) Rz(-b), mirrored in z, then +90 degrees about x.
"""
import json
import math
import sys


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def turn(axis, degrees):
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return {"x": [[1, 0, 0], [0, c, -s], [0, s, c]], "y": [[c, 0, s], [0, 1, 0], [-s, 0, c]],
            "z": [[c, -s, 0], [s, c, 0], [0, 0, 1]]}[axis]


def matrix_of(frame):
    (x, y, z), (h, p, b) = frame["position"], frame["hpb"]
    axes = product(turn("x", 90), product(turn("y", h), product(turn("x", p), turn("z", -b))))
    return [axes[i] + [(x, z, y)[i] / 100] for i in range(3)]


def main(matrices, *tables):
    with open(matrices, encoding="utf-8") as lines:
        expected = [[float(number) for number in line.split(",")] for line in lines]
    for table in tables:
        with open(table, encoding="utf-8") as file:
            move = json.load(file)
        frames = move["frames"]
        assert len(frames) == len(expected), f"{table}: {len(frames)} frames, expected {len(expected)}"
        worst = max(abs(matrix_of(frame)[i][j] - numbers[4 * i + j])
                    for frame, numbers in zip(frames, expected) for i in range(3) for j in range(4))
        lens = max(abs(frame["focal_length"] - 50) for frame in frames)
        print(f"interop: {table.rsplit('/', 1)[-1]} from Blender: {len(frames)} frames from {frames[0]['frame']} on at "
              f"{move['frames_per_second']}, world matrix within {worst:.1e}, lens within {lens:.1e} mm")
        assert worst <= 1e-5 and lens <= 1e-4, f"{table}: more than 1e-5 away"


main(*sys.argv[1:])
