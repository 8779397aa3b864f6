"""Notices that a shaken camera's own motion was edited, and has it shaken anew a moment later. It never moves a camera: what
plays and renders are keys."""
import hashlib

import bpy
from bpy.app.handlers import persistent

from . import curves, properties, writing

DELAY = 0.3  # seconds from an edit to the new shake, so that a drag is one


def _keys_of(owner, digest):
    animation = owner.animation_data
    action = animation.action if animation else None
    for curve in curves.curves_of(action, owner):
        if curve.data_path.startswith("tremolux."):
            continue
        digest.update(f"{curve.data_path}[{curve.array_index}]".encode())
        for point in curve.keyframe_points:
            digest.update(repr((point.co[:], point.handle_left[:], point.handle_right[:], point.interpolation)).encode())


def input_mark(camera):
    """The same as long as nobody edits what the camera's own motion is made of: its keys and pose, those of its parents, and its
    constraints."""
    digest = hashlib.sha256()
    thing = camera
    while thing is not None:
        keyed = {path for path, _ in curves.keyed(thing)}
        _keys_of(thing, digest)
        for path in ("location", "rotation_euler", "rotation_quaternion", "rotation_axis_angle", "scale"):
            if path not in keyed:
                digest.update(repr(getattr(thing, path)[:]).encode())
        digest.update(repr((thing.rotation_mode, [list(row) for row in thing.matrix_parent_inverse])).encode())
        for constraint in thing.constraints:
            digest.update(repr((constraint.type, constraint.mute, constraint.influence,
                                getattr(getattr(constraint, "target", None), "name", ""))).encode())
        thing = thing.parent
    _keys_of(camera.data, digest)
    return digest.hexdigest()


def refresh_edited(scene):
    """Every camera whose motion is another than the one that was shaken."""
    # A new shake makes another follower: only cameras that are shaken outlast the loop.
    shaken = [thing for thing in scene.objects if thing.type == "CAMERA" and thing.library is None and writing.is_shaken(thing)]
    for camera in shaken:
        if not camera.tremolux.is_live or writing.record_of(camera).get("input") == input_mark(camera):
            continue
        if not properties.refresh(scene, camera):
            writing.remember_input(camera, input_mark(camera))  # told once


def _after_a_while():
    screen = bpy.context.screen
    if screen is not None and screen.is_animation_playing:
        return DELAY
    refresh_edited(bpy.context.scene)
    return None


@persistent
def _noticed(scene, depsgraph):
    if bpy.app.background or bpy.app.timers.is_registered(_after_a_while):
        return
    if any(isinstance(update.id, (bpy.types.Action, bpy.types.Object, bpy.types.Camera)) for update in depsgraph.updates):
        if any(writing.is_shaken(thing) for thing in scene.objects if thing.type == "CAMERA"):
            bpy.app.timers.register(_after_a_while, first_interval=DELAY)


def register():
    if hasattr(bpy.types.Object, "tremolux"):
        bpy.app.handlers.depsgraph_update_post.append(_noticed)


def unregister():
    if _noticed in bpy.app.handlers.depsgraph_update_post:
        bpy.app.handlers.depsgraph_update_post.remove(_noticed)
    if bpy.app.timers.is_registered(_after_a_while):
        bpy.app.timers.unregister(_after_a_while)
