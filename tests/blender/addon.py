"""The add-on in Blender: cameras of many kinds have to move as the program shakes them, and to be what they were when it is taken off.

    BLENDER_USER_SCRIPTS=FOLDER blender --background --factory-startup --python addon.py -- PROGRAM

FOLDER/addons/tremolux is the add-on with its library, PROGRAM is tremolux.
"""
import json
import math
import os
import subprocess
import sys
import tempfile

import bpy
from mathutils import Euler, Matrix, Quaternion

PROGRAM = sys.argv[sys.argv.index("--") + 1]
PRESET = "Nervous"
TOLERANCE = 1e-6  # of a world matrix: units, or of an axis's direction
SHAKEN = 1e-3     # the shake moves every camera by more
FRAMES = 60
MODES = "QUATERNION", "XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX", "AXIS_ANGLE"
RATES = (24, 1.001), (24, 1.0), (25, 1.0), (30, 1.001), (60, 1.0)
STARTS = -20, 0, 101

failures = []
checks = 0


def expect(holds, words):
    global checks
    checks += 1
    if not holds:
        failures.append(words)


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


def check_kinds():
    for mode in MODES:
        scene = new_scene()
        check(f"rotation mode {mode}", scene, new_camera(scene, mode))
    for fps, base in RATES:
        scene = new_scene(fps=fps, fps_base=base)
        check(f"{fps / base:.3f} frames a second", scene, new_camera(scene))
    for start in STARTS:
        scene = new_scene(start=start)
        check(f"from frame {start}", scene, new_camera(scene))

    scene = new_scene()
    camera = new_camera(scene)
    camera.delta_location, camera.delta_rotation_euler = (0.1, 0.2, 0.3), (0.1, -0.2, 0.3)
    check("deltas of its own", scene, camera)

    scene = new_scene()
    camera, parent = new_camera(scene), bpy.data.objects.new("Crane", None)
    scene.collection.objects.link(parent)
    parent.location, parent.rotation_euler, parent.scale = (1, 0.5, 0), (0.1, 0.2, 0.7), (2, 2, 2)
    parent.keyframe_insert("rotation_euler", frame=1)
    parent.rotation_euler.z = 1.4
    parent.keyframe_insert("rotation_euler", frame=60)
    camera.parent = parent
    check("a parent that turns and is twice as large", scene, camera, tolerance=2 * TOLERANCE)

    scene = new_scene()
    camera, goal = new_camera(scene), bpy.data.objects.new("Goal", None)
    scene.collection.objects.link(goal)
    goal.location = (0, 8, 1)
    constraint = camera.constraints.new("TRACK_TO")
    constraint.target = goal
    check("a constraint that turns it", scene, camera)

    scene = new_scene()
    camera = bpy.data.objects.new("Still", bpy.data.cameras.new("Still"))
    scene.collection.objects.link(camera)
    camera.location, camera.rotation_euler = (1, 2, 1.5), (1.5, 0, 0.4)
    bpy.context.view_layer.objects.active = camera
    check("no keys at all", scene, camera)

    scene = new_scene()
    camera, other = new_camera(scene), new_camera(scene, name="Other")
    bpy.context.view_layer.objects.active = other
    bpy.ops.tremolux.add()
    bpy.context.view_layer.objects.active = camera
    check("beside another that is shaken", scene, camera)


def check_edits():
    scene = new_scene()
    camera = new_camera(scene)
    state = camera.tremolux
    bpy.ops.tremolux.add()
    first = seen(scene, camera)
    bpy.ops.tremolux.shuffle()
    expect(seen(scene, camera) != first, "another take moves as the first one did")
    state.amount = 0
    expect(max(difference(a[0], b[0]) for a, b in zip(seen(scene, camera), first)) > SHAKEN, "no amount still shakes")
    state.amount = 100
    state.use_range, state.first_frame, state.last_frame, state.fade_in = True, 20, 40, 5
    ranged = seen(scene, camera)
    bpy.ops.tremolux.remove()
    plain = seen(scene, camera)
    expect(all(difference(a[0], b[0]) < TOLERANCE for a, b in zip(ranged[:18], plain[:18])), "it shakes before its range")
    expect(max(difference(a[0], b[0]) for a, b in zip(ranged[25:38], plain[25:38])) > SHAKEN, "it does not shake in its range")

    state.use_range = False
    bpy.ops.tremolux.add()
    strip = camera.animation_data.nla_tracks[-1].strips[0]
    strip.action.fcurves[0].keyframe_points[7].co.y += 0.5
    edited = seen(scene, camera)
    state.amount = 50
    expect("edited by hand" in state.message and seen(scene, camera) == edited, "keys that were edited are lost")
    expect(bpy.ops.tremolux.update() == {"FINISHED"} and not state.message, "an update does not replace edited keys")
    expect(seen(scene, camera) != edited, "an update leaves edited keys")

    # What moves by itself when the add-on is off: keys, and nothing else.
    shaken = seen(scene, camera)
    bpy.ops.preferences.addon_disable(module="tremolux")
    expect(seen(scene, camera) == shaken, "without the add-on the camera moves otherwise")
    expect(not any("tremolux" in str(handler) for handlers in (bpy.app.handlers.frame_change_pre, bpy.app.handlers.frame_change_post,
                                                               bpy.app.handlers.depsgraph_update_post) for handler in handlers),
           "a handler is left")
    bpy.ops.preferences.addon_enable(module="tremolux")
    before = len(bpy.data.actions)
    bpy.ops.tremolux.freeze()
    expect(seen(scene, camera) == shaken and len(bpy.data.actions) == before, "frozen keys are others")
    expect(bpy.ops.tremolux.remove.poll() and bpy.ops.tremolux.remove() == {"FINISHED"} and seen(scene, camera) == shaken,
           "frozen keys are taken off")


