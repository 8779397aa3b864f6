"""Scenes with cameras to shake, and what is asked of them: shared by the add-on's tests, which run in Blender.

    BLENDER_USER_SCRIPTS=FOLDER blender --background --factory-startup --python addon.py -- PROGRAM

FOLDER/addons/tremolux is the add-on with its library, PROGRAM is tremolux.
"""
import json
import math
import subprocess
import sys
import tempfile

import bpy
from mathutils import Euler, Matrix

PROGRAM = sys.argv[sys.argv.index("--") + 1]
PRESET = "Nervous"
TOLERANCE = 1e-6  # of a world matrix: units, or of an axis's direction
SHAKEN = 1e-3     # the shake moves every camera by more
FRAMES = 60

checks = []  # (whether it holds, what is wrong otherwise)


def expect(holds, words):
    checks.append((holds, words))
    return holds


def finish(least):
    """Says what failed; ends Blender with 1 where something did, or where fewer than `least` were asked."""
    failures = [words for holds, words in checks if not holds]
    for failure in failures:
        print(f"addon: FAILED: {failure}")
    print(f"addon: {len(checks)} checks, {len(failures)} failed")
    if failures or len(checks) < least:
        sys.exit("addon: FAILED")


def new_scene(start=1, fps=24, fps_base=1.0):
    bpy.ops.wm.read_factory_settings(use_empty=True)
    bpy.ops.preferences.addon_enable(module="tremolux")
    scene = bpy.context.scene
    scene.render.fps, scene.render.fps_base = fps, fps_base
    scene.frame_start, scene.frame_end = max(start, 0), start + FRAMES - 1
    if start < 0:
        scene.use_preview_range, scene.frame_preview_start, scene.frame_preview_end = True, start, start + FRAMES - 1
    return scene


def new_camera(scene, mode="XYZ", name="Hero"):
    """It moves, turns and zooms by keys of its own."""
    camera = bpy.data.objects.new(name, bpy.data.cameras.new(name))
    scene.collection.objects.link(camera)
    camera.rotation_mode = mode
    start = scene.frame_preview_start if scene.use_preview_range else scene.frame_start
    path = {"QUATERNION": "rotation_quaternion", "AXIS_ANGLE": "rotation_axis_angle"}.get(mode, "rotation_euler")
    for step in range(4):
        frame = start + step * 20
        camera.location = (0.3 * step, -0.5 * step, 1.6 + 0.1 * step)
        turn = Euler((1.4 + 0.1 * step, 0.05 * step, 0.3 - 0.2 * step), "XYZ").to_quaternion()
        if mode == "QUATERNION":
            camera.rotation_quaternion = turn
        elif mode == "AXIS_ANGLE":
            camera.rotation_axis_angle = (turn.angle, *turn.axis)
        else:
            camera.rotation_euler = turn.to_euler(mode, camera.rotation_euler)
        camera.data.lens, camera.data.dof.focus_distance = 35 + 5 * step, 4 + step
        camera.keyframe_insert("location", frame=frame)
        camera.keyframe_insert(path, frame=frame)
        camera.data.keyframe_insert("lens", frame=frame)
        camera.data.keyframe_insert("dof.focus_distance", frame=frame)
    bpy.context.view_layer.objects.active = camera
    return camera


def frames_of(scene):
    start = scene.frame_preview_start if scene.use_preview_range else scene.frame_start
    return range(start, start + FRAMES)


def seen(scene, camera):
    """(world matrix, lens, focus) by frame."""
    found = []
    for frame in frames_of(scene):
        scene.frame_set(frame)
        evaluated = camera.evaluated_get(bpy.context.evaluated_depsgraph_get())
        found.append(([list(row) for row in evaluated.matrix_world], evaluated.data.lens, evaluated.data.dof.focus_distance))
    return found


def angles_of(world):
    """Heading, pitch and bank, degrees, from where the camera looks and where its right side is."""
    lengths = [math.sqrt(sum(world[row][column] ** 2 for row in range(3))) for column in range(3)]
    (rx, _, rz), (_, _, uz), (bx, by, bz) = (
        [world[row][column] / lengths[column] for row in range(3)] for column in range(3))
    # It looks along (-bx, -by, -bz), whose height is its pitch; north is -y.
    return math.degrees(math.atan2(bx, -by)), math.degrees(math.asin(max(-1, min(1, -bz)))), math.degrees(-math.atan2(rz, uz))


def shaken_by_program(scene, motion, options=()):
    """The same as the program has it, by frame: matrix, lens, focus."""
    rate = f"{scene.render.fps}" if scene.render.fps_base == 1 else f"{scene.render.fps * 1000}/1001"
    with tempfile.TemporaryDirectory() as folder:
        move, shaken = f"{folder}/move.csv", f"{folder}/shaken.json"
        with open(move, "w", encoding="utf-8") as file:
            file.write("frame,x,y,z,h,p,b,focal_length,focus_distance\n")
            last = None
            for frame, (world, lens, focus) in zip(frames_of(scene), motion):
                x, y, z = (world[row][3] * 100 for row in range(3))
                angles = angles_of(world)
                if last:
                    angles = [angle + 360 * round((near - angle) / 360) for angle, near in zip(angles, last)]
                last = angles
                file.write(",".join(map(repr, (frame, x, z, y, *angles, lens, focus * 100))) + "\n")
        subprocess.run([PROGRAM, "shake", move, "-o", shaken, "--fps", rate, "--preset", PRESET, "--quiet",
                        "--user-folder", folder, *options], check=True, capture_output=True)
        with open(shaken, encoding="utf-8") as file:
            frames = json.load(file)["frames"]
    found = []
    for frame in frames:
        heading, pitch, bank = (math.radians(angle) for angle in frame["hpb"])
        # Mirrored in z, and turned from y up to z up.
        turned = Matrix.Rotation(heading, 3, "Y") @ Matrix.Rotation(pitch, 3, "X") @ Matrix.Rotation(-bank, 3, "Z")
        axes = Matrix.Rotation(math.pi / 2, 3, "X") @ turned
        x, y, z = (value / 100 for value in frame["position"])
        found.append(([[*axes[row], (x, z, y)[row]] for row in range(3)], frame["focal_length"], frame["focus_distance"] / 100))
    return found


