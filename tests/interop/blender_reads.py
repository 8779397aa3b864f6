"""Opens camera files in Blender and holds its camera against the tables that they were made from; then writes a file of its own.

    blender --background --factory-startup --python blender_reads.py -- FOLDER RATE...

FOLDER has the tables zoom.csv and fixed.csv, and of each for each RATE (24, 24000-1001) the files TABLE_RATE.chan, .py, .gltf
and .glb. On every frame the camera's world matrix and both fields of view must be those of the table to 1e-5 (metres,
radians; a position far from the origin to 1e-6 of its distance, as Blender keeps 32-bit numbers), and so must film back and
frame rate, where the file has them. Of glTF Blender passes an animated field of view over: it is held against the first frame's.
The expected matrix is built from the table's angles here, apart from the program's own code.

So must what scripts of traits.json and flat.json (traits.py) set beside the motion; the scenes go into traits.blend and
flat.blend.

Into FOLDER go own_RATE.gltf and own_RATE.glb, a camera with an animated parent as this Blender exports it, and own.csv,
its world matrix row by row on every frame.
"""
import csv
import itertools
import json
import math
import os
import runpy
import sys

import addon_utils
import bpy
from mathutils import Matrix, Vector

sys.path.append(os.path.dirname(__file__))
import traits

WIDTH, HEIGHT, FILM_BACK = 1920, 1080, 36
TOLERANCE = 1e-5


def expected_matrix(row):
    """R = Ry(h) Rx(p) Rz(-b), the position mirrored in z; then +90 degrees about x into Blender's world, in metres."""
    h, p, b = (math.radians(float(row[name])) for name in "hpb")
    turn = Matrix.Rotation(h, 4, "Y") @ Matrix.Rotation(p, 4, "X") @ Matrix.Rotation(-b, 4, "Z")
    place = Matrix.Translation(Vector((float(row["x"]), float(row["y"]), -float(row["z"]))) / 100)
    return Matrix.Rotation(math.pi / 2, 4, "X") @ place @ turn


def open_chan(file):
    addon_utils.enable("io_anim_nuke_chan")
    data = bpy.data.cameras.new("Camera")
    data.sensor_fit, data.sensor_width = "HORIZONTAL", FILM_BACK
    camera = bpy.data.objects.new("Camera", data)
    camera.rotation_mode = "QUATERNION"
    bpy.context.scene.collection.objects.link(camera)
    bpy.context.view_layer.objects.active = camera
    bpy.ops.import_scene.import_chan(filepath=file, rotation_order="ZXY", z_up=True)
    return camera


def open_gltf(file):
    bpy.ops.import_scene.gltf(filepath=file)
    return next(thing for thing in bpy.data.objects if thing.type == "CAMERA")


def open_script(file):
    runpy.run_path(file)
    return bpy.context.scene.camera


OPENERS = {".chan": open_chan, ".gltf": open_gltf, ".glb": open_gltf, ".py": open_script}


def empty_scene(rate):
    for thing in list(bpy.data.objects):
        bpy.data.objects.remove(thing)
    for action in list(bpy.data.actions):
        bpy.data.actions.remove(action)
    scene = bpy.context.scene
    scene.render.resolution_x, scene.render.resolution_y = WIDTH, HEIGHT
    numerator, denominator = rate
    scene.render.fps = round(numerator / denominator)
    scene.render.fps_base = scene.render.fps * denominator / numerator
    return scene


def check(rows, file, kind, rate):
    scene = empty_scene(rate if kind != ".py" else (12, 1))
    camera = OPENERS[kind](file)
    fps, base = scene.render.fps, scene.render.fps_base
    assert abs(fps / base - rate[0] / rate[1]) < 1e-4, f"{file}: {fps} / {base} frames per second"
    # The importer of .chan files has a film back of its own.
    if kind != ".chan":
        assert abs(camera.data.sensor_width - FILM_BACK) < 1e-5, f"{file}: a film back of {camera.data.sensor_width} mm"
    is_gltf = kind in (".gltf", ".glb")
    if kind == ".py":
        assert abs(camera.data.sensor_height - FILM_BACK * HEIGHT / WIDTH) < 1e-5, f"{file}: height of the film back"
    worst_matrix = worst_angle = 0.0
    for row in rows:
        # Blender puts glTF's seconds on frames by the whole rate alone.
        frame = int(row["frame"]) * (base if is_gltf else 1)
        scene.frame_set(math.floor(frame), subframe=frame - math.floor(frame))
        depsgraph = bpy.context.evaluated_depsgraph_get()
        seen = camera.evaluated_get(depsgraph)
        expected = expected_matrix(row)
        scale = max(1, 0.1 * expected.translation.length)
        for i in range(3):
            for j in range(4):
                off = abs(seen.matrix_world[i][j] - expected[i][j]) / (scale if j == 3 else 1)
                worst_matrix = max(worst_matrix, off)
        focal_length = float((rows[0] if is_gltf else row)["focal_length"])
        projection = seen.calc_matrix_camera(depsgraph, x=WIDTH, y=HEIGHT)
        for axis, aperture in ((0, FILM_BACK), (1, FILM_BACK * HEIGHT / WIDTH)):
            angle = 2 * math.atan(1 / projection[axis][axis])
            worst_angle = max(worst_angle, abs(angle - 2 * math.atan(aperture / 2 / focal_length)))
    print(f"interop: {file.rsplit('/', 1)[-1]} in Blender: {len(rows)} frames, world matrix within {worst_matrix:.1e}, "
          f"field of view within {worst_angle:.1e} radians")
    return worst_matrix <= TOLERANCE and worst_angle <= TOLERANCE


