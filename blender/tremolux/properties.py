"""What the add-on keeps with a camera."""
import contextlib

import bpy

from . import library, settings, shake, writing
from .library import LibraryError

_silent = [False]


@contextlib.contextmanager
def silently():
    """Within it, properties change without a new computation."""
    before, _silent[0] = _silent[0], True
    try:
        yield
    finally:
        _silent[0] = before


def refresh(scene, camera, is_wanted=False):
    """Brings the shake to what the settings say. What goes wrong is a line in the panel. `is_wanted`: over keys, too, that were
    edited by hand. True when the shake is there."""
    state = camera.tremolux
    if not is_wanted and writing.is_edited(camera):
        state.message = "The keys of the shake were edited by hand: Update replaces them."
        return False
    from . import live  # pylint: disable=import-outside-toplevel,cyclic-import

    try:
        shake.put_on(scene, camera)
        writing.remember_input(camera, live.input_mark(camera))
    except LibraryError as error:
        state.message = str(error)
        return False
    state.message = ""
    return True


def changed(state, context):
    camera = state.id_data
    if not _silent[0] and writing.is_shaken(camera):
        refresh(context.scene, camera)


def choose_preset(scene, camera, preset):
    """Sets every property to what the preset has at the scene's rate."""
    from . import camera as cameras  # pylint: disable=import-outside-toplevel

    state = camera.tremolux
    with silently():
        state.preset = preset.name
        for parameter, value in shake.values_of(preset, cameras.rate_of(scene)).items():
            setattr(state, settings.name_of(parameter), settings.to_property(parameter, value))


def _is_other(state, thing):
    return thing != state.id_data


def _make():
    """The group of properties, from the engine's table."""
    annotations = {settings.name_of(parameter): settings.property_of(parameter, changed) for parameter in settings.shown()}
    annotations.update({
        "preset": bpy.props.StringProperty(name="Preset"),
        "search": bpy.props.StringProperty(name="Search", description="Shows the presets that have this in their name",
                                           options={"TEXTEDIT_UPDATE"}),
        "is_live": bpy.props.BoolProperty(name="Live", default=True, options=set(),
                                          description="Shakes anew a moment after the camera's own motion was edited"),
        "use_follower": bpy.props.BoolProperty(name="On a camera beside it", update=changed,
                                               description="Leaves this camera alone: another one, with plain keys, has the "
                                                           "shaken motion, as programs want that know no delta channels"),
        "message": bpy.props.StringProperty(),
        "jolts": bpy.props.StringProperty(name="Jolts", description="Frames that a jolt hits, with commas between them",
                                          update=changed),
        "amount": bpy.props.FloatProperty(name="Amount", description="How much of the shake there is", subtype="PERCENTAGE",
                                          min=0, max=100, default=100, update=changed),
        "use_range": bpy.props.BoolProperty(name="From, until", description="Shakes some frames alone", update=changed),
        "first_frame": bpy.props.IntProperty(name="From", description="The first frame that is shaken", default=1,
                                             update=changed),
        "last_frame": bpy.props.IntProperty(name="Until", description="The last frame that is shaken", default=250,
                                            update=changed),
        "fade_in": bpy.props.IntProperty(name="Fade in", description="Frames in which the shake rises", min=0, update=changed),
        "fade_out": bpy.props.IntProperty(name="Fade out", description="Frames in which the shake falls", min=0,
                                          update=changed),
        "target": bpy.props.PointerProperty(name="Target", type=bpy.types.Object, poll=_is_other, update=changed,
                                            description="What the camera turns to"),
        "focus_object": bpy.props.PointerProperty(name="Focus", type=bpy.types.Object, poll=_is_other, update=changed,
                                                  description="What the camera focuses on"),
    })
    return type("TremoluxSettings", (bpy.types.PropertyGroup,), {"__annotations__": annotations})


_registered = []


def register():
    try:
        kind = _make()
    except LibraryError:
        return  # the panel says why
    bpy.utils.register_class(kind)
    _registered.append(kind)
    bpy.types.Object.tremolux = bpy.props.PointerProperty(type=kind)


def unregister():
    if _registered:
        del bpy.types.Object.tremolux
        bpy.utils.unregister_class(_registered.pop())


def trouble():
    """Why there is no engine, in one line; empty where there is one."""
    try:
        library.version()
    except LibraryError as error:
        return str(error)
    return ""
