"""What presets of recordable situations aim at: RMS below 1 Hz, from 1 to 4 Hz, from 4 to 12 Hz, of each axis.

The six recordings' own levels are the bases; the others are figures of published measurements (see docs/realism.md). An aim
is a base, or a geometric mean of several, with factors for position and rotation, for the bands, and for single axes.
"""
import math

from motion import AXES

POSITION, ROTATION = AXES[:3], AXES[3:]
# Positions of what was recorded as rotation alone, centimetres: from a supported lens, a cabin seat, a bicycle.
ADDED_POSITIONS = {
    "the-zeek-rotation-only.csv": {"x": (0.05, 0.01, 0.002), "y": (0.05, 0.01, 0.002), "z": (0.05, 0.01, 0.002)},
    "spaceship-shake-rotation-only.csv": {"x": (0.25, 0.25, 0.02), "y": (0.5, 0.5, 0.04), "z": (0.2, 0.2, 0.016)},
    "bike-on-gravel-rotation-only.csv": {"x": (2.1, 1.4, 0.25), "y": (3.0, 2.0, 0.35), "z": (1.8, 1.2, 0.2)},
}
CLOSE, SEARCH, WALK = "the-closeup.csv", "investigation.csv", "walk-to-the-store.csv"
LONG, CABIN, BIKE = "the-zeek-rotation-only.csv", "spaceship-shake-rotation-only.csv", "bike-on-gravel-rotation-only.csv"
RUN, CAR = "running, published figures", "a car's body, published figures"
# 2.5 to 3 steps a second of 6 to 10 cm; heave of 1.2 to 1.8 Hz, roll of 0.8 to 1.5 Hz, wheel hop taken by the seat.
PUBLISHED = {
    RUN: {"x": (2.0, 1.6, 0.15), "y": (2.0, 2.6, 0.25), "z": (1.6, 1.2, 0.12),
          "heading": (0.8, 1.2, 0.15), "pitch": (1.0, 2.0, 0.25), "bank": (0.9, 1.6, 0.2)},
    CAR: {"x": (0.25, 0.2, 0.006), "y": (0.4, 0.5, 0.015), "z": (0.2, 0.15, 0.006),
          "heading": (0.25, 0.12, 0.02), "pitch": (0.2, 0.25, 0.04), "bank": (0.25, 0.3, 0.03)},
}


class Aim:
    """bases: {base: share}; the rest are factors; `axes` is {axis: (low, middle, high)}."""

    def __init__(self, bases, position=1, rotation=1, bands=(1, 1, 1), axes=None, pair=False):
        self.bases = {bases: 1.0} if isinstance(bases, str) else bases
        self.position, self.rotation, self.bands, self.axes, self.pair = position, rotation, bands, axes or {}, pair

    def levels(self, levels_of):
        """{axis: three RMS}; levels_of(base) are a base's own."""
        aim = {}
        for axis in AXES:
            factor = self.position if axis in POSITION else self.rotation
            own = self.axes.get(axis, (1, 1, 1))
            aim[axis] = tuple(
                math.exp(sum(share * math.log(levels_of(base)[axis][band]) for base, share in self.bases.items()))
                * factor * self.bands[band] * own[band] for band in range(3))
        return aim

    def source(self):
        """In words."""
        shares = list(self.bases.items())
        words = shares[0][0] if len(shares) == 1 else "between " + " and ".join(f"{base} ({share:.0%})" for base, share in shares)
        changes = []
        for name, factor in (("position", self.position), ("rotation", self.rotation)):
            if factor != 1:
                changes.append(f"{name} x {factor:g}")
        if self.bands != (1, 1, 1):
            changes.append("bands x " + " ".join(f"{factor:g}" for factor in self.bands))
        changes += [f"{axis} x " + " ".join(f"{factor:g}" for factor in factors) for axis, factors in self.axes.items()]
        return words + (": " + ", ".join(changes) if changes else "")


AIMS = {
    "Standing still": Aim(CLOSE),
    "Breathing": Aim(CLOSE, position=1.2, rotation=1.2, axes={"y": (1.6, 1, 1), "pitch": (1.6, 1, 1)}),
    "Conversation": Aim({CLOSE: 0.65, SEARCH: 0.35}),
    "Searching": Aim(SEARCH),
    "Kneeling": Aim(CLOSE, position=0.5, rotation=0.6, bands=(1, 1, 1.6)),
    "Tired arms": Aim(CLOSE, position=1.8, rotation=1.7, bands=(1, 1.6, 3)),
    "Arms outstretched": Aim({CLOSE: 0.5, SEARCH: 0.5}, bands=(1, 1.3, 2)),
    "Brisk walk": Aim(WALK, pair=True),
    "Slow stroll": Aim(WALK, position=0.75, rotation=0.7, bands=(1, 0.6, 1), pair=True),
    "Careful steps": Aim({WALK: 0.6, CLOSE: 0.4}, pair=True),
    "Climbing stairs": Aim(WALK, position=1.1, rotation=1.3, bands=(1, 1.5, 4), pair=True),
    "Backing up": Aim({WALK: 0.6, SEARCH: 0.4}, axes={"bank": (1.2, 1.2, 1)}, pair=True),
    "Running": Aim({RUN: 0.6, SEARCH: 0.4}, bands=(1, 1.2, 1.2), pair=True),
    "Sprint": Aim(RUN, position=1.2, rotation=1.3, bands=(1, 1.1, 1.5), pair=True),
    "Shoulder rig": Aim(CLOSE, position=1.3, rotation=0.8, bands=(1, 0.9, 0.6)),
    "Documentary": Aim({CLOSE: 0.4, SEARCH: 0.6}, bands=(1, 0.9, 0.8)),
    "Press scrum": Aim(SEARCH, position=0.8, rotation=1.1, bands=(1, 2.2, 3)),
    "Interview": Aim(CLOSE, position=0.7, rotation=0.7, bands=(1, 0.8, 0.8)),
    "Courtroom": Aim(CLOSE, position=1.3, rotation=1.3, bands=(1, 0.6, 0.7)),
    "Reality chase": Aim({RUN: 0.5, WALK: 0.5}, bands=(1, 1, 2), pair=True),
    "Home video": Aim(SEARCH, position=0.5, rotation=0.7, bands=(1, 1.2, 2)),
    "Telephoto": Aim(LONG),
    "Bird hide": Aim(LONG, position=0.5, rotation=0.45),
    "Paparazzi": Aim(LONG, position=2, rotation=2.2, bands=(1, 1.3, 1.6)),
    "Sideline": Aim(LONG, position=1.5, rotation=1.5, axes={"heading": (2.5, 1.6, 1)}),
    "City car": Aim({CAR: 0.6, CABIN: 0.4}, pair=True),
    "Highway": Aim(CAR, position=0.6, rotation=0.6, bands=(1, 0.8, 1.8), pair=True),
    "Gravel bike": Aim(BIKE),
    "Off-road": Aim({BIKE: 0.6, CABIN: 0.4}, position=1.5, rotation=1.6, pair=True),
    "Tram": Aim({CAR: 0.5, CABIN: 0.5}, position=0.6, rotation=0.5, axes={"bank": (1.5, 1.5, 1)}, pair=True),
    "Horseback": Aim({RUN: 0.7, WALK: 0.3}, position=1.4, rotation=1, axes={"y": (1, 1.4, 1), "pitch": (1, 1.3, 1)}, pair=True),
    "Motorbike pillion": Aim({BIKE: 0.3, CABIN: 0.7}, rotation=0.8, bands=(1, 1, 1.5), pair=True),
    "Spaceship cabin": Aim(CABIN),
}
