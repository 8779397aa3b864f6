#!/usr/bin/python3
"""Writes docs/presets.md: every built-in preset with its sentence and a picture of eight seconds of its motion.

    draw_presets.py PROGRAM DOCS [RECORDINGS]

Pictures are drawn by gnuplot into DOCS/images/presets/. Without the recordings the page's table that compares presets
with them is kept as it is.
"""
import pathlib
import subprocess
import sys

from measure_presets import SECONDS, all_presets, comparison_table
from motion import AXES, play

PICTURE_SECONDS = 8
BEGIN, END = "<!-- comparison -->", "<!-- end of the comparison -->"
# Blue, orange and green that differ for every eye.
COLOURS = {"x": "#0072b2", "y": "#e69f00", "z": "#009e73", "heading": "#0072b2", "pitch": "#e69f00", "bank": "#009e73"}

ADDING = """
## Adding one

Each preset is a text file, `presets/<n>_<Category>/<n>_<Preset>.txt`; the numbers give the order. The build checks it and
turns it into a preset file of the module; `script/presets` draws this page anew.

    name = Standing still
    about = One sentence on what it imitates.

    [settings]
    Position Slow = 0.5 %
    6154 Overshoot Fade = 100 %
    Seed = 4711

    # RMS below 0.5 Hz, from 0.5 to 3 Hz, and above
    [motion]
    frame rate = 24
    x = 0.20 0.05 0.004 cm
    heading = 0.35 0.06 0.008 deg

Settings are those of [the panel](parameters.md), in its units; where two share a label the id stands before it. What is not
set has its starting value. `[motion]` states what all six axes (x, y, z, heading, pitch, bank) measure;
`presets/measure/measure_presets.py` plays every preset for a minute and refuses one that is off by more than a third.
"""

GNUPLOT = """
set terminal pngcairo size 620,150 font 'sans,8' background '#ffffff'
set output '{picture}'
set multiplot
set style data lines
unset key
set lmargin at screen 0.07
set rmargin at screen 0.235
set tmargin at screen 0.88
set bmargin at screen 0.16
set size ratio -1
set title 'from above, cm' offset 0,-0.8
set xtics nomirror format "%.3g"
set ytics nomirror format '%.3g'
set xrange [{left}:{right}]
set yrange [{bottom}:{top}]
set xtics {tick}
set ytics {tick}
plot '-' using 1:2 lw 1.2 lc rgb '#444444'
{path}e
set size noratio
set xrange [0:{seconds}]
set yrange [*:*]
set xtics 2
set ytics autofreq
set key at graph 1.04, graph 0.98 left top reverse Left samplen 1 spacing 0.9
set lmargin at screen 0.31
set rmargin at screen 0.54
set title 'position, cm, over seconds' offset 0,-0.8
plot {position}
{position_data}
set lmargin at screen 0.66
set rmargin at screen 0.87
set title 'angles, degrees' offset 0,-0.8
plot {angles}
{angle_data}
unset multiplot
"""


def blocks(move, axes, rate):
    rows = []
    for axis in axes:
        rows += [f"{i / rate:.4f} {value:.6f}" for i, value in enumerate(move[axis])] + ["e"]
    return "\n".join(rows)


def curves(axes):
    return ", ".join(f"'-' using 1:2 lw 1.2 lc rgb '{COLOURS[axis]}' title '{axis}'" for axis in axes)


def draw(preset, move, picture):
    part = {axis: move[axis][: PICTURE_SECONDS * preset.rate] for axis in AXES}
    middle = {axis: (max(part[axis]) + min(part[axis])) / 2 for axis in ("x", "z")}
    half = max(1e-4, 0.55 * max(max(part[axis]) - min(part[axis]) for axis in ("x", "z")))
    script = GNUPLOT.format(
        picture=picture,
        seconds=PICTURE_SECONDS,
        left=middle["x"] - half, right=middle["x"] + half,
        bottom=middle["z"] - half, top=middle["z"] + half,
        tick=float(f"{half:.0e}"),
        path="".join(f"{x:.6f} {z:.6f}\n" for x, z in zip(part["x"], part["z"])),
        position=curves(AXES[:3]), position_data=blocks(part, AXES[:3], preset.rate),
        angles=curves(AXES[3:]), angle_data=blocks(part, AXES[3:], preset.rate),
    )
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def kept_comparison(page):
    if not page.exists():
        return ""
    text = page.read_text(encoding="utf-8")
    return text[text.index(BEGIN) + len(BEGIN) : text.index(END)].strip() if BEGIN in text else ""


def main(program, docs, recordings=None):
    docs = pathlib.Path(docs)
    pictures = docs / "images" / "presets"
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.glob("*.png"):
        old.unlink()
    presets = all_presets()
    moves = {preset.path: play(program, preset.rate, SECONDS, "--preset", preset.path) for preset in presets}
    table = (comparison_table(presets, moves, pathlib.Path(recordings)) if recordings
             else kept_comparison(docs / "presets.md"))
    lines = [
        "# Presets", "",
        "The built-in presets, by category. `tremolux presets` lists them, `tremolux shake --preset \"Brisk walk\"` plays "
        "one, and a new tag begins with the first. Each picture shows eight seconds of a camera that stands still, at 24 "
        "frames a second: its path from above, its position and its angles. Mind the scales.", "",
        "Clocks count frames: at another frame rate multiply Shake Speed by the square root of 24 / rate to keep the pace.",
    ]
    category = None
    for preset in presets:
        if preset.category != category:
            category = preset.category
            lines += ["", f"## {category}"]
        name = f"{preset.name.lower().replace(' ', '_')}.png"
        draw(preset, moves[preset.path], pictures / name)
        lines += ["", f"**{preset.name}**: {preset.about}", "", f"![{preset.name}](images/presets/{name})"]
    lines += ["", "## Beside real cameras", "",
              "Presets that were designed from a recorded camera, in windows as long as the recording. Shares are those of "
              "the variance below 0.5 Hz, from 0.5 to 3 Hz and above. In bold: an RMS off by more than a factor 1.5, a share "
              "off by more than 10 points. The three layers of an axis keep one balance for all axes, so that a walk's "
              "vertical step and its sideways drift cannot both be met.", "", BEGIN, table, END, ADDING]
    (docs / "presets.md").write_text("\n".join(lines), encoding="utf-8")
    print(f"presets: docs/presets.md and {len(presets)} pictures")


if __name__ == "__main__":
    main(*sys.argv[1:])
