"""The panel, in the camera's properties and in the side bar of the 3D view."""
from itertools import groupby

import bpy

from . import library, operators, properties, settings, writing


class TREMOLUX_MT_presets(bpy.types.Menu):
    bl_idname, bl_label = "TREMOLUX_MT_presets", "Presets"

    def draw(self, context):
        for category, presets in groupby(library.presets(), key=lambda preset: preset.category):
            self.layout.label(text=category)
            for preset in presets:
                self.layout.operator("tremolux.preset", text=preset.name).name = preset.name


def _draw_presets(layout, state):
    row = layout.row(align=True)
    row.menu("TREMOLUX_MT_presets", text=state.preset or "Preset")
    row.operator("tremolux.shuffle", text="", icon="FILE_REFRESH")
    layout.prop(state, "search", icon="VIEWZOOM", text="")
    wanted = state.search.casefold().strip()
    if not wanted:
        return
    found = [preset for preset in library.presets() if wanted in f"{preset.category} {preset.name}".casefold()]
    for preset in found:
        layout.operator("tremolux.preset", text=preset.name, emboss=preset.name != state.preset).name = preset.name
    if not found:
        layout.label(text="No preset has that in its name")


def _draw_direction(layout, state):
    column = layout.column(align=True)
    column.prop(state, "amount", slider=True)
    column.prop(state, "use_follower")
    column.prop(state, "use_range")
    if state.use_range:
        row = column.row(align=True)
        row.prop(state, "first_frame")
        row.prop(state, "last_frame")
    row = column.row(align=True)
    row.prop(state, "fade_in")
    row.prop(state, "fade_out")
    layout.prop(state, "target")
    layout.prop(state, "focus_object")
    row = layout.row(align=True)
    row.prop(state, "jolts")
    row.operator("tremolux.jolts_from_markers", text="", icon="MARKER_HLT")
    row.operator("tremolux.jolts_from_sound", text="", icon="SOUND")


class _Panel:
    bl_label = "Tremolux"

    @classmethod
    def poll(cls, context):
        return operators.active_camera(context) is not None

    def draw(self, context):
        layout = self.layout
        trouble = properties.trouble()
        if trouble:
            layout.label(text=trouble, icon="ERROR")
            return
        camera = operators.active_camera(context)
        if camera.library is not None:
            layout.label(text="It is linked from another file: make a library override of it", icon="LINKED")
            return
        state = camera.tremolux
        row = layout.row(align=True)
        if writing.is_shaken(camera):
            row.operator("tremolux.update", icon="FILE_REFRESH")
            row.operator("tremolux.remove", icon="X")
            row = layout.row(align=True)
            row.operator("tremolux.freeze", icon="FREEZE")
            row.prop(state, "is_live", toggle=True)
        else:
            row.operator("tremolux.add", icon="ADD")
        if state.message:
            layout.label(text=state.message, icon="ERROR")
        follower = writing.follower_of(camera)
        if follower is not None:
            layout.label(text=f"{follower.name} has the shake", icon="INFO")
        _draw_presets(layout, state)
        _draw_direction(layout, state)


class _Settings:
    bl_label = "Settings"
    bl_options = {"DEFAULT_CLOSED"}

    @classmethod
    def poll(cls, context):
        return operators.active_camera(context) is not None and not properties.trouble()

    def draw(self, context):
        state = operators.active_camera(context).tremolux
        for tab, of_tab in groupby(settings.shown(), key=lambda parameter: parameter.tab):
            self.layout.label(text=tab)
            for section, parameters in groupby(of_tab, key=lambda parameter: parameter.section):
                box = self.layout.box()
                if section:
                    box.label(text=section)
                for parameter in parameters:
                    box.prop(state, settings.name_of(parameter))


class TREMOLUX_PT_data(_Panel, bpy.types.Panel):
    bl_idname = "TREMOLUX_PT_data"
    bl_space_type, bl_region_type, bl_context = "PROPERTIES", "WINDOW", "data"


class TREMOLUX_PT_data_settings(_Settings, bpy.types.Panel):
    bl_parent_id = "TREMOLUX_PT_data"
    bl_space_type, bl_region_type, bl_context = "PROPERTIES", "WINDOW", "data"


class TREMOLUX_PT_view(_Panel, bpy.types.Panel):
    bl_idname = "TREMOLUX_PT_view"
    bl_space_type, bl_region_type, bl_category = "VIEW_3D", "UI", "Tremolux"


class TREMOLUX_PT_view_settings(_Settings, bpy.types.Panel):
    bl_parent_id = "TREMOLUX_PT_view"
    bl_space_type, bl_region_type, bl_category = "VIEW_3D", "UI", "Tremolux"


CLASSES = (TREMOLUX_MT_presets, TREMOLUX_PT_data, TREMOLUX_PT_data_settings, TREMOLUX_PT_view, TREMOLUX_PT_view_settings)
