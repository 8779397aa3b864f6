// Handles of the table turned into nodes.
#pragma once

#include <vector>

#include "host/animation/track.h"
#include "host/scene/document.h"
#include "host/scene/object.h"
#include "host/scene/tag.h"
#include "host/table/guard.h"

struct HostAtomArray {
    std::vector<HostAtom *> atoms;
};

namespace host {

inline Node *AsNode(HostAtom *atom) { return static_cast<Node *>(atom); }
inline const Node *AsNode(const HostAtom *atom) { return static_cast<const Node *>(atom); }

// null when the handle is null or a node of another kind.
template <typename Kind>
Kind *AsKind(HostAtom *atom, std::int32_t classification) {
    Node *node = AsNode(atom);
    return node != nullptr && node->Classification() == classification ? static_cast<Kind *>(node) : nullptr;
}
inline Object *AsObject(HostAtom *atom) { return AsKind<Object>(atom, kTypeObject); }
inline const Object *AsObject(const HostAtom *atom) { return AsObject(const_cast<HostAtom *>(atom)); }
inline Tag *AsTag(HostAtom *atom) { return AsKind<Tag>(atom, kTypeTag); }
inline const Tag *AsTag(const HostAtom *atom) { return AsTag(const_cast<HostAtom *>(atom)); }
inline Document *AsDocument(HostAtom *atom) { return AsKind<Document>(atom, kTypeDocument); }
inline const Document *AsDocument(const HostAtom *atom) { return AsDocument(const_cast<HostAtom *>(atom)); }
inline Track *AsTrack(HostAtom *atom) { return AsKind<Track>(atom, kTypeTrack); }
inline const Track *AsTrack(const HostAtom *atom) { return AsTrack(const_cast<HostAtom *>(atom)); }
inline Curve *AsCurve(HostAtom *atom) { return AsKind<Curve>(atom, kTypeCurve); }
inline const Curve *AsCurve(const HostAtom *atom) { return AsCurve(const_cast<HostAtom *>(atom)); }
inline Key *AsKey(HostAtom *atom) { return AsKind<Key>(atom, kTypeKey); }
inline const Key *AsKey(const HostAtom *atom) { return AsKey(const_cast<HostAtom *>(atom)); }

}  // namespace host