def write_own(folder, rate, name):
    """A camera with keys of its own below a parent that turns, grows and moves."""
    scene = empty_scene(rate)
    scene.frame_start, scene.frame_end = 1, 40
    parent = bpy.data.objects.new("Dolly", None)
    data = bpy.data.cameras.new("Lens")
    data.lens, data.sensor_width = 50, FILM_BACK
    camera = bpy.data.objects.new("Shot", data)
    camera.parent = parent
    for thing in (parent, camera):
        scene.collection.objects.link(thing)
    scene.camera = camera
    for frame, place, turn, size in ((1, (0, 0, 0), (0.1, 0, 0), 1), (17, (3, -1, 2), (0.4, 0.2, 1.1), 1.5),
                                     (40, (1, 4, 1), (0, -0.3, 2.5), 1)):
        parent.location, parent.rotation_euler, parent.scale = place, turn, (size, size, size)
        camera.location, camera.rotation_euler = (place[1], 2, place[0]), (1.2, turn[0], turn[2] / 2)
        for path in ("location", "rotation_euler", "scale"):
            parent.keyframe_insert(path, frame=frame)
        for path in ("location", "rotation_euler"):
            camera.keyframe_insert(path, frame=frame)
    with open(f"{folder}/own.csv", "w", encoding="utf-8") as table:
        for frame in range(scene.frame_start, scene.frame_end + 1):
            scene.frame_set(frame)
            place, turn, _ = camera.matrix_world.decompose()
            world = Matrix.Translation(place) @ turn.to_matrix().to_4x4()
            table.write(",".join(repr(number) for row in world for number in row) + "\n")
    for kind, suffix in (("GLTF_EMBEDDED", "gltf"), ("GLB", "glb")):
        bpy.ops.export_scene.gltf(filepath=f"{folder}/own_{name}.{suffix}", export_format=kind, export_cameras=True)


def check_traits(folder, name):
    """What a script sets beside the motion, as Blender's camera has it; the scene is kept to be imported again."""
    with open(f"{folder}/{name}.json", encoding="utf-8") as file:
        move = json.load(file)
    empty_scene((12, 1))
    camera = open_script(f"{folder}/{name}.py")
    width, worst = move["film_back_width"], 0.0
    for frame in move["frames"]:
        bpy.context.scene.frame_set(frame["frame"])
        data = camera.evaluated_get(bpy.context.evaluated_depsgraph_get()).data
        seen = [(data.sensor_width, width), (data.sensor_height, move["film_back_height"])]
        seen += [(data.path_resolve(path), frame.get(trait, move.get(trait)) * (unit or 1 / width))
                 for trait, (path, unit) in traits.TRAITS.items()]
        if move["projection"] == "orthographic":
            seen.append((data.ortho_scale, width / 1000))
        worst = max([worst] + [abs(found - wanted) / max(1, abs(wanted)) for found, wanted in seen])
    kind = {"perspective": "PERSP", "orthographic": "ORTHO"}[move["projection"]]
    print(f"interop: {name}.py in Blender: {data.type}, film back, shift, f-stop and clipping within {worst:.1e}")
    bpy.ops.wm.save_as_mainfile(filepath=f"{folder}/{name}.blend", copy=True)
    return worst <= TOLERANCE and data.type == kind and data.dof.use_dof and camera.name == "Hero"


def main(folder, *names):
    good = True
    rates = {name: tuple(int(part) for part in (name + "-1").split("-")[:2]) for name in names}
    for table, kind in itertools.product(("zoom", "fixed"), OPENERS):
        with open(f"{folder}/{table}.csv", encoding="utf-8", newline="") as lines:
            rows = list(csv.DictReader(lines))
        for name, rate in rates.items():
            good = check(rows, f"{folder}/{table}_{name}{kind}", kind, rate) and good
    for name in ("traits", "flat"):
        good = check_traits(folder, name) and good
    for name, rate in rates.items():
        write_own(folder, rate, name)
    return 0 if good else 1


try:
    status = main(*sys.argv[sys.argv.index("--") + 1:])
except Exception as error:
    print(f"interop: {error}")
    status = 1
sys.exit(status)
