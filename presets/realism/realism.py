#!/usr/bin/python3
"""How far the built-in presets are from recorded cameras, and how far plain noise is.

    realism.py PROGRAM RECORDINGS [--page PAGE] [--json FILE] [--only NAME] [--check]

PROGRAM is the built tremolux, RECORDINGS the folder of recorded moves. Shares no code with `tremolux fit`; the aims of
the presets are levels by the same measure. --page writes the table into a page, between two comments, and fits of all recordings
as pictures beside it, by `tremolux fit --plot`. --check: the exit status is 1 where the mean distance of the presets as they
are is above 0.32, or where a walk, a run or a ride is nearest to a preset of another kind.
"""
import argparse
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import numpy

import perlin
import recordings
from levels import AXES, EACH_AXIS, INTENSITIES, distance, fitted_together, hits, levels, log_ratios, mean_levels, pieces

AIM = 0.32
BEGIN, END = "<!-- measured -->", "<!-- end of what was measured -->"
TAKES, SECONDS, START = 4, 62, 2  # of a preset: seeds, seconds of each, and how many of these are passed over
HIT, NEAR_HIT = 1.5, 2.0  # factors
BASES = tuple(0.25 * 2 ** (i / 3) for i in range(10))  # hertz of the lowest octave
PERLIN_TAKES = 12
# Categories that are of a recording's kind, by a word of its file's name; what is not named here may be nearest to any.
KINDS = {"walk": ("Walking and running",), "run": ("Walking and running",),
         "bike": ("Vehicles",), "car": ("Vehicles",), "spaceship": ("Vehicles", "Aircraft and boats")}


def kinds_of(name):
    return next((kinds for word, kinds in KINDS.items() if word in name.replace("_", "-").lower().split("-")), None)


class Takes:
    """What every preset plays; cut into takes as long as a recording."""

    def __init__(self, program):
        self.names = recordings.presets(program)
        jobs = [(name, seed) for name in self.names for seed in range(TAKES)]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            moves = list(pool.map(lambda job: recordings.play(program, job[0], 1000 + job[1], SECONDS), jobs))
        self.moves = {}
        for (name, _), move in zip(jobs, moves):
            move = {axis: samples[START * recordings.RATE:] for axis, samples in move.items()}
            self.moves.setdefault(name, []).append(move)

    def levels(self, name, length):
        takes = [levels(piece, recordings.RATE) for move in self.moves[name] for piece in pieces(move, length)]
        return mean_levels(takes)


def perlin_levels(length):
    """Of each base frequency: levels, the same in every axis."""
    found = {}
    for base in BASES:
        random = numpy.random.default_rng(1)
        takes = [levels({axis: perlin.octaves(base, length, recordings.RATE, random) for axis in AXES}, recordings.RATE)
                 for _ in range(PERLIN_TAKES)]
        found[base] = mean_levels(takes)
    return found


def best(ratios_of, groups=None):
    """Name, distance and ratios of the nearest among {name: ratios}, amplitudes fitted by group where groups are given."""
    fitted = {name: fitted_together(ratios, groups) if groups else ratios for name, ratios in ratios_of.items()}
    name = min(fitted, key=lambda one: distance(fitted[one]))
    return name, distance(fitted[name]), fitted[name]


