"""The shake on cameras that are in a scene: Blender's judgement of what `--on` and `--added` write.

    blender --background --factory-startup --python added.py -- FOLDER

FOLDER holds input.json and shaken.json, the move and the shaken camera, alone.json, what was added, and added.py, made for a camera
named Hero. The move and what was added, put together by the formula that the file states, have to be the shaken camera.
Cameras with keys of their own (every rotation mode that has deltas, a parent, deltas, no keys at all) follow the input; with the
script run they have to be the shaken camera on every frame, and after tremolux_remove() all that they were.
"""
import json
import math
import sys

import bpy
from mathutils import Matrix, Quaternion

TOLERANCE = 1e-5
SHAKEN = 1e-3  # the shake moves the camera by more than this: metres, or an axis's direction
FOLDER = sys.argv[sys.argv.index("--") + 1]
MODES = "QUATERNION", "XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"


def load(name):
    with open(f"{FOLDER}/{name}.json", encoding="utf-8") as file:
        return json.load(file)["frames"]


def world(frame):
    """Left-handed, y up, looking along +z, into Blender's, by the matrices of the three turns."""
    heading, pitch, bank = (math.radians(angle) for angle in frame["hpb"])
    # Ry(heading) Rx(pitch) Rz(-bank) on right-handed columns once z is mirrored.
    turned = Matrix.Rotation(heading, 3, "Y") @ Matrix.Rotation(pitch, 3, "X") @ Matrix.Rotation(-bank, 3, "Z")
    x, y, z = (value / 100 for value in frame["position"])
    upright = Matrix.Rotation(math.pi / 2, 4, "X")
    return upright @ (Matrix.Translation((x, y, -z)) @ turned.to_4x4())


def together(frame, added):
    """position + position, and rotation * turn: mirrored in z, a turn about x or y turns round."""
    own = world(frame)
    w, x, y, z = added["turn"]
    x_way, y_way, z_way = (value / 100 for value in added["position"])
    way = Matrix.Rotation(math.pi / 2, 4, "X") @ Matrix.Translation((x_way, y_way, -z_way))
    made = own @ Quaternion((w, -x, -y, z)).to_matrix().to_4x4()
    made.translation = own.translation + way.translation
    return made


def frames_of(*names):
    """The frames of these files beside each other: as many in each, and some."""
    files = [load(name) for name in names]
    if not files[0] or any(len(file) != len(files[0]) for file in files):
        sys.exit(f"interop: {', '.join(names)}: {[len(file) for file in files]} frames FAILED")
    return list(zip(*files))


def difference(a, b):
    return max(abs(a[row][column] - b[row][column]) for row in range(3) for column in range(4))


def judge_files():
    worst, moved = 0.0, 0.0
    for frame, added, shaken in frames_of("input", "alone", "shaken"):
        made, wanted = together(frame, added), world(shaken)
        moved = max(moved, difference(world(frame), wanted))
        worst = max(worst, difference(made, wanted))
        worst = max(worst, abs(frame["focal_length"] + added["focal_length"] - shaken["focal_length"]) / shaken["focal_length"])
    good = worst <= TOLERANCE and moved > SHAKEN
    print(f"interop: the input and what was added, by Blender's matrices: within {worst:.1e}, moved {moved:.1e}" + ("" if good else " FAILED"))
    return good


def snapshot():
    """Everything of the scene that the script must leave alone."""
    scene = bpy.context.scene
    things = [scene.render.fps, scene.render.fps_base, scene.frame_start, scene.frame_end, scene.frame_current,
              scene.render.resolution_x, scene.camera and scene.camera.name]
    for camera in bpy.data.objects:
        things += [camera.name, tuple(camera.delta_location), tuple(camera.delta_rotation_euler),
                   tuple(camera.delta_rotation_quaternion), sorted(camera.keys())]
        for owner in (camera, camera.data):
            animation = owner.animation_data if owner else None
            things.append(animation and (animation.action and animation.action.name, animation.action_blend_type,
                                         len(animation.nla_tracks)))
    for action in sorted(bpy.data.actions, key=lambda a: a.name):
        things.append(action.name)
        for curve in action.fcurves:
            things += [curve.data_path, curve.array_index]
            things += [(tuple(key.co), tuple(key.handle_left), tuple(key.handle_right), key.interpolation)
                       for key in curve.keyframe_points]
    return repr(things)


