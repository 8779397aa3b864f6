"""Recorded and played camera motion as {axis: samples}."""
import csv
import math
import pathlib
import subprocess
import tempfile

import numpy

from levels import AXES

RATE = 24
DEGREES = 180 / math.pi
# Columns of a recording, and what makes centimetres and degrees of them. Right-handed there, left-handed here; levels know no
# sign.
COLUMNS = {"x": ("pos_x", 100), "y": ("pos_y", 100), "z": ("pos_z", 100),
           "heading": ("rot_y", DEGREES), "pitch": ("rot_x", DEGREES), "bank": ("rot_z", DEGREES)}


def read(file):
    """Without the axes that were not recorded."""
    with open(file, encoding="utf-8", newline="") as stream:
        rows = list(csv.DictReader(stream))
    motion = {axis: numpy.array([float(row[name]) for row in rows]) * factor for axis, (name, factor) in COLUMNS.items()}
    return {axis: samples for axis, samples in motion.items() if numpy.ptp(samples) > 0}


def play(program, preset, seed, seconds):
    """What the preset adds to a camera that stands still at the origin."""
    with tempfile.TemporaryDirectory() as folder:
        still, shaken = pathlib.Path(folder) / "still.csv", pathlib.Path(folder) / "shaken.csv"
        rows = ["frame,x,y,z,h,p,b"] + [f"{frame},0,0,0,0,0,0" for frame in range(seconds * RATE)]
        still.write_text("\n".join(rows) + "\n", encoding="utf-8")
        subprocess.run([program, "shake", still, "-o", shaken, "--preset", preset, "--seed", str(seed), "--fps", str(RATE),
                        "--quiet", "--user-folder", folder], check=True, stderr=subprocess.DEVNULL)
        with open(shaken, encoding="utf-8", newline="") as stream:
            rows = list(csv.DictReader(stream))
    return {axis: numpy.array([float(row[name]) for row in rows]) for axis, name in zip(AXES, "xyzhpb")}


def presets(program):
    """"Category/Name" of every built-in preset."""
    import json
    with tempfile.TemporaryDirectory() as folder:
        listed = subprocess.run([program, "presets", "--json", "--user-folder", folder], check=True, capture_output=True)
    return [f"{preset['category']}/{preset['name']}" for preset in json.loads(listed.stdout)["presets"]]
