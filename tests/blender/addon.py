"""The add-on in Blender: cameras of many kinds have to move as the program shakes them, and to be what they were when it is taken off.

    BLENDER_USER_SCRIPTS=FOLDER blender --background --factory-startup --python addon.py -- PROGRAM

FOLDER/addons/tremolux is the add-on with its library, PROGRAM is tremolux.
"""
import json
import math
import os
import random
import struct
import subprocess
import sys
import tempfile
import wave

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


def check_live():
    from tremolux import live
    scene = new_scene()
    camera = new_camera(scene)
    bpy.ops.tremolux.add()
    before = strips_of(camera)
    live.refresh_edited(scene)
    expect(strips_of(camera) == before, "nothing was edited, and it is shaken anew")
    camera.animation_data.action.fcurves[0].keyframe_points[2].co.y += 2
    live.refresh_edited(scene)
    expect(strips_of(camera) != before, "an edit of the camera's keys leaves the shake")
    expect_fresh("an edited key", camera)
    before = strips_of(camera)
    camera.tremolux.is_live = False
    camera.animation_data.action.fcurves[0].keyframe_points[2].co.y -= 2
    live.refresh_edited(scene)
    expect(strips_of(camera) == before, "what is not live is shaken anew")


def check_random_edits():
    random.seed(20261124)
    from tremolux import live, settings
    scene = new_scene()
    scene.frame_end = 20
    cameras = [new_camera(scene, mode, mode) for mode in ("XYZ", "QUATERNION")]
    for camera in cameras:
        bpy.context.view_layer.objects.active = camera
        bpy.ops.tremolux.add()
    numbers = [settings.name_of(parameter) for parameter in settings.shown() if parameter.slider_maximum < 1e6]
    file = os.path.join(tempfile.mkdtemp(), "scene.blend")
    for step in range(120):
        camera = random.choice(cameras)
        bpy.context.view_layer.objects.active = camera
        edit = random.choice(("setting", "setting", "setting", "key", "copy", "delete", "rename", "save", "shuffle", "preset"))
        if edit == "setting":
            name = random.choice(numbers)
            prop = camera.tremolux.bl_rna.properties[name]
            setattr(camera.tremolux, name, random.uniform(prop.soft_min, prop.soft_max))
        elif edit == "key":
            point = random.choice(list(camera.animation_data.action.fcurves)).keyframe_points[1]
            point.co.y += random.uniform(-0.1, 0.1)
            live.refresh_edited(scene)
        elif edit == "copy" and len(cameras) < 4:
            copy = camera.copy()
            copy.data = camera.data.copy()
            copy.animation_data.action = camera.animation_data.action.copy()
            scene.collection.objects.link(copy)
            bpy.context.view_layer.objects.active = copy
            bpy.ops.tremolux.update()
            cameras.append(copy)
            camera = copy
        elif edit == "delete" and len(cameras) > 1:
            cameras.remove(camera)
            bpy.data.objects.remove(camera)
            camera = cameras[0]
        elif edit == "rename":
            camera.name = f"Camera {step}"
        elif edit == "save":
            names = [camera.name for camera in cameras]
            before = strips_of(camera)
            bpy.ops.wm.save_as_mainfile(filepath=file)
            name = camera.name
            bpy.ops.wm.open_mainfile(filepath=file)
            scene = bpy.context.scene
            cameras = [bpy.data.objects[one] for one in names]
            camera = bpy.data.objects[name]
            expect(strips_of(camera) == before, "a saved file has another shake")
        elif edit == "shuffle":
            bpy.ops.tremolux.shuffle()
        elif edit == "preset":
            from tremolux import library
            bpy.ops.tremolux.preset(name=random.choice(library.presets()).name)
        expect_fresh(f"edit {step}, {edit}", camera)