def measure(takes, motion):
    """All figures of a recording."""
    length = len(next(iter(motion.values())))
    wanted = levels(motion, recordings.RATE)
    ratios = {name: log_ratios(takes.levels(name, length), wanted) for name in takes.names}
    name, shipped, of_shipped = best(ratios)
    result = {"preset": name, "shipped": shipped, "hits": hits(of_shipped, HIT), "near_hits": hits(of_shipped, NEAR_HIT),
              "count": 3 * len(of_shipped)}
    for key, groups in (("intensities", INTENSITIES), ("amplitudes", EACH_AXIS)):
        result[f"preset_{key}"], result[key], _ = best(ratios, groups)
    plain = {base: log_ratios(found, wanted) for base, found in perlin_levels(length).items()}
    result["perlin_base"], result["perlin"], of_perlin = best(plain, EACH_AXIS)
    result["perlin_hits"] = hits(of_perlin, HIT)
    halves = [levels({axis: samples[:length // 2] for axis, samples in motion.items()}, recordings.RATE),
              levels({axis: samples[length // 2:length // 2 * 2] for axis, samples in motion.items()}, recordings.RATE)]
    result["halves"] = []
    of_halves = {name: takes.levels(name, length // 2) for name in takes.names}
    for chosen, judged in (halves, halves[::-1]):
        name, _, _ = best({name: log_ratios(found, chosen) for name, found in of_halves.items()})
        result["halves"].append(distance(log_ratios(of_halves[name], judged)))
    return result


def table(results):
    rows = ["| Recording | Nearest preset | D | Hits | Half by half | D, two intensities | D, six amplitudes | D, Perlin, six amplitudes |",
            "|---|---|---|---|---|---|---|---|"]
    for name, one in results.items():
        rows.append(f"| {name} | {one['preset']} | {one['shipped']:.2f} | {one['hits']} of {one['count']} | "
                    f"{one['halves'][0]:.2f}, {one['halves'][1]:.2f} | {one['intensities']:.2f} | {one['amplitudes']:.2f} | "
                    f"{one['perlin']:.2f}, {one['perlin_hits']} of {one['count']} |")

    def mean(key):
        return numpy.mean([one[key] for one in results.values()])

    def total(key):
        return sum(one[key] for one in results.values())
    rows.append(f"| **all** | | **{mean('shipped'):.2f}** | **{total('hits')} of {total('count')}** | "
                f"**{numpy.mean([one['halves'] for one in results.values()]):.2f}** | **{mean('intensities'):.2f}** | "
                f"**{mean('amplitudes'):.2f}** | **{mean('perlin'):.2f}, {total('perlin_hits')} of {total('count')}** |")
    return "\n".join(rows)


def write_page(page, text, program, files):
    before, rest = page.read_text(encoding="utf-8").split(BEGIN)
    page.write_text(before + BEGIN + "\n" + text + "\n" + END + rest.split(END)[1], encoding="utf-8")
    with tempfile.TemporaryDirectory() as folder:
        for file in files:
            layers = "2" if kinds_of(file.stem) else "1"
            picture = page.resolve().parent / "images" / f"fit-{file.stem.removesuffix('-rotation-only')}.svg"
            subprocess.run([program, "fit", file.name, "-o", pathlib.Path(folder) / "preset", "--plot", picture, "--layers", layers,
                            "--quiet"], check=True, stdout=subprocess.DEVNULL, cwd=file.parent)


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("program")
    parser.add_argument("recordings", type=pathlib.Path)
    for option in ("--page", "--json", "--only"):
        parser.add_argument(option)
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args(arguments)
    options.program = str(pathlib.Path(options.program).resolve())
    files = sorted(options.recordings.glob("*.csv"))
    motions = {file.stem: recordings.read(file) for file in files if not options.only or options.only in file.stem}
    if not motions:
        sys.exit(f"realism: {options.recordings}: found no recordings, expected .csv files" +
                 (f" with '{options.only}' in their names" if options.only else ""))
    takes = Takes(options.program)
    results = {name: measure(takes, motion) for name, motion in motions.items()}
    text = table(results)
    print(text)
    if options.page:
        write_page(pathlib.Path(options.page), text, options.program, [options.recordings / f"{name}.csv" for name in motions])
    if options.json:
        pathlib.Path(options.json).write_text(json.dumps(results, indent=2) + "\n", encoding="utf-8")
    wrong = [f"{name}: nearest to {one['preset']}" for name, one in results.items()
             if kinds_of(name) and one["preset"].split("/")[0] not in kinds_of(name)]
    mean = numpy.mean([one["shipped"] for one in results.values()])
    if mean > AIM:
        wrong.append(f"mean D {mean:.3f}, expected at most {AIM}")
    print("\n".join(f"realism: {line}" for line in wrong) if wrong else "realism: every recording is nearest to its kind")
    return 1 if options.check and wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
