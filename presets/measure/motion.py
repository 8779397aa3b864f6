"""Camera motion in numbers: RMS by axis and by frequency band, of presets that are played and of recordings.

Positions are centimetres, angles degrees; a still camera has none of either. Bands: below 0.5 Hz, 0.5 to 3 Hz, and 3 to
12 Hz or half the frame rate, whichever is less.
"""
import csv
import math
import pathlib
import re
import subprocess
import tempfile

import numpy

AXES = ("x", "y", "z", "heading", "pitch", "bank")
UNITS = dict(zip(AXES, ("cm",) * 3 + ("deg",) * 3))
BANDS = ((0.0, 0.5), (0.5, 3.0), (3.0, 12.0))
COLUMNS = ("x", "y", "z", "h", "p", "b")


class Preset:
    """A text file of presets/: name, sentence, settings ("LABEL=VALUE") of the first camera, and what its motion measures."""

    def __init__(self, file):
        self.file = pathlib.Path(file)
        self.category = self.file.parent.name.split("_", 1)[1]
        self.settings, self.aims = [], {}
        self.rate = None
        section = "head"
        for number, line in enumerate(self.file.read_text(encoding="utf-8").splitlines(), 1):
            line = line.strip()
            if not line or line.startswith("#"):
                continue
            if line in ("[settings]", "[then]", "[aim]", "[measured]", "[motion]"):
                section = line
                continue
            key, equals, value = (part.strip() for part in line.partition("="))
            if not equals:
                raise ValueError(f"{file}:{number}: found '{line}', expected NAME = VALUE")
            if section == "[settings]":
                self.settings.append(f"{key}={value}")
            elif section == "[motion]":
                self._read_aim(key, value, number)
            elif section == "head" and key == "name":
                self.name = value
            elif section == "head":
                self.about = value
        missing = [axis for axis in AXES if axis not in self.aims]
        if self.rate is None or missing:
            raise ValueError(f"{file}: found no frame rate or no {missing}, expected both in [motion]")

    def _read_aim(self, key, value, number):
        if key == "frame rate":
            self.rate = int(value)
        else:
            numbers = re.fullmatch(r"([\d.]+)\s+([\d.]+)\s+([\d.]+)\s+(cm|deg)", value)
            if key not in AXES or not numbers or numbers.group(4) != UNITS[key]:
                raise ValueError(f"{self.file}:{number}: found '{key} = {value}', expected an axis and three RMS values")
            self.aims[key] = tuple(float(numbers.group(i)) for i in (1, 2, 3))

    @property
    def path(self):
        return f"{self.category}/{self.name}"


def play(program, rate, seconds, *options):
    """What `program` makes of a camera that stands still at the origin: {axis: samples}, cm and degrees."""
    with tempfile.TemporaryDirectory() as folder:
        still, shaken = pathlib.Path(folder) / "still.csv", pathlib.Path(folder) / "shaken.csv"
        rows = ["frame,x,y,z,h,p,b"] + [f"{frame},0,0,0,0,0,0" for frame in range(seconds * rate)]
        still.write_text("\n".join(rows) + "\n", encoding="utf-8")
        command = [program, "shake", still, "-o", shaken, "--quiet", "--fps", str(rate), "--user-folder", folder]
        subprocess.run([*command, *options], check=True)
        with open(shaken, encoding="utf-8", newline="") as file:
            table = [[float(row[column]) for column in COLUMNS] for row in csv.DictReader(file)]
    return dict(zip(AXES, numpy.array(table).T))


def read_recording(file):
    """{axis: samples} of a recorded move, cm and degrees; axes that were not recorded are left out."""
    with open(file, encoding="utf-8", newline="") as stream:
        rows = list(csv.DictReader(stream))

    def column(name, factor):
        return numpy.array([float(row[name]) for row in rows]) * factor

    degrees = 180 / math.pi
    move = {"heading": column("rot_y", degrees), "pitch": column("rot_x", degrees), "bank": column("rot_z", degrees)}
    if "rotation-only" not in str(file):
        move.update(x=column("pos_x", 100), y=column("pos_y", 100), z=column("pos_z", 100))
    return move


def detrended(samples):
    """Without the straight line from the first to the last sample, about its mean: a drift is no shake, and a step
    from end to start would smear over all frequencies."""
    samples = numpy.asarray(samples, dtype=float)
    line = numpy.linspace(samples[0], samples[-1], len(samples))
    return samples - line - numpy.mean(samples - line)


def band_rms(samples, rate):
    """RMS in each band, by Parseval's theorem."""
    x = detrended(samples)
    power = 2 * numpy.abs(numpy.fft.rfft(x)) ** 2 / len(x) ** 2
    frequency = numpy.fft.rfftfreq(len(x), 1 / rate)
    return tuple(
        float(math.sqrt(power[(frequency > low) & (frequency <= min(high, rate / 2))].sum())) for low, high in BANDS
    )
