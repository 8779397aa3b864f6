#!/usr/bin/python3
"""Prints a camera table of 60 cameras anywhere: every second one turned by any angles, and each of straight up, straight
down and a full roll among them; the lens zooms. With "fixed-zoom" it does not."""
import random
import sys

random.seed(20261121)
zooms = "fixed-zoom" not in sys.argv[1:]
print("frame,x,y,z,h,p,b,focal_length,focus_distance")
for frame in range(1, 61):
    position = [random.uniform(-400, 400) for _ in range(3)]
    pitch = {10: 90, 20: -90, 30: 89.999}.get(frame, random.uniform(-90, 90))
    angles = [random.uniform(-180, 180), pitch, 360 if frame == 40 else random.uniform(-180, 180)]
    lens = [36 + frame / 3 if zooms else 36, 100 + 10 * frame]
    print(",".join([str(frame)] + [repr(number) for number in position + angles + lens]))