def check_sound():
    """Three clicks in a sound strip that begins at frame 11."""
    folder = tempfile.mkdtemp()
    file, rate = os.path.join(folder, "clicks.wav"), 8000
    samples = [0] * (rate * 3)
    for second in (0.5, 1.25, 2.0):
        for i in range(200):
            samples[int(second * rate) + i] = int(12000 * math.sin(i * 0.9) * math.exp(-i / 40))
    with wave.open(file, "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(rate)
        sound.writeframes(struct.pack(f"<{len(samples)}h", *samples))
    scene = new_scene()
    camera = new_camera(scene)
    bpy.ops.tremolux.add()
    scene.sequence_editor_create().sequences.new_sound("Clicks", file, 1, 11)
    expect(bpy.ops.tremolux.jolts_from_sound() == {"FINISHED"}, "a sound's beats are not taken")
    expect(camera.tremolux.jolts == "23,41,59", f"beats on {camera.tremolux.jolts}")
    scene.timeline_markers.new("hit", frame=7)
    scene.timeline_markers.new("hit", frame=33)
    bpy.ops.tremolux.jolts_from_markers()
    expect(camera.tremolux.jolts == "7,33" and not camera.tremolux.message, "markers are not taken")


def check_between_frames():
    """Motion blur sees a smooth curve through the frames: in the middle between four of them (-a + 9b + 9c - d) / 16."""
    scene = new_scene()
    camera = new_camera(scene)
    bpy.ops.tremolux.preset(name=PRESET)
    bpy.ops.tremolux.add()
    worst = moved = 0
    for track in camera.animation_data.nla_tracks:
        for curve in track.strips[0].action.fcurves:
            for frame in range(10, 40):
                a, b, c, d = (curve.evaluate(frame + i) for i in (-1, 0, 1, 2))
                worst = max(worst, abs(curve.evaluate(frame + 0.5) - (-a + 9 * b + 9 * c - d) / 16))
                moved = max(moved, abs(b - c))
    expect(moved > 1e-3 and worst < 1e-6, f"between the frames it is {worst:.1e} off the smooth curve")


def check_renders():
    """Blurred pictures are the same, to the byte, in a Blender that knows nothing of the add-on."""
    scene = new_scene()
    camera = new_camera(scene)
    scene.camera = camera
    bpy.ops.mesh.primitive_cube_add(location=(0, 4, 1.5))
    bpy.ops.object.light_add(type="SUN")
    bpy.context.view_layer.objects.active = camera
    scene.render.engine, scene.cycles.samples, scene.cycles.use_denoising = "CYCLES", 4, False
    scene.render.resolution_x, scene.render.resolution_y, scene.render.resolution_percentage = 64, 36, 100
    scene.render.image_settings.file_format = "BMP"  # it holds pixels alone, no date
    scene.render.use_motion_blur, scene.render.motion_blur_shutter = True, 1.0
    bpy.ops.tremolux.preset(name=PRESET)
    folder = tempfile.mkdtemp()
    file = os.path.join(folder, "scene.blend")

    def rendered(name):
        pictures = []
        for frame in (20, 21, 22):
            scene.frame_set(frame)
            scene.render.filepath = os.path.join(folder, f"{name}_{frame}.bmp")
            bpy.ops.render.render(write_still=True)
            with open(scene.render.filepath, "rb") as picture:
                pictures.append(picture.read())
        return pictures

    plain = rendered("plain")
    bpy.ops.tremolux.add()
    shaken = rendered("shaken")
    bpy.ops.wm.save_as_mainfile(filepath=file)
    environment = {name: value for name, value in os.environ.items() if name != "BLENDER_USER_SCRIPTS"}
    script = ("import bpy; scene = bpy.context.scene\n"
              "assert not hasattr(bpy.types.Object, 'tremolux')\n"
              "for frame in (20, 21, 22):\n"
              f"    scene.frame_set(frame); scene.render.filepath = {folder!r} + f'/alone_{{frame}}.bmp'\n"
              "    bpy.ops.render.render(write_still=True)\n")
    command = [bpy.app.binary_path, "--background", "--factory-startup", file, "--python-exit-code", "1", "--python-expr", script]
    result = subprocess.run(command, capture_output=True, text=True, env=environment, check=False)
    expect(result.returncode == 0, f"a Blender without the add-on: {result.stderr}")
    alone = []
    for frame in (20, 21, 22):
        with open(os.path.join(folder, f"alone_{frame}.bmp"), "rb") as picture:
            alone.append(picture.read())
    same = [a == b for a, b in zip(shaken, alone)]
    print(f"addon: renders with motion blur, with and without the add-on: {same}")
    expect(all(same), "without the add-on other pictures are rendered")
    expect(all(a != b for a, b in zip(plain, shaken)), "the shake is in no picture")


def check_kept_by_others():
    """FBX has the motion of deltas; glTF, whose exporter knows no deltas, that of the camera beside it."""
    for kind in ("fbx", "glb"):
        scene = new_scene()
        camera = new_camera(scene)
        camera.tremolux.use_follower = kind == "glb"
        bpy.ops.tremolux.preset(name=PRESET)
        bpy.ops.tremolux.add()
        shown = camera if kind == "fbx" else bpy.data.objects[f"{camera.name} (hand-held)"]
        wanted = seen(scene, shown)
        folder = tempfile.mkdtemp()
        file, table = os.path.join(folder, f"camera.{kind}"), os.path.join(folder, "camera.json")
        if kind == "fbx":
            bpy.ops.export_scene.fbx(filepath=file, object_types={"CAMERA"}, bake_anim_simplify_factor=0)
        else:
            bpy.ops.export_scene.gltf(filepath=file, export_cameras=True)
        # Another Blender may not be started from within this one's environment of scripts.
        environment = {name: value for name, value in os.environ.items() if name != "BLENDER_USER_SCRIPTS"}
        command = [PROGRAM, "import" if kind == "fbx" else "convert", file, "-o", table, "--fps", "24", "--camera", shown.name]
        result = subprocess.run(command, capture_output=True, text=True, env=environment, check=False)
        expect(result.returncode == 0, f"{kind}: {result.stderr}")
        if result.returncode != 0:
            continue
        with open(table, encoding="utf-8") as text:
            frames = json.load(text)["frames"]
        # The FBX exporter has the scene's first frame at 0.
        places = {frame["frame"] + (scene.frame_start if kind == "fbx" else 0): frame["position"] for frame in frames}
        worst = 0
        for number, (world, _, _) in zip(frames_of(scene), wanted):
            x, y, z = (value / 100 for value in places.get(number, (math.inf,) * 3))
            worst = max(worst, *(abs(a - b) for a, b in zip((x, z, y), (world[0][3], world[1][3], world[2][3]))))
        print(f"addon: {kind}: {len(frames)} frames, places within {worst:.1e}")
        expect(worst < 1e-5, f"{kind}: another motion")


check_kinds()
check_live()
check_sound()
check_random_edits()
check_between_frames()
check_renders()
check_kept_by_others()
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
