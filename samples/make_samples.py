#!/usr/bin/env python3
"""Makes the sample moves, the moving point and the drums, 30 frames a second, beside this script: the same bytes at every run.

Scene: left-handed, Y up, centimetres; a camera with heading and pitch 0 looks along +Z, a positive heading turns it to
the left, a positive pitch raises it. Angles in degrees, focal lengths in millimetres.
"""
import math
import pathlib
import struct

CAMERA = "frame,x,y,z,h,p,b,focal_length,focus_distance\n"
POINT = "frame,x,y,z\n"


def ease(frame, start, end):
    """0 before `start`, 1 after `end`; speed and acceleration are 0 at both ends."""
    t = min(max((frame - start) / (end - start), 0.0), 1.0)
    return t * t * t * (t * (6 * t - 15) + 10)


def mix(a, b, share):
    if isinstance(a, tuple):
        return tuple(mix(p, q, share) for p, q in zip(a, b))
    return a + (b - a) * share


def aim(eye, goal):
    """Heading and pitch from one point to another, and the distance."""
    x, y, z = (g - e for g, e in zip(goal, eye))
    flat = math.hypot(x, z)
    return math.degrees(math.atan2(-x, z)), math.degrees(math.atan2(y, flat)), math.hypot(flat, y)


def push_in(frame):
    """A dolly from the doorway towards somebody at a table. The pan starts on the lamp and settles on the face, the
    focus follows a little late, and once the dolly slows down the lens goes on to a close-up."""
    lamp, face = (190.0, 115.0, 210.0), (25.0, 128.0, 60.0)
    eye = mix((-70.0, 158.0, -430.0), (-20.0, 136.0, -150.0), ease(frame, 25, 250))
    heading, pitch, _ = aim(eye, mix(lamp, face, ease(frame, 15, 150)))
    focus = mix(aim(eye, lamp)[2], aim(eye, face)[2], ease(frame, 45, 165))
    return eye, (heading, pitch, 0.0), mix(28.0, 50.0, ease(frame, 160, 285)), focus


def subject(frame):
    """The face at the table of the push-in: leans back, gets up and takes a step aside, and settles again."""
    seated, leaning, standing = (25.0, 128.0, 60.0), (32.0, 122.0, 78.0), (58.0, 166.0, 52.0)
    point = mix(seated, leaning, ease(frame, 60, 84) - ease(frame, 118, 140))
    return mix(point, standing, ease(frame, 176, 205) - ease(frame, 244, 272))


# First frame of the whip, its length in frames, heading and pitch where it stops, distance of what is there.
WHIPS = [(38, 9, 62.0, 4.0, 540.0), (92, 7, 8.0, -9.0, 210.0), (133, 11, -84.0, 3.0, 410.0), (190, 8, 17.0, -2.0, 690.0),
         (236, 6, 41.0, 1.0, 330.0)]


def whip(frame):
    """An operator turns on the spot from one thing to the next, with hard stops, and steps aside before the last ones.
    The camera is carried in front of the body, leans into every turn, and finds focus just after it stops."""
    heading, pitch, bank, focus = -35.0, -4.0, 0.0, 320.0
    for start, length, to_heading, to_pitch, distance in WHIPS:
        share = ease(frame, start, start + length)
        lean = 4.0 * share * (1.0 - share)
        bank += lean * (2.5 if to_heading > heading else -2.5)
        heading, pitch = mix(heading, to_heading, share), mix(pitch, to_pitch, share)
        focus = mix(focus, distance, ease(frame, start + length - 2, start + length + 10))
    feet = mix((0.0, 0.0, 0.0), (55.0, 0.0, 30.0), ease(frame, 150, 185))
    reach, eye_height = 28.0, 164.0
    turn = math.radians(heading)
    eye = (feet[0] - reach * math.sin(turn), eye_height, feet[2] + reach * math.cos(turn))
    return eye, (heading, pitch, bank), 24.0, focus


def standing(frame):
    """Somebody stands still and looks ahead."""
    return (0.0, 160.0, 0.0), (0.0, 0.0, 0.0), 36.0, 520.0


def zoom(frame):
    """The same somebody zooms in on what is far away, and back."""
    return (0.0, 160.0, 0.0), (0.0, 0.0, 0.0), mix(24.0, 120.0, ease(frame, 30, 120) - ease(frame, 180, 220)), 900.0


# Where the drums are hit, seconds, and how hard.
BEATS = [(0.5 * i, 1.0 if i % 4 == 1 else 0.5) for i in range(1, 16)]


def drums(rate, seconds):
    """A drum in even beats, every fourth of them loud: bytes of a .wav file with 8 bits."""
    level = [0.0] * (rate * seconds)
    for start, strength in BEATS:
        first = round(start * rate)
        for i in range(first, min(len(level), first + rate // 4)):
            t = (i - first) / rate
            level[i] += strength * math.exp(-t / 0.06) * math.cos(2 * math.pi * (60 * t + 3 * (1 - math.exp(-t / 0.02))))
    data = bytes(round(128 + 100 * value) for value in level)
    layout = struct.pack("<4sIHHIIHH", b"fmt ", 16, 1, 1, rate, rate, 1, 8)
    return b"RIFF" + struct.pack("<I", 4 + len(layout) + 8 + len(data)) + b"WAVE" + layout + b"data" + struct.pack("<I", len(data)) + data


def write(name, header, row, frames):
    rows = []
    for frame in range(frames):
        numbers = (f"{value:.4f}" for value in row(frame))
        rows.append(",".join([str(frame), *numbers]).replace("-0.0000", "0.0000") + "\n")
    path = pathlib.Path(__file__).resolve().parent / name
    path.write_text(header + "".join(rows), encoding="ascii", newline="\n")


def camera(move):
    def row(frame):
        eye, angles, focal_length, focus = move(frame)
        return (*eye, *angles, focal_length, focus)

    return row


write("push_in.csv", CAMERA, camera(push_in), 300)
write("whip.csv", CAMERA, camera(whip), 270)
write("subject.csv", POINT, subject, 300)
write("standing.csv", CAMERA, camera(standing), 240)
write("zoom.csv", CAMERA, camera(zoom), 240)
(pathlib.Path(__file__).resolve().parent / "drums.wav").write_bytes(drums(8000, 8))
