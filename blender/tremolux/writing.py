"""The shake as keys: on the camera's delta channels, in strips of its own below the artist's keys; or on a camera that follows,
where something else has the last word."""
import contextlib
import hashlib
import json

import bpy
import numpy as np

from . import camera as cameras
from . import curves, space
from .camera import MARK
from .library import LibraryError

FOLLOWER = " (hand-held)"
FOLLOWS = MARK + " of"  # a follower's camera
FORMAT = 1  # of the record


def _turns_path(camera):
    return "delta_rotation_quaternion" if camera.rotation_mode == "QUATERNION" else "delta_rotation_euler"


def _own_actions(owner):
    return [strip.action for track in curves.tracks_of(owner, MARK) for strip in track.strips if strip.action]


def record_of(owner):
    """What was there before, and the mark of what was written; None where nothing was."""
    # Library overrides are saved without such a property of their own: the strips' actions have it, too.
    text = owner.get(MARK, next((action.get(MARK) for action in _own_actions(owner)), None))
    if not isinstance(text, str):
        return None
    try:
        record = json.loads(text)
    except ValueError:
        return {}
    return record if isinstance(record, dict) else {}


def check_record(camera):
    """Raises a LibraryError where a newer add-on wrote what this one cannot know how to take off."""
    for owner in (camera, camera.data):
        made_by = (record_of(owner) or {}).get("format", FORMAT)
        if not isinstance(made_by, int) or made_by > FORMAT:
            raise LibraryError("the shake was made by a newer version of the add-on, and stays as it is until that is installed")


def follower_of(camera):
    """The camera that follows this one, whatever the two are called by now; None where there is none."""
    for thing in bpy.data.objects:
        if thing.get(FOLLOWS) == camera:
            return thing
    return None


def mark_of(action):
    """The same for the same keys."""
    digest = hashlib.sha256()
    for path, index, numbers in curves.numbers_of(action):
        digest.update(f"{path}[{index}]".encode())
        digest.update(np.array(numbers, dtype=np.float32).tobytes())
    return digest.hexdigest()


def actions_of(camera):
    """Those that the shake is in."""
    found = []
    follower = follower_of(camera)
    if follower is not None:
        found = [owner.animation_data.action for owner in (follower, follower.data) if owner.animation_data]
    for owner in (camera, camera.data):
        found += _own_actions(owner)
    return [action for action in found if action is not None]


def is_shaken(camera):
    return record_of(camera) is not None


def is_edited(camera):
    """Whether somebody changed the keys that were written."""
    record = record_of(camera)
    return record is not None and record.get("written") != [mark_of(action) for action in actions_of(camera)]


def _remember(owner, **what):
    text = json.dumps({"format": FORMAT, **(record_of(owner) or {}), **what})
    for holder in (owner, *_own_actions(owner)):
        holder[MARK] = text


def remember_input(camera, mark):
    """Of the motion that was shaken."""
    if is_shaken(camera):
        _remember(camera, input=mark)


def _clear(owner):
    """Takes our strips off, and puts back what they moved."""
    record = record_of(owner)
    curves.remove_tracks(owner, MARK)
    if record is None:
        return
    animation = owner.animation_data
    for path, value in record.get("values", {}).items():
        holder, last = (owner.dof, path.split(".")[1]) if path.startswith("dof.") else (owner, path)
        setattr(holder, last, value)
    if animation and "blend" in record:
        animation.action_blend_type = record["blend"]
    if animation and record.get("new") and not animation.action and not animation.nla_tracks and not animation.drivers:
        owner.animation_data_clear()
    if MARK in owner:
        del owner[MARK]


def _clear_both(camera):
    _clear(camera)
    # Lenses may be shared; a shake on one stays as long as somebody has it.
    if not any(thing.data == camera.data and is_shaken(thing) for thing in bpy.data.objects if thing.type == "CAMERA"):
        _clear(camera.data)
    bpy.context.view_layer.update()


def _remove_follower(camera):
    follower = follower_of(camera)
    if follower is None:
        return
    data = follower.data
    actions = [owner.animation_data.action for owner in (follower, data) if owner.animation_data]
    bpy.data.objects.remove(follower)
    if data.users == 0:
        bpy.data.cameras.remove(data)
    for action in actions:
        if action is not None and action.users == 0:
            bpy.data.actions.remove(action)


def remove(camera):
    """Everything that the shake brought; the camera is what it was."""
    _remove_follower(camera)
    _clear_both(camera)


