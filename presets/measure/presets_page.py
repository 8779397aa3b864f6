#!/usr/bin/python3
"""Writes docs/presets.md: every built-in preset with its sentence, and some beside recorded cameras.

    presets_page.py PROGRAM PAGE [RECORDINGS]

Without the recordings the page's table that compares presets with them is kept as it is.
"""
import pathlib
import sys

from measure_presets import SECONDS, all_presets, comparison_table
from motion import play

BEGIN, END = "<!-- comparison -->", "<!-- end of the comparison -->"
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

def kept_comparison(page):
    if not page.exists():
        return ""
    text = page.read_text(encoding="utf-8")
    return text[text.index(BEGIN) + len(BEGIN) : text.index(END)].strip() if BEGIN in text else ""


def compare(program, presets, recordings):
    moves = {preset.path: play(program, preset.rate, SECONDS, "--preset", preset.path) for preset in presets}
    return comparison_table(presets, moves, pathlib.Path(recordings))


def main(program, page, recordings=None):
    page = pathlib.Path(page)
    presets = all_presets()
    table = compare(program, presets, recordings) if recordings else kept_comparison(page)
    lines = [
        "# Presets", "",
        "The built-in presets, by category. `tremolux presets` lists them, `tremolux shake --preset \"Brisk walk\"` plays "
        "one, and a new tag begins with the first. `cmake --build --preset release --target gallery` draws them all into "
        "`build/release/gallery/`, a page to choose from by looking.", "",
        "Clocks count frames: at another frame rate multiply Shake Speed by the square root of 24 / rate to keep the pace.",
    ]
    category = None
    for preset in presets:
        if preset.category != category:
            category = preset.category
            lines += ["", f"## {category}"]
        lines += ["", f"**{preset.name}**: {preset.about}"]
    lines += ["", "## Beside real cameras", "",
              "Presets that were designed from a recorded camera, in windows as long as the recording. Shares are those of "
              "the variance below 0.5 Hz, from 0.5 to 3 Hz and above. In bold: an RMS off by more than a factor 1.5, a share "
              "off by more than 10 points. The three layers of an axis keep one balance for all axes, so that a walk's "
              "vertical step and its sideways drift cannot both be met.", "", BEGIN, table, END, ADDING]
    page.write_text("\n".join(lines), encoding="utf-8")
    print(f"presets: {page}")


if __name__ == "__main__":
    main(*sys.argv[1:])
