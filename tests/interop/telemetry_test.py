#!/usr/bin/env python3
"""Holds what the program reads of an action camera's files against the reader that these cameras' users have (of npm): every
sample, bit by bit.

    telemetry_test.py PROGRAM

The files lie in the folder that TREMOLUX_GYRO names. Without it, or where npm cannot fetch the reader, the test is passed over
(exit status 77).
"""

import json
import os
import subprocess
import sys
import tempfile

READERS = ["gopro-telemetry@1.2.11", "gpmf-extract@0.3.3"]
SKIPPED = 77

# The reader's columns as (z, x, y), to the picture's x, y and z. It takes a matrix by its columns, not its rows: in files that
# have one, its x and z are turned round.
WITH_MATRIX = lambda z, x, y: [x, -z, y]
WITHOUT_MATRIX = lambda z, x, y: [-x, z, y]
FILES = {"max-heromode.mp4": (WITH_MATRIX, 2082), "hero5.raw": (WITHOUT_MATRIX, 399), "Fusion.raw": (WITHOUT_MATRIX, 3300)}
SENSORS = {"GYRO": "gyro", "ACCL": "accelerometer"}


def skip(why):
    print(f"telemetry: {why}: passed over")
    sys.exit(SKIPPED)


def own_samples(program, file, sensor):
    text = subprocess.run([program, "inspect", file, "--samples", sensor], check=True, capture_output=True, text=True).stdout
    rows = [line.split(",") for line in text.splitlines()]
    assert rows[0] == ["t", "x", "y", "z"], rows[0]
    return [[float(number) for number in row[1:]] for row in rows[1:]]


def main(program):
    folder = os.environ.get("TREMOLUX_GYRO")
    if not folder:
        skip("TREMOLUX_GYRO is not set")
    here = os.path.dirname(os.path.abspath(__file__))
    with tempfile.TemporaryDirectory() as place:
        command = ["npm", "install", "--silent", "--no-audit", "--no-fund", "--prefix", place, *READERS]
        try:
            fetched = subprocess.run(command, capture_output=True, timeout=120, check=False).returncode == 0
        except (OSError, subprocess.TimeoutExpired):
            fetched = False
        if not fetched:
            skip("npm is missing or cannot fetch the reader")
        for name, (picture, count) in FILES.items():
            file = os.path.join(folder, name)
            command = ["node", os.path.join(here, "telemetry.js"), file, *SENSORS]
            environment = {**os.environ, "NODE_PATH": os.path.join(place, "node_modules")}
            theirs = json.loads(subprocess.run(command, check=True, capture_output=True, text=True, env=environment).stdout)
            assert len(theirs["GYRO"]) == count, f"{name}: {len(theirs['GYRO'])} samples, expected {count}"
            for key, sensor in SENSORS.items():
                ours = own_samples(program, file, sensor)
                expected = [picture(*sample) for sample in theirs[key]]
                differing = sum(a != b for a, b in zip(ours, expected))
                print(f"telemetry: {name}: {sensor}: {len(ours)} samples, {differing} differ")
                if len(ours) != len(expected) or differing:
                    sys.exit(f"telemetry: {name}: {sensor}: expected the reader's {len(expected)} samples")


if __name__ == "__main__":
    main(*sys.argv[1:])