@contextlib.contextmanager
def lifted(camera):
    """Within it the camera has its own motion alone. Afterwards the shake is gone; if something was raised, it is there again."""
    records = [(owner, owner.get(MARK)) for owner in (camera, camera.data)]
    strips = [(owner, int(strip.frame_start), strip.action, getattr(strip, "action_slot", None), strip.action.use_fake_user)
              for owner, _ in records for track in curves.tracks_of(owner, MARK) for strip in track.strips if strip.action]
    for strip in strips:
        strip[2].use_fake_user = True  # actions without a user would be removed with their strips
    _clear_both(camera)
    is_done = False
    try:
        yield
        is_done = True
    finally:
        for owner, first_frame, action, slot, is_kept in strips:
            if not is_done and not curves.tracks_of(owner, MARK):
                curves.add_strip(owner, MARK, first_frame, action, slot)
            action.use_fake_user = is_kept
            if action.users == 0:
                bpy.data.actions.remove(action)
        if is_done:
            _remove_follower(camera)
        else:
            for owner, text in records:
                if text is not None:
                    owner[MARK] = text
                if "blend" in (record_of(owner) or {}):
                    owner.animation_data.action_blend_type = "ADD"
            bpy.context.view_layer.update()


def _put_on(owner, first_frame, keys, **record):
    is_new = owner.animation_data is None
    action, slot = curves.new_action(f"{MARK} {owner.name}", owner, first_frame, keys)
    curves.add_strip(owner, MARK, first_frame, action, slot)
    _remember(owner, new=is_new, **record)


def _columns(path, numbers):
    return {(path, index): numbers[:, index] for index in range(numbers.shape[1])}


def _put_on_deltas(camera, motion, places, rotations):
    """Deltas act in the parent's space, before the camera's own rotation."""
    own, path = motion.rotations, _turns_path(camera)
    added = space.rotations_of(motion.worlds).transpose(0, 2, 1) @ rotations
    turns = motion.deltas @ own @ added @ own.transpose(0, 2, 1)
    start = np.array(getattr(camera, path))
    turned = (space.to_quaternions(turns, start) if len(start) == 4 else space.to_euler(turns, camera.rotation_mode, start))
    way = np.linalg.solve(motion.parents, (places - motion.worlds[:, :3, 3])[:, :, None])[:, :, 0]
    values = {**_columns("delta_location", motion.delta_locations + way), **_columns(path, turned)}
    _put_on(camera, motion.first_frame, values,
            values={"delta_location": list(camera.delta_location), path: list(start)})


def _put_on_lens(camera, motion, lens, focus):
    """The data's own action has the last word on what it moves: it is added to the strip, which has 0 for what it shall not change."""
    data = camera.data
    wanted = {"lens": (lens, motion.lens), "dof.focus_distance": (focus, motion.focus)}
    if data.dof.focus_object is not None:
        del wanted["dof.focus_distance"]
    changed = {path: pair for path, pair in wanted.items() if np.abs(pair[0] - pair[1]).max() > 1e-9}
    if not changed or data.users > 1 or data.library is not None:
        return
    own = curves.keyed(data)
    values = {(path, 0): shaken - plain if (path, 0) in own else shaken for path, (shaken, plain) in changed.items()}
    rest = {path: data.dof.focus_distance if path.startswith("dof.") else data.lens for path in changed}
    _put_on(data, motion.first_frame, values, values=rest)
    if own & set(values):
        _remember(data, blend=data.animation_data.action_blend_type)
        data.animation_data.action_blend_type = "ADD"
        zero = np.zeros(len(motion.lens))
        track = curves.tracks_of(data, MARK)[0]
        for path_and_index in own - set(values):
            curves.add_curve(track.strips[0], motion.first_frame, path_and_index, zero)


def _put_on_follower(camera, motion, places, rotations, lens, focus):
    follower = bpy.data.objects.new(camera.name + FOLLOWER, camera.data.copy())
    if follower.data.animation_data:
        follower.data.animation_data_clear()
    follower[FOLLOWS] = camera
    for collection in camera.users_collection:
        collection.objects.link(follower)
    follower.rotation_mode = "QUATERNION"
    turns = space.to_quaternions(rotations, (1, 0, 0, 0))
    for owner, values in ((follower, {**_columns("location", places), **_columns("rotation_quaternion", turns)}),
                          (follower.data, {("lens", 0): lens, ("dof.focus_distance", 0): focus})):
        curves.give_action(owner, *curves.new_action(f"{MARK} {owner.name}", owner, motion.first_frame, values))


def write(scene, camera, motion, numbers):
    """The shaken camera's numbers, (frames, 8), onto a camera without a shake."""
    unit = cameras.centimetres(scene)
    places, rotations = space.from_engine(numbers, unit)
    lens, focus = numbers[:, 6], numbers[:, 7] / unit
    if camera.tremolux.use_follower or cameras.is_overruled(camera) or cameras.leans(motion):
        _put_on_follower(camera, motion, places, rotations, lens, focus)
    else:
        _put_on_deltas(camera, motion, places, rotations)
        _put_on_lens(camera, motion, lens, focus)
    _remember(camera, written=[mark_of(action) for action in actions_of(camera)])
    bpy.context.view_layer.update()
