#!/usr/bin/python3
"""Plays every built-in preset for 60 seconds and holds its motion against what its file states.

    measure_presets.py PROGRAM [RECORDINGS]

PROGRAM is the built tremolux. A band may be off by a third of what is stated; one that is stated as 0 must stay below
0.002 cm or degrees. With the folder of recordings, the figures of the presets that name one are printed beside its own.
"""
import pathlib
import sys

from motion import AXES, BANDS, UNITS, Preset, band_rms, play, read_recording, shares, total_rms, windows_rms

SECONDS = 60
TOLERANCE = 1 / 3
NOTHING = 0.002
FOLDER = pathlib.Path(__file__).resolve().parent.parent


def all_presets():
    """In the order of the panel: by the numbers before their names."""
    def number(path):
        return int(path.name.split("_", 1)[0])
    return [Preset(file) for category in sorted((f for f in FOLDER.iterdir() if f.name[0].isdigit()), key=number)
            for file in sorted(category.glob("*.txt"), key=number)]


def differences(preset, move):
    """One line for each band that is not what the file states."""
    lines = []
    for axis in AXES:
        measured = band_rms(move[axis], preset.rate)
        for (low, high), stated, found in zip(BANDS, preset.aims[axis], measured):
            off = found > NOTHING if stated == 0 else abs(found / stated - 1) > TOLERANCE
            if off:
                lines.append(f"{preset.file}: {axis} from {low} to {high} Hz: measured {found:.4f} {UNITS[axis]}, "
                             f"stated {stated:g}")
    return lines


def comparison(preset, move, recording):
    """Rows of [axis, RMS of recording and preset, shares of both]: the preset in windows as long as the recording."""
    rows = []
    for axis in AXES:
        if axis not in recording:
            continue
        real = band_rms(recording[axis], preset.rate)
        ours = windows_rms(move[axis], preset.rate, len(recording[axis]))
        rows.append((axis, total_rms(real), total_rms(ours), shares(real), shares(ours)))
    return rows


def comparison_table(presets, moves, recordings):
    """Markdown; where a figure is not near the recording's it is set in bold."""
    lines = ["| Preset | Recording | Axis | RMS | RMS of the preset | Shares of the bands | Shares of the preset |",
             "|---|---|---|---|---|---|---|"]
    for preset in presets:
        if not preset.recording:
            continue
        for axis, real, ours, real_shares, our_shares in comparison(preset, moves[preset.path],
                                                                    read_recording(recordings / preset.recording)):
            near = 1 / 1.5 <= ours / real <= 1.5
            alike = max(abs(a - b) for a, b in zip(real_shares, our_shares)) <= 0.1
            percent = [" / ".join(f"{share:.0%}" for share in both) for both in (real_shares, our_shares)]
            rms = f"{ours:.3f} {UNITS[axis]}"
            lines.append(f"| {preset.name} | {preset.recording.removesuffix('.csv')} | {axis} | {real:.3f} {UNITS[axis]} | "
                         f"{rms if near else f'**{rms}**'} | {percent[0]} | "
                         f"{percent[1] if alike else f'**{percent[1]}**'} |")
    return "\n".join(lines)


def main(program, recordings=None):
    presets = all_presets()
    moves = {preset.path: play(program, preset.rate, SECONDS, "--preset", preset.path) for preset in presets}
    wrong = [line for preset in presets for line in differences(preset, moves[preset.path])]
    page = (FOLDER.parent / "docs" / "presets.md").read_text(encoding="utf-8")
    wrong += [f"docs/presets.md: found no '{preset.name}' with its sentence; script/presets writes the page anew"
              for preset in presets if preset.name not in page or preset.about not in page]
    if recordings:
        print(comparison_table(presets, moves, pathlib.Path(recordings)))
    print("\n".join(wrong) if wrong else f"{len(presets)} presets move as their files state")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
