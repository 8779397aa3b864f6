"""Actions, their curves and the strips that play them: everything here that differs from one Blender to the next.

From 4.4 on an action has slots, and from 5.0 on its curves are reached through them.
"""
import bpy
import numpy as np


def _bezier():
    """As foreach_set takes it."""
    return bpy.types.Keyframe.bl_rna.properties["interpolation"].enum_items["BEZIER"].value


def curves_of(action, owner=None):
    """Of an action, those for the owner."""
    if action is None:
        return []
    if hasattr(action, "fcurves"):
        return list(action.fcurves)
    found = []
    animation = owner.animation_data if owner is not None else None
    slot = getattr(animation, "action_slot", None) or (action.slots[0] if action.slots else None)
    for layer in action.layers:
        for strip in layer.strips:
            bag = strip.channelbag(slot) if slot is not None else None
            found += list(bag.fcurves) if bag is not None else []
    return found


def _new_curve(action, slot, path, index):
    if slot is None:
        return action.fcurves.new(path, index=index)
    layer = action.layers[0] if action.layers else action.layers.new("Layer")
    strip = layer.strips[0] if layer.strips else layer.strips.new(type="KEYFRAME")
    return strip.channelbag(slot, ensure=True).fcurves.new(path, index=index)


def new_action(name, owner, first_frame, values):
    """An action of keys, one a frame: `values` is {(path, index): numbers}. Returns it and its slot (None where there are none)."""
    action = bpy.data.actions.new(name)
    slot = action.slots.new(id_type=owner.id_type, name=owner.name) if hasattr(action, "slots") else None
    for (path, index), numbers in values.items():
        write(_new_curve(action, slot, path, index), first_frame, numbers)
    return action, slot


def write(curve, first_frame, numbers):
    """One key a frame, in place of those that were there; between them the curve of Catmull and Rom, for motion blur."""
    points, count = curve.keyframe_points, len(numbers)
    if len(points) != count:
        if hasattr(points, "clear"):
            points.clear()
        else:
            for point in reversed(list(points)):
                points.remove(point, fast=True)
        points.add(count)
    frames, values = np.arange(first_frame, first_frame + count, dtype=float), np.asarray(numbers, dtype=float)
    slopes = np.gradient(values) if count > 1 else np.zeros(1)
    slopes[[0, -1]] = 0

    def pairs(offset):
        return np.stack([frames + offset, values + slopes * offset], axis=1).ravel()

    points.foreach_set("co", pairs(0))
    points.foreach_set("interpolation", [_bezier()] * count)
    for point in points:  # foreach_set passes types of handles over
        point.handle_left_type = point.handle_right_type = "FREE"
    points.foreach_set("handle_left", pairs(-1 / 3))
    points.foreach_set("handle_right", pairs(1 / 3))
    curve.update()


def numbers_of(action):
    """What its keys are, rounded as Blender keeps them: frame and value, curve after curve."""
    found = []
    for curve in curves_of(action):
        flat = [0.0] * (2 * len(curve.keyframe_points))
        curve.keyframe_points.foreach_get("co", flat)
        found.append((curve.data_path, curve.array_index, flat))
    return found


def keyed(owner):
    """What the owner's own action moves: {(path, index)}."""
    animation = owner.animation_data
    return {(curve.data_path, curve.array_index) for curve in curves_of(animation.action if animation else None, owner)}


def add_strip(owner, name, first_frame, action, slot):
    """A strip below the owner's own action, which holds beyond its ends."""
    animation = owner.animation_data or owner.animation_data_create()
    track = animation.nla_tracks.new()
    track.name = name
    strip = track.strips.new(name, first_frame, action)
    if slot is not None:
        strip.action_slot = slot
    strip.extrapolation, strip.blend_type = "HOLD", "REPLACE"


def tracks_of(owner, name):
    animation = owner.animation_data
    return [track for track in animation.nla_tracks if track.name == name] if animation else []


def remove_tracks(owner, name):
    for track in tracks_of(owner, name):
        actions = [strip.action for strip in track.strips if strip.action]
        owner.animation_data.nla_tracks.remove(track)
        for action in actions:
            if action.users == 0:
                bpy.data.actions.remove(action)


def add_curve(strip, first_frame, path_and_index, numbers):
    """One more to the action of a strip."""
    write(_new_curve(strip.action, getattr(strip, "action_slot", None), *path_and_index), first_frame, numbers)


def give_action(owner, action, slot):
    """As the owner's own."""
    animation = owner.animation_data or owner.animation_data_create()
    animation.action = action
    if slot is not None:
        animation.action_slot = slot
