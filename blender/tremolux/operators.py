"""What the panel's buttons do."""
import random

import bpy

from . import curves, library, properties, shake, writing
from .camera import MARK
from .library import LibraryError

FIRST_PRESET = "Documentary"
MOST_SEEDS = 100000


def active_camera(context):
    thing = context.object
    return thing if thing is not None and thing.type == "CAMERA" else None


class _OnCamera(bpy.types.Operator):
    bl_options = {"REGISTER", "UNDO"}

    @classmethod
    def poll(cls, context):
        camera = active_camera(context)
        return camera is not None and camera.library is None and hasattr(bpy.types.Object, "tremolux")

    def refreshed(self, context, is_wanted=False):
        camera = active_camera(context)
        if properties.refresh(context.scene, camera, is_wanted):
            return {"FINISHED"}
        self.report({"ERROR"}, camera.tremolux.message)
        return {"CANCELLED"}


    def with_preset(self, context, name, is_new, is_played=True):
        """The preset's settings where they are new to the camera, and the shake where it is played."""
        try:
            if is_new:
                properties.choose_preset(context.scene, active_camera(context), shake.preset_named(name))
        except LibraryError as error:
            self.report({"ERROR"}, str(error))
            return {"CANCELLED"}
        return self.refreshed(context) if is_played else {"FINISHED"}


class TREMOLUX_OT_add(_OnCamera):
    bl_idname, bl_label = "tremolux.add", "Add"
    bl_description = "Makes this camera hand-held: keys beside its own, which stay as they are"

    def execute(self, context):
        preset = active_camera(context).tremolux.preset or FIRST_PRESET
        return self.with_preset(context, preset, is_new=not active_camera(context).tremolux.preset)


class TREMOLUX_OT_update(_OnCamera):
    bl_idname, bl_label = "tremolux.update", "Update"
    bl_description = "Computes the shake anew, for a camera whose own motion has changed, and replaces keys that were edited"

    def execute(self, context):
        return self.refreshed(context, is_wanted=True)


class TREMOLUX_OT_remove(_OnCamera):
    bl_idname, bl_label = "tremolux.remove", "Remove"
    bl_description = "Takes the shake off: the camera is what it was"

    def execute(self, context):
        camera = active_camera(context)
        try:
            writing.check_record(camera)
        except LibraryError as error:
            self.report({"ERROR"}, str(error))
            return {"CANCELLED"}
        writing.remove(camera)
        camera.tremolux.message = ""
        return {"FINISHED"}


class TREMOLUX_OT_shuffle(_OnCamera):
    bl_idname, bl_label = "tremolux.shuffle", "Another Take"
    bl_description = "Another seed: the same shake, another take"

    def execute(self, context):
        state = active_camera(context).tremolux
        seed = next(parameter for parameter in library.parameters() if parameter.label == "Seed")
        setattr(state, f"p{seed.id}", random.randrange(MOST_SEEDS))
        return {"FINISHED"} if not state.message else {"CANCELLED"}


class TREMOLUX_OT_preset(_OnCamera):
    bl_idname, bl_label = "tremolux.preset", "Preset"
    bl_description = "Takes this preset's settings"
    name: bpy.props.StringProperty()

    @classmethod
    def description(cls, context, given):
        for preset in library.presets():
            if preset.name == given.name:
                return preset.sentence
        return cls.bl_description

    def execute(self, context):
        camera = active_camera(context)
        return self.with_preset(context, self.name, is_new=True, is_played=writing.is_shaken(camera))


class TREMOLUX_OT_jolts_from_markers(_OnCamera):
    bl_idname, bl_label = "tremolux.jolts_from_markers", "Jolts on Markers"
    bl_description = "A jolt on every marker of the timeline"

    def execute(self, context):
        frames = sorted({marker.frame for marker in context.scene.timeline_markers if marker.frame >= 0})
        active_camera(context).tremolux.jolts = ",".join(str(frame) for frame in frames)
        return {"FINISHED"}


class TREMOLUX_OT_jolts_from_sound(_OnCamera):
    bl_idname, bl_label = "tremolux.jolts_from_sound", "Jolts on Beats"
    bl_description = "A jolt on every beat of the sequencer's sound, a .wav file"

    def execute(self, context):
        camera = active_camera(context)
        editor = context.scene.sequence_editor
        # "sequences" until 4.3, "strips" from 4.4 on.
        all_strips = getattr(editor, "strips_all", None) or getattr(editor, "sequences_all", ())
        strips = [strip for strip in all_strips if strip.type == "SOUND"]
        if not strips:
            self.report({"ERROR"}, "there is no sound strip in the sequencer")
            return {"CANCELLED"}
        frames = set()
        for strip in strips:
            try:
                frames |= {frame for frame in shake.beats_of(context.scene, strip) if frame >= 0}
            except (LibraryError, OSError) as error:
                self.report({"ERROR"}, f"{strip.name}: {error}")
                return {"CANCELLED"}
        camera.tremolux.jolts = ",".join(map(str, sorted(frames)))
        return {"FINISHED"}


class TREMOLUX_OT_freeze(_OnCamera):
    bl_idname, bl_label = "tremolux.freeze", "Freeze"
    bl_description = "Leaves the keys that are there as they are, and forgets that they are a shake"

    @classmethod
    def poll(cls, context):
        camera = active_camera(context)
        return super().poll(context) and writing.is_shaken(camera)

    def execute(self, context):
        camera = active_camera(context)
        follower = writing.follower_of(camera)
        if follower is not None:
            del follower[writing.FOLLOWS]
        for owner in (camera, camera.data):
            for track in curves.tracks_of(owner, MARK):
                track.name = f"{MARK}, frozen"
            if owner.get(MARK) is not None:
                del owner[MARK]
        return {"FINISHED"}


CLASSES = (TREMOLUX_OT_add, TREMOLUX_OT_update, TREMOLUX_OT_remove, TREMOLUX_OT_shuffle, TREMOLUX_OT_preset,
           TREMOLUX_OT_jolts_from_markers, TREMOLUX_OT_jolts_from_sound, TREMOLUX_OT_freeze)
