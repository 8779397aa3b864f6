"""From a camera and its settings to the shaken camera."""
import numpy as np

from . import camera as cameras
from . import curves, library, settings, writing
from .library import LibraryError

_defaults = {}  # (preset's name, rate) -> {parameter: value} after the preset was applied


def preset_named(name):
    for preset in library.presets():
        if preset.name == name:
            return preset
    raise LibraryError(f"there is no preset '{name}' in this version")


def values_of(preset, rate):
    """What a preset sets at a rate, for the properties: {parameter: stored value}."""
    key = (preset.name, rate)
    if key not in _defaults:
        still = [0.0] * 6 + [36.0, 0.0]
        with library.Move(0, rate, still) as move, library.Shot(move) as shot:
            shot.apply_preset(preset)
            _defaults[key] = {parameter: shot.get(parameter.id) for parameter in settings.shown()}
    return _defaults[key]


def _points(thing, scene, frames):
    """Where an object is, frame by frame, for the engine."""
    import bpy  # pylint: disable=import-outside-toplevel

    frame, subframe = scene.frame_current, scene.frame_subframe
    unit = cameras.centimetres(scene)
    numbers = []
    for number in frames:
        scene.frame_set(number)
        x, y, z = thing.evaluated_get(bpy.context.evaluated_depsgraph_get()).matrix_world.translation
        numbers += [x * unit, z * unit, y * unit, 0.0, 0.0, 0.0, 36.0, 0.0]
    scene.frame_set(frame, subframe=subframe)
    return numbers


def _keyed_values(camera, parameter, frames):
    """Of a property that the artist keyed, one a frame; None without keys."""
    path = f"tremolux.{settings.name_of(parameter)}"
    animation = camera.animation_data
    for curve in curves.curves_of(animation.action if animation else None, camera):
        if curve.data_path == path:
            return [settings.from_property(parameter, curve.evaluate(frame)) for frame in frames]
    return None


def _set_up(shot, camera, state, rate, frames):
    preset = preset_named(state.preset)
    shot.apply_preset(preset)
    made = values_of(preset, rate)
    for parameter in settings.shown():
        value = settings.from_property(parameter, getattr(state, settings.name_of(parameter)))
        # Blender keeps floats of single precision: what was not touched is the preset's own.
        if not np.isclose(value, made[parameter], rtol=1e-6, atol=1e-9):
            shot.set(parameter.id, value)
        keyed = _keyed_values(camera, parameter, frames)
        if keyed is not None:
            for frame, number in zip(frames, keyed):
                shot.key(parameter.id, frame, number)
    if state.jolts.strip():
        shot.set_text("Custom Trigger", state.jolts)


def numbers_of(scene, camera, motion):
    """The shaken camera, (frames, 8), for the motion that the camera has. Raises a LibraryError."""
    state, rate = camera.tremolux, cameras.rate_of(scene)
    frames = range(motion.first_frame, motion.first_frame + len(motion.worlds))
    plain = cameras.numbers_of(motion, scene)
    back = cameras.film_back(camera.data, scene)
    with library.Move(frames[0], rate, plain.ravel().tolist(), back) as move, library.Shot(move) as shot:
        _set_up(shot, camera, state, rate, frames)
        for thing, link in ((state.target, shot.set_target), (state.focus_object, shot.set_focus_object)):
            if thing is not None:
                with library.Move(frames[0], rate, _points(thing, scene, frames)) as points:
                    link(points)
        first = state.first_frame if state.use_range else frames[0]
        last = max(first, state.last_frame if state.use_range else frames[-1])
        shot.direct(first, last, state.fade_in, state.fade_out, state.amount / settings.PER_CENT)
        return np.array(shot.played()).reshape(-1, library.NUMBERS_PER_FRAME)


def beats_of(scene, strip):
    """Frames of the scene on which a sound strip has beats, between its visible ends. Raises a LibraryError or an OSError."""
    import bpy  # pylint: disable=import-outside-toplevel

    file = bpy.path.abspath(strip.sound.filepath)
    with open(file, "rb") as sound:
        data = sound.read()
    first, frames = int(strip.frame_start), int(strip.frame_duration) + 1
    with library.Move(first, cameras.rate_of(scene), ([0.0] * 6 + [36.0, 0.0]) * frames) as move:
        beats = [frame for frame, _ in library.events(move, file, data)]
    return [frame for frame in beats if strip.frame_final_start <= frame < strip.frame_final_end]


def put_on(scene, camera):
    """Computes the shake anew and writes it, in place of the one that was there. Raises a LibraryError, and leaves that one."""
    writing.check_record(camera)
    preset_named(camera.tremolux.preset)
    frames = cameras.frames_of(scene)
    with writing.lifted(camera):
        motion = cameras.read_motion(scene, camera, frames)
        cameras.check(motion)
        numbers = numbers_of(scene, camera, motion)
    writing.write(scene, camera, motion, numbers)
