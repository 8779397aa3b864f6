"""Cameras of several scenes, of paths, and of other files."""
import os
import tempfile

import bpy
from edits import own_keys, shake_of
from scenes import FRAMES, SHAKEN, TOLERANCE, check, difference, expect, new_camera, new_scene, seen


def check_path():
    scene = new_scene()
    camera = new_camera(scene)
    curve = bpy.data.curves.new("Rails", "CURVE")
    curve.dimensions, curve.path_duration = "3D", FRAMES
    spline = curve.splines.new("BEZIER")
    spline.bezier_points.add(2)
    for point, place in zip(spline.bezier_points, ((0, 0, 1), (3, 2, 1.5), (5, 6, 2))):
        point.co, point.handle_left_type, point.handle_right_type = place, "AUTO", "AUTO"
    rails = bpy.data.objects.new("Rails", curve)
    scene.collection.objects.link(rails)
    constraint = camera.constraints.new("FOLLOW_PATH")
    constraint.target, constraint.use_fixed_location, constraint.use_curve_follow = rails, True, True
    for frame, place in ((1, 0.0), (FRAMES, 1.0)):
        constraint.offset_factor = place
        constraint.keyframe_insert("offset_factor", frame=frame)
    # Blender's axes along a path are off square by 3.5e-6.
    check("a path that it follows", scene, camera, tolerance=4 * TOLERANCE)


def check_scenes():
    """Each is shaken at its own rate, in its own range, and leaves the other as it is."""
    first = new_scene(fps=24, fps_base=1.001)
    camera = new_camera(first, name="First")
    bpy.ops.tremolux.add()
    kept = shake_of(camera)
    second = bpy.data.scenes.new("Second")
    second.render.fps, second.frame_start, second.frame_end = 60, 1, FRAMES
    bpy.context.window.scene = second
    check("a second scene, of 60 frames a second", second, new_camera(second, name="Second"))
    expect(shake_of(camera) == kept and (first.render.fps, first.frame_end) == (24, FRAMES), "a scene changes another one")
    bpy.context.window.scene = first
    bpy.context.view_layer.objects.active = camera
    bpy.ops.tremolux.update()
    expect(shake_of(camera) == kept, "in the first scene again it is shaken otherwise")


def _linked(file):
    scene = new_scene()
    with bpy.data.libraries.load(file, link=True) as (_, wanted):
        wanted.objects = ["Hero"]
    camera = bpy.data.objects["Hero"]
    scene.collection.objects.link(camera)
    bpy.context.view_layer.objects.active = camera
    return scene, camera


def check_linked():
    """A linked camera moves as it does in its file and cannot be changed; one that overrides it can be shaken, and is again
    when the file is opened."""
    folder = tempfile.mkdtemp()
    plain, shaken, shot = (os.path.join(folder, name) for name in ("plain.blend", "shaken.blend", "shot.blend"))
    scene = new_scene()
    camera = new_camera(scene)
    own = seen(scene, camera)
    bpy.ops.wm.save_as_mainfile(filepath=plain)
    bpy.ops.tremolux.add()
    wanted = seen(scene, camera)
    bpy.ops.wm.save_as_mainfile(filepath=shaken)

    scene, camera = _linked(shaken)
    expect(not bpy.ops.tremolux.add.poll() and not bpy.ops.tremolux.remove.poll(), "a linked camera can be changed")
    expect(seen(scene, camera) == wanted, "a linked camera moves otherwise than in its file")

    scene, camera = _linked(plain)
    camera = camera.override_create(remap_local_usages=True)
    bpy.context.view_layer.objects.active = camera
    expect(bpy.ops.tremolux.add() == {"FINISHED"}, f"an override is not shaken: {camera.tremolux.message}")
    moved = seen(scene, camera)
    expect(max(difference(a[0], b[0]) for a, b in zip(own, moved)) > SHAKEN, "an override stands still")
    expect([lens for _, lens, _ in moved] == [lens for _, lens, _ in own], "the lens of another file was changed")
    bpy.ops.wm.save_as_mainfile(filepath=shot)
    bpy.ops.wm.open_mainfile(filepath=shot)
    scene = bpy.context.scene
    camera = next(thing for thing in scene.objects if thing.type == "CAMERA")
    expect(seen(scene, camera) == moved, "an override that was saved and opened moves otherwise")
    bpy.context.view_layer.objects.active = camera
    keys = own_keys(camera)
    expect(bpy.ops.tremolux.remove() == {"FINISHED"} and not shake_of(camera), "an override keeps its shake")
    expect(seen(scene, camera) == own and own_keys(camera) == keys, "an override is not what it was")


def check_files():
    check_path()
    check_scenes()
    check_linked()