def make_camera(mode, frames, parent, deltas, lens_keys):
    data = bpy.data.cameras.new("Lens")
    camera = bpy.data.objects.new("Hero", data)
    bpy.context.scene.collection.objects.link(camera)
    camera.rotation_mode = mode
    data.lens, data.dof.focus_distance = frames[0]["focal_length"], frames[0]["focus_distance"] / 100
    if deltas:
        camera.delta_location = (0.3, -0.2, 0.1)
        camera.delta_rotation_euler = (0.1, 0.2, -0.3)
        camera.delta_rotation_quaternion = camera.delta_rotation_euler.to_quaternion()
    if parent:
        camera.parent = bpy.data.objects.new("Crane", None)
        bpy.context.scene.collection.objects.link(camera.parent)
        camera.parent.rotation_euler, camera.parent.location = (0.4, -0.7, 1.1), (3, 1, 2)
        camera.parent.scale = (2, 2, 2)
        camera.matrix_parent_inverse = Matrix.Rotation(0.5, 4, "Z")
        bpy.context.view_layer.update()
    for frame in frames:
        bpy.context.scene.frame_set(frame["frame"])
        camera.matrix_world = world(frame)
        # A parent's scale is no camera's: it looks with axes of length 1, and so it is set.
        camera.keyframe_insert("location")
        camera.keyframe_insert("rotation_quaternion" if mode == "QUATERNION" else "rotation_euler")
        camera.keyframe_insert("scale")
        if lens_keys:
            data.lens, data.dof.focus_distance = frame["focal_length"], frame["focus_distance"] / 100
            data.keyframe_insert("lens")
            data.keyframe_insert("dof.focus_distance")
            data.clip_end = 100 + frame["frame"]
            data.keyframe_insert("clip_end")
    return camera


def lens_off(data, lens, focus):
    return max(abs(data.lens - lens) / lens, abs(data.dof.focus_distance - focus / 100) / max(1, focus / 100))


def off(camera, frames, lenses):
    """How far the camera is from the frames, and its lens from (focal length, focus distance) of each."""
    worst = 0.0
    assert len(frames) == len(lenses) > 0
    for frame, lens in zip(frames, lenses):
        bpy.context.scene.frame_set(frame["frame"])
        seen = camera.evaluated_get(bpy.context.evaluated_depsgraph_get())
        wanted, found = world(frame), seen.matrix_world
        worst = max(worst, lens_off(seen.data, *lens), difference(wanted, found))
        if camera.data.animation_data and camera.data.animation_data.action and seen.data.clip_end != 100 + frame["frame"]:
            worst = math.inf
    return worst


def judge(mode, parent, deltas, lens_keys):
    bpy.ops.wm.read_factory_settings(use_empty=True)
    given, shaken = (list(frames) for frames in zip(*frames_of("input", "shaken")))
    camera = make_camera(mode, given, parent, deltas, lens_keys)
    scene = bpy.context.scene
    # Without keys the lens stands still in Blender, and what was added is added to that.
    lenses = [(frame["focal_length"], frame["focus_distance"]) for frame in (given if lens_keys else [given[0]] * len(given))]
    added = [(lens + to["focal_length"] - frame["focal_length"], focus + to["focus_distance"] - frame["focus_distance"])
             for (lens, focus), frame, to in zip(lenses, given, shaken)]
    own = off(camera, given, lenses)
    scene.frame_set(given[3]["frame"])
    before = snapshot()
    with open(f"{FOLDER}/added.py", encoding="utf-8") as file:
        code = compile(file.read(), "added.py", "exec")
    script = {"__name__": "added"}
    exec(code, script)
    exec(code, script)
    strips = len(camera.animation_data.nla_tracks)
    worst = off(camera, shaken, added)
    scene.frame_set(given[3]["frame"])
    script["tremolux_remove"]()
    scene.frame_set(given[3]["frame"])
    is_back = snapshot() == before and off(camera, given, lenses) <= own + 1e-9
    name = mode + " parent" * parent + " deltas" * deltas + " lens" * lens_keys
    good = worst <= TOLERANCE and strips == 1 and is_back
    print(f"interop: the shake on a camera, {name}: within {worst:.1e}, removed {'wholly' if is_back else 'NOT wholly'}"
          + ("" if good else " FAILED"))
    return good


results = [judge(mode, False, False, True) for mode in MODES]
results += [judge(mode, True, deltas, deltas) for mode in ("QUATERNION", "XYZ") for deltas in (False, True)]
results.append(judge("XYZ", False, True, False))
results.append(judge_files())
sys.exit(0 if all(results) else 1)