def check_keyed_settings():
    scene = new_scene()
    camera = new_camera(scene)
    bpy.ops.tremolux.preset(name=PRESET)
    scale = next(name for name, prop in camera.tremolux.bl_rna.properties.items() if prop.name == "Overall Scale")
    plain = seen(scene, camera)
    setattr(camera.tremolux, scale, 100)
    camera.keyframe_insert(f"tremolux.{scale}", frame=1)
    setattr(camera.tremolux, scale, 300)
    camera.keyframe_insert(f"tremolux.{scale}", frame=41)
    for curve in camera.animation_data.action.fcurves:
        if scale in curve.data_path:
            for point in curve.keyframe_points:
                point.interpolation = "LINEAR"
    expect(bpy.ops.tremolux.add() == {"FINISHED"}, camera.tremolux.message)
    wanted = shaken_by_program(scene, plain, ("--key", "Overall Scale@1=1,41=3"))
    worst = max(difference(a[0], b[0]) for a, b in zip(wanted, seen(scene, camera)))
    print(f"addon: a keyed setting: {worst:.1e}")
    expect(worst <= 2 * TOLERANCE, "a keyed setting does something else than in the program")


def check_refusals():
    scene = new_scene()
    camera = new_camera(scene)
    scene.frame_end = 200000
    try:
        bpy.ops.tremolux.add()
        expect(False, "200,000 frames are shaken")
    except RuntimeError as error:
        expect("200000 frames" in str(error), f"200,000 frames: {error}")
    expect(camera.animation_data.nla_tracks[:] == [], "a refusal leaves something")


def check_what_cannot_be_shaken():
    scene = new_scene()
    camera = new_camera(scene)
    camera.scale.x = -1
    try:
        bpy.ops.tremolux.add()
        expect(False, "a mirrored camera is shaken")
    except RuntimeError as error:
        expect("mirrored" in str(error), f"a mirrored camera: {error}")

    scene = new_scene()
    camera, parent = new_camera(scene), bpy.data.objects.new("Wide", None)
    scene.collection.objects.link(parent)
    parent.scale = (2, 1, 1)
    camera.parent = parent
    expect(bpy.ops.tremolux.add() == {"FINISHED"}, "a camera that is leaned on by its parent: not shaken")
    follower = bpy.data.objects.get("Hero (hand-held)")
    expect(follower is not None, "a leaning camera has no follower")
    for world, _, _ in seen(scene, follower):
        axes = [[world[row][column] for row in range(3)] for column in range(3)]
        dots = [sum(a * b for a, b in zip(axes[i], axes[j])) for i in range(3) for j in range(i)]
        expect(max(map(abs, dots)) < TOLERANCE, "a follower leans")


def check_copies():
    scene = new_scene()
    camera = new_camera(scene)
    bpy.ops.tremolux.add()
    first = seen(scene, camera)
    copy = camera.copy()
    scene.collection.objects.link(copy)
    bpy.context.view_layer.objects.active = copy
    expect(seen(scene, copy) == first, "a copy moves otherwise")
    copy.tremolux.amount = 30
    expect(seen(scene, camera) == first, "an edit of a copy changes the camera that it was copied from")
    expect(difference(seen(scene, copy)[30][0], first[30][0]) > SHAKEN / 10, "an edit of a copy changes nothing")
    bpy.ops.tremolux.remove()
    expect(seen(scene, camera) == first, "a copy takes the shake of the camera along")

    scene = new_scene()
    camera = new_camera(scene, "AXIS_ANGLE")
    bpy.ops.tremolux.add()
    camera.name = "Renamed"
    bpy.ops.tremolux.update()
    expect([thing.name for thing in bpy.data.objects if "(hand-held)" in thing.name] == ["Renamed (hand-held)"],
           "a renamed camera has another follower")
    bpy.ops.tremolux.remove()
    expect(len(bpy.data.objects) == 1 and len(bpy.data.cameras) == 1, "a renamed camera keeps its follower")


check_kinds()
check_edits()
check_what_cannot_be_shaken()
check_copies()
check_keyed_settings()
check_refusals()
for failure in failures:
    print(f"addon: FAILED: {failure}")
print(f"addon: {checks} checks, {len(failures)} failed")
if failures or checks < 150:
    sys.exit("addon: FAILED")
