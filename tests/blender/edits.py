"""Five hundred edits at random: after each the shake is the one that a fresh computation makes, undo and redo bring back what was
there, and Remove leaves the artist's camera."""
import copy
import os
import random
import tempfile

import bpy
from scenes import expect, new_camera, new_scene

EDITS = 500
MODES = "XYZ", "QUATERNION", "AXIS_ANGLE"
MOST_CAMERAS = 5
KINDS = ("setting",) * 4 + ("key", "key", "undo", "undo", "redo", "copy", "delete", "rename", "save", "shuffle", "preset", "remove")


def own_keys(camera):
    """Of the artist: those of the camera's and its data's own actions."""
    return [(curve.data_path, curve.array_index, [point.co[:] for point in curve.keyframe_points])
            for owner in (camera, camera.data) for curve in owner.animation_data.action.fcurves]


def shake_of(camera):
    from tremolux import curves, writing
    return [curves.numbers_of(action) for action in writing.actions_of(camera)]


def settings_of(camera):
    from tremolux import settings
    return [getattr(camera.tremolux, settings.name_of(parameter)) for parameter in settings.shown()]


def select(name):
    camera = bpy.data.objects[name]
    bpy.context.view_layer.objects.active = camera
    return camera


class Workspace:
    """What an artist does, what the artist's own keys must be after it, and what undo must bring back. Cameras are known by
    name: undo and loading make others of them."""

    def __init__(self):
        self.scene = new_scene()
        self.scene.frame_end = 20
        self.artist = {}  # name -> own keys
        self.shaken = set()
        for mode in MODES:
            self.artist[mode] = own_keys(new_camera(self.scene, mode, mode))
            select(mode)
            bpy.ops.tremolux.add()
            self.shaken.add(mode)
        self.file = os.path.join(tempfile.mkdtemp(), "scene.blend")
        self.forget()

    def state(self):
        return {name: (shake_of(bpy.data.objects[name]), settings_of(bpy.data.objects[name])) for name in self.artist}

    def forget(self):
        """There is nothing to undo."""
        bpy.ops.ed.undo_push(message="start")
        self.history, self.place = [self.remembered()], 0

    def remembered(self):
        return copy.deepcopy((self.artist, self.shaken, self.state()))

    def push(self):
        bpy.ops.ed.undo_push(message="edit")
        # Blender keeps 32 steps.
        self.history = (self.history[:self.place + 1] + [self.remembered()])[-30:]
        self.place = len(self.history) - 1

    def step(self, by):
        if not 0 <= self.place + by < len(self.history):
            return
        (bpy.ops.ed.undo if by < 0 else bpy.ops.ed.redo)()
        self.place += by
        self.artist, self.shaken, state = copy.deepcopy(self.history[self.place])
        self.scene = bpy.context.scene
        here = all(name in bpy.data.objects for name in self.artist)
        expect(here and self.state() == state, f"{'undo' if by < 0 else 'redo'} brings back something else")

    def setting(self, name):
        from tremolux import settings
        parameter = random.choice([parameter for parameter in settings.shown() if parameter.slider_maximum < 1e6])
        state = select(name).tremolux
        prop = state.bl_rna.properties[settings.name_of(parameter)]
        value = random.random() < 0.5 if prop.type == "BOOLEAN" else random.uniform(prop.soft_min, prop.soft_max)
        setattr(state, prop.identifier, value)

    def key(self, name):
        from tremolux import live
        camera = select(name)
        owner = random.choice((camera, camera.data))
        random.choice(list(owner.animation_data.action.fcurves)).keyframe_points[1].co.y += random.uniform(-0.1, 0.1)
        self.artist[name] = own_keys(camera)
        live.refresh_edited(self.scene)

    def copy(self, name):
        if len(self.artist) == MOST_CAMERAS:
            return
        camera = select(name)
        other = camera.copy()
        other.data = camera.data.copy()
        for made in (other, other.data):
            made.animation_data.action = made.animation_data.action.copy()
        self.scene.collection.objects.link(other)
        select(other.name)
        self.artist[other.name] = copy.deepcopy(self.artist[name])
        if name in self.shaken:
            self.shaken.add(other.name)
            bpy.ops.tremolux.update()

    def delete(self, name):
        if len(self.artist) == 1 or select(name).rotation_mode == "AXIS_ANGLE":
            return
        bpy.data.objects.remove(select(name))
        del self.artist[name]
        self.shaken.discard(name)

    def rename(self, name):
        camera = select(name)
        camera.name = f"Camera {random.randrange(10 ** 6)}"
        self.artist = {camera.name if one == name else one: keys for one, keys in self.artist.items()}
        self.shaken = {camera.name if one == name else one for one in self.shaken}

    def save(self, _):
        before = self.state()
        bpy.ops.wm.save_as_mainfile(filepath=self.file)
        bpy.ops.wm.open_mainfile(filepath=self.file)
        self.scene = bpy.context.scene
        expect(self.state() == before, "a file that was saved and opened has another shake")
        self.forget()

    def shuffle(self, name):
        select(name)
        bpy.ops.tremolux.shuffle()

    def preset(self, name):
        from tremolux import library
        select(name)
        bpy.ops.tremolux.preset(name=random.choice(library.presets()).name)

    def remove(self, name):
        select(name)
        if name in self.shaken:
            bpy.ops.tremolux.remove()
            self.shaken.remove(name)
        else:
            bpy.ops.tremolux.add()
            self.shaken.add(name)

    def expect_right(self, words):
        for name, keys in self.artist.items():
            camera = select(name)
            expect(own_keys(camera) == keys, f"{words}: keys of the artist on {name} are others")
            before = shake_of(camera)
            if not expect(bool(before) == (name in self.shaken), f"{words}: {name} has {len(before)} actions of a shake"):
                continue
            if before:
                bpy.ops.tremolux.update()
                expect(not camera.tremolux.message and shake_of(camera) == before,
                       f"{words}: {name} has another shake than its settings make: {camera.tremolux.message}")

    def expect_removed(self):
        for name in sorted(self.shaken):
            select(name)
            bpy.ops.tremolux.remove()
        for name, keys in self.artist.items():
            camera = select(name)
            expect(own_keys(camera) == keys, f"removed: keys of the artist on {name} are others")
            expect(camera.delta_location[:] == (0, 0, 0) and camera.delta_rotation_euler[:] == (0, 0, 0)
                   and camera.delta_rotation_quaternion[:] == (1, 0, 0, 0), f"removed: {name} has a delta")
            for owner in (camera, camera.data):
                expect(not owner.animation_data.nla_tracks and owner.animation_data.action_blend_type == "REPLACE"
                       and "TremoluxCam" not in owner, f"removed: {name} keeps something")
        expect({thing.name for thing in bpy.data.objects if thing.users} == set(self.artist), "removed: a camera is left")
        expect(not [action.name for action in bpy.data.actions if action.name.startswith("TremoluxCam") and action.users],
               "removed: an action is left")


def check_random_edits():
    random.seed(20261124)
    workspace = Workspace()
    for number in range(EDITS):
        kind, name = random.choice(KINDS), random.choice(sorted(workspace.artist))
        if kind in ("undo", "redo"):
            workspace.step(-1 if kind == "undo" else 1)
            workspace.expect_right(f"edit {number}, {kind}")
            continue
        getattr(workspace, kind)(name)
        workspace.expect_right(f"edit {number}, {kind} of {name}")
        if kind != "save":
            workspace.push()
    workspace.expect_removed()
    print(f"addon: {EDITS} edits at random, {len(workspace.artist)} cameras at the end")
