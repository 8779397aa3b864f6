#!/usr/bin/python3
"""Writes docs/presets.md: every built-in preset with its sentence.

    presets_page.py PAGE
"""
import pathlib
import sys

from measure_presets import all_presets

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

    # Of a second camera, which takes the first one's output; where there is one
    [then]
    Position Medium = 20 %

    # What real cameras do: RMS below 1 Hz, from 1 to 4 Hz, from 4 to 12 Hz
    [aim]
    source = the-closeup.csv
    x = 0.13 0.016 0.001 cm

    # RMS below 0.5 Hz, from 0.5 to 3 Hz, and above
    [motion]
    frame rate = 24
    x = 0.20 0.05 0.004 cm
    heading = 0.35 0.06 0.008 deg

Settings are those of [the panel](parameters.md), in its units; where two share a label the id stands before it. What is not
set has its starting value. `[aim]` and `[measured]`, the same of what the preset plays, are evidence: the build passes them
over, and `presets/measure/fit_presets.py` writes them. `[motion]` states what all six axes (x, y, z, heading, pitch, bank) measure;
`presets/measure/measure_presets.py` plays every preset for a minute and refuses one that is off by more than a third.
"""


def main(page):
    page = pathlib.Path(page)
    presets = all_presets()
    lines = [
        "# Presets", "",
        "The built-in presets, by category. `tremolux presets` lists them, `tremolux shake --preset \"Brisk walk\"` plays "
        "one, and a new tag begins with the first. `cmake --build --preset release --target gallery` draws them all into "
        "`build/release/gallery/`, a page to choose from by looking.", "",
        "Clocks count frames: at another frame rate multiply Shake Speed by the square root of 24 / rate to keep the pace.", "",
        "How near they are to recorded cameras, and how they were fitted: [beside real hands](realism.md). Walks, runs and rides "
        "are pairs: a second camera, whose input is the first one's output, adds a motion of another pace. The program plays "
        "both; in the application a preset sets one tag, and the second camera is made by hand.",
    ]
    category = None
    for preset in presets:
        if preset.category != category:
            category = preset.category
            lines += ["", f"## {category}"]
        lines += ["", f"**{preset.name}**: {preset.about}"]
    lines.append(ADDING)
    page.write_text("\n".join(lines), encoding="utf-8")
    print(f"presets: {page}")


if __name__ == "__main__":
    main(*sys.argv[1:])
