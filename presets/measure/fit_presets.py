#!/usr/bin/python3
"""Fits the presets of aims.py anew and rewrites their files: settings, what was aimed at, and what they play.

    fit_presets.py PROGRAM RECORDINGS [NAME ...]

PROGRAM is the built tremolux. Each aim is made into a minute of noise with its levels, to which `tremolux fit` fits; what else
a preset sets stays.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

import numpy

from aims import ADDED_POSITIONS, AIMS, PUBLISHED
from measure_presets import FOLDER, all_presets
from motion import AXES, UNITS, band_rms, play, read_recording

sys.path.insert(0, str(FOLDER / "realism"))
import levels as realism  # noqa: E402

RATE, SECONDS, TAKES = 24, 60, 8
FITTED = ("Shake Speed", "Speed Variation", "Shake Smooth", "Seed", "Position Intensity", "Rotation Intensity", "Position Slow",
          "Position Medium", "Position Fast", "Rotation Slow", "Rotation Medium", "Rotation Fast", "X", "Y", "Z", "H", "P", "B")
IDS = dict(zip((6152, 6149, 6158, 6142, 6020, 6021, 6024, 6025, 6026, 6028, 6029, 6030, 6076, 6077, 6078, 6100, 6101, 6102),
               FITTED))
CENTRES = (0.35, 2.0, 7.0)  # hertz, where a band's density is taken


def levels_of(recordings, base):
    if base in PUBLISHED:
        return PUBLISHED[base]
    motion = read_recording(recordings / base)
    found = {axis: tuple(realism.band_rms(samples, RATE)) for axis, samples in motion.items()}
    return {**ADDED_POSITIONS.get(base, {}), **found}


def noise_with(level, random):
    """A minute of noise with these RMS in the bands: a density that is straight between their centres, both logarithmic."""
    count = SECONDS * RATE
    hertz = numpy.fft.rfftfreq(count, 1 / RATE)
    density = [rms ** 2 / (high - max(low, 0.1)) for rms, (low, high) in zip(level, realism.BANDS)]
    shape = numpy.zeros(len(hertz))
    there = hertz >= 0.1
    place = numpy.log(hertz[there])
    slopes = numpy.diff(numpy.log(density)) / numpy.diff(numpy.log(CENTRES))
    middle = numpy.interp(place, numpy.log(CENTRES), numpy.log(density))
    below, above = place < numpy.log(CENTRES[0]), place > numpy.log(CENTRES[2])
    middle[below] = numpy.log(density[0]) + 0.5 * slopes[0] * (place[below] - numpy.log(CENTRES[0]))
    middle[above] = numpy.log(density[2]) + slopes[1] * (place[above] - numpy.log(CENTRES[2]))
    shape[there] = numpy.exp(middle)
    for rms, (low, high) in zip(level, realism.BANDS):
        band = (hertz > low) & (hertz <= high) & there
        shape[band] *= rms ** 2 / shape[band].sum()
    phase = numpy.exp(2j * numpy.pi * random.uniform(size=len(hertz)))
    return numpy.fft.irfft(numpy.sqrt(shape / 2) * phase * count, count)


def write_move(file, aim, random):
    samples = [noise_with(aim[axis], random) for axis in AXES]
    rows = [",".join([str(frame)] + [f"{axis[frame]:.9g}" for axis in samples]) for frame in range(SECONDS * RATE)]
    file.write_text("frame,x,y,z,h,p,b\n" + "\n".join(rows) + "\n", encoding="utf-8")


def fitted_lines(texts):
    """The lines of a settings section of what `fit` found."""
    values = {IDS[int(name)]: value for name, value in (text.split("=") for text in texts) if int(name) in IDS}
    return [f"{name} = " + re.sub("(%|deg)$", r" \1", values[name]) for name in FITTED
            if name not in ("Position Intensity", "Rotation Intensity") or values[name] != "100%"]


def own_lines(text):
    """What a file sets beside the shake."""
    settings = text.split("[settings]")[1].split("\n\n")[0].strip().splitlines()
    return [line for line in settings if line.split("=")[0].strip() not in FITTED and not line.startswith(("Jolt", "Interval"))]


def figures(levels, digits=3):
    return [f"{axis} = {' '.join(f'{value:.{digits}g}' for value in levels[axis])} {UNITS[axis]}" for axis in AXES]


def rewrite(preset, aim, program, recordings):
    wanted = aim.levels(lambda base: levels_of(recordings, base))
    with tempfile.TemporaryDirectory() as folder:
        move, saved = pathlib.Path(folder) / "aim.csv", pathlib.Path(folder) / "preset"
        write_move(move, wanted, numpy.random.default_rng(7))
        command = [program, "fit", move, "-o", saved, "--fps", str(RATE), "--json", "--quiet", "--layers", "2" if aim.pair else "1"]
        found = json.loads(subprocess.run(command, check=True, capture_output=True).stdout)
        text = preset.file.read_text(encoding="utf-8")
        lines = [text.split("[settings]")[0].strip(), "", "[settings]", *fitted_lines(found["settings"]), *own_lines(text)]
        if aim.pair:
            lines += ["", "# Of a second camera, which takes the first one's output", "[then]", *fitted_lines(found["second_settings"])]
        takes = [realism.levels(play(program, RATE, SECONDS, "--preset", saved, "--seed", str(seed)), RATE) for seed in range(1, 1 + TAKES)]
        own = play(program, RATE, SECONDS, "--preset", saved)
    measured = realism.mean_levels(takes)
    distance = realism.distance(realism.log_ratios(measured, {axis: numpy.array(wanted[axis]) for axis in AXES}))
    lines += ["", "# What real cameras do: RMS below 1 Hz, from 1 to 4 Hz, from 4 to 12 Hz", "[aim]",
              f"source = {aim.source()}", *figures(wanted),
              "", f"# The same, restated from measurement of {TAKES} seeds; D {distance:.2f}", "[measured]", *figures(measured),
              "", "# RMS below 0.5 Hz, from 0.5 to 3 Hz, and above; restated from measurement of the preset's own seed", "[motion]",
              f"frame rate = {RATE}"]
    lines += figures({axis: band_rms(own[axis], RATE) for axis in AXES}, 2)
    preset.file.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return distance


def main(program, recordings, *names):
    for preset in all_presets():
        if preset.name in AIMS and (not names or preset.name in names):
            distance = rewrite(preset, AIMS[preset.name], program, pathlib.Path(recordings))
            print(f"{preset.path}: D {distance:.2f}", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