def normalized(world):
    lengths = [math.sqrt(sum(world[row][column] ** 2 for row in range(3))) for column in range(3)]
    return [[world[row][column] / lengths[column] for column in range(3)] + [world[row][3]] for row in range(3)]


def difference(a, b):
    a, b = normalized(a), normalized(b)
    return max(abs(a[row][column] - b[row][column]) for row in range(3) for column in range(4))


def dump(things):
    """Everything that an artist could see of them: properties, keys, strips."""
    def plain(value):
        if isinstance(value, (bool, int, float, str)) or value is None:
            return value
        if hasattr(value, "to_list") or hasattr(value, "__len__"):
            try:
                return [plain(item) for item in value]
            except TypeError:
                return str(value)
        return getattr(value, "name", str(type(value)))

    found = {}
    for thing in things:
        for name, prop in thing.bl_rna.properties.items():
            if prop.type != "COLLECTION" and name not in ("tremolux", "rna_type", "original", "is_evaluated"):
                found[thing.name, name] = plain(getattr(thing, name))
        animation = thing.animation_data
        if animation:
            found[thing.name, "animation"] = (animation.action_blend_type, len(animation.nla_tracks), animation.use_nla)
        if animation and animation.action:
            found[thing.name, "keys"] = [
                (curve.data_path, curve.array_index, point.co[:], point.handle_left[:], point.handle_right[:], point.interpolation)
                for curve in animation.action.fcurves for point in curve.keyframe_points]
    found["blocks"] = [sorted(block.name for block in blocks) for blocks in (bpy.data.objects, bpy.data.cameras, bpy.data.actions)]
    return found


def check(name, scene, camera, tolerance=TOLERANCE):
    """Shaken as the program does, and taken off without a trace."""
    frame = scene.frame_current
    settings = (scene.render.fps, scene.render.fps_base, scene.frame_start, scene.frame_end, scene.camera)
    things = [camera, camera.data] + ([camera.parent] if camera.parent else [])
    plain = seen(scene, camera)
    scene.frame_set(frame)
    before = dump(things)
    expect(bpy.ops.tremolux.preset(name=PRESET) == {"FINISHED"}, f"{name}: no preset")
    expect(bpy.ops.tremolux.add() == {"FINISHED"} and not camera.tremolux.message, f"{name}: {camera.tremolux.message}")
    expect(scene.frame_current == frame, f"{name}: the scene stands at another frame")
    expect(settings == (scene.render.fps, scene.render.fps_base, scene.frame_start, scene.frame_end, scene.camera),
           f"{name}: the scene was changed")
    shown = bpy.data.objects.get(f"{camera.name} (hand-held)") or camera
    wanted, found = shaken_by_program(scene, plain), seen(scene, shown)
    worst = max(difference(a[0], b[0]) for a, b in zip(wanted, found))
    lens = max(abs(a[1] - b[1]) for a, b in zip(wanted, found))
    focus = max(abs(a[2] - b[2]) for a, b in zip(wanted, found))
    moved = max(difference(a[0], b[0]) for a, b in zip(plain, found))
    print(f"addon: {name}: {worst:.1e}, lens {lens:.1e} mm, focus {focus:.1e}, shaken by {moved:.2g}")
    expect(len(wanted) == len(found) == FRAMES and moved > SHAKEN, f"{name}: nothing shakes")
    expect(worst <= tolerance and lens <= 1e-5 and focus <= 1e-5, f"{name}: another camera than the program's")
    scene.frame_set(frame)
    expect(bpy.ops.tremolux.remove() == {"FINISHED"}, f"{name}: not taken off")
    after = dump(things)
    for key in sorted(set(before) | set(after), key=str):
        expect(before.get(key) == after.get(key), f"{name}: {key} was {before.get(key)}, is {after.get(key)}")


def strips_of(camera):
    """Every key of the shake."""
    found = []
    for owner in (camera, camera.data):
        for track in owner.animation_data.nla_tracks if owner.animation_data else []:
            for strip in track.strips:
                for curve in strip.action.fcurves:
                    found.append((curve.data_path, curve.array_index, [point.co[:] for point in curve.keyframe_points]))
    return found


def expect_fresh(name, camera):
    """The shake that is there is the one that its settings and its camera make now."""
    bpy.context.view_layer.objects.active = camera
    before = strips_of(camera)
    expect(before and not camera.tremolux.message, f"{name}: no shake: {camera.tremolux.message}")
    bpy.ops.tremolux.update()
    expect(strips_of(camera) == before, f"{name}: another shake than its settings make")
