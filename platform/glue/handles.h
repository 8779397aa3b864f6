// The one place where the classes of the interface and the structs of the table turn into each other: value classes
// have the table's layout, and a pointer to any other class is the host's handle.
#pragma once

#include "c4d.h"
#include "customgui_priority.h"
#include "customgui_splinecontrol.h"
#include "lib_description.h"
#include "platform/glue/host.h"
#include "platform/table_layout.h"

#define SAME_LAYOUT(Ours, Theirs)                                                                       \
    static_assert(sizeof(Ours) == sizeof(Theirs) && alignof(Ours) == alignof(Theirs), #Ours);           \
    inline Theirs *ToTable(Ours *value) { return reinterpret_cast<Theirs *>(value); }                   \
    inline const Theirs *ToTable(const Ours *value) { return reinterpret_cast<const Theirs *>(value); } \
    inline Ours *FromTable(Theirs *value) { return reinterpret_cast<Ours *>(value); }                   \
    inline const Ours *FromTable(const Theirs *value) { return reinterpret_cast<const Ours *>(value); }

SAME_LAYOUT(Vector, TableVector)
SAME_LAYOUT(Matrix, TableMatrix)
SAME_LAYOUT(BaseTime, TableTime)
SAME_LAYOUT(String, TableString)
SAME_LAYOUT(Filename, TableFilename)
SAME_LAYOUT(GeData, TableData)
SAME_LAYOUT(BaseContainer, TableContainer)
SAME_LAYOUT(DescLevel, TableDescLevel)
SAME_LAYOUT(DescID, TableDescID)
SAME_LAYOUT(CustomSplineKnot, TableSplineKnot)
SAME_LAYOUT(LocalFileTime, TableFileTime)
#undef SAME_LAYOUT

#define SAME_SIZE(Ours, Theirs) static_assert(sizeof(Ours) == sizeof(Theirs), #Ours)
SAME_SIZE(DescriptionInitUndo, TableDescriptionInitUndo);
SAME_SIZE(DescriptionCheckUpdate, TableDescriptionCheckUpdate);
SAME_SIZE(DescriptionCommand, TableDescriptionCommand);
SAME_SIZE(DescriptionPostSetValue, TableDescriptionPostSetValue);
SAME_SIZE(DescriptionValidate, TableDescriptionValidate);
SAME_SIZE(DocumentImported, TableDocumentImported);
SAME_SIZE(DocumentInfoData, TableDocumentInfo);
SAME_SIZE(IconData, TableIconData);
SAME_SIZE(GetCustomIconData, TableGetCustomIcon);
SAME_SIZE(DragAndDrop, TableDragAndDrop);
#undef SAME_SIZE

#define SAME_PLACE(Ours, ours, Theirs, theirs) static_assert(offsetof(Ours, ours) == offsetof(Theirs, theirs), #Ours)
SAME_PLACE(CustomSplineKnot, vTangentLeft, TableSplineKnot, tangent_left);
SAME_PLACE(CustomSplineKnot, interpol, TableSplineKnot, interpolation);
SAME_PLACE(DescriptionCheckUpdate, descid, TableDescriptionCheckUpdate, id);
SAME_PLACE(DescriptionCommand, msg, TableDescriptionCommand, message);
SAME_PLACE(IconData, flags, TableIconData, flags);
SAME_PLACE(DragAndDrop, data, TableDragAndDrop, data);
SAME_PLACE(DragAndDrop, msg, TableDragAndDrop, message);
SAME_PLACE(DragAndDrop, result, TableDragAndDrop, result);
#undef SAME_PLACE

// A handle carries no constness of its own: the table says with its argument types what it leaves alone.
inline HostAtom *ToHost(const C4DAtom *node) { return reinterpret_cast<HostAtom *>(const_cast<C4DAtom *>(node)); }
template <class Node>
inline Node *FromHost(HostAtom *node) {
    return reinterpret_cast<Node *>(node);
}

#define SAME_HANDLE(Ours, Theirs)                                                                                \
    inline Theirs *ToHost(const Ours *handle) { return reinterpret_cast<Theirs *>(const_cast<Ours *>(handle)); } \
    inline Ours *FromHost(Theirs *handle) { return reinterpret_cast<Ours *>(handle); }

SAME_HANDLE(BaseLink, HostLink)
SAME_HANDLE(CustomDataType, HostCustomData)
SAME_HANDLE(AtomArray, HostAtomArray)
SAME_HANDLE(AliasTrans, HostAliasTrans)
SAME_HANDLE(Description, HostDescription)
SAME_HANDLE(HyperFile, HostHyperFile)
SAME_HANDLE(BrowseFiles, HostBrowseFiles)
SAME_HANDLE(BaseBitmap, HostBitmap)
SAME_HANDLE(BaseDraw, HostView)
SAME_HANDLE(BaseThread, HostThread)
SAME_HANDLE(PriorityList, HostPriorityList)
#undef SAME_HANDLE
