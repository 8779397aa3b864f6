"""Between Blender's space (right-handed, z up, metres) and the engine's (left-handed, y up, centimetres), in double precision.

Rotations are arrays of matrices, (frames, 3, 3), whose columns are a camera's right, up and back.
"""
import numpy as np

_UPRIGHT = np.array([[1.0, 0, 0], [0, 0, -1], [0, 1, 0]])  # from y up to z up
AXES = "XYZ"


def about(axis, angles):
    """Matrices of turns about one axis, 0 to 2; radians."""
    c, s, i, j = np.cos(angles), np.sin(angles), (axis + 1) % 3, (axis + 2) % 3
    turns = np.zeros((len(angles), 3, 3))
    turns[:, axis, axis] = 1
    turns[:, i, i] = turns[:, j, j] = c
    turns[:, j, i], turns[:, i, j] = s, -s
    return turns


def rotations_of(matrices):
    """Of world matrices, whose columns may have any length above 0."""
    axes = matrices[:, :3, :3]
    return axes / np.linalg.norm(axes, axis=1, keepdims=True)


def square(axes):
    """Where a camera leans: the same view, with its other axes square to it."""
    back = axes[:, :, 2]
    right = np.cross(axes[:, :, 1], back)
    right /= np.linalg.norm(right, axis=1, keepdims=True)
    return np.stack([right, np.cross(back, right), back], axis=2)


def to_engine(worlds, centimetres):
    """Positions and heading, pitch, bank, (frames, 6), of world matrices; a unit is that many centimetres long."""
    m = np.einsum("ji,njk->nik", _UPRIGHT, square(rotations_of(worlds)))
    upside = np.hypot(m[:, 0, 2], m[:, 2, 2]) < 1e-9  # straight up or down: all of the turn is heading
    heading = np.where(upside, np.arctan2(-m[:, 2, 0], m[:, 0, 0]), np.arctan2(m[:, 0, 2], m[:, 2, 2]))
    pitch = np.arctan2(-m[:, 1, 2], np.hypot(m[:, 0, 2], m[:, 2, 2]))
    bank = np.where(upside, 0.0, -np.arctan2(m[:, 1, 0], m[:, 1, 1]))
    angles = np.unwrap(np.stack([heading, pitch, bank], axis=1), axis=0)
    return np.concatenate([worlds[:, [0, 2, 1], 3] * centimetres, angles], axis=1)


def from_engine(numbers, centimetres):
    """Places (frames, 3) and rotations in Blender's world of (frames, 6 or more) numbers."""
    turned = about(1, numbers[:, 3]) @ about(0, numbers[:, 4]) @ about(2, -numbers[:, 5])
    return numbers[:, [0, 2, 1]] / centimetres, _UPRIGHT @ turned


def from_euler(angles, order):
    """Rotations of (frames, 3) angles about x, y and z, which are turned about in that order: "XYZ" turns about x first."""
    first, second, third = (about(AXES.index(axis), angles[:, AXES.index(axis)]) for axis in order)
    return third @ second @ first


def to_euler(rotations, order, start):
    """Angles (frames, 3), each nearest to the frame before, the first to `start`."""
    i, j, k = (AXES.index(axis) for axis in order)
    sign = 1 if (j - i) % 3 == 1 else -1
    m = rotations
    cosine = np.hypot(m[:, i, i], m[:, j, i])
    level = cosine > 1e-9
    found = np.zeros((len(m), 3))
    found[:, j] = np.arctan2(-sign * m[:, k, i], cosine)
    found[:, i] = np.where(level, np.arctan2(sign * m[:, k, j], m[:, k, k]), np.arctan2(-sign * m[:, j, k], m[:, j, j]))
    found[:, k] = np.where(level, np.arctan2(sign * m[:, j, i], m[:, i, i]), 0.0)
    other = found + np.pi
    other[:, j] = np.pi - found[:, j]
    last, angles = np.array(start, dtype=float), np.empty_like(found)
    for frame, choices in enumerate(zip(found, other)):
        near = [choice + 2 * np.pi * np.round((last - choice) / (2 * np.pi)) for choice in choices]
        last = angles[frame] = min(near, key=lambda choice: np.abs(choice - last).sum())  # pylint: disable=cell-var-from-loop
    return angles


def from_quaternions(quaternions):
    """Rotations of (frames, 4) w, x, y, z of any length above 0."""
    w, x, y, z = (quaternions / np.linalg.norm(quaternions, axis=1, keepdims=True)).T
    return np.stack([
        np.stack([1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)], axis=1),
        np.stack([2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)], axis=1),
        np.stack([2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)], axis=1)], axis=1)


def to_quaternions(rotations, start):
    """(frames, 4) w, x, y, z, of the two of each turn the one nearer to the frame before, the first to `start`."""
    m = rotations
    # The component that is largest is found first: the others by what it is multiplied with.
    products = np.stack([
        np.stack([1 + m[:, 0, 0] + m[:, 1, 1] + m[:, 2, 2], m[:, 2, 1] - m[:, 1, 2], m[:, 0, 2] - m[:, 2, 0], m[:, 1, 0] - m[:, 0, 1]], axis=1),
        np.stack([m[:, 2, 1] - m[:, 1, 2], 1 + m[:, 0, 0] - m[:, 1, 1] - m[:, 2, 2], m[:, 0, 1] + m[:, 1, 0], m[:, 0, 2] + m[:, 2, 0]], axis=1),
        np.stack([m[:, 0, 2] - m[:, 2, 0], m[:, 0, 1] + m[:, 1, 0], 1 - m[:, 0, 0] + m[:, 1, 1] - m[:, 2, 2], m[:, 1, 2] + m[:, 2, 1]], axis=1),
        np.stack([m[:, 1, 0] - m[:, 0, 1], m[:, 0, 2] + m[:, 2, 0], m[:, 1, 2] + m[:, 2, 1], 1 - m[:, 0, 0] - m[:, 1, 1] + m[:, 2, 2]], axis=1)], axis=1)
    largest = np.argmax(np.stack([products[:, i, i] for i in range(4)], axis=1), axis=1)
    found = products[np.arange(len(m)), largest]
    found /= np.linalg.norm(found, axis=1, keepdims=True)
    last = np.array(start, dtype=float)
    for frame, quaternion in enumerate(found):
        if quaternion @ last < 0:
            found[frame] = -quaternion
        last = found[frame]
    return found
