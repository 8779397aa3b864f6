#!/usr/bin/python3
"""What a camera has beside its motion, into Blender and back.

traits.py FOLDER                  writes the moves traits.json (every number changes from frame to frame) and flat.json (an
                                  orthographic camera that sees 60 m by 33.75 m, and stands still)
traits.py --compare IN.json OUT.json  holds what was imported against what was written, to 1e-5 of each number
"""
import json
import math
import sys

FIRST, COUNT, TOLERANCE = 101, 30, 1e-5
# As JSON and as Blender name them, with what turns the first into the second: metres, and shares of the film back's width.
TRAITS = {"film_back_offset_x": ("shift_x", None), "film_back_offset_y": ("shift_y", None),
          "f_stop": ("dof.aperture_fstop", 1), "near_clip": ("clip_start", 0.01), "far_clip": ("clip_end", 0.01)}


def traits_of_frame(i, width):
    return {"film_back_offset_x": width * 0.1 * math.sin(i + 1), "film_back_offset_y": width * 0.05 * math.cos(i),
            "f_stop": 1.4 + 0.1 * i, "near_clip": 10 + i, "far_clip": 100000 + 1000 * i}


def move(projection, width, changes):
    frames = [{"frame": FIRST + i, "position": [10 + i, 150, -300 + 2 * i], "hpb": [30 + i, -10, 5], "focal_length": 36,
               "focus_distance": 500, **(traits_of_frame(i, width) if changes else {})} for i in range(COUNT)]
    return {"frames_per_second": [24000, 1001], "film_back_width": width, "film_back_height": width * 9 / 16,
            "camera": "/Stage/Hero", "projection": projection, **({} if changes else traits_of_frame(0, width)), "frames": frames}


def write(folder):
    for name, content in (("traits", move("perspective", 30, True)), ("flat", move("orthographic", 60000, False))):
        with open(f"{folder}/{name}.json", "w", encoding="utf-8") as file:
            json.dump(content, file)


def compare(written_file, read_file):
    moves = []
    for name in (written_file, read_file):
        with open(name, encoding="utf-8") as file:
            moves.append(json.load(file))
    written, read = moves
    if read.get("projection", "perspective") != written["projection"] or read["camera"] != "/Hero":
        return f"a camera {read['camera']}, {read.get('projection')}", 1
    if read["frames_per_second"] != written["frames_per_second"]:
        return f"{read['frames_per_second']} frames per second", 1
    worst, where = 0.0, ""
    for i, frame in enumerate(written["frames"]):
        for name in ("film_back_width", "film_back_height", *TRAITS):
            wanted = frame.get(name, written.get(name))
            found = read["frames"][i].get(name, read.get(name))
            off = math.inf if found is None else abs(found - wanted) / max(1, abs(wanted))
            if off > worst:
                worst, where = off, f" ({name})"
    return f"film back, shift, f-stop and clipping within {worst:.1e}{where}", int(worst > TOLERANCE)


if __name__ == "__main__":
    if sys.argv[1] == "--compare":
        words, status = compare(*sys.argv[2:])
        print(f"interop: {sys.argv[3].rsplit('/', 1)[-1]} into Blender and back: {words}")
        sys.exit(status)
    write(sys.argv[1])
