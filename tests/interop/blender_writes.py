#!/usr/bin/env python3
"""Writes an animated camera as files of several kinds, and the table that the program must make of them.

    blender --background --factory-startup --python blender_writes.py -- FOLDER

Every file is imported with `tremolux import`; `blender_writes.py --compare TABLE.json MOVE.json` (in any Python) holds the
result against the table to 1e-5: metres, matrix entries, parts of the focal length (which COLLADA has through seven digits of an angle) and metres of focus.
"""
import json
import math
import sys

FIRST, LAST = 3, 40
TOLERANCE = 1e-5


def matrix_of(sample):
    """Back from the move's numbers: R = Ry(h) Rx(p) Rz(-b), z mirrored, metres; columns right, up, back, position."""
    h, p, b = (math.radians(angle) for angle in sample["hpb"])
    cos, sin = math.cos, math.sin
    turns = [[[cos(h), 0, sin(h)], [0, 1, 0], [-sin(h), 0, cos(h)]],
             [[1, 0, 0], [0, cos(p), -sin(p)], [0, sin(p), cos(p)]],
             [[cos(-b), -sin(-b), 0], [sin(-b), cos(-b), 0], [0, 0, 1]]]
    product = turns[0]
    for turn in turns[1:]:
        product = [[sum(product[i][k] * turn[k][j] for k in range(3)) for j in range(3)] for i in range(3)]
    x, y, z = (number / 100 for number in sample["position"])
    return [product[i][j] for j in range(3) for i in range(3)] + [x, y, -z]


def z_up_to_y_up(columns):
    return [number for i in range(0, 12, 3) for number in (columns[i], columns[i + 2], -columns[i + 1])]


def compare(table_file, move_file, *skipped):
    with open(table_file, encoding="utf-8") as file:
        table = json.load(file)
    with open(move_file, encoding="utf-8") as file:
        move = json.load(file)
    rate = move["frames_per_second"]
    rate = rate[0] / rate[1] if isinstance(rate, list) else rate
    off = {"rate": abs(rate - table["rate"]), "film back": abs(move["film_back_width"] - table["sensor_width"]),
           "matrix": 0.0, "focal length": 0.0, "focus": 0.0}
    # What a field of view alone says.
    widths = move["film_back_width"] / table["sensor_width"] if "film back" in skipped else 1
    first = table["first"]
    if [frame["frame"] for frame in move["frames"]] != list(range(first, first + len(table["rows"]))):
        return "other frames", 1
    for row, sample in zip(table["rows"], move["frames"]):
        for a, b in zip(z_up_to_y_up(row["matrix"]), matrix_of(sample)):
            off["matrix"] = max(off["matrix"], abs(a - b))
        off["focal length"] = max(off["focal length"], abs(row["lens"] * widths / sample["focal_length"] - 1))
        off["focus"] = max(off["focus"], abs(row["focus"] - sample["focus_distance"] / 100))
    words = ", ".join(f"{name} within {value:.1e}" for name, value in off.items() if name not in skipped)
    return words, int(any(value > TOLERANCE for name, value in off.items() if name not in skipped))


def write(folder):
    import addon_utils
    import bpy
    for thing in list(bpy.data.objects):
        bpy.data.objects.remove(thing)
    scene = bpy.context.scene
    scene.frame_start, scene.frame_end = FIRST, LAST
    rig = bpy.data.objects.new("Rig", None)
    data = bpy.data.cameras.new("Shot")
    camera = bpy.data.objects.new("Shot", data)
    data.sensor_fit, data.sensor_width, data.sensor_height = "HORIZONTAL", 30.0, 16.875
    camera.parent = rig
    for thing in (rig, camera):
        scene.collection.objects.link(thing)
    for frame in range(FIRST, LAST + 1):
        turn = frame / 10
        rig.location = (0.2 * frame, 1, 0)
        rig.rotation_euler = (0, 0, 0.01 * frame)
        camera.location = (math.cos(turn), math.sin(turn), 1.6)
        camera.rotation_euler = (1.4 + 0.05 * math.sin(turn), 0.02 * math.cos(turn), 0.3 * turn)
        data.lens = 30 + 0.25 * frame
        data.dof.focus_distance = 4 + 0.05 * frame
        for thing, paths in ((rig, ("location", "rotation_euler")), (camera, ("location", "rotation_euler")),
                             (data, ("lens", "dof.focus_distance"))):
            for path in paths:
                thing.keyframe_insert(path, frame=frame)
    for kind, fps, fps_base in (("blend", 24, 1.001), ("fbx", 24, 1.001), ("takes.fbx", 25, 1.0), ("gltf", 24, 1.0),
                                ("dae", 24, 1.0), ("x3d", 24, 1.0)):
        scene.render.fps, scene.render.fps_base = fps, fps_base
        rows = []
        for frame in range(FIRST, LAST + 1):
            scene.frame_set(frame)
            seen = camera.evaluated_get(bpy.context.evaluated_depsgraph_get())
            world = seen.matrix_world
            rows.append({"matrix": [world[i][j] for j in range(4) for i in range(3)], "lens": seen.data.lens,
                         "focus": seen.data.dof.focus_distance})
        with open(f"{folder}/blender.{kind}.table", "w", encoding="utf-8") as file:
            # Takes begin at time 0. A viewpoint of X3D stands still: as it is now, on the scene's first frame.
            json.dump({"rate": fps / fps_base, "sensor_width": data.sensor_width,
                       "rows": rows[-1:] if kind == "x3d" else rows,
                       "first": {"takes.fbx": 0, "x3d": 1}.get(kind, FIRST)}, file)
        name = f"{folder}/blender.{kind}"
        if kind == "blend":
            bpy.ops.wm.save_as_mainfile(filepath=name, copy=True)
        elif kind.endswith("fbx"):
            takes = kind == "takes.fbx"
            bpy.ops.export_scene.fbx(filepath=name, bake_anim_simplify_factor=0.0, bake_anim_use_all_actions=takes,
                                     bake_anim_use_nla_strips=takes)
        elif kind == "gltf":
            bpy.ops.export_scene.gltf(filepath=name, export_format="GLTF_EMBEDDED", export_cameras=True)
        elif kind == "x3d":
            addon_utils.enable("io_scene_x3d")
            bpy.ops.export_scene.x3d(filepath=name, axis_forward="-Z", axis_up="Y")
        else:
            bpy.ops.wm.collada_export(filepath=name, include_all_actions=False)


if __name__ == "__main__":
    if "--compare" in sys.argv:
        arguments = sys.argv[sys.argv.index("--compare") + 1:]
        words, status = compare(*arguments)
        print(f"interop: {arguments[1].rsplit('/', 1)[-1]} out of Blender: {words}")
        sys.exit(status)
    write(sys.argv[sys.argv.index("--") + 1])
