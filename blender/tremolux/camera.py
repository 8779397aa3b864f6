"""What a camera does without the shake, as Blender evaluates it."""
from collections import namedtuple
from fractions import Fraction

import bpy
import numpy as np

from . import curves, space
from .library import LibraryError, Rate

MARK = "TremoluxCam"
MOST_FRAMES = 100000

# Arrays, one entry a frame: world matrices, the parent's axes, own rotations and deltas, lens and focus (millimetres, units).
Motion = namedtuple("Motion", "first_frame worlds parents rotations deltas delta_locations lens focus")


def centimetres(scene):
    """Of one unit of the scene."""
    return 100.0 * scene.unit_settings.scale_length


def rate_of(scene):
    exact = Fraction(scene.render.fps) / Fraction(str(round(scene.render.fps_base, 6)))
    return Rate(exact.numerator, exact.denominator)


def film_back(camera_data, scene):
    """Its width in millimetres."""
    if camera_data.sensor_fit != "VERTICAL":
        return camera_data.sensor_width
    render = scene.render
    return camera_data.sensor_height * render.resolution_x * render.pixel_aspect_x / (
        render.resolution_y * render.pixel_aspect_y)


def frames_of(scene):
    """Those of the scene, and of its preview, which may begin before 0."""
    first, last = scene.frame_start, scene.frame_end
    if scene.use_preview_range:
        first, last = min(first, scene.frame_preview_start), max(last, scene.frame_preview_end)
    if last - first + 1 > MOST_FRAMES:
        raise LibraryError(f"the scene has {last - first + 1} frames, more than the {MOST_FRAMES} that are shaken")
    return range(first, last + 1)


def is_overruled(camera):
    """Whether something else than its delta channels has the last word on where the camera is."""
    constrained = any(not constraint.mute and constraint.influence > 0 for constraint in camera.constraints)
    own_deltas = any(path.startswith("delta_") for path, _ in curves.keyed(camera))
    return camera.rotation_mode == "AXIS_ANGLE" or constrained or own_deltas


def _focus(camera, data, depsgraph):
    if data.dof.focus_object is None:
        return data.dof.focus_distance
    world = camera.matrix_world
    there = data.dof.focus_object.evaluated_get(depsgraph).matrix_world.translation
    return max(0.0, -(there - world.translation).dot(world.col[2].to_3d().normalized()))


def read_motion(scene, camera, frames):
    """Frame by frame, of a camera without a shake. The scene comes back to its frame."""
    frame, subframe = scene.frame_current, scene.frame_subframe
    rows = []
    for number in frames:
        scene.frame_set(number)
        depsgraph = bpy.context.evaluated_depsgraph_get()
        seen = camera.evaluated_get(depsgraph)
        parent = (seen.parent.matrix_world @ seen.matrix_parent_inverse).to_3x3() if seen.parent else None
        is_quaternion = seen.rotation_mode == "QUATERNION"
        rows.append((
            [list(row) for row in seen.matrix_world],
            [list(row) for row in parent] if parent else np.identity(3),
            tuple(seen.rotation_quaternion if is_quaternion else seen.rotation_euler),
            tuple(seen.delta_rotation_quaternion if is_quaternion else seen.delta_rotation_euler),
            tuple(seen.delta_location), seen.data.lens, _focus(seen, seen.data, depsgraph)))
    scene.frame_set(frame, subframe=subframe)
    worlds, parents, own, deltas, locations, lens, focus = (np.array(column, dtype=float) for column in zip(*rows))

    def rotations(values):
        if values.shape[1] == 4:
            return space.from_quaternions(values)
        return space.from_euler(values, camera.rotation_mode if camera.rotation_mode != "AXIS_ANGLE" else "XYZ")

    return Motion(frames[0], worlds, parents, rotations(own), rotations(deltas), locations, lens, focus)


def leans(motion):
    """Whether its axes are off square, as uneven scales of parents make them: no turn of its own could undo that."""
    axes = space.rotations_of(motion.worlds)
    return np.abs(axes.transpose(0, 2, 1) @ axes - np.identity(3)).max() > 1e-5


def check(motion):
    """Raises a LibraryError for a camera that the engine cannot stand in for."""
    if (np.linalg.det(motion.worlds[:, :3, :3]) <= 0).any():
        raise LibraryError("the camera, or what it stands in, is mirrored or has no size: give it a scale above 0")


def numbers_of(motion, scene):
    """For the engine: (frames, 8)."""
    unit = centimetres(scene)
    return np.concatenate([space.to_engine(motion.worlds, unit), motion.lens[:, None], motion.focus[:, None] * unit], axis=1)
