"""The add-on in Blender: cameras of many kinds have to move as the program shakes them, and to be what they were when it is taken off.

    BLENDER_USER_SCRIPTS=FOLDER blender --background --factory-startup --python addon.py -- PROGRAM

FOLDER/addons/tremolux is the add-on with its library, PROGRAM is tremolux.
"""
import json
import math
import os
import struct
import subprocess
import sys
import tempfile
import wave

import bpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import edits  # pylint: disable=wrong-import-position
import errors  # pylint: disable=wrong-import-position
import files  # pylint: disable=wrong-import-position
import install  # pylint: disable=wrong-import-position
from scenes import (  # pylint: disable=wrong-import-position
    PRESET, PROGRAM, SHAKEN, TOLERANCE, check, difference, expect, expect_fresh, finish, frames_of, new_camera, new_scene, seen,
    shaken_by_program, strips_of)

MODES = "QUATERNION", "XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX", "AXIS_ANGLE"
RATES = (24, 1.001), (24, 1.0), (25, 1.0), (30, 1.001), (60, 1.0)
STARTS = -20, 0, 101


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
check_between_frames()
check_renders()
check_kept_by_others()
check_edits()
check_what_cannot_be_shaken()
check_copies()
check_keyed_settings()
check_refusals()
edits.check_random_edits()
errors.check_errors()
files.check_files()
install.check_install()
finish(least=2000)
